// Address generators: uniqueness per instruction and the increments that
// follow from the strides.
#include "ZELT_ZLC/agen.h"

#include <algorithm>

#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vpexpr.h"

bool AGEN::has_incr() const {
  return std::any_of(increments.begin(), increments.end(), [](const PREG* p) { return p; });
}

bool AGEN::check_and_assign(int32_t value, const DIAG_SRCINFO& srcinfo) {
  if (is_unassigned()) {
    number = value;
    return true;
  }
  DIAG::zlc_unique_agen(name).set_src(&srcinfo).report();
  return false;
}

AGEN* AGEN_TABLE::new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name) {
  AGEN* agen = new_sym(srcinfo, name, -1);
  if (by_name.size() > max_agens)
    DIAG::zlc_illegal_agen_cnt(max_agens, name).set_src(&srcinfo).report();
  return agen;
}

int32_t AGEN_TABLE::num_agens() const {
  return static_cast<int32_t>(std::count_if(by_name.begin(), by_name.end(),
                                            [](const auto& entry) { return entry.second->has_incr(); }));
}

namespace {

bool has_text(const VPEXPR* stride) { return stride && !stride->text.empty(); }

// The increment of depth `d`: its stride less what the deeper loops of
// `agen` have already added by the time depth `d` steps.
PREG* increment_at(VCMD& vcmd, AGEN* agen, int32_t d) {
  std::string text;
  int64_t value = 0;
  bool constant = true;
  if (has_text(agen->strides[d])) {
    text = "(" + agen->strides[d]->text + ")";
    if (agen->strides[d]->is_const())
      value = agen->strides[d]->value64();
    else
      constant = false;
  }
  for (int32_t k = d + 1; k <= agen->deepest_depth; ++k) {
    const VPEXPR* stride = agen->strides[k];
    if (!has_text(stride)) continue;
    const VPEXPR* trips = vcmd.tripcount_expr(k);
    text += " -(" + stride->text + ")*((" + trips->text + ")-1)";
    if (stride->is_const() && trips->is_const())
      value -= (trips->value64() - 1) * stride->value64();
    else
      constant = false;
  }
  if (text.empty()) return PREG_ZERO;
  if (constant) {
    if (value == 0) agen->condition = 1;
    return vcmd.new_preg(std::to_string(value), 1, false);
  }
  if (agen->condition != 1) agen->condition = 2;
  return vcmd.new_preg(text, 1, false);
}

}  // namespace

void AGEN_TABLE::induction(VCMD& vcmd) {
  for (auto& [name, agen] : by_name) {
    agen->condition = 0;
    for (int32_t d = std::min(agen->deepest_depth, AGEN::max_depth - 1); d >= 1; --d)
      agen->increments[d] = increment_at(vcmd, agen, d);
  }
}
