// Line input, output pieces and line keeping, comments, literals, includes
// and the simple directives.
#include <gtest/gtest.h>

#include "tests/unit/cpp_harness.h"

// Text that passes without a message: its spacing, the last line feed, gaps
// kept as empty lines or line directives, continuations, comments, and the
// lines of directives.
TEST(CppLines, TextOut) {
  const struct {
    const char* in;
    const char* out;
  } cases[] = {
      {"", ""},
      {"a  +\tb;\n", "#line 1 \"t.k\"\na  +\tb;\n"},
      {"a\nb", "#line 1 \"t.k\"\na\nb\n"},
      {"a\n\n\nb\n\n\n\nc\n", "#line 1 \"t.k\"\na\n\n\nb\n#line 8 \"t.k\"\nc\n"},
      {"a \\\nb\nc\n\n\n\nd\n", "#line 2 \"t.k\"\na b\nc\n#line 7 \"t.k\"\nd\n"},
      {"a \\\r\nb\n", "#line 2 \"t.k\"\na b\n"},
      {"a /* x */ b // y\nc\n", "#line 1 \"t.k\"\na   b \nc\n"},
      {"/* only */\n// only\nx\n", "#line 3 \"t.k\"\nx\n"},
      {"a /* 1\n2\n3 */ b\nc\n", "#line 3 \"t.k\"\na   b\nc\n"},
      {"\"/* no */\" '//'\n", "#line 1 \"t.k\"\n\"/* no */\" '//'\n"},
      {"a\n#define X\nb\n#\n  #  undef X\nc\n", "#line 1 \"t.k\"\na\n\nb\n\n\nc\n"},
      {"#define N 4\n#pragma unroll(N)  x\ny\n", "#line 2 \"t.k\"\n#pragma unroll(4)  x\ny\n"},
  };
  for (const auto& c : cases) {
    const PP_RESULT r = run_cpp(c.in);
    EXPECT_EQ(r.text, c.out) << c.in;
    EXPECT_TRUE(r.messages.empty()) << c.in;
  }
}

TEST(CppLines, UnclosedCommentWarnsWithItsFirstLine) {
  const PP_RESULT r = run_cpp("a\nb /* open\n\n\n");
  EXPECT_EQ(r.all_messages(), "\"t.k\", line 4: warning: unclosed comment starting on line 2\n");
}

TEST(CppLines, LexicalMessages) {
  const PP_RESULT r = run_cpp("x \"open\ny 'z\nq \x01 \xc3\n'a' L'b' \"\\\"\" ok\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: error: unclosed string or character constant\n"
            "\"t.k\", line 2: error: unclosed string or character constant\n"
            "\"t.k\", line 3: warning: illegal source character: 0x01\n"
            "\"t.k\", line 3: warning: illegal source character: 0xc3\n");
  EXPECT_NE(r.text.find("q \x01 \xc3\n"), std::string::npos);  // bytes are kept
}

TEST(CppLines, HashOutsideMacroWarns) {
  const PP_RESULT r = run_cpp("a # b ## c\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: warning: use of # illegal except in macro definition\n"
            "\"t.k\", line 1: warning: use of ## illegal except in macro definition\n");
  EXPECT_EQ(r.text, "#line 1 \"t.k\"\na # b ## c\n");
}

TEST(CppDirectives, DirectiveInTheMiddleOfALineIsText) {
  EXPECT_EQ(run_cpp("a #define X 1\nX\n").text, "#line 1 \"t.k\"\na #define X 1\nX\n");
}

TEST(CppDirectives, InvalidDirectives) {
  const PP_RESULT r = run_cpp("#IF 1\n#foo bar\n#123\nx\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: error: invalid directive IF - ignored\n"
            "\"t.k\", line 2: error: invalid directive foo - ignored\n"
            "\"t.k\", line 3: error: invalid directive 123 - ignored\n");
  EXPECT_EQ(r.text, "#line 4 \"t.k\"\nx\n");
}

TEST(CppDirectives, ErrorAndWarnGoOn) {
  const PP_RESULT r = run_cpp("#error  stop  here \n#warn careful // not this\n#error\nx\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: error: #error 'stop  here '\n"
            "\"t.k\", line 2: warning: #warn 'careful '\n"  // "//" cut the line
            "\"t.k\", line 3: error: #error ''\n");
  EXPECT_EQ(r.text, "#line 4 \"t.k\"\nx\n");
  // A carriage return before the line feed belongs to the rest of the line.
  EXPECT_EQ(run_cpp("#error stop here\r\n#warn careful \r\n").all_messages(),
            "\"t.k\", line 1: error: #error 'stop here\r'\n"
            "\"t.k\", line 2: warning: #warn 'careful \r'\n");
}

