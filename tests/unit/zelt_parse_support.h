// Runs the kernel-language parser over a text and captures what it prints.
#ifndef ZLC_TESTS_UNIT_ZELT_PARSE_SUPPORT_H
#define ZLC_TESTS_UNIT_ZELT_PARSE_SUPPORT_H

#include <gtest/gtest.h>

#include <string>

#include "DIAG/diag.h"
#include "ZELT_ZLC/antlr_if.h"

struct PARSE_RESULT {
  std::string err;  // everything printed on the standard error stream
  int errors;       // errors counted by the diagnostics
};

inline PARSE_RESULT parse_text(const std::string& text, const char* file = "k.zc") {
  std::string source = text;
  DIAGNOSTIC::error_count_m = 0;
  testing::internal::CaptureStderr();
  {
    ANTLR_INTERFACE ai(source, file);
    ai.invoke();
  }
  PARSE_RESULT result{testing::internal::GetCapturedStderr(), DIAGNOSTIC::error_count_m};
  DIAGNOSTIC::error_count_m = 0;
  return result;
}

#endif
