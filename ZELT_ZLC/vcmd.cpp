// The block structure of a vector loop and the state of the current
// statement.
#include "ZELT_ZLC/vcmd.h"

#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"

namespace {
uint32_t vcmd_id_counter = 0;
constexpr int32_t root_depth = -2;
constexpr int32_t max_for_depth = 3;
}  // namespace

VCMD::VCMD(VKERNEL& kernel)
    : srcinfo(srcloc_internal),
      kernel(kernel),
      root(srcloc_internal, this, kernel, "", nullptr),
      curr_block(&root),
      id(vcmd_id_counter++) {
  root.depth = root_depth;
  blocks.push_back(&root);
}

void VCMD::set_curr_vreg(VREG* vreg) {
  curr_vreg = vreg;
  curr_vreg2 = nullptr;
}

void VCMD::set_curr_vpair(VREG* first, VREG* second) {
  if (curr_vreg && curr_vreg2) {
    saved_vreg = curr_vreg;
    saved_vreg2 = curr_vreg2;
    if (first) first->alias_name = saved_vreg->name;
    if (second) second->alias_name = saved_vreg2->name;
  }
  curr_vreg = first;
  curr_vreg2 = second;
}

void VCMD::clear_curr() {
  curr_vreg = nullptr;
  curr_vreg2 = nullptr;
  curr_instr = nullptr;
  saved_vreg = nullptr;
  saved_vreg2 = nullptr;
  move_conds.clear();
  move_pos = 2;
}

void VCMD::push_block(const DIAG_SRCINFO& at, const std::string& lcv, const VPEXPR* tripcount) {
  auto* block = new VBLOCK(at, this, kernel, lcv, tripcount);
  for (const VBLOCK* existing : blocks)
    if (existing->depth == curr_block->depth + 1) {
      DIAG::zlc_illegal_loop_nest().set_src(&at).report();
      return;
    }
  if (curr_block->depth >= max_for_depth) DIAG::zlc_exceed_depth().set_src(&at).report();
  curr_block->add(block);
  if (block->depth == -1) block->depth = 0;
  if (curr_block == &root) srcinfo = DIAG_SRCINFO_DATA(at.file(), at.line(), at.column(), at.approx());
  curr_block = innermost = block;
  blocks.push_back(block);
  clear_curr();
}

void VCMD::push_rpt(const DIAG_SRCINFO& at, const std::string& lcv, const VPEXPR* count,
                    const VPEXPR* max) {
  auto* rpt = new VRPT(at, this, kernel, lcv, count, max);
  if (!max->is_const()) DIAG::zlc_rpt_nonconst_max(max->text).set_src(&at).report();
  if (load_count || init_count) DIAG::zlc_rpt_outer_instrs().set_src(&at).report();
  VBLOCK* parent = curr_block;
  parent->add(rpt);
  if (rpt->depth != -1) {
    DIAG::zlc_bad_rpt_depth().set_src(&at).report();
    return;
  }
  curr_block = innermost = vrpt = rpt;
  blocks.push_back(rpt);
  if (parent == &root) srcinfo = DIAG_SRCINFO_DATA(at.file(), at.line(), at.column(), at.approx());
  clear_curr();
}

void VCMD::pop_block() {
  if (!curr_block->parent) return;
  curr_block = curr_block->parent;
  if (curr_block->depth == root_depth) kernel.add_curr_vloop();
  clear_curr();
}

VREG* VCMD::lookup_vreg(const std::string& name, const DIAG_SRCINFO& at, bool warn_dead) {
  VREG* vreg = curr_block->lookup_vreg(name);
  if (vreg && warn_dead && !vreg->alias_name.empty())
    DIAG::zlc_dead_vreg(vreg->name, vreg->alias_name).set_src(&at).report();
  return vreg;
}

AGEN* VCMD::lookup_agen(const std::string& name) const { return curr_block->lookup_agen(name); }

AGEN* VCMD::new_agen(const DIAG_SRCINFO& at, const std::string& name) {
  AGEN* agen = curr_block->new_agen(at, name);
  if (agen && curr_block == &root && !kernel.lookup_global_agen(name))
    kernel.global_agens.push_back(agen);
  return agen;
}
