// Loop levels: adding instructions, where an instruction stands, looking
// names up through the levels, and declaring registers and generators.
#include "ZELT_ZLC/vblock.h"

#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"

VINSTR::POSITION VINSTR::position() const {
  if (is_vblock() || !parent) return POS_UNKNOWN;
  return parent->position(this);
}

int32_t VINSTR::zelt_depth() const { return vcmd->zelt_depth(depth); }

VINSTR::POSITION VBLOCK::position(const VINSTR* instr) const {
  if (instr->is_vblock()) return POS_UNKNOWN;
  const VBLOCK* innermost = instr->vcmd->innermost;
  if ((innermost && instr->depth == innermost->depth + 1) || (!innermost && instr->depth == 0))
    return POS_INNERMOST;
  for (const VINSTR* child : instrs) {
    if (child == instr) return POS_BEFORE_NESTED;
    if (child->is_vblock()) return POS_AFTER_NESTED;
  }
  return POS_UNKNOWN;
}

void VBLOCK::analyze(int32_t& count) {
  for (VINSTR* instr : instrs) instr->analyze(count);
}

void VBLOCK::add(VINSTR* instr) {
  if (instr->is_vblock()) {
    for (const VINSTR* earlier : instrs) {
      if (earlier->is_vop() && !earlier->is_vmove() && !earlier->is_vexit())
        DIAG::zlc_illegal_vop().set_src(&earlier->srcinfo).report();
      else if (earlier->is_vexit())
        DIAG::zlc_illegal_exit_depth().set_src(&earlier->srcinfo).report();
    }
  }
  instrs.push_back(instr);
  instr->parent = this;
  instr->depth = depth + 1;
}

std::vector<VINSTR*> VBLOCK::get_instrs_of_type(VINSTR_PREDICATE predicate) const {
  std::vector<VINSTR*> found;
  for (VINSTR* instr : instrs)
    if (!predicate || (instr->*predicate)()) found.push_back(instr);
  return found;
}

VREG* VBLOCK::lookup_vreg(std::string_view name) const {
  for (const VBLOCK* block = this; block; block = block->parent)
    if (VREG* vreg = block->vregs.lookup(name)) return vreg;
  return kernel.lookup_vreg(name);
}

AGEN* VBLOCK::lookup_agen(std::string_view name) const {
  for (const VBLOCK* block = this; block; block = block->parent)
    if (AGEN* agen = block->agens.lookup(name)) return agen;
  return nullptr;
}

VREG* VBLOCK::new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& name) {
  if (AGEN* agen = lookup_agen(name)) {
    DIAG::zlc_redeclared_var("__agen", name, agen->srcinfo.line()).set_src(&srcinfo).report();
    return nullptr;
  }
  VREG* vreg = vregs.lookup(name);
  if (VREG* visible = lookup_vreg(name))
    DIAG::zlc_redeclared_var_warn("__vector", name, visible->srcinfo.line())
        .set_src(&srcinfo)
        .report();
  if (vreg)
    DIAG::zlc_redeclared_var("__vector", name, vreg->srcinfo.line()).set_src(&srcinfo).report();
  else
    vreg = vregs.new_vreg(srcinfo, name, -1);
  vcmd->set_curr_vreg(vreg);
  return vreg;
}

AGEN* VBLOCK::new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name) {
  if (VREG* vreg = lookup_vreg(name)) {
    DIAG::zlc_redeclared_var("__vector", name, vreg->srcinfo.line()).set_src(&srcinfo).report();
    return nullptr;
  }
  if (AGEN* agen = agens.lookup(name)) {
    DIAG::zlc_redeclared_var("__agen", name, agen->srcinfo.line()).set_src(&srcinfo).report();
    return nullptr;
  }
  if (AGEN* outer = lookup_agen(name))
    DIAG::zlc_redeclared_var_warn("__agen", name, outer->srcinfo.line())
        .set_src(&srcinfo)
        .report();
  return agens.new_agen(srcinfo, name);
}
