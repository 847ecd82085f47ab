// Translation of histogram updates, table lookups and the stores that write
// a table, and the setup of a loop's tables ahead of its loop nest.
#include "DIAG/diag.h"
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/vcmd_hist_tbl.h"
#include "ZELT_ZLC/vhup_vtld.h"
#include "ZELT_ZLC/vpexpr.h"
#include "ZELT_ZLC/vstore.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"
#include "translate/tkernel.h"
#include "translate/tmem.h"

namespace {

// The value of a shape parameter; one that isn't a constant has been
// reported by the rules, and counts as 0.
int32_t constant_of(const VPEXPR* expr) {
  return expr && expr->is_const() ? static_cast<int32_t>(expr->value64()) : 0;
}

}  // namespace

void TCMD::translate_vhup(VINSTR& instr) {
  auto& vhup = static_cast<VHUP&>(instr);
  const VCMD_HIST& hist = *vhup.vcmd_hist;
  const VLVALUE* lv = vhup.lv;
  LHT_TEMPLATE* lht = lht_table.allocate_lht();
  if (!lht) {
    // The table memory holds two tables; a third update is refused here.
    DIAG::zlc_hist_unsupported().set_src(&vhup.srcinfo).report();
    return;
  }
  lht->kind = LHT_TEMPLATE::HISTOGRAM;
  auto* table = kernel_new<TEXPR>(*this, "void*", lv->addr);
  TEXPR* user_size = hist.table_size ? kernel_new<TEXPR>(*this, "uint32_t", hist.table_size) : nullptr;
  AGEN* agen = lv->agen && agen_is_updated(lv->agen) ? lv->agen : nullptr;
  lht->set_fields(lv->type, constant_of(hist.num_objs()), 1, constant_of(hist.dup), table,
                  lv->parm, agen, user_size, &vhup.srcinfo);
  lht->in_use = true;
  VREG* out;
  VREG* unused;
  translate_round_sat(vhup, vhup.data, out, nullptr, unused);
  auto* update = kernel_new<TVHIST>(vhup.dst, out, vhup.weight, agen, lv->type, lht);
  lht->users.push_back(update);
  append_tinstr(update);
  for (VREG* reg : {vhup.dst, out, vhup.weight}) update->declare_vreg(reg);
}

void TCMD::translate_vtld(VINSTR& instr) {
  auto& vtld = static_cast<VTLD&>(instr);
  const VCMD_TBL& tbl = *vtld.vcmd_tbl;
  const VLVALUE* lv = vtld.lv;
  LHT_TEMPLATE* lht = lht_table.allocate_lht();
  if (!lht) {
    // The table memory holds two tables; a third lookup is refused here.
    DIAG::zlc_table_unsupported().set_src(&vtld.srcinfo).report();
    return;
  }
  lht->kind = LHT_TEMPLATE::LOOKUP;
  auto* table = kernel_new<TEXPR>(*this, "void*", lv->addr);
  TEXPR* user_size = tbl.table_size ? kernel_new<TEXPR>(*this, "uint32_t", tbl.table_size) : nullptr;
  AGEN* agen = lv->agen && agen_is_updated(lv->agen) ? lv->agen : nullptr;
  lht->set_fields(lv->type, constant_of(tbl.num_objs()), constant_of(tbl.num_pts()),
                  constant_of(tbl.dup), table, lv->parm, agen, user_size, &vtld.srcinfo);
  lht->in_use = true;
  VREG* out;
  VREG* unused;
  translate_round_sat(vtld, vtld.index, out, nullptr, unused);
  auto* lookup = kernel_new<TVLOOKUP>(vtld.dst, out, agen, lv->type, lht);
  lht->users.push_back(lookup);
  append_tinstr(lookup);
  for (VREG* reg : {vtld.dst, out}) lookup->declare_vreg(reg);
}

LHT_TEMPLATE* TCMD::lut_from_scatter_group(int32_t group) {
  auto it = scatter_groups.find(group);
  if (it != scatter_groups.end()) return it->second;
  LHT_TEMPLATE* lht = lht_table.allocate_lht();
  scatter_groups.emplace(group, lht);
  return lht;
}

void TCMD::set_scatter_table(LHT_TEMPLATE& lht, const VSTORE& vstore) {
  const VLVALUE* lv = vstore.lv;
  lht.kind = vstore.dist == VSTORE::LUT_SCATTER ? LHT_TEMPLATE::SCATTER : LHT_TEMPLATE::SCATTER_NP1;
  auto* table = kernel_new<TEXPR>(*this, "void*", lv->base ? lv->base : lv->addr);
  lht.set_fields(lv->type, zelt_simd_width, 1, 1, table, lv->parm, nullptr, nullptr,
                 &vstore.srcinfo);
  lht.in_use = true;
}

void TCMD::lht_setup(VAL_RANGES& ranges) {
  // Tables are set up ahead of the loop nest; a loop body without a nested
  // loop sets them up at its own entry, where its values are in scope.
  LOOP* nest = top_loop->nested_loop();
  BBLOCK* anchor = nest ? nest->init_block : top_loop->entry_block;
  for (auto& owned : lht_table.templates) {
    if (!owned || !owned->in_use) continue;
    LHT_TEMPLATE& lht = *owned;
    const bool scatter = lht.kind == LHT_TEMPLATE::SCATTER || lht.kind == LHT_TEMPLATE::SCATTER_NP1;
    if (scatter) {
      const TINSTR* first = lht.users.empty() ? nullptr : lht.users.front();
      lht.index_reg = first && first->is_tvstore() ? static_cast<const TVSTORE*>(first)->scatter
                                                   : nullptr;
      lht.generate_max_sub_base_offset();
      lht.generate_max_agen();
      if (lht.kind == LHT_TEMPLATE::SCATTER_NP1) lht.generate_copy_size_expr();
      if (lht.kind == LHT_TEMPLATE::SCATTER) {
        lht.max_index_sreg = kernel.temp_sreg();
        lht.max_index_instr = kernel_new<LUT_MAX_INDEX>(&lht);
        anchor->add_tinstr_back(lht.max_index_instr);
        lht.max_index_instr->declare_sreg(lht.max_index_sreg);
        lht.scatter_size_sreg = kernel.temp_sreg();
        lht.scatter_size_instr = kernel_new<LUT_SCATTER_SIZE>(lht.max_index_sreg, &lht);
        anchor->add_tinstr_after(lht.max_index_instr, lht.scatter_size_instr);
        lht.scatter_size_instr->declare_sreg(lht.scatter_size_sreg);
      }
    } else {
      lht.set_lht_size(ranges);
    }
    lht.generate_init();
    // An output-only scatter table isn't read first; any other table is.
    if (!scatter || !(lht.parm && lht.parm->has_flag(PARM::QF_OUTPUT_ONLY))) {
      lht.generate_copyin_init();
      anchor->add_tinstr_back(kernel_new<LHT_COPYIN>(&lht));
    }
    lht.open_instr = kernel_new<LHT_OPEN>(&lht);
    anchor->add_tinstr_back(lht.open_instr);
    if (lht.kind != LHT_TEMPLATE::LOOKUP) {
      lht.generate_copyout_init();
      top_loop->last_block()->add_tinstr_front(kernel_new<LHT_COPYOUT>(&lht));
    }
  }
}
