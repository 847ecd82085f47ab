// Directive lines: recognition, dispatch, #include with the end of included
// files, #line, #error, #warn and #pragma.
#include <algorithm>
#include <cctype>
#include <cstring>

#include "CPP/cpp_impl.h"

namespace {

struct DIRECTIVE_NAME {
  std::string_view name;
  PP_DIRECTIVE id;
};

constexpr DIRECTIVE_NAME kDirectives[] = {
    {"if", PP_IF},         {"ifdef", PP_IFDEF},   {"ifndef", PP_IFNDEF}, {"elif", PP_ELIF},
    {"else", PP_ELSE},     {"endif", PP_ENDIF},   {"include", PP_INCLUDE}, {"define", PP_DEFINE},
    {"undef", PP_UNDEF},   {"line", PP_LINE},     {"error", PP_ERROR},   {"warn", PP_WARN},
    {"pragma", PP_PRAGMA},
};

// `"name"` or `<name>`, with blanks before and white space after.
bool include_name(const char* s, std::string& name, bool& angled) {
  while (*s == ' ' || *s == '\t') ++s;
  if (*s != '<' && *s != '"') return false;
  const char close = *s == '<' ? '>' : '"';
  size_t n = std::strlen(s);
  while (n > 1 && std::isspace(static_cast<unsigned char>(s[n - 1]))) --n;
  if (n < 2 || s[n - 1] != close) return false;
  name.assign(s + 1, n - 2);
  angled = close == '>';
  return true;
}

// The kind of object file that the first bytes of `fp` announce, or null.
const char* object_file_kind(FILE* fp) {
  unsigned char b[8] = {};
  const size_t n = std::fread(b, 1, sizeof b, fp);
  std::rewind(fp);
  if (n >= 2) {
    const unsigned magic = b[0] | b[1] << 8;
    if ((magic >= 0x00C0 && magic <= 0x00C2) || magic == 0xC000 || magic == 0xC100 ||
        magic == 0xC200)
      return "COFF";
  }
  if (n >= 4 && std::memcmp(b, "\x7f" "ELF", 4) == 0) return "ELF";
  if (n == 8 && std::memcmp(b, "!<arch>\n", 8) == 0) return "archive";
  return nullptr;
}

bool ends_line(const PP_TOKEN& t) { return t.type == TK_EOL || t.type == TK_END; }

// A #line operand: a number, optionally followed by a string in double
// quotes, in which a doubled backslash stands for one.
bool line_operand(const PP_TOKEN* t, const char* text, uint64_t& number, std::string& name) {
  if (t[0].type < TK_INT || t[0].type > TK_ULONG) return false;
  number = t[0].value;
  name.clear();
  if (ends_line(t[1])) return true;
  const char* s = text + t[1].offset;
  if (t[1].type != TK_STRING || s[0] != '"' || t[1].length < 2 || s[t[1].length - 1] != '"' ||
      !ends_line(t[2]))
    return false;
  for (uint32_t i = 1; i + 1 < t[1].length; ++i) {
    name += s[i];
    if (s[i] == '\\' && s[i + 1] == '\\' && i + 2 < t[1].length) ++i;
  }
  return true;
}

}  // namespace

// Tells whether the line at line_buf[start] is a directive, and which.  The
// tokens looked at stay scanned.
int CPP_IMPL::pp_isdir(uint32_t start) {
  if (!std::strchr(line_buf + start, '#')) return PP_NONE;
  if (lx_getc().type != TK_HASH) return PP_NONE;
  const PP_TOKEN& word = lx_getc();
  if (word.type == TK_EOL) return PP_NULL;
  const std::string_view name(line_buf + word.offset, word.length);
  for (const DIRECTIVE_NAME& d : kDirectives)
    if (d.name == name) return d.id;
  bad_directive.assign(name);
  return PP_BAD;
}

