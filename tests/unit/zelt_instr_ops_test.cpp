// Operations, pair operations, moves with their conditions, and early exits.
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

TEST_F(OpTest, WhereOperationsStandAndWhatTheyRead) {
  VREG* a = vreg("a");
  VREG* u = vreg("u");
  VREG* x = vreg("x");
  loop(1, "j", num(4));
  load(2, a, VDATA_TYPE::int16);
  op(3, "vadd", x, a, a);
  loop(4, "i", num(8));
  op(5, "vaddh", x, a, u);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 3: error: operations must be inside the innermost loop\n"
            "\"k.zc\", line 5: warning: \"u\" is used before it is initialized; may cause\n"
            "   unexpected behavior\n"
            "\"k.zc\", line 5: warning: The VADDH operation may have unexpected results in 32\n"
            "   bit mode.\n");
  EXPECT_EQ(v()->op_count, 2);
}

TEST_F(OpTest, PairOperations) {
  VREG* a = vreg("a");
  VREG* b = vreg("b");
  VREG* c = vreg("c");
  VREG* d = vreg("d");
  loop(1, "i", num(8));
  load(2, a, VDATA_TYPE::int16);
  load(3, b, VDATA_TYPE::int16);
  v()->clear_curr();
  v()->set_curr_vpair(a, a);
  v()->new_vop2d(at(4), "vswap", b, nullptr);
  v()->clear_curr();
  v()->set_curr_vpair(c, d);
  v()->new_vop2d(at(5), "vminsetf", a, b);
  v()->clear_curr();
  v()->set_curr_vreg(c);
  v()->new_vop2d(at(6), "vsort2", nullptr, nullptr);
  v()->clear_curr();
  v()->set_curr_vpair(b, d);
  v()->new_vop2d(at(7), "vmaxsetf", a, b);
  auto* maxf = dynamic_cast<VOP*>(v()->curr_instr);
  // (c, d) = (a, b).interleave(): the pair moves into (c, d) first.
  v()->clear_curr();
  v()->set_curr_vpair(c, d);
  v()->set_curr_vpair(a, b);
  v()->new_vop2d(at(8), "vintrlv", nullptr, nullptr);
  auto* intrlv = dynamic_cast<VOP*>(v()->curr_instr);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 4: error: identical vectors used in two destination operation\n"
            "\"k.zc\", line 5: error: minf/maxf require first in output pair be the same as\n"
            "   second source\n"
            "\"k.zc\", line 6: error: vreg pair expected\n");
  ASSERT_NE(maxf, nullptr);
  EXPECT_EQ(maxf->dst1, nullptr);
  EXPECT_EQ(maxf->dst2, d);
  EXPECT_EQ(maxf->dst_vregs().back(), b);
  ASSERT_NE(intrlv, nullptr);
  EXPECT_EQ(intrlv->dst1, c);
  EXPECT_EQ(intrlv->dst2, d);
  const auto ops = v()->innermost->get_instrs_of_type(&VINSTR::is_vop);
  ASSERT_EQ(ops.size(), 4u);
  EXPECT_EQ(ops[1]->op_name(), "__zelt_vmove");
  EXPECT_EQ(ops[2]->op_name(), "__zelt_vmove");
  EXPECT_EQ(v()->op_count, 2);  // moves made for a pair are free
  EXPECT_EQ(a->alias_name, "c");
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

TEST_F(OpTest, EarlyExits) {
  VREG* a = vreg("a");
  VREG* u = vreg("u");
  v()->push_rpt(at(1), "r", sym("c"), num(4));
  loop(2, "i", num(8));
  load(3, a, VDATA_TYPE::int16);
  v()->new_vexit(at(4), "done", a, num(1), num(2));
  auto* first = dynamic_cast<VEXIT*>(v()->vexit);
  v()->new_vexit(at(5), "out", u, num(0), nullptr);
  auto* second = dynamic_cast<VEXIT*>(v()->vexit);
  init(6, a, num(0));
  v()->pop_block();
  v()->set_vexit_level(at(7), "done");
  EXPECT_EQ(messages(),
            "\"k.zc\", line 4: error: early exit only supports checking of lane 0 of vector\n"
            "   registers\n"
            "\"k.zc\", line 4: error: comparison operand must be constant 0\n"
            "\"k.zc\", line 5: error: loop can only have one exit instruction, first one is on\n"
            "   line 4\n"
            "\"k.zc\", line 5: warning: \"u\" is used before it is initialized; may cause\n"
            "   unexpected behavior\n"
            "\"k.zc\", line 6: error: vector register \"a\" cannot be defined after operation on\n"
            "   line 3\n"
            "\"k.zc\", line 6: error: no instruction may occur after an early exit\n"
            "\"k.zc\", line 7: error: label does not match \"out\" seen at line 5\n");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(second->level, 1);
  EXPECT_EQ(second->to_string(), "TEXIT");
}

TEST_F(OpTest, ExitLabelsWithoutOrOutsideTheirLoops) {
  VREG* a = vreg("a");
  v()->set_vexit_level(at(1), "x");
  loop(2, "j", num(4));
  loop(3, "i", num(8));
  load(4, a, VDATA_TYPE::int16);
  v()->new_vexit(at(5), "x", a, num(0), num(0));
  v()->pop_block();
  v()->set_vexit_level(at(6), "x");
  EXPECT_EQ(dynamic_cast<VEXIT*>(v()->vexit)->level, 0);
  v()->new_vexit(at(7), "y", a, num(0), nullptr);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 1: error: exit label has no matching goto\n"
            "\"k.zc\", line 7: error: loop can only have one exit instruction, first one is on\n"
            "   line 5\n"
            "\"k.zc\", line 7: error: early exit must be inside either the inner loop or the\n"
            "   foreach loop\n");
  EXPECT_EQ(v()->innermost->instrs.size(), 2u);
}

}  // namespace
