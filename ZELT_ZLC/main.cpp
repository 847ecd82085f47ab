// zlc9k: translates one file of ZELT kernels into C++ for the Q9k processor.
#include <cxxabi.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>
#include <typeinfo>

#include "DIAG/diag.h"
#include "ZELT_ZLC/driver.h"
#include "options/optobj.h"
#include "support/cmdfile.h"
#include "support/fname.h"
#include "support/identity.h"

namespace {

int saved_argc = 0;
char** saved_argv = nullptr;
int arg_index = 1;
std::string cmd_file_word;  // the word last read from a command file
VC_PARSER* parser = nullptr;  // lives to the end of the run

// The next word of the command line, reading an open command file first;
// null at the end.
const char* next_word() {
  while (cmd_file_stream) {
    if (std::optional<std::string> word = fnextopt(cmd_file_stream)) {
      cmd_file_word = std::move(*word);
      return cmd_file_word.c_str();
    }
    std::fclose(cmd_file_stream);
    cmd_file_stream = nullptr;
  }
  if (arg_index >= saved_argc || !saved_argv[arg_index]) return nullptr;
  return saved_argv[arg_index++];
}

std::string guard_word(const std::string& header_name) {
  std::string word = fn_basename(header_name);
  for (char& c : word)
    if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
  return word;
}

void write_preamble(std::ostream& out) {
  const int n = zelt_simd_width;
  out << "#pragma diag_suppress 179,552\n"
      << "#define ZELT_9K_TRANSLATION 1\n"
      << "\n"
      << "#ifdef ZELT_SIMD_WIDTH\n"
      << "#  if ZELT_SIMD_WIDTH != " << n << "\n"
      << "#    error \"Expected ZELT_SIMD_WIDTH to be " << n << "!\"\n"
      << "#  endif\n"
      << "#  undef ZELT_SIMD_WIDTH\n"
      << "#endif\n"
      << "#define ZELT_SIMD_WIDTH " << n << "\n"
      << "\n"
      << "#include <" << fn_build("zelt", "zelt", "h") << ">\n"
      << "#include <" << fn_build("zelt", "zelt_vm", "h") << ">\n"
      << "\n"
      << "using namespace ZELT_VM;\n"
      << "\n";
}

int translate() {
  global_opts = new option_obj(true);
  if (saved_argv[0]) option_obj::executable_name = saved_argv[0];
  option_obj::next_arg = next_word;

  int files = 0;
  while (const char* word = next_word()) {
    if (word[0] == '-') {
      global_opts->process_option(word + 1, nullptr);
    } else if (files == 0) {
      src_file_name = word;
      files = 1;
    } else if (files == 1) {
      out_file_name = word;
      files = 2;
    } else {
      ++files;
    }
  }

  if (files == 0) global_opts->display_option_help();
  if (files == 1) out_file_name = fn_addext(fn_delext(src_file_name), ".c", false);
  if (files > 2) {
    DIAG::zlc_file_error().report();
    return 1;
  }

  srcfile = new INPUT_FILE(src_file_name.c_str());
  if (!srcfile->open()) return 1;
  if (global_opts->getnumarg(option_obj::OO_ZELT_SIMD, 0) == 3) zelt_simd_width = 16;

  outfile.open(out_file_name, std::ios::in | std::ios::out | std::ios::trunc);
  if (!outfile) DIAG::gen_bad_file_open_ne(out_file_name).report();
  const bool want_header = global_opts->state[option_obj::OO_OUTPUT_HEADER] != 0;
  const std::string header_name =
      want_header ? global_opts->getstrarg(option_obj::OO_OUTPUT_HEADER, 0) : "";
  if (want_header) {
    header_file.open(header_name, std::ios::out | std::ios::trunc);
    if (!header_file) DIAG::gen_bad_file_open_ne(header_name).report();
    const std::string guard = guard_word(header_name);
    header_file << "#ifndef _KV_" << guard << "_\n#define _KV_" << guard << "_\n\n";
  }
  write_preamble(outfile);

  parser = new_VC_PARSER(srcfile);
  parser->parse();

  outfile.close();
  if (header_file.is_open()) {
    header_file << "#endif\n\n";
    header_file.close();
  }
  if (DIAGNOSTIC::error_count_m > 0) {
    std::remove(out_file_name.c_str());
    if (want_header) std::remove(header_name.c_str());
  }
  return DIAGNOSTIC::error_count_m > 0 ? 1 : 0;
}

std::string demangled(const char* mangled) {
  if (*mangled == '*') ++mangled;
  int status = 0;
  std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(mangled, nullptr, nullptr, &status), &std::free);
  return status == 0 && name ? name.get() : mangled;
}

}  // namespace

int main(int argc, char** argv) {
  install_fault_handler(argc > 0 ? argv[0] : nullptr);
  saved_argc = argc;
  saved_argv = argv;
  try {
    return translate();
  } catch (const std::exception& e) {
    internal_error("Unhandled exception of type " + demangled(typeid(e).name()) + ": " + e.what());
  } catch (...) {
    internal_error("Unhandled exception not derived from std::exception");
  }
}
