// The algebra of parameter expressions: short cuts, texts, folding, equality.
#include <csignal>

#include <gtest/gtest.h>

#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {

const DIAG_SRCINFO_DATA here("k.zc", 1);

const VPEXPR* num(long v, VPEXPR::EVAL_TYPE t = VPEXPR::EVAL_SIGNED) { return new VPEXPR(v, t); }

VPEXPR* sym(const std::string& text, PARM* ref = nullptr) {
  VPEXPR* e = new VPEXPR(text);
  e->eval_type = VPEXPR::EVAL_SYMBOLIC;
  if (ref) e->parm_refs.insert(ref);
  return e;
}

TEST(VpexprTest, ShortCutsReturnOperandsOrSharedZero) {
  PARM_TABLE parms;
  PARM* n = parms.new_parm(here, "n", 0, "int", "");
  const VPEXPR* x = sym("x", n);
  const VPEXPR* zero = num(0);
  const VPEXPR* one = num(1, VPEXPR::EVAL_UNSIGNED);
  EXPECT_EQ(VPEXPR::sum(zero, x), x);
  EXPECT_EQ(VPEXPR::sum(x, zero), x);
  EXPECT_EQ(VPEXPR::diff(x, zero), x);
  EXPECT_EQ(VPEXPR::product(x, zero), VPEXPR::zero);  // the references of x go with it
  EXPECT_EQ(VPEXPR::product(one, x), x);
  EXPECT_EQ(VPEXPR::product(x, one), x);
  EXPECT_EQ(VPEXPR::quotient(zero, num(7)), VPEXPR::zero);
  EXPECT_EQ(VPEXPR::quotient(x, one), x);
  EXPECT_EQ(VPEXPR::modulus(zero, x), zero);
}

TEST(VpexprTest, UnsetTypeIsNoKnownZeroButFoldsAsNumber) {
  VPEXPR* unset = new VPEXPR("0");
  const VPEXPR* r = VPEXPR::sum(unset, num(5));
  EXPECT_NE(r, unset);
  EXPECT_EQ(r->eval_type, VPEXPR::EVAL_SIGNED);
  EXPECT_EQ(r->text, "5");
  EXPECT_NE(VPEXPR::quotient(unset, num(3)), VPEXPR::zero);
}

TEST(VpexprTest, SymbolicTextsAndReferencesInOrder) {
  PARM_TABLE parms;
  PARM* a = parms.new_parm(here, "a", 0, "int", "");
  PARM* b = parms.new_parm(here, "b", 0, "int", "");
  const VPEXPR* ea = sym("a", a);
  const VPEXPR* eb = sym("b", b);
  const VPEXPR* s = VPEXPR::sum(eb, ea);
  EXPECT_EQ(s->text, "((b) + (a))");
  EXPECT_EQ(s->eval_type, VPEXPR::EVAL_SYMBOLIC);
  ASSERT_EQ(s->parm_refs.size(), 2u);
  EXPECT_EQ(*s->parm_refs.begin(), a);  // by parameter number, not by operand or address
  EXPECT_EQ(VPEXPR::diff(num(0), eb)->text, "-(b)");
  EXPECT_EQ(VPEXPR::diff(num(0), eb)->parm_refs.count(b), 1u);
  EXPECT_EQ(VPEXPR::diff(ea, num(3))->text, "((a) - (3))");
  EXPECT_EQ(VPEXPR::modulus(ea, num(4))->text, "((a) % (4))");
}

TEST(VpexprTest, FoldsWrapOn32BitsAndAreSigned) {
  EXPECT_EQ(VPEXPR::sum(num(2), num(3))->text, "5");
  const VPEXPR* wrap = VPEXPR::sum(num(0xFFFFFFFFL, VPEXPR::EVAL_UNSIGNED), num(2));
  EXPECT_EQ(wrap->eval_type, VPEXPR::EVAL_SIGNED);
  EXPECT_EQ(wrap->text, "1");
  EXPECT_EQ(VPEXPR::product(num(65536), num(65536))->text, "0");
  EXPECT_EQ(VPEXPR::product(num(0x7FFFFFFF), num(2))->text, "-2");
  EXPECT_EQ(VPEXPR::diff(num(0), num(0x80000000L, VPEXPR::EVAL_UNSIGNED))->text, "-2147483648");
  EXPECT_EQ(VPEXPR::diff(num(3), num(5))->value64(), -2);
}

