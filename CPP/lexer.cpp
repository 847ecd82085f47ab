// Line input with continuation, and the scanning of one token: comments,
// numbers with their types, literals with escapes, operators.
#include <array>
#include <cctype>
#include <cstring>

#include "CPP/cpp_impl.h"

namespace {

enum LX_CLASS : uint8_t {
  LC_EOL,       // NUL and control-Z
  LC_SINGLE,    // a token of its own
  LC_OPEQ,      // operator, with optional "="
  LC_OPDOUBLE,  // operator, doubled or with "="
  LC_SHIFT,     // "<" and ">"
  LC_MINUS,
  LC_SLASH,
  LC_DOT,
  LC_HASH,
  LC_BLANK,
  LC_DIGIT,
  LC_LETTER,
  LC_L,         // identifier or wide literal
  LC_QUOTE,
  LC_BAD,       // illegal source character
};

constexpr std::array<uint8_t, 256> make_classes() {
  std::array<uint8_t, 256> c{};
  for (auto& k : c) k = LC_BAD;
  c[0] = c[0x1A] = LC_EOL;
  for (unsigned char ch : std::string_view("$(),:;?@[\\]`{}~\x7f")) c[ch] = LC_SINGLE;
  for (unsigned char ch : std::string_view("!%*=^")) c[ch] = LC_OPEQ;
  for (unsigned char ch : std::string_view("&+|")) c[ch] = LC_OPDOUBLE;
  c['<'] = c['>'] = LC_SHIFT;
  c['-'] = LC_MINUS;
  c['/'] = LC_SLASH;
  c['.'] = LC_DOT;
  c['#'] = LC_HASH;
  for (unsigned char ch : std::string_view(" \t\n\v\f\r")) c[ch] = LC_BLANK;
  for (int ch = '0'; ch <= '9'; ++ch) c[ch] = LC_DIGIT;
  for (int ch = 'a'; ch <= 'z'; ++ch) c[ch] = c[ch - 'a' + 'A'] = LC_LETTER;
  c['_'] = LC_LETTER;
  c['L'] = LC_L;
  c['"'] = c['\''] = LC_QUOTE;
  return c;
}

constexpr std::array<uint8_t, 256> kClass = make_classes();

uint16_t operator_base(char c) {
  switch (c) {
    case '!': return TK_NOT;
    case '%': return TK_PERCENT;
    case '*': return TK_STAR;
    case '=': return TK_ASSIGN;
    case '^': return TK_CARET;
    case '&': return TK_AMP;
    case '+': return TK_PLUS;
    case '|': return TK_BAR;
    case '<': return TK_LT;
    default: return TK_GT;
  }
}

bool is_ident_char(unsigned char c) { return std::isalnum(c) || c == '_'; }

int digit_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 99;
}

// Checks a floating constant and gives its type from the suffix.
uint16_t lx_fcon(const char* s, size_t n, bool hex) {
  const int base = hex ? 16 : 10;
  size_t i = hex ? 2 : 0;
  size_t digits = 0;
  for (; i < n && digit_value(s[i]) < base; ++i) ++digits;
  if (i < n && s[i] == '.')
    for (++i; i < n && digit_value(s[i]) < base; ++i) ++digits;
  if (digits == 0) return TK_BADNUM;
  const bool has_exp = i < n && (hex ? (s[i] == 'p' || s[i] == 'P') : (s[i] == 'e' || s[i] == 'E'));
  if (hex && !has_exp) return TK_BADNUM;
  if (has_exp) {
    ++i;
    if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
    size_t exp_digits = 0;
    for (; i < n && std::isdigit(static_cast<unsigned char>(s[i])); ++i) ++exp_digits;
    if (exp_digits == 0) return TK_BADNUM;
  }
  uint16_t type = TK_DOUBLE;
  if (i < n) {
    if (s[i] == 'f' || s[i] == 'F')
      type = TK_FLOAT;
    else if (s[i] == 'l' || s[i] == 'L')
      type = TK_LDOUBLE;
    else
      return TK_BADNUM;
    ++i;
  }
  return i == n ? type : static_cast<uint16_t>(TK_BADNUM);
}

// The value of an integer constant, in 64 bits without an overflow test, and
// its type from the suffix.
uint16_t lx_icon(const char* s, size_t n, bool hex, uint64_t& value) {
  value = 0;
  size_t i = 0;
  if (hex) {
    for (i = 2; i < n && digit_value(s[i]) < 16; ++i) value = value * 16 + digit_value(s[i]);
    if (i == 2) return TK_BADNUM;
  } else if (s[0] == '0') {
    for (i = 1; i < n && s[i] >= '0' && s[i] <= '7'; ++i) value = value * 8 + (s[i] - '0');
  } else {
    for (; i < n && std::isdigit(static_cast<unsigned char>(s[i])); ++i)
      value = value * 10 + (s[i] - '0');
  }
  bool u = false, l = false;
  for (; i < n; ++i) {
    const char c = static_cast<char>(std::tolower(static_cast<unsigned char>(s[i])));
    if (c == 'u' && !u)
      u = true;
    else if (c == 'l' && !l)
      l = true;
    else
      return TK_BADNUM;
  }
  if (u && l) return TK_ULONG;
  if (l) return value <= 0x7FFFFFFF ? TK_LONG : TK_ULONG;
  if (u) return (value >> 32) ? TK_ULONG : TK_UINT;
  return TK_INT;
}

