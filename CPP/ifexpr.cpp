// Conditionals: the stack of open #if groups, the skipping of inactive
// lines, and the evaluation of #if expressions in 64 bits, signed or
// unsigned, with the undefined names that the result depends on.
#include <cstdint>

#include "CPP/cpp_impl.h"

namespace {

// The level of a binary operator, or -1.
int pp_precedence(int type) {
  switch (type) {
    case ',': return 0;
    case '?': return 1;
    case TK_OROR: return 2;
    case TK_ANDAND: return 3;
    case TK_BAR: return 4;
    case TK_CARET: return 5;
    case TK_AMP: return 6;
    case TK_EQ: case TK_NE: return 7;
    case TK_LT: case TK_LE: case TK_GT: case TK_GE: return 8;
    case TK_SHL: case TK_SHR: return 9;
    case TK_PLUS: case TK_MINUS: return 10;
    case TK_STAR: case TK_SLASH: case TK_PERCENT: return 11;
    default: return -1;
  }
}

constexpr int kUnaryLevel = 12;
constexpr int kLeafLevel = 13;
constexpr size_t kNameMax = 1000;  // of an undefined name kept for its message

}  // namespace

// #if, #ifdef, #ifndef.
void CPP_IMPL::pp_if(int id) {
  ifstack.push_back({true, line});
  bool active;
  if (id == PP_IF) {
    active = pp_condition(2);
  } else {
    const PP_TOKEN& name = tokens[2];
    if (name.type != TK_IDENT) {
      pp_report(DIAG::cpp_bad_ifdef());
      return;
    }
    active = (pp_lookup(name, line_buf) != nullptr) == (id == PP_IFDEF);
  }
  if (!active) pp_skip();
}

// #elif and #else met in an active group end it: all later branches are
// skipped, and the operand of #elif is not looked at.
void CPP_IMPL::pp_else() {
  if (ifstack.empty() || !ifstack.back().else_allowed) {
    pp_report(DIAG::cpp_ifnest());
    return;
  }
  ifstack.back().else_allowed = false;
  ifstack.back().line = line;
  pp_skip();
}

void CPP_IMPL::pp_endif() {
  if (ifstack.empty()) {
    pp_report(DIAG::cpp_ifnest());
    return;
  }
  ifstack.pop_back();
}

// Reads lines without expanding anything until the group of the top entry
// ends or one of its branches becomes active.
void CPP_IMPL::pp_skip() {
  int depth = 0;
  for (;;) {
    start_line();
    if (!lx_fill(line_buf, line_buf)) {  // a skip does not cross the end of a file
      pp_report(DIAG::cpp_open_if(ifstack.back().line));
      ifstack.clear();
      line_buf[0] = '\0';
      return;
    }
    PP_IF_ENTRY& entry = ifstack.back();
    switch (pp_isdir(0)) {
      case PP_IF:
      case PP_IFDEF:
      case PP_IFNDEF:
        ++depth;
        break;
      case PP_ENDIF:
        if (depth == 0) {
          ifstack.pop_back();
          return;
        }
        --depth;
        break;
      case PP_ELIF:
        if (depth == 0 && entry.else_allowed) {
          while (tokens[token_count - 1].type != TK_EOL) lx_getc();
          if (pp_condition(2)) return;
        }
        break;
      case PP_ELSE:
        if (depth == 0 && entry.else_allowed) {
          entry.else_allowed = false;
          return;
        }
        break;
      default:
        break;
    }
  }
}

// Evaluates the expression of a directive from token `first` on.
bool CPP_IMPL::pp_condition(uint32_t first) {
  expand = true;
  top = 0;
  stack[0].next_token = first;
  advance();
  PP_VALUE value;
  if (!pp_expr(0, value)) {
    pp_report(DIAG::cpp_expr_syntax());
    while (look.type != TK_EOL) advance();
  }
  for (const std::string& name : value.undefined_names) pp_report(DIAG::cpp_undef_sym(name));
  expand = false;
  top = 0;
  return value.value != 0;
}

void CPP_IMPL::advance() {
  const PP_TOKEN* t = pp_token();
  look.type = t->type;
  look.value = t->value;
  if (t->type == TK_IDENT)
    look.name.assign(tok_text + t->offset, t->length);
  else
    look.name.clear();
}

// Levels 0 and 2 to 11 are left-associative binary operators; both operands
// are always parsed and evaluated.  On failure `value` keeps what was formed.
bool CPP_IMPL::pp_expr(int level, PP_VALUE& value) {
  if (level == 1) return pp_quest(value);
  if (level == kUnaryLevel) return pp_unary(value);
  if (level == kLeafLevel) return pp_leaf(value);
  if (!pp_expr(level + 1, value)) return false;
  while (pp_precedence(look.type) == level) {
    const int op = look.type;
    advance();
    PP_VALUE right;
    if (!pp_expr(level + 1, right)) return false;
    pp_eval(value, op, right);
  }
  return true;
}

