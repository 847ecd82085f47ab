// The table scatter transformation with its gate set: which buffers become
// tables, which loads carry their offsets, and the generated writes of both
// kinds of table.
#include <set>
#include <string>
#include <vector>

#include "tests/unit/translate_core_fixture.h"
#include "tests/unit/translate_source_support.h"
#include "translate/tcmd.h"
#include "translate/tkernel.h"

namespace {

class LutScatterTest : public testing::Test {
 protected:
  // Parses and translates `source`, with the transformation's gate set
  // unless `gate` is false.
  void translate(const std::string& source, bool gate = true) {
    EXPECT_EQ(gate ? translate_source(source, {option_obj::OO_LUT_SCATTER})
                   : translate_source(source),
              "");
  }
  // The loops of the translated vector loop, and the values of its init
  // function.
  static std::string loop_text() { return unnumbered(::loop_text(tcmd()), tcmd()); }
  static std::string init_text() { return unnumbered(::init_text(tcmd(), false), tcmd()); }
  static TCMD* tcmd() { return static_cast<TKERNEL*>(curr_vkernel)->tcmds.at(0); }
};

// Offsets loaded at the root of the first loop, a scatter buffer, and a
// buffer written by offset_np1 only.
const char* const scatter_kernel =
    "void k(__vptr_int16 offs, __vptr_int16 src, __vptr_int16 hist, __vptr_int16 cols)\n"
    "{\n"
    "   __agen Z = 0;\n"
    "   __vector o;\n"
    "   o = offs[Z].npt();\n"
    "   for (int i = 0; i < 8; i++) {\n"
    "      __agen A = i * 16;\n"
    "      __vector v;\n"
    "      v = src[A].npt();\n"
    "      hist[A].p_scatter(o) = v;\n"
    "      cols[A].offset_np1() = v;\n"
    "   }\n"
    "}\n";

TEST_F(LutScatterTest, WithoutItsGateNothingChanges) {
  translate(scatter_kernel, false);
  for (VSTORE* store : stores_of(0)) EXPECT_EQ(store->lut_index, -1);
  EXPECT_EQ(stores_of(0)[0]->dist, VSTORE::P_SCATTER);
  EXPECT_EQ(stores_of(0)[1]->dist, VSTORE::OFFSET_NP1);
  EXPECT_FALSE(loads_of(0)[0]->lut_load);
}

TEST_F(LutScatterTest, ScatterAndOffsetNp1BuffersBecomeTables) {
  translate(scatter_kernel);
  const std::vector<VSTORE*> written = stores_of(0);
  EXPECT_EQ(written[0]->dist, VSTORE::LUT_SCATTER);
  EXPECT_EQ(written[0]->lut_index, 0);
  EXPECT_EQ(written[1]->dist, VSTORE::LUT_OFFSET_NP1);
  EXPECT_EQ(written[1]->lut_index, 1);
  const VLOAD* offsets = loads_of(0)[0];
  EXPECT_TRUE(offsets->lut_load);
  EXPECT_EQ(offsets->lut_indices, (std::set<int>{0}));
  EXPECT_FALSE(loads_of(0)[1]->lut_load);
}

// The offsets stay known across loops until a loop defines the register
// anew; a load inside a loop defines it anew.
TEST_F(LutScatterTest, OffsetsLoadedOutsideEveryLoopOnly) {
  translate(
      "void k(__vptr_int16 offs, __vptr_int16 src, __vptr_int16 a, __vptr_int16 b)\n"
      "{\n"
      "   __agen Z = 0;\n"
      "   __vector o;\n"
      "   o = offs[Z].npt();\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 16;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      b[A].p_scatter(o) = v;\n"
      "   }\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 16;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      a[A].offset_np1() = v;\n"
      "      b[A].p_scatter(o) = v;\n"
      "   }\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 16;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      o = offs[A].npt();\n"
      "      b[A].p_scatter(o) = v;\n"
      "   }\n"
      "}\n");
  EXPECT_EQ(stores_of(0)[0]->dist, VSTORE::LUT_SCATTER);
  EXPECT_EQ(stores_of(0)[0]->lut_index, 0);
  EXPECT_EQ(stores_of(1)[0]->lut_index, 0);  // a, the first parameter
  EXPECT_EQ(stores_of(1)[1]->dist, VSTORE::LUT_SCATTER);
  EXPECT_EQ(stores_of(1)[1]->lut_index, 1);
  EXPECT_EQ(loads_of(0)[0]->lut_indices, (std::set<int>{0, 1}));
  EXPECT_EQ(stores_of(2)[0]->dist, VSTORE::P_SCATTER);
  EXPECT_EQ(stores_of(2)[0]->lut_index, -1);
}

// A buffer qualifies only when all its stores are scatters or all are
// offset_np1, through one generator; the buffers that don't take no
// table number.
TEST_F(LutScatterTest, OneKindOfStoreThroughOneGenerator) {
  translate(
      "void k(__vptr_int16 offs, __vptr_int16 src, __vptr_int16 mixed, __vptr_int16 plain,\n"
      "       __vptr_int16 moved, __vptr_int16 good)\n"
      "{\n"
      "   __agen Z = 0;\n"
      "   __vector o;\n"
      "   o = offs[Z].npt();\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 16;\n"
      "      __agen B = i * 32;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      mixed[A].offset_np1() = v;\n"
      "      mixed[A].p_scatter(o) = v;\n"
      "      plain[A].p_scatter(o) = v;\n"
      "      plain[A].npt() = v;\n"
      "      moved[A].offset_np1() = v;\n"
      "      moved[B].offset_np1() = v;\n"
      "      good[B].offset_np1() = v;\n"
      "   }\n"
      "}\n");
  const std::vector<VSTORE*> written = stores_of(0);
  for (size_t n = 0; n < 6; ++n) {
    EXPECT_NE(written[n]->dist, VSTORE::LUT_SCATTER) << n;
    EXPECT_NE(written[n]->dist, VSTORE::LUT_OFFSET_NP1) << n;
    EXPECT_EQ(written[n]->lut_index, -1) << n;
  }
  EXPECT_EQ(written[6]->dist, VSTORE::LUT_OFFSET_NP1);
  EXPECT_EQ(written[6]->lut_index, 0);
  EXPECT_FALSE(loads_of(0)[0]->lut_load);
}

// Two tables a loop, taken in the order the parameters were declared.
TEST_F(LutScatterTest, AThirdBufferStaysAsItIs) {
  translate(
      "void k(__vptr_int16 src, __vptr_int16 z, __vptr_int16 y, __vptr_int16 x)\n"
      "{\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 16;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      x[A].offset_np1() = v;\n"
      "      y[A].offset_np1() = v;\n"
      "      z[A].offset_np1() = v;\n"
      "   }\n"
      "}\n");
  const std::vector<VSTORE*> written = stores_of(0);
  EXPECT_EQ(written[0]->dist, VSTORE::OFFSET_NP1);
  EXPECT_EQ(written[1]->lut_index, 1);
  EXPECT_EQ(written[2]->lut_index, 0);
}

// The transpose transformation runs first; the stores it takes are no
// longer offset_np1 stores.
TEST_F(LutScatterTest, TransposedStoresAreLeftToTheTranspose) {
  translate(
      "void k(__vptr_int32 src, __tscratch __vptr_int32 buf, __vptr_int32 dst)\n"
      "{\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 32;\n"
      "      __agen S = i * 4;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      buf[S].offset_np1() = v;\n"
      "   }\n"
      "   for (int j = 0; j < 8; j++) {\n"
      "      __agen B = j * 36;\n"
      "      __vector w;\n"
      "      w = buf[B].npt();\n"
      "      dst[B].npt() = w;\n"
      "   }\n"
      "}\n");
  EXPECT_EQ(stores_of(0)[0]->dist, VSTORE::TRANSPOSE);
  EXPECT_EQ(stores_of(0)[0]->lut_index, -1);
}

const char* const table_name = "zelt_scatter<int16_t, 8, 1, 1, lut_id<0, 32768> >";

// A scatter table is sized at run time from the largest offset, read in
// before the loop and written back after it.
TEST_F(LutScatterTest, ScatterTableWrites) {
  translate(
      "void k(__vptr_int16 offs, __vptr_int16 src, __vptr_int16 hist)\n"
      "{\n"
      "   __agen Z = 0;\n"
      "   __vector o;\n"
      "   o = offs[Z].npt();\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 16;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      hist[A].p_scatter(o) = v;\n"
      "   }\n"
      "}\n");
  const std::string n = table_name;
  EXPECT_EQ(loop_text(),
            "uint32_t __p0 = tvals->loop0.tvals[0].p0;\n"
            "uint32_t __p1 = tvals->loop0.tvals[0].p1;\n"
            "uint32_t __p2 = tvals->loop0.tvals[0].p2;\n"
            "uint32_t __p3 = tvals->loop0.tvals[0].p3;\n"
            "uint32_t __p4 = tvals->loop0.tvals[0].p4;\n"
            "__SE_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;\n"
            "__SA_TEMPLATE_v1 __p6 = tvals->loop0.tvals[0].p6;\n"
            "\n"
            "int32_t Stemp0;\n"
            "int32_t Stemp1;\n"
            "int32_t i;\n"
            "\n"
            "Z = 0;\n"
            "__SA0_OPEN(__p6);\n"
            "zelt_load<int16_t, npt, nosa>::load(o, (void*)((char*)offs + Z));\n"
            "Stemp0 = " + n + "::max_index(o);\n"
            "Stemp1 = " + n + "::scatter_size(__p1, Stemp0, __p0);\n" +
            n + "::copy_table_in((void*)hist, Stemp1, __p3);\n" +
            n + "::open(0, __p2);\n"
            "__SE0_OPEN((void*)src, __p5);\n"
            "\n"
            "#pragma MUST_ITERATE(1,65535,)\n"
            "#pragma PARALLEL_LOOP\n"
            "for (i = 0; i < 8; ++i)\n"
            "{\n"
            "   __vector v;\n"
            "\n"
            "   zelt_load<int16_t, npt, se0adv>::SE_load(v);\n"
            "   " + n + "::scatter(v, (long long)SAptr<int16_t,sa0adv>(NULL).addr(), o);\n"
            "}\n"
            "__SA0_CLOSE();\n"
            "__SE0_CLOSE();\n" +
            n + "::copy_table_out((void*)hist, Stemp1, __p4);\n");
  EXPECT_EQ(init_text(),
            "tvals->loop0.tvals[0].p0 = max8(0);\n"
            "tvals->loop0.tvals[0].p1 = max_agen(8, 16);\n"
            "tvals->loop0.tvals[0].p2 = " + n + "::config();\n"
            "tvals->loop0.tvals[0].p3 = " + n + "::copy_in_config();\n"
            "tvals->loop0.tvals[0].p4 = " + n + "::copy_out_config();\n"
            "tvals->loop0.tvals[0].p5 = SE_init<int16_t, zelt_load<int16_t, npt>, "
            "TRANSPOSE_OFF>::apply(64, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);\n"
            "tvals->loop0.tvals[0].p6 = SA_init<int16_t, 8, TRANSPOSE_OFF>::apply(64, 0/2, 1, "
            "0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);\n");
}

// An output-only buffer written by offset_np1 is not read in first; its
// size comes from the generator's reach.
TEST_F(LutScatterTest, OffsetNp1TableOfAnOutputOnlyBuffer) {
  translate(
      "void k(__vptr_int16 src, __output_only __vptr_int16 cols)\n"
      "{\n"
      "   for (int i = 0; i < 8; i++) {\n"
      "      __agen A = i * 16;\n"
      "      __agen S = i * 2;\n"
      "      __vector v;\n"
      "      v = src[A].npt();\n"
      "      cols[S].offset_np1() = v;\n"
      "   }\n"
      "}\n");
  const std::string n = table_name;
  EXPECT_EQ(loop_text(),
            "uint32_t __p0 = tvals->loop0.tvals[0].p0;\n"
            "uint32_t __p1 = tvals->loop0.tvals[0].p1;\n"
            "uint32_t __p2 = tvals->loop0.tvals[0].p2;\n"
            "uint32_t __p3 = tvals->loop0.tvals[0].p3;\n"
            "uint32_t __p4 = tvals->loop0.tvals[0].p4;\n"
            "__SE_TEMPLATE_v1 __p5 = tvals->loop0.tvals[0].p5;\n"
            "__SA_TEMPLATE_v1 __p6 = tvals->loop0.tvals[0].p6;\n"
            "\n"
            "int32_t i;\n"
            "\n"
            "__SA0_OPEN(__p6);\n" +
            n + "::open(0, __p3);\n"
            "__SE0_OPEN((void*)src, __p5);\n"
            "\n"
            "#pragma MUST_ITERATE(1,65535,)\n"
            "#pragma PARALLEL_LOOP\n"
            "for (i = 0; i < 8; ++i)\n"
            "{\n"
            "   __vector v;\n"
            "\n"
            "   zelt_load<int16_t, npt, se0adv>::SE_load(v);\n"
            "   " + n + "::offset_np1(v, (long long)SAptr<int16_t,sa0adv>(NULL).addr());\n"
            "}\n"
            "__SA0_CLOSE();\n"
            "__SE0_CLOSE();\n" +
            n + "::copy_table_out((void*)cols, __p2, __p4);\n");
  EXPECT_EQ(init_text(),
            "tvals->loop0.tvals[0].p0 = max8(0);\n"
            "tvals->loop0.tvals[0].p1 = max_agen(8, 2);\n"
            "tvals->loop0.tvals[0].p2 = " + n + "::scatter_size(tvals->loop0.tvals[0].p1, 252, "
            "tvals->loop0.tvals[0].p0);\n"
            "tvals->loop0.tvals[0].p3 = " + n + "::config();\n"
            "tvals->loop0.tvals[0].p4 = " + n + "::copy_out_config();\n"
            "tvals->loop0.tvals[0].p5 = SE_init<int16_t, zelt_load<int16_t, npt>, "
            "TRANSPOSE_OFF>::apply(64, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);\n"
            "tvals->loop0.tvals[0].p6 = SA_init<int16_t, 1, TRANSPOSE_OFF>::apply(8, 0/2, 1, "
            "0/2, 1, 0/2, 1, 0/2, 1, 0/2, 1);\n");
}

}  // namespace