void lx_number(const char* text, PP_TOKEN& token) {
  const char* s = text + token.offset;
  const bool hex = s[0] == '0' && (s[1] == 'x' || s[1] == 'X');
  size_t n = hex ? 2 : 0;
  bool dot = false, exp = false;
  for (;;) {
    const char c = s[n];
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '.') break;
    ++n;
    if (c == '.') dot = true;
    if (hex ? (c == 'p' || c == 'P') : (c == 'e' || c == 'E')) exp = true;
    if ((c == 'e' || c == 'E') && (s[n] == '+' || s[n] == '-')) ++n;
  }
  token.length = static_cast<uint32_t>(n);
  if (dot || exp)
    token.type = lx_fcon(s, n, hex);
  else
    token.type = lx_icon(s, n, hex, token.value);
}

// The value of the escape sequence at text[i] (a backslash); i moves past it.
uint64_t lx_escape(const char* text, uint32_t& i) {
  const char c = text[i + 1];
  switch (c) {
    case 'a': i += 2; return 7;
    case 'b': i += 2; return 8;
    case 'f': i += 2; return 12;
    case 'n': i += 2; return 10;
    case 'r': i += 2; return 13;
    case 't': i += 2; return 9;
    case 'v': i += 2; return 11;
    case 'x': {
      uint64_t v = 0;
      for (i += 2; digit_value(text[i]) < 16; ++i) v = v * 16 + digit_value(text[i]);
      return v;
    }
    case '\0':
    case '\n':
      i += 1;
      return '\\';
    default:
      break;
  }
  if (c >= '0' && c <= '7') {
    uint64_t v = 0;
    ++i;
    for (int k = 0; k < 3 && text[i] >= '0' && text[i] <= '7'; ++k, ++i) v = v * 8 + (text[i] - '0');
    return v;
  }
  i += 2;
  return static_cast<unsigned char>(c);
}

}  // namespace

// Reads one logical line to `pos`: physical lines ending in a backslash are
// joined, and each adds 1 to the line count.
bool CPP_IMPL::lx_fill(char* base, char* pos) {
  bool read = false;
  for (;;) {
    const size_t room = kLineMax - static_cast<size_t>(pos - base);
    if (room <= 2) {
      pp_report(DIAG::cpp_line_too_long());
      return read;
    }
    if (!std::fgets(pos, static_cast<int>(room), fp)) {
      if (read) std::strcpy(pos, "\n");  // a continuation at the end of the file
      return read;
    }
    read = true;
    ++line;
    char* end = pos + std::strlen(pos);
    if (end == pos || end[-1] != '\n') {
      if (end >= base + kLineMax - 2) {
        pp_report(DIAG::cpp_line_too_long());
        end = base + kLineMax - 2;
      }
      end[0] = '\n';
      end[1] = '\0';
      ++end;
    }
    char* last = end - 1;  // the line feed
    if (last > pos && last[-1] == '\r') --last;
    if (last == pos || last[-1] != '\\') return true;
    pos = last - 1;  // the next physical line goes over the backslash
  }
}

// Replaces the comment that starts at text[pos] by one blank.  A comment of
// the source line that doesn't end there swallows the following lines.
void CPP_IMPL::lx_comment(char* text, uint32_t pos, bool from_line) {
  char* p = text + pos;
  if (const char* end = std::strstr(p + 2, "*/")) {
    *p = ' ';
    std::memmove(p + 1, end + 2, std::strlen(end + 2) + 1);
    return;
  }
  if (!from_line) {
    p[0] = ' ';
    p[1] = '\0';
    return;
  }
  const unsigned start = line;
  for (;;) {
    if (!lx_fill(comment_buf, comment_buf)) {
      pp_report(DIAG::cpp_open_comment(start));
      std::strcpy(p, " \n");
      return;
    }
    if (const char* end = std::strstr(comment_buf, "*/")) {
      size_t rest = std::strlen(end + 2);
      if (pos + 2 + rest > kLineMax) {
        pp_report(DIAG::cpp_buffer_overflow_skipping_comments());
        rest = kLineMax - pos - 2;
      }
      *p = ' ';
      std::memcpy(p + 1, end + 2, rest);
      p[1 + rest] = '\0';
      return;
    }
  }
}

