// A kernel built straight through the model's API, a stand-in instruction of
// any kind, and the capture of the messages that the model prints.
#ifndef ZLC_TESTS_UNIT_ZELT_MODEL_SUPPORT_H
#define ZLC_TESTS_UNIT_ZELT_MODEL_SUPPORT_H

#include <gtest/gtest.h>

#include <string>

#include "DIAG/diag.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"
#include "tests/unit/string_out.h"

inline const DIAG_SRCINFO_DATA at_line(unsigned line) { return DIAG_SRCINFO_DATA("k.zc", line); }

inline const VPEXPR* sym(const std::string& text) {
  auto* e = new VPEXPR(text);
  e->eval_type = VPEXPR::EVAL_SYMBOLIC;
  return e;
}
inline const VPEXPR* num(long value) { return new VPEXPR(value, VPEXPR::EVAL_SIGNED); }

// An instruction that answers the kind queries as told.
class FAKE_INSTR : public VINSTR {
 public:
  FAKE_INSTR(unsigned line, uint32_t mask, std::string name = "")
      : VINSTR(at_line(line), curr_vcmd), mask(mask), name(std::move(name)) {}

  void analyze(int32_t& count) override { count += words; }
  bool check_if_valid() override { return valid; }
  VLVALUE* lvalue() const override { return lv; }
  std::string to_string() const override { return "FAKE"; }
  uint32_t class_mask() const override { return mask; }
  std::string op_name() const override { return name; }
  VREG* load_dst() const override { return dst; }
  bool is_deinterleave() const override { return pair_load; }

  uint32_t mask;
  std::string name;
  int32_t words = 1;
  bool valid = true;
  VLVALUE* lv = nullptr;
  VREG* dst = nullptr;
  bool pair_load = false;
};

// A fresh kernel; messages printed while a test runs are kept in `err`.
class MODEL_TEST : public testing::Test {
 protected:
  void SetUp() override {
    DIAGNOSTIC::error_count_m = 0;
    kernel = new VKERNEL(out, header);
    curr_vkernel = kernel;
    testing::internal::CaptureStderr();
  }
  void TearDown() override {
    if (!captured) testing::internal::GetCapturedStderr();
    DIAGNOSTIC::error_count_m = 0;
  }
  // The messages so far; ends the capture.
  std::string messages() {
    captured = true;
    return testing::internal::GetCapturedStderr();
  }
  FAKE_INSTR* add(unsigned line, uint32_t mask, const std::string& name = "") {
    auto* instr = new FAKE_INSTR(line, mask, name);
    curr_vcmd->add_instr(instr);
    return instr;
  }

  STRING_OUT out;
  STRING_OUT header;
  VKERNEL* kernel = nullptr;
  bool captured = false;
};

#endif
