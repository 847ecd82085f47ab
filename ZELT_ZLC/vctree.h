// Expression trees of the parameter-expression rules: their value and text
// as a VPEXPR, their printed form, their source position, and the analyses
// of address-generator formulas and of load and store addresses.
#ifndef ZLC_ZELT_ZLC_VCTREE_H
#define ZLC_ZELT_ZLC_VCTREE_H

#include <antlr3.h>

#include <cstdint>
#include <string>

#include "DIAG/diag.h"
#include "ZELT_ZLC/expr_tree.h"
#include "ZELT_ZLC/vpexpr.h"

class AGEN;
class VKERNEL;

// Finds the value of a tree, filling the evaluation type, the parameter
// references and the width flag of `expr` on the way.  Identifiers of
// pointer parameters are retyped to VPTR.
class PEXPR_EVALUATOR {
 public:
  PEXPR_EVALUATOR(VPEXPR& expr, const VKERNEL* kernel) : expr(expr), kernel(kernel) {}

  // The value of `node`; 1 for what is not a constant.
  int64_t eval_pexpr(EXPR_TREE* node);
  // The value of an integer literal in its base, with the suffixes "h" and
  // "q" and the type that an upper-case "U" gives.
  int64_t parse_int(const std::string& text);

 private:
  void set_type_if_unset(VPEXPR::EVAL_TYPE type);
  int64_t eval_name(EXPR_TREE* node);
  int64_t eval_sizeof(EXPR_TREE* node);
  int64_t eval_symbolic(EXPR_TREE* node);

  VPEXPR& expr;
  const VKERNEL* kernel;
};

namespace ANTLR3_TREE_UTIL {

// The first node of `tree`, in order, whose token stands in the source; null
// when none does.
const EXPR_TREE* first_real_token(const EXPR_TREE* tree);
// The tree as one word without blanks; parentheses only where a node binds
// less than `required`.
std::string tostring(const EXPR_TREE* tree, int required = 0);
int operator_precedence(ANTLR3_UINT32 type);

}  // namespace ANTLR3_TREE_UTIL

// The position of the first real token of a tree.
DIAG_SRCINFO_DATA antlr_srcinfo(const EXPR_TREE* tree);

// A new VPEXPR with `text` and what the evaluator finds in `tree`.
VPEXPR* build_pexpr(EXPR_TREE* tree, const std::string& text);

// Reports a constant that differs from `expected`; symbolic values pass.
void check_pexpr_value_equals(EXPR_TREE* tree, const std::string& text,
                              uint32_t expected);

// Turns the formula of `agen` into one stride per loop depth; a null tree
// (a declaration without formula) does nothing.
void analyze_agen_expr(EXPR_TREE* tree, AGEN* agen);

// Finds the pointer parameter, base and offset of a load or store address
// and records the statement's memory reference; `agen` is null for the
// expanding load and the collating store.
void analyze_lvalue_expr(EXPR_TREE* tree, const std::string& text, AGEN* agen);

#endif
