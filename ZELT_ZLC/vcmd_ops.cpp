// The parser's entry points for operations, moves and early exits of a
// vector loop.
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {

const std::string op_prefix = "__zelt_";

bool is_const_zero(const VPEXPR* expr) {
  return expr && expr->is_const() && expr->value64() == 0;
}

bool is_round_width(int64_t value) { return value == 8 || value == 15 || value == 16; }

}  // namespace

void VCMD::new_vop(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* dst, VREG* src1,
                   VREG* src2, VREG* src3) {
  curr_instr = nullptr;
  if (!dst) dst = curr_vreg;
  if (!dst) return;
  auto* vop = kernel_new<VOP>(srcinfo, this, op_prefix + name);
  if (src3 && src3 != dst) DIAG::zlc_illegal_vop_dst(name).set_src(&srcinfo).report();
  vop->src1 = src1;
  vop->src2 = src2;
  vop->src3 = src3;
  if (!src3) vop->dst1 = dst;
  add_instr(vop);
}

void VCMD::new_vop2d(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* src1,
                     VREG* src2) {
  curr_instr = nullptr;
  if (!curr_vreg || !curr_vreg2) {
    DIAG::zlc_expected_vreg_pair().set_src(&srcinfo).report();
    return;
  }
  VREG* first = curr_vreg;
  VREG* second = curr_vreg2;
  if (saved_vreg && saved_vreg2) {
    // The pair on the right moves into the pair on the left, where the
    // operation then works in place.
    VREG* to_first = saved_vreg;
    VREG* to_second = saved_vreg2;
    new_vop(srcinfo, "vmove", to_first, first, nullptr, nullptr);
    new_vop(srcinfo, "vmove", to_second, second, nullptr, nullptr);
    first = to_first;
    second = to_second;
  }
  curr_instr = nullptr;
  if (first == second) {
    DIAG::zlc_2d_op_error().set_src(&srcinfo).report();
    return;
  }
  const bool min_max = name == "vminsetf" || name == "vmaxsetf";
  // The first result of minf and maxf overwrites the second source.
  if (min_max && first != src2) {
    DIAG::zlc_minmaxsetf_dst().set_src(&srcinfo).report();
    return;
  }
  auto* vop = kernel_new<VOP>(srcinfo, this, op_prefix + name);
  if (min_max) {
    vop->src1 = src1;
    vop->src2 = src2;
    vop->dst2 = second;
  } else {
    vop->dst1 = first;
    vop->dst2 = second;
    vop->src1 = src1;
  }
  add_instr(vop);
}

void VCMD::set_vop_round(int32_t mode, const VPEXPR* value) {
  auto* vop = dynamic_cast<VOP*>(curr_instr);
  if (!vop || !value) return;
  if (!value->is_const()) {
    DIAG::zlc_nonconst_opround(value->text).set_src(&vop->srcinfo).report();
    return;
  }
  const auto amount = static_cast<int32_t>(value->value64());
  if ((mode == VOP::RM_ROUND || mode == VOP::RM_TRUNC) && !is_round_width(amount))
    DIAG::zlc_illegal_op_roundtrunc(amount).set_src(&vop->srcinfo).report();
  else if (mode == VOP::RM_SHIFT && amount != 1)
    DIAG::zlc_illegal_op_shift(amount).set_src(&vop->srcinfo).report();
  vop->set_round(static_cast<VOP::ROUND_MODE>(mode), value->text, amount);
}

void VCMD::new_vmove(const DIAG_SRCINFO& srcinfo, VREG* dst, VREG* src) {
  curr_instr = nullptr;
  if (!dst) dst = curr_vreg;  // `x = a` names its destination by the target
  if (!dst || !src) return;
  auto* move = kernel_new<VMOVE>(srcinfo, this, dst, src, move_pos);
  if (dst == src) DIAG::zlc_move_into_self(dst->name).set_src(&srcinfo).report();
  if (move_conds.empty()) {
    add_instr(move);
    return;
  }
  for (const auto& [lcv, value] : move_conds) {
    int32_t level = 0;
    if (!is_lcv(lcv, level)) {
      DIAG::zlc_cmov_not_lcv(lcv).set_src(&srcinfo).report();
      return;
    }
  }
  move->conds = std::move(move_conds);
  move_conds.clear();
  add_instr(move);
}

void VCMD::add_vmove_lcv(const DIAG_SRCINFO& srcinfo, const std::string& lcv,
                         const VPEXPR* value, int32_t pos) {
  if (move_pos == VMOVE::MP_ERROR) return;
  if (move_pos == VMOVE::MP_UNKNOWN) move_pos = pos;
  if (move_pos != pos) {
    move_pos = VMOVE::MP_ERROR;
    move_conds.clear();
    DIAG::zlc_move_positional_error().set_src(&srcinfo).report();
    return;
  }
  move_conds[lcv] = value;
}

void VCMD::new_vexit(const DIAG_SRCINFO& srcinfo, const std::string& label, VREG* vreg,
                     const VPEXPR* index, const VPEXPR* rhs) {
  curr_instr = nullptr;
  if (!vreg) return;
  if (!is_const_zero(index)) DIAG::zlc_illegal_exit_index().set_src(&srcinfo).report();
  if (vexit) DIAG::zlc_multiple_vexits(vexit->srcinfo.line()).set_src(&srcinfo).report();
  if (rhs && !is_const_zero(rhs)) DIAG::zlc_exit_rhs_nonzero().set_src(&srcinfo).report();
  auto* exit = kernel_new<VEXIT>(srcinfo, this, vreg, label);
  vexit = exit;
  add_instr(exit);
}

void VCMD::set_vexit_level(const DIAG_SRCINFO& srcinfo, const std::string& label) {
  auto* exit = dynamic_cast<VEXIT*>(vexit);
  if (!exit) {
    DIAG::zlc_orphan_label().set_src(&srcinfo).report();
    return;
  }
  if (exit->label != label)
    DIAG::zlc_label_mismatch(exit->label, exit->srcinfo.line()).set_src(&srcinfo).report();
  if (curr_block->depth == 0)
    exit->level = 0;
  else if (curr_block->depth == -1)
    exit->level = 1;
  else
    DIAG::zlc_illegal_depth().set_src(&srcinfo).report();
}
