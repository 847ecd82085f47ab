// Tokens of the kernel language: longest match, literal splits and the
// lexer's error reports.
#include <vector>

#include "tests/unit/zelt_parse_support.h"
#include "zeltLexer.h"

namespace {

struct LEXED {
  ANTLR3_UINT32 type;
  std::string text;
};

// The tokens of the default channel.
std::vector<LEXED> lex(const std::string& text) {
  std::string source = text;
  pANTLR3_INPUT_STREAM input =
      antlr3StringStreamNew(reinterpret_cast<pANTLR3_UINT8>(source.data()), ANTLR3_ENC_8BIT,
                            static_cast<ANTLR3_UINT32>(source.size()),
                            reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>("lex")));
  pzeltLexer lexer = zeltLexerNew(input);
  lexer->ai = nullptr;
  std::vector<LEXED> tokens;
  pANTLR3_TOKEN_SOURCE source_of_tokens = TOKENSOURCE(lexer);
  for (;;) {
    pANTLR3_COMMON_TOKEN token = source_of_tokens->nextToken(source_of_tokens);
    if (token->getType(token) == ANTLR3_TOKEN_EOF) break;
    if (token->getChannel(token) == 0) tokens.push_back({token->getType(token), antlr_text(token)});
  }
  lexer->free(lexer);
  input->close(input);
  return tokens;
}

std::vector<ANTLR3_UINT32> types(const std::string& text) {
  std::vector<ANTLR3_UINT32> result;
  for (const LEXED& token : lex(text)) result.push_back(token.type);
  return result;
}


TEST(ZeltParseLexer, LongestMatchAndKeywords) {
  EXPECT_EQ(types("minf min2 min"), (std::vector<ANTLR3_UINT32>{128, IDENTIFIER, 126}));
  EXPECT_EQ(types("a->b a-=b"),
            (std::vector<ANTLR3_UINT32>{IDENTIFIER, STREF, IDENTIFIER, IDENTIFIER, 142, IDENTIFIER}));
  EXPECT_EQ(types("__vector_int32x $a $"), (std::vector<ANTLR3_UINT32>{IDENTIFIER, IDENTIFIER, IDENTIFIER}));
  EXPECT_EQ(types("|= || | << <= <"), (std::vector<ANTLR3_UINT32>{145, OROR, ORB, SHL, LE, LESS}));
  EXPECT_EQ(types("sizeof Sizeof"), (std::vector<ANTLR3_UINT32>{SIZEOF, IDENTIFIER}));
}

TEST(ZeltParseLexer, NumberSpellings) {
  testing::internal::CaptureStderr();  // the runtime's own report of "1e"
  const std::vector<LEXED> octal = lex("0128 089 0x1fUL 1lu 7U");
  ASSERT_EQ(octal.size(), 8u);
  EXPECT_EQ(octal[0].text, "012");
  EXPECT_EQ(octal[1].text, "8");
  EXPECT_EQ(octal[2].text, "0");
  EXPECT_EQ(octal[3].text, "89");
  EXPECT_EQ(octal[4].text, "0x1fUL");
  EXPECT_EQ(octal[5].text, "1l");
  EXPECT_EQ(octal[5].type, static_cast<ANTLR3_UINT32>(INT_LITERAL));
  EXPECT_EQ(octal[6].type, static_cast<ANTLR3_UINT32>(IDENTIFIER));
  EXPECT_EQ(octal[7].text, "7U");
  EXPECT_TRUE(types("1e;").empty());  // an exponent without digits fails in the lexer
  EXPECT_EQ(types("1.5 1. .5 1e3 1f 1d 2e-4F"),
            std::vector<ANTLR3_UINT32>(7, FLOATING_POINT_LITERAL));
  EXPECT_EQ(types("'a' '\\n' \"s\\\"t\\101\""),
            (std::vector<ANTLR3_UINT32>{CHARACTER_LITERAL, CHARACTER_LITERAL, STRING_LITERAL}));
  EXPECT_EQ(types("a /* b */ c // d\n e\n#line 4 \"f.h\"\n g"),
            (std::vector<ANTLR3_UINT32>{IDENTIFIER, IDENTIFIER, IDENTIFIER, IDENTIFIER}));
  testing::internal::GetCapturedStderr();
}

// Lexer errors go straight to the error stream and are not counted.
TEST(ZeltParseLexer, ErrorsAreReportedButNotCounted) {
  PARSE_RESULT r = parse_text("void k() { __vector a; a = 0x; }");
  EXPECT_EQ(r.err,
            "k.zc(1) : lexer error 5 :\n\tUnexpected character at offset 29, near ';' :\n\t; }\n"
            "\"k.zc\", line 1: error: syntax error near '}'\n");
  EXPECT_EQ(r.errors, 1);

  r = parse_text("void k() { __vector a; } // end");
  EXPECT_EQ(r.err,
            "k.zc(1) : lexer error 1 :\n\tUnexpected character at offset 31, (end of input).\n"
            "\t This indicates a poorlyspecified lexer RULE\n"
            "\t or unterminatedinput element such as: \"STRING[\"]\n"
            "\t The lexer was matching from line 1,offset 24, which\n"
            "\t looks like this:\n\t\t// end\n");
  EXPECT_EQ(r.errors, 0);

  r = parse_text("#line 7  \nvoid k() { __vector a; }");
  EXPECT_EQ(r.err.rfind("k.zc(1) : lexer error 1 :\n\tUnexpected character at offset 9, near "
                        "char(0XA) :\n",
                        0),
            0u)
      << r.err;

  r = parse_text("void k() { __vector a; a.print(\"\\u0041\"); }");
  EXPECT_NE(r.err.find("lexer error 3 :\n\t at offset 32, near '\\' :\n\t\\u0041\"); }\n"),
            std::string::npos)
      << r.err;
}

}  // namespace
