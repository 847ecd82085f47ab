// The macro table: #define with its checks, redefinition, #undef, predefined
// and standard macros.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "CPP/cpp_impl.h"
#include "support/safealloc.h"

namespace {

// Same parameters, and the tokens agree one by one in type, text, parameter
// index and in having white space behind them.
bool same_definition(const MACDEF* old, int nparams, const std::vector<PP_TOKEN>& body,
                     const char* text) {
  if (old->nparams != nparams || old->ntokens != body.size()) return false;
  for (size_t k = 0; k < body.size(); ++k) {
    const PP_TOKEN& a = old->body[k];
    const PP_TOKEN& b = body[k];
    if (a.type != b.type || a.length != b.length ||
        std::memcmp(old->text + a.offset, text + b.offset, a.length) != 0 ||
        (a.type == TK_PARAM && a.value != b.value) || pp_white_after(old->text, a) != pp_white_after(text, b))
      return false;
  }
  return true;
}

}  // namespace

MACDEF* CPP_IMPL::pp_lookup(const PP_TOKEN& token, const char* text) const {
  return pp_lookup_name(std::string_view(text + token.offset, token.length));
}

MACDEF* CPP_IMPL::pp_lookup_name(std::string_view name) const {
  auto found = macros.find(name);
  return found == macros.end() ? nullptr : found->second;
}

void CPP_IMPL::pp_set_body(MACDEF* def, std::vector<PP_TOKEN>& body, const char* text) {
  std::free(def->body);
  def->body = static_cast<PP_TOKEN*>(safemalloc(body.size() * sizeof(PP_TOKEN)));
  std::copy(body.begin(), body.end(), def->body);
  def->ntokens = static_cast<uint32_t>(body.size());
  def->text = text;
}

// #define NAME body, or NAME(params) body when "(" touches the name.
void CPP_IMPL::pp_define() {
  const PP_TOKEN& name_token = tokens[2];
  if (name_token.type != TK_IDENT) {
    pp_report(DIAG::cpp_mac_noname());
    return;
  }
  const std::string_view name(line_buf + name_token.offset, name_token.length);
  if (name == "defined") {
    pp_report(DIAG::cpp_std_redef(std::string(name)));
    return;
  }
  uint32_t i = 3;
  int nparams = -1;
  std::vector<std::string_view> params;
  if (tokens[3].type == '(' && tokens[3].offset == name_token.offset + name_token.length) {
    i = 4;
    if (tokens[i].type == ')') {
      ++i;
    } else {
      for (;;) {
        const PP_TOKEN& p = tokens[i];
        if (p.type != TK_IDENT) {
          pp_report(DIAG::cpp_bad_parm(std::string(name)));
          return;
        }
        if (params.size() == kMaxParams) {
          pp_report(DIAG::cpp_max_parm(std::string(name)));
          return;
        }
        const std::string_view param(line_buf + p.offset, p.length);
        if (std::find(params.begin(), params.end(), param) != params.end())
          pp_report(DIAG::cpp_dup_parm(std::string(param)));
        params.push_back(param);
        ++i;
        if (tokens[i].type == ',') {
          ++i;
        } else if (tokens[i].type == ')') {
          ++i;
          break;
        } else {
          pp_report(DIAG::cpp_bad_parm(std::string(name)));
          return;
        }
      }
    }
    nparams = static_cast<int>(params.size());
  }

  const uint32_t end = token_count - 1;  // the end-of-line token
  const uint32_t base = i < end ? tokens[i].offset : 0;
  const uint32_t text_end = i < end ? tokens[end - 1].offset + tokens[end - 1].length : 0;
  std::vector<PP_TOKEN> body(tokens.get() + std::min(i, end), tokens.get() + end);
  bool has_ops = false;
  for (PP_TOKEN& t : body) {
    t.offset -= base;
    if (t.type == TK_IDENT) {
      const auto p = std::find(params.begin(), params.end(),
                               std::string_view(line_buf + base + t.offset, t.length));
      if (p != params.end()) {
        t.type = TK_PARAM;
        t.value = static_cast<uint64_t>(p - params.begin());
      }
    } else if (t.type == TK_HASH || t.type == TK_CAT) {
      has_ops = true;
    }
  }
  body.push_back(PP_TOKEN{TK_END, text_end - base, 0, 0});
  if (has_ops) pp_check_ops(body.data(), static_cast<uint32_t>(body.size() - 1));
  pp_install(name, nparams, body, std::string_view(line_buf + base, text_end - base), has_ops);
}

