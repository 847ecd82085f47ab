// Histogram and table lookup loops: their announcement, the statements they
// refuse, histogram updates, lookups, expanding loads and table stores.
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/vcmd_hist_tbl.h"
#include "ZELT_ZLC/vhup_vtld.h"
#include "ZELT_ZLC/vstore.h"
#include "options/register_option.h"
#include "tests/unit/zelt_instr_support.h"

namespace {

class SpecialTest : public INSTR_TEST {
 protected:
  void TearDown() override {
    zelt_simd_width = 8;
    looptype = 0;
    INSTR_TEST::TearDown();
  }
  register_option& looptype = *register_option::get_option("debug:looptype");
  AGEN* agen(const std::string& name) {
    AGEN* a = v()->new_agen(at(1), name);
    a->has_init = true;
    a->strides[1] = num(1);
    a->deepest_depth = 1;
    return a;
  }
  // dst = p[A].lookup(index) and dst = p[A].hist_update(data, weight).
  VINSTR* lookup(unsigned line, VREG* dst, VREG* index, AGEN* a) {
    v()->clear_curr();
    v()->set_curr_vreg(dst);
    ref(line, VDATA_TYPE::int16, a);
    v()->new_vload(at(line));
    v()->add_table_lookup(at(line), index);
    VINSTR* instr = v()->curr_instr;
    v()->add_instr(instr);
    return instr;
  }
  VINSTR* hist_update(unsigned line, VREG* dst, VREG* data, VREG* weight, AGEN* a,
                      VDATA_TYPE type = VDATA_TYPE::uint16) {
    v()->clear_curr();
    v()->set_curr_vreg(dst);
    ref(line, type, a);
    v()->new_vload(at(line));
    v()->set_vmem_sat(nullptr, nullptr, nullptr, nullptr);
    v()->add_hist_update(at(line), data, weight);
    VINSTR* instr = v()->curr_instr;
    v()->add_instr(instr);
    return instr;
  }
};

TEST_F(SpecialTest, HistogramCountTableSizeAndProfileLine) {
  looptype = 1;
  testing::internal::CaptureStdout();
  kernel->add_histogram_vloop(at(1), num(3), num(32768));
  kernel->add_histogram_vloop(at(2), num(8), num(32769));
  kernel->add_histogram_vloop(at(3), sym("n"), nullptr);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "ZLC_PROFILE: HISTOGRAM in k with 3 PARALLEL\n"
            "ZLC_PROFILE: HISTOGRAM in k with 8 PARALLEL\n"
            "ZLC_PROFILE: HISTOGRAM in k with n PARALLEL\n");
  EXPECT_EQ(messages(),
            "\"k.zc\", line 1: error: number of histograms must be a constant value of 1, 2,\n"
            "   4, or 8\n"
            "\"k.zc\", line 2: warning: The specified table size exceeds the maximum possible\n"
            "   size of 32768.\n"
            "\"k.zc\", line 3: error: number of histograms must be a constant value of 1, 2,\n"
            "   4, or 8\n");
  EXPECT_EQ(v()->vloop_type(), VCMD::HIST);
  EXPECT_EQ(v()->next_agen, 3);
  EXPECT_EQ(static_cast<VCMD_HIST*>(v())->dup->value64(), 1);
}

TEST_F(SpecialTest, TableCountsPointsAndDuplication) {
  looptype = 1;
  testing::internal::CaptureStdout();
  kernel->add_tablelkup_vloop(at(1), num(1), num(8), num(1), nullptr);
  kernel->add_tablelkup_vloop(at(2), num(2), num(8), num(1), nullptr);
  kernel->add_tablelkup_vloop(at(3), num(1), num(16), nullptr, nullptr);
  kernel->add_tablelkup_vloop(at(4), num(1), num(4), num(2), nullptr);
  kernel->add_tablelkup_vloop(at(5), sym("t"), num(4), nullptr, nullptr);
  kernel->add_tablelkup_vloop(at(6), nullptr, nullptr, nullptr, nullptr);
  zelt_simd_width = 16;
  kernel->add_tablelkup_vloop(at(7), num(1), num(16), num(1), nullptr);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "ZLC_PROFILE: TABLE_LOOKUP in k with 1 TABLES and 8 POINTS \n"
            "ZLC_PROFILE: TABLE_LOOKUP in k with 2 TABLES and 8 POINTS \n"
            "ZLC_PROFILE: TABLE_LOOKUP in k with 1 TABLES and 16 POINTS \n"
            "ZLC_PROFILE: TABLE_LOOKUP in k with 1 TABLES and 4 POINTS \n"
            "ZLC_PROFILE: TABLE_LOOKUP in k with t TABLES and 4 POINTS \n"
            "ZLC_PROFILE: TABLE_LOOKUP in k with 0 TABLES and 0 POINTS \n"
            "ZLC_PROFILE: TABLE_LOOKUP in k with 1 TABLES and 16 POINTS \n");
  const std::string count =
      "number of tables must be constant value of 1, 2, 4, or\n"
      "   8; number of points must be a constant value of 1, 2, 4, 8, or 16 that is\n"
      "   less than or equal to ZELT_SIMD_WIDTH\n";
  const std::string product =
      "the product of table count, points, and duplication\n"
      "   factor must not exceed ZELT_SIMD_WIDTH\n";
  EXPECT_EQ(messages(),
            "\"k.zc\", line 2: error: " + product + "\"k.zc\", line 3: error: " + count +
                "\"k.zc\", line 3: error: " + product +
                "\"k.zc\", line 4: error: duplication factor must be a constant value greater than\n"
                "   or equal to 1 and less than or equal to ZELT_SIMD_WIDTH/8\n" +
                "\"k.zc\", line 5: error: " + count);
  auto* tbl = static_cast<VCMD_TBL*>(v());
  EXPECT_EQ(tbl->dup->value64(), 1);
  EXPECT_EQ(tbl->num_pts()->value64(), 16);
}

