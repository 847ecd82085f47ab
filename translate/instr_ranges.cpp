// What each kind of translated instruction tells about the range of the
// value it defines: memory gives the bounds of its element type, an init
// its value, a move or merge its inputs, a saturation its bounds, and a
// rounding its input shifted.  Anything else is unknown.
#include <algorithm>
#include <string>

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vpexpr.h"
#include "translate/lht.h"
#include "translate/texpr.h"
#include "translate/tmem.h"
#include "translate/tround_sat.h"
#include "translate/val_ranges.h"

namespace {

const VAL_RANGE* operand(const std::vector<VAL_RANGE*>& operands, size_t index) {
  return index < operands.size() ? operands[index] : nullptr;
}

// A symbolic bound with the parameter references of `refs`.
const VPEXPR* bound_expr(const std::string& text, std::initializer_list<const VPEXPR*> refs) {
  auto* bound = kernel_new<VPEXPR>(text);
  bound->eval_type = VPEXPR::EVAL_SYMBOLIC;
  for (const VPEXPR* ref : refs) bound->merge_parm_refs(ref);
  return bound;
}

// An arithmetic right shift of a constant bound; a negative result keeps
// the sign as a signed constant.
const VPEXPR* shifted_bound(const VPEXPR* bound, int64_t shift) {
  const int64_t value = bound->value64() >> std::min<int64_t>(shift, 63);
  return kernel_new<VPEXPR>(value, value < 0 ? VPEXPR::EVAL_SIGNED : VPEXPR::EVAL_UNSIGNED);
}

}  // namespace

bool TINSTR::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>&) {
  return range->set_indeterminate();
}

bool TVINIT::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>&) {
  return range->update(value->pexpr, value->pexpr);
}

bool TVLOAD::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>&) {
  return range->update_to_type_bounds(type);
}

bool TVLOOKUP::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>&) {
  return range->update_to_type_bounds(type);
}

bool TVHIST::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>&) {
  return range->update_to_type_bounds(type);
}

// A conditional move may also keep the destination's old value.
bool TVMOVE::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) {
  bool changed = false;
  const size_t inputs = is_conditional() ? 2 : 1;
  for (size_t i = 0; i < inputs; ++i)
    if (const VAL_RANGE* in = operand(operands, i))
      changed = range->merge_direct_input(*in) || changed;
  return changed;
}

bool TSAT::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>&) {
  if (kind < RANGE4) return range->update(lo_test->pexpr, hi_test->pexpr);
  if (kind == RANGE4) return range->update(lo_set->pexpr, hi_set->pexpr);
  return false;
}

bool TROUND::find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) {
  const VAL_RANGE* in = operand(operands, 0);
  if (!in) return false;
  if (in->is_indeterminate()) return range->set_indeterminate();
  const VPEXPR* lo = in->get_min();
  const VPEXPR* hi = in->get_max();
  if (!lo || !hi) return false;  // nothing known of the input yet
  const VPEXPR* s = bits->pexpr;
  const std::string st = s->text;
  switch (mode) {
    case SHIFT:
      return range->update(bound_expr("(" + lo->text + ") << (" + st + ")", {}),
                           bound_expr("(" + hi->text + ") << (" + st + ")", {}));
    case TRUNCATE:
      // A negative shift can't be folded; it stays in the text.
      if (bound_is_numeric(s) && s->value64() >= 0 && bound_is_numeric(lo) &&
          bound_is_numeric(hi))
        return range->update(shifted_bound(lo, s->value64()), shifted_bound(hi, s->value64()));
      return range->update(bound_expr("(" + lo->text + ") >> (" + st + ")", {lo, s}),
                           bound_expr("(" + hi->text + ") << (" + st + ")", {hi, s}));
    case ROUND: {
      if (bound_is_numeric(s) && s->value64() == 0) return range->update(lo, hi);
      const std::string r = "(((" + st + ") > 0) ? (1 << ((" + st + ") - 1)) : 0)";
      return range->update(bound_expr("(((" + lo->text + ") + " + r + ") >> (" + st + "))", {lo, s}),
                           bound_expr("(((" + hi->text + ") + " + r + ") >> (" + st + "))", {hi, s}));
    }
    default:
      return false;
  }
}
