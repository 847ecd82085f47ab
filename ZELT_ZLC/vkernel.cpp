// Kernels: creation, declarations at kernel level, the hand-over and
// analysis of completed vector loops, the kernel-wide checks and the text of
// function heads and header lines.
#include "ZELT_ZLC/vkernel.h"

#include <algorithm>
#include <fstream>

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vpexpr.h"
#include "options/optobj.h"
#include "translate/tkernel.h"

VKERNEL* curr_vkernel = nullptr;
VCMD* curr_vcmd = nullptr;

VKERNEL* new_vkernel(TEXT_OUT& outfile, TEXT_OUT& header_file) {
  return new_translation_kernel(outfile, header_file);
}

namespace {
bool option_given(option_obj::option_id id) { return global_opts && global_opts->state[id] != 0; }
}  // namespace

VKERNEL::VKERNEL(TEXT_OUT& outfile, TEXT_OUT& header_file)
    : outfile(outfile), header_file(header_file), cpp_out(option_given(option_obj::OO_CPP_OUT)) {
  for (int32_t number = 0; number < internal_vregs; ++number)
    vregs.new_vreg(srcloc_internal, "V" + std::to_string(number), number);
  curr_vcmd = ::curr_vcmd = kernel_new<VCMD>(*this);
}

void VKERNEL::format() {
  analyze_kernel();
  check_kernel();
  translate_for_9k();
  format_initializer();
  format_vloops();
  format_runner();
  const auto* file = dynamic_cast<const std::ofstream*>(&header_file.stream());
  if (!file || file->is_open()) format_header_file();
  outfile.flush();
  header_file.flush();
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

VINSTR* VKERNEL::find_vreg_instr(const VREG* vreg) const {
  if (vcmds.empty()) return nullptr;
  auto later = later_defs.find(vreg);
  return later != later_defs.end() ? later->second : vcmds.front()->find_vreg_instr(vreg);
}

void VKERNEL::add_curr_vloop() {
  for (int32_t level = 1; level <= 4; ++level) {
    const VPEXPR* trips = curr_vcmd->tripcount_expr(level);
    if (trips->is_const() && trips->value64() > max_tripcount)
      DIAG::zlc_loop_tripcount(static_cast<unsigned>(max_tripcount))
          .set_src(&srcloc_internal)
          .report();
  }
  vcmds.push_back(curr_vcmd);
  if (vcmds.size() > 1)
    for (const auto& [vreg, def] : curr_vcmd->vreg_instrs)
      if (def && !def->is_vstore()) later_defs[vreg] = def;
  curr_vcmd->analyze_vloop();
  vregs.revive_vregs();
  curr_vcmd = ::curr_vcmd = kernel_new<VCMD>(*this);
  std::vector<AGEN*> previous;
  previous.swap(global_agens);
  for (const AGEN* old : previous) {
    AGEN* agen = curr_vcmd->new_agen(old->srcinfo, old->name);
    if (!agen) continue;
    agen->has_init = old->has_init && std::all_of(old->strides.begin(), old->strides.end(),
                                                  [](const VPEXPR* s) { return !s; });
  }
}

void VKERNEL::analyze_kernel() {
  param_count = 0;
  ctrl_count = 0;
  for (VCMD* vcmd : vcmds) {
    if (vcmd->vrpt) {
      vcmd->vrpt->ctrl_index = static_cast<int32_t>(ctrl_count++);
      if (vcmd->vexit && vcmd->vexit->exit_level() == 1)
        vcmd->vexit->set_ctrl_index(static_cast<int32_t>(ctrl_count++));
    }
    vcmd->preg_count = vcmd->pregs.assign_mrs();
    if (vcmd->preg_count >= max_pregs)
      DIAG::zlc_too_many_pregs(static_cast<unsigned>(vcmd->preg_count))
          .set_src(&vcmd->srcinfo)
          .report();
    param_count += static_cast<uint32_t>(vcmd->preg_count * vcmd->rpt_max());
  }
}

void VKERNEL::check_kernel() {
  if (zelt_simd_width == 8) return;
  for (VCMD* vcmd : vcmds) {
    const bool uses_width = std::any_of(vcmd->blocks.begin(), vcmd->blocks.end(),
                                        [](const VBLOCK* block) {
                                          return block->tripcount && block->tripcount->uses_width;
                                        });
    if (!uses_width)
      DIAG::zlc_no_zelt_simd_width_in_trips(zelt_simd_width).set_src(&vcmd->srcinfo).report();
  }
}

bool VKERNEL::profiling() const { return option_given(option_obj::OO_PROFILE); }

void VKERNEL::format_profiler_var(TEXT_OUT& out, const std::string& suffix, bool define) {
  if (!profiling()) return;
  out << (define ? "" : "extern ") << "__TSC_TYPE " << name << "_" << suffix << "_cycles"
      << (define ? " = 0" : "") << ";\n";
}

void VKERNEL::format_profiler_variables() {
  if (!profiling()) return;
  format_profiler_var(outfile, "init", true);
  format_profiler_var(outfile, "vloops", true);
  outfile << "\n";
}

void VKERNEL::format_profiler_start() {
  if (profiling()) outfile << "   time0 = _tsc_gettime();\n";
}

void VKERNEL::format_profiler_stop(const std::string& suffix) {
  if (profiling())
    outfile << "   " << name << "_" << suffix << "_cycles = _tsc_gettime() - time0;\n";
}

void VKERNEL::format_profiler_log() {
  if (!profiling()) return;
  outfile << "\n   __zelt_log_kernel_profile(\"" << name << "\", " << name << "_init_cycles, "
          << name << "_vloops_cycles);\n";
}

std::string VKERNEL::linkage_decl() const { return cpp_out ? "" : "extern \"C\" "; }

void VKERNEL::format_function_signature(TEXT_OUT& out, bool basic) const {
  out << "void " << name << (basic ? "" : "_custom");
  parms.format_declarations(pblock_name, out, false, !basic, cpp_out);
}

void VKERNEL::format_init_sig(TEXT_OUT& out) const {
  out << "unsigned int " << name << "_init";
  parms.format_declarations(pblock_name, out, false, true, cpp_out);
}

std::string VKERNEL::format_vloop_sig(bool with_default) const {
  std::string sig = "void " + name + "_vloops(\n";
  if (with_default && cpp_out)
    sig += "   unsigned short* pblock = " + pblock_name;
  else
    sig += "   unsigned short pblock[]";
  return sig + ")";
}

std::string VKERNEL::format_param_count_sig() const {
  return "unsigned int " + name + "_param_count(void)";
}

std::string VKERNEL::format_preg_attrs() {
  return "__attribute__((section(\".zelt_parameter_block\")))\n"
         "__attribute__((aligned(__ALIGNOF__(int))))\n";
}

void VKERNEL::format_header_file() {
  TEXT_OUT& out = header_file;
  out << "/* Parameter Register Block */\n"
      << "extern unsigned short " << pblock_name << "[" << param_count << "];\n\n";
  if (profiling()) {
    out << "/* Profile Cycle Counters */\n";
    format_profiler_var(out, "init", false);
    format_profiler_var(out, "vloops", false);
    out << "\n";
  }
  out << "/* Basic Runner Function */\n";
  format_function_signature(out, true);
  out << ";\n\n/* Custom Runner Function */\n";
  format_function_signature(out, false);
  out << ";\n\n/* Parameter Block Initialization Function */\n";
  format_init_sig(out);
  out << ";\n\n";
  if (needs_update_function()) {
    out << "/* Parameter Block Update Function */\n";
    format_update_sig(out);
    out << ";\n\n";
  }
  out << "/* ZELT VLOOP Execution Function */\n"
      << format_vloop_sig(false) << ";\n\n"
      << "/* Parameter Register Count */\n"
      << "#define PARAM_SIZE_" << name << " ((unsigned int)" << param_count << ")\n"
      << format_param_count_sig() << ";\n"
      << "/***********************************************************/\n";
}
