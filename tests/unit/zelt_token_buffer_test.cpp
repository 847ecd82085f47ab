// The parser's token stream: the default channel only, look-ahead and
// look-back, marks, texts of token ranges with hidden tokens and skipped
// characters, token objects made again after their release, and the
// parser's match.
#include <gtest/gtest.h>

#include <string>

#include "ZELT_ZLC/token_buffer.h"
#include "zeltParser.h"  // before the lexer's token macros
#include "zeltLexer.h"

namespace {

class ZeltTokenBuffer : public testing::Test {
 protected:
  void open(const std::string& text) {
    source = text;
    input = antlr3StringStreamNew(reinterpret_cast<pANTLR3_UINT8>(source.data()), ANTLR3_ENC_8BIT,
                                  static_cast<ANTLR3_UINT32>(source.size()),
                                  reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>("t.zc")));
    lexer = zeltLexerNew(input);
    lexer->ai = nullptr;
    stream = antlr3CommonTokenStreamSourceNew(ANTLR3_SIZE_HINT, TOKENSOURCE(lexer));
    buffer = std::make_unique<TOKEN_BUFFER>(source, lexer->pLexer, stream);
    ts = stream->tstream;
    is = ts->istream;
  }
  void TearDown() override {
    buffer.reset();
    stream->free(stream);
    lexer->free(lexer);
    input->close(input);
  }
  std::string text_of(pANTLR3_COMMON_TOKEN token) {
    return std::string(TOKEN_BUFFER::chars(token));
  }

  std::string source;
  pANTLR3_INPUT_STREAM input = nullptr;
  pzeltLexer lexer = nullptr;
  pANTLR3_COMMON_TOKEN_STREAM stream = nullptr;
  std::unique_ptr<TOKEN_BUFFER> buffer;
  pANTLR3_TOKEN_STREAM ts = nullptr;
  pANTLR3_INT_STREAM is = nullptr;
};

TEST_F(ZeltTokenBuffer, DefaultChannelLookAheadAndBack) {
  open("a /* c */ = \n b ; // x\n");
  EXPECT_EQ(ts->_LT(ts, -1), nullptr);
  EXPECT_EQ(is->_LA(is, 1), static_cast<ANTLR3_UINT32>(IDENTIFIER));
  EXPECT_EQ(is->_LA(is, 2), static_cast<ANTLR3_UINT32>(ASG));
  EXPECT_EQ(text_of(ts->_LT(ts, 3)), "b");
  EXPECT_EQ(ts->_LT(ts, 3)->getLine(ts->_LT(ts, 3)), 2u);
  EXPECT_EQ(ts->_LT(ts, 3)->getCharPositionInLine(ts->_LT(ts, 3)), 1);
  EXPECT_EQ(is->_LA(is, 5), static_cast<ANTLR3_UINT32>(ANTLR3_TOKEN_EOF));

  const ANTLR3_MARKER marker = is->mark(is);
  is->consume(is);
  is->consume(is);
  EXPECT_EQ(text_of(ts->_LT(ts, -1)), "=");
  EXPECT_EQ(text_of(ts->_LT(ts, -2)), "a");
  is->rewind(is, marker);
  EXPECT_EQ(text_of(ts->_LT(ts, 1)), "a");
  for (int i = 0; i < 10; ++i) is->consume(is);  // stops at the end
  EXPECT_EQ(is->_LA(is, 1), static_cast<ANTLR3_UINT32>(ANTLR3_TOKEN_EOF));
  EXPECT_EQ(text_of(ts->_LT(ts, -1)), ";");
}

TEST_F(ZeltTokenBuffer, TextsKeepHiddenTokensAndLeaveSkippedCharacters) {
  testing::internal::CaptureStderr();
  open("n  +/* one */1 ` * 2;");
  pANTLR3_COMMON_TOKEN first = ts->_LT(ts, 1);
  pANTLR3_COMMON_TOKEN one = ts->_LT(ts, 3);
  pANTLR3_COMMON_TOKEN two = ts->_LT(ts, 5);
  testing::internal::GetCapturedStderr();  // the lexer's report of '`'
  EXPECT_EQ(buffer->text(first, one), "n  +/* one */1");
  EXPECT_EQ(buffer->text(first, two), "n  +/* one */1  * 2");
  EXPECT_EQ(buffer->text(one, first), "");
  EXPECT_EQ(buffer->text(nullptr, one), "");
}

TEST_F(ZeltTokenBuffer, ReleasedTokensAreMadeAgain) {
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "x" + std::to_string(i) + " ";
  open(text);
  for (int i = 0; i < 900; ++i) is->consume(is);
  buffer->release_consumed();
  EXPECT_EQ(text_of(ts->_LT(ts, -1)), "x899");
  EXPECT_EQ(text_of(ts->_LT(ts, 1)), "x900");
  is->seek(is, 3);
  EXPECT_EQ(text_of(ts->_LT(ts, 1)), "x3");
  EXPECT_EQ(ts->_LT(ts, 1)->getTokenIndex(ts->_LT(ts, 1)), 3);
}

// The expected token is consumed and ends error recovery; another, while
// speculating, only marks the attempt failed, as the runtime does.
TEST_F(ZeltTokenBuffer, ParserMatchesAsTheRuntime) {
  open("a = ");
  pzeltParser parser = zeltParserNew(stream);
  pANTLR3_BASE_RECOGNIZER rec = parser->pParser->rec;
  buffer->serve_matches(rec);
  rec->state->errorRecovery = ANTLR3_TRUE;
  auto* a = static_cast<pANTLR3_COMMON_TOKEN>(rec->match(rec, IDENTIFIER, nullptr));
  EXPECT_EQ(text_of(a), "a");
  EXPECT_FALSE(rec->state->errorRecovery);
  EXPECT_FALSE(rec->state->failed);
  rec->state->backtracking = 1;
  auto* asg = static_cast<pANTLR3_COMMON_TOKEN>(rec->match(rec, IDENTIFIER, nullptr));
  EXPECT_EQ(text_of(asg), "=");
  EXPECT_TRUE(rec->state->failed);
  EXPECT_EQ(is->_LA(is, 1), static_cast<ANTLR3_UINT32>(ASG));
  rec->match(rec, ASG, nullptr);
  EXPECT_FALSE(rec->state->failed);
  auto* eof = static_cast<pANTLR3_COMMON_TOKEN>(rec->match(rec, ANTLR3_TOKEN_EOF, nullptr));
  EXPECT_EQ(eof->getType(eof), static_cast<ANTLR3_UINT32>(ANTLR3_TOKEN_EOF));
  rec->state->backtracking = 0;
  parser->free(parser);
}

}  // namespace
