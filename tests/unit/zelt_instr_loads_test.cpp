// Loads and inits: custom point tables and their slots, and the register and
// type that an init value chooses.
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vload.h"
#include "tests/unit/zelt_instr_support.h"

namespace {

using LoadTest = INSTR_TEST;

TEST_F(LoadTest, CustomTablesShareSlotsUpToThree) {
  VREG* a = vreg("a");
  loop(1, "i", num(8));
  auto custom = [&](unsigned line, std::initializer_list<long> points) {
    v()->clear_curr();
    v()->set_curr_vreg(a);
    ref(line, VDATA_TYPE::int16);
    v()->new_vload(at(line));
    for (long p : points) v()->add_cust_pexpr(num(p));
    v()->set_vload_dist(VLOAD::CUSTOM);
    return dynamic_cast<VLOAD*>(v()->curr_instr)->cust_preg;
  };
  PREG* first = custom(2, {0, 1, 2, 3, 4, 5, 6, 15});
  PREG* again = custom(3, {0, 1, 2, 3, 4, 5, 6, 15});
  PREG* second = custom(4, {1, 16, 17});
  PREG* third = custom(5, {2, 2});
  PREG* fourth = custom(6, {3, 3});
  custom(7, {});
  v()->clear_curr();
  v()->set_curr_vreg(a);
  ref(8, VDATA_TYPE::int16);
  v()->new_vload(at(8));
  v()->add_cust_pexpr(num(7));
  v()->set_vload_dist(VLOAD::CUSTOM);
  PREG* pointer = dynamic_cast<VLOAD*>(v()->curr_instr)->cust_preg;
  EXPECT_EQ(messages(),
            "\"k.zc\", line 4: error: multi-argument custom requires all values to be 4-bit\n"
            "   constants\n"
            "\"k.zc\", line 6: error: too many unique custom distributions\n"
            "\"k.zc\", line 7: error: .dist() arguments must be either 8 constants or one\n"
            "   pointer to such\n"
            "\"k.zc\", line 8: error: single-argument custom requires a pointer to an array of\n"
            "   integers\n"
            "\"k.zc\", line 8: error: too many unique custom distributions\n");
  EXPECT_EQ(first, again);
  EXPECT_EQ(first->number, 8);
  EXPECT_EQ(first->cust_text, "{0, 1, 2, 3, 4, 5, 6, 15}");
  EXPECT_EQ(first->nregs, 2);
  EXPECT_EQ(second->number, 16);
  EXPECT_EQ(third->number, 24);
  EXPECT_EQ(fourth->number, -1);
  EXPECT_EQ(pointer->text, "_CUSTOM(7)");
}

TEST_F(LoadTest, InitValuesChooseRegisterAndType) {
  VREG* r[5] = {vreg("a"), vreg("b"), vreg("c"), vreg("d"), vreg("e")};
  loop(1, "j", num(4));
  loop(2, "i", num(8));
  auto* unsigned_big = new VPEXPR(0x10000, VPEXPR::EVAL_UNSIGNED);
  const VINIT* inits[5] = {
      dynamic_cast<VINIT*>(init(3, r[0], sym("j"))),
      dynamic_cast<VINIT*>(init(4, r[1], unsigned_big)),
      dynamic_cast<VINIT*>(init(5, r[2], num(-32768))),
      dynamic_cast<VINIT*>(init(6, r[3], num(32768))),
      dynamic_cast<VINIT*>(init(7, r[4], sym("n * 2"))),
  };
  EXPECT_EQ(messages(), "");
  EXPECT_EQ(inits[0]->preg->number, 64 + 3);  // the outer of two levels is level 3
  EXPECT_EQ(inits[0]->type, VDATA_TYPE::uint16);
  EXPECT_EQ(inits[1]->type, VDATA_TYPE::uint32);
  EXPECT_EQ(inits[1]->preg->nregs, 2);
  EXPECT_EQ(inits[2]->type, VDATA_TYPE::int16);
  EXPECT_EQ(inits[2]->preg->nregs, 1);
  EXPECT_EQ(inits[3]->type, VDATA_TYPE::int32);
  EXPECT_EQ(inits[4]->type, VDATA_TYPE::int32);
  EXPECT_EQ(inits[4]->preg->text, "n * 2");
  EXPECT_EQ(v()->init_count, 5);
}

}  // namespace
