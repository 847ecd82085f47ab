// Tokens found directly against the lexer itself: on random texts glued
// from keywords, names, numbers, signs, comments, white space and stray
// characters, the token stream must hold exactly the tokens, positions and
// texts that the lexer alone makes, with the same lexer errors.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "ZELT_ZLC/token_buffer.h"
#include "ZELT_ZLC/token_scan.h"
#include "zeltLexer.h"

namespace {

struct TOKEN {
  ANTLR3_UINT32 type;
  ANTLR3_MARKER start;
  ANTLR3_MARKER stop;
  ANTLR3_UINT32 line;
  ANTLR3_INT32 column;
  bool operator==(const TOKEN&) const = default;
};

class LEXING {
 public:
  explicit LEXING(const std::string& text) : source(text) {
    input = antlr3StringStreamNew(reinterpret_cast<pANTLR3_UINT8>(source.data()), ANTLR3_ENC_8BIT,
                                  static_cast<ANTLR3_UINT32>(source.size()),
                                  reinterpret_cast<pANTLR3_UINT8>(const_cast<char*>("t.zc")));
    lexer = zeltLexerNew(input);
    lexer->ai = nullptr;
  }
  ~LEXING() {
    lexer->free(lexer);
    input->close(input);
  }
  LEXING(const LEXING&) = delete;
  LEXING& operator=(const LEXING&) = delete;

  std::string source;
  pANTLR3_INPUT_STREAM input;
  pzeltLexer lexer;
};

// The lexer alone: the tokens of the default channel, and the text from
// the first of them to the last without the characters that no token
// covers.
void lex_alone(const std::string& text, std::vector<TOKEN>& tokens, std::string& covered) {
  LEXING lexing(text);
  pANTLR3_TOKEN_SOURCE source = TOKENSOURCE(lexing.lexer);
  const auto base = static_cast<ANTLR3_MARKER>(reinterpret_cast<uintptr_t>(lexing.source.data()));
  std::vector<bool> in_token(text.size(), false);
  for (;;) {
    pANTLR3_COMMON_TOKEN token = source->nextToken(source);
    if (!token || token->type == ANTLR3_TOKEN_EOF) break;
    for (ANTLR3_MARKER at = token->start; at <= token->stop; ++at)
      in_token[static_cast<size_t>(at - base)] = true;
    if (token->channel == ANTLR3_TOKEN_DEFAULT_CHANNEL)
      tokens.push_back({token->type, token->start - base, token->stop - base, token->line,
                        token->charPosition});
  }
  covered.clear();
  if (tokens.empty()) return;
  for (auto at = tokens.front().start; at <= tokens.back().stop; ++at)
    if (in_token[static_cast<size_t>(at)]) covered += text[static_cast<size_t>(at)];
}

// Through the token stream, which finds the plain tokens itself.
void lex_buffered(const std::string& text, std::vector<TOKEN>& tokens, std::string& covered) {
  LEXING lexing(text);
  pANTLR3_COMMON_TOKEN_STREAM stream =
      antlr3CommonTokenStreamSourceNew(ANTLR3_SIZE_HINT, TOKENSOURCE(lexing.lexer));
  {
    TOKEN_BUFFER buffer(lexing.source, lexing.lexer->pLexer, stream);
    pANTLR3_TOKEN_STREAM ts = stream->tstream;
    const auto base = static_cast<ANTLR3_MARKER>(reinterpret_cast<uintptr_t>(lexing.source.data()));
    const ANTLR3_UINT32 count = ts->istream->size(ts->istream);
    for (ANTLR3_UINT32 i = 0; i < count; ++i) {
      pANTLR3_COMMON_TOKEN token = ts->get(ts, i);
      tokens.push_back({token->type, token->start - base, token->stop - base, token->line,
                        token->charPosition});
    }
    covered = count == 0 ? "" : buffer.text(ts->get(ts, 0), ts->get(ts, count - 1));
  }
  stream->free(stream);
}

std::string random_text(std::mt19937& random) {
  static const std::vector<std::string> pieces = {
      "void", "int", "unsigned", "sizeof", "min", "minf", "min2", "maxf", "__vector",
      "__vector_int32", "__vector_int32x", "CIRC_1K", "CIRC_1", "print", "prin", "x", "$", "_a9",
      "interleave2", "interleave", "hi", "if", "foreach", "for", "0", "1", "9", "08", "012", "0x1F",
      "0x", "12", "3u", "4L", "5e3", "1e", "1.5", ".5", "7d", "8f", "0l", "=", "==", "<", "<<", "<=",
      ">", ">>", ">=", "&", "&&", "&=", "|", "||", "|=", "^", "^=", "+", "++", "+=", "-", "-=", "->",
      "*", "*=", "/", "%", "!", "!=", "~", "?", ",", ".", ";", ":", "(", ")", "[", "]", "{", "}",
      "/*", "*/", "//", " ", "\t", "\n", "\r", "\f", "\v", "\"", "'", "\\", "@", "`", "\x80"};
  std::uniform_int_distribution<size_t> length(1, 30);
  std::uniform_int_distribution<size_t> pick(0, pieces.size() - 1);
  std::string text;
  for (size_t n = length(random); n > 0; --n) text += pieces[pick(random)];
  return text;
}

TEST(ZeltTokenScan, SameTokensAsTheLexer) {
  std::mt19937 random(13);
  for (int round = 0; round < 3000; ++round) {
    const std::string text = random_text(random);
    std::vector<TOKEN> alone;
    std::vector<TOKEN> buffered;
    std::string covered_alone;
    std::string covered_buffered;
    testing::internal::CaptureStderr();
    lex_alone(text, alone, covered_alone);
    const std::string errors_alone = testing::internal::GetCapturedStderr();
    testing::internal::CaptureStderr();
    lex_buffered(text, buffered, covered_buffered);
    const std::string errors_buffered = testing::internal::GetCapturedStderr();
    ASSERT_EQ(buffered, alone) << text;
    ASSERT_EQ(covered_buffered, covered_alone) << text;
    ASSERT_EQ(errors_buffered, errors_alone) << text;
  }
}

TEST(ZeltTokenScan, PlainTokensAndWhatIsLeftToTheLexer) {
  auto scan = [](const std::string& text) {
    const SCANNED_TOKEN token = scan_token(text.data(), text.data() + text.size());
    return std::make_pair(token.type, token.length);
  };
  EXPECT_EQ(scan("minf("), std::make_pair(ANTLR3_UINT32{T__128}, size_t{4}));
  EXPECT_EQ(scan("min2"), std::make_pair(ANTLR3_UINT32{IDENTIFIER}, size_t{4}));
  EXPECT_EQ(scan("->x"), std::make_pair(ANTLR3_UINT32{STREF}, size_t{2}));
  EXPECT_EQ(scan("120;"), std::make_pair(ANTLR3_UINT32{INT_LITERAL}, size_t{3}));
  EXPECT_EQ(scan("0;"), std::make_pair(ANTLR3_UINT32{INT_LITERAL}, size_t{1}));
  EXPECT_EQ(scan("/* a */"), std::make_pair(ANTLR3_UINT32{COMMENT}, size_t{7}));
  EXPECT_EQ(scan("// a\r\n"), std::make_pair(ANTLR3_UINT32{LINE_COMMENT}, size_t{6}));
  for (const char* left : {"012", "0x1", "1.", "1e3", "3u", ".5", "/* a", "// a", "// a\r", "\"s\"",
                           "'c'", "#line 1\n", "@"})
    EXPECT_EQ(scan(left).first, 0u) << left;
}

}  // namespace
