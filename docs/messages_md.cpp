// Writes docs/messages.md, the list of every message of the catalogue with
// its number, severity and text, to standard output.  The page is generated
// so that it cannot drift from the catalogue; a test compares it with the
// committed copy.
#include <cstdio>
#include <string>

#include "DIAG/diag.h"

namespace {

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

int main() {
  std::printf(
      "# Messages of zlc9k\n"
      "\n"
      "<!-- Generated from DIAG/diag_messages.def by docs/messages_md.cpp; do not edit.\n"
      "     Regenerate with: cmake --build BUILD-DIRECTORY --target messages_doc -->\n"
      "\n"
      "Every message that zlc9k can print, by number. A message is printed as\n"
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
    std::printf("| %d%s | %s | %s |\n", info.code, discretionary ? "-D" : "",
                DIAGNOSTIC::severity_name(info.severity), cell_text(info.std_msg).c_str());
  }
  return 0;
}
