// Vector register tables.
#include "ZELT_ZLC/vreg.h"

void VREG_TABLE::revive_vregs() {
  for (auto& [name, vreg] : by_name) vreg->alias_name.clear();
}
