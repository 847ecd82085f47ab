// Value ranges: the lattice and its merge, the bounds of element types, the
// rules of rounding and saturation, and the saturations that they prove
// needless in a whole translated loop.
#include <string>
#include <vector>

#include "ZELT_ZLC/vpexpr.h"
#include "tests/unit/translate_core_fixture.h"
#include "translate/ssa.h"
#include "translate/texpr.h"
#include "translate/tround_sat.h"
#include "translate/val_ranges.h"

namespace {

class RangeTest : public TRANSLATE_TEST {
 protected:
  void SetUp() override {
    TRANSLATE_TEST::SetUp();
    cmd = new TCMD(*tkernel, v());
  }

  VAL_RANGE* range(const VPEXPR* lo = nullptr, const VPEXPR* hi = nullptr) {
    auto* r = new VAL_RANGE(new SSA::NODE(nullptr, -1));
    if (lo || hi) r->update(lo, hi);
    return r;
  }
  static const VPEXPR* unum(long value) { return new VPEXPR(value, VPEXPR::EVAL_UNSIGNED); }
  static std::string text(const VPEXPR* bound) { return bound ? bound->text : "null"; }
  static std::string bounds(const VAL_RANGE* r) {
    if (r->is_indeterminate()) return "indeterminate";
    return text(r->get_min()) + " .. " + text(r->get_max());
  }
  // The range that a rounding of `mode` by `shift` gives to `in`.
  std::string rounded(int32_t mode, const VPEXPR* shift, VAL_RANGE* in) {
    TROUND round(nullptr, mode, new TEXPR(*cmd, shift));
    VAL_RANGE* out = range();
    round.find_range(out, {in});
    return bounds(out);
  }

