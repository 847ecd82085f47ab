// Tables: the writes of scatter groups with their setup, the names and
// shares of the templates, the index shift of a moving table, the forms of
// lookups and histogram updates, and a table size from a symbolic index.
#include <string>

#include "ZELT_ZLC/vpexpr.h"
#include "ZELT_ZLC/vstore.h"
#include "options/register_option.h"
#include "tests/unit/string_out.h"
#include "tests/unit/translate_core_fixture.h"
#include "translate/lht.h"
#include "translate/ssa.h"
#include "translate/texpr.h"
#include "translate/tmem.h"
#include "translate/val_ranges.h"

namespace {

const char* const scatter_name = "zelt_scatter<int16_t, 8, 1, 1, lut_id<0, 32768> >";

class TableTest : public TRANSLATE_TEST {
 protected:
  void TearDown() override {
    *register_option::get_option("disable:se") = 0;
    TRANSLATE_TEST::TearDown();
  }

  // for (i < n) { a = src[A]; p = src[A]; out[A] + 4 = a, as `dist` }, the
  // store then turned into a write of scatter group 0 as `table_dist`.
  std::string scatter_group(int32_t dist, int32_t table_dist, uint32_t out_flags) {
    *register_option::get_option("disable:se") = 1;  // plain generators only
    parm("n", "int");
    PARM* src = parm("src", "__vptr_int16");
    PARM* out = parm("out", "__vptr_int16", out_flags);
    VREG* a = vreg("a");
    VREG* p = vreg("p");
    loop(2, "i", sym("n"));
    AGEN* g = agen("A", 1, num(16));
    for (VREG* dst : {a, p}) {
      v()->clear_curr();
      v()->set_curr_vreg(dst);
      v()->new_vlvalue(at(3), sym("src"), src, sym("src"), nullptr, g, VDATA_TYPE::int16);
      v()->new_vload(at(3));
      v()->add_instr(v()->curr_instr);
    }
    v()->clear_curr();
    v()->new_vlvalue(at(4), sym("out + 4"), out, sym("out"), num(4), g, VDATA_TYPE::int16);
    v()->new_vstore(at(4));
    auto* store = static_cast<VSTORE*>(v()->curr_instr);
    v()->set_vstore_dist(dist, dist == VSTORE::P_SCATTER ? p : nullptr);
    v()->set_curr_vreg(a);
    v()->set_vstore_rhs();
    end_loop();
    store->dist = static_cast<VSTORE::VDIST>(table_dist);
    store->lut_index = 0;
    return translate();
  }

  TCMD* cmd() { return cmd_ ? cmd_ : (cmd_ = new TCMD(*tkernel, v())); }
  LHT_TEMPLATE* table(int32_t kind, VDATA_TYPE type, int32_t objs, int32_t pts) {
    LHT_TEMPLATE* lht = cmd()->lht_table.allocate_lht();
    lht->kind = kind;
    lht->set_fields(type, objs, pts, 1, nullptr, nullptr, nullptr, nullptr, nullptr);
    lht->in_use = true;
    return lht;
  }
  std::string text(const TINSTR& instr) {
    STRING_OUT line;
    instr.format(line);
    return line.str();
  }

