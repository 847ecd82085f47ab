// Writes docs/messages.md, the list of every message of the catalogue with
// its number, severity and text, to standard output, and marks the messages
// that no source of the tool raises.  The page is generated so that it cannot
// drift from the catalogue or the sources; a test compares it with the
// committed copy.
// Usage: messages_md source-directory
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "DIAG/diag.h"

namespace {

namespace fs = std::filesystem;

// The class name of each catalogue record, by number.
const std::map<int, std::string> class_names = {
#define DIAG_MSG(NAME, CODE, ...) {CODE, #NAME},
#include "DIAG/diag_messages.def"
#undef DIAG_MSG
};

// Directories whose code is not the tool's: tests, benchmarks, this
// generator, build trees and hidden directories.
bool outside_the_tool(const std::string& dir) {
  return dir.empty() || dir[0] == '.' || dir == "tests" || dir == "bench" || dir == "docs" ||
         dir.rfind("build", 0) == 0;
}

bool is_name_char(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// The message classes that the tool's sources name as DIAG::class: in C++
// sources and headers and in the grammar, whose actions raise messages too.
// A class that is named nowhere is never raised.
std::set<std::string> raised_classes(const fs::path& source_dir) {
  static const std::string prefix = "DIAG::";
  static const std::set<std::string> code_extensions = {".cpp", ".h", ".g"};
  std::set<std::string> raised;
  for (auto it = fs::recursive_directory_iterator(source_dir);
       it != fs::recursive_directory_iterator(); ++it) {
    if (it->is_directory()) {
      if (outside_the_tool(it->path().filename().string())) it.disable_recursion_pending();
      continue;
    }
    if (!code_extensions.count(it->path().extension().string())) continue;
    std::ifstream in(it->path());
    std::stringstream text;
    text << in.rdbuf();
    const std::string code = text.str();
    for (size_t at = code.find(prefix); at != std::string::npos; at = code.find(prefix, at)) {
      at += prefix.size();
      size_t end = at;
      while (end < code.size() && is_name_char(code[end])) ++end;
      raised.insert(code.substr(at, end - at));
    }
  }
  return raised;
}

// A diagnostic that is never reported: it answers, for one record, whether
// the message is discretionary, by the printer's own rule.
class RECORD_PROBE final : public DIAGNOSTIC {
 public:
  explicit RECORD_PROBE(const DIAG_INFO* info) : DIAGNOSTIC(info) {}
  DIAGNOSTIC* alloc() const override { return new RECORD_PROBE(*this); }
  int report() override { return 0; }
};

struct GROUP {
  int first_code;
  const char* title;
};

// Numbers are grouped by the part of the tool that raises them.
const GROUP groups[] = {
    {6000, "General"},
    {19000, "Preprocessor"},
    {24000, "Options"},
    {26000, "Kernel language and translation"},
    {99900, "Generic"},
};

// The text as a code span in a table cell: a line feed is shown as \n and a
// vertical bar is escaped.
std::string cell_text(const char* text) {
  std::string out = "`";
  for (const char* p = text; *p; ++p) {
    if (*p == '\n')
      out += "\\n";
    else if (*p == '|')
      out += "\\|";
    else
      out += *p;
  }
  return out + "`";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s source-directory\n", argv[0]);
    return 2;
  }
  const std::set<std::string> raised = raised_classes(argv[1]);
  std::printf(
      "# Messages of zlc9k\n"
      "\n"
      "<!-- Generated from DIAG/diag_messages.def and the sources that raise the messages\n"
      "     by docs/messages_md.cpp; do not edit.\n"
      "     Regenerate with: cmake --build BUILD-DIRECTORY --target messages_doc -->\n"
      "\n"
      "Every message of the catalogue of zlc9k, by number. The catalogue also holds messages\n"
      "that zlc9k never prints, shared with other tools or kept for checks that this tool does\n"
      "not make; they are marked *not raised by this tool*. A message is printed as\n"
      "\n"
      "    \"file\", line N: severity: text\n"
      "\n"
      "and, with `--display_error_number`, as\n"
      "\n"
      "    \"file\", line N: severity #number: text\n"
      "\n"
      "where a number followed by `-D` marks a discretionary message. In the texts below `%%s`\n"
      "stands for a name or a piece of source text, `%%u`, `%%d` and `%%02x` for a number, and\n"
      "`\\n` for a line break; a message longer than 79 columns is wrapped, and its continuation\n"
      "lines are indented by 3 blanks.\n"
      "\n"
      "Warnings and the severities below them leave the exit status alone, and `--no_warnings`\n"
      "hides warnings. After an error the run goes on, so that one run shows all errors; at its\n"
      "end it removes the output files and exits with status 1. A fatal error ends the run at\n"
      "once with status 1 and leaves the outputs as far as they were written; so does the 101st\n"
      "error, with message 99900.\n"
      "\n"
      "Errors of the lexer, such as a character that starts no token, are printed in the words\n"
      "of the parser runtime, with the file, the line and the word `lexer error`, and have no\n"
      "number here; the syntax error that usually follows them is message 26001.\n");
  const int group_count = sizeof groups / sizeof groups[0];
  int group = -1;
  for (const DIAG_INFO& info : DIAGNOSTIC::table()) {
    while (group + 1 < group_count && info.code >= groups[group + 1].first_code) {
      ++group;
      std::printf("\n## %s\n\n| Number | Severity | Text |\n|---|---|---|\n", groups[group].title);
    }
    const bool discretionary = RECORD_PROBE(&info).is_discretionary();
    const bool is_raised = raised.count(class_names.at(info.code)) != 0;
    std::printf("| %d%s | %s | %s%s |\n", info.code, discretionary ? "-D" : "",
                DIAGNOSTIC::severity_name(info.severity), cell_text(info.std_msg).c_str(),
                is_raised ? "" : " *(not raised by this tool)*");
  }
  return 0;
}
