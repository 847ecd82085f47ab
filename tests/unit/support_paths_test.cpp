// Path operations and the command-file reader.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "support/cmdfile.h"
#include "support/fname.h"

namespace {

TEST(Paths, OutputNameDerivation) {
  auto derive = [](const std::string& src) { return fn_addext(fn_delext(src), ".c", false); };
  EXPECT_EQ(derive("a.k"), "a.c");
  EXPECT_EQ(derive("a"), "a.c");
  EXPECT_EQ(derive("dir.d/a"), "dir.d/a.c");
  EXPECT_EQ(derive("a.b.k"), "a.b");  // the inner extension survives
  EXPECT_EQ(fn_addext("x.k", "c", true), "x.c");
}

TEST(Paths, SplitBuildAndBasename) {
  std::string dir, base, ext;
  fn_split("inc/sub.d/file.h", &dir, &base, &ext);
  EXPECT_EQ(dir, "inc/sub.d/");
  EXPECT_EQ(base, "file");
  EXPECT_EQ(ext, "h");
  fn_split("", &dir, &base, &ext);
  EXPECT_EQ(dir + base + ext, "");
  fn_split(std::string(600, 'p') + "/f", &dir, nullptr, nullptr);
  EXPECT_EQ(dir.size(), 499u);
  EXPECT_EQ(fn_build("zelt", "zelt_vm", "h"), "zelt/zelt_vm.h");
  EXPECT_EQ(fn_build("", "a.h"), "a.h");
  EXPECT_EQ(fn_build("d/", "a", ".h"), "d/a.h");
  EXPECT_EQ(fn_basename("x/y/out-1.h"), "out-1.h");
  EXPECT_TRUE(fn_starts_with_dot_dot("../a.h"));
  EXPECT_TRUE(fn_starts_with_dot_dot("./a.h"));
  EXPECT_FALSE(fn_starts_with_dot_dot(".hidden"));
}

// Reads every word of a command file with the given text.
std::vector<std::string> words_of(const std::string& text) {
  FILE* f = std::tmpfile();
  std::fputs(text.c_str(), f);
  std::rewind(f);
  std::vector<std::string> words;
  while (auto w = fnextopt(f)) words.push_back(*w);
  std::fclose(f);
  return words;
}

using Words = std::vector<std::string>;

TEST(CommandFile, CommentsJoinOrEndWords) {
  EXPECT_EQ(words_of(""), Words{});
  EXPECT_EQ(words_of("  \n\t "), Words{});
  EXPECT_EQ(words_of("ab;comment\ncd ef"), (Words{"abcd", "ef"}));
  EXPECT_EQ(words_of("ab/* x y */cd"), Words{"abcd"});
  EXPECT_EQ(words_of("--define=A#1 plain#gone\nnext"), (Words{"--define=A#1", "plainnext"}));
  EXPECT_EQ(words_of("# whole line\n-q"), Words{"-q"});
  EXPECT_EQ(words_of("a/b"), Words{"a/b"});
}

TEST(CommandFile, QuotesAndBackslashes) {
  EXPECT_EQ(words_of("--define=\"A=1 2\" x"), (Words{"--define=A=1 2", "x"}));
  EXPECT_EQ(words_of("\"\" \"\"\"\" a\"\"b"), Words{"ab"});
  EXPECT_EQ(words_of("a\\\"b c\\\\d e\\f"), (Words{"a\"b", "c\\d", "e\\f"}));
  EXPECT_EQ(words_of("\"; # kept\""), Words{"; # kept"});
  EXPECT_EQ(words_of("last\\"), Words{"last\\"});
}

TEST(CommandFile, UnterminatedInputEndsWith255) {
  EXPECT_EXIT(words_of("ab /* open"), ::testing::ExitedWithCode(255),
              "^>> Unterminated comment in command file; aborting!\n$");
  EXPECT_EXIT(words_of("x=\"tab\there\nline"), ::testing::ExitedWithCode(255),
              "^>> Unterminated quote in command file; aborting\n"
              "   Quote starts at \"tab\\\\there\\\\nline\n$");
}

}  // namespace
