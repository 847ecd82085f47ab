// The rules of stores: generators, definitions of the registers read,
// predicate and scatter registers, and the stores of table lookup loops.
#include "ZELT_ZLC/vstore.h"

#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"

namespace {

constexpr int32_t first_pred_vreg = 1;
constexpr int32_t last_pred_vreg = 3;

bool is_defined(const VCMD& vcmd, const VREG* vreg) {
  return vcmd.find_vreg_instr(vreg) || vcmd.kernel.find_vreg_instr(vreg);
}

}  // namespace

void VSTORE::analyze(int32_t& count) {
  count += 1;
  round_sat.analyze();
}

bool VSTORE::check_table_store() {
  bool ok = true;
  if (dist != NPT && dist != SKIP) {
    DIAG::zlc_table_store_dist().set_src(&srcinfo).report();
    ok = false;
  } else if (dist == NPT && vcmd->num_objs()) {
    dist = TABLE_NPT;
  }
  if (vreg) {
    const VINSTR* def = vcmd->find_vreg_instr(vreg);
    const auto* load = dynamic_cast<const VLOAD*>(def);
    if (!def || !(def->is_vtld() || (load && load->dist == VLOAD::EXPAND))) {
      DIAG::zlc_table_data_load(vreg->name).set_src(&srcinfo).report();
      ok = false;
    }
    // V0 is what the hardware takes, although the message names V2.
    if (!vreg->is_unassigned() && vreg->number != 0) {
      DIAG::zlc_reg_alloc_mr(vreg->name, 2).set_src(&srcinfo).report();
      ok = false;
    }
  }
  if (lv && lv->agen && !lv->agen->check_and_assign(2, srcinfo)) ok = false;
  return ok;
}

bool VSTORE::check_if_valid() {
  bool ok = vcmd->check_agen_init(lv, srcinfo);
  for (const VREG* read : {vreg, pred, scatter_vreg})
    if (read && !is_defined(*vcmd, read))
      DIAG::zlc_uninit_vreg(read->name).set_src(&srcinfo).report();
  if (pred && !pred->is_unassigned() &&
      (pred->number < first_pred_vreg || pred->number > last_pred_vreg)) {
    DIAG::zlc_illegal_manual_reg(static_cast<unsigned>(pred->number), "between V1 and V3")
        .set_src(&srcinfo)
        .report();
    ok = false;
  }
  if (scatter_vreg && !scatter_vreg->is_unassigned() && scatter_vreg->number != 0) {
    DIAG::zlc_reg_alloc_mr(scatter_vreg->name, 0).set_src(&srcinfo).report();
    ok = false;
  }
  if (vcmd->vloop_type() == VCMD::TLU && !check_table_store()) ok = false;
  for (const VREG* written : {vreg, pred, scatter_vreg}) vcmd->vreg_instrs[written] = this;
  return ok;
}
