// Scalar parameter expressions: the text that goes into the generated source,
// a 32-bit value when it is known, and the parameters that the text names.
#ifndef ZLC_ZELT_ZLC_VPEXPR_H
#define ZLC_ZELT_ZLC_VPEXPR_H

#include <cstdint>
#include <string>

#include "ZELT_ZLC/parm.h"

// Every VPEXPR is allocated with plain `new` and lives to the end of the run.
// The operations may hand back one of their operands or a shared constant, so
// a result is shared and immutable: only the code that built a VPEXPR fills it.
class VPEXPR {
 public:
  enum EVAL_TYPE {
    EVAL_UNSET = 0,     // holds 0, counts as a number only when folding
    EVAL_SIGNED = 1,    // constant, value read as a signed 32-bit number
    EVAL_UNSIGNED = 2,  // constant, value read as an unsigned 32-bit number
    EVAL_SYMBOLIC = 3,  // not a constant
  };

  // Text is the decimal of `value`; the low 32 bits are stored.
  VPEXPR(long value, EVAL_TYPE type);
  // Text as given, value 0, type unset; the builder fills in the rest.
  explicit VPEXPR(std::string text);

  bool is_const() const { return eval_type == EVAL_SIGNED || eval_type == EVAL_UNSIGNED; }
  // The value, sign-extended for a signed constant and zero-extended otherwise.
  int64_t value64() const;

  // Two non-symbolic expressions are equal by value; otherwise by text, once
  // parentheses that enclose the whole text are stripped.
  bool equals(const VPEXPR* other) const;

  // The algebra.  A short cut returns an operand or a shared constant and
  // allocates nothing; otherwise the result is new, with the references of a
  // then b, and is folded to a signed constant unless an operand is symbolic.
  // A zero divisor in a fold ends the run as a SIGFPE.
  static const VPEXPR* sum(const VPEXPR* a, const VPEXPR* b);
  static const VPEXPR* diff(const VPEXPR* a, const VPEXPR* b);
  static const VPEXPR* product(const VPEXPR* a, const VPEXPR* b);
  static const VPEXPR* quotient(const VPEXPR* a, const VPEXPR* b);
  static const VPEXPR* modulus(const VPEXPR* a, const VPEXPR* b);

  void merge_parm_refs(const VPEXPR* other);
  void merge_parm_refs(const PARM_SET& refs);

  // Signed constants 0, 1 and 2, compared by content but returned by identity.
  static const VPEXPR* const zero;
  static const VPEXPR* const one;
  static const VPEXPR* const two;

  std::string text;
  uint32_t value = 0;
  EVAL_TYPE eval_type = EVAL_UNSET;
  bool uses_width = false;  // the text depends on "ZELT_SIMD_WIDTH"
  PARM_SET parm_refs;
};

#endif