  TCMD* cmd_ = nullptr;
};

TEST_F(TableTest, ScatterGroupSetsUpItsTable) {
  const std::string z = scatter_name;
  EXPECT_EQ(scatter_group(VSTORE::P_SCATTER, VSTORE::LUT_SCATTER, 0),
            "void* restrict __p0 = tvals->loop0.tvals[0].p0;\n"
            "uint32_t __p1 = tvals->loop0.tvals[0].p1;\n"
            "uint32_t __p2 = tvals->loop0.tvals[0].p2;\n"
            "uint32_t __p3 = tvals->loop0.tvals[0].p3;\n"
            "uint32_t __p4 = tvals->loop0.tvals[0].p4;\n"
            "uint32_t __p5 = tvals->loop0.tvals[0].p5;\n"
            "\n"
            "int32_t Stemp0;\n"
            "int32_t Stemp1;\n"
            "int32_t i;\n"
            "\n"
            "A = 0;\n"
            "Stemp0 = " + z + "::max_index(p);\n"
            "Stemp1 = " + z + "::scatter_size(__p2, Stemp0, __p1);\n" +
            z + "::copy_table_in((void*)out, Stemp1, __p4);\n" +
            z + "::open(0, __p3);\n"
            "\n"
            "#pragma MUST_ITERATE(1,65535,)\n"
            "#pragma PARALLEL_LOOP\n"
            "for (i = 0; i < (int32_t)n; ++i)\n"
            "{\n"
            "   zelt_load<int16_t, npt, nosa>::load(a, (void*)((char*)src + A));\n"
            "   zelt_load<int16_t, npt, nosa>::load(p, (void*)((char*)src + A));\n"
            "   " + z + "::scatter(a, A + 4, p);\n"
            "   A += 16;\n"
            "}\n" +
            z + "::copy_table_out((void*)out, Stemp1, __p5);\n");
  EXPECT_EQ(init_text(false),
            "tvals->loop0.tvals[0].p0 = out + 4;\n"
            "tvals->loop0.tvals[0].p1 = max8(4);\n"
            "tvals->loop0.tvals[0].p2 = max_agen((int32_t)n, 16);\n"
            "tvals->loop0.tvals[0].p3 = " + z + "::config();\n"
            "tvals->loop0.tvals[0].p4 = " + z + "::copy_in_config();\n"
            "tvals->loop0.tvals[0].p5 = " + z + "::copy_out_config();\n");
}

// An output-only buffer isn't read in first; its size comes from the
// generator's reach.
TEST_F(TableTest, OffsetNp1GroupOfAnOutputOnlyBuffer) {
  const std::string z = scatter_name;
  EXPECT_EQ(scatter_group(VSTORE::OFFSET_NP1, VSTORE::LUT_OFFSET_NP1, PARM::QF_OUTPUT_ONLY),
            "void* restrict __p0 = tvals->loop0.tvals[0].p0;\n"
            "uint32_t __p1 = tvals->loop0.tvals[0].p1;\n"
            "uint32_t __p2 = tvals->loop0.tvals[0].p2;\n"
            "uint32_t __p3 = tvals->loop0.tvals[0].p3;\n"
            "uint32_t __p4 = tvals->loop0.tvals[0].p4;\n"
            "uint32_t __p5 = tvals->loop0.tvals[0].p5;\n"
            "\n"
            "int32_t i;\n"
            "\n"
            "A = 0;\n" +
            z + "::open(0, __p4);\n"
            "\n"
            "#pragma MUST_ITERATE(1,65535,)\n"
            "#pragma PARALLEL_LOOP\n"
            "for (i = 0; i < (int32_t)n; ++i)\n"
            "{\n"
            "   zelt_load<int16_t, npt, nosa>::load(a, (void*)((char*)src + A));\n"
            "   zelt_load<int16_t, npt, nosa>::load(p, (void*)((char*)src + A));\n"
            "   " + z + "::offset_np1(a, A + 4);\n"
            "   A += 16;\n"
            "}\n" +
            z + "::copy_table_out((void*)out, __p3, __p5);\n");
  EXPECT_EQ(init_text(false),
            "tvals->loop0.tvals[0].p0 = out + 4;\n"
            "tvals->loop0.tvals[0].p1 = max8(4);\n"
            "tvals->loop0.tvals[0].p2 = max_agen((int32_t)n, 16);\n"
            "tvals->loop0.tvals[0].p3 = " + z + "::scatter_size(tvals->loop0.tvals[0].p2, 252, "
            "tvals->loop0.tvals[0].p1);\n"
            "tvals->loop0.tvals[0].p4 = " + z + "::config();\n"
            "tvals->loop0.tvals[0].p5 = " + z + "::copy_out_config();\n");
}

TEST_F(TableTest, ScatterThroughAStreamAddressesItsPointer) {
  VREG* a = vreg("a");
  VREG* p = vreg("p");
  TVSTORE store;
  store.dist = VSTORE::LUT_SCATTER;
  store.type = VDATA_TYPE::int16;
  store.src = a;
  store.scatter = p;
  store.offset = new TEXPR(*cmd(), "int32_t", num(0));
  store.lht_ = table(LHT_TEMPLATE::SCATTER, VDATA_TYPE::int16, 8, 1);
  SA_TEMPLATE* sa = cmd()->sa_table.at(0);
  store.use_stream(sa);
  sa->advance_instr = &store;
  EXPECT_EQ(text(store), std::string(scatter_name) +
                             "::scatter(a, (long long)SAptr<int16_t,sa0adv>(NULL).addr(), p);\n");
}

TEST_F(TableTest, ShiftOfAMovingTable) {
  struct {
    int32_t objs;
    VDATA_TYPE type;
    int32_t shift;
  } const cases[] = {{1, VDATA_TYPE::uint8, 0}, {1, VDATA_TYPE::uint16, 1},
                     {2, VDATA_TYPE::int32, 3},  {8, VDATA_TYPE::uint32, 5},
                     {3, VDATA_TYPE::int16, 2}};
  for (const auto& c : cases) {
    LHT_TEMPLATE lht(cmd(), 0);
    lht.set_fields(c.type, c.objs, 1, 1, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(lht.agen_shift(), c.shift) << c.objs << " " << c.type.get_name();
  }
}

TEST_F(TableTest, LookupAndHistogramForms) {
  VREG* d = vreg("d");
  VREG* h = vreg("h");
  VREG* w = vreg("w");
  AGEN* moving = agen("H", 1, num(64));
  LHT_TEMPLATE* hist = table(LHT_TEMPLATE::HISTOGRAM, VDATA_TYPE::uint16, 1, 1);
  const std::string name = "zelt_hist<uint16_t, 1, 1, 1, lut_id<0, 32768> >";
  EXPECT_EQ(text(TVHIST(h, d, nullptr, nullptr, VDATA_TYPE::uint16, hist)),
            name + "::hist_update(h, d);\n");
  EXPECT_EQ(text(TVHIST(h, d, w, moving, VDATA_TYPE::uint16, hist)),
            name + "::whist_update(h, d + (int)(H >> 1), w);\n");
  EXPECT_EQ(TVHIST(h, d, nullptr, nullptr, VDATA_TYPE::uint16, hist).src_regs().size(), 1u);
  LHT_TEMPLATE* lookup = table(LHT_TEMPLATE::LOOKUP, VDATA_TYPE::int8, 4, 2);
  EXPECT_EQ(text(TVLOOKUP(h, d, moving, VDATA_TYPE::int8, lookup)),
            "zelt_lookup<int8_t, 4, 2, 1, lut_id<1, 16384> >::lookup(h, d + (int)(H >> 2));\n");
}

// The index comes from a symbolic value: the size is computed in the
// parameter block's arithmetic and limited at run time.
TEST_F(TableTest, SymbolicIndexRangeSizesAtRunTime) {
  TCMD* c = cmd();
  VREG* x = vreg("x");
  VREG* y = vreg("y");
  BBLOCK* block = c->blocks.front();
  block->add_tinstr_back(new TVINIT(x, new TEXPR(*c, sym("n"))));
  LHT_TEMPLATE* lht = table(LHT_TEMPLATE::LOOKUP, VDATA_TYPE::uint16, 2, 4);
  auto* lookup = new TVLOOKUP(y, x, nullptr, VDATA_TYPE::uint16, lht);
  block->add_tinstr_back(lookup);
  lht->users.push_back(lookup);
  SSA::GRAPH graph(c);
  VAL_RANGES ranges(graph);
  lht->set_lht_size(ranges);

  const std::string d = "((((n) + (1))) * (2))";
  const std::string t = "((((((" + d + ") + (16))) - (1))) / (16))";
  const std::string computed = "((((16) * (" + t + "))) + (" + d + "))";
  ASSERT_NE(lht->size, nullptr);
  EXPECT_EQ(lht->size->pexpr->text, "((" + computed + ")>32768?32768:(" + computed + "))");
  EXPECT_EQ(lht->size->type, "uint32_t");
  EXPECT_NE(lht->size->tval, nullptr);
  EXPECT_EQ(messages(), "");  // a determinate index needs no warning
}

}  // namespace
