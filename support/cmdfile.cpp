// Reading words from command files: comments, quotes and backslashes.
#include "support/cmdfile.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "DIAG/diag.h"

FILE* cmd_file_stream = nullptr;

namespace {

// The files of the chain of command files being read: the one that the
// command line named and each that named the next.
std::vector<std::pair<dev_t, ino_t>> cmd_file_chain;

}  // namespace

void open_cmd_file(const char* name) {
  const bool named_by_cmd_file = cmd_file_stream != nullptr;
  if (cmd_file_stream) std::fclose(cmd_file_stream);
  cmd_file_stream = std::fopen(name, "r");
  if (!cmd_file_stream) DIAG::gen_bad_file_open(name, std::strerror(errno)).report();
  if (!named_by_cmd_file) cmd_file_chain.clear();
  struct stat st;
  if (fstat(fileno(cmd_file_stream), &st) != 0) return;
  const std::pair<dev_t, ino_t> id(st.st_dev, st.st_ino);
  if (std::find(cmd_file_chain.begin(), cmd_file_chain.end(), id) != cmd_file_chain.end())
    DIAG::gen_cmd_file_cycle(name).report();
  cmd_file_chain.push_back(id);
}

namespace {

[[noreturn]] void unterminated_quote(const std::string& word, size_t quote_at) {
  std::fputs(">> Unterminated quote in command file; aborting\n", stderr);
  std::fputs("   Quote starts at ", stderr);
  if (word.empty() || word.front() != '"') std::fputc('"', stderr);
  for (char c : word.substr(quote_at, 30)) {
    if (c == '\n')
      std::fputs("\\n", stderr);
    else if (c == '\t')
      std::fputs("\\t", stderr);
    else
      std::fputc(c, stderr);
  }
  std::fputc('\n', stderr);
  std::exit(255);
}

void skip_line(FILE* in) {
  int c;
  while ((c = std::fgetc(in)) != EOF && c != '\n') {
  }
}

void skip_block_comment(FILE* in) {
  int prev = 0, c;
  while ((c = std::fgetc(in)) != EOF) {
    if (prev == '*' && c == '/') return;
    prev = c;
  }
  std::fputs(">> Unterminated comment in command file;", stderr);
  std::fputs(" aborting!\n", stderr);
  std::exit(255);
}

// A backslash stands for the next character when that is a quote or a
// backslash; otherwise it stays and the next character is read as usual.
void add_backslash(FILE* in, std::string& word) {
  const int next = std::fgetc(in);
  if (next == '"' || next == '\\') {
    word += static_cast<char>(next);
    return;
  }
  if (next != EOF) std::ungetc(next, in);
  word += '\\';
}

void read_quoted(FILE* in, std::string& word) {
  const size_t quote_at = word.size();
  for (;;) {
    const int c = std::fgetc(in);
    if (c == EOF) unterminated_quote(word, quote_at);
    if (c == '"') return;
    if (c == '\\')
      add_backslash(in, word);
    else
      word += static_cast<char>(c);
  }
}

}  // namespace

std::optional<std::string> fnextopt(FILE* in) {
  if (!in) return std::nullopt;
  std::string word;
  for (;;) {
    const int c = std::fgetc(in);
    if (c == EOF) break;
    if (std::isspace(c)) {
      if (!word.empty()) return word;
      continue;  // leading blanks, or a word that vanished ("")
    }
    if (c == ';' || (c == '#' && word.find('-') == std::string::npos)) {
      skip_line(in);
    } else if (c == '/') {
      const int next = std::fgetc(in);
      if (next == '*') {
        skip_block_comment(in);
      } else {
        if (next != EOF) std::ungetc(next, in);
        word += '/';
      }
    } else if (c == '\\') {
      add_backslash(in, word);
    } else if (c == '"') {
      read_quoted(in, word);
    } else {
      word += static_cast<char>(c);
    }
  }
  if (word.empty()) return std::nullopt;
  return word;
}
