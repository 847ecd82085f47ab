// The transpose transformation on whole kernels: the streams that limit the
// accepted groups, the order in which groups are taken, the tiles of
// constant offsets, and buffers left out for an access without an offset.
#include <string>
#include <vector>

#include "tests/unit/translate_core_fixture.h"
#include "tests/unit/translate_source_support.h"

namespace {

// A scratch buffer of `name`, written in the first loop and read in loop
// `reader`.
struct PAIR {
  std::string name;
  int reader;
};

// Writes every buffer in one loop, each through a generator of its own when
// `own_generators`, and reads each in its loop, after the first.
std::string kernel_of(const std::vector<PAIR>& pairs, bool own_generators) {
  std::string parms = "__vptr_int32 src";
  std::string writes;
  std::string readers[4];
  for (const PAIR& pair : pairs) {
    parms += ", __tscratch __vptr_int32 " + pair.name;
    const std::string gen = own_generators ? "S" + pair.name : "S";
    if (own_generators || writes.empty()) writes += "      __agen " + gen + " = i * 4;\n";
    writes += "      " + pair.name + "[" + gen + "].offset_np1() = v;\n";
    const std::string w = "w" + pair.name;
    readers[pair.reader] += "      __vector " + w + ";\n      " + w + " = " + pair.name +
                            "[B].npt();\n      src[B].npt() = " + w + ";\n";
  }
  std::string text = "void k(" + parms + ")\n{\n   for (int i = 0; i < 8; i++) {\n"
                     "      __agen A = i * 32;\n      __vector v;\n      v = src[A].npt();\n" +
                     writes + "   }\n";
  for (int n = 1; n < 4; ++n)
    if (!readers[n].empty())
      text += "   for (int j = 0; j < 8; j++) {\n      __agen B = j * 36;\n" +
              readers[n] + "   }\n";
  return text + "}\n";
}

TEST(Transpose, FourGeneratorsOfWritesALoop) {
  ASSERT_EQ(translate_source(kernel_of({{"a", 1}, {"b", 1}, {"c", 2}, {"d", 2}, {"e", 3}}, true)),
            "");
  const std::vector<VSTORE*> writes = stores_of(0);
  for (size_t n = 0; n < 4; ++n) EXPECT_EQ(writes[n]->dist, VSTORE::TRANSPOSE) << n;
  EXPECT_EQ(writes[4]->dist, VSTORE::OFFSET_NP1);
  EXPECT_EQ(loads_of(3)[0]->dist, VLOAD::NPT);
  EXPECT_EQ(loads_of(2)[1]->dist, VLOAD::TRANSPOSE);
}

// Buffers are taken by name: z, declared first, is the one whose read
// would need a third engine.
TEST(Transpose, TwoReadsALoopTakenByName) {
  ASSERT_EQ(translate_source(kernel_of({{"z", 1}, {"y", 1}, {"x", 1}}, false)), "");
  const std::vector<VLOAD*> reads = loads_of(1);
  EXPECT_EQ(reads[0]->dist, VLOAD::NPT);
  EXPECT_EQ(reads[1]->dist, VLOAD::TRANSPOSE);
  EXPECT_EQ(reads[2]->dist, VLOAD::TRANSPOSE);
  EXPECT_EQ(stores_of(0)[0]->dist, VSTORE::OFFSET_NP1);
}

// A group refused for the reads of its later loop takes nothing in the
// loop of its writes: c's generator leaves room there for both d and e.
TEST(Transpose, ARefusedGroupTakesNoStream) {
  ASSERT_EQ(translate_source(kernel_of({{"a", 1}, {"b", 1}, {"c", 1}, {"d", 2}, {"e", 2}}, true)),
            "");
  const std::vector<VSTORE*> writes = stores_of(0);
  const VSTORE::VDIST expected[] = {VSTORE::TRANSPOSE, VSTORE::TRANSPOSE, VSTORE::OFFSET_NP1,
                                   VSTORE::TRANSPOSE, VSTORE::TRANSPOSE};
  for (size_t n = 0; n < 5; ++n) EXPECT_EQ(writes[n]->dist, expected[n]) << n;
}

// A tile holds w rows of w + 1 words: 288 bytes with 8 lanes, 1088 with 16.
TEST(Transpose, TilesOfConstantOffsetsFollowTheWidth) {
  const char* const source =
      "void k(__vptr_int32 src, __tscratch __vptr_int32 buf)\n"
      "{\n"
      "   for (int i = 0; i < ZELT_SIMD_WIDTH; i++) {\n"
      "      __agen S = i * 4;\n"
      "      __vector v;\n"
      "      v = src[S].npt();\n"
      "      buf + 4 [S].offset_np1() = v;\n"
      "   }\n"
      "   for (int j = 0; j < ZELT_SIMD_WIDTH; j++) {\n"
      "      __agen B = j * 36;\n"
      "      __vector w;\n"
      "      w = buf + 300 [B].npt();\n"
      "      src[B].npt() = w;\n"
      "   }\n"
      "}\n";
  ASSERT_EQ(translate_source(source), "");
  EXPECT_EQ(stores_of(0)[0]->dist, VSTORE::OFFSET_NP1);
  const int32_t width = zelt_simd_width;
  zelt_simd_width = 16;
  const std::string err = translate_source(source);
  zelt_simd_width = width;
  ASSERT_EQ(err, "");
  EXPECT_EQ(stores_of(0)[0]->dist, VSTORE::TRANSPOSE);
  EXPECT_EQ(loads_of(1)[0]->dist, VLOAD::TRANSPOSE);
}

class TransposeModelTest : public TRANSLATE_TEST {
 protected:
  // p[G] in a register, or a register to p[G], where p + offset is the
  // address; a null offset is an address the analysis could not split.
  VLOAD* read(VREG* dst, PARM* p, const VPEXPR* offset, AGEN* g) {
    v()->clear_curr();
    v()->set_curr_vreg(dst);
    v()->new_vlvalue(at(3), sym(p->name), p, sym(p->name), offset, g, VDATA_TYPE::int32);
    v()->new_vload(at(3));
    auto* load = static_cast<VLOAD*>(v()->curr_instr);
    v()->add_instr(load);
    return load;
  }
  VSTORE* write(VREG* src, PARM* p, AGEN* g) {
    v()->clear_curr();
    v()->new_vlvalue(at(4), sym(p->name), p, sym(p->name), num(0), g, VDATA_TYPE::int32);
    v()->new_vstore(at(4));
    auto* store = static_cast<VSTORE*>(v()->curr_instr);
    v()->set_vstore_dist(VSTORE::OFFSET_NP1, nullptr);
    v()->set_curr_vreg(src);
    v()->set_vstore_rhs();
    return store;
  }
};

// One access whose address has no offset leaves its whole buffer out; the
// other buffer is transposed.
TEST_F(TransposeModelTest, AnAccessWithoutAnOffsetLeavesItsBufferOut) {
  PARM* src = parm("src", "__vptr_int32");
  PARM* kept = parm("kept", "__vptr_int32", PARM::QF_TSCRATCH);
  PARM* left = parm("left", "__vptr_int32", PARM::QF_TSCRATCH);
  VREG* v1 = vreg("v1");
  VREG* w1 = vreg("w1");
  VREG* w2 = vreg("w2");
  VREG* w3 = vreg("w3");
  loop(2, "i", num(8));
  AGEN* s = agen("S", 1, num(4));
  read(v1, src, num(0), s);
  VSTORE* kept_write = write(v1, kept, s);
  VSTORE* left_write = write(v1, left, s);
  end_loop();
  loop(5, "j", num(8));
  AGEN* b = agen("B", 1, num(36));
  VLOAD* kept_read = read(w1, kept, num(0), b);
  VLOAD* left_read = read(w2, left, num(0), b);
  read(w3, left, nullptr, b);
  end_loop();
  translate();
  EXPECT_EQ(messages(), "");
  EXPECT_EQ(kept_write->dist, VSTORE::TRANSPOSE);
  EXPECT_EQ(kept_read->dist, VLOAD::TRANSPOSE);
  EXPECT_EQ(left_write->dist, VSTORE::OFFSET_NP1);
  EXPECT_EQ(left_read->dist, VLOAD::NPT);
}

}  // namespace
