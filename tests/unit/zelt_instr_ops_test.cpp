// Operations: rounding parameters of multiplications, and moves with their
// conditions.
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

TEST_F(OpTest, MoveConditionsByLevel) {
  VREG* a = vreg("a");
  VREG* x = vreg("x");
  loop(1, "j", sym("m"));
  loop(2, "i", sym("n"));
  load(3, a, VDATA_TYPE::int16);
  auto move = [&](unsigned line, VREG* dst, VREG* src,
                  std::initializer_list<std::tuple<const char*, const VPEXPR*, int>> conds) {
    v()->clear_curr();
    for (const auto& [lcv, value, pos] : conds) v()->add_vmove_lcv(at(line), lcv, value, pos);
    v()->new_vmove(at(line), dst, src);
    return dynamic_cast<VMOVE*>(v()->curr_instr);
  };
  VMOVE* plain = move(4, x, a, {});
  VMOVE* inner = move(5, x, a, {{"i", sym("(n)"), 1}});
  VMOVE* both = move(6, x, a, {{"i", num(0), 0}, {"j", num(0), 0}});
  VMOVE* outer = move(7, x, a, {{"j", sym("m"), 1}});
  move(8, x, a, {{"i", num(0), 0}, {"j", sym("m"), 1}, {"j", num(0), 0}});
  move(9, x, a, {{"k", num(0), 0}});
  move(10, x, a, {{"i", sym("n + 1"), 1}});
  move(11, x, a, {{"i", num(2), 0}});
  move(12, x, x, {});
  v()->pop_block();
  v()->pop_block();
  EXPECT_EQ(messages(),
            "\"k.zc\", line 8: error: cannot mix comparisons to tripcounts and zero in\n"
            "   conditional moves\n"
            "\"k.zc\", line 9: error: \"k\" is not a valid loop variable\n"
            "\"k.zc\", line 12: warning: moving vector register \"x\" into itself\n"
            "\"k.zc\", line 7: error: conditional move constraints are not supported by the\n"
            "   hardware\n"
            "\"k.zc\", line 10: error: expression does not match tripcount of loop using lcv\n"
            "   \"i\"\n"
            "\"k.zc\", line 11: error: loop variable can only be directly compared to 0, did\n"
            "   you mean\n   last(i,n) or (i == 0)?\n");
  EXPECT_EQ(plain->name, VMOVE::temp_name);
  EXPECT_EQ(inner->cond, "i4");
  EXPECT_EQ(inner->name, "__zelt_vcmov");
  EXPECT_EQ(both->cond, "i1234");
  EXPECT_EQ(outer->cond, "");
  EXPECT_EQ(kernel->vcmds.back()->op_count, 8);
}

}  // namespace
