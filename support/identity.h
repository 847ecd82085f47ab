// The tool's identity strings and its reaction to its own faults.
#ifndef ZLC_SUPPORT_IDENTITY_H
#define ZLC_SUPPORT_IDENTITY_H

#include <cstdio>
#include <string>

const char* tool_name();
const char* isa_name_full();
const char* isa_name_prefix();
int version_major();
int version_minor();
int version_patch();
bool version_has_fourth_digit();
int version_fourth();
const char* version_qual();
const char* version_datecode();

const std::string& version_number();
const std::string& version_short();
const std::string& version_full();
const std::string& isa_and_tool_name();
const std::string& isa_tool_and_version_short();
const std::string& isa_tool_and_version_full();
const std::string& os_and_version_short();
const std::string& os_and_version_full();

void print_tool_and_version(FILE* out);
void print_toolversion(FILE* out);  // the answer to --toolversion
void print_support_message();

// Prints "INTERNAL ERROR" with the program name and `text`, the support
// message, and exits with status 2.
[[noreturn]] void internal_error(const std::string& text);

// Installs the handler of fatal signals; `program` names the tool in its
// texts and `flush_outputs`, when given, writes out the output files before
// the handler ends the run.  The handler runs on a stack of its own, so that
// a stack overflow is reported like any other fault.
void install_fault_handler(const char* program, void (*flush_outputs)() = nullptr);

// Gives the calling thread its own stack for the fault handler.
void use_fault_stack();

#endif