// "#" needs a parameter behind it, "##" a token on each side.  The left
// operand of "##" and the operator change places, so that expansion meets
// the concatenation before its operands.
void CPP_IMPL::pp_check_ops(PP_TOKEN* body, uint32_t count) {
  for (uint32_t k = 0; k < count; ++k) {
    if (body[k].type == TK_HASH) {
      if (body[k + 1].type != TK_PARAM) pp_report(DIAG::cpp_need_parm());
    } else if (body[k].type == TK_CAT) {
      if (k == 0 || k + 1 == count) pp_report(DIAG::cpp_catsyntax());
      if (k > 0) {  // the mark spans the left operand and the operator
        const uint32_t cat_end = body[k].offset + body[k].length;
        body[k] = body[k - 1];
        body[k - 1].type = TK_CAT;
        body[k - 1].length = cat_end - body[k - 1].offset;
      }
    }
  }
}

void CPP_IMPL::pp_install(std::string_view name, int nparams, std::vector<PP_TOKEN>& body,
                          std::string_view text, bool has_ops) {
  char* stored = static_cast<char*>(zone.alloc(static_cast<unsigned>(text.size() + 1)));
  std::memcpy(stored, text.data(), text.size());
  if (MACDEF* old = pp_lookup_name(name)) {
    if (!same_definition(old, nparams, body, stored))
      pp_report(DIAG::cpp_redef(std::string(name)));
    else if (old->standard)
      pp_report(DIAG::cpp_std_redef(std::string(name)));
    pp_set_body(old, body, stored);
    old->nparams = nparams;
    old->standard = false;
    old->has_ops = has_ops;
    return;
  }
  MACDEF* def = pp_create_def(name, "", false);
  pp_set_body(def, body, stored);
  def->nparams = nparams;
  def->has_ops = has_ops;
}

// An object-like macro whose body is scanned from `text`; linked into the
// table in front of any other of the same name, unless it is anonymous.
MACDEF* CPP_IMPL::pp_create_def(std::string_view name, std::string_view text, bool standard) {
  MACDEF* def = new (zone.alloc(sizeof(MACDEF))) MACDEF{};
  def->name = static_cast<char*>(zone.alloc(static_cast<unsigned>(name.size() + 1)));
  std::memcpy(def->name, name.data(), name.size());
  def->name_len = static_cast<uint32_t>(name.size());
  def->nparams = -1;
  def->standard = standard;
  char* stored = static_cast<char*>(zone.alloc(static_cast<unsigned>(text.size() + 2)));
  std::memcpy(stored, text.data(), text.size());
  std::vector<PP_TOKEN> body;
  scan_text(stored, body);
  pp_set_body(def, body, stored);
  if (!name.empty()) {
    MACDEF*& newest = macros[std::string_view(def->name, def->name_len)];
    def->next = newest;
    newest = def;
  }
  return def;
}

void CPP_IMPL::pp_remove_def(std::string_view name) {
  if (name == "defined") {
    pp_report(DIAG::cpp_std_undef(std::string(name)));
    return;
  }
  auto found = macros.find(name);
  if (found == macros.end()) return;
  MACDEF* def = found->second;
  if (def->standard) pp_report(DIAG::cpp_std_undef(std::string(name)));
  if (def->next)
    found->second = def->next;
  else
    macros.erase(found);
  std::free(def->body);
  def->body = nullptr;
  if (def == line_macro) line_macro = nullptr;
  if (def == file_macro) file_macro = nullptr;
}

void CPP_IMPL::pp_undef() {
  const PP_TOKEN& t = tokens[2];
  if (t.type != TK_IDENT) {
    pp_report(DIAG::cpp_bad_undef());
    return;
  }
  pp_remove_def(std::string_view(line_buf + t.offset, t.length));
}

void CPP_IMPL::predefine(const char* name, const char* value) {
  pp_create_def(name, value ? value : "1", false);
}

void CPP_IMPL::undefine(const char* name) { pp_remove_def(name); }

// __LINE__ and __FILE__ say where the expansion takes place.
void CPP_IMPL::refresh_standard(MACDEF* def) {
  std::string& text = def == line_macro ? line_text : file_text;
  if (def == line_macro) {
    text = std::to_string(line);
  } else {
    text.assign(1, '"');
    for (const char* c = file; *c; ++c) text += *c == '\\' ? "\\\\" : std::string(1, *c);
    text += "\"";
  }
  text.push_back('\0');  // room for the scanner
  std::vector<PP_TOKEN> body;
  scan_text(text.data(), body);
  pp_set_body(def, body, text.c_str());
}
