// Translation of loads, stores, register initialisation and moves, with the
// copies that a store's rounding and saturation work on, and the
// saturations that value ranges prove needless.
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vload.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vpexpr.h"
#include "ZELT_ZLC/vstore.h"
#include "translate/ssa.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"
#include "translate/tkernel.h"
#include "translate/tmem.h"
#include "translate/tround_sat.h"
#include "translate/val_ranges.h"

const VPEXPR* TCMD::transpose_address(const VLVALUE* lv, bool load) const {
  if (!lv->offset || !lv->base) return lv->addr;
  const VPEXPR* w = kernel_new<VPEXPR>(zelt_simd_width, VPEXPR::EVAL_SIGNED);
  const VPEXPR* row_len = VPEXPR::sum(VPEXPR::product(w, kernel_new<VPEXPR>(4, VPEXPR::EVAL_SIGNED)),
                                      kernel_new<VPEXPR>(4, VPEXPR::EVAL_SIGNED));
  const VPEXPR* off = lv->offset;
  const VPEXPR* total;
  if (load) {
    const VPEXPR* rem = VPEXPR::modulus(off, VPEXPR::product(row_len, w));
    const VPEXPR* col = VPEXPR::quotient(rem, row_len);
    const VPEXPR* bytes = kernel_new<VPEXPR>(lv->type.bits / 8, VPEXPR::EVAL_SIGNED);
    total = VPEXPR::sum(VPEXPR::diff(off, rem), VPEXPR::product(col, bytes));
  } else {
    const VPEXPR* rem = VPEXPR::modulus(off, row_len);
    total = VPEXPR::sum(VPEXPR::diff(off, rem), VPEXPR::product(rem, w));
  }
  if (pexpr_is(total, 0)) return lv->addr;
  auto* addr = kernel_new<VPEXPR>("(uchar *)" + lv->base->text + " + " + total->text);
  addr->merge_parm_refs(lv->base);
  addr->merge_parm_refs(total);
  return addr;
}

void TCMD::declare_collate_ptr(LOOP* loop, const std::string& name, const TEXPR* base) {
  auto* start = kernel_new<VPEXPR>(base->ref(true));
  start->merge_parm_refs(base->parm_refs());
  loop->add_tdecl("void*", name, start);
}

void TCMD::translate_vload(VINSTR& instr) {
  auto& vload = static_cast<VLOAD&>(instr);
  const VLVALUE* lv = vload.lvalue();
  auto* load = kernel_new<TVLOAD>();
  load->dst = vload.vreg;
  if (vload.dist == VLOAD::DEINTERLEAVE && vload.vreg) load->dst2 = vload.vreg->pair_partner();
  load->flags = vload.flags_vreg;
  const VPEXPR* addr = vload.dist == VLOAD::TRANSPOSE ? transpose_address(lv, true) : lv->addr;
  load->base_ = kernel_new<TEXPR>(*this, "void*", addr);
  if (vload.dist == VLOAD::EXPAND) {
    load->collate_ptr = new_collate_ptr();
    declare_collate_ptr(top_loop, load->collate_ptr, load->base_);
  }
  load->agen_ = lv->agen;
  load->circ = lv->circ;
  load->type = lv->type;
  load->dist = vload.dist == VLOAD::WEIGHT_LOAD ? VLOAD::NPT : vload.dist;
  append_tinstr(load);
  load->declare_vreg(load->dst);
  load->declare_vreg(load->dst2);
  load->declare_vreg(load->flags);
  if (vload.dist == VLOAD::CUSTOM) {
    // The permutation of a custom distribution, computed at init time.
    std::string text = "custom_dist_perm(";
    auto* perm = kernel_new<VPEXPR>("");
    size_t count = vload.cust_args.size() == 1 ? 1 : std::min<size_t>(8, vload.cust_args.size());
    for (size_t i = 0; i < count; ++i) {
      text += (i ? ", " : "") + vload.cust_args[i]->text;
      perm->merge_parm_refs(vload.cust_args[i]);
    }
    perm->text = text + ")";
    load->custom = kernel_new<TEXPR>(*this, "__uchar64", perm);
  }
}

