// The algebra of parameter expressions: text built with parentheses, constants
// folded on the way.
#include "ZELT_ZLC/vpexpr.h"

#include <csignal>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "ZELT_ZLC/kernel_objects.h"

namespace {

const VPEXPR zero_value(0, VPEXPR::EVAL_SIGNED);
const VPEXPR one_value(1, VPEXPR::EVAL_SIGNED);
const VPEXPR two_value(2, VPEXPR::EVAL_SIGNED);

// True for a constant of value v; an unset type is never a known 0 or 1.
bool is_value(const VPEXPR* e, uint32_t v) { return e->is_const() && e->value == v; }

bool can_fold(const VPEXPR* a, const VPEXPR* b) {
  return a->eval_type != VPEXPR::EVAL_SYMBOLIC && b->eval_type != VPEXPR::EVAL_SYMBOLIC;
}

std::string binary_text(const VPEXPR* a, const char* op, const VPEXPR* b) {
  return "((" + a->text + ") " + op + " (" + b->text + "))";
}

// The result of an operation that no short cut answered: symbolic, with the
// references of a and then of b.
VPEXPR* new_result(const VPEXPR* a, const VPEXPR* b, std::string text) {
  VPEXPR* result = kernel_new<VPEXPR>(std::move(text));
  result->eval_type = VPEXPR::EVAL_SYMBOLIC;
  result->merge_parm_refs(a);
  result->merge_parm_refs(b);
  return result;
}

// A folded result is signed whatever its operands were.
void set_folded(VPEXPR* result, uint64_t value) {
  result->eval_type = VPEXPR::EVAL_SIGNED;
  result->value = static_cast<uint32_t>(value);
  result->text = std::to_string(static_cast<int32_t>(result->value));
}

// A constant division by zero ends the run the way the machine's division
// would, through the SIGFPE handler, without executing the division.
[[noreturn]] void divide_by_zero() {
  std::raise(SIGFPE);
  std::abort();  // a handler that returns cannot resume the fold
}

// Quotient and remainder of 64-bit signed numbers.  A divisor of -1 is
// negation, so that the least 64-bit number never reaches the division.
std::pair<uint64_t, uint64_t> divide(int64_t a, int64_t b) {
  if (b == 0) divide_by_zero();
  if (b == -1) return {0 - static_cast<uint64_t>(a), 0};
  return {static_cast<uint64_t>(a / b), static_cast<uint64_t>(a % b)};
}

// The text without the pairs of parentheses that enclose all of it.
std::string_view strip_enclosing_parens(std::string_view text) {
  while (!text.empty() && text.front() == '(') {
    int depth = 1;
    size_t i = 1;
    for (; i < text.size(); ++i) {
      if (text[i] == '(') ++depth;
      if (text[i] == ')' && --depth == 0) break;
    }
    if (i + 1 != text.size()) break;  // unmatched, or closed before the end
    text = text.substr(1, text.size() - 2);
  }
  return text;
}

}  // namespace

const VPEXPR* const VPEXPR::zero = &zero_value;
const VPEXPR* const VPEXPR::one = &one_value;
const VPEXPR* const VPEXPR::two = &two_value;

VPEXPR::VPEXPR(long value, EVAL_TYPE type)
    : text(std::to_string(value)), value(static_cast<uint32_t>(value)), eval_type(type) {}

VPEXPR::VPEXPR(std::string text) : text(std::move(text)) {}

int64_t VPEXPR::value64() const {
  if (eval_type == EVAL_SIGNED) return static_cast<int32_t>(value);
  return value;
}

bool VPEXPR::equals(const VPEXPR* other) const {
  if (eval_type != EVAL_SYMBOLIC && other->eval_type != EVAL_SYMBOLIC)
    return value64() == other->value64();
  return strip_enclosing_parens(text) == strip_enclosing_parens(other->text);
}

const VPEXPR* VPEXPR::sum(const VPEXPR* a, const VPEXPR* b) {
  if (is_value(a, 0)) return b;
  if (is_value(b, 0)) return a;
  VPEXPR* result = new_result(a, b, binary_text(a, "+", b));
  if (can_fold(a, b)) set_folded(result, a->value + b->value);
  return result;
}

const VPEXPR* VPEXPR::diff(const VPEXPR* a, const VPEXPR* b) {
  if (is_value(b, 0)) return a;
  std::string text = is_value(a, 0) ? "-(" + b->text + ")" : binary_text(a, "-", b);
  VPEXPR* result = new_result(a, b, std::move(text));
  if (can_fold(a, b)) set_folded(result, a->value - b->value);
  return result;
}

const VPEXPR* VPEXPR::product(const VPEXPR* a, const VPEXPR* b) {
  if (is_value(a, 0) || is_value(b, 0)) return zero;
  if (is_value(a, 1)) return b;
  if (is_value(b, 1)) return a;
  VPEXPR* result = new_result(a, b, binary_text(a, "*", b));
  if (can_fold(a, b)) set_folded(result, a->value * b->value);
  return result;
}

const VPEXPR* VPEXPR::quotient(const VPEXPR* a, const VPEXPR* b) {
  if (is_value(a, 0) && b->is_const() && b->value != 0) return zero;
  if (is_value(b, 1)) return a;
  VPEXPR* result = new_result(a, b, binary_text(a, "/", b));
  if (can_fold(a, b)) set_folded(result, divide(a->value64(), b->value64()).first);
  return result;
}

const VPEXPR* VPEXPR::modulus(const VPEXPR* a, const VPEXPR* b) {
  if (is_value(a, 0)) return a;
  VPEXPR* result = new_result(a, b, binary_text(a, "%", b));
  if (can_fold(a, b)) set_folded(result, divide(a->value64(), b->value64()).second);
  return result;
}

void VPEXPR::merge_parm_refs(const VPEXPR* other) { merge_parm_refs(other->parm_refs); }

void VPEXPR::merge_parm_refs(const PARM_SET& refs) { parm_refs.insert(refs.begin(), refs.end()); }
