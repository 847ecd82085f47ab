// The preprocessor of the kernel source: reads a file line by line, expands
// macros, obeys directives and hands the text out in pieces that end at a
// line end.  File and line changes reach the client through set_srcloc.
#ifndef ZLC_CPP_CPP_H
#define ZLC_CPP_CPP_H

#include <cstdio>
#include <string>

#include "DIAG/diag.h"

// The client's view: where included files are, where the text that follows
// comes from, and what to do with a message.
class CPP_CLIENT_INTERFACE {
 public:
  virtual ~CPP_CLIENT_INTERFACE() = default;
  // The path of an included file; the empty string when it is not found.
  virtual std::string find_h_file(const char* name, bool angled);
  virtual void set_srcloc(const char* file, unsigned line);
  virtual void process_diagnostic(DIAGNOSTIC& d);
};

class CPP {
 public:
  virtual ~CPP();
  // The next piece of output (ends at a line end, never empty), owned by the
  // object until the next call; null at the end of the input.
  virtual const char* fgets() = 0;
  // Defines `name` as an object-like macro ("1" for a null value), hiding
  // any definition it already has.
  virtual void predefine(const char* name, const char* value) = 0;
  virtual void undefine(const char* name) = 0;
  // Gives the message the current file and line (column 0) and passes it on
  // to the client.
  void cpp_error(DIAGNOSTIC& d);

 protected:
  CPP(const char* file, CPP_CLIENT_INTERFACE* client);

  CPP_CLIENT_INTERFACE* client;
  const char* file;   // interned name of the file being read
  unsigned line = 0;  // the current input line of that file
};

// A preprocessor for the open stream `fp` of `file`; null when either is
// null.  A null client gets the default behaviour.
CPP* new_CPP(const char* file, FILE* fp, CPP_CLIENT_INTERFACE* client);

// Interns a file name for the life of the program.
const char* pp_filename(const std::string& name);

#endif
