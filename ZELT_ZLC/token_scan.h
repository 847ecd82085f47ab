// The token that the lexer makes at a position, found directly for the
// plain cases: words (keywords and identifiers), decimal integers without a
// suffix, operators and punctuation, and complete comments.  Everything else
// (numbers that may be octal, hexadecimal, suffixed or floating, strings,
// characters, "#line", characters that start no token, and every lexer
// error) is left to the lexer itself.
#ifndef ZLC_ZELT_ZLC_TOKEN_SCAN_H
#define ZLC_ZELT_ZLC_TOKEN_SCAN_H

#include <cstddef>
#include <cstdint>

struct SCANNED_TOKEN {
  uint32_t type = 0;   // 0: left to the lexer
  size_t length = 0;
  bool hidden = false; // a comment
};

// The token that starts at `at`, which lies before `end`.
SCANNED_TOKEN scan_token(const char* at, const char* end);

#endif