  TCMD* cmd = nullptr;
};

TEST_F(RangeTest, UpdateKeepsMissingBoundsAndComparesByValue) {
  VAL_RANGE* r = range();
  EXPECT_EQ(bounds(r), "null .. null");
  EXPECT_TRUE(r->update(num(3), nullptr));
  EXPECT_EQ(bounds(r), "3 .. null");
  EXPECT_TRUE(r->update(nullptr, num(16)));
  auto* hex = new VPEXPR(16, VPEXPR::EVAL_UNSIGNED);
  hex->text = "0x10";
  EXPECT_FALSE(r->update(num(3), hex));  // 16 and 0x10 are the same number
  EXPECT_FALSE(r->update(nullptr, nullptr));
  EXPECT_TRUE(r->update(sym("n"), nullptr));
  EXPECT_FALSE(r->update(sym("(n)"), nullptr));  // the same text once unwrapped
  EXPECT_TRUE(r->set_indeterminate());
  EXPECT_FALSE(r->set_indeterminate());
}

TEST_F(RangeTest, MergeWidensNumbersAndGivesUpOnSymbols) {
  VAL_RANGE* r = range();
  EXPECT_FALSE(r->merge_direct_input(*range()));  // nothing known yet
  EXPECT_TRUE(r->merge_direct_input(*range(num(1), num(1))));
  EXPECT_TRUE(r->merge_direct_input(*range(num(200), num(200))));
  EXPECT_EQ(bounds(r), "1 .. 200");
  EXPECT_FALSE(r->merge_direct_input(*range(num(5), num(100))));
  // A signed -1 is below everything; an unsigned 0xFFFFFFFF above.
  EXPECT_TRUE(r->merge_direct_input(*range(num(-1), unum(0xFFFFFFFF))));
  EXPECT_EQ(bounds(r), "-1 .. 4294967295");

  VAL_RANGE* mixed = range(num(1), num(1));
  EXPECT_TRUE(mixed->merge_direct_input(*range(sym("n"), sym("n"))));
  EXPECT_TRUE(mixed->is_indeterminate());
  EXPECT_FALSE(mixed->merge_direct_input(*range(num(0), num(0))));  // absorbs everything

  VAL_RANGE* top = range();
  top->set_indeterminate();
  VAL_RANGE* fresh = range(num(0), num(0));
  EXPECT_TRUE(fresh->merge_direct_input(*top));
  EXPECT_TRUE(fresh->is_indeterminate());
}

TEST_F(RangeTest, TypeBounds) {
  VAL_RANGE* s8 = range();
  EXPECT_TRUE(s8->update_to_type_bounds(VDATA_TYPE::int8));
  EXPECT_EQ(bounds(s8), "-128 .. 127");
  EXPECT_EQ(s8->get_min()->eval_type, VPEXPR::EVAL_SIGNED);
  EXPECT_EQ(s8->get_max()->eval_type, VPEXPR::EVAL_UNSIGNED);
  EXPECT_FALSE(s8->update_to_type_bounds(VDATA_TYPE::int8));
  VAL_RANGE* u32 = range();
  u32->update_to_type_bounds(VDATA_TYPE::uint32);
  EXPECT_EQ(bounds(u32), "0 .. 4294967295");
  VAL_RANGE* s32 = range();
  s32->update_to_type_bounds(VDATA_TYPE::int32);
  EXPECT_EQ(bounds(s32), "-2147483648 .. 2147483647");
}

TEST_F(RangeTest, RoundingModes) {
  VAL_RANGE* s16 = range(num(-32768), unum(32767));
  EXPECT_EQ(rounded(TROUND::TRUNCATE, num(8), s16), "-128 .. 127");
  EXPECT_EQ(rounded(TROUND::SHIFT, num(2), s16), "(-32768) << (2) .. (32767) << (2)");
  EXPECT_EQ(rounded(TROUND::ROUND, num(0), s16), "-32768 .. 32767");
  EXPECT_EQ(rounded(TROUND::ROUND, num(2), range(num(0), num(255))),
            "(((0) + (((2) > 0) ? (1 << ((2) - 1)) : 0)) >> (2)) .. "
            "(((255) + (((2) > 0) ? (1 << ((2) - 1)) : 0)) >> (2))");
  // With a symbolic amount the high bound is shifted left, as told.
  EXPECT_EQ(rounded(TROUND::TRUNCATE, sym("b"), range(num(0), num(255))),
            "(0) >> (b) .. (255) << (b)");
  EXPECT_EQ(rounded(TROUND::NONE, num(2), s16), "null .. null");
  EXPECT_EQ(rounded(TROUND::ROUND, num(2), range()), "null .. null");  // input unknown yet
  VAL_RANGE* top = range();
  top->set_indeterminate();
  EXPECT_EQ(rounded(TROUND::TRUNCATE, num(2), top), "indeterminate");
}

TEST_F(RangeTest, TruncationKeepsParameterReferences) {
  PARM* b = parm("b", "int");
  auto* shift = new VPEXPR("b");
  shift->eval_type = VPEXPR::EVAL_SYMBOLIC;
  shift->parm_refs.insert(b);
  TROUND round(nullptr, TROUND::TRUNCATE, new TEXPR(*cmd, shift));
  VAL_RANGE* out = range();
  EXPECT_TRUE(round.find_range(out, {range(num(0), num(255))}));
  EXPECT_EQ(out->get_min()->parm_refs, PARM_SET{b});
  EXPECT_EQ(out->get_max()->parm_refs, PARM_SET{b});
  EXPECT_EQ(out->get_min()->eval_type, VPEXPR::EVAL_SYMBOLIC);
}

TEST_F(RangeTest, SaturationGivesItsBounds) {
  ROUND_SAT two(at(1), nullptr);
  two.sat_mode = ROUND_SAT::SM_SYMM;
  two.sat_bounds = {num(0), num(100)};
  TSAT range_form(*cmd, vreg("a"), two, VDATA_TYPE::uint8);
  VAL_RANGE* r = range();
  EXPECT_TRUE(range_form.find_range(r, {}));
  EXPECT_EQ(bounds(r), "0 .. 100");

  ROUND_SAT four(at(1), nullptr);
  four.sat_mode = ROUND_SAT::SM_4PARAM;
  four.sat_bounds = {num(-100), num(-90), num(100), num(90)};
  TSAT four_form(*cmd, vreg("b"), four, VDATA_TYPE::int16);
  VAL_RANGE* set_values = range();
  four_form.find_range(set_values, {});
  EXPECT_EQ(bounds(set_values), "-90 .. 90");
}

}  // namespace
