// Symbol tables, kernel parameters and their printed forms.

#include <gtest/gtest.h>

#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/symtab.h"
#include "ZELT_ZLC/vdata_type.h"
#include "tests/unit/string_out.h"

namespace {

const DIAG_SRCINFO_DATA here("k.zc", 3, 7);

class PREFIXED : public SYMREG {
 public:
  PREFIXED(const DIAG_SRCINFO& srcinfo, const std::string& name) : SYMREG(srcinfo, name) {}
  std::string format_prefix() const override { return "_VREG"; }
};

TEST(SymTableTest, NewSymKeepsFirstNameAndReplacesNumber) {
  SYM_TABLE<PREFIXED> table;
  PREFIXED* a = table.new_sym(here, "a", 3);
  EXPECT_EQ(a->srcinfo.line(), 3u);
  EXPECT_EQ(a->srcinfo.column(), 7u);
  EXPECT_EQ(a->format(), "_VREG(3)");
  PREFIXED* again = table.new_sym(here, "a", 3);
  EXPECT_NE(again, a);
  EXPECT_EQ(table.lookup("a"), a);
  EXPECT_EQ(table.by_number.at(3), again);
  PREFIXED* free = table.new_sym(here, "b", -1);
  EXPECT_TRUE(free->is_unassigned());
  EXPECT_EQ(table.by_number.size(), 1u);
  free->number = -2;
  EXPECT_TRUE(free->is_unassigned());
  EXPECT_EQ(table.lookup("c"), nullptr);
  EXPECT_EQ(SYMREG(here, "s", 5).format(), "(5)");
}

TEST(ParmTest, PointerTypesFromTypeText) {
  PARM_TABLE t;
  EXPECT_EQ(t.new_parm(here, "p", 0, "__vptr_uint16 *", "")->type(), VDATA_TYPE::uint16);
  EXPECT_EQ(t.new_parm(here, "q", 0, "__vptr_int8", "")->type(), VDATA_TYPE::int8);
  EXPECT_EQ(t.new_parm(here, "r", 0, "const __vptr_int32", "")->type(), VDATA_TYPE::int32);
  EXPECT_TRUE(t.new_parm(here, "u", 0, "unsigned char *", "")->type().is_untyped());
  EXPECT_TRUE(t.new_parm(here, "w", 0, "__vptr_uint8", "[4][2]")->type().is_untyped());
}

TEST(ParmTest, NormalizeArrayType) {
  PARM_TABLE t;
  PARM* arr = t.new_parm(here, "a", 0, "__vptr_uint8_arr", "");
  EXPECT_EQ(arr->type_text, "__vptr_uint8");
  EXPECT_TRUE(arr->is_array);
  EXPECT_EQ(arr->type(), VDATA_TYPE::uint8);
  PARM* x = t.new_parm(here, "x", 0, "int", "[4]");
  EXPECT_EQ(x->array_text, "");
  EXPECT_TRUE(x->is_array);
  EXPECT_EQ(x->declaration(), "int (*x)");
  PARM* y = t.new_parm(here, "y", 0, "int", "[4][5]");
  EXPECT_EQ(y->declaration(), "int (*y)[5]");
  EXPECT_EQ(t.new_parm(here, "n", 0, "int", "")->declaration(), "int n");
  PARM* bad = t.new_parm(here, "b", 0, "int", "[4");
  EXPECT_EQ(bad->array_text, "");
}

TEST(ParmTest, NumbersContinueAcrossTables) {
  PARM_TABLE first, second;
  PARM* a = first.new_parm(here, "a", 0, "int", "");
  PARM* b = first.new_parm(here, "b", 0, "int", "");
  PARM* c = second.new_parm(here, "a", 0, "int", "");
  EXPECT_EQ(b->number, a->number + 1);
  EXPECT_EQ(c->number, b->number + 1);
  EXPECT_EQ(second.lookup("a"), c);
}

TEST(ParmTableTest, DeclarationsAndArguments) {
  PARM_TABLE t;
  t.new_parm(here, "in", 0, "__vptr_uint8", "");
  t.new_parm(here, "n", PARM::QF_UPDATE, "int", "");
  t.new_parm(here, "m", PARM::QF_UPDATE | PARM::QF_TSCRATCH, "int", "[3][2]");
  EXPECT_TRUE(t.has_update_parms());

  STRING_OUT plain, block, update, cpp;
  t.format_declarations("__pblock_k", plain, false, false, false);
  EXPECT_EQ(plain.str(), "(\n   __vptr_uint8 in,\n   int n,\n   int (*m)[2])");
  t.format_declarations("__pblock_k", block, false, true, false);
  EXPECT_EQ(block.str(),
            "(\n   __vptr_uint8 in,\n   int n,\n   int (*m)[2],\n   unsigned short pblock[])");
  t.format_declarations("__pblock_k", update, true, false, false);
  EXPECT_EQ(update.str(), "(\n   int n,\n   int (*m)[2])");
  t.format_declarations("__pblock_k", cpp, true, true, true);
  EXPECT_EQ(cpp.str(), "(\n   int n,\n   int (*m)[2],\n   unsigned short* pblock = __pblock_k)");

  EXPECT_EQ(t.format_args(""), "(in, n, m)");
  EXPECT_EQ(t.format_args("pblock"), "(in, n, m, pblock)");
}

TEST(ParmTableTest, EmptyTableStillWritesSeparators) {
  PARM_TABLE t;
  EXPECT_FALSE(t.has_update_parms());
  STRING_OUT out;
  t.format_declarations("__pblock_k", out, false, true, false);
  EXPECT_EQ(out.str(), "(,\n   unsigned short pblock[])");
  EXPECT_EQ(t.format_args("pblock"), "(, pblock)");
  EXPECT_EQ(t.format_args(""), "()");
}

}  // namespace
