// One vector loop: a nest of up to four `for` levels, optionally inside one
// `foreach`, and the state of the statement being parsed into it.
#ifndef ZLC_ZELT_ZLC_VCMD_H
#define ZLC_ZELT_ZLC_VCMD_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/vblock.h"

class VKERNEL;
class VPEXPR;

class VCMD {
 public:
  explicit VCMD(VKERNEL& kernel);
  virtual ~VCMD() = default;
  VCMD(const VCMD&) = delete;
  VCMD& operator=(const VCMD&) = delete;

  // The target registers of the statement being parsed; a single target
  // clears the second register of a pair.
  void set_curr_vreg(VREG* vreg);
  // With a pair already current, the old pair is saved as the destination
  // and the new registers take the old names as aliases.
  void set_curr_vpair(VREG* first, VREG* second);
  void clear_curr();

  // Opens a `for` level under the current block.
  void push_block(const DIAG_SRCINFO& srcinfo, const std::string& lcv, const VPEXPR* tripcount);
  // Opens the `foreach` level, which must stand outermost.
  void push_rpt(const DIAG_SRCINFO& srcinfo, const std::string& lcv, const VPEXPR* count,
                const VPEXPR* max);
  // Closes the current level; back at the root the loop is complete and the
  // kernel takes it.
  void pop_block();

  // A register visible from the current block; with `warn_dead`, a register
  // whose value has moved to another name is reported.
  VREG* lookup_vreg(const std::string& name, const DIAG_SRCINFO& srcinfo, bool warn_dead);
  AGEN* lookup_agen(const std::string& name) const;
  // Declares a generator in the current block; one of the outermost level
  // also goes on the kernel's list of global generators.
  AGEN* new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name);

  // Instructions: loads, stores, operations, moves and exits.  Their
  // definitions live in vcmd_loads.cpp, vcmd_stores.cpp and vcmd_ops.cpp.
  // INSTRUCTION ENTRY POINTS BEGIN
  // INSTRUCTION ENTRY POINTS END

  VINSTR* curr_instr = nullptr;
  VREG* curr_vreg = nullptr;
  VREG* curr_vreg2 = nullptr;
  int32_t next_agen = 0;
  uint16_t op_count = 0;
  uint16_t load_count = 0;
  uint16_t init_count = 0;
  uint16_t store_count = 0;
  DIAG_SRCINFO_DATA srcinfo;  // the loop's location, internal until a level is pushed
  std::vector<VBLOCK*> blocks;  // root first, in order of creation
  VKERNEL& kernel;
  VBLOCK root;
  VBLOCK* curr_block;
  VBLOCK* innermost = nullptr;
  VREG* saved_vreg = nullptr;
  VREG* saved_vreg2 = nullptr;
  std::map<std::string, const VPEXPR*> move_conds;
  int32_t move_pos = 2;
  VRPT* vrpt = nullptr;
  uint32_t id;
};

#endif
