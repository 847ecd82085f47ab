// The rules of histogram updates and table lookups: fixed registers, the
// loads that must define their operands, and the fixed roles of their
// address generators.
#include "ZELT_ZLC/vhup_vtld.h"

#include "ZELT_ZLC/vcmd_hist_tbl.h"

namespace {

// Roles of the generators of a special loop.
constexpr int32_t role_data = 0;    // the data or index load
constexpr int32_t role_table = 1;   // the histogram or table
constexpr int32_t role_weight = 2;  // the weight load

constexpr int32_t max_weight_bits = 16;

// Reports `vreg` when it has a number of its own other than `number`.
bool check_fixed_mr(const VREG* vreg, int32_t number, const DIAG_SRCINFO& srcinfo) {
  if (!vreg || vreg->is_unassigned() || vreg->number == number) return true;
  DIAG::zlc_reg_alloc_mr(vreg->name, static_cast<unsigned>(number)).set_src(&srcinfo).report();
  return false;
}

// Binds the generator of `lv`, if it has one, to `role`.
bool assign_role(const VLVALUE* lv, int32_t role, const DIAG_SRCINFO& srcinfo) {
  return !lv || !lv->agen || lv->agen->check_and_assign(role, srcinfo);
}

}  // namespace

VHUP::VHUP(const DIAG_SRCINFO& srcinfo, VCMD_HIST* vcmd_hist, VREG* data, VREG* weight,
           VREG* dst, VLVALUE* lv)
    : VMEM_INSTR(srcinfo, vcmd_hist, lv),
      vcmd_hist(vcmd_hist),
      data(data),
      weight(weight),
      dst(dst),
      data_load(data ? dynamic_cast<VLOAD*>(vcmd_hist->find_vreg_instr(data)) : nullptr),
      weight_instr(weight ? vcmd_hist->find_vreg_instr(weight) : nullptr) {}

void VHUP::analyze(int32_t& count) {
  count += 3;
  round_sat.analyze();
}

bool VHUP::check_weight_load_type() const {
  const auto* load = dynamic_cast<const VLOAD*>(weight_instr);
  if (!load || !load->lv || !lv) return true;
  const VDATA_TYPE w = load->lv->type;
  const VDATA_TYPE h = lv->type;
  bool ok = true;
  if (w.bits > max_weight_bits || w.bits > h.bits) {
    DIAG::zlc_hist_weight_type().set_src(&srcinfo).report();
    ok = false;
  }
  if (w.is_signed != h.is_signed) {
    DIAG::zlc_hist_weight_sign().set_src(&srcinfo).report();
    ok = false;
  }
  return ok;
}

bool VHUP::check_if_valid() {
  bool ok = check_fixed_mr(weight, weight_mr, srcinfo);
  ok = check_fixed_mr(data, data_mr, srcinfo) && ok;
  ok = check_fixed_mr(dst, dst_mr, srcinfo) && ok;
  if (data_load) {
    ok = assign_role(data_load->lv, role_data, data_load->srcinfo) && ok;
  } else if (data) {
    DIAG::zlc_unloaded_data(data->name).set_src(&srcinfo).report();
    ok = false;
  }
  if (const auto* load = dynamic_cast<const VLOAD*>(weight_instr)) {
    ok = check_weight_load_type() && ok;
    ok = assign_role(load->lv, role_weight, load->srcinfo) && ok;
  } else if (!weight_instr || !weight_instr->is_vinit()) {
    DIAG::zlc_undef_weight(weight ? weight->name : std::string()).set_src(&srcinfo).report();
    ok = false;
  }
  ok = assign_role(lv, role_table, srcinfo) && ok;
  vcmd->vreg_instrs[dst] = this;
  return ok;
}

VTLD::VTLD(const DIAG_SRCINFO& srcinfo, VCMD_TBL* vcmd_tbl, VREG* index, VREG* dst, VLVALUE* lv)
    : VMEM_INSTR(srcinfo, vcmd_tbl, lv),
      vcmd_tbl(vcmd_tbl),
      index(index),
      dst(dst),
      index_load(index ? dynamic_cast<VLOAD*>(vcmd_tbl->find_vreg_instr(index)) : nullptr) {}

void VTLD::analyze(int32_t& count) {
  count += 1;
  round_sat.analyze();
}

bool VTLD::check_if_valid() {
  bool ok = true;
  if (!index_load && index) {
    DIAG::zlc_unloaded_data(index->name).set_src(&srcinfo).report();
    ok = false;
  }
  ok = check_fixed_mr(index, index_mr, srcinfo) && ok;
  ok = check_fixed_mr(dst, dst_mr, srcinfo) && ok;
  ok = assign_role(lv, role_table, srcinfo) && ok;
  vcmd->vreg_instrs[dst] = this;
  return ok;
}