TEST(VpexprTest, DivisionExtendsBySignedness) {
  const VPEXPR* minus8 = num(-8);
  const VPEXPR* minus8u = num(0xFFFFFFF8L, VPEXPR::EVAL_UNSIGNED);
  EXPECT_EQ(VPEXPR::quotient(minus8, num(2))->text, "-4");
  EXPECT_EQ(VPEXPR::quotient(minus8u, num(2))->text, "2147483644");
  EXPECT_EQ(VPEXPR::modulus(num(-8), num(3))->text, "-2");
  EXPECT_EQ(VPEXPR::modulus(minus8u, num(3))->text, "2");
  EXPECT_EQ(VPEXPR::quotient(num(7), num(-1))->text, "-7");
  EXPECT_EQ(VPEXPR::quotient(minus8u, num(-1))->text, "8");
  EXPECT_EQ(VPEXPR::modulus(minus8, num(-1))->text, "0");
}

// The signal's default action, as a sanitizer may have put its own handler
// where the program would install the fault handler.
void fold_with_default_sigfpe(const VPEXPR* (*op)(const VPEXPR*, const VPEXPR*),
                              const VPEXPR* a, const VPEXPR* b) {
  std::signal(SIGFPE, SIG_DFL);
  op(a, b);
}

TEST(VpexprDeathTest, ZeroDivisorInAFoldRaisesSigfpe) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(fold_with_default_sigfpe(VPEXPR::quotient, num(5), num(0)),
              testing::KilledBySignal(SIGFPE), "");
  EXPECT_EXIT(fold_with_default_sigfpe(VPEXPR::modulus, num(5), num(0, VPEXPR::EVAL_UNSIGNED)),
              testing::KilledBySignal(SIGFPE), "");
  EXPECT_EXIT(fold_with_default_sigfpe(VPEXPR::quotient, num(0), new VPEXPR("0")),
              testing::KilledBySignal(SIGFPE), "");
}

TEST(VpexprTest, ZeroDivisorWithoutAFoldIsHarmless) {
  EXPECT_EQ(VPEXPR::quotient(sym("n"), num(0))->text, "((n) / (0))");
  const VPEXPR* zero = num(0);
  EXPECT_EQ(VPEXPR::modulus(zero, num(0)), zero);
}

TEST(VpexprTest, EqualsByValueOrStrippedText) {
  EXPECT_TRUE(num(16)->equals(num(16, VPEXPR::EVAL_UNSIGNED)));
  VPEXPR* hex = new VPEXPR("0x10");
  hex->eval_type = VPEXPR::EVAL_SIGNED;
  hex->value = 16;
  EXPECT_TRUE(num(16)->equals(hex));
  EXPECT_FALSE(num(-1)->equals(num(0xFFFFFFFFL, VPEXPR::EVAL_UNSIGNED)));
  EXPECT_TRUE(sym("(((n)))")->equals(sym("n")));
  EXPECT_FALSE(sym("(a)+(b)")->equals(sym("a+b")));
  EXPECT_TRUE(sym("((a)+(b))")->equals(sym("(a)+(b)")));
  EXPECT_TRUE(sym("(n")->equals(sym("(n")));  // unmatched: left as it stands
  EXPECT_FALSE(sym("(n")->equals(sym("n")));
  EXPECT_FALSE(sym("16")->equals(hex));  // symbolic on one side: texts decide
  EXPECT_TRUE(sym("(0x10)")->equals(hex));
}

}  // namespace
