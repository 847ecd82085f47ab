// The parser's token stream.  The whole text is lexed before the parser
// reads its first token, so that every lexer error is reported before any
// message of the parser, as with a buffer of all tokens; but only the tokens
// of the default channel are kept, in a compact form, and the token objects
// that the parser sees are made a chunk at a time and released as statements
// start.  Texts of rules are taken from the source text itself.
#ifndef ZLC_ZELT_ZLC_TOKEN_BUFFER_H
#define ZLC_ZELT_ZLC_TOKEN_BUFFER_H

#include <antlr3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TOKEN_BUFFER {
 public:
  // Serves the tokens of `lexer`, which reads `text`, through `stream`,
  // whose operations it replaces.
  TOKEN_BUFFER(const std::string& text, pANTLR3_LEXER lexer, pANTLR3_COMMON_TOKEN_STREAM stream);
  TOKEN_BUFFER(const TOKEN_BUFFER&) = delete;
  TOKEN_BUFFER& operator=(const TOKEN_BUFFER&) = delete;

  // The source text from the first character of `start` to the last of
  // `stop`, hidden tokens included and characters that the lexer skipped
  // left out; empty when either is missing or `stop` comes first.
  std::string text(pANTLR3_COMMON_TOKEN start, pANTLR3_COMMON_TOKEN stop) const;

  // The tokens before the previous one will not be read again.
  void release_consumed();

  // Lets `parser` match the tokens it expects here, without the calls
  // through the stream that its runtime makes; a token other than the one
  // expected is left to the runtime's own match and recovery.
  void serve_matches(pANTLR3_BASE_RECOGNIZER parser);

  // The characters of a token made by the lexer, without a runtime string.
  static std::string_view chars(pANTLR3_COMMON_TOKEN token);

  // The parser's look-ahead without the calls through the stream: the type
  // of the token i ahead (i < 0: behind), as the stream's LA answers.
  ANTLR3_UINT32 look_ahead(ANTLR3_INT32 i) {
    if (!lexed) lex_all();
    if (i == 0) return ANTLR3_TOKEN_INVALID;
    const int64_t position = i < 0 ? p + i : p + i - 1;
    if (position < 0) return ANTLR3_TOKEN_INVALID;
    if (position >= static_cast<int64_t>(entries.size())) return ANTLR3_TOKEN_EOF;
    return entries[static_cast<size_t>(position)].type;
  }
  // The token k ahead, as the stream's LT answers.
  pANTLR3_COMMON_TOKEN look_token(ANTLR3_INT32 k) {
    if (!lexed) lex_all();
    return lt(k);
  }
  // The parser's match of the token it expects, as match() answers: the
  // current token, consumed when it is of `type`.
  void* match_token(pANTLR3_BASE_RECOGNIZER parser, ANTLR3_UINT32 type,
                    pANTLR3_BITSET_LIST follow) {
    if (!lexed) lex_all();
    const auto at = static_cast<size_t>(p);
    if (at >= entries.size() || entries[at].type != type) return match(parser, type, follow);
    pANTLR3_COMMON_TOKEN token = token_at(p);
    ++p;
    parser->state->errorRecovery = ANTLR3_FALSE;
    parser->state->failed = ANTLR3_FALSE;
    return token;
  }

 private:
  // A token of the default channel: offsets of its first and last character
  // in the text, its position, its type and the index of its input stream.
  struct ENTRY {
    uint32_t start;
    uint32_t stop;
    uint32_t line;
    int32_t column;
    uint32_t type : 8;
    uint32_t stream : 24;
  };
  static constexpr size_t max_streams = size_t{1} << 24;
  // Characters between two tokens that no token covers.
  struct GAP {
    uint32_t first;
    uint32_t last;
  };

  // A sequence that grows in chunks of 2^bits elements, never copied, so
  // that it needs no spare room and its elements stay where they are.
  template <class T, int bits>
  class CHUNKS {
   public:
    static constexpr size_t chunk = size_t{1} << bits;
    T& operator[](size_t i) { return chunks[i >> bits][i & (chunk - 1)]; }
    const T& operator[](size_t i) const { return chunks[i >> bits][i & (chunk - 1)]; }
    size_t size() const { return count; }
    void push_back(const T& value) {
      if (count % chunk == 0) chunks.push_back(std::make_unique<T[]>(chunk));
      (*this)[count++] = value;
    }

   private:
    std::vector<std::unique_ptr<T[]>> chunks;
    size_t count = 0;
  };

  void lex_all();
  void skip_white_space();
  bool scan_plain_token();
  static void advance(pANTLR3_INPUT_STREAM input, size_t count);
  void record(pANTLR3_COMMON_TOKEN token, pANTLR3_INPUT_STREAM input);
  uint32_t stream_index(pANTLR3_INPUT_STREAM input);
  // The token object of an entry; its chunk is made on first use.
  pANTLR3_COMMON_TOKEN token_at(int64_t position) {
    const auto at = static_cast<size_t>(position);
    const size_t number = at >> made_bits;
    ANTLR3_COMMON_TOKEN* tokens = number < made.size() ? made[number].get() : nullptr;
    if (!tokens) tokens = make_chunk(number);
    return &tokens[at & ((size_t{1} << made_bits) - 1)];
  }
  // Makes the token objects of chunk `number` and returns them.
  pANTLR3_COMMON_TOKEN make_chunk(size_t number);
  pANTLR3_COMMON_TOKEN lt(ANTLR3_INT32 k) {
    if (k == 0) return nullptr;
    const int64_t position = k < 0 ? p + k : p + k - 1;
    if (position < 0) return nullptr;
    if (position >= static_cast<int64_t>(entries.size()))
      return &lexer->rec->state->tokSource->eofToken;
    return token_at(position);
  }
  std::string text(uint32_t first, uint32_t last) const;
  pANTLR3_STRING runtime_string(const std::string& text) const;

  static TOKEN_BUFFER& of(pANTLR3_INT_STREAM is);
  static TOKEN_BUFFER& of(pANTLR3_TOKEN_STREAM ts);
  static void consume(pANTLR3_INT_STREAM is);
  static ANTLR3_UINT32 la(pANTLR3_INT_STREAM is, ANTLR3_INT32 i);
  static ANTLR3_MARKER mark(pANTLR3_INT_STREAM is);
  static ANTLR3_MARKER index(pANTLR3_INT_STREAM is);
  static void rewind(pANTLR3_INT_STREAM is, ANTLR3_MARKER marker);
  static void rewind_last(pANTLR3_INT_STREAM is);
  static void release(pANTLR3_INT_STREAM is, ANTLR3_MARKER marker);
  static void seek(pANTLR3_INT_STREAM is, ANTLR3_MARKER index);
  static ANTLR3_UINT32 size(pANTLR3_INT_STREAM is);
  static pANTLR3_COMMON_TOKEN lt(pANTLR3_TOKEN_STREAM ts, ANTLR3_INT32 k);
  static pANTLR3_COMMON_TOKEN get(pANTLR3_TOKEN_STREAM ts, ANTLR3_UINT32 i);
  static pANTLR3_STRING to_string_tt(pANTLR3_TOKEN_STREAM ts, pANTLR3_COMMON_TOKEN start,
                                     pANTLR3_COMMON_TOKEN stop);
  static pANTLR3_STRING to_string_ss(pANTLR3_TOKEN_STREAM ts, ANTLR3_UINT32 start,
                                     ANTLR3_UINT32 stop);
  static void* match(pANTLR3_BASE_RECOGNIZER parser, ANTLR3_UINT32 type,
                     pANTLR3_BITSET_LIST follow);

  const std::string& source;
  pANTLR3_LEXER lexer;
  bool lexed = false;
  CHUNKS<ENTRY, 12> entries;
  std::vector<GAP> gaps;
  std::vector<pANTLR3_INPUT_STREAM> streams;  // by first use
  ANTLR3_COMMON_TOKEN prototype{};            // a lexer token, for the functions it carries
  uint64_t previous_end = 0;                  // offset after the last token lexed
  int64_t p = 0;                              // the entry of LT(1)
  ANTLR3_MARKER last_marker = 0;
  void* (*runtime_match)(pANTLR3_BASE_RECOGNIZER, ANTLR3_UINT32, pANTLR3_BITSET_LIST) = nullptr;
  // Token objects, made a chunk of entries at a time and released when the
  // parser has passed them.
  static constexpr int made_bits = 8;
  std::vector<std::unique_ptr<ANTLR3_COMMON_TOKEN[]>> made;
  size_t first_made = 0;  // chunks before it are released
  std::vector<std::unique_ptr<ANTLR3_COMMON_TOKEN[]>> spare;  // released chunks, for reuse
};

#endif
