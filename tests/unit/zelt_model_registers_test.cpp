// Parameter register slots around alignment and custom blocks, and the type
// of a register from a reference.
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

TEST_F(RegisterTest, TypeFromAReference) {
  VREG* v = kernel->new_vreg(at(1), "v", VDATA_TYPE::untyped);
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
