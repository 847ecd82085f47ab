// The parser's entry points for stores of a vector loop.
#include <iostream>

#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vcmd_hist_tbl.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vstore.h"

namespace {

VSTORE* curr_vstore(VINSTR* instr) { return dynamic_cast<VSTORE*>(instr); }

// With debug:looptype, one line for each store of a special kind.
void profile_store(const VKERNEL& kernel, VSTORE::VDIST dist) {
  if (!profile_looptypes()) return;
  if (dist == VSTORE::P_SCATTER)
    std::cout << "ZLC_PROFILE: SCATTER in " << kernel.name << '\n';
  else if (dist == VSTORE::OFFSET_NP1)
    std::cout << "ZLC_PROFILE: OFFSET_NP1 in " << kernel.name << '\n';
}

}  // namespace

void VCMD::new_vstore(const DIAG_SRCINFO& srcinfo) {
  curr_instr = curr_lvalue ? kernel_new<VSTORE>(srcinfo, this, curr_lvalue) : nullptr;
}

void VCMD::new_collate_vstore(const DIAG_SRCINFO& srcinfo, VREG* pred) {
  VCMD::new_vstore(srcinfo);
  set_vstore_dist(VSTORE::COLLATE, nullptr);
  set_vstore_pred(pred);
}

void VCMD::set_vstore_dist(int32_t dist, VREG* vreg) {
  VSTORE* store = curr_vstore(curr_instr);
  if (!store) return;
  if (store->lv && store->lv->type.bits == 32 &&
      (dist == VSTORE::SKIP || dist == VSTORE::INTERLEAVE))
    DIAG::zlc_unsupported_dist().set_src(&store->srcinfo).report();
  if (store->dist == VSTORE::COLLATE) {
    DIAG::zlc_collat_dist_declare().set_src(&store->srcinfo).report();
    return;
  }
  if (dist == VSTORE::S_SCATTER || dist == VSTORE::P_SCATTER) {
    // One offsets register serves every scatter of the loop.
    if (!scatter_vreg)
      scatter_vreg = vreg;
    else if (scatter_vreg != vreg)
      DIAG::zlc_dda_vreg_error().set_src(&store->srcinfo).report();
    store->scatter_vreg = vreg;
  }
  store->dist = static_cast<VSTORE::VDIST>(dist);
  profile_store(kernel, store->dist);
}

void VCMD::set_vstore_pred(VREG* pred) {
  VSTORE* store = curr_vstore(curr_instr);
  if (!store) return;
  if (store->dist == VSTORE::INTERLEAVE)
    DIAG::zlc_predicated_intrlv().set_src(&store->srcinfo).report();
  else if (store->dist == VSTORE::COLLATE && store->pred)
    DIAG::zlc_collat_illegal_predicate(store->pred->name).set_src(&store->srcinfo).report();
  store->pred = pred;
}

void VCMD::set_vstore_rhs() {
  VSTORE* store = curr_vstore(curr_instr);
  if (!store || !curr_vreg) {
    curr_instr = nullptr;
    return;
  }
  store->vreg = curr_vreg;
  const bool interleave = store->dist == VSTORE::INTERLEAVE;
  if (interleave && curr_vreg2 && curr_vreg->load_target && curr_vreg2->load_target)
    DIAG::zlc_two_vload_vreg_store(curr_vreg->name, curr_vreg2->name)
        .set_src(&store->srcinfo)
        .report();
  if (check_pair_status(interleave, store->srcinfo)) add_instr(store);
}
