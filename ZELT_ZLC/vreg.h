// Vector and scalar registers: a name, an optional pair partner, the name a
// vector register's value moved to, and an element type; and their tables.
#ifndef ZLC_ZELT_ZLC_VREG_H
#define ZLC_ZELT_ZLC_VREG_H

#include <cstdint>
#include <set>
#include <string>

#include "ZELT_ZLC/symtab.h"
#include "ZELT_ZLC/vdata_type.h"

struct VLVALUE;

class VREG : public SYMREG {
 public:
  VREG(const DIAG_SRCINFO& srcinfo, const std::string& name)
      : SYMREG(srcinfo, name), serial(next_serial++) {}

  std::string format_prefix() const override { return "_VREG"; }

  // Makes (this, other) a register pair; a register can't pair with itself
  // nor belong to two different pairs.
  void set_pair_partner(VREG* other, const DIAG_SRCINFO& srcinfo);
  // Records this register as the second of the pair led by `first`.
  void set_pair_as_secondary(VREG* first);
  // The other register of this one's pair, or null.
  VREG* pair_partner() const;

  // An untyped register takes 32 bits from a signed reference of any width,
  // or from an unsigned 32-bit one.
  void set_type_from_lvalue(const VLVALUE* lvalue);

  VREG* pair_primary = nullptr;
  VREG* pair_secondary = nullptr;
  bool load_target = false;  // a load writes this register
  // When not empty, the value of this register lives on under that name and
  // this name is dead.
  std::string alias_name;
  VDATA_TYPE type = VDATA_TYPE::untyped;
  const uint32_t serial;  // order of creation across the run

 private:
  static inline uint32_t next_serial = 0;
};

// Orders registers by creation, null first, so that maps keyed by register
// iterate the same way in every run.
struct VREG_ORDER {
  bool operator()(const VREG* a, const VREG* b) const {
    if (!a || !b) return !a && b;
    return a->serial < b->serial;
  }
};

class VREG_TABLE : public SYM_TABLE<VREG> {
 public:
  VREG* new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& name, int32_t number) {
    return new_sym(srcinfo, name, number);
  }

  // Forgets every alias: all registers are alive under their own names.
  void revive_vregs();
  // The registers that currently carry an alias, for membership tests.
  std::set<VREG*> all_aliased_regs() const;
};

class SREG : public SYMREG {
 public:
  SREG(const DIAG_SRCINFO& srcinfo, const std::string& name) : SYMREG(srcinfo, name) {}

  std::string format_prefix() const override { return "_SREG"; }

  VDATA_TYPE type = VDATA_TYPE::untyped;
};

class SREG_TABLE : public SYM_TABLE<SREG> {
 public:
  SREG* new_sreg(const DIAG_SRCINFO& srcinfo, const std::string& name, int32_t number) {
    return new_sym(srcinfo, name, number);
  }
};

#endif