void CPP_IMPL::pp_directive(int id) {
  if (id == PP_NULL) return;
  if (id == PP_BAD) {
    pp_report(DIAG::cpp_bad_dir(bad_directive));
    return;
  }
  while (tokens[token_count - 1].type != TK_EOL) lx_getc();
  in_directive = true;
  expand = false;
  switch (id) {
    case PP_IF:
    case PP_IFDEF:
    case PP_IFNDEF: pp_if(id); break;
    case PP_ELIF:
    case PP_ELSE: pp_else(); break;
    case PP_ENDIF: pp_endif(); break;
    case PP_INCLUDE: pp_include(); break;
    case PP_DEFINE: pp_define(); break;
    case PP_UNDEF: pp_undef(); break;
    case PP_LINE: pp_line(); break;
    case PP_ERROR: pp_report(DIAG::cpp_error_dir(directive_rest())); break;
    case PP_WARN: pp_report(DIAG::cpp_warn_dir(directive_rest())); break;
    case PP_PRAGMA: pp_pragma(); break;
    default: break;
  }
  top = 0;
  in_directive = false;
  pass_directive = false;
  expand = true;
}

// The directive's text from its first operand up to the line feed; a
// carriage return before it is part of the text.
std::string CPP_IMPL::directive_rest() const {
  const char* s = line_buf + tokens[2].offset;
  return std::string(s, std::strcspn(s, "\n"));
}

// The texts of the tokens from `first` on, with macros expanded, joined.
std::string CPP_IMPL::expanded_operand(uint32_t first, size_t limit) {
  expand = true;
  stack[0].next_token = first;
  std::string joined;
  for (const PP_TOKEN* t; (t = pp_token())->type != TK_EOL;)
    joined.append(tok_text + t->offset, std::min<size_t>(t->length, limit - joined.size()));
  expand = false;
  return joined;
}

void CPP_IMPL::pp_include() {
  std::string name;
  bool angled = false;
  if (!include_name(line_buf + tokens[1].offset + tokens[1].length, name, angled) &&
      !include_name(expanded_operand(2, kJoinMax - 1).c_str(), name, angled)) {
    pp_report(DIAG::cpp_bad_incl());
    return;
  }
  const std::string path = client->find_h_file(name.c_str(), angled);
  FILE* included = path.empty() ? nullptr : std::fopen(path.c_str(), "r");
  if (!included) {
    pp_report(DIAG::cpp_find_include(angled ? "<" + name + ">" : "\"" + name + "\""));
    return;
  }
  if (const char* kind = object_file_kind(included)) {
    std::fclose(included);
    pp_report(DIAG::cpp_bad_include_file(kind, name));
    return;
  }
  includes.push_back({fp, file, line});
  fp = included;
  file = pp_filename(path);
  line = 0;
  force_srcloc = true;
}

// At the end of a file: back to the includer, or the end of the input.
bool CPP_IMPL::pp_eof() {
  if (includes.empty()) {
    if (!ifstack.empty()) pp_report(DIAG::cpp_open_if(ifstack.back().line));
    return false;
  }
  std::fclose(fp);
  fp = includes.back().fp;
  file = includes.back().file;
  line = includes.back().line;
  includes.pop_back();
  force_srcloc = true;
  pp_report_srcloc();
  return true;
}

void CPP_IMPL::pp_line() {
  uint64_t number = 0;
  std::string name;
  bool ok = line_operand(&tokens[2], line_buf, number, name);
  if (!ok) {
    std::string text = expanded_operand(2, kJoinMax - 1);
    text.push_back('\0');  // room for the scanner to end a comment
    std::vector<PP_TOKEN> rescanned;
    scan_text(text.data(), rescanned);
    ok = line_operand(rescanned.data(), text.data(), number, name);
  }
  if (!ok) {
    pp_report(DIAG::cpp_bad_line());
    return;
  }
  line = static_cast<unsigned>(number - 1);  // the next read adds 1
  if (!name.empty()) {
    file = pp_filename(name);
    force_srcloc = true;
  }
}

// The line goes out whole, with macros expanded in its operands.
void CPP_IMPL::pp_pragma() {
  pass_directive = true;
  expand = true;
  stack[0].next_token = 1;
  stack[0].write_pos = 0;
  while (pp_token()->type != TK_EOL) {
  }
}
