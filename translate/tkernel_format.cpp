// The generated text of one kernel: value types, parameter block, count,
// init and update functions, the vector-loop function and the runners.

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/text_out.h"
#include "options/optobj.h"
#include "translate/loop.h"
#include "translate/tcmd.h"
#include "translate/tkernel.h"

namespace {

bool profile_requested() { return global_opts && global_opts->state[option_obj::OO_PROFILE] != 0; }

// Starts a function body at level 0.
void open_body(TEXT_OUT& out) {
  out << "\n";
  INDENT::reset(out);
  INDENT::open(out);
}

// "// loop N" ahead of a loop's values in the init and update functions:
// with several loops, or for a loop with a repeat level.
void format_loop_comment(const TKERNEL& kernel, const TCMD* cmd) {
  if (kernel.tcmds.size() >= 2 || cmd->has_repeat)
    INDENT::indent(kernel.outfile) << "// loop " << cmd->id << "\n";
}

}  // namespace

void TKERNEL::format_tval_typedef() {
  TEXT_OUT& out = outfile;
  INDENT::reset(out);
  for (const TCMD* cmd : tcmds) cmd->tvals.format_typedef(out);
  out << "typedef struct\n";
  INDENT::open(out);
  for (const auto& [number, parm] : parms.by_number)
    INDENT::indent(out) << parm->declaration() << ";\n";
  for (const TCMD* cmd : tcmds)
    if (cmd->has_tvals())
      INDENT::indent(out) << cmd->tvals.type() << " " << cmd->tvals.name() << ";\n";
  INDENT::lower(out);
  INDENT::indent(out) << "} " << tval_type_name() << ";\n";
  INDENT::blankline(out);
}

void TKERNEL::format_tval_assignment() {
  TEXT_OUT& out = outfile;
  INDENT::indent(out) << tval_type_name() << "* tvals = (" << tval_type_name() << "*)pblock;\n";
  INDENT::blankline(out);
}

void TKERNEL::format_initializer() {
  TEXT_OUT& out = outfile;
  format_tval_typedef();
  out << format_preg_attrs() << "uint16_t " << pblock_name << "[ " << pblock_size() << " ];\n";
  INDENT::blankline(out);
  format_profiler_variables();
  format_kernel_information();

  out << linkage_decl();
  format_init_sig(out);
  open_body(out);
  format_tval_assignment();
  for (const auto& [number, parm] : parms.by_number)
    INDENT::indent(out) << "tvals->" << parm->name << " = " << parm->name << ";\n";
  INDENT::blankline(out);
  for (const TCMD* cmd : tcmds) {
    format_loop_comment(*this, cmd);
    cmd->tvals.format_init(out, false);
  }
  INDENT::blankline(out);
  INDENT::indent(out) << "return " << pblock_size() << ";\n";
  INDENT::close(out);
  INDENT::blankline(out);

  if (!needs_update_function()) return;
  out << linkage_decl();
  format_update_sig(out);
  open_body(out);
  format_tval_assignment();
  for (const auto& [number, parm] : parms.by_number)
    if (!parm->has_flag(PARM::QF_UPDATE))
      INDENT::indent(out) << parm->declaration() << " = tvals->" << parm->name << ";\n";
  INDENT::blankline(out);
  for (const auto& [number, parm] : parms.by_number)
    if (parm->has_flag(PARM::QF_UPDATE))
      INDENT::indent(out) << "tvals->" << parm->name << " = " << parm->name << ";\n";
  INDENT::blankline(out);
  for (const TCMD* cmd : tcmds) {
    format_loop_comment(*this, cmd);
    cmd->tvals.format_init(out, true);
  }
  INDENT::close(out);
  INDENT::blankline(out);
}

void TKERNEL::format_kernel_information() {
  TEXT_OUT& out = outfile;
  out << linkage_decl() << format_param_count_sig();
  open_body(out);
  INDENT::indent(out) << "return " << pblock_size() << ";\n";
  INDENT::close(out);
  INDENT::blankline(out);
}

void TKERNEL::format_vloops() {
  TEXT_OUT& out = outfile;
  out << linkage_decl() << format_vloop_sig(true);
  open_body(out);
  format_tval_assignment();
  for (const PARM* parm : used_parms)
    INDENT::indent(out) << parm->declaration() << " = tvals->" << parm->name << ";\n";
  INDENT::blankline(out);
  scope.format_declarations(out, TDECL::less_by_type);
  const bool blocks = tcmds.size() >= 2;
  for (const TCMD* cmd : tcmds) {
    if (blocks) {
      INDENT::indent(out) << "// loop " << cmd->id << "\n";
      INDENT::open(out);
    }
    cmd->format(out);
    if (blocks) INDENT::close(out);
  }
  INDENT::close(out);
  INDENT::blankline(out);
}

void TKERNEL::format_runner() {
  TEXT_OUT& out = outfile;
  const bool profile = profile_requested();
  out << linkage_decl();
  format_function_signature(out, true);
  out << "\n{\n";
  if (profile) out << "   __TSC_TYPE time0;\n";
  format_profiler_start();
  out << "   " << name << "_init" << parms.format_args(cpp_out ? "" : pblock_name) << ";\n";
  format_profiler_stop("init");
  INDENT::blankline(out);
  format_profiler_start();
  out << "   " << name << "_vloops(" << (cpp_out ? "" : pblock_name) << ");\n";
  format_profiler_stop("vloops");
  format_profiler_log();
  out << "}\n";
  INDENT::blankline(out);

  out << linkage_decl();
  format_function_signature(out, false);
  out << "\n{\n"
      << "   " << name << "_init" << parms.format_args("pblock") << ";\n";
  INDENT::blankline(out);
  out << "   " << name << "_vloops(pblock);\n"
      << "}\n";
  INDENT::blankline(out);
}
