// The road of one run of zlc9k: from the command line to the closing of the
// output files.
#include "ZELT_ZLC/run.h"

#include <cxxabi.h>
#include <sys/stat.h>

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <optional>
#include <typeinfo>

#include "DIAG/diag.h"
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/text_out.h"
#include "options/optobj.h"
#include "support/cmdfile.h"
#include "support/fname.h"
#include "support/identity.h"
#include "support/large_stack.h"

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

// Closes an output file; a write that failed on the way is an error, told
// with the system's reason.  A failed write is retried when the stream
// closes, so errno then holds its reason.
template <class STREAM>
void close_output(STREAM& stream, const std::string& name) {
  errno = 0;
  stream.close();
  if (stream.fail()) DIAG::gen_bad_file_write(name, std::strerror(errno ? errno : EIO)).report();
}

// Removes an output of a failed run.  Only a regular file is removed: a
// device or a pipe named as output, or a link to one, stays as it was.
void remove_output(const std::string& name) {
  struct stat st;
  if (stat(name.c_str(), &st) == 0 && S_ISREG(st.st_mode)) std::remove(name.c_str());
}

void flush_outputs() {
  flush_text_outputs();
  outfile.flush();
  header_file.flush();
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

  flush_text_outputs();
  close_output(outfile, out_file_name);
  if (header_file.is_open()) {
    header_file << "#endif\n\n";
    close_output(header_file, header_name);
  }
  if (DIAGNOSTIC::error_count_m > 0) {
    remove_output(out_file_name);
    if (want_header) remove_output(header_name);
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

int guarded_translate() {
  try {
    return translate();
  } catch (const std::exception& e) {
    internal_error("Unhandled exception of type " + demangled(typeid(e).name()) + ": " + e.what());
  } catch (...) {
    internal_error("Unhandled exception not derived from std::exception");
  }
}

}  // namespace

int run_zlc9k(int argc, char** argv) {
  install_fault_handler(argc > 0 ? argv[0] : nullptr, flush_outputs);
  saved_argc = argc;
  saved_argv = argv;
  return run_on_large_stack(TRANSLATION_STACK_BYTES, guarded_translate);
}
