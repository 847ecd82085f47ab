// Vector loops: induction of generator increments, trip-count registers and
// definitions seen across loops.
#include "tests/unit/zelt_model_support.h"

namespace {

using LoopTest = MODEL_TEST;

TEST_F(LoopTest, InductionSubtractsWhatDeeperLoopsAdded) {
  VCMD* vcmd = curr_vcmd;
  vcmd->push_block(at(1), "j", num(10));
  vcmd->push_block(at(2), "i", sym("N"));
  AGEN* a = vcmd->new_agen(at(3), "A");
  a->has_init = true;
  a->strides[2] = VPEXPR::one;
  a->strides[1] = sym("w");
  a->deepest_depth = 2;
  AGEN* zero = vcmd->new_agen(at(4), "Z");
  zero->has_init = true;
  vcmd->pop_block();
  vcmd->pop_block();
  EXPECT_EQ(kernel->vcmds.size(), 1u);
  ASSERT_NE(a->increments[1], nullptr);
  EXPECT_EQ(a->increments[2], PREG_ONE);
  EXPECT_EQ(a->increments[1]->text, "(w) -(1)*((N)-1)");
  EXPECT_EQ(a->condition, 2);
  EXPECT_FALSE(zero->has_incr());
  EXPECT_EQ(vcmd->innermost->agens.num_agens(), 1);
  EXPECT_EQ(a->number, 0);
  EXPECT_EQ(zero->number, 1);
}

TEST_F(LoopTest, ConstantIncrementOfZeroMakesLoadsConditional) {
  VCMD* vcmd = curr_vcmd;
  VREG* v = kernel->new_vreg(at(1), "v", VDATA_TYPE::untyped);
  v->alias_name = "w";
  vcmd->push_block(at(2), "j", num(4));
  vcmd->push_block(at(3), "i", num(4));
  AGEN* a = vcmd->new_agen(at(4), "A");
  a->has_init = true;
  a->strides[2] = num(4);
  a->strides[1] = num(12);
  a->deepest_depth = 2;
  FAKE_INSTR* load = add(5, VINSTR::IC_VLOAD);
  load->lv = vcmd->new_vlvalue(at(5), sym("p"), nullptr, nullptr, nullptr, a,
                               VDATA_TYPE::int16);
  load->dst = v;
  vcmd->pop_block();
  vcmd->pop_block();
  ASSERT_NE(a->increments[1], nullptr);
  EXPECT_EQ(a->increments[1]->text, "0");
  EXPECT_EQ(a->condition, 1);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 5: warning: register of conditional load aliased; performance may\n"
            "   suffer\n   unless the --zelt_unconditional_loads option is supplied\n");
}

TEST_F(LoopTest, ForeachAndTripCountRegisters) {
  VCMD* vcmd = curr_vcmd;
  vcmd->push_rpt(at(1), "r", sym("n"), sym("m"));
  vcmd->push_block(at(2), "i", sym("N"));
  EXPECT_EQ(vcmd->vrpt->depth, -1);
  EXPECT_EQ(vcmd->innermost->depth, 0);
  EXPECT_EQ(vcmd->tripcount_expr(2)->value64(), 1);
  EXPECT_EQ(vcmd->rpt_max(), 1);
  vcmd->pop_block();
  vcmd->pop_block();
  EXPECT_EQ(vcmd->pregs.by_number.at(5)->text, "(N)-1");
  for (int n = 2; n <= 4; ++n) EXPECT_EQ(vcmd->pregs.by_number.at(n)->text, "0");
  EXPECT_EQ(messages(), "\"k.zc\", line 1: error: foreach maximum iterations \"m\" is not constant\n");
}

TEST_F(LoopTest, LaterLoopsSeeDefinitionsOfEarlierOnes) {
  VREG* v = kernel->new_vreg(at(1), "v", VDATA_TYPE::untyped);
  VREG* w = kernel->new_vreg(at(1), "w", VDATA_TYPE::untyped);
  curr_vcmd->push_block(at(2), "i", num(4));
  FAKE_INSTR* store = add(3, VINSTR::IC_VSTORE);
  curr_vcmd->vreg_instrs[v] = store;
  curr_vcmd->pop_block();
  curr_vcmd->push_block(at(4), "i", num(4));
  FAKE_INSTR* init = add(5, VINSTR::IC_VINIT);
  curr_vcmd->vreg_instrs[w] = init;
  curr_vcmd->vreg_instrs[v] = add(6, VINSTR::IC_VSTORE);
  curr_vcmd->pop_block();
  EXPECT_EQ(kernel->find_vreg_instr(v), store);
  EXPECT_EQ(kernel->find_vreg_instr(w), init);
  curr_vcmd->push_block(at(7), "i", num(4));
  curr_vcmd->pop_block();
  EXPECT_EQ(kernel->find_vreg_instr(v), store);
}

}  // namespace
