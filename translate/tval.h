// Values that the init function computes from the kernel's parameters and
// stores in the parameter block, one table of them per translated loop.
#ifndef ZLC_TRANSLATE_TVAL_H
#define ZLC_TRANSLATE_TVAL_H

#include <cstdint>
#include <map>
#include <string>

#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/symtab.h"
#include "ZELT_ZLC/text_out.h"

class TCMD;
class TKERNEL;
class TVAL_TABLE;
class VPEXPR;

class TVAL : public SYMREG {
 public:
  TVAL(const DIAG_SRCINFO& srcinfo, const std::string& name, TVAL_TABLE* table,
       std::string type);

  // Where the init function stores the value and the loops read it.
  virtual std::string init_ref() const;

  PARM_SET parm_refs() const;
  bool depends_on_update_parms() const;
  bool matches(const std::string& other_type, const VPEXPR* expr) const;
  // Stores the expression and its assignment statement.
  void add_pexpr(const VPEXPR* expr);

  TVAL_TABLE* table;
  std::string type;
  const VPEXPR* pexpr = nullptr;
  std::string assignment;
};

// The run-time count of a repeat loop: one field for all repeat iterations.
class TVAL_RT : public TVAL {
 public:
  using TVAL::TVAL;
  std::string init_ref() const override;
};

class TVAL_TABLE {
 public:
  TVAL_TABLE(TKERNEL& kernel, TCMD& cmd) : kernel(&kernel), cmd(&cmd) {}
  TVAL_TABLE(const TVAL_TABLE&) = delete;
  TVAL_TABLE& operator=(const TVAL_TABLE&) = delete;

  // The value of `expr` as `type`, shared with an earlier equal request.
  TVAL* new_tval(const std::string& type, const VPEXPR* expr);
  // The repeat count "tripcount", outside the numbered values.
  TVAL_RT* new_tval_rt(const VPEXPR* expr);

  // The assignments of the init function, or with `update` those of the
  // update function: only values that depend on update parameters.
  void format_init(TEXT_OUT& out, bool update) const;
  // The typedef of the loop's value struct.
  void format_typedef(TEXT_OUT& out) const;

  // "loop" and the loop's id: the member of the kernel's value struct.
  std::string name() const;
  // The loop's value struct: kernel name, "_loop", id, "_tvals_t".
  std::string type() const;

  std::map<std::string, TVAL*, NAME_LESS> by_name;
  std::map<int32_t, TVAL*> by_number;
  TKERNEL* kernel;
  uint32_t next_number = 0;
  TCMD* cmd;
  TVAL_RT* rt = nullptr;
};

#endif
