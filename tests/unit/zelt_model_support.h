// A stand-in instruction of any kind, for kernels built straight through the
// model's API.
#ifndef ZLC_TESTS_UNIT_ZELT_MODEL_SUPPORT_H
#define ZLC_TESTS_UNIT_ZELT_MODEL_SUPPORT_H

#include <string>

#include "tests/unit/zelt_instr_support.h"

// An instruction that answers the kind queries as told.
class FAKE_INSTR : public VINSTR {
 public:
  FAKE_INSTR(unsigned line, uint32_t mask, std::string name = "")
      : VINSTR(DIAG_SRCINFO_DATA("k.zc", line), curr_vcmd), mask(mask), name(std::move(name)) {}

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

class MODEL_TEST : public INSTR_TEST {
 protected:
  FAKE_INSTR* add(unsigned line, uint32_t mask, const std::string& name = "") {
    auto* instr = new FAKE_INSTR(line, mask, name);
    curr_vcmd->add_instr(instr);
    return instr;
  }
};

#endif
