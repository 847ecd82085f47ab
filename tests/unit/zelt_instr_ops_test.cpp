// Operations: the rounding parameters of multiplications, and the operands
// of a multiply-subtract.
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vop.h"
#include "tests/unit/zelt_instr_support.h"

namespace {

using OpTest = INSTR_TEST;

TEST_F(OpTest, RoundingOnlyOnMultiplications) {
  VREG* a = vreg("a");
  VREG* x = vreg("x");
  loop(1, "i", num(8));
  load(2, a, VDATA_TYPE::int16);
  auto* mpy = dynamic_cast<VOP*>(op(3, "vmpy", x, a, a));
  v()->set_vop_round(VOP::RM_ROUND, num(15));
  op(4, "vmpy", x, a, a);
  v()->set_vop_round(VOP::RM_ROUND, num(7));
  op(5, "vadd", x, a, a);
  v()->set_vop_round(VOP::RM_SHIFT, num(2));
  op(6, "vmpy", x, a, a);
  v()->set_vop_round(VOP::RM_TRUNC, sym("s"));
  auto* plain = dynamic_cast<VOP*>(op(7, "vmadd", x, a, a, x));
  op(8, "vmsub", x, a, a, a);
  v()->pop_block();
  EXPECT_EQ(messages(),
            "\"k.zc\", line 4: error: 7 is not a valid round/trunc value, must be one of {8,\n"
            "   15, 16}\n"
            "\"k.zc\", line 5: error: 2 is not a valid left shift value, must be 1\n"
            "\"k.zc\", line 5: error: cannot set rounding options on __zelt_vadd\n"
            "\"k.zc\", line 6: error: operation rounding parameter \"s\" is non-constant\n"
            "\"k.zc\", line 8: error: vmsub: destination register must be the third source\n"
            "   register\n");
  EXPECT_EQ(mpy->round_preg->text, "__zelt_vop_round(1, 15)");
  EXPECT_EQ(mpy->round_value, 15);
  // The default round parameter comes with the loop's analysis.
  EXPECT_EQ(plain->round_preg, PREG_ZERO);
  EXPECT_EQ(plain->dst1, nullptr);
  EXPECT_EQ(plain->dst_vregs()[2], x);
}

}  // namespace
