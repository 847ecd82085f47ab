// Rounding and saturation of a vector register on its way to memory, and
// the rounding of a multiplication.
#ifndef ZLC_TRANSLATE_TROUND_SAT_H
#define ZLC_TRANSLATE_TROUND_SAT_H

#include <cstdint>
#include <string>
#include <vector>

#include "ZELT_ZLC/round_sat.h"
#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vop.h"
#include "translate/tinstr.h"

class TCMD;

class TROUND : public TINSTR {
 public:
  enum MODE : int32_t { NONE = 0, ROUND = 1, TRUNCATE = 2, SHIFT = 3 };

  TROUND(VREG* reg, int32_t mode, TEXPR* bits) : reg(reg), mode(mode), bits(bits) {}

  void format(TEXT_OUT& out) const override;
  std::vector<VREG*> dst_regs() const override { return {reg}; }
  std::vector<VREG*> src_regs() const override { return {reg}; }
  std::string instr_string() const override { return "ROUND"; }
  bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) override;

  // The mode of a memory instruction's rounding, and of an operation's.
  static int32_t translate(ROUND_SAT::ROUND_MODE mode);
  static int32_t translate(VOP::ROUND_MODE mode);

  VREG* reg;
  int32_t mode;
  TEXPR* bits;
};

class TSAT : public TINSTR {
 public:
  enum KIND : int32_t { SIGNED_WIDTH = 0, UNSIGNED_WIDTH = 1, RANGE = 2, RANGE4 = 3 };

  // The bounds of `rs` as operands; constant bounds that describe a full
  // signed or unsigned bit width become the width form.
  TSAT(TCMD& cmd, VREG* reg, ROUND_SAT& rs, const VDATA_TYPE& type);

  // Nothing when the saturation is unneeded.
  void format(TEXT_OUT& out) const override;
  std::vector<VREG*> dst_regs() const override { return {reg}; }
  std::vector<VREG*> src_regs() const override { return {reg}; }
  std::string instr_string() const override { return "SAT"; }
  // The range of the bounds: the tests for the two-bound kinds, the values
  // set for the four-bound kind.
  bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) override;

  // The bit width that the bounds span, or 0.  The bounds -1 and 0 give 2.
  static int32_t bounds_are_bit_width(int64_t min, int64_t max);

  int32_t kind = RANGE;
  VREG* reg;
  VDATA_TYPE type;  // of the memory operand
  TEXPR* lo_test = nullptr;
  TEXPR* lo_set = nullptr;
  TEXPR* hi_test = nullptr;
  TEXPR* hi_set = nullptr;
  int32_t width = 0;
  bool unneeded = false;
};

#endif
