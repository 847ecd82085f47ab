// The objects of one run, the input file, and the parser object that pulls
// the source through the preprocessor.
#include "ZELT_ZLC/driver.h"

#include <cerrno>
#include <cstring>

#include "DIAG/diag.h"
#include "ZELT_ZLC/antlr_if.h"
#include "support/fname.h"

option_obj* global_opts = nullptr;
std::string src_file_name;
std::string out_file_name;
INPUT_FILE* srcfile = nullptr;
std::fstream outfile;
std::ofstream header_file;
int32_t zelt_simd_width = 8;
std::map<std::string, std::string> predefined_symbols;
std::vector<std::string> user_include_paths;

void add_predef_sym(const std::string& arg) {
  size_t sep = arg.find('=');
  if (sep == std::string::npos) sep = arg.find(':');
  if (sep == std::string::npos)
    predefined_symbols[arg] = "1";
  else
    predefined_symbols[arg.substr(0, sep)] = arg.substr(sep + 1);
}

void rem_predef_sym(const std::string& name) { predefined_symbols[name] = "0"; }

void add_user_path(const std::string& path) { user_include_paths.push_back(path); }

std::string find_include_file(const std::string& name, const std::string& current_file,
                              bool angled) {
  if (name.empty()) return "";
  if (name.front() == '/') return fn_exists(name) ? name : "";
  const bool dotted = fn_starts_with_dot_dot(name);
  if (dotted || !angled) {
    std::string dir;
    fn_split(current_file, &dir, nullptr, nullptr);
    const std::string local = fn_build(dir, name);
    if (fn_exists(local)) return local;
  }
  if (dotted) return "";  // never looked for along the search path
  for (const std::string& path : user_include_paths) {
    const std::string candidate = fn_build(path, name);
    if (fn_exists(candidate)) return candidate;
  }
  return "";
}

INPUT_FILE::~INPUT_FILE() = default;

bool INPUT_FILE::open() {
  if (fp) return true;
  fp = std::fopen(name, "rb");
  if (!fp) {
    DIAG::gen_bad_file_open(name, std::strerror(errno)).report();
    return false;
  }
  return true;
}

VC_PARSER* new_VC_PARSER(INPUT_FILE* input) { return new VC_PARSER(input); }

VC_PARSER::VC_PARSER(INPUT_FILE* input) : input(input) {
  const char* name = input->name ? input->name : "";
  set_srcloc(name, 0);
  client = new ZELT_CPP_CLIENT(this);
  cpp = new_CPP(name, input->fp, client);
  if (!cpp) return;
  cpp->predefine("ZELT_HOST_EMULATION", "0");
  for (const auto& [symbol, value] : predefined_symbols)
    cpp->predefine(symbol.c_str(), value.c_str());
}

VC_PARSER::~VC_PARSER() {
  delete cpp;
  delete client;
}

void VC_PARSER::define_ppsym(const char* name, const char* value) {
  if (cpp) cpp->predefine(name, value);
}

void VC_PARSER::undefine_ppsym(const char* name) {
  if (cpp) cpp->undefine(name);
}

void VC_PARSER::set_srcloc(const char* file, unsigned line) {
  cur_file = file;
  cur_line = line;
  text += "#line " + std::to_string(line) + " \"" + file + "\"\n";
}

void VC_PARSER::parse() {
  if (!cpp) return;
  while (const char* piece = cpp->fgets()) text += piece;
  ANTLR_INTERFACE parser(text, input->name ? input->name : "");
  parser.invoke();
}

std::string ZELT_CPP_CLIENT::find_h_file(const char* name, bool angled) {
  return find_include_file(name, parser->cur_file, angled);
}

void ZELT_CPP_CLIENT::set_srcloc(const char* file, unsigned line) {
  parser->set_srcloc(file, line);
}

void ZELT_CPP_CLIENT::process_diagnostic(DIAGNOSTIC& d) { d.report(); }
