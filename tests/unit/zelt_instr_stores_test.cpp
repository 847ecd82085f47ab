// Stores: predicate and scatter register numbers, and rounding and
// saturation on the way to memory.
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vstore.h"
#include "tests/unit/zelt_instr_support.h"

namespace {

using StoreTest = INSTR_TEST;

TEST_F(StoreTest, PredicateAndScatterRegisterNumbers) {
  VREG* a = vreg("a");
  loop(1, "i", num(8));
  VREG* regs[4] = {kernel->lookup_vreg("V0"), kernel->lookup_vreg("V4"),
                   kernel->lookup_vreg("V2"), vreg("f")};
  for (unsigned i = 0; i < 4; ++i) init(2, regs[i], num(1));
  load(3, a, VDATA_TYPE::int16);
  for (unsigned i = 0; i < 4; ++i) {
    begin_store(10 + i, VDATA_TYPE::int16);
    v()->set_vstore_pred(regs[i]);
    end_store(a);
  }
  begin_store(20, VDATA_TYPE::int16, VSTORE::S_SCATTER, regs[2]);
  end_store(a);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 10: error: register V0 is invalid, must be between V1 and V3\n"
            "\"k.zc\", line 11: error: register V4 is invalid, must be between V1 and V3\n"
            "\"k.zc\", line 20: error: allocated register \"V2\" must be left unallocated or\n"
            "   allocated to V0\n");
  EXPECT_EQ(v()->store_count, 5);
  EXPECT_EQ(v()->innermost->get_instrs_of_type(&VINSTR::is_vstore).size(), 2u);
}

// The saturation mode of `.saturate(lo, hi)` on a reference of `type`.
struct SAT_CASE {
  VDATA_TYPE type;
  const VPEXPR* lo;
  const VPEXPR* hi;
  ROUND_SAT::SAT_MODE mode;
};

TEST_F(StoreTest, SaturationModeFromBounds) {
  const SAT_CASE cases[] = {
      {VDATA_TYPE::int16, num(-128), num(127), ROUND_SAT::SM_ASYMM},
      {VDATA_TYPE::int16, num(-127), num(127), ROUND_SAT::SM_SYMM},
      {VDATA_TYPE::int16, num(-127), num(125), ROUND_SAT::SM_4PARAM},
      {VDATA_TYPE::int32, num(-40000), num(39999), ROUND_SAT::SM_ASYMM32},
      {VDATA_TYPE::int32, num(-40000), num(40000), ROUND_SAT::SM_SYMM32},
      {VDATA_TYPE::int16, sym("-m"), num(5), ROUND_SAT::SM_4PARAM},
      {VDATA_TYPE::uint16, num(0), num(65535), ROUND_SAT::SM_SYMM},
      {VDATA_TYPE::uint16, num(0), num(65536), ROUND_SAT::SM_SYMM32},
      {VDATA_TYPE::uint16, num(0), sym("m"), ROUND_SAT::SM_SYMM32},
      {VDATA_TYPE::uint16, num(1), num(10), ROUND_SAT::SM_4PARAM},
      {VDATA_TYPE::int16, num(5), num(-5), ROUND_SAT::SM_4PARAM},
  };
  for (const SAT_CASE& c : cases) {
    ref(3, c.type);
    EXPECT_EQ(v()->determine_sat_mode(c.lo, c.hi), c.mode) << c.lo->text << ", " << c.hi->text;
  }
  EXPECT_EQ(messages(),
            "warning: Negative SYMM/ASYMM bound is undefined, defaulting to 4PARAM\n");
}

