// Histogram and table lookup loops: their announcement by the kernel, the
// statements they refuse, and the entry points of their own instructions.
#include "ZELT_ZLC/vcmd_hist_tbl.h"

#include <iostream>

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vhup_vtld.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"
#include "ZELT_ZLC/vstore.h"
#include "options/register_option.h"

namespace {

register_option debug_looptype("debug:looptype");

constexpr int32_t special_first_agen = 3;  // generators 0 to 2 have fixed roles
constexpr int64_t max_table_size = 32768;
constexpr int32_t dup_unit = 8;  // lanes per duplicate of a table

bool is_const_in(const VPEXPR* expr, std::initializer_list<int64_t> values) {
  if (!expr || !expr->is_const()) return false;
  for (int64_t value : values)
    if (expr->value64() == value) return true;
  return false;
}

const VPEXPR* default_dup() { return kernel_new<VPEXPR>(zelt_simd_width / dup_unit, VPEXPR::EVAL_SIGNED); }

void check_table_size(const DIAG_SRCINFO& srcinfo, const VPEXPR* table_size) {
  if (table_size && table_size->is_const() && table_size->value64() > max_table_size)
    DIAG::zlc_invalid_lut_size(static_cast<unsigned>(max_table_size)).set_src(&srcinfo).report();
}

std::string text_or_zero(const VPEXPR* expr) { return expr ? expr->text : "0"; }

}  // namespace

bool profile_looptypes() { return debug_looptype != 0; }

void VKERNEL::install_special_vloop(VCMD* vloop) {
  vloop->copy_vcmd_info(*curr_vcmd);
  curr_vcmd = ::curr_vcmd = vloop;
}

void VKERNEL::add_histogram_vloop(const DIAG_SRCINFO& srcinfo, const VPEXPR* count,
                                  const VPEXPR* table_size) {
  if (!is_const_in(count, {1, 2, 4, 8}))
    DIAG::zlc_histogram_hist_count().set_src(&srcinfo).report();
  check_table_size(srcinfo, table_size);
  if (profile_looptypes())
    std::cout << "ZLC_PROFILE: HISTOGRAM in " << name << " with " << text_or_zero(count)
              << " PARALLEL\n";
  install_special_vloop(kernel_new<VCMD_HIST>(*this, count, table_size));
}

void VKERNEL::add_tablelkup_vloop(const DIAG_SRCINFO& srcinfo, const VPEXPR* tables,
                                  const VPEXPR* points, const VPEXPR* dup,
                                  const VPEXPR* table_size) {
  const int64_t width = zelt_simd_width;
  if (dup) {
    if (!dup->is_const() || dup->value64() < 1 || dup->value64() > width / dup_unit)
      DIAG::zlc_lht_dup_count().set_src(&srcinfo).report();
  } else {
    dup = default_dup();
  }
  if (tables && points) {
    if (!tables->is_const() || !points->is_const()) {
      DIAG::zlc_table_param_count().set_src(&srcinfo).report();
    } else {
      if (!is_const_in(tables, {1, 2, 4, 8}))
        DIAG::zlc_table_param_count().set_src(&srcinfo).report();
      const bool wide_points = width >= 16 && is_const_in(points, {16});
      if (!is_const_in(points, {1, 2, 4, 8}) && !wide_points)
        DIAG::zlc_table_param_count().set_src(&srcinfo).report();
      if (dup->is_const() && dup->value64() * tables->value64() * points->value64() > width)
        DIAG::zlc_table_param_product().set_src(&srcinfo).report();
    }
  }
  check_table_size(srcinfo, table_size);
  if (profile_looptypes())
    std::cout << "ZLC_PROFILE: TABLE_LOOKUP in " << name << " with " << text_or_zero(tables)
              << " TABLES and " << text_or_zero(points) << " POINTS \n";
  install_special_vloop(kernel_new<VCMD_TBL>(*this, tables, points, dup, table_size));
}

VCMD_HIST::VCMD_HIST(VKERNEL& kernel, const VPEXPR* hist_count, const VPEXPR* table_size)
    : VCMD(kernel), hist_count(hist_count), dup(default_dup()), table_size(table_size) {
  next_agen = special_first_agen;
}

