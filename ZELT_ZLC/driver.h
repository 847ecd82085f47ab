// The road of one run: the program-wide objects of the driver, the input
// file, and the parser object that pulls the source through the preprocessor.
#ifndef ZLC_ZELT_ZLC_DRIVER_H
#define ZLC_ZELT_ZLC_DRIVER_H

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "CPP/cpp.h"

class option_obj;

extern option_obj* global_opts;
extern std::string src_file_name;
extern std::string out_file_name;
class INPUT_FILE;
extern INPUT_FILE* srcfile;          // the one input file
extern std::fstream outfile;        // the generated source
extern std::ofstream header_file;   // the generated header, with --output_header
extern int32_t zelt_simd_width;     // 8 or 16 lanes
extern std::map<std::string, std::string> predefined_symbols;  // --define, --undefine
extern std::vector<std::string> user_include_paths;            // --include_path, in order

// Option actions, run while the command line is walked.
void add_predef_sym(const std::string& arg);  // NAME, NAME=value or NAME:value
void rem_predef_sym(const std::string& name); // defines NAME as 0
void add_user_path(const std::string& path);

// Looks for an included file; returns the path found, or the empty string.
std::string find_include_file(const std::string& name, const std::string& current_file,
                              bool angled);

class INPUT_FILE {
 public:
  explicit INPUT_FILE(const char* name) : name(name) {}
  virtual ~INPUT_FILE();
  bool open();

  const char* name;
  FILE* fp = nullptr;
};

class VC_PARSER {
 public:
  explicit VC_PARSER(INPUT_FILE* input);
  virtual ~VC_PARSER();
  virtual void parse();
  virtual void define_ppsym(const char* name, const char* value);
  virtual void undefine_ppsym(const char* name);

  // Records the file and line of the text that follows as a "#line" line.
  void set_srcloc(const char* file, unsigned line);
  void cpp_error(DIAGNOSTIC& d) { d.report(); }
  const std::string& preprocessed_text() const { return text; }

  INPUT_FILE* input;
  const char* cur_file = "";
  uint32_t cur_line = 0;

 private:
  std::string text;  // the preprocessed program
  CPP_CLIENT_INTERFACE* client = nullptr;
  CPP* cpp = nullptr;
};

VC_PARSER* new_VC_PARSER(INPUT_FILE* input);

class ZELT_CPP_CLIENT : public CPP_CLIENT_INTERFACE {
 public:
  explicit ZELT_CPP_CLIENT(VC_PARSER* parser) : parser(parser) {}
  std::string find_h_file(const char* name, bool angled) override;
  void set_srcloc(const char* file, unsigned line) override;
  void process_diagnostic(DIAGNOSTIC& d) override;

 private:
  VC_PARSER* parser;
};

#endif
