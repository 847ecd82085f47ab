// Expression trees of the parameter-expression rules: evaluation into a
// VPEXPR, printing, source positions, and the analyses of address-generator
// formulas and of load and store addresses.
#include "ZELT_ZLC/vctree.h"

#include <cctype>
#include <csignal>
#include <cstdlib>

#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/antlr_if.h"
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"

// The generated header defines the token numbers as macros and must come last.
#include "zeltParser.h"

namespace {

EXPR_TREE* child(const EXPR_TREE* node, ANTLR3_UINT32 i) { return node ? node->child(i) : nullptr; }

bool is_nil(const EXPR_TREE* node) { return !node || node->nil; }

ANTLR3_UINT32 type_of(const EXPR_TREE* node) { return node->type; }

std::string text_of(const EXPR_TREE* node) { return std::string(node->text); }

// A constant division by zero ends the run the way the machine's division
// would, through the SIGFPE handler, without executing the division.
[[noreturn]] void divide_by_zero() {
  std::raise(SIGFPE);
  std::abort();
}

// 64-bit signed division and remainder; -1 as divisor is negation, so that
// the least 64-bit number never reaches the division.
int64_t divide(int64_t a, int64_t b, bool remainder) {
  if (b == 0) divide_by_zero();
  if (b == -1) return remainder ? 0 : static_cast<int64_t>(0 - static_cast<uint64_t>(a));
  return remainder ? a % b : a / b;
}

int64_t wrap(uint64_t value) { return static_cast<int64_t>(value); }

int64_t binary_value(ANTLR3_UINT32 type, int64_t a, int64_t b) {
  const auto ua = static_cast<uint64_t>(a);
  const auto ub = static_cast<uint64_t>(b);
  switch (type) {
    case EQ: return a == b;
    case NEQ: return a != b;
    case LESS: return a < b;
    case LE: return a <= b;
    case GT: return a > b;
    case GE: return a >= b;
    case MULT: return wrap(ua * ub);
    case PLUS: return wrap(ua + ub);
    case MINUS: return wrap(ua - ub);
    case ANDB: return a & b;
    case ORB: return a | b;
    case XORB: return a ^ b;
    case DIV: return divide(a, b, false);
    case MOD: return divide(a, b, true);
    case SHL: return wrap(ua << (ub % 64));
    case SHR: return a >> (ub % 64);
    default: return 1;
  }
}

bool is_binary_value(ANTLR3_UINT32 type) {
  switch (type) {
    case EQ: case NEQ: case LESS: case LE: case GT: case GE:
    case MULT: case PLUS: case MINUS: case ANDB: case ORB: case XORB:
    case DIV: case MOD: case SHL: case SHR:
      return true;
    default:
      return false;
  }
}

// Nodes printed as left operand, operator, right operand.
bool is_binary_print(ANTLR3_UINT32 type) {
  switch (type) {
    case COMMA: case ASG: case OROR: case ANDAND: case ORB: case XORB: case ANDB:
    case EQ: case NEQ: case LESS: case LE: case GT: case GE: case SHL: case SHR:
    case PLUS: case MINUS: case MULT: case DIV: case MOD: case STDOT: case STREF:
      return true;
    default:
      return false;
  }
}

int hex_digit_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  return std::tolower(static_cast<unsigned char>(c)) - 'a' + 10;
}

}  // namespace

// ---------------------------------------------------------------------------
// Evaluation.

void PEXPR_EVALUATOR::set_type_if_unset(VPEXPR::EVAL_TYPE type) {
  if (expr.eval_type == VPEXPR::EVAL_UNSET) expr.eval_type = type;
}

