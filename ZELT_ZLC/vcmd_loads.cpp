// The parser's entry points for loads and inits of a vector loop.
#include <climits>

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vload.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {

constexpr int32_t lcv_preg_base = 64;  // loop variables read from 64 + level
constexpr int64_t one_word_unsigned = 0x10000;

VLOAD* curr_vload(VINSTR* instr) { return dynamic_cast<VLOAD*>(instr); }

bool fits_int16(int64_t value) { return value >= INT16_MIN && value <= INT16_MAX; }

}  // namespace

void VCMD::new_vload(const DIAG_SRCINFO& srcinfo) { curr_instr = make_vload(*this, srcinfo); }

void VCMD::add_expand_vload(const DIAG_SRCINFO& srcinfo, VREG* flags) {
  (void)flags;
  DIAG::zlc_illegal_tlu_instr().set_src(&srcinfo).report();
}

void VCMD::set_vload_dist(int32_t dist) {
  VLOAD* load = curr_vload(curr_instr);
  if (!load) return;
  load->dist = static_cast<VLOAD::VDIST>(dist);
  if (load->dist == VLOAD::CUSTOM) load->setup_custom_dist();
}

void VCMD::add_cust_pexpr(const VPEXPR* expr) {
  if (VLOAD* load = curr_vload(curr_instr)) load->cust_args.push_back(expr);
}

void VCMD::add_hist_update(const DIAG_SRCINFO& srcinfo, VREG* data, VREG* weight) {
  (void)data;
  (void)weight;
  DIAG::zlc_illegal_hist_instr().set_src(&srcinfo).report();
}

void VCMD::add_table_lookup(const DIAG_SRCINFO& srcinfo, VREG* index) {
  (void)index;
  DIAG::zlc_illegal_tlu_instr().set_src(&srcinfo).report();
}

void VCMD::new_vinit(const DIAG_SRCINFO& srcinfo, const VPEXPR* value) {
  curr_instr = nullptr;
  if (!curr_vreg || !value) return;
  PREG* preg;
  VDATA_TYPE type;
  int32_t level = 0;
  if (is_lcv(value->text, level)) {
    // The coprocessor reads a loop variable directly: no parameter word.
    const int32_t number = lcv_preg_base + zelt_depth(level);
    preg = kernel_new<PREG>(srcloc_internal, "P" + std::to_string(number));
    preg->number = number;
    preg->text = value->text;
    type = VDATA_TYPE::uint16;
  } else if (value->eval_type == VPEXPR::EVAL_UNSIGNED) {
    const int64_t v = value->value64();
    const bool narrow = v < one_word_unsigned;
    preg = new_preg(std::to_string(v), narrow ? 1 : 2, false);
    type = narrow ? VDATA_TYPE::uint16 : VDATA_TYPE::uint32;
  } else if (value->eval_type == VPEXPR::EVAL_SIGNED) {
    const int64_t v = value->value64();
    const bool narrow = fits_int16(v);
    preg = new_preg(std::to_string(v), narrow ? 1 : 2, false);
    type = narrow ? VDATA_TYPE::int16 : VDATA_TYPE::int32;
  } else {
    preg = new_preg(value->text, 2, false);
    type = VDATA_TYPE::int32;
  }
  add_instr(kernel_new<VINIT>(srcinfo, this, curr_vreg, preg, value, type));
}
