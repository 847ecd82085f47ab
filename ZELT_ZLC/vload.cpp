// The rules of loads and inits: the loop depth of a load's generator, the
// definitions of registers, register pairs, the distributions allowed in
// each kind of loop, and the tables of custom distributions.
#include "ZELT_ZLC/vload.h"

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {

uint32_t cust_arr_counter = 0;  // names of custom arrays, across the run

constexpr int64_t cust_point_limit = 16;  // points are 4-bit

bool is_32bit(const VLVALUE* lv) { return lv && lv->type.bits == 32; }

// A register with a number of its own that isn't `number`.
bool allocated_other_than(const VREG* vreg, int32_t number) {
  return !vreg->is_unassigned() && vreg->number != number;
}

bool is_const_in(const VPEXPR* expr, std::initializer_list<int64_t> values) {
  if (!expr || !expr->is_const()) return false;
  for (int64_t value : values)
    if (expr->value64() == value) return true;
  return false;
}

}  // namespace

VLOAD* make_vload(VCMD& vcmd, const DIAG_SRCINFO& srcinfo) {
  if (!vcmd.curr_vreg || !vcmd.curr_lvalue) return nullptr;
  vcmd.curr_vreg->set_type_from_lvalue(vcmd.curr_lvalue);
  vcmd.curr_vreg->load_target = true;
  return kernel_new<VLOAD>(srcinfo, &vcmd, vcmd.curr_vreg, vcmd.curr_lvalue);
}

bool VLOAD::check_agen_depth() {
  AGEN* agen = lv ? lv->agen : nullptr;
  if (!agen) return true;
  if (!agen->has_init) {
    DIAG::zlc_agen_undef(agen->name).set_src(&srcinfo).report();
    return false;
  }
  if (vcmd->vloop_type() != VCMD::COMPUTE || !parent || agen->deepest_depth > parent->depth)
    return true;
  if (agen->deepest_depth <= 0 && !vcmd->vrpt)
    DIAG::zlc_illegal_load_depth_outer(agen->name).set_src(&srcinfo).report();
  else
    DIAG::zlc_illegal_load_depth_inner(vcmd->lcv_name(agen->deepest_depth))
        .set_src(&srcinfo)
        .report();
  return false;
}

bool VLOAD::check_if_valid() {
  bool ok = check_agen_depth();
  if (is_32bit(lv) && (dist == DEINTERLEAVE || dist == DS2)) {
    DIAG::zlc_unsupported_dist().set_src(&srcinfo).report();
    ok = false;
  }
  if (!vreg->is_unassigned() && vreg->number % 2 != 0) {
    DIAG::zlc_illegal_manual_reg(static_cast<unsigned>(vreg->number), "even")
        .set_src(&srcinfo)
        .report();
    ok = false;
  }
  if (!vcmd->check_pair_status(dist == DEINTERLEAVE, srcinfo)) ok = false;
  if (dist == DEINTERLEAVE) {
    if (VREG* partner = vreg->pair_partner()) {
      const VINSTR* def = vcmd->find_vreg_instr(partner);
      if (def && !def->is_vinit() && def != this) {
        DIAG::zlc_dependent_instr(partner->name, def->srcinfo.line()).set_src(&srcinfo).report();
        ok = false;
      }
      vcmd->vreg_instrs[partner] = this;
    }
  }
  if (const VINSTR* def = vcmd->find_vreg_instr(vreg); def && !def->is_vinit()) {
    DIAG::zlc_dependent_instr(vreg->name, def->srcinfo.line()).set_src(&srcinfo).report();
    ok = false;
  }
  if (!check_dist_constraints()) ok = false;
  vcmd->vreg_instrs[vreg] = this;
  return ok;
}

bool VLOAD::check_dist_constraints() {
  const int32_t kind = vcmd->vloop_type();
  bool ok = true;
  switch (dist) {
    case CIRC2:
    case DEINTERLEAVE:
    case CUSTOM:
      if (kind != VCMD::COMPUTE) {
        DIAG::zlc_hist_tlu_loaddist().set_src(&srcinfo).report();
        ok = false;
      }
      break;
    case NBITS: {
      const VPEXPR* count = vcmd->num_objs();
      if ((kind == VCMD::HIST || (kind == VCMD::TLU && count)) && !is_const_in(count, {1, 8})) {
        DIAG::zlc_illegal_nbits_loop().set_src(&srcinfo).report();
        ok = false;
      }
      break;
    }
    case EXPAND:
      if (flags_vreg) {
        if (!vcmd->find_vreg_instr(flags_vreg)) {
          DIAG::zlc_unloaded_flags(flags_vreg->name).set_src(&srcinfo).report();
          ok = false;
        }
        if (allocated_other_than(flags_vreg, 2)) {
          DIAG::zlc_reg_alloc_mr(flags_vreg->name, 2).set_src(&srcinfo).report();
          ok = false;
        }
      }
      if (allocated_other_than(vreg, 0)) {
        DIAG::zlc_reg_alloc_mr(vreg->name, 0).set_src(&srcinfo).report();
        ok = false;
      }
      break;
    case WEIGHT_LOAD:
      if (kind != VCMD::HIST) {
        DIAG::zlc_illegal_hist_weight().set_src(&srcinfo).report();
        ok = false;
      }
      break;
    default:
      break;
  }
  if (ok && kind == VCMD::TLU && lv && lv->agen) ok = lv->agen->check_and_assign(0, srcinfo);
  return ok;
}

void VLOAD::setup_custom_dist() {
  if (cust_args.empty()) {
    DIAG::zlc_null_cust_pexpr().set_src(&srcinfo).report();
    return;
  }
  PREG_TABLE& pregs = vcmd->pregs;
  PREG* preg;
  if (cust_args.size() == 1) {
    const VPEXPR* pointer = cust_args.front();
    if (pointer->is_const()) DIAG::zlc_illegal_cust_arr().set_src(&srcinfo).report();
    preg = pregs.new_preg("_CUSTOM(" + pointer->text + ")", 2, false);
  } else {
    std::string arr_text = "{";
    bool checked = false;
    for (const VPEXPR* point : cust_args) {
      if (!checked && !(point->is_const() && point->value64() < cust_point_limit)) {
        DIAG::zlc_illegal_cust_arg().set_src(&srcinfo).report();
        checked = true;
      }
      if (arr_text.size() > 1) arr_text += ", ";
      arr_text += point->text;
    }
    arr_text += "}";
    preg = pregs.cust_search(arr_text);
    if (!preg) {
      const std::string arr_name = "cust_arr" + std::to_string(cust_arr_counter++);
      preg = pregs.new_preg("_CUSTOM(" + arr_name + ")", 2, false);
      preg->add_cust_arr(arr_text, arr_name);
    }
  }
  if (preg->is_unassigned()) {
    const int32_t slot = pregs.next_custom_mr();
    if (slot < 0) DIAG::zlc_no_cust_pregs().set_src(&srcinfo).report();
    pregs.set_custom_mr(preg, slot);
  }
  cust_preg = preg;
}

bool VINIT::check_if_valid() {
  if (const VINSTR* def = vcmd->find_vreg_instr(vreg)) {
    DIAG::zlc_dependent_instr(vreg->name, def->srcinfo.line()).set_src(&srcinfo).report();
    return false;
  }
  vcmd->vreg_instrs[vreg] = this;
  return true;
}
