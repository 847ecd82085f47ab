// One kernel of the source file: its parameters, its kernel-level registers
// and generators, and its vector loops in source order.
#ifndef ZLC_ZELT_ZLC_VKERNEL_H
#define ZLC_ZELT_ZLC_VKERNEL_H

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/vdata_type.h"
#include "ZELT_ZLC/vreg.h"

class VCMD;

class VKERNEL {
 public:
  // The internal registers "V0" to "V15" are predeclared with their numbers.
  static constexpr int32_t internal_vregs = 16;

  VKERNEL(std::ostream& outfile, std::ostream& header_file);
  virtual ~VKERNEL() = default;
  VKERNEL(const VKERNEL&) = delete;
  VKERNEL& operator=(const VKERNEL&) = delete;

  // The kernel's name, also appended to the parameter block's name.
  void set_name(const std::string& kernel_name);

  PARM* new_parm(const DIAG_SRCINFO& srcinfo, const std::string& parm_name, uint32_t flags,
                 const std::string& type_text, const std::string& array_text);
  PARM* lookup_parm(const std::string& parm_name) const { return parms.lookup(parm_name); }

  // Declares a register in the current block of the current loop and makes
  // it the statement's target; null when the name can't be declared there.
  VREG* new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& vreg_name, VDATA_TYPE type);
  // The kernel-level table only.
  VREG* lookup_vreg(const std::string& vreg_name) const { return vregs.lookup(vreg_name); }
  AGEN* lookup_global_agen(const std::string& agen_name) const;

  // Takes the completed current loop and starts a fresh one, in which the
  // global generators are declared anew.
  void add_curr_vloop();

  std::ostream& outfile;
  std::ostream& header_file;
  VREG_TABLE vregs;
  PARM_TABLE parms;
  std::vector<AGEN*> global_agens;  // declared outside every loop, unique by name
  std::vector<VCMD*> vcmds;         // completed loops, in source order
  VCMD* curr_vcmd;
  std::string name;
  std::string pblock_name = "__pblock_";
  uint32_t param_count = 0;
  uint32_t ctrl_count = 0;
};

// The kernel and the vector loop under construction.
extern VKERNEL* curr_vkernel;
extern VCMD* curr_vcmd;

VKERNEL* new_vkernel(std::ostream& outfile, std::ostream& header_file);

#endif
