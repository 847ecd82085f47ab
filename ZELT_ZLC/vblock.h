// The base of everything that stands in a vector loop, the memory reference
// of loads and stores, and the loop level that holds instructions together
// with its own registers and generators.
#ifndef ZLC_ZELT_ZLC_VBLOCK_H
#define ZLC_ZELT_ZLC_VBLOCK_H

#include <cstdint>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/vdata_type.h"
#include "ZELT_ZLC/vreg.h"

class PARM;
class PREG;
class VBLOCK;
class VCMD;
class VKERNEL;
class VPEXPR;

// A memory reference: the pointer parameter, its base and offset, the
// address text in a two-word parameter register, and the generator.
struct VLVALUE {
  DIAG_SRCINFO_DATA srcinfo;
  PARM* parm = nullptr;
  const VPEXPR* base = nullptr;
  const VPEXPR* offset = nullptr;
  PREG* preg = nullptr;
  const VPEXPR* addr = nullptr;
  AGEN* agen = nullptr;
  VDATA_TYPE type;
  int32_t circ = 0;  // circular buffer code, 0 for none
};

class VINSTR {
 public:
  // What an instruction is; a class answers with its own bit and those of
  // its bases.
  enum instr_class : uint32_t {
    IC_VINIT = 1u << 0,
    IC_VLOAD = 1u << 1,
    IC_VHUP = 1u << 2,
    IC_VTLD = 1u << 3,
    IC_VSTORE = 1u << 4,
    IC_VMOVE = 1u << 5,
    IC_VEXIT = 1u << 6,
    IC_VOP = 1u << 7,
    IC_VINCR = 1u << 8,
    IC_VBLOCK = 1u << 9,
    IC_VRPT = 1u << 10,
    IC_VPRINT = 1u << 11,
  };

  // Where an instruction stands in its loop body.
  enum POSITION : int32_t {
    POS_UNKNOWN = 0,
    POS_BEFORE_NESTED = 1,
    POS_AFTER_NESTED = 2,
    POS_INNERMOST = 3,
  };

  VINSTR(const DIAG_SRCINFO& at, VCMD* vcmd)
      : srcinfo(at.file(), at.line(), at.column(), at.approx()), vcmd(vcmd) {}
  virtual ~VINSTR() = default;
  VINSTR(const VINSTR&) = delete;
  VINSTR& operator=(const VINSTR&) = delete;

  // Run once when the loop closes; adds this instruction's parameter words
  // to `count`.
  virtual void analyze(int32_t& count) { (void)count; }
  // The rules of the instruction kind, applied when it is added; false keeps
  // it out of its block.
  virtual bool check_if_valid() { return true; }
  // The memory reference of a load, store, histogram update or lookup.
  virtual VLVALUE* lvalue() const { return nullptr; }
  virtual std::string to_string() const = 0;

  // Queries that the loop's own rules ask of every instruction; each kind
  // answers those that concern it.
  virtual uint32_t class_mask() const { return 0; }
  // The full operation word of an operation, "__zelt_vadd".
  virtual std::string op_name() const { return {}; }
  // The register that a load writes, and whether it is a deinterleaving
  // load that also writes the register's pair partner.
  virtual VREG* load_dst() const { return nullptr; }
  virtual bool is_deinterleave() const { return false; }
  // The level an early exit leaves (0 the vector loop, 1 the `foreach`,
  // 2 not set), and where its control index goes.
  virtual int32_t exit_level() const { return 2; }
  virtual void set_ctrl_index(int32_t index) { (void)index; }

  bool is_vinit() const { return (class_mask() & IC_VINIT) != 0; }
  bool is_vload() const { return (class_mask() & IC_VLOAD) != 0; }
  bool is_vhup() const { return (class_mask() & IC_VHUP) != 0; }
  bool is_vtld() const { return (class_mask() & IC_VTLD) != 0; }
  bool is_vstore() const { return (class_mask() & IC_VSTORE) != 0; }
  bool is_vmove() const { return (class_mask() & IC_VMOVE) != 0; }
  bool is_vexit() const { return (class_mask() & IC_VEXIT) != 0; }
  bool is_vop() const { return (class_mask() & IC_VOP) != 0; }
  bool is_vincr() const { return (class_mask() & IC_VINCR) != 0; }
  bool is_vblock() const { return (class_mask() & IC_VBLOCK) != 0; }
  bool is_vrpt() const { return (class_mask() & IC_VRPT) != 0; }
  bool is_vprint() const { return (class_mask() & IC_VPRINT) != 0; }

  POSITION position() const;
  // The loop level of this instruction, normalised so that the innermost
  // loop is 4.
  int32_t zelt_depth() const;

  DIAG_SRCINFO_DATA srcinfo;
  VCMD* vcmd;
  VBLOCK* parent = nullptr;  // null until added to a block
  int32_t depth = 0;         // the parent's depth + 1
};

using VINSTR_PREDICATE = bool (VINSTR::*)() const;

// One loop level.  The root level of a vector loop has depth -2 and no loop
// variable; a `foreach` has depth -1, `for` levels have depths 0 to 3.
class VBLOCK : public VINSTR {
 public:
  VBLOCK(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VKERNEL& kernel, std::string lcv,
         const VPEXPR* tripcount)
      : VINSTR(srcinfo, vcmd), lcv(std::move(lcv)), tripcount(tripcount), kernel(kernel) {}

  void analyze(int32_t& count) override;
  std::string to_string() const override { return "VBLOCK"; }
  uint32_t class_mask() const override { return IC_VBLOCK; }

  // Appends `instr` and makes this block its parent.  A nested level makes
  // the operations already here stand outside the innermost loop, which is
  // reported at each of them.
  void add(VINSTR* instr);
  // Where `instr`, a child of this block, stands.
  POSITION position(const VINSTR* instr) const;
  // The direct children that pass `predicate` (all with null), in order.
  std::vector<VINSTR*> get_instrs_of_type(VINSTR_PREDICATE predicate) const;

  // Registers: this level, its ancestors, then the kernel's table.
  VREG* lookup_vreg(std::string_view name) const;
  // Generators: this level and its ancestors.
  AGEN* lookup_agen(std::string_view name) const;

  // Declarations in this level, with the redeclaration rules; null when
  // the name can't be declared here.
  VREG* new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& name);
  AGEN* new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name);

  // Generators of this level that have an increment.
  int32_t agen_count() const { return agens.num_agens(); }

  std::vector<VINSTR*> instrs;  // in source order
  std::string lcv;              // the loop variable
  const VPEXPR* tripcount;
  VREG_TABLE vregs;
  AGEN_TABLE agens;
  VKERNEL& kernel;
};

// A `foreach` level: `count` iterations out of at most `max`.
class VRPT : public VBLOCK {
 public:
  VRPT(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VKERNEL& kernel, std::string lcv,
       const VPEXPR* count, const VPEXPR* max)
      : VBLOCK(srcinfo, vcmd, kernel, std::move(lcv), count), max(max) {}

  uint32_t class_mask() const override { return IC_VBLOCK | IC_VRPT; }

  const VPEXPR* count() const { return tripcount; }

  const VPEXPR* max;
  int32_t ctrl_index = 0;
};

// A print statement: a register and a text.
class VPRINT : public VINSTR {
 public:
  VPRINT(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VREG* vreg, std::string text)
      : VINSTR(srcinfo, vcmd), vreg(vreg), text(std::move(text)) {}

  std::string to_string() const override { return "VPRINT"; }
  uint32_t class_mask() const override { return IC_VPRINT; }

  VREG* vreg;
  std::string text;
};

#endif
