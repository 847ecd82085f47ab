// Printing of operations, roundings and saturations, and the bit-width test
// of saturation bounds.
#include <gtest/gtest.h>

#include <string>

#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vreg.h"
#include "tests/unit/string_out.h"
#include "translate/top.h"
#include "translate/tround_sat.h"

namespace {

const DIAG_SRCINFO_DATA here("k.zc", 1);

VREG* reg(const std::string& name, VDATA_TYPE type = VDATA_TYPE::int32) {
  auto* r = new VREG(here, name);
  r->type = type;
  return r;
}

// The line of `name` on d1, d2 from s1, s2, s3.
std::string op_line(const std::string& name, VDATA_TYPE type = VDATA_TYPE::int32) {
  auto* vop = new VOP(here, nullptr, name);
  vop->dst1 = reg("d1", type);
  vop->dst2 = reg("d2", type);
  vop->src1 = reg("s1", type);
  vop->src2 = reg("s2", type);
  vop->src3 = reg("s3", type);
  STRING_OUT out;
  TVOP(vop).format(out);
  return out.str();
}

TEST(TranslateOpsFormat, UnknownOperationPrintsOnlyTheWarning) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(op_line("__zelt_vfoo"), "");
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "warning: unknown op in TVOP::format: __zelt_vfoo\n");
}

TEST(TranslateOpsFormat, OperationTypeFollowsTheSources) {
  auto* vop = new VOP(here, nullptr, "__zelt_vadd");
  vop->dst1 = reg("d", VDATA_TYPE::uint8);
  TVOP t(vop);
  EXPECT_EQ(t.operation_data_type(), VDATA_TYPE::uint32);  // only the destination
  vop->src1 = reg("a", VDATA_TYPE::int8);
  EXPECT_EQ(t.operation_data_type(), VDATA_TYPE::int32);
  vop->src2 = reg("b", VDATA_TYPE::uint16);
  EXPECT_EQ(t.operation_data_type(), VDATA_TYPE::int32);  // mixed
  vop->src1 = reg("c", VDATA_TYPE::uint32);
  EXPECT_EQ(t.operation_data_type(), VDATA_TYPE::uint32);

  vop->name = "__zelt_vshf";  // a shift takes the type of the shifted value only
  vop->src2 = reg("s", VDATA_TYPE::int32);
  EXPECT_EQ(t.operation_data_type(), VDATA_TYPE::uint32);
}

TEST(TranslateOpsFormat, BitWidthOfBounds) {
  EXPECT_EQ(TSAT::bounds_are_bit_width(0, 255), 8);
  EXPECT_EQ(TSAT::bounds_are_bit_width(-128, 127), 8);
  EXPECT_EQ(TSAT::bounds_are_bit_width(0, 1), 1);
  EXPECT_EQ(TSAT::bounds_are_bit_width(-1, 0), 2);
  EXPECT_EQ(TSAT::bounds_are_bit_width(0, 65535), 16);
  EXPECT_EQ(TSAT::bounds_are_bit_width(-2147483648LL, 2147483647LL), 32);
  EXPECT_EQ(TSAT::bounds_are_bit_width(1, 255), 0);
  EXPECT_EQ(TSAT::bounds_are_bit_width(-127, 127), 0);
  EXPECT_EQ(TSAT::bounds_are_bit_width(0, 254), 0);
  EXPECT_EQ(TSAT::bounds_are_bit_width(0, -1), 0);
}

}  // namespace