void TCMD::translate_vstore(VINSTR& instr) {
  auto& vstore = static_cast<VSTORE&>(instr);
  const VLVALUE* lv = vstore.lvalue();
  auto* store = kernel_new<TVSTORE>();
  VREG* partner = vstore.dist == VSTORE::INTERLEAVE && vstore.vreg
                      ? vstore.vreg->pair_partner()
                      : nullptr;
  translate_round_sat(vstore, vstore.vreg, store->src, partner, store->src2);
  const VPEXPR* addr = vstore.dist == VSTORE::TRANSPOSE ? transpose_address(lv, false) : lv->addr;
  store->base_ = kernel_new<TEXPR>(*this, "void* restrict", addr);
  if (lv->offset) store->offset = kernel_new<TEXPR>(*this, "int32_t", lv->offset);
  if (vstore.dist == VSTORE::COLLATE) {
    store->collate_ptr = new_collate_ptr();
    declare_collate_ptr(&root_loop, store->collate_ptr, store->base_);
  }
  const bool table_write =
      vstore.dist == VSTORE::LUT_SCATTER || vstore.dist == VSTORE::LUT_OFFSET_NP1;
  if (vstore.dist == VSTORE::TABLE_NPT) store->lht_ = lht_table.at(0);
  if (table_write) {
    store->lht_ = lut_from_scatter_group(vstore.lut_index);
    if (store->lht_) set_scatter_table(*store->lht_, vstore);
  }
  store->scatter = vstore.scatter_vreg;
  store->pred = vstore.pred;
  store->agen_ = lv->agen;
  store->circ = lv->circ;
  store->type = lv->type;
  store->dist = vstore.dist;
  store->lv = vstore.lv;
  append_tinstr(store);
  if (table_write && store->lht_) store->lht_->users.push_back(store);
  for (VREG* reg : {store->src, store->src2, store->scatter, store->pred}) store->declare_vreg(reg);
}

void TCMD::translate_round_sat(VMEM_INSTR& instr, VREG* reg, VREG*& reg_out, VREG* reg2,
                               VREG*& reg2_out) {
  reg_out = reg;
  reg2_out = reg2;
  ROUND_SAT& rs = instr.round_sat;
  if (!reg || (rs.round_mode == ROUND_SAT::RM_NONE && rs.sat_mode == ROUND_SAT::SM_NONE)) return;
  // Rounding works on copies; the source registers keep their values.
  auto copy = [this](VREG* src) {
    VREG* temp = kernel.temp_vreg();
    temp->type = src->type;
    auto* move = kernel_new<TVMOVE>(temp, src);
    append_tinstr(move);
    move->declare_vreg(src);
    return temp;
  };
  reg_out = copy(reg);
  if (reg2) reg2_out = copy(reg2);
  if (rs.round_mode != ROUND_SAT::RM_NONE) {
    auto* bits = kernel_new<TEXPR>(*this, "uint32_t", rs.round_value ? rs.round_value : VPEXPR::zero);
    int32_t mode = TROUND::translate(rs.round_mode);
    append_tinstr(kernel_new<TROUND>(reg_out, mode, bits));
    if (reg2) append_tinstr(kernel_new<TROUND>(reg2_out, mode, bits));
  }
  if (rs.sat_mode != ROUND_SAT::SM_NONE) {
    VDATA_TYPE type = instr.lvalue()->type;
    append_tinstr(kernel_new<TSAT>(*this, reg_out, instr.round_sat, type));
    if (reg2) append_tinstr(kernel_new<TSAT>(*this, reg2_out, instr.round_sat, type));
  }
}

void TCMD::mark_unneeded_saturates(SSA::GRAPH& graph, VAL_RANGES& ranges) {
  for (BBLOCK* block : blocks)
    for (TINSTR* instr : block->instrs) {
      if (!instr->is_tsat()) continue;
      const VAL_RANGE* in = ranges.get_operand_range(instr, 0, 0);
      const VAL_RANGE* out = ranges.get_range(graph.get_node(instr, 0));
      if (!in || !out || in->is_indeterminate() || out->is_indeterminate()) continue;
      const VPEXPR* bounds[] = {in->get_min(), in->get_max(), out->get_min(), out->get_max()};
      bool numeric = true;
      for (const VPEXPR* bound : bounds) numeric = numeric && bound_is_numeric(bound);
      if (!numeric) continue;
      // A signed constant reads as a signed 32-bit value, any other as unsigned.
      if (in->get_min()->value64() >= out->get_min()->value64() &&
          in->get_max()->value64() <= out->get_max()->value64())
        static_cast<TSAT*>(instr)->unneeded = true;
    }
}

void TCMD::translate_vinit(VINSTR& instr) {
  auto& vinit = static_cast<VINIT&>(instr);
  const VPEXPR* value = vinit.value;
  std::string type = value->eval_type == VPEXPR::EVAL_UNSIGNED ? "uint32_t" : "int32_t";
  // A loop variable, or any other declared name, prints as it stands.
  TEXPR* operand = blocks.back()->loop()->find_tdecl(type, value->text)
                       ? kernel_new<TEXPR>(*this, value)
                       : kernel_new<TEXPR>(*this, type, value);
  auto* init = kernel_new<TVINIT>(vinit.vreg, operand);
  append_tinstr(init);
  init->declare_vreg(vinit.vreg);
}

void TCMD::translate_vmove(VINSTR& instr) {
  auto& vmove = static_cast<VMOVE&>(instr);
  auto* move = kernel_new<TVMOVE>(vmove.dst1, vmove.src1, &vmove);
  append_tinstr(move);
  move->declare_vreg(move->dst);
  move->declare_vreg(move->src);
}