int64_t PEXPR_EVALUATOR::eval_pexpr(EXPR_TREE* node) {
  if (is_nil(node)) return 1;
  const ANTLR3_UINT32 type = type_of(node);
  if (is_binary_value(type)) {
    const int64_t a = eval_pexpr(child(node, 0));
    const int64_t b = eval_pexpr(child(node, 1));
    return binary_value(type, a, b);
  }
  switch (type) {
    case PEXPR:
      return eval_pexpr(child(node, 0));
    case NOTB:
      return ~eval_pexpr(child(node, 0));
    case EXCLAIM:
      return eval_pexpr(child(node, 0)) == 0;
    case UMINUS: {
      // A literal too big for a signed number is unsigned, but not once it
      // is negated; a type set before, by a cast, stays.
      EXPR_TREE* operand = child(node, 0);
      const bool was_unset = expr.eval_type == VPEXPR::EVAL_UNSET;
      const int64_t value = wrap(0 - static_cast<uint64_t>(eval_pexpr(operand)));
      if (was_unset && operand && type_of(operand) == INT_LITERAL &&
          expr.eval_type == VPEXPR::EVAL_UNSIGNED)
        expr.eval_type = VPEXPR::EVAL_SIGNED;
      return value;
    }
    case INT_TYPE:
      set_type_if_unset(VPEXPR::EVAL_SIGNED);
      return static_cast<int32_t>(eval_pexpr(child(node, 0)));
    case UNS_TYPE:
      set_type_if_unset(VPEXPR::EVAL_UNSIGNED);
      return static_cast<uint32_t>(eval_pexpr(child(node, 0)));
    case INT_LITERAL:
      return parse_int(text_of(node));
    case SIZEOF:
      return eval_sizeof(node);
    case IDENTIFIER:
    case VPTR:
      return eval_name(node);
    default:
      return eval_symbolic(node);
  }
}

int64_t PEXPR_EVALUATOR::eval_name(EXPR_TREE* node) {
  const std::string name = text_of(node);
  if (name == "ZELT_SIMD_WIDTH") {
    expr.uses_width = true;
    set_type_if_unset(VPEXPR::EVAL_UNSIGNED);
    return zelt_simd_width;
  }
  if (PARM* parm = kernel ? kernel->lookup_parm(name) : nullptr) {
    expr.parm_refs.insert(parm);
    if (!parm->type().is_untyped()) node->type = VPTR;
  }
  return eval_symbolic(node);
}

// sizeof *p and sizeof **p of a pointer parameter: its element size.
int64_t PEXPR_EVALUATOR::eval_sizeof(EXPR_TREE* node) {
  EXPR_TREE* operand = child(node, 0);
  EXPR_TREE* name = nullptr;
  if (!is_nil(operand) && type_of(operand) == UMULT) {
    EXPR_TREE* inner = child(operand, 0);
    if (!is_nil(inner) && type_of(inner) == UMULT) inner = child(inner, 0);
    if (!is_nil(inner) && type_of(inner) == IDENTIFIER) name = inner;
  }
  const PARM* parm =
      name && kernel ? kernel->lookup_parm(ANTLR3_TREE_UTIL::tostring(name)) : nullptr;
  if (!parm) {
    expr.eval_type = VPEXPR::EVAL_SYMBOLIC;
    return 1;
  }
  set_type_if_unset(VPEXPR::EVAL_UNSIGNED);
  if (parm->type().is_untyped()) {
    expr.eval_type = VPEXPR::EVAL_SYMBOLIC;
    return 1;
  }
  return parm->type().bits / 8;
}

// The children are still evaluated for their parameter references and the
// retyping of pointer parameters.
int64_t PEXPR_EVALUATOR::eval_symbolic(EXPR_TREE* node) {
  expr.eval_type = VPEXPR::EVAL_SYMBOLIC;
  for (EXPR_TREE* c = node->first; c; c = c->next) eval_pexpr(c);
  return 1;
}

