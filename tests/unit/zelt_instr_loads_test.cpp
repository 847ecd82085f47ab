// Loads and inits: definitions of registers, generator depths, pairs, the
// distributions of each loop kind and custom point tables.
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vload.h"
#include "tests/unit/zelt_instr_support.h"

namespace {

using LoadTest = INSTR_TEST;

TEST_F(LoadTest, InitBeforeLoadPassesButNotAfter) {
  VREG* a = vreg("a");
  VREG* b = vreg("b");
  loop(2, "i", sym("n"));
  init(3, a, num(3));
  VINSTR* la = load(4, a, VDATA_TYPE::int16);
  load(5, b, VDATA_TYPE::uint8);
  init(6, b, num(1));
  op(7, "vadd", a, a, b);
  load(8, a, VDATA_TYPE::int16);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 6: error: vector register \"b\" cannot be defined after operation on\n"
            "   line 5\n"
            "\"k.zc\", line 8: error: vector register \"a\" cannot be defined after operation on\n"
            "   line 7\n");
  EXPECT_EQ(v()->innermost->instrs.size(), 4u);
  EXPECT_EQ(a->type, VDATA_TYPE::int32);  // from the signed reference
  EXPECT_EQ(b->type, VDATA_TYPE::untyped);
  EXPECT_TRUE(b->load_target);
  EXPECT_EQ(v()->load_count, 3);
  (void)la;
}

TEST_F(LoadTest, GeneratorDepthDecidesWhereALoadMayStand) {
  VREG* a[4] = {vreg("a"), vreg("b"), vreg("c"), vreg("d")};
  loop(1, "j", num(4));
  loop(2, "i", num(8));
  AGEN* outer = v()->new_agen(at(3), "O");
  outer->has_init = true;
  outer->strides[1] = num(16);
  outer->deepest_depth = 1;
  AGEN* none = v()->new_agen(at(3), "Z");
  none->has_init = true;
  AGEN* undef = v()->new_agen(at(3), "U");
  AGEN* inner = v()->new_agen(at(3), "I");
  inner->has_init = true;
  inner->strides[2] = num(1);
  inner->deepest_depth = 2;
  load(4, a[0], VDATA_TYPE::int16, 0, nullptr, outer);
  load(5, a[1], VDATA_TYPE::int16, 0, nullptr, none);
  load(6, a[2], VDATA_TYPE::int16, 0, nullptr, undef);
  load(7, a[3], VDATA_TYPE::int16, 0, nullptr, inner);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 4: error: load must be placed at the loop depth defined by the\n"
            "   variable \"j\"\n"
            "\"k.zc\", line 5: error: load must be placed outside the for loop structure since\n"
            "   \"Z\" is 0\n"
            "\"k.zc\", line 6: error: address generator \"U\" is uninitialized\n");
  EXPECT_EQ(v()->innermost->instrs.size(), 1u);
}

TEST_F(LoadTest, DeinterleaveOfWordsFailsOnTypeAndPair) {
  VREG* a = vreg("a");
  VREG* b = vreg("b");
  VREG* c = vreg("c");
  loop(1, "i", num(8));
  init(2, b, num(0));
  load(3, a, VDATA_TYPE::int32, VLOAD::DEINTERLEAVE);
  load(4, c, VDATA_TYPE::int16, VLOAD::DEINTERLEAVE, b);
  load(5, kernel->lookup_vreg("V3"), VDATA_TYPE::int16);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 3: error: distribution mode does not support word (32-bit) type\n"
            "\"k.zc\", line 3: error: vreg pair expected\n"
            "\"k.zc\", line 5: error: register V3 is invalid, must be even\n");
  // The pair's second register counts as written by the load.
  EXPECT_TRUE(v()->find_vreg_instr(b)->is_vload());
  EXPECT_EQ(c->pair_partner(), b);
}

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

TEST_F(LoadTest, SpecialLoadsOutsideTheirLoops) {
  VREG* a = vreg("a");
  VREG* f = vreg("f");
  loop(1, "i", num(8));
  v()->set_curr_vreg(a);
  ref(2, VDATA_TYPE::uint8);
  v()->add_expand_vload(at(2), f);
  v()->add_hist_update(at(3), a, f);
  v()->add_table_lookup(at(4), a);
  load(5, a, VDATA_TYPE::uint8, VLOAD::WEIGHT_LOAD);
  load(6, f, VDATA_TYPE::uint8, VLOAD::NBITS);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 2: error: table lookup instructions are not allowed in the this\n"
            "   loop\n"
            "\"k.zc\", line 3: error: histogram instructions are not allowed in this loop\n"
            "\"k.zc\", line 4: error: table lookup instructions are not allowed in the this\n"
            "   loop\n"
            "\"k.zc\", line 5: error: weight load distribution is only allowed in histogram\n"
            "   loop\n");
}

}  // namespace
