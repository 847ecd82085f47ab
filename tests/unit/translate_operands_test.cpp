// Operands of translated instructions: temporary registers, and values
// shared in the parameter block.
#include <gtest/gtest.h>

#include <string>

#include "tests/unit/translate_core_fixture.h"
#include "translate/texpr.h"
#include "translate/tmem.h"
#include "translate/tval.h"

namespace {

using OperandTest = TRANSLATE_TEST;

TEST_F(OperandTest, TemporariesSkipTakenNamesAndShareOneCounter) {
  tkernel->vregs.new_vreg(at(1), "Vtemp0", -1);
  EXPECT_EQ(tkernel->temp_vreg()->name, "Vtemp1");
  EXPECT_EQ(tkernel->temp_sreg()->name, "Stemp2");
  EXPECT_EQ(tkernel->temp_vreg()->name, "Vtemp3");
  EXPECT_EQ(tkernel->lookup_vreg("Vtemp3")->name, "Vtemp3");
}

TEST_F(OperandTest, OperandsShareValuesByTypeAndText) {
  PARM* n = parm("n", "int");
  TCMD cmd(*tkernel, v());
  const VPEXPR* half = sym("n / 2");

  TEXPR a(cmd, "int32_t", half);
  TEXPR b(cmd, "int32_t", sym("n / 2"));
  TEXPR c(cmd, "uint32_t", half);
  ASSERT_NE(a.tval, nullptr);
  EXPECT_EQ(a.tval, b.tval);
  EXPECT_NE(a.tval, c.tval);
  EXPECT_EQ(c.ref(true), "__p1");
  EXPECT_EQ(a.tval->assignment, "tvals->loop" + std::to_string(cmd.id) + ".tvals[0].p0 = n / 2;");

  TEXPR bare(cmd, "uint32_t", sym("n"));
  EXPECT_EQ(bare.parm, n);
  EXPECT_EQ(bare.ref(true), "(uint32_t)n");
  EXPECT_EQ(bare.ref(false), "n");
  EXPECT_EQ(tkernel->used_parms.count(n), 1u);

  TEXPR minus(cmd, "int32_t", num(-5));
  EXPECT_EQ(minus.ref(true), "-5");
  EXPECT_EQ(TEXPR(cmd, "int32_t", new VPEXPR(-5, VPEXPR::EVAL_UNSIGNED)).ref(true), "4294967291");
  EXPECT_EQ(cmd.tvals.by_number.size(), 2u);
}

}  // namespace
