// Address generators: one stride per loop depth from the declaration's
// formula, the increments that the hardware adds per depth, and the table of
// one loop level.
#ifndef ZLC_ZELT_ZLC_AGEN_H
#define ZLC_ZELT_ZLC_AGEN_H

#include <array>
#include <cstdint>
#include <string>

#include "ZELT_ZLC/symtab.h"

class PREG;
class VCMD;
class VPEXPR;

class AGEN : public SYMREG {
 public:
  // Loop depths 0 (the `foreach`) to 4 (the innermost possible `for`).
  static constexpr int max_depth = 5;

  enum agen_flags : uint32_t {
    AF_MEM_REF = 1,  // a load or store addresses memory through it
  };

  AGEN(const DIAG_SRCINFO& srcinfo, const std::string& name) : SYMREG(srcinfo, name) {}

  std::string format_prefix() const override { return "_AGEN"; }

  bool has_incr() const;
  // The first caller binds the generator to the role `value`; it can serve
  // one load or store only, so any later call is reported and fails.
  bool check_and_assign(int32_t value, const DIAG_SRCINFO& srcinfo);

  bool has_init = false;  // the declaration or an assignment gave a formula
  int32_t deepest_depth = 0;
  std::array<const VPEXPR*, max_depth> strides{};  // by loop depth; null where none
  std::array<PREG*, max_depth> increments{};       // depths 1 to 4; null until induction
  uint32_t flags = 0;
  int32_t condition = 0;  // 0 none, 1 an increment is 0, 2 one could be 0
};

class AGEN_TABLE : public SYM_TABLE<AGEN> {
 public:
  static constexpr unsigned max_agens = 8;

  // Enters a generator; past `max_agens` in one table it is reported, and
  // returned all the same.
  AGEN* new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name);

  // Generators that have at least one increment.
  int32_t num_agens() const;

  // Turns the strides of every generator into the increments of the loop
  // `vcmd`, held in its parameter registers, and sets `condition`.
  void induction(VCMD& vcmd);
};

#endif