TEST(CppDirectives, LineDirective) {
  EXPECT_EQ(run_cpp("#line 100\nx __LINE__\n#line 7 \"a\\\\b.k\"\n__FILE__ __LINE__\n").text,
            "#line 100 \"t.k\"\nx 100\n#line 7 \"a\\b.k\"\n\"a\\\\b.k\" 7\n");
  EXPECT_EQ(run_cpp("#define L 20 \"m.k\"\n#line L\nx\n").text, "#line 20 \"m.k\"\nx\n");
  EXPECT_EQ(run_cpp("#line 5 6\nx\n").text, "#line 56 \"t.k\"\nx\n");  // expanded text is joined
  const PP_RESULT r = run_cpp("#line x\n#line 5 x\n#line 1 'c'\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: error: syntax error on #line directive\n"
            "\"t.k\", line 2: error: syntax error on #line directive\n"
            "\"t.k\", line 3: error: syntax error on #line directive\n");
}

TEST(CppInclude, IncludedTextAndPositions) {
  const PP_RESULT r = run_cpp("a\n#include \"h.h\"\nb\n#define H <sub/i.h>\n#include H\nc\n",
                              {{"h.h", "in h\n"}, {"sub/i.h", "\n\n\nin i\n"}});
  EXPECT_EQ(r.text,
            "#line 1 \"t.k\"\na\n#line 1 \"h.h\"\nin h\n#line 2 \"t.k\"\n\nb\n"
            "#line 4 \"sub/i.h\"\nin i\n#line 5 \"t.k\"\n\nc\n");
  EXPECT_TRUE(r.messages.empty());
}

TEST(CppInclude, Failures) {
  const PP_RESULT r = run_cpp(
      "#include \"none.h\"\n#include <none.h>\n#include none\n#include\n"
      "#include \"elf.o\"\n#include \"lib.a\"\n#include \"obj.coff\"\nend\n",
      {{"elf.o", "\x7f" "ELF\x02\x01"}, {"lib.a", "!<arch>\nxx"}, {std::string("obj.coff"), std::string("\x00\xc1", 2)}});
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: error: can't open file: \"none.h\"\n"
            "\"t.k\", line 2: error: can't open file: <none.h>\n"
            "\"t.k\", line 3: error: bad include file specification\n"
            "\"t.k\", line 4: error: bad include file specification\n"
            "\"t.k\", line 5: error: You may not use #include for ELF file 'elf.o'\n"
            "\"t.k\", line 6: error: You may not use #include for archive file 'lib.a'\n"
            "\"t.k\", line 7: error: You may not use #include for COFF file 'obj.coff'\n");
  EXPECT_EQ(r.text, "#line 8 \"t.k\"\nend\n");
}

TEST(CppInclude, OpenIfInsideIncludedFileIsReportedAtTheEnd) {
  const PP_RESULT r = run_cpp("#include \"h.h\"\nx\n#endif\n", {{"h.h", "#if 1\n"}});
  EXPECT_TRUE(r.messages.empty());
  EXPECT_EQ(run_cpp("#include \"h.h\"\nx\n", {{"h.h", "\n#if 1\n"}}).all_messages(),
            "\"t.k\", line 2: warning: unclosed #if directive from line 2\n");
}

TEST(CppInterface, NullFileOrStreamGivesNoObject) {
  EXPECT_EQ(new_CPP(nullptr, stdin, nullptr), nullptr);
  EXPECT_EQ(new_CPP("a.k", nullptr, nullptr), nullptr);
}

TEST(CppInterface, FgetsStaysNullAtTheEnd) {
  FILE* fp = tmpfile();
  std::fputs("x\n#if 1\n", fp);
  std::rewind(fp);
  PP_RESULT result;
  TEST_CPP_CLIENT client(result, "/nowhere");
  CPP* cpp = new_CPP("m.k", fp, &client);
  EXPECT_STREQ(cpp->fgets(), "x\n");
  EXPECT_EQ(cpp->fgets(), nullptr);
  EXPECT_EQ(cpp->fgets(), nullptr);
  EXPECT_EQ(result.messages.size(), 1u);
  delete cpp;
  std::fclose(fp);
}