TEST_F(StoreTest, SaturationBoundsAndParameters) {
  VREG* a = vreg("a");
  loop(1, "i", num(8));
  load(2, a, VDATA_TYPE::int16);
  auto saturated = [&](unsigned line, VDATA_TYPE type, const VPEXPR* x, const VPEXPR* y,
                       const VPEXPR* z = nullptr, const VPEXPR* w = nullptr) {
    begin_store(line, type);
    v()->set_vmem_sat(x, y, z, w);
    VINSTR* store = end_store(a);
    return &dynamic_cast<VSTORE*>(store)->round_sat;
  };
  auto bounds = [](const ROUND_SAT* rs) {
    std::string text;
    for (const VPEXPR* b : rs->sat_bounds) text += b->text + ";";
    return text;
  };
  const ROUND_SAT* u8 = saturated(3, VDATA_TYPE::uint8, nullptr, nullptr);
  const ROUND_SAT* s16 = saturated(4, VDATA_TYPE::int16, num(12), nullptr);
  const ROUND_SAT* u32 = saturated(5, VDATA_TYPE::uint32, nullptr, nullptr);
  const ROUND_SAT* bits = saturated(6, VDATA_TYPE::int16, sym("n"), nullptr);
  const ROUND_SAT* four = saturated(7, VDATA_TYPE::int16, num(-9), num(-8), num(7), num(6));
  const ROUND_SAT* pair = saturated(8, VDATA_TYPE::uint8, num(1), num(10));
  EXPECT_EQ(u8->sat_mode, ROUND_SAT::SM_ASYMM);
  EXPECT_EQ(bounds(u8), "0;255;");
  EXPECT_EQ(s16->sat_mode, ROUND_SAT::SM_ASYMM);
  EXPECT_EQ(bounds(s16), "-2048;2047;");
  EXPECT_EQ(u32->sat_mode, ROUND_SAT::SM_ASYMM32);
  EXPECT_EQ(bounds(u32), "0;4294967295;");
  EXPECT_EQ(u32->sat_preg->nregs, 2);
  EXPECT_EQ(bits->sat_mode, ROUND_SAT::SM_ASYMM);
  EXPECT_EQ(bounds(bits), "-(1 << (n - 1));(1 << (n - 1)) - 1;");
  EXPECT_EQ(four->sat_mode, ROUND_SAT::SM_4PARAM);
  EXPECT_EQ(four->sat_preg->text, "7, 6, -9, -8");
  EXPECT_EQ(four->sat_preg->nregs, 4);
  EXPECT_EQ(bounds(pair), "1;1;10;10;");
  EXPECT_EQ(pair->sat_preg->text, "10, 10, 1, 1");
}

TEST_F(StoreTest, RoundingOnceAndTheCombinedParameter) {
  VREG* a = vreg("a");
  loop(1, "i", num(8));
  load(2, a, VDATA_TYPE::int16);
  begin_store(3, VDATA_TYPE::int8);
  v()->set_vmem_round(num(4));
  v()->set_vmem_trunc(num(3));
  v()->set_vmem_sat(nullptr, nullptr, nullptr, nullptr);
  v()->set_vmem_sat(num(-4), num(3), nullptr, nullptr);
  auto* store = dynamic_cast<VSTORE*>(end_store(a));
  begin_store(4, VDATA_TYPE::int8);
  auto* plain = dynamic_cast<VSTORE*>(end_store(a));
  v()->pop_block();
  EXPECT_EQ(messages(),
            "\"k.zc\", line 3: error: instructions can only be rounded/truncated once\n"
            "\"k.zc\", line 3: error: instructions can only be saturated once\n");
  const ROUND_SAT& rs = store->round_sat;
  EXPECT_EQ(rs.round_mode, ROUND_SAT::RM_TRUNC);
  EXPECT_EQ(rs.round_value->text, "3");
  ASSERT_NE(rs.round_sat_preg, nullptr);
  EXPECT_EQ(rs.round_sat_preg->text,
            "__zelt_store_round_sat(SM_ASYMM," + rs.sat_preg->name + ",RM_TRUNC,3)");
  EXPECT_EQ(plain->round_sat.round_sat_preg, PREG_ZERO);
}

}  // namespace
