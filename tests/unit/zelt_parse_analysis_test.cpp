// What the address analyses leave in the model: the strides of generators
// per loop depth, and the parameter, base and offset of memory references.
#include "tests/unit/zelt_parse_support.h"
#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {

// The generators of the innermost block of the kernel's first loop.
const AGEN* inner_agen(const std::string& name) {
  const VCMD* vcmd = curr_vkernel->vcmds.at(0);
  return vcmd->blocks.back()->agens.lookup(name);
}

TEST(ZeltParseAnalysis, StridesPerLoopDepth) {
  const PARSE_RESULT r = parse_text(
      "void k(__vptr_int16 p, int n, int w) { __vector a;\n"
      " for (int j = 0; j < n; j++) { for (int i = 0; i < n; i++) {\n"
      "  __agen A = i*4 + j*w, B = 4*i*2, C = 0, D = i*2 + i*4, E;\n"
      "  a = p[A]; } } }");
  ASSERT_EQ(r.err.find("agen"), std::string::npos) << r.err;
  const AGEN* a = inner_agen("A");
  ASSERT_NE(a, nullptr);
  EXPECT_TRUE(a->has_init);
  EXPECT_EQ(a->deepest_depth, 2);
  ASSERT_NE(a->strides[2], nullptr);
  EXPECT_EQ(a->strides[2]->value64(), 4);
  ASSERT_NE(a->strides[1], nullptr);
  EXPECT_EQ(a->strides[1]->text, "w");
  EXPECT_EQ(a->strides[1]->eval_type, VPEXPR::EVAL_SYMBOLIC);

  const AGEN* b = inner_agen("B");
  ASSERT_NE(b->strides[2], nullptr);
  EXPECT_TRUE(b->strides[2]->is_const());
  EXPECT_EQ(b->strides[2]->value64(), 8);

  const AGEN* c = inner_agen("C");
  EXPECT_TRUE(c->has_init);
  for (const VPEXPR* stride : c->strides) EXPECT_EQ(stride, nullptr);

  EXPECT_EQ(inner_agen("D")->strides[2]->value64(), 4);  // the second term wins
  EXPECT_FALSE(inner_agen("E")->has_init);
}

TEST(ZeltParseAnalysis, BaseAndOffsetOfAddresses) {
  struct CASE {
    const char* address;
    const char* whole;
    const char* base;
    const char* offset;
  };
  const CASE cases[] = {
      {"p", "p", "p", "0"},
      {"p + n * 2", "(uchar *)p+n*2", "p", "n*2"},
      {"(n + 1) + p /* c */", "n+1+(uchar *)p", "p", "n+1"},
      {"p[4] + 8", "(uchar *)p[4]+8", "(uchar *)p[4]", "8"},  // subscripted bytes
  };
  for (const CASE& c : cases) {
    const PARSE_RESULT r = parse_text(
        std::string("void k(__vptr_int16 p, int n) { __vector a;\n"
                    " for (int i = 0; i < n; i++) { __agen A = i; a = ") +
        c.address + " [A]; } }");
    ASSERT_EQ(r.err.find("address"), std::string::npos) << c.address << "\n" << r.err;
    const VCMD* vcmd = curr_vkernel->vcmds.at(0);
    ASSERT_FALSE(vcmd->blocks.back()->instrs.empty()) << c.address;
    const VLVALUE* lv = vcmd->blocks.back()->instrs.front()->lvalue();
    ASSERT_NE(lv, nullptr) << c.address;
    EXPECT_EQ(lv->parm->name, "p");
    EXPECT_EQ(lv->addr->text, c.whole);
    EXPECT_EQ(lv->base->text, c.base);
    EXPECT_EQ(lv->offset->text, c.offset);
    EXPECT_EQ(lv->type, VDATA_TYPE::int16);
  }
}

// Every node of the parser's expression trees prints back with its own sign,
// unary operators included, wherever a tree becomes generated text.
TEST(ZeltParseAnalysis, EveryOperatorPrintsItsText) {
  struct CASE {
    const char* source;
    const char* text;
  };
  const CASE cases[] = {
      {"n ? w : 2", "n?w:(<unknown node: :>)"},
      {"n || w", "n||w"}, {"n && w", "n&&w"}, {"n | w", "n|w"}, {"n ^ w", "n^w"},
      {"n & w", "n&w"}, {"n == w", "n==w"}, {"n != w", "n!=w"}, {"n < w", "n<w"},
      {"n <= w", "n<=w"}, {"n > w", "n>w"}, {"n >= w", "n>=w"}, {"n << 1", "n<<1"},
      {"n >> 1", "n>>1"}, {"n + w", "n+w"}, {"n - w", "n-w"}, {"n * w", "n*w"},
      {"n / w", "n/w"}, {"n % w", "n%w"},
      {"(int)n", "<unknown node: int>"}, {"(unsigned)n", "<unknown node: unsigned>"},
      {"sizeof(*p)", "sizeof(*p)"}, {"sizeof n", "sizeof(n)"},
      {"~n", "~n"}, {"!n", "!n"}, {"*n", "*n"}, {"+n", "n"}, {"-n", "-n"}, {"&n", "&n"},
      {"-(n + 1)", "-(n+1)"}, {"*&n", "*&n"},
      {"n[2]", "n[2]"}, {"f()", "f()"}, {"f(n, 2)", "f(n, 2)"}, {"n.x", "n.x"},
      {"n->x", "n->x"}, {"((n))", "n"},
  };
  for (const CASE& c : cases) {
    const PARSE_RESULT r = parse_text(
        std::string("void k(__vptr_int16 p, int n, int w) { __vector a;\n"
                    " for (int i = 0; i < n; i++) { __agen A = i; a = (") +
        c.source + ") + p [A]; } }");
    ASSERT_EQ(r.err, "") << c.source;
    const VLVALUE* lv = curr_vkernel->vcmds.at(0)->blocks.back()->instrs.front()->lvalue();
    ASSERT_NE(lv, nullptr) << c.source;
    EXPECT_EQ(lv->offset->text, c.text) << c.source;
  }

  parse_text("void k(__vptr_int16 p, int n) { __vector a;\n"
             " for (int i = 0; i < n; i++) { __agen A = i; a = (-n + p)[A]; } }");
  EXPECT_EQ(curr_vkernel->vcmds.at(0)->blocks.back()->instrs.front()->lvalue()->addr->text,
            "-n+(uchar *)p");
}

TEST(ZeltParseAnalysis, UnaryFactorsOfStridesKeepTheirSign) {
  const PARSE_RESULT r = parse_text(
      "void k(__vptr_int16 p, int n, int w) { __vector a;\n"
      " for (int i = 0; i < n; i++) {\n"
      "  __agen A = i*(-w), B = (*w)*i, C = i*&w, D = i*~w, E = i*!w, F = i*-(w + 1);\n"
      "  a = p[A]; } }");
  ASSERT_EQ(r.err.find("agen"), std::string::npos) << r.err;
  const std::pair<const char*, const char*> strides[] = {
      {"A", "-w"}, {"B", "*w"}, {"C", "&w"}, {"D", "~w"}, {"E", "!w"}, {"F", "-(w+1)"}};
  for (const auto& [name, text] : strides) {
    const AGEN* agen = inner_agen(name);
    ASSERT_NE(agen, nullptr) << name;
    ASSERT_NE(agen->strides[1], nullptr) << name;
    EXPECT_EQ(agen->strides[1]->text, text) << name;
  }
}

}  // namespace