bool CPP_IMPL::pp_quest(PP_VALUE& value) {
  if (!pp_expr(2, value)) return false;
  if (look.type != '?') return true;
  advance();
  PP_VALUE yes, no;
  if (!pp_expr(1, yes)) return false;
  if (look.type != ':') return false;
  advance();
  if (!pp_expr(1, no)) return false;
  PP_VALUE& chosen = value.value ? yes : no;
  value.value = chosen.value;
  value.undefined_names.merge(chosen.undefined_names);
  value.is_unsigned = yes.is_unsigned || no.is_unsigned;
  return true;
}

bool CPP_IMPL::pp_unary(PP_VALUE& value) {
  const int op = look.type;
  if (op != '~' && op != TK_PLUS && op != TK_MINUS && op != TK_NOT) return pp_leaf(value);
  advance();
  if (!pp_expr(kUnaryLevel, value)) return false;
  switch (op) {
    case '~': value.value = ~value.value; break;
    case TK_MINUS: value.value = 0 - value.value; break;
    case TK_NOT:
      value.value = value.value == 0;
      value.is_unsigned = false;
      break;
    default: break;
  }
  return true;
}

bool CPP_IMPL::pp_leaf(PP_VALUE& value) {
  switch (look.type) {
    case TK_INT:
    case TK_LONG:
    case TK_CHAR:
    case TK_WCHAR:
    case TK_UINT:
    case TK_ULONG:
      value.value = look.value;
      value.is_unsigned = look.type == TK_UINT || look.type == TK_ULONG;
      advance();
      return true;
    case '(':
      advance();
      if (!pp_expr(0, value) || look.type != ')') return false;
      advance();
      return true;
    case TK_IDENT:
      break;
    default:
      return false;
  }
  if (look.name != "defined") {
    value.value = 0;
    value.is_unsigned = false;
    value.undefined_names.insert(look.name.substr(0, kNameMax));
    advance();
    return true;
  }
  expand = false;  // the operand of "defined" is not expanded
  advance();
  const bool paren = look.type == '(';
  if (paren) advance();
  const bool ok = look.type == TK_IDENT;
  const bool defined = ok && pp_lookup_name(look.name) != nullptr;
  if (ok && paren) advance();
  expand = true;
  if (!ok || (paren && look.type != ')')) return false;
  advance();
  value.value = defined;
  value.is_unsigned = false;
  return true;
}

void CPP_IMPL::pp_eval(PP_VALUE& left, int op, PP_VALUE& right) {
  // Names behind an operand that can't matter are dropped.
  if ((op == TK_ANDAND && left.value == 0) || (op == TK_OROR && left.value != 0))
    right.undefined_names.clear();
  left.undefined_names.merge(right.undefined_names);
  const bool shift = op == TK_SHL || op == TK_SHR;
  const bool uns = shift ? left.is_unsigned : left.is_unsigned || right.is_unsigned;
  const uint64_t a = left.value, b = right.value;
  const int64_t sa = static_cast<int64_t>(a), sb = static_cast<int64_t>(b);
  uint64_t result = 0;
  bool result_unsigned = uns;
  switch (op) {
    case TK_PLUS: result = a + b; break;
    case TK_MINUS: result = a - b; break;
    case TK_STAR: result = a * b; break;
    case TK_AMP: result = a & b; break;
    case TK_BAR: result = a | b; break;
    case TK_CARET: result = a ^ b; break;
    case TK_SLASH:
    case TK_PERCENT:
      if (b == 0) {
        pp_report(DIAG::cpp_divzero());
      } else if (uns) {
        result = op == TK_SLASH ? a / b : a % b;
      } else if (sa == INT64_MIN && sb == -1) {
        result = op == TK_SLASH ? a : 0;  // the quotient wraps
      } else {
        result = static_cast<uint64_t>(op == TK_SLASH ? sa / sb : sa % sb);
      }
      break;
    case TK_ANDAND: result = a && b; result_unsigned = false; break;
    case TK_OROR: result = a || b; result_unsigned = false; break;
    case TK_EQ: result = a == b; result_unsigned = false; break;
    case TK_NE: result = a != b; result_unsigned = false; break;
    case TK_LT: result = uns ? a < b : sa < sb; result_unsigned = false; break;
    case TK_LE: result = uns ? a <= b : sa <= sb; result_unsigned = false; break;
    case TK_GT: result = uns ? a > b : sa > sb; result_unsigned = false; break;
    case TK_GE: result = uns ? a >= b : sa >= sb; result_unsigned = false; break;
    case TK_SHL: result = a << (b & 63); break;
    case TK_SHR: result = uns ? a >> (b & 63) : static_cast<uint64_t>(sa >> (b & 63)); break;
    default:  // ","
      result = b;
      result_unsigned = right.is_unsigned;
      break;
  }
  left.value = result;
  left.is_unsigned = result_unsigned;
}
