// Rounding and saturation settings of memory instructions: the suffixes
// .round(), .truncate() and .saturate(), the choice of saturation mode from
// the bounds, and the parameter registers that carry them.
#include "ZELT_ZLC/round_sat.h"

#include <cassert>

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vload.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {

constexpr int64_t symm_limit_unsigned = 0x10000;
constexpr int64_t symm_limit_signed = 32768;
constexpr int64_t narrow_sat_bits = 16;  // widths above this take two words

const char* const round_mode_names[] = {"RM_NONE", "RM_ROUND", "RM_TRUNC"};
const char* const sat_mode_names[] = {"SM_NONE",   "SM_SYMM",    "SM_ASYMM",
                                      "SM_SYMM32", "SM_ASYMM32", "SM_4PARAM"};

bool is_const_value(const VPEXPR* expr, int64_t value) {
  return expr->is_const() && expr->value64() == value;
}

// A symbolic bound built from the text of a bit count.
const VPEXPR* symbolic_bound(const std::string& text, const VPEXPR* from) {
  auto* bound = kernel_new<VPEXPR>(text);
  bound->eval_type = VPEXPR::EVAL_SYMBOLIC;
  bound->uses_width = from->uses_width;
  bound->merge_parm_refs(from);
  return bound;
}

VMEM_INSTR* mem_instr(VINSTR* instr) { return dynamic_cast<VMEM_INSTR*>(instr); }

}  // namespace

ROUND_SAT::ROUND_SAT(const DIAG_SRCINFO& at, VINSTR* owner)
    : srcinfo(at.file(), at.line(), at.column(), at.approx()), owner(owner) {}

VCMD* ROUND_SAT::vcmd() const { return owner->vcmd; }

void ROUND_SAT::set_round(ROUND_MODE mode, const VPEXPR* expr) {
  round_mode = mode;
  round_value = expr;
}

int32_t ROUND_SAT::sat_words(SAT_MODE mode) {
  switch (mode) {
    case SM_SYMM32:
    case SM_ASYMM32:
      return 2;
    case SM_4PARAM:
      return 4;
    default:
      return 1;
  }
}

void ROUND_SAT::set_sat(SAT_MODE mode, const std::string& text) {
  sat_mode = mode;
  sat_preg = vcmd()->new_preg(text, sat_words(mode), true);
}

void ROUND_SAT::copy_data(const ROUND_SAT& other) {
  round_mode = other.round_mode;
  sat_mode = other.sat_mode;
  round_sat_preg = other.round_sat_preg;
  sat_preg = other.sat_preg;
  round_value = other.round_value;
  sat_bounds.insert(sat_bounds.end(), other.sat_bounds.begin(), other.sat_bounds.end());
}

std::string ROUND_SAT::format_sat_mode() const { return sat_mode_names[sat_mode]; }

std::string ROUND_SAT::format_round_mode() const { return round_mode_names[round_mode]; }

void ROUND_SAT::analyze() {
  if (round_mode == RM_NONE && sat_mode == SM_NONE) {
    round_sat_preg = PREG_ZERO;
    return;
  }
  const std::string text = "__zelt_store_round_sat(" + format_sat_mode() + "," +
                           (sat_preg ? sat_preg->name : std::string("0")) + "," +
                           format_round_mode() + "," +
                           (round_value ? round_value->text : std::string("0")) + ")";
  PREG_TABLE& pregs = vcmd()->pregs;
  round_sat_preg = pregs.new_preg(text, 1, false);
  pregs.waiting.push_back(round_sat_preg);
}

void VCMD::set_vmem_round(const VPEXPR* expr) {
  VMEM_INSTR* instr = mem_instr(curr_instr);
  if (!instr) return;
  if (instr->round_sat.round_mode != ROUND_SAT::RM_NONE)
    DIAG::zlc_multiple_round().set_src(&instr->srcinfo).report();
  instr->round_sat.set_round(ROUND_SAT::RM_ROUND, expr);
}

void VCMD::set_vmem_trunc(const VPEXPR* expr) {
  VMEM_INSTR* instr = mem_instr(curr_instr);
  if (!instr) return;
  if (instr->round_sat.round_mode != ROUND_SAT::RM_NONE)
    DIAG::zlc_multiple_round().set_src(&instr->srcinfo).report();
  instr->round_sat.set_round(ROUND_SAT::RM_TRUNC, expr);
}

