// Literal values, evaluation types and printed forms of expression trees.
#include <gtest/gtest.h>

#include <initializer_list>

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/vctree.h"
#include "ZELT_ZLC/vkernel.h"
#include "tests/unit/string_out.h"
#include "zeltParser.h"

namespace {

// Trees made directly in an arena, as the parser's actions make them.
class ZeltVctreeTrees : public testing::Test {
 protected:
  void SetUp() override {
    kernel = new VKERNEL(out, header);
    curr_vkernel = kernel;
    kernel->new_parm(srcloc_internal, "p", 0, "__vptr_int16", "");
    kernel->new_parm(srcloc_internal, "q", 0, "__vptr_uint8", "");
    kernel->new_parm(srcloc_internal, "n", 0, "int", "");
  }

  EXPR_TREE* node(ANTLR3_UINT32 type, const char* text,
                  std::initializer_list<EXPR_TREE*> children = {}) {
    EXPR_TREE* tree = trees.imaginary(type, text);
    for (EXPR_TREE* c : children) trees.add_child(tree, c);
    return tree;
  }
  EXPR_TREE* id(const char* name) { return node(IDENTIFIER, name); }
  EXPR_TREE* lit(const char* text) { return node(INT_LITERAL, text); }
  EXPR_TREE* pexpr(EXPR_TREE* body) { return node(PEXPR, "PEXPR", {body}); }

