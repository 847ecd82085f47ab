// Kernels: creation, parameters, kernel-level declarations and the hand-over
// of completed vector loops.
#include "ZELT_ZLC/vkernel.h"

#include <algorithm>

#include "ZELT_ZLC/vcmd.h"

VKERNEL* curr_vkernel = nullptr;
VCMD* curr_vcmd = nullptr;

VKERNEL* new_vkernel(std::ostream& outfile, std::ostream& header_file) {
  return new VKERNEL(outfile, header_file);
}

VKERNEL::VKERNEL(std::ostream& outfile, std::ostream& header_file)
    : outfile(outfile), header_file(header_file) {
  for (int32_t number = 0; number < internal_vregs; ++number)
    vregs.new_vreg(srcloc_internal, "V" + std::to_string(number), number);
  curr_vcmd = ::curr_vcmd = new VCMD(*this);
}

void VKERNEL::set_name(const std::string& kernel_name) {
  name = kernel_name;
  pblock_name += kernel_name;
}

PARM* VKERNEL::new_parm(const DIAG_SRCINFO& srcinfo, const std::string& parm_name,
                        uint32_t flags, const std::string& type_text,
                        const std::string& array_text) {
  return parms.new_parm(srcinfo, parm_name, flags, type_text, array_text);
}

VREG* VKERNEL::new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& vreg_name,
                        VDATA_TYPE type) {
  VREG* vreg;
  if (curr_vcmd->curr_block != &curr_vcmd->root) {
    vreg = curr_vcmd->curr_block->new_vreg(srcinfo, vreg_name);
    if (!vreg) return nullptr;
  } else if ((vreg = vregs.lookup(vreg_name))) {
    if (!vreg->is_unassigned() && vreg->number < internal_vregs)
      DIAG::zlc_declared_mr(static_cast<unsigned>(vreg->number)).set_src(&srcinfo).report();
    else
      DIAG::zlc_redeclared_var("__vector", vreg_name, vreg->srcinfo.line())
          .set_src(&srcinfo)
          .report();
  } else {
    vreg = vregs.new_vreg(srcinfo, vreg_name, -1);
  }
  vreg->type = type;
  curr_vcmd->set_curr_vreg(vreg);
  return vreg;
}

AGEN* VKERNEL::lookup_global_agen(const std::string& agen_name) const {
  auto it = std::find_if(global_agens.begin(), global_agens.end(),
                         [&](const AGEN* agen) { return agen->name == agen_name; });
  return it == global_agens.end() ? nullptr : *it;
}

void VKERNEL::add_curr_vloop() {
  vcmds.push_back(curr_vcmd);
  vregs.revive_vregs();
  curr_vcmd = ::curr_vcmd = new VCMD(*this);
  std::vector<AGEN*> previous;
  previous.swap(global_agens);
  for (const AGEN* old : previous) {
    AGEN* agen = curr_vcmd->new_agen(old->srcinfo, old->name);
    if (!agen) continue;
    agen->has_init = old->has_init && std::all_of(old->strides.begin(), old->strides.end(),
                                                  [](const VPEXPR* s) { return !s; });
  }
}
