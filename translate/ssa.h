// A static single assignment view of one translated vector loop: a node for
// each value that an instruction defines, phis where values of a register
// meet, and the operands of each node.  The instructions stay as they are;
// the graph is a side structure that lives while the loop is analysed.
#ifndef ZLC_TRANSLATE_SSA_H
#define ZLC_TRANSLATE_SSA_H

#include <cstdint>
#include <iostream>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <stack>
#include <vector>

#include "ZELT_ZLC/vreg.h"
#include "translate/loop.h"

class TCMD;
class TINSTR;

// Orders blocks by creation, so that everything keyed by block comes out the
// same way in every run.
struct BLOCK_ORDER {
  bool operator()(const BBLOCK* a, const BBLOCK* b) const { return a->id < b->id; }
};

namespace SSA {

class NODE {
 public:
  // Takes the next number of the run-wide count.
  NODE(TINSTR* instr, int32_t dst_index);
  virtual ~NODE() = default;
  NODE(const NODE&) = delete;
  NODE& operator=(const NODE&) = delete;

  virtual bool is_phi() const { return false; }
  // A register read before any definition.
  bool is_undefined() const { return !instr && !is_phi(); }
  uint32_t get_id() const { return id; }
  int32_t get_dst_index() const { return dst_index; }
  const std::vector<NODE*>& get_operands() const { return operands; }
  TINSTR* get_instr() const { return instr; }

  TINSTR* instr;
  uint32_t id;
  int32_t dst_index;  // -1 for an instruction without a destination
  std::vector<NODE*> operands;  // one per source register, null for a null one

  static uint32_t id_counter;
};

// Orders nodes by creation.
struct NODE_ORDER {
  bool operator()(const NODE* a, const NODE* b) const { return a->id < b->id; }
};

using NODE_SET = std::set<NODE*, NODE_ORDER>;

class PHI : public NODE {
 public:
  explicit PHI(VREG* vreg) : NODE(nullptr, -1), vreg(vreg) {}

  bool is_phi() const override { return true; }
  NODE_SET get_phi_params() const { return params; }

  VREG* vreg;
  NODE_SET params;  // the incoming values
};

using BLOCK_SET = std::set<BBLOCK*, BLOCK_ORDER>;
using BLOCK_SETS = std::map<BBLOCK*, BLOCK_SET, BLOCK_ORDER>;
using IDOMS = std::map<BBLOCK*, BBLOCK*, BLOCK_ORDER>;

class GRAPH {
 public:
  // Builds dominators, frontiers, phis and the renamed nodes of `tcmd`.
  explicit GRAPH(TCMD* tcmd);
  GRAPH(const GRAPH&) = delete;
  GRAPH& operator=(const GRAPH&) = delete;

  // The node of `instr` for its destination `dst_index`, or null.
  NODE* get_node(const TINSTR* instr, int32_t dst_index) const;
  // The undefined nodes, then for each block its phis and instruction nodes.
  void get_all_nodes(std::vector<NODE*>& all);
  // "===== SSA =====" and each block with its phis and nodes.
  void dump(std::ostream& out = std::cout) const;

  // The dominators of each block of `blocks`, whose first block is the entry.
  static BLOCK_SETS compute_doms(const std::vector<BBLOCK*>& blocks);
  // The immediate dominator of each block but the entry.
  static IDOMS compute_idoms(const std::vector<BBLOCK*>& blocks, const BLOCK_SETS& doms);
  // The dominance frontier of each block; blocks without one map to an
  // empty set.
  static BLOCK_SETS compute_dom_frontiers(const std::vector<BBLOCK*>& blocks,
                                          const IDOMS& idoms);

  TCMD* tcmd;
  std::map<VREG*, NODE, VREG_ORDER> undefined;
  std::map<BBLOCK*, std::map<VREG*, std::unique_ptr<PHI>, VREG_ORDER>, BLOCK_ORDER> phis;
  std::map<BBLOCK*, std::list<NODE>, BLOCK_ORDER> nodes;
  std::multimap<const TINSTR*, NODE*> instr_map;

 private:
  using STACKS = std::map<VREG*, std::stack<NODE*>, VREG_ORDER>;

  void insert_phi_nodes(const BLOCK_SETS& frontiers);
  // For each register that an instruction writes, its block once for each
  // instruction there that writes it, in block and instruction order.
  std::map<VREG*, std::vector<BBLOCK*>, VREG_ORDER> defing_blocks() const;
  void rename(BBLOCK* block, STACKS& stacks, const IDOMS& idoms);
  void rewrite_tinstr(TINSTR* instr, int32_t dst_index, STACKS& stacks);
};

}  // namespace SSA

#endif
