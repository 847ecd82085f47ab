// One kernel of the source file: its parameters, its kernel-level registers
// and generators, its vector loops in source order, and the fixed sequence
// of steps that its closing brace runs.
#ifndef ZLC_ZELT_ZLC_VKERNEL_H
#define ZLC_ZELT_ZLC_VKERNEL_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vdata_type.h"
#include "ZELT_ZLC/vreg.h"

class VCMD;
class VINSTR;
class VPEXPR;

class VKERNEL {
 public:
  // The internal registers "V0" to "V15" are predeclared with their numbers.
  static constexpr int32_t internal_vregs = 16;
  // A vector loop may use at most this many parameter slots, less one.
  static constexpr int32_t max_pregs = 64;
  static constexpr int64_t max_tripcount = 0xffff;

  VKERNEL(TEXT_OUT& outfile, TEXT_OUT& header_file);
  virtual ~VKERNEL() = default;
  VKERNEL(const VKERNEL&) = delete;
  VKERNEL& operator=(const VKERNEL&) = delete;

  // Everything that follows the kernel's closing brace: analysis, checks,
  // translation, the source text and the header lines.
  virtual void format();
  // The steps that the translating kernel supplies; this kernel writes no
  // text of its own for them.
  virtual void format_initializer() {}
  virtual void format_vloops() {}
  virtual void format_runner() {}
  virtual void format_kernel_information() {}
  // Cycle counters, written only with --profile.
  virtual void format_profiler_variables();
  virtual void format_profiler_var(TEXT_OUT& out, const std::string& suffix, bool define);
  virtual void format_profiler_start();
  virtual void format_profiler_stop(const std::string& suffix);
  virtual void format_profiler_log();
  virtual void translate_for_9k() {}
  virtual bool needs_update_function() { return false; }
  virtual void format_update_sig(TEXT_OUT& out) { (void)out; }

  // The kernel's name, also appended to the parameter block's name.
  void set_name(const std::string& kernel_name);

  PARM* new_parm(const DIAG_SRCINFO& srcinfo, const std::string& parm_name, uint32_t flags,
                 const std::string& type_text, const std::string& array_text);
  PARM* lookup_parm(const std::string& parm_name) const { return parms.lookup(parm_name); }

  // Declares a register in the current block of the current loop and makes
  // it the statement's target; null when the name can't be declared there.
  VREG* new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& vreg_name, VDATA_TYPE type);
  // The kernel-level table only.
  VREG* lookup_vreg(std::string_view vreg_name) const { return vregs.lookup(vreg_name); }
  AGEN* lookup_global_agen(const std::string& agen_name) const;
  // The definition of `vreg` recorded by the completed loops, newest first;
  // a store counts only in the kernel's first loop.
  VINSTR* find_vreg_instr(const VREG* vreg) const;

  // Takes the completed current loop, analyses it, and starts a fresh one
  // in which the global generators are declared anew.
  void add_curr_vloop();
  // `_HISTOGRAM(count, table_size)`: the empty current loop becomes a
  // histogram loop; `table_size` may be null.
  void add_histogram_vloop(const DIAG_SRCINFO& srcinfo, const VPEXPR* count,
                           const VPEXPR* table_size);
  // `_LOOKUP(tables, points, dup, table_size)`, where the last two may be
  // null, and `_EXPAND`, where all four are: the empty current loop becomes
  // a table lookup loop.
  void add_tablelkup_vloop(const DIAG_SRCINFO& srcinfo, const VPEXPR* tables,
                           const VPEXPR* points, const VPEXPR* dup, const VPEXPR* table_size);

  // Control indices of `foreach` levels and exits, and the parameter slots
  // of every loop.
  void analyze_kernel();
  // Wider SIMD helps only loops whose trip counts use the width.
  void check_kernel();

  // Texts of the generated functions' heads.
  std::string linkage_decl() const;
  void format_function_signature(TEXT_OUT& out, bool basic) const;
  void format_init_sig(TEXT_OUT& out) const;
  std::string format_vloop_sig(bool with_default) const;
  std::string format_param_count_sig() const;
  // The two attribute lines of the parameter block, each ended by a newline.
  static std::string format_preg_attrs();
  void format_header_file();

  TEXT_OUT& outfile;
  TEXT_OUT& header_file;
  bool cpp_out;  // --cpp_out: no C linkage, the block is a pointer
  VREG_TABLE vregs;
  PARM_TABLE parms;
  std::vector<AGEN*> global_agens;  // declared outside every loop, unique by name
  std::vector<VCMD*> vcmds;         // completed loops, in source order
  // The newest definition other than a store of each register, over the
  // completed loops after the first.
  std::map<const VREG*, VINSTR*, VREG_ORDER> later_defs;
  VCMD* curr_vcmd;
  std::string name;
  std::string pblock_name = "__pblock_";
  uint32_t param_count = 0;
  uint32_t ctrl_count = 0;

 private:
  bool profiling() const;
  // Puts `vloop` in place of the empty current loop, with its `foreach`
  // level and location.
  void install_special_vloop(VCMD* vloop);
};

// The kernel and the vector loop under construction.
extern VKERNEL* curr_vkernel;
extern VCMD* curr_vcmd;

VKERNEL* new_vkernel(TEXT_OUT& outfile, TEXT_OUT& header_file);

#endif
