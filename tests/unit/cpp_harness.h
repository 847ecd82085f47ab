// Runs the preprocessor over sources written to a scratch directory, with a
// client that builds the text the parser sees ("#line" lines included) and
// keeps every message as it would be printed.
#ifndef ZLC_TESTS_UNIT_CPP_HARNESS_H
#define ZLC_TESTS_UNIT_CPP_HARNESS_H

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "CPP/cpp.h"

struct PP_RESULT {
  std::string text;                   // what the parser would read
  std::vector<std::string> messages;  // one printed message each, without its line end
  std::vector<int> fatal_codes;       // fatal messages, which would end the run
  std::string all_messages() const {
    std::string s;
    for (const std::string& m : messages) s += m + "\n";
    return s;
  }
};

class TEST_CPP_CLIENT : public CPP_CLIENT_INTERFACE {
 public:
  TEST_CPP_CLIENT(PP_RESULT& result, std::string dir) : result(result), dir(std::move(dir)) {}

  std::string find_h_file(const char* name, bool) override {
    const std::string path = dir + "/" + name;
    return std::filesystem::exists(path) ? path : "";
  }
  void set_srcloc(const char* file, unsigned line) override {
    result.text += "#line " + std::to_string(line) + " \"" + local(file) + "\"\n";
  }
  void process_diagnostic(DIAGNOSTIC& d) override {
    if (d.info()->severity == dc_fatal) {  // report() would end the run
      result.fatal_codes.push_back(d.info()->code);
      return;
    }
    char* buffer = nullptr;
    size_t size = 0;
    FILE* memory = open_memstream(&buffer, &size);
    DIAGNOSTIC::fp_m = memory;
    DIAGNOSTIC::error_count_m = 0;
    d.report();
    std::fclose(memory);
    DIAGNOSTIC::fp_m = nullptr;
    std::string text = local(std::string(buffer, size));
    std::free(buffer);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    result.messages.push_back(text);
  }

 private:
  std::string local(std::string s) const {  // file names without the scratch directory
    for (size_t p; (p = s.find(dir + "/")) != std::string::npos;) s.erase(p, dir.size() + 1);
    return s;
  }
  PP_RESULT& result;
  std::string dir;
};

// Writes `files` (name -> contents) to a scratch directory, preprocesses
// `main` (named "t.k") and gathers all output pieces.
inline PP_RESULT run_cpp(const std::string& main, const std::map<std::string, std::string>& files = {},
                         const std::vector<std::pair<const char*, const char*>>& predefined = {}) {
  char pattern[] = "/tmp/cpp_test_XXXXXX";
  const std::string dir = mkdtemp(pattern);
  for (const auto& [name, contents] : files) {
    std::filesystem::create_directories(std::filesystem::path(dir + "/" + name).parent_path());
    std::ofstream(dir + "/" + name, std::ios::binary) << contents;
  }
  std::ofstream(dir + "/t.k", std::ios::binary) << main;
  PP_RESULT result;
  TEST_CPP_CLIENT client(result, dir);
  FILE* fp = std::fopen((dir + "/t.k").c_str(), "r");
  CPP* cpp = new_CPP("t.k", fp, &client);
  for (const auto& [name, value] : predefined) cpp->predefine(name, value);
  while (const char* piece = cpp->fgets()) {
    if (*piece == '\0') result.messages.push_back("EMPTY PIECE");
    result.text += piece;
  }
  delete cpp;
  std::fclose(fp);
  std::filesystem::remove_all(dir);
  return result;
}

// The text without its "#line" lines.
inline std::string without_line_directives(const std::string& text) {
  std::string out;
  for (size_t pos = 0; pos < text.size();) {
    size_t end = text.find('\n', pos);
    end = end == std::string::npos ? text.size() : end + 1;
    if (text.compare(pos, 6, "#line ") != 0) out.append(text, pos, end - pos);
    pos = end;
  }
  return out;
}

#endif