void VCMD_HIST::add_hist_update(const DIAG_SRCINFO& srcinfo, VREG* data, VREG* weight) {
  VINSTR* in_progress = curr_instr;
  curr_instr = nullptr;
  if (!curr_vreg || !curr_lvalue) return;
  auto* hup = kernel_new<VHUP>(srcinfo, this, data, weight, curr_vreg, curr_lvalue);
  if (auto* mem = dynamic_cast<VMEM_INSTR*>(in_progress)) hup->round_sat.copy_data(mem->round_sat);
  curr_instr = hup;
}

void VCMD_HIST::refuse() {
  curr_instr = nullptr;
  DIAG::zlc_hist_unsupported().report();
}

void VCMD_HIST::new_vstore(const DIAG_SRCINFO&) { refuse(); }

void VCMD_HIST::new_collate_vstore(const DIAG_SRCINFO&, VREG*) { refuse(); }

void VCMD_HIST::new_vop(const DIAG_SRCINFO&, const std::string&, VREG*, VREG*, VREG*, VREG*) {
  refuse();
}

void VCMD_HIST::new_vop2d(const DIAG_SRCINFO&, const std::string&, VREG*, VREG*) { refuse(); }

void VCMD_HIST::new_vmove(const DIAG_SRCINFO&, VREG*, VREG*) { refuse(); }

void VCMD_HIST::new_vexit(const DIAG_SRCINFO&, const std::string&, VREG*, const VPEXPR*,
                          const VPEXPR*) {
  refuse();
}

VCMD_TBL::VCMD_TBL(VKERNEL& kernel, const VPEXPR* table_count, const VPEXPR* points,
                   const VPEXPR* dup, const VPEXPR* table_size)
    : VCMD(kernel), table_count(table_count), points(points), dup(dup), table_size(table_size) {
  next_agen = special_first_agen;
}

void VCMD_TBL::add_table_lookup(const DIAG_SRCINFO& srcinfo, VREG* index) {
  VINSTR* in_progress = curr_instr;
  curr_instr = nullptr;
  if (!curr_vreg || !curr_lvalue) return;
  auto* tld = kernel_new<VTLD>(srcinfo, this, index, curr_vreg, curr_lvalue);
  if (auto* mem = dynamic_cast<VMEM_INSTR*>(in_progress)) tld->round_sat.copy_data(mem->round_sat);
  curr_instr = tld;
}

void VCMD_TBL::add_expand_vload(const DIAG_SRCINFO& srcinfo, VREG* flags) {
  curr_instr = nullptr;
  if (!curr_vreg || !curr_lvalue) return;
  auto* load = kernel_new<VLOAD>(srcinfo, this, curr_vreg, curr_lvalue);
  load->dist = VLOAD::EXPAND;
  load->flags_vreg = flags;
  curr_vreg->load_target = true;
  curr_instr = load;
}

void VCMD_TBL::set_vstore_pred(VREG* pred) {
  if (auto* store = dynamic_cast<VSTORE*>(curr_instr); store && pred) {
    const auto* load = dynamic_cast<const VLOAD*>(find_vreg_instr(pred));
    if (!load || load->dist == VLOAD::EXPAND)
      DIAG::zlc_table_pred_undef(pred->name).set_src(&store->srcinfo).report();
  }
  VCMD::set_vstore_pred(pred);
}

void VCMD_TBL::refuse() {
  curr_instr = nullptr;
  DIAG::zlc_table_unsupported().report();
}

void VCMD_TBL::new_vinit(const DIAG_SRCINFO&, const VPEXPR*) { refuse(); }

void VCMD_TBL::new_collate_vstore(const DIAG_SRCINFO&, VREG*) { refuse(); }

void VCMD_TBL::new_vop(const DIAG_SRCINFO&, const std::string&, VREG*, VREG*, VREG*, VREG*) {
  refuse();
}

void VCMD_TBL::new_vop2d(const DIAG_SRCINFO&, const std::string&, VREG*, VREG*) { refuse(); }

void VCMD_TBL::new_vmove(const DIAG_SRCINFO&, VREG*, VREG*) { refuse(); }

void VCMD_TBL::new_vexit(const DIAG_SRCINFO&, const std::string&, VREG*, const VPEXPR*,
                         const VPEXPR*) {
  refuse();
}
