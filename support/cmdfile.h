// Command files: further command-line words read from a file.
#ifndef ZLC_SUPPORT_CMDFILE_H
#define ZLC_SUPPORT_CMDFILE_H

#include <cstdio>
#include <optional>
#include <string>

// The open command file; at most one is read at a time.
extern FILE* cmd_file_stream;

// Opens a command file in place of the current one.  A failure is fatal, and
// so is a file that the chain of command files leading here already read.
void open_cmd_file(const char* name);

// The next word of a command file, or nothing at its end.  An unterminated
// comment or quote ends the run with status 255.
std::optional<std::string> fnextopt(FILE* stream);

#endif