int64_t PEXPR_EVALUATOR::parse_int(const std::string& text) {
  auto at = [&text](size_t i) { return i < text.size() ? text[i] : '\0'; };
  auto is_octal = [](char c) { return c >= '0' && c <= '7'; };

  int base = 10;
  size_t pos = 0;
  if (at(0) == '0' && (at(1) == 'x' || at(1) == 'X') &&
      std::isxdigit(static_cast<unsigned char>(at(2)))) {
    base = 16;
    pos = 2;
  } else if (at(0) == '0' && is_octal(at(1))) {
    base = 8;
    pos = 1;
  }
  const size_t first = pos;
  size_t octal_digits = 0;
  while (std::isxdigit(static_cast<unsigned char>(at(pos)))) {
    if (is_octal(at(pos))) ++octal_digits;
    ++pos;
  }
  const size_t scanned = pos - first;
  if (base != 16) {
    const char next = at(pos);
    if (next == 'h' || next == 'H')
      base = 16;
    else if ((next == 'q' || next == 'Q') && octal_digits == scanned)
      base = 8;
  }
  if (at(pos) == 'U' || (at(pos) != '\0' && at(pos + 1) == 'U'))
    set_type_if_unset(VPEXPR::EVAL_UNSIGNED);

  uint64_t value = 0;
  for (size_t i = first; i < pos; ++i)
    value = value * static_cast<uint64_t>(base) + static_cast<uint64_t>(hex_digit_value(text[i]));
  set_type_if_unset(value >> 63 ? VPEXPR::EVAL_UNSIGNED : VPEXPR::EVAL_SIGNED);
  return wrap(value);
}

// ---------------------------------------------------------------------------
// Printing and positions.

namespace ANTLR3_TREE_UTIL {

const EXPR_TREE* first_real_token(const EXPR_TREE* tree) {
  if (!tree) return nullptr;
  if (!tree->nil && tree->real) return tree;
  for (const EXPR_TREE* c = tree->first; c; c = c->next)
    if (const EXPR_TREE* found = first_real_token(c)) return found;
  return nullptr;
}

int operator_precedence(ANTLR3_UINT32 type) {
  switch (type) {
#define VCTREE_PREC(token, level) \
  case token:                     \
    return level;
#include "ZELT_ZLC/vctree.def"
#undef VCTREE_PREC
    default:
      return 0;
  }
}

namespace {

// Appends the text of `tree` to `out`, so that printing is linear in the
// size of the tree.
void print(const EXPR_TREE* tree, int required, std::string& out) {
  if (!tree) return;
  if (tree->nil) {
    out += "nil";
    return;
  }
  const ANTLR3_UINT32 type = type_of(tree);
  if (type == PEXPR) {
    print(child(tree, 0), 0, out);
    return;
  }
  const int p = operator_precedence(type);
  const bool wrap = p < required;
  if (wrap) out += '(';
  if (is_binary_print(type)) {
    print(child(tree, 0), p, out);
    out += tree->text;
    print(child(tree, 1), p + 1, out);
  } else {
    switch (type) {
      case SIZEOF:
        out += "sizeof(";
        print(child(tree, 0), 0, out);
        out += ')';
        break;
      case NOTB: case EXCLAIM: case UMINUS: case UMULT: case UAND:
        out += tree->text;
        print(child(tree, 0), p, out);
        break;
      case SUBSCRIPT:
        print(child(tree, 0), p, out);
        out += '[';
        print(child(tree, 1), 0, out);
        out += ']';
        break;
      case CALL:
        print(child(tree, 0), p, out);
        out += '(';
        print(child(tree, 1), 0, out);
        out += ')';
        break;
      case ARGS:
        for (const EXPR_TREE* c = tree->first; c; c = c->next) {
          if (c != tree->first) out += ", ";
          print(c, 0, out);
        }
        break;
      case IDENTIFIER: case INT_LITERAL:
        out += tree->text;
        break;
      case VPTR:
        if (required != 0) out += "(uchar *)";
        out += tree->text;
        break;
      case QUEST:
        // The third child is the ':' node; the else branch is not printed.
        print(child(tree, 0), p + 1, out);
        out += '?';
        print(child(tree, 1), p + 1, out);
        out += ':';
        print(child(tree, 2), p, out);
        break;
      default:
        out += "<unknown node: ";
        out += tree->text;
        out += '>';
        break;
    }
  }
  if (wrap) out += ')';
}

}  // namespace

std::string tostring(const EXPR_TREE* tree, int required) {
  std::string out;
  print(tree, required, out);
  return out;
}

}  // namespace ANTLR3_TREE_UTIL

