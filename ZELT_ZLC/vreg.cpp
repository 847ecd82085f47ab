// Vector registers: pairs, types taken from memory references, aliases.
#include "ZELT_ZLC/vreg.h"

#include "ZELT_ZLC/vblock.h"

void VREG::set_pair_partner(VREG* other, const DIAG_SRCINFO& srcinfo) {
  if (other != this) {
    if (!pair_primary && !pair_secondary) {
      pair_primary = other->pair_primary = this;
      pair_secondary = other->pair_secondary = other;
      return;
    }
    if (pair_primary == this && pair_secondary == other) return;
  }
  DIAG::zlc_illegal_pair_assign(name, other ? other->name : std::string())
      .set_src(&srcinfo)
      .report();
}

void VREG::set_pair_as_secondary(VREG* first) {
  pair_primary = first;
  pair_secondary = this;
}

VREG* VREG::pair_partner() const {
  if (pair_primary == this) return pair_secondary;
  if (pair_secondary == this) return pair_primary;
  return nullptr;
}

void VREG::set_type_from_lvalue(const VLVALUE* lvalue) {
  if (!lvalue || !type.is_untyped()) return;
  if (lvalue->type.is_signed)
    type = VDATA_TYPE::int32;
  else if (lvalue->type.bits == 32)
    type = VDATA_TYPE::uint32;
}

void VREG_TABLE::revive_vregs() {
  for (auto& [name, vreg] : by_name) vreg->alias_name.clear();
}

std::set<VREG*> VREG_TABLE::all_aliased_regs() const {
  std::set<VREG*> aliased;
  for (const auto& [name, vreg] : by_name)
    if (!vreg->alias_name.empty()) aliased.insert(vreg);
  return aliased;
}
