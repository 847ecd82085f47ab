// Expression trees as the parser's actions build them: nil lists, roots and
// error trees.
#include <gtest/gtest.h>

#include "ZELT_ZLC/expr_tree.h"
#include "zeltParser.h"

namespace {

TEST(ZeltExprTree, RootsFollowTheRulesOfNilLists) {
  EXPR_TREES trees;
  EXPR_ROOT empty;
  EXPECT_EQ(empty.result(), nullptr);

  EXPR_TREE* a = trees.imaginary(IDENTIFIER, "a");
  EXPR_TREE* b = trees.imaginary(IDENTIFIER, "b");
  EXPR_ROOT one;
  one.add(trees, a);
  EXPECT_EQ(one.result(), a);

  // Two children make a nil list, which a parent takes apart.
  EXPR_ROOT list;
  list.add(trees, a);
  list.add(trees, b);
  EXPR_TREE* both = list.result();
  ASSERT_TRUE(both->nil);
  EXPR_TREE* args = trees.imaginary(ARGS, "(");
  trees.add_child(args, both);
  ASSERT_EQ(args->child_count, 2u);
  EXPECT_EQ(args->child(0), a);
  EXPECT_EQ(args->child(1), b);
  EXPECT_EQ(args->child(2), nullptr);

  // An operator made root takes what came before; a later operand follows.
  EXPR_ROOT sum;
  sum.add(trees, trees.imaginary(INT_LITERAL, "1"));
  sum.become_root(trees, trees.imaginary(PLUS, "+"));
  sum.add(trees, trees.imaginary(INT_LITERAL, "2"));
  sum.become_root(trees, trees.imaginary(MINUS, "-"));
  EXPR_TREE* root = sum.result();
  EXPECT_EQ(root->type, static_cast<ANTLR3_UINT32>(MINUS));
  ASSERT_EQ(root->child_count, 1u);
  EXPECT_EQ(root->child(0)->type, static_cast<ANTLR3_UINT32>(PLUS));
  EXPECT_EQ(root->child(0)->child(1)->text, "2");
}

TEST(ZeltExprTree, ErrorTreesAreCopiedWhereTheyBecomeChildren) {
  EXPR_TREES trees;
  EXPR_TREE* p = trees.imaginary(PLUS, "+");
  EXPR_TREE* q = trees.imaginary(PLUS, "+");
  trees.add_child(p, error_tree());
  trees.add_child(q, error_tree());
  ASSERT_NE(p->child(0), error_tree());
  EXPECT_NE(p->child(0), q->child(0));
  EXPECT_EQ(p->child(0)->type, 0u);
  EXPECT_EQ(p->child(0)->text, "Tree Error Node");
  EXPECT_EQ(error_tree()->next, nullptr);

  EXPR_ROOT cast;
  cast.become_root(trees, error_tree());
  cast.add(trees, trees.imaginary(IDENTIFIER, "x"));
  EXPECT_NE(cast.result(), error_tree());
  EXPECT_EQ(cast.result()->child_count, 1u);
}

}  // namespace