DIAG_SRCINFO_DATA antlr_srcinfo(const EXPR_TREE* tree) {
  const EXPR_TREE* node = ANTLR3_TREE_UTIL::first_real_token(tree);
  if (!node || !node->input || !node->input->fileName) return DIAG_SRCINFO_DATA("unknown", 0, 0);
  return DIAG_SRCINFO_DATA(antlr_text(node->input->fileName), node->line,
                           static_cast<unsigned>(node->column));
}

VPEXPR* build_pexpr(EXPR_TREE* tree, const std::string& text) {
  auto* expr = kernel_new<VPEXPR>(text);
  PEXPR_EVALUATOR evaluator(*expr, curr_vkernel);
  expr->value = static_cast<uint32_t>(evaluator.eval_pexpr(tree));
  return expr;
}

void check_pexpr_value_equals(EXPR_TREE* tree, const std::string& text,
                              uint32_t expected) {
  const VPEXPR* expr = build_pexpr(tree, text);
  if (!expr->is_const() || expr->value64() == static_cast<int64_t>(expected)) return;
  const DIAG_SRCINFO_DATA position = antlr_srcinfo(tree);
  DIAG::zlc_illegal_pexpr_val(expected, expr->value).set_src(&position).report();
}

// ---------------------------------------------------------------------------
// Address-generator formulas: a sum of terms, each a loop variable times a
// loop-invariant factor.

namespace {

class AGEN_EXPR_PARSER {
 public:
  AGEN_EXPR_PARSER(const VCMD& vcmd, AGEN& agen) : vcmd(vcmd), agen(agen) {}

  // `evaluated`: an enclosing sum has been evaluated already.
  bool analyze_agen_expr(EXPR_TREE* node, bool evaluated = false);
  const std::string& error() const { return error_text; }

 private:
  const VPEXPR* analyze_agen_term(EXPR_TREE* node);
  void set_error(const std::string& text) {
    if (error_text.empty()) error_text = text;
  }

  const VCMD& vcmd;
  AGEN& agen;
  std::string error_text;  // the first message only
  bool has_lcv = false;
  int32_t lcv_depth = 0;
};

bool AGEN_EXPR_PARSER::analyze_agen_expr(EXPR_TREE* node, bool evaluated) {
  while (!is_nil(node) && type_of(node) == PEXPR) node = child(node, 0);
  if (is_nil(node)) return false;
  has_lcv = false;
  if (type_of(node) == PLUS) {
    // A sum is no term.  Taken as a factor it would be evaluated, which
    // marks its pointer parameters, or stops the run at a constant division
    // by zero; evaluating the outermost sum once does all of that for the
    // sums inside it, and keeps the analysis linear.
    if (!evaluated) {
      VPEXPR scratch("");
      PEXPR_EVALUATOR(scratch, curr_vkernel).eval_pexpr(node);
    }
    if (node->child_count < 2) return false;
    return analyze_agen_expr(child(node, 0), true) && analyze_agen_expr(child(node, 1), true);
  }
  if (const VPEXPR* stride = analyze_agen_term(node); stride && has_lcv) {
    agen.strides[static_cast<size_t>(lcv_depth)] = stride;
    if (agen.deepest_depth < lcv_depth) agen.deepest_depth = lcv_depth;
    return true;
  }
  set_error("expression must contain exactly one loop control variable");
  return false;
}

const VPEXPR* AGEN_EXPR_PARSER::analyze_agen_term(EXPR_TREE* node) {
  if (is_nil(node)) return nullptr;
  switch (type_of(node)) {
    case IDENTIFIER: {
      const std::string name = text_of(node);
      int32_t depth = 0;
      if (!vcmd.is_lcv(name, depth) || depth < 0 || depth >= AGEN::max_depth)
        return build_pexpr(node, name);
      if (has_lcv) {
        set_error("term references multiple loop control variables (" + name + ")");
        return nullptr;
      }
      has_lcv = true;
      lcv_depth = depth;
      return VPEXPR::one;
    }
    case MULT: {
      if (node->child_count != 2) return nullptr;
      const VPEXPR* a = analyze_agen_term(child(node, 0));
      const VPEXPR* b = analyze_agen_term(child(node, 1));
      return a && b ? VPEXPR::product(a, b) : nullptr;
    }
    default:
      return build_pexpr(node, ANTLR3_TREE_UTIL::tostring(node));
  }
}

// The address of a load or store: exactly one pointer parameter, as p or
// p[k], alone or plus an offset.
struct VLVALUE_EXPR_PARSER {
  void analyze_expr(EXPR_TREE* tree, const std::string& text);

