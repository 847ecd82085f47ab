// Vector operations named by their word, register moves that may depend on
// the position in the loop nest, and the early exit of a loop.
#ifndef ZLC_ZELT_ZLC_VOP_H
#define ZLC_ZELT_ZLC_VOP_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "ZELT_ZLC/vblock.h"

class PREG;
class VPEXPR;
class VREG;

class VOP : public VINSTR {
 public:
  enum ROUND_MODE : int32_t { RM_NONE = 0, RM_ROUND = 1, RM_TRUNC = 2, RM_SHIFT = 3 };

  // `name` is the full word, "__zelt_vadd".
  VOP(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, std::string name)
      : VINSTR(srcinfo, vcmd), name(std::move(name)) {}

  void analyze(int32_t& count) override;
  bool check_if_valid() override;
  std::string to_string() const override { return "VOP " + name; }
  uint32_t class_mask() const override { return IC_VOP; }
  std::string op_name() const override { return name; }

  std::vector<VREG*> src_vregs() const { return {src1, src2, src3}; }
  // The registers written; the third source of a three-source operation is
  // one of them.
  std::vector<VREG*> dst_vregs() const;
  // Only multiplications take a rounding.
  bool needs_rounding() const;
  // Gives the operation its rounding parameter; `text` is the source of
  // `value`.
  void set_round(ROUND_MODE mode, const std::string& text, int32_t value);

  std::string name;
  VREG* dst1 = nullptr;
  VREG* dst2 = nullptr;
  VREG* src1 = nullptr;
  VREG* src2 = nullptr;
  VREG* src3 = nullptr;
  PREG* round_preg = nullptr;
  ROUND_MODE round_mode = RM_NONE;
  int32_t round_value = 0;

 protected:
  // Definitions of the sources and of the destinations, shared by moves.
  bool check_vregs();
};

// dst1 = src1, under conditions on loop variables.
class VMOVE : public VOP {
 public:
  // How the conditions compare loop variables.
  enum USER_MOVE_POS : int32_t {
    MP_ZERO = 0,       // with zero
    MP_TRIPCOUNT = 1,  // with the trip count: last(i, n)
    MP_UNKNOWN = 2,
    MP_ERROR = 3,  // a mix, already reported
  };

  // Stands until the loop closes; only then the position of the move is
  // known, and with it its real word.
  static constexpr const char* temp_name = "MOV_TEMP_NAME";

  VMOVE(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VREG* dst, VREG* src, int32_t pos)
      : VOP(srcinfo, vcmd, temp_name), pos(static_cast<USER_MOVE_POS>(pos)) {
    dst1 = dst;
    src1 = src;
  }

  void analyze(int32_t& count) override;
  bool check_if_valid() override { return check_vregs(); }
  std::string to_string() const override { return "VMOVE"; }
  uint32_t class_mask() const override { return IC_VOP | IC_VMOVE; }

  // The levels of `mask`, one bit per normalised level, as the condition.
  void set_cond(uint32_t mask);

  std::string cond;  // the levels of the condition, "i34"
  USER_MOVE_POS pos;
  std::map<std::string, const VPEXPR*> conds;  // loop variable to compared value
};

// Leaves the loop when lane 0 of src1 is non-zero.
class VEXIT : public VOP {
 public:
  VEXIT(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VREG* vreg, std::string label)
      : VOP(srcinfo, vcmd, "__zelt_vexitnz"), label(std::move(label)) {
    src1 = vreg;
  }

  bool check_if_valid() override;
  std::string to_string() const override { return "TEXIT"; }
  uint32_t class_mask() const override { return IC_VOP | IC_VEXIT; }
  int32_t exit_level() const override { return level; }
  void set_ctrl_index(int32_t index) override { ctrl_index = index; }

  int32_t level = 2;  // 0 the vector loop, 1 the `foreach`, 2 not set
  std::string label;
  int32_t ctrl_index = -1;
};

#endif
