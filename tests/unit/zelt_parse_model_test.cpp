// The model that the parser's actions build: kernels, parameters and loop
// levels.
#include "tests/unit/zelt_parse_support.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"

namespace {

TEST(ZeltParseModel, KernelHeadAndParameters) {
  const PARSE_RESULT r = parse_text(
      "void first(__update __tscratch unsigned char ** q, T *p, long long t[4][], int n)"
      " { __vector a; }\nvoid second() { __vector b; }");
  EXPECT_EQ(r.err, "");
  EXPECT_EQ(curr_vkernel->name, "second");
  EXPECT_EQ(curr_vkernel->pblock_name, "__pblock_second");
  ASSERT_NE(curr_vkernel->lookup_vreg("b"), nullptr);
  EXPECT_EQ(curr_vkernel->lookup_vreg("a"), nullptr);

  const PARSE_RESULT one = parse_text("void f(__update __tscratch unsigned char ** q, T *p,"
                                      " long long t[4][]) { __vector a; }");
  EXPECT_EQ(one.err, "");
  PARM* q = curr_vkernel->lookup_parm("q");
  ASSERT_NE(q, nullptr);
  EXPECT_EQ(q->type_text, "unsigned char **");
  EXPECT_EQ(q->qualifiers, PARM::QF_UPDATE | PARM::QF_TSCRATCH);
  EXPECT_EQ(curr_vkernel->lookup_parm("p")->type_text, "T *");
  PARM* t = curr_vkernel->lookup_parm("t");
  EXPECT_EQ(t->type_text, "long long");
  EXPECT_TRUE(t->is_array);
  EXPECT_EQ(t->array_text, "[]");
}

TEST(ZeltParseModel, LoopsCloseIntoVectorLoops) {
  const PARSE_RESULT r = parse_text(
      "void k(int n) { __vector_int32 a; __agen G = 0;\n"
      " for (int j = 0; j < n; j++) { __vector b; __agen A = j;\n"
      "  for (int i = 0; i < n; i++) { b.clear(); } }\n"
      " for (int i = 0; i < n; i++) { a.clear(); } }");
  EXPECT_EQ(r.err, "");
  ASSERT_EQ(curr_vkernel->vcmds.size(), 2u);
  VCMD* first = curr_vkernel->vcmds[0];
  ASSERT_EQ(first->blocks.size(), 3u);
  EXPECT_EQ(first->blocks[1]->lcv, "j");
  EXPECT_EQ(first->blocks[1]->depth, 0);
  EXPECT_EQ(first->blocks[2]->lcv, "i");
  EXPECT_EQ(first->blocks[2]->depth, 1);
  EXPECT_EQ(first->innermost, first->blocks[2]);
  EXPECT_EQ(first->srcinfo.line(), 2u);
  EXPECT_NE(first->blocks[1]->vregs.lookup("b"), nullptr);
  EXPECT_NE(first->blocks[1]->agens.lookup("A"), nullptr);
  EXPECT_EQ(curr_vkernel->lookup_vreg("a")->type, VDATA_TYPE::int32);
  // The global generator is declared anew in every following loop.
  EXPECT_NE(curr_vcmd->root.agens.lookup("G"), nullptr);
  EXPECT_NE(curr_vcmd, first);
}

}  // namespace
