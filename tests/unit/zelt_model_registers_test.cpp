// Parameter register slots around alignment and custom blocks, register
// pairs and their manual numbers, dead registers after a pair move.
#include "tests/unit/zelt_model_support.h"

namespace {

using RegisterTest = MODEL_TEST;

TEST_F(RegisterTest, EqualTextSharesASlotOnlyAtEqualWidth) {
  PREG_TABLE& pregs = curr_vcmd->pregs;
  PREG* a = pregs.new_preg("n*2", 1, false);
  EXPECT_EQ(pregs.new_preg("n*2", 1, false), a);
  EXPECT_NE(pregs.new_preg("n*2", 2, false), a);
  EXPECT_EQ(pregs.new_preg("0", 1, false), PREG_ZERO);
  EXPECT_NE(pregs.new_preg("0", 1, true), PREG_ZERO);
  a->number = 9;
  EXPECT_NE(pregs.new_preg("n*2", 1, true), a);
}

TEST_F(RegisterTest, SlotsFillAlignmentHoles) {
  PREG_TABLE& pregs = curr_vcmd->pregs;
  for (auto [text, words] : {std::pair{"a", 1}, {"b", 2}, {"c", 1}})
    pregs.waiting.push_back(pregs.new_preg(text, words, false));
  EXPECT_EQ(pregs.assign_mrs(), 8);
  EXPECT_EQ(pregs.waiting[0]->number, 6);
  EXPECT_EQ(pregs.waiting[1]->number, 8);
  EXPECT_EQ(pregs.waiting[2]->number, 7);  // the hole left by aligning b
}

TEST_F(RegisterTest, CustomBlocksAreSkippedAndCounted) {
  PREG_TABLE& pregs = curr_vcmd->pregs;
  EXPECT_EQ(pregs.next_custom_mr(), 8);
  PREG* cust = pregs.new_preg("_CUSTOM(cust_arr0)", 2, false);
  cust->add_cust_arr("{1, 2}", "cust_arr0");
  pregs.set_custom_mr(cust, 8);
  EXPECT_EQ(pregs.cust_search("{1, 2}"), cust);
  EXPECT_EQ(pregs.cust_search("{2, 1}"), nullptr);
  for (auto [text, words] : {std::pair{"a", 2}, {"d", 1}, {"e", 2}, {"f", 1}})
    pregs.waiting.push_back(pregs.new_preg(text, words, false));
  EXPECT_EQ(pregs.assign_mrs(), 12);
  EXPECT_EQ(cust->number, 8);
  EXPECT_EQ(pregs.waiting[0]->number, 6);
  EXPECT_EQ(pregs.waiting[1]->number, 10);  // past the block at 8
  EXPECT_EQ(pregs.waiting[2]->number, 12);
  EXPECT_EQ(pregs.waiting[3]->number, 11);
  EXPECT_EQ(pregs.next_custom_mr(), 16);
  EXPECT_EQ(pregs.next_custom_mr(), 24);
  EXPECT_EQ(pregs.next_custom_mr(), -1);
  EXPECT_EQ(pregs.next_custom_mr(), -1);
}

TEST_F(RegisterTest, ALoneCustomBlockSetsTheCount) {
  PREG_TABLE& pregs = curr_vcmd->pregs;
  pregs.new_preg("x", 1, false);
  pregs.set_custom_mr(pregs.new_preg("_CUSTOM(p)", 2, false), pregs.next_custom_mr());
  EXPECT_EQ(pregs.assign_mrs(), 10);
}

TEST_F(RegisterTest, PairsAndTheirManualNumbers) {
  VREG* a = kernel->new_vreg(at_line(1), "a", VDATA_TYPE::untyped);
  VREG* b = kernel->new_vreg(at_line(2), "b", VDATA_TYPE::untyped);
  VREG* c = kernel->new_vreg(at_line(3), "c", VDATA_TYPE::untyped);
  a->set_pair_partner(b, at_line(4));
  a->set_pair_partner(b, at_line(5));
  EXPECT_EQ(b->pair_partner(), a);
  EXPECT_EQ(a->pair_partner(), b);
  a->set_pair_partner(c, at_line(6));
  c->set_pair_partner(c, at_line(7));

  // Only the first of a known pair given: the partner completes it.
  curr_vcmd->set_curr_vreg(a);
  EXPECT_TRUE(curr_vcmd->check_pair_status(true, at_line(8)));
  EXPECT_EQ(curr_vcmd->curr_vreg2, b);
  EXPECT_FALSE(curr_vcmd->check_pair_status(false, at_line(9)));
  curr_vcmd->set_curr_vreg(c);
  EXPECT_FALSE(curr_vcmd->check_pair_status(true, at_line(10)));

  VREG* v4 = kernel->lookup_vreg("V4");
  VREG* v3 = kernel->lookup_vreg("V3");
  VREG* d = kernel->new_vreg(at_line(11), "d", VDATA_TYPE::untyped);
  curr_vcmd->set_curr_vpair(v4, d);
  EXPECT_TRUE(curr_vcmd->check_pair_status(true, at_line(12)));
  EXPECT_EQ(d->number, 5);
  curr_vcmd->set_curr_vreg(nullptr);
  curr_vcmd->set_curr_vpair(v3, kernel->new_vreg(at_line(13), "e", VDATA_TYPE::untyped));
  EXPECT_FALSE(curr_vcmd->check_pair_status(true, at_line(14)));
  EXPECT_EQ(messages(),
            "\"k.zc\", line 6: error: \"a\" cannot be the first register in a pair with c\n"
            "\"k.zc\", line 7: error: \"c\" cannot be the first register in a pair with c\n"
            "\"k.zc\", line 9: error: unexpected vreg pair\n"
            "\"k.zc\", line 10: error: vreg pair expected\n"
            "\"k.zc\", line 12: warning: \"d\" will be allocated to V5, make sure V5 is not used\n"
            "   elsewhere\n"
            "\"k.zc\", line 14: error: register V3 is invalid, must be even\n");
}

TEST_F(RegisterTest, MovedPairLeavesDeadNames) {
  for (const char* name : {"a", "b", "c", "d"})
    kernel->new_vreg(at_line(1), name, VDATA_TYPE::untyped);
  VCMD* vcmd = curr_vcmd;
  vcmd->set_curr_vpair(kernel->lookup_vreg("a"), kernel->lookup_vreg("b"));
  vcmd->set_curr_vpair(kernel->lookup_vreg("c"), kernel->lookup_vreg("d"));
  EXPECT_EQ(vcmd->saved_vreg->name, "a");
  EXPECT_EQ(kernel->vregs.all_aliased_regs().size(), 2u);
  EXPECT_NE(vcmd->lookup_vreg("c", at_line(2), true), nullptr);
  vcmd->lookup_vreg("d", at_line(3), false);
  vcmd->push_block(at_line(4), "i", num(8));
  vcmd->pop_block();
  EXPECT_TRUE(kernel->vregs.all_aliased_regs().empty());
  EXPECT_EQ(messages(),
            "\"k.zc\", line 2: warning: vector register \"c\" is dead here, did you mean \"a\"?\n");
}

TEST_F(RegisterTest, TypeFromAReference) {
  VREG* v = kernel->new_vreg(at_line(1), "v", VDATA_TYPE::untyped);
  VLVALUE lv;
  lv.type = VDATA_TYPE::uint16;
  v->set_type_from_lvalue(&lv);
  EXPECT_EQ(v->type, VDATA_TYPE::untyped);
  lv.type = VDATA_TYPE::int8;
  v->set_type_from_lvalue(&lv);
  EXPECT_EQ(v->type, VDATA_TYPE::int32);
  lv.type = VDATA_TYPE::uint32;
  v->set_type_from_lvalue(&lv);
  EXPECT_EQ(v->type, VDATA_TYPE::int32);
}

}  // namespace
