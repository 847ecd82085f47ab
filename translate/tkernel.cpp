// The translating kernel: the passes over its vector loops, and the names
// and signatures that belong to the whole kernel.
#include "translate/tkernel.h"

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vcmd.h"
#include "translate/lut_scatter.h"
#include "translate/q9k_transpose.h"
#include "translate/ssa.h"
#include "translate/tcmd.h"
#include "translate/val_ranges.h"

TKERNEL::TKERNEL(TEXT_OUT& outfile, TEXT_OUT& header_file)
    : VKERNEL(outfile, header_file), scope(this) {}

VKERNEL* new_translation_kernel(TEXT_OUT& outfile, TEXT_OUT& header_file) {
  return kernel_new<TKERNEL>(outfile, header_file);
}

// The transpose and table scatter rewrites of the model come first; each
// vector loop is then translated in source order.
void TKERNEL::translate_for_9k() {
  do_transpose_transformation(this);
  do_lut_scatter_transformation(this);
  for (VCMD* vcmd : vcmds) translate_vcmd(vcmd);
}

void TKERNEL::translate_vcmd(VCMD* vcmd) {
  auto* cmd = kernel_new<TCMD>(*this, vcmd);
  tcmds.push_back(cmd);
  cmd->translate_vblock(&vcmd->root, &cmd->root_loop);
  // The graph and the ranges live for this loop only: the ranges of the
  // values decide which saturations go and how large the tables are.
  SSA::GRAPH graph(cmd);
  VAL_RANGES ranges(graph);
  cmd->mark_unneeded_saturates(graph, ranges);
  cmd->lht_setup(ranges);
  cmd->analyze_addressing();
}

bool TKERNEL::needs_update_function() { return parms.has_update_parms(); }

void TKERNEL::format_update_sig(TEXT_OUT& out) {
  out << "void " << name << "_update";
  parms.format_declarations(pblock_name, out, true, true, cpp_out);
}

std::string TKERNEL::pblock_size() const { return "__PBLOCK_SIZE(" + tval_type_name() + ")"; }

std::string TKERNEL::tval_type_name() const { return name + "_tvals_t"; }

std::string TKERNEL::temp_name(const std::string& prefix) {
  for (;;) {
    std::string candidate = prefix + std::to_string(temp_counter++);
    auto it = vregs.by_name.find(candidate);
    if (it == vregs.by_name.end() || !it->second) return candidate;
  }
}

VREG* TKERNEL::temp_vreg() { return vregs.new_vreg(srcloc_internal, temp_name("Vtemp"), -1); }

SREG* TKERNEL::temp_sreg() { return sregs.new_sreg(srcloc_internal, temp_name("Stemp"), -1); }
