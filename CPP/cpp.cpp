// The preprocessor object: construction, the fgets loop and the output with
// its line keeping.
#include <algorithm>
#include <cstring>
#include <ctime>

#include "CPP/cpp_impl.h"

namespace {

CPP_CLIENT_INTERFACE default_cpp_client_interface;

std::string quoted(std::string text) {
  text.insert(text.begin(), '"');
  text.push_back('"');
  return text;
}

}  // namespace

std::string CPP_CLIENT_INTERFACE::find_h_file(const char* name, bool) { return name; }

void CPP_CLIENT_INTERFACE::set_srcloc(const char*, unsigned) {}

void CPP_CLIENT_INTERFACE::process_diagnostic(DIAGNOSTIC& d) { d.report(); }

const char* pp_filename(const std::string& name) {
  static std::set<std::string> names;  // never freed: names are kept as plain pointers
  return names.insert(name).first->c_str();
}

CPP::CPP(const char* file, CPP_CLIENT_INTERFACE* client)
    : client(client ? client : &default_cpp_client_interface), file(pp_filename(file)) {}

CPP::~CPP() = default;

void CPP::cpp_error(DIAGNOSTIC& d) {
  const DIAG_SRCINFO_DATA where(file, line, 0, false);
  d.set_src(&where);
  client->process_diagnostic(d);
}

CPP* new_CPP(const char* file, FILE* fp, CPP_CLIENT_INTERFACE* client) {
  if (!file || !fp) return nullptr;
  return new CPP_IMPL(file, fp, client);
}

CPP_IMPL::CPP_IMPL(const char* file, FILE* fp, CPP_CLIENT_INTERFACE* client)
    : CPP(file, client),
      zone(2000, __FILE__, __LINE__),
      fp(fp),
      tokens(new PP_TOKEN[kMaxLineTokens + 1]),
      stack(kMaxFrames) {
  line_buf = static_cast<char*>(zone.alloc(kLineMax));
  comment_buf = static_cast<char*>(zone.alloc(kLineMax));
  stack[0].tokens = tokens.get();
  stack[0].text = line_buf;

  // "Www Mmm dd hh:mm:ss yyyy\n"
  const std::time_t now = std::time(nullptr);
  const std::string stamp = std::asctime(std::localtime(&now));
  pp_create_def("__DATE__", quoted(stamp.substr(4, 7) + stamp.substr(20, 4)), true);
  pp_create_def("__TIME__", quoted(stamp.substr(11, 8)), true);
  file_macro = pp_create_def("__FILE__", "\"\"", true);
  line_macro = pp_create_def("__LINE__", "0", true);
}

CPP_IMPL::~CPP_IMPL() {
  if (!includes.empty()) {
    std::fclose(fp);  // the stream of the main file belongs to the caller
    for (size_t i = 1; i < includes.size(); ++i) std::fclose(includes[i].fp);
  }
  for (const auto& [name, newest] : macros)
    for (MACDEF* def = newest; def; def = def->next) std::free(def->body);
}

void CPP_IMPL::start_line() {
  top = 0;
  token_count = 0;
  cursor = 0;
  stack[0].next_token = 0;
  stack[0].write_pos = 0;
}

const char* CPP_IMPL::fgets() {
  out.clear();
  if (at_end) return nullptr;
  for (;;) {
    start_line();
    if (!lx_fill(line_buf, line_buf)) {
      if (pp_eof()) continue;
      at_end = true;
      return nullptr;
    }
    if (const int id = pp_isdir(0); id != PP_NONE) {
      pp_directive(id);
    } else {
      if (token_count == 0) lx_getc();
      if (tokens[0].type == TK_EOL) continue;  // a line without tokens gives no output
      while (pp_token()->type != TK_EOL) {
      }
    }
    if (!out.empty()) return out.c_str();
  }
}

void CPP_IMPL::pp_write(const char* text, size_t length) {
  if (length == 0 || (in_directive && !pass_directive)) return;
  if (out.empty()) pp_report_srcloc();
  out.append(text, length);
  out_line += static_cast<unsigned>(std::count(text, text + length, '\n'));
}

void CPP_IMPL::write_pending(PP_FRAME& frame, uint32_t upto) {
  if (upto <= frame.write_pos) return;
  pp_write(frame.text + frame.write_pos, upto - frame.write_pos);
  frame.write_pos = upto;
}

// Makes the output's line agree with the input's before a piece goes out:
// a small gap becomes empty lines, anything else a new position.
void CPP_IMPL::pp_report_srcloc() {
  if (force_srcloc) {
    client->set_srcloc(file, line);
  } else if (out_line != line) {
    const unsigned gap = line - out_line;
    if (line > out_line && gap <= 2)
      out.append(gap, '\n');
    else
      client->set_srcloc(file, line);
  }
  force_srcloc = false;
  out_line = line;
}