TEST_F(SpecialTest, SpecialLoopTakesOverTheForeachAndItsLocation) {
  v()->push_rpt(at(4), "r", sym("n"), num(10));
  VCMD* empty = v();
  kernel->add_histogram_vloop(at(5), num(1), nullptr);
  ASSERT_NE(v(), empty);
  ASSERT_NE(v()->vrpt, nullptr);
  EXPECT_EQ(v()->curr_block, v()->vrpt);
  EXPECT_EQ(v()->innermost, v()->vrpt);
  EXPECT_EQ(v()->vrpt->parent, &v()->root);
  EXPECT_EQ(v()->vrpt->lcv, "r");
  EXPECT_EQ(v()->rpt_max(), 10);
  EXPECT_EQ(v()->srcinfo.line(), 4u);
  EXPECT_EQ(v()->blocks.size(), 2u);
}

TEST_F(SpecialTest, StatementsRefusedByEachLoopKind) {
  VREG* a = vreg("a");
  v()->set_curr_vreg(a);
  v()->add_hist_update(at(1), a, a);
  v()->add_table_lookup(at(2), a);
  v()->add_expand_vload(at(3), a);
  kernel->add_histogram_vloop(at(4), num(1), nullptr);
  begin_store(5, VDATA_TYPE::int16);
  EXPECT_EQ(v()->curr_instr, nullptr);
  op(6, "vadd", a, a, a);
  v()->new_vmove(at(7), a, a);
  v()->add_table_lookup(at(8), a);
  kernel->add_tablelkup_vloop(at(9), num(1), num(1), nullptr, nullptr);
  init(10, a, num(1));
  v()->new_vexit(at(11), "out", a, num(0), nullptr);
  v()->add_hist_update(at(12), a, a);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 1: error: histogram instructions are not allowed in this loop\n"
            "\"k.zc\", line 2: error: table lookup instructions are not allowed in the this\n"
            "   loop\n"
            "\"k.zc\", line 3: error: table lookup instructions are not allowed in the this\n"
            "   loop\n"
            "error: histogram loops do not support this instruction\n"
            "error: histogram loops do not support this instruction\n"
            "error: histogram loops do not support this instruction\n"
            "\"k.zc\", line 8: error: table lookup instructions are not allowed in the this\n"
            "   loop\n"
            "error: table lookup loops do not support this instruction\n"
            "error: table lookup loops do not support this instruction\n"
            "\"k.zc\", line 12: error: histogram instructions are not allowed in this loop\n");
}

TEST_F(SpecialTest, HistogramUpdateBindsGeneratorRolesAndChecksTheWeight) {
  VREG* d = vreg("d");
  VREG* data = vreg("data");
  VREG* w = vreg("w");
  VREG* w8 = vreg("w8");
  VREG* w32 = vreg("w32");
  kernel->add_histogram_vloop(at(1), num(1), nullptr);
  loop(2, "i", sym("n"));
  AGEN* h = agen("H");
  AGEN* x = agen("X");
  AGEN* wa = agen("W");
  load(3, data, VDATA_TYPE::uint8, 0, nullptr, x);
  load(4, w, VDATA_TYPE::uint16, VLOAD::WEIGHT_LOAD, nullptr, wa);
  auto* hup = static_cast<VHUP*>(hist_update(5, d, data, w, h));
  EXPECT_EQ(messages(), "");
  EXPECT_EQ(v()->innermost->instrs.back(), hup);
  EXPECT_EQ(x->number, 0);
  EXPECT_EQ(h->number, 1);
  EXPECT_EQ(wa->number, 2);
  EXPECT_EQ(v()->find_vreg_instr(d), hup);
  EXPECT_EQ(hup->round_sat.sat_mode, ROUND_SAT::SM_ASYMM);  // from the load in progress
  EXPECT_EQ(hup->data_load->lv->agen, x);

  testing::internal::CaptureStderr();
  load(6, w8, VDATA_TYPE::int8, VLOAD::WEIGHT_LOAD);
  load(7, w32, VDATA_TYPE::uint32, VLOAD::WEIGHT_LOAD);
  hist_update(8, vreg("e"), data, w8, nullptr);
  hist_update(9, vreg("f"), data, w32, nullptr);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 3: error: address generator \"X\" must be unique to this\n"
            "   instruction\n"
            "\"k.zc\", line 8: error: weight pointer sign must match the histogram pointer\n"
            "   sign\n"
            "\"k.zc\", line 3: error: address generator \"X\" must be unique to this\n"
            "   instruction\n"
            "\"k.zc\", line 9: error: weight pointer type must be 8 or 16          bits and be\n"
            "   equal to or smaller than the histogram pointer type\n");
}

