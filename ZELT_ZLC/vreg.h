// Vector registers: a name, an optional pair partner, the name its value
// moved to, and an element type; and the table of one kernel or loop level.
#ifndef ZLC_ZELT_ZLC_VREG_H
#define ZLC_ZELT_ZLC_VREG_H

#include <string>

#include "ZELT_ZLC/symtab.h"
#include "ZELT_ZLC/vdata_type.h"

class VREG : public SYMREG {
 public:
  VREG(const DIAG_SRCINFO& srcinfo, const std::string& name) : SYMREG(srcinfo, name) {}

  std::string format_prefix() const override { return "_VREG"; }

  VREG* pair_primary = nullptr;
  VREG* pair_secondary = nullptr;
  bool flag = false;
  // When not empty, the value of this register lives on under that name and
  // this name is dead.
  std::string alias_name;
  VDATA_TYPE type = VDATA_TYPE::untyped;
};

class VREG_TABLE : public SYM_TABLE<VREG> {
 public:
  VREG* new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& name, int32_t number) {
    return new_sym(srcinfo, name, number);
  }

  // Forgets every alias: all registers are alive under their own names.
  void revive_vregs();
};

#endif
