// Tool identity strings and the support message.
#include "support/identity.h"

const char* tool_name() { return "ZELT-C Compiler"; }
const char* isa_name_full() { return "Q9k"; }
const char* isa_name_prefix() { return "Q9K"; }
int version_major() { return 2; }
int version_minor() { return 0; }
int version_patch() { return 1; }
bool version_has_fourth_digit() { return false; }
int version_fourth() { return -1; }
const char* version_qual() { return ".STS"; }
const char* version_datecode() { return "21305"; }

namespace {

// A fixed identifier of this build line; the same on every build so that
// the tool's output stays reproducible.
const char* buildid() { return "1VL21305ZLC9K"; }

std::string dotted_version() {
  std::string v = std::to_string(version_major()) + "." + std::to_string(version_minor()) + "." +
                  std::to_string(version_patch());
  if (version_has_fourth_digit()) v += "." + std::to_string(version_fourth());
  return v;
}

}  // namespace

const std::string& version_number() {
  static const std::string s = dotted_version();
  return s;
}
const std::string& version_short() {
  static const std::string s = "v" + version_number();
  return s;
}
const std::string& version_full() {
  static const std::string s = version_short() + version_qual();
  return s;
}
const std::string& isa_and_tool_name() {
  static const std::string s = std::string(isa_name_full()) + " " + tool_name();
  return s;
}
const std::string& isa_tool_and_version_short() {
  static const std::string s = isa_and_tool_name() + " Unix " + version_short();
  return s;
}
const std::string& isa_tool_and_version_full() {
  static const std::string s = isa_and_tool_name() + " Unix " + version_full();
  return s;
}
const std::string& os_and_version_short() {
  static const std::string s = "Unix " + version_short();
  return s;
}
const std::string& os_and_version_full() {
  static const std::string s = "Unix " + version_full();
  return s;
}

void print_tool_and_version(FILE* out) {
  std::fprintf(out, "%-*.*s%s\n", 40, 40, isa_and_tool_name().c_str(), version_full().c_str());
}

void print_toolversion(FILE* out) {
  print_tool_and_version(out);
  std::fprintf(out, "Build Number %s\n", buildid());
}

void print_support_message() {
  std::fprintf(stderr,
               "This is most likely caused by a defect in the KV %s.\n"
               "KV customer support may be able to suggest a workaround.\n"
               "Upgrading to the newest version of the compiler may fix the problem.\n"
               "\n"
               "Please report the problem on the KV support forum: choose \"Tools\" in the\n"
               "\"Support\" menu and follow the link \"Submit an issue\".\n"
               "\n"
               "We need to see this ENTIRE error message and a complete, reproducible\n"
               "test case including ALL of the command-line options.\n\n",
               tool_name());
  std::fputs("\n", stderr);
}
