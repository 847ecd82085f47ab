// The rules of operations, moves and exits: where they may stand, the
// definitions of the registers they read and write, roundings, and the
// conditions of moves.
#include "ZELT_ZLC/vop.h"

#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {

bool is_defined(const VCMD& vcmd, const VREG* vreg) {
  return vcmd.find_vreg_instr(vreg) || vcmd.kernel.find_vreg_instr(vreg);
}

// Masks of the levels a move condition may cover: runs that end at the
// innermost loop, whose bit is 1 << 4.
constexpr uint32_t innermost_only = 16;
constexpr uint32_t inner_two = 24;
constexpr uint32_t inner_three = 28;
constexpr uint32_t inner_four = 30;
constexpr int32_t max_nest_depth = 4;

}  // namespace

std::vector<VREG*> VOP::dst_vregs() const {
  std::vector<VREG*> dsts{dst1, dst2, src3};
  if (name == "__zelt_vminsetf" || name == "__zelt_vmaxsetf") dsts.push_back(src2);
  return dsts;
}

bool VOP::needs_rounding() const {
  return name == "__zelt_vmpy" || name == "__zelt_vmadd" || name == "__zelt_vmsub";
}

void VOP::set_round(ROUND_MODE mode, const std::string& text, int32_t value) {
  if (!needs_rounding()) {
    DIAG::zlc_illegal_vop_round(name).set_src(&srcinfo).report();
    return;
  }
  round_preg = vcmd->new_preg(
      "__zelt_vop_round(" + std::to_string(static_cast<int32_t>(mode)) + ", " + text + ")", 1,
      false);
  round_mode = mode;
  round_value = value;
}

void VOP::analyze(int32_t& count) {
  count += 1;
  if (needs_rounding() && !round_preg) round_preg = PREG_ZERO;
}

bool VOP::check_vregs() {
  for (const VREG* src : src_vregs())
    if (src && !is_defined(*vcmd, src)) DIAG::zlc_uninit_vreg(src->name).set_src(&srcinfo).report();
  bool ok = true;
  for (const VREG* dst : dst_vregs()) {
    if (!dst) continue;
    VINSTR*& def = vcmd->vreg_instrs[dst];
    if (def && def->is_vstore()) {
      DIAG::zlc_dependent_store(dst->name, def->srcinfo.line()).set_src(&srcinfo).report();
      ok = false;
    } else {
      def = this;
    }
  }
  if (name == "__zelt_vaddh") DIAG::zlc_40_bit_dep_op("VADDH").set_src(&srcinfo).report();
  return ok;
}

bool VOP::check_if_valid() {
  bool ok = true;
  if (parent != vcmd->innermost) {
    DIAG::zlc_illegal_vop().set_src(&srcinfo).report();
    ok = false;
  }
  return check_vregs() && ok;
}

void VMOVE::analyze(int32_t& count) {
  uint32_t mask = 0;
  for (const auto& [lcv, value] : conds) {
    int32_t level = 0;
    if (!vcmd->is_lcv(lcv, level)) {
      mask |= 1u;
      continue;
    }
    const VPEXPR* tripcount = vcmd->tripcount_expr(level);
    if (pos == MP_TRIPCOUNT && !value->equals(tripcount))
      DIAG::zlc_move_conditional_mismatch(lcv).set_src(&srcinfo).report();
    else if (pos == MP_ZERO && !(value->is_const() && value->value64() == 0))
      DIAG::zlc_move_compare_type(lcv, tripcount->text, lcv).set_src(&srcinfo).report();
    const int32_t bit = vcmd->zelt_depth(level);
    mask |= bit >= 0 && bit < 32 ? 1u << bit : 0u;
  }
  if (!conds.empty()) set_cond(mask);
  if (position() != POS_INNERMOST || !cond.empty()) name = "__zelt_vcmov";
  count += 1;
}

void VMOVE::set_cond(uint32_t mask) {
  const int32_t depth = vcmd->innermost ? vcmd->innermost->depth : -1;
  if (depth >= max_nest_depth) DIAG::zlc_exceed_depth().set_src(&srcinfo).report();
  switch (mask) {
    case innermost_only:
      cond = depth == 0 ? "i1234" : "i4";
      break;
    case inner_two:
      cond = depth == 1 ? "i1234" : "i34";
      break;
    case inner_three:
      cond = depth == 2 ? "i1234" : "i234";
      break;
    case inner_four:
      cond = "i1234";
      break;
    default:
      DIAG::zlc_illegal_lcv_set().set_src(&srcinfo).report();
      break;
  }
}

bool VEXIT::check_if_valid() {
  if (src1 && !is_defined(*vcmd, src1))
    DIAG::zlc_uninit_vreg(src1->name).set_src(&srcinfo).report();
  if (parent && (parent->is_vrpt() || parent == vcmd->innermost)) return true;
  DIAG::zlc_illegal_exit_depth().set_src(&srcinfo).report();
  return false;
}