void CPP_IMPL::lx_literal(const char* text, PP_TOKEN& token, char quote, bool wide) {
  uint32_t i = token.offset + (wide ? 2 : 1);
  uint64_t value = 0;
  for (;;) {
    const unsigned char c = text[i];
    if (c == '\0' || c == '\n') {
      pp_report(DIAG::cpp_open_quote());
      break;
    }
    if (c == static_cast<unsigned char>(quote)) {
      ++i;
      break;
    }
    if (c == '\\') {
      value = lx_escape(text, i);
    } else {
      value = c;
      ++i;
    }
  }
  token.length = i - token.offset;
  token.value = value;
  token.type = quote == '"' ? TK_STRING : wide ? TK_WCHAR : TK_CHAR;
}

// Scans the token at text[cursor] and moves the cursor past it.  The end
// token stays where it is, so that it is found again.
void CPP_IMPL::lx_token(char* text, uint32_t& cursor, PP_TOKEN& token, bool from_line) {
  for (;;) {
    const unsigned char c = text[cursor];
    const uint8_t cls = kClass[c];
    if (cls == LC_BLANK) {
      ++cursor;
      continue;
    }
    if (cls == LC_BAD) {
      pp_report(DIAG::cpp_bad_char(c));
      ++cursor;
      continue;
    }
    char* p = text + cursor;
    token = PP_TOKEN{TK_EOL, cursor, 1, 0};
    switch (cls) {
      case LC_EOL:
        token.length = 0;
        return;
      case LC_SINGLE:
        token.type = c;
        break;
      case LC_OPEQ:
        token.type = operator_base(c);
        if (p[1] == '=') ++token.type, token.length = 2;
        break;
      case LC_OPDOUBLE:
        token.type = operator_base(c);
        if (p[1] == c)
          token.type += 2, token.length = 2;
        else if (p[1] == '=')
          ++token.type, token.length = 2;
        break;
      case LC_SHIFT:
        token.type = operator_base(c);
        if (p[1] == c && p[2] == '=')
          token.type += 3, token.length = 3;
        else if (p[1] == c)
          token.type += 2, token.length = 2;
        else if (p[1] == '=')
          ++token.type, token.length = 2;
        break;
      case LC_MINUS:
        token.type = TK_MINUS;
        if (p[1] == '>')
          token.type = TK_ARROW, token.length = 2;
        else if (p[1] == '-' || p[1] == '=')
          token.type += p[1] == '-' ? 2 : 1, token.length = 2;
        break;
      case LC_SLASH:
        if (p[1] == '/') {  // cuts the line
          p[0] = '\n';
          p[1] = '\0';
          continue;
        }
        if (p[1] == '*') {
          lx_comment(text, cursor, from_line);
          continue;
        }
        token.type = TK_SLASH;
        if (p[1] == '=') ++token.type, token.length = 2;
        break;
      case LC_DOT:
        if (p[1] == '.' && p[2] == '.') {
          token.type = TK_ELLIPSIS, token.length = 3;
        } else if (std::isdigit(static_cast<unsigned char>(p[1]))) {
          lx_number(text, token);
        } else {
          token.type = TK_DOT;
        }
        break;
      case LC_HASH:
        token.type = TK_HASH;
        if (p[1] == '#') token.type = TK_CAT, token.length = 2;
        break;
      case LC_DIGIT:
        lx_number(text, token);
        break;
      case LC_L:
        if (p[1] == '\'' || p[1] == '"') {
          lx_literal(text, token, p[1], true);
          break;
        }
        [[fallthrough]];
      case LC_LETTER: {
        uint32_t n = 1;
        while (is_ident_char(p[n])) ++n;
        token.type = TK_IDENT;
        token.length = n;
        break;
      }
      default:  // LC_QUOTE
        lx_literal(text, token, static_cast<char>(c), false);
        break;
    }
    cursor += token.length;
    return;
  }
}

// The next token of the source line.  Past the last entry of the token
// array the line is closed with an end token.
PP_TOKEN& CPP_IMPL::lx_getc() {
  if (token_count > kMaxLineTokens) return tokens[kMaxLineTokens];
  if (token_count == kMaxLineTokens) {
    pp_report(DIAG::cpp_too_many_tokens_in_this_macro_expansion());
    PP_TOKEN& end = tokens[token_count++];
    end = PP_TOKEN{TK_EOL, cursor, 0, 0};
    line_buf[cursor] = '\0';
    return end;
  }
  PP_TOKEN& token = tokens[token_count++];
  lx_token(line_buf, cursor, token, true);
  return token;
}

// Scans a whole text that is not a source line (a predefined value, the
// result of # or ##); the closing token becomes the end of a macro body.
void CPP_IMPL::scan_text(char* text, std::vector<PP_TOKEN>& out) {
  out.clear();
  uint32_t pos = 0;
  for (;;) {
    PP_TOKEN token;
    lx_token(text, pos, token, false);
    if (token.type != TK_EOL && out.size() + 1 == kMaxDefTokens) {
      pp_report(DIAG::cpp_too_many_tokens_in_predefine());
      token = PP_TOKEN{TK_EOL, token.offset, 0, 0};
    }
    if (token.type == TK_EOL) {
      token.type = TK_END;
      out.push_back(token);
      return;
    }
    out.push_back(token);
  }
}