int32_t VCMD::determine_sat_mode(const VPEXPR* lo, const VPEXPR* hi) const {
  assert(lo != nullptr && hi != nullptr);
  const VDATA_TYPE type = curr_lvalue ? curr_lvalue->type : VDATA_TYPE::untyped;
  if (!type.is_signed) {
    if (!is_const_value(lo, 0)) return ROUND_SAT::SM_4PARAM;
    if (!hi->is_const()) return ROUND_SAT::SM_SYMM32;
    return hi->value64() < symm_limit_unsigned ? ROUND_SAT::SM_SYMM : ROUND_SAT::SM_SYMM32;
  }
  if (!lo->is_const() || !hi->is_const()) return ROUND_SAT::SM_4PARAM;
  const int64_t low = lo->value64();
  const int64_t high = hi->value64();
  const int64_t sum = low + high;
  if (sum != 0 && low != ~high) return ROUND_SAT::SM_4PARAM;
  if (high < 0) {
    const DIAG_SRCINFO* at = curr_instr ? &curr_instr->srcinfo : nullptr;
    DIAG::zlc_symm_asymm_negative_bound().set_src(at).report();
    return ROUND_SAT::SM_4PARAM;
  }
  if (sum == 0) return high < symm_limit_signed ? ROUND_SAT::SM_SYMM : ROUND_SAT::SM_SYMM32;
  return high < symm_limit_signed ? ROUND_SAT::SM_ASYMM : ROUND_SAT::SM_ASYMM32;
}

void VCMD::set_vmem_sat(const VPEXPR* a, const VPEXPR* b, const VPEXPR* c, const VPEXPR* d) {
  VMEM_INSTR* instr = mem_instr(curr_instr);
  if (!instr) return;
  ROUND_SAT& rs = instr->round_sat;
  if (rs.sat_mode != ROUND_SAT::SM_NONE)
    DIAG::zlc_multiple_sat().set_src(&instr->srcinfo).report();
  rs.sat_bounds.clear();

  // Thresholds and the values that replace what lies beyond them.
  auto four_param = [&rs](const VPEXPR* lo_at, const VPEXPR* lo_to, const VPEXPR* hi_at,
                          const VPEXPR* hi_to) {
    rs.sat_bounds = {lo_at, lo_to, hi_at, hi_to};
    rs.set_sat(ROUND_SAT::SM_4PARAM, hi_at->text + ", " + hi_to->text + ", " + lo_at->text +
                                         ", " + lo_to->text);
  };

  if (a && b && c && d) {
    four_param(a, b, c, d);
    return;
  }
  if (a && b) {
    const auto mode = static_cast<ROUND_SAT::SAT_MODE>(determine_sat_mode(a, b));
    if (mode == ROUND_SAT::SM_4PARAM) {
      four_param(a, a, b, b);
      return;
    }
    rs.sat_bounds = {a, b};
    rs.set_sat(mode, b->text);
    return;
  }

  const VDATA_TYPE type = instr->lv ? instr->lv->type : VDATA_TYPE::untyped;
  if (a && !a->is_const()) {
    const VPEXPR* low;
    const VPEXPR* high;
    if (type.is_signed) {
      low = symbolic_bound("-(1 << (" + a->text + " - 1))", a);
      high = symbolic_bound("(1 << (" + a->text + " - 1)) - 1", a);
    } else {
      low = VPEXPR::zero;
      high = symbolic_bound("(1 << (" + a->text + ")) - 1", a);
    }
    rs.sat_bounds = {low, high};
    rs.set_sat(ROUND_SAT::SM_ASYMM, high->text);
    return;
  }

  int64_t bits = 32;
  if (a)
    bits = a->value64();
  else if (type.bits == 8 || type.bits == 16)
    bits = type.bits;
  const auto mode = bits < narrow_sat_bits + 1 ? ROUND_SAT::SM_ASYMM : ROUND_SAT::SM_ASYMM32;
  const VPEXPR* low;
  const VPEXPR* high;
  if (type.is_signed) {
    // Widths outside 1 to 32 take the nearest width that a 32-bit value has.
    const int64_t width = bits < 1 ? 1 : bits > 32 ? 32 : bits;
    const int64_t half = int64_t{1} << (width - 1);
    low = kernel_new<VPEXPR>(static_cast<long>(-half), VPEXPR::EVAL_SIGNED);
    high = kernel_new<VPEXPR>(static_cast<long>(half - 1), VPEXPR::EVAL_SIGNED);
  } else {
    const uint32_t mask = bits <= 0 ? 0u : bits >= 32 ? 0xffffffffu : (1u << bits) - 1;
    low = kernel_new<VPEXPR>(0, VPEXPR::EVAL_UNSIGNED);
    high = kernel_new<VPEXPR>(static_cast<long>(mask), VPEXPR::EVAL_UNSIGNED);
  }
  rs.sat_bounds = {low, high};
  rs.set_sat(mode, high->text);
}
