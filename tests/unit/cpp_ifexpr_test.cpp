// Conditional groups and the #if evaluator.
#include <gtest/gtest.h>

#include "tests/unit/cpp_harness.h"

namespace {

// Whether `expr` is true, and the messages of its evaluation.
std::pair<bool, std::string> eval(const std::string& expr, const std::string& defs = "") {
  const PP_RESULT r = run_cpp(defs + "#if " + expr + "\nyes\n#else\nno\n#endif\n");
  return {r.text.find("yes") != std::string::npos, r.all_messages()};
}

}  // namespace

TEST(CppIf, Arithmetic) {
  EXPECT_TRUE(eval("1 + 2 * 3 == 7").first);
  EXPECT_TRUE(eval("(1 + 2) * 3 == 9 && 7 / 2 == 3 && -7 % 3 == -1").first);
  EXPECT_TRUE(eval("1 << 63 < 0 && 1u << 63 > 0 && -8 >> 1 == -4 && 0x10 == 16 && 010 == 8").first);
  EXPECT_TRUE(eval("~0 == -1 && !0 == 1 && - - 3 == 3 && +4 == 4 && 'a' == 97 && '\\n' == 10").first);
  EXPECT_TRUE(eval("(0 ? 1 : 2) == 2 && (1, 0) == 0 && (3 ^ 5) == 6 && (3 | 4) == 7").first);
  EXPECT_TRUE(eval("X * 2 == 8", "#define X 4\n").first);
}

TEST(CppIf, SignedAndUnsigned) {
  EXPECT_FALSE(eval("-1 < 0u").first);
  EXPECT_TRUE(eval("-1 < 0").first);
  EXPECT_TRUE(eval("0xffffffffffffffff == -1").first);
  EXPECT_TRUE(eval("9223372036854775808 < 0").first);  // no suffix: signed
  EXPECT_TRUE(eval("-1 >> 63 == -1 && -1u >> 63 == 1").first);
  EXPECT_FALSE(eval("(1 ? -1 : 0u) < 0").first);  // a branch is unsigned
  EXPECT_TRUE(eval("!0u - 2 < 0").first);          // "!" is signed
}

TEST(CppIf, UndefinedNamesThatContributed) {
  EXPECT_EQ(eval("UNDEFINED_NAME"), std::make_pair(false, std::string(
      "\"t.k\", line 1: warning: undefined preprocessor symbol 'UNDEFINED_NAME'\n")));
  EXPECT_EQ(eval("0 && U").second, "");
  EXPECT_EQ(eval("1 || U").second, "");
  EXPECT_EQ(eval("1 ? 2 : U").second, "");
  EXPECT_EQ(eval("1 && B || A").second,
            "\"t.k\", line 1: warning: undefined preprocessor symbol 'A'\n"
            "\"t.k\", line 1: warning: undefined preprocessor symbol 'B'\n");
}

TEST(CppIf, Defined) {
  EXPECT_TRUE(eval("defined X && defined(X) && !defined Y", "#define X\n").first);
  EXPECT_TRUE(eval("D", "#define X\n#define D defined(X)\n").first);
  EXPECT_EQ(eval("defined(X").second, "\"t.k\", line 1: error: syntax error in #if expression\n");
}

TEST(CppIf, DivisionByZeroIsEvaluatedEverywhere) {
  const std::string message = "\"t.k\", line 1: warning: division by zero in constant expression\n";
  EXPECT_EQ(eval("1/0"), std::make_pair(false, message));
  EXPECT_EQ(eval("0 && 1/0").second, message);
  EXPECT_EQ(eval("1 ? 1 : 1 % 0").second, message);
}

TEST(CppIf, SyntaxErrors) {
  const std::string message = "\"t.k\", line 1: error: syntax error in #if expression\n";
  EXPECT_EQ(eval("1.0"), std::make_pair(false, message));
  EXPECT_EQ(eval(""), std::make_pair(false, message));
  EXPECT_EQ(eval("\"s\"").second, message);
  EXPECT_EQ(eval("1 ? 2").second, message);
  EXPECT_EQ(eval("(1"), std::make_pair(true, message));  // the value formed counts
}

TEST(CppIf, Groups) {
  const PP_RESULT r = run_cpp(
      "#if 0\na\n#elif 1\nb\n#elif 1\nc\n#else\nd\n#endif\n"
      "#ifdef X\ne\n#else\nf\n#endif\n#ifndef X\ng\n#endif\n"
      "#if 0\n#if 1\nh\n#else\ni\n#endif\n#elif 0\nj\n#else\nk\n#endif\n");
  std::string text = without_line_directives(r.text);
  std::erase(text, '\n');
  EXPECT_EQ(text, "bfgk");
  EXPECT_TRUE(r.messages.empty());
}

TEST(CppIf, SkippedLinesAreNotExpandedOrScanned) {
  const PP_RESULT r = run_cpp("#define F(x) x\n#if 0\nF(\n'\n#foo\n#endif\nok\n");
  EXPECT_TRUE(r.messages.empty()) << r.all_messages();
  EXPECT_EQ(r.text, "#line 7 \"t.k\"\nok\n");
}

TEST(CppIf, Nesting) {
  const PP_RESULT r = run_cpp("#else\n#endif\n#elif 1\n#if 1\n#else\n#else\n#endif\n"
                              "#if 0\n#else\n#else\n#endif\n#ifdef\n#endif\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: error: #else, #elif, or #endif has no matching #if\n"
            "\"t.k\", line 2: error: #else, #elif, or #endif has no matching #if\n"
            "\"t.k\", line 3: error: #else, #elif, or #endif has no matching #if\n"
            "\"t.k\", line 10: error: #else, #elif, or #endif has no matching #if\n"
            "\"t.k\", line 12: error: missing name on #ifdef or #ifndef directive\n");
}

TEST(CppIf, UnclosedIf) {
  EXPECT_EQ(run_cpp("\n#if 1\nx\n").all_messages(),
            "\"t.k\", line 3: warning: unclosed #if directive from line 2\n");
  EXPECT_EQ(run_cpp("#if 0\nx\n#else\n").all_messages(),
            "\"t.k\", line 3: warning: unclosed #if directive from line 1\n");
  EXPECT_EQ(run_cpp("#if 1\n#else\nx\n").all_messages(),
            "\"t.k\", line 3: warning: unclosed #if directive from line 2\n");
}