TEST_F(SpecialTest, HistogramUpdateFixedRegistersAndUndefinedOperands) {
  VREG* d = vreg("d");
  VREG* data = vreg("data");
  VREG* w = vreg("w");
  d->number = 1;
  data->number = 3;
  w->number = 4;
  kernel->add_histogram_vloop(at(1), num(1), nullptr);
  loop(2, "i", sym("n"));
  init(3, w, num(1));
  hist_update(4, d, data, w, nullptr);
  EXPECT_EQ(v()->innermost->instrs.size(), 1u);  // only the init
  EXPECT_EQ(messages(),
            "\"k.zc\", line 4: error: allocated register \"data\" must be left unallocated or\n"
            "   allocated to V2\n"
            "\"k.zc\", line 4: error: allocated register \"d\" must be left unallocated or\n"
            "   allocated to V0\n"
            "\"k.zc\", line 4: error: data register \"data\" must be loaded before being used\n");
  testing::internal::CaptureStderr();
  hist_update(5, vreg("e"), data, vreg("x"), nullptr);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 5: error: allocated register \"data\" must be left unallocated or\n"
            "   allocated to V2\n"
            "\"k.zc\", line 5: error: data register \"data\" must be loaded before being used\n"
            "\"k.zc\", line 5: error: histogram weight register \"x\" must be loaded or directly\n"
            "   initialized\n");
}

TEST_F(SpecialTest, LookupExpandAndTableStores) {
  VREG* idx = vreg("idx");
  VREG* d = vreg("d");
  VREG* e = vreg("e");
  VREG* f = vreg("f");
  kernel->add_tablelkup_vloop(at(1), num(1), num(8), nullptr, nullptr);
  loop(2, "i", sym("n"));
  AGEN* t = agen("T");
  AGEN* x = agen("X");
  AGEN* s = agen("S");
  load(3, idx, VDATA_TYPE::uint16, 0, nullptr, x);
  auto* tld = static_cast<VTLD*>(lookup(4, d, idx, t));
  v()->clear_curr();
  v()->set_curr_vreg(e);
  ref(5, VDATA_TYPE::int16);
  v()->add_expand_vload(at(5), idx);
  VINSTR* expand = v()->curr_instr;
  v()->add_instr(expand);
  v()->new_vlvalue(at(6), sym("q"), nullptr, nullptr, nullptr, s, VDATA_TYPE::int16);
  v()->new_vstore(at(6));
  auto* store = static_cast<VSTORE*>(v()->curr_instr);
  v()->set_curr_vreg(d);
  v()->set_vstore_pred(idx);
  v()->set_vstore_rhs();
  EXPECT_EQ(messages(), "");
  EXPECT_EQ(tld->index_load->vreg, idx);
  EXPECT_EQ(static_cast<VLOAD*>(expand)->dist, VLOAD::EXPAND);
  EXPECT_EQ(static_cast<VLOAD*>(expand)->flags_vreg, idx);
  EXPECT_EQ(store->dist, VSTORE::TABLE_NPT);
  EXPECT_EQ(v()->innermost->instrs.size(), 4u);
  EXPECT_EQ(x->number, 0);
  EXPECT_EQ(t->number, 1);
  EXPECT_EQ(s->number, 2);

  testing::internal::CaptureStderr();
  lookup(7, f, vreg("nowhere"), nullptr);
  begin_store(8, VDATA_TYPE::int16, VSTORE::ONEPT);
  v()->set_curr_vreg(idx);
  v()->set_vstore_pred(e);
  v()->set_vstore_rhs();
  EXPECT_EQ(messages(),
            "\"k.zc\", line 7: error: data register \"nowhere\" must be loaded before being\n"
            "   used\n"
            "\"k.zc\", line 8: error: table store predicate register \"e\" must be the loaded\n"
            "   index register\n"
            "\"k.zc\", line 8: error: table lookup store distribution must be .table_npt() or\n"
            "   .table_skip()\n"
            "\"k.zc\", line 8: error: vector register \"idx\" must be loaded through a table or\n"
            "   expanding load\n");
}

}  // namespace