  VPEXPR* whole = nullptr;
  PARM* parm = nullptr;
  const VPEXPR* base = nullptr;
  const VPEXPR* offset = nullptr;
  bool not_one_pointer = false;  // no pointer parameter, or more than one
};

bool is_pointer_like(EXPR_TREE* node) {
  if (is_nil(node)) return false;
  if (type_of(node) == VPTR) return true;
  if (type_of(node) != SUBSCRIPT) return false;
  EXPR_TREE* array = child(node, 0);
  return !is_nil(array) && type_of(array) == VPTR;
}

const VPEXPR* tree_pexpr(EXPR_TREE* node) {
  return build_pexpr(node, ANTLR3_TREE_UTIL::tostring(node));
}

void VLVALUE_EXPR_PARSER::analyze_expr(EXPR_TREE* tree, const std::string& text) {
  if (is_nil(tree)) return;
  whole = build_pexpr(tree, text);
  int pointers = 0;
  for (PARM* ref : whole->parm_refs) {
    if (ref->type().is_untyped()) continue;
    if (pointers++ == 0) parm = ref;
  }
  not_one_pointer = pointers != 1;
  whole->text = ANTLR3_TREE_UTIL::tostring(tree);

  EXPR_TREE* node = type_of(tree) == PEXPR ? child(tree, 0) : tree;
  if (is_pointer_like(node)) {
    base = tree_pexpr(node);
    offset = kernel_new<VPEXPR>(0, VPEXPR::EVAL_UNSIGNED);
  } else if (!is_nil(node) && type_of(node) == PLUS && node->child_count >= 2) {
    EXPR_TREE* left = child(node, 0);
    EXPR_TREE* right = child(node, 1);
    if (is_pointer_like(left)) {
      base = tree_pexpr(left);
      offset = tree_pexpr(right);
    } else if (is_pointer_like(right)) {
      base = tree_pexpr(right);
      offset = tree_pexpr(left);
    }
  }
}

}  // namespace

void analyze_agen_expr(EXPR_TREE* tree, AGEN* agen) {
  if (!tree || !agen) return;
  agen->has_init = true;
  if (ANTLR3_TREE_UTIL::tostring(tree) == "0") return;
  AGEN_EXPR_PARSER parser(*curr_vcmd, *agen);
  if (parser.analyze_agen_expr(tree)) return;
  const DIAG_SRCINFO_DATA position = antlr_srcinfo(tree);
  DIAG::zlc_illegal_agen_expr(parser.error()).set_src(&position).report();
}

void analyze_lvalue_expr(EXPR_TREE* tree, const std::string& text, AGEN* agen) {
  const DIAG_SRCINFO_DATA position = antlr_srcinfo(tree);
  VLVALUE_EXPR_PARSER parser;
  parser.analyze_expr(tree, text);
  if (!parser.whole || !parser.parm || parser.not_one_pointer || !parser.base) {
    DIAG::zlc_illegal_lvalue_expr().set_src(&position).report();
    return;
  }
  curr_vcmd->new_vlvalue(position, parser.whole, parser.parm, parser.base, parser.offset, agen,
                         parser.parm->type());
}
