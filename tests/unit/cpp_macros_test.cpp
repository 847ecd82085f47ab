// Macro definition, redefinition, expansion with arguments, # and ##, the
// standard macros, and calls that span lines.
#include <gtest/gtest.h>

#include "tests/unit/cpp_harness.h"

namespace {

std::string body(const PP_RESULT& r) { return without_line_directives(r.text); }

}  // namespace

// Expansion: object- and function-like macros, arguments with their spacing
// and nesting, no expansion within itself, a name without parentheses, a
// call continued below a macro body, # and ##.
TEST(CppMacros, Expansion) {
  const struct {
    const char* in;
    const char* out;
  } cases[] = {
      {"#define F (x) x\n#define G(x) [x]\nF(1) G(2) G (3)\n", "(x) x(1) [2] [3]\n"},
      {"#define F(a, b) <a|b>\nF( x  +  y , (1, 2) ) F(F(1,2),3)\n", "<x  +  y|(1, 2)> <<1|2>|3>\n"},
      {"#define A A\n#define B C\n#define C B\nA B C\n", "A B C\n"},
      {"#define f(x) x\nf(f)(1)\n", "f(1)\n"},
      {"#define F(a) <a>\nF + F;\nF\n(1) F\nx\n", "F + F;\n\n<1> F\nx\n"},
      {"#define F(a,b) <a|b>\n#define G F(1\nG,2)\n", "<1|2>\n"},
      {"#define S(x) #x\nS( a  \"b\\n\"  'c' ) S() S(\\)\n", "\"a \\\"b\\\\n\\\" 'c'\" \"\" \"\\\"\n"},
      {"#define C(a,b) a ## b\n#define C3(a,b,c) a##b##c\n#define xy 5\n"
       "C(x,y) C(1, 2) C(,z) C3(p, q , r) C(x y,z)\n",
       "5 12 z pqr x yz\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(body(run_cpp(c.in)), c.out) << c.in;
}

TEST(CppMacros, ArgumentCountMismatch) {
  const PP_RESULT r = run_cpp("#define F(a) <a>\n#define G(a,b) <a|b>\nF(1,2) F() G(1) G(,) G(1,)\n");
  EXPECT_EQ(body(r), "<1> <> <1|> <|> <1|>\n");
  EXPECT_EQ(r.messages.size(), 5u);  // an empty last argument is not counted
  for (const std::string& m : r.messages)
    EXPECT_NE(m.find("warning: argument count mismatch for macro"), std::string::npos) << m;
}

TEST(CppMacros, CallSpanningLinesDropsDirectives) {
  const PP_RESULT r = run_cpp("#define F(a,b) <a|b>\nF(1,\n#define X 2\n2) __LINE__\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 3: warning: preprocessor directive ignored in macro expansion\n");
  EXPECT_EQ(r.text, "#line 4 \"t.k\"\n<1|2> 4\n");
}

TEST(CppMacros, UnclosedCall) {
  const PP_RESULT r = run_cpp("#define F(a) <a>\nF(1,\n2\n");
  EXPECT_EQ(r.all_messages(), "\"t.k\", line 3: error: unclosed invocation of macro 'F'\n");
  EXPECT_EQ(body(r), "F(1,\n2\n");
}

TEST(CppMacros, BadlyFormedArgumentList) {
  const PP_RESULT r = run_cpp("#define F(a) <a>\n#define OPEN F(\n#define ID(x) x\nID(OPEN 1) 2)\n");
  EXPECT_EQ(r.all_messages(), "\"t.k\", line 4: error: badly formed argument list for macro 'F'\n");
  EXPECT_EQ(body(r), "F( 1 2)\n");
}

TEST(CppMacros, DefinitionErrors) {
  const PP_RESULT r = run_cpp(
      "#define\n#define 1\n#define F(a,a) a\n#define G(a,1) a\n#define H(a\n"
      "#define S #\n#define T(x) #y\n#define U ## a\n#define V a ##\nU V\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 1: error: missing macro name for #define\n"
            "\"t.k\", line 2: error: missing macro name for #define\n"
            "\"t.k\", line 3: error: duplicate macro parameter 'a'\n"
            "\"t.k\", line 4: error: bad parameter list for macro 'G'\n"
            "\"t.k\", line 5: error: bad parameter list for macro 'H'\n"
            "\"t.k\", line 6: error: argument to # must be a macro parameter\n"
            "\"t.k\", line 7: error: argument to # must be a macro parameter\n"
            "\"t.k\", line 8: error: missing operand of ##\n"
            "\"t.k\", line 9: error: missing operand of ##\n");
  EXPECT_EQ(body(r), "a a\n");
}

TEST(CppMacros, TooManyParametersSaysMax31) {
  std::string params;
  for (int i = 0; i <= 1000; ++i) params += (i ? ",p" : "p") + std::to_string(i);
  const PP_RESULT r = run_cpp("#define F(" + params + ") p0\nF\n");
  EXPECT_EQ(r.all_messages(), "\"t.k\", line 1: error: too many arguments for macro 'F' (max=31)\n");
  EXPECT_EQ(body(r), "F\n");
}

TEST(CppMacros, Redefinition) {
  const PP_RESULT r = run_cpp(
      "#define X 1\n#define X  1 \n#define F(a) a+a\n#define F(b) b+b\n#define F(a) a +a\n"
      "#define X 2\n#define __DATE__ 1\n#define defined 1\nX\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 4: warning: redefinition of macro 'F'\n"  // parameter names count
            "\"t.k\", line 5: warning: redefinition of macro 'F'\n"
            "\"t.k\", line 6: warning: redefinition of macro 'X'\n"
            "\"t.k\", line 7: warning: redefinition of macro '__DATE__'\n"
            "\"t.k\", line 8: warning: #define of standard macro 'defined'\n");
  EXPECT_EQ(body(r), "2\n");
}

TEST(CppMacros, Undef) {
  const PP_RESULT r = run_cpp("#define X 1\n#undef X\n#undef NONE\n#undef __LINE__\n#undef\n"
                              "#undef defined\nX __LINE__\n");
  EXPECT_EQ(r.all_messages(),
            "\"t.k\", line 4: warning: #undef of standard macro '__LINE__'\n"
            "\"t.k\", line 5: error: missing name on #undef directive\n"
            "\"t.k\", line 6: warning: #undef of standard macro 'defined'\n");
  EXPECT_EQ(body(r), "X __LINE__\n");
}

TEST(CppMacros, StandardMacros) {
  const std::string text = body(run_cpp("\n__LINE__ __FILE__\n__DATE__ __TIME__\n"));
  ASSERT_EQ(text.size(), std::string("2 \"t.k\"\n\"Nov 22 2024\" \"11:22:33\"\n").size()) << text;
  EXPECT_EQ(text.substr(0, 9), "2 \"t.k\"\n\"");
  EXPECT_EQ(text.substr(12, 1) + text.substr(15, 1) + text.substr(20, 3), "  \" \"");
  EXPECT_EQ(text.substr(25, 1) + text.substr(28, 1), "::");
}

TEST(CppMacros, PredefineHidesAndUndefineReveals) {
  const PP_RESULT r = run_cpp("A B C\n#undef A\nA\n", {}, {{"A", "1"}, {"A", "2"}, {"B", nullptr}, {"C", "x /* c */ y"}});
  EXPECT_EQ(body(r), "2 1 x   y\n\n1\n");
}

TEST(CppMacros, PredefinedValueWithTooManyTokensIsFatal) {
  std::string value;
  for (int i = 0; i < 1000; ++i) value += "a ";
  EXPECT_EQ(run_cpp("x\n", {}, {{"A", value.c_str()}}).fatal_codes, std::vector<int>{19039});
  value.resize(value.size() - 2);  // 999 tokens fit
  EXPECT_TRUE(run_cpp("x\n", {}, {{"A", value.c_str()}}).fatal_codes.empty());
}