  STRING_OUT out, header;
  VKERNEL* kernel = nullptr;
  EXPR_TREES trees;
};

struct LITERAL {
  const char* text;
  int64_t value;
  VPEXPR::EVAL_TYPE type;
};

TEST(ZeltVctreeParseInt, BasesSuffixesAndTypes) {
  const LITERAL cases[] = {
      {"0", 0, VPEXPR::EVAL_SIGNED},
      {"42", 42, VPEXPR::EVAL_SIGNED},
      {"017", 15, VPEXPR::EVAL_SIGNED},
      {"0x1F", 31, VPEXPR::EVAL_SIGNED},
      {"0X1f", 31, VPEXPR::EVAL_SIGNED},
      {"1ah", 26, VPEXPR::EVAL_SIGNED},    // a trailing h makes any digits hex
      {"17q", 15, VPEXPR::EVAL_SIGNED},    // q: octal when every digit is
      {"19q", 19, VPEXPR::EVAL_SIGNED},
      {"5U", 5, VPEXPR::EVAL_UNSIGNED},
      {"5LU", 5, VPEXPR::EVAL_UNSIGNED},  // U one place further on counts too
      {"5u", 5, VPEXPR::EVAL_SIGNED},     // lower-case u sets nothing
      {"5ul", 5, VPEXPR::EVAL_SIGNED},
      {"4294967295", 4294967295LL, VPEXPR::EVAL_SIGNED},
      {"0xFFFFFFFFFFFFFFFF", -1, VPEXPR::EVAL_UNSIGNED},
      {"18446744073709551617", 1, VPEXPR::EVAL_SIGNED},  // wraps in 64 bits
  };
  for (const LITERAL& c : cases) {
    VPEXPR expr("");
    PEXPR_EVALUATOR evaluator(expr, nullptr);
    EXPECT_EQ(evaluator.parse_int(c.text), c.value) << c.text;
    EXPECT_EQ(expr.eval_type, c.type) << c.text;
  }
}

TEST_F(ZeltVctreeTrees, ConstantsFoldWithTheirTypes) {
  VPEXPR* sum = build_pexpr(pexpr(node(PLUS, "+", {lit("1"), lit("2")})), "1 + 2");
  EXPECT_EQ(sum->text, "1 + 2");
  EXPECT_EQ(sum->value, 3u);
  EXPECT_EQ(sum->eval_type, VPEXPR::EVAL_SIGNED);

  VPEXPR* minus = build_pexpr(pexpr(node(UMINUS, "-", {lit("1")})), "-1");
  EXPECT_EQ(minus->value, 0xffffffffu);
  EXPECT_EQ(minus->eval_type, VPEXPR::EVAL_SIGNED);

  // The negation of a literal that made the expression unsigned is signed
  // again; an unsigned cast around it stays unsigned.
  VPEXPR* big = build_pexpr(pexpr(node(UMINUS, "-", {lit("0x8000000000000000")})), "");
  EXPECT_EQ(big->eval_type, VPEXPR::EVAL_SIGNED);

  // The cast is seen before its operand.
  VPEXPR* cast = build_pexpr(pexpr(node(UNS_TYPE, "unsigned", {node(UMINUS, "-", {lit("1")})})), "");
  EXPECT_EQ(cast->eval_type, VPEXPR::EVAL_UNSIGNED);
  EXPECT_EQ(cast->value, 0xffffffffu);

  VPEXPR* shift = build_pexpr(pexpr(node(SHR, ">>", {node(UMINUS, "-", {lit("8")}), lit("65")})), "");
  EXPECT_EQ(static_cast<int32_t>(shift->value), -4);  // arithmetic, by the count modulo 64

  VPEXPR* logic = build_pexpr(pexpr(node(ANDAND, "&&", {lit("1"), lit("1")})), "1 && 1");
  EXPECT_EQ(logic->eval_type, VPEXPR::EVAL_SYMBOLIC);
}

TEST_F(ZeltVctreeTrees, NamesParametersAndWidth) {
  zelt_simd_width = 16;
  VPEXPR* width = build_pexpr(pexpr(node(MULT, "*", {id("ZELT_SIMD_WIDTH"), lit("2")})), "");
  EXPECT_EQ(width->value, 32u);
  EXPECT_EQ(width->eval_type, VPEXPR::EVAL_UNSIGNED);
  EXPECT_TRUE(width->uses_width);

  EXPR_TREE* p = id("p");
  VPEXPR* sym = build_pexpr(pexpr(node(PLUS, "+", {p, node(PLUS, "+", {id("n"), id("i")})})), "");
  EXPECT_EQ(sym->eval_type, VPEXPR::EVAL_SYMBOLIC);
  ASSERT_EQ(sym->parm_refs.size(), 2u);
  EXPECT_EQ((*sym->parm_refs.begin())->name, "p");
  EXPECT_EQ(p->type, static_cast<ANTLR3_UINT32>(VPTR));

  VPEXPR* size = build_pexpr(pexpr(node(SIZEOF, "sizeof", {node(UMULT, "*", {id("p")})})), "");
  EXPECT_EQ(size->value, 2u);
  EXPECT_EQ(size->eval_type, VPEXPR::EVAL_UNSIGNED);
  VPEXPR* size2 = build_pexpr(
      pexpr(node(SIZEOF, "sizeof", {node(UMULT, "*", {node(UMULT, "*", {id("q")})})})), "");
  EXPECT_EQ(size2->value, 1u);
  for (EXPR_TREE* operand : {node(UMULT, "*", {id("n")}), id("p"), node(UMULT, "*", {id("zz")})}) {
    VPEXPR* bad = build_pexpr(pexpr(node(SIZEOF, "sizeof", {operand})), "");
    EXPECT_EQ(bad->eval_type, VPEXPR::EVAL_SYMBOLIC);
    EXPECT_EQ(bad->value, 1u);
  }
}

TEST_F(ZeltVctreeTrees, PrintedFormsFollowPrecedence) {
  using ANTLR3_TREE_UTIL::tostring;
  // (a+b)*c keeps its parentheses; a-(b-c) too, a-b-c needs none.
  EXPECT_EQ(tostring(pexpr(node(MULT, "*", {node(PLUS, "+", {id("a"), id("b")}), id("c")}))),
            "(a+b)*c");
  EXPECT_EQ(tostring(node(MINUS, "-", {id("a"), node(MINUS, "-", {id("b"), id("c")})})), "a-(b-c)");
  EXPECT_EQ(tostring(node(MINUS, "-", {node(MINUS, "-", {id("a"), id("b")}), id("c")})), "a-b-c");
  EXPECT_EQ(tostring(node(UMINUS, "-", {node(PLUS, "+", {id("a"), lit("1")})})), "-(a+1)");
  EXPECT_EQ(tostring(node(SIZEOF, "sizeof", {node(UMULT, "*", {id("p")})})), "sizeof(*p)");
  EXPECT_EQ(tostring(node(SUBSCRIPT, "[", {id("t"), node(PLUS, "+", {id("i"), lit("1")})})),
            "t[i+1]");
  EXPECT_EQ(tostring(node(CALL, "(", {id("f"), node(ARGS, "(", {id("a"), lit("2")})})), "f(a, 2)");
  EXPECT_EQ(tostring(node(STREF, "->", {id("s"), id("cap")})), "s->cap");
  // A pointer parameter inside a larger expression is cast to bytes.
  EXPECT_EQ(tostring(node(VPTR, "p")), "p");
  EXPECT_EQ(tostring(node(PLUS, "+", {node(VPTR, "p"), lit("4")})), "(uchar *)p+4");
  // The conditional prints its ':' node and drops the else branch.
  EXPECT_EQ(tostring(node(QUEST, "?", {id("c"), lit("1"), node(T__80, ":"), lit("2")})),
            "c?1:(<unknown node: :>)");
  EXPECT_EQ(tostring(node(PLUS, "+", {node(INT_TYPE, "int", {id("n")}), lit("1")})),
            "(<unknown node: int>)+1");
  EXPECT_EQ(tostring(trees.nil()), "nil");
}

}  // namespace
