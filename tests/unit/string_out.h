// Generated text written to a string, for comparison.
#ifndef ZLC_TESTS_UNIT_STRING_OUT_H
#define ZLC_TESTS_UNIT_STRING_OUT_H

#include <sstream>
#include <string>

#include "ZELT_ZLC/text_out.h"

struct STRING_STREAM {
  std::ostringstream text;
};

// The stream comes first, so that it exists before the writer is made.
class STRING_OUT : private STRING_STREAM, public TEXT_OUT {
 public:
  STRING_OUT() : TEXT_OUT(text) {}
  // Everything written so far.
  std::string str() {
    flush();
    return text.str();
  }
};

#endif
