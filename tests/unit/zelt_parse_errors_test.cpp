// Syntax errors: their words, positions, the "#line" streams and the
// suppression of cascades.
#include <sstream>

#include "tests/unit/zelt_parse_support.h"

namespace {

TEST(ZeltParseErrors, MismatchedTokenNamesFoundAndExpected) {
  EXPECT_EQ(parse_text("void f(int ;) { __vector a; }").err,
            "\"k.zc\", line 1: error: syntax error near ';' - expected IDENTIFIER\n");
  EXPECT_EQ(parse_text("void k(void) { __vector a; }").err,
            "\"k.zc\", line 1: error: syntax error near ')' - expected IDENTIFIER\n");
  EXPECT_EQ(parse_text("void f(int n {\n __vector a;\n}").err,
            "\"k.zc\", line 1: error: syntax error near '{' - expected ')'\n");
  EXPECT_EQ(parse_text("void f(int n) {\n __vector a;\n"
                       " for (int i = 0; i < n i++) { a = 0; }\n}").err,
            "\"k.zc\", line 3: error: syntax error near 'i' - expected ';'\n");
  // One unwanted token is dropped, and named with what was expected.
  EXPECT_EQ(parse_text("void f(int n) { __vector a; a = 0; } }").err,
            "\"k.zc\", line 1: error: syntax error near '}' - expected end-of-file\n");
}

TEST(ZeltParseErrors, TokenFittingNoAlternativeGivesNearTextOnly) {
  EXPECT_EQ(parse_text("void k() { ] }").err, "\"k.zc\", line 1: error: syntax error near ']'\n");
  EXPECT_EQ(parse_text("void k() { }").err, "\"k.zc\", line 1: error: syntax error near '}'\n");
  EXPECT_EQ(parse_text("void k(int x[N]) { __vector a; }").err,
            "\"k.zc\", line 1: error: syntax error near '['\n");
}

TEST(ZeltParseErrors, EndOfInput) {
  EXPECT_EQ(parse_text("").err,
            "\"k.zc\", line 1: error: syntax error at end-of-file - expected 'void'\n");
  EXPECT_EQ(parse_text("void k() {\n for (int i = 0; i < 4; i++) {\n").err,
            "\"k.zc\", line 3: error: syntax error at end-of-file\n");
  EXPECT_EQ(parse_text("void k() {\n __vector a;\n for (int i = 0; i < 4; i++) {\n a = 0;\n").err,
            "\"k.zc\", line 5: error: syntax error at end-of-file - expected '}'\n");
  EXPECT_EQ(parse_text("void k() { __vector a; } int").err,
            "\"k.zc\", line 1: error: syntax error near 'int' - expected end-of-file\n");
  EXPECT_EQ(parse_text("void k() { __vector a; }\nint x;\n").err,
            "\"k.zc\", line 2: error: syntax error near 'int' - expected end-of-file\n");
}

TEST(ZeltParseErrors, LineCommandsSetFileAndLine) {
  const PARSE_RESULT r = parse_text(
      "#line 7 \"b.h\" \nvoid k() { __vector a; x }\n"
      "#line 3 \"c.h\"\nvoid j() {\n}\n"
      "#line 9 \"b.h\"\nvoid m() {}\n"
      "#line 20\nvoid n() {}\n");
  EXPECT_EQ(r.err,
            "\"b.h\", line 7: error: syntax error near '}'\n"
            "\"c.h\", line 4: error: syntax error near '}'\n"
            "\"b.h\", line 9: error: syntax error near '}'\n"
            "\"b.h\", line 20: error: syntax error near '}'\n");
  EXPECT_EQ(r.errors, 4);
}

TEST(ZeltParseErrors, CascadesAreSuppressedUntilAMatch) {
  // The second error follows the first without a token matched in between.
  const PARSE_RESULT r = parse_text("void k() { __vector a; a = ] ] ; }");
  EXPECT_EQ(r.err, "\"k.zc\", line 1: error: syntax error near ']'\n");
  EXPECT_EQ(r.errors, 1);
}

TEST(ZeltParseErrors, GrammarRefusals) {
  const char* head = "void k(__vptr_int16 x, int n) { __vector a, b; __agen A = i; ";
  // Only the parser's words: the model's rules see these kernels too.
  auto errors_of = [&](const std::string& body) {
    std::istringstream lines(parse_text(head + body + " }").err);
    std::string syntax;
    for (std::string line; std::getline(lines, line);)
      if (line.find("syntax error") != std::string::npos) syntax += line + "\n";
    return syntax;
  };
  EXPECT_NE(errors_of("for (int i = 0; i <= n; i++) { a = x[A]; }").find("near '<='"),
            std::string::npos);
  EXPECT_EQ(errors_of("for (int i = 0; j < n; k++) { a = x[A]; }"), "");
  EXPECT_NE(errors_of("a = a + b - a;"), "");
  EXPECT_NE(errors_of("a = a + b >> 1;"), "");
  EXPECT_NE(errors_of("x[A] = a.saturate(1, 2, 3);"), "");
  EXPECT_EQ(errors_of("x[A] = a.saturate(1, 2, 3, 4);"), "");
  EXPECT_NE(errors_of("if (a[0] == 0) goto out;"), "");
  EXPECT_NE(errors_of("a = (a + b).round(3).truncate(2);"), "");
  EXPECT_EQ(errors_of("a = (a).round(3);"), "");
  EXPECT_EQ(errors_of("a = (short)1;"),
            "\"k.zc\", line 1: error: syntax error near '('\n"
            "\"k.zc\", line 1: error: syntax error near '('\n");
  EXPECT_EQ(errors_of("a = b.foo();").rfind("\"k.zc\", line 1: error: syntax error near 'b'\n", 0), 0u);
  EXPECT_NE(errors_of("for (int i = 0; i < n; i++) { a = x[A]; } out: b = a;"), "");
  EXPECT_EQ(errors_of("a = x[A] % WHATEVER;"), "");
}

// Errors among the binary operators of an expression, at several levels of
// precedence: an operator without its right operand, an unclosed
// parenthesis, a condition without its ':' and an operand too many.
TEST(ZeltParseErrors, InsideBinaryExpressions) {
  auto err = [](const std::string& init) {
    return parse_text("void k(int n) { __vector a; a = " + init + "; }").err;
  };
  EXPECT_EQ(err("n +"), "\"k.zc\", line 1: error: syntax error near ';'\n");
  EXPECT_EQ(err("n * 2 <<"), "\"k.zc\", line 1: error: syntax error near ';'\n");
  EXPECT_EQ(err("n == 1 ||"), "\"k.zc\", line 1: error: syntax error near ';'\n");
  EXPECT_EQ(err("(n + 1"), "\"k.zc\", line 1: error: syntax error near ';' - expected ')'\n");
  EXPECT_EQ(err("n ? 1"), "\"k.zc\", line 1: error: syntax error near ';' - expected ':'\n");
  EXPECT_EQ(err("n & 1 2"), "\"k.zc\", line 1: error: syntax error near '2' - expected ';'\n");
}

}  // namespace
