// Loop levels: adding instructions, looking names up through the levels,
// and declaring registers and generators.
#include "ZELT_ZLC/vblock.h"

#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"

bool VINSTR::is_vblock() const { return dynamic_cast<const VBLOCK*>(this) != nullptr; }
bool VINSTR::is_vrpt() const { return dynamic_cast<const VRPT*>(this) != nullptr; }

void VBLOCK::add(VINSTR* instr) {
  instrs.push_back(instr);
  instr->parent = this;
  instr->depth = depth + 1;
}

VREG* VBLOCK::lookup_vreg(const std::string& name) const {
  for (const VBLOCK* block = this; block; block = block->parent)
    if (VREG* vreg = block->vregs.lookup(name)) return vreg;
  return kernel.lookup_vreg(name);
}

AGEN* VBLOCK::lookup_agen(const std::string& name) const {
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
