// A static single assignment view of one translated vector loop: a node for
// each value that an instruction defines, phis where values of a register
// meet, and the operands of each node.  The instructions stay as they are;
// the graph is a side structure that lives while the loop is analysed.
#ifndef ZLC_TRANSLATE_SSA_H
#define ZLC_TRANSLATE_SSA_H

#include <cstdint>
#include <deque>
#include <iostream>
#include <set>
#include <utility>
#include <vector>

#include "ZELT_ZLC/vreg.h"
#include "translate/dominance.h"

class TCMD;
class TINSTR;

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

class GRAPH {
 public:
  // Builds dominance, phis and the renamed nodes of `tcmd`.
  explicit GRAPH(TCMD* tcmd);
  GRAPH(const GRAPH&) = delete;
  GRAPH& operator=(const GRAPH&) = delete;

  // The node of `instr` for its destination `dst_index`, or null.
  NODE* get_node(const TINSTR* instr, int32_t dst_index) const;
  // The undefined nodes, then for each block its phis and instruction nodes.
  void get_all_nodes(std::vector<NODE*>& all);
  // "===== SSA =====" and each block with its phis and nodes.
  void dump(std::ostream& out = std::cout) const;

  // The phi of `reg` at the head of `block`, or null.
  PHI* phi(const BBLOCK* block, const VREG* reg) const;
  // The blocks that have phis.
  size_t blocks_with_phis() const;
  // The node of `reg` read before any definition, or null.
  NODE* undefined(const VREG* reg) const;
  size_t undefined_count() const;
  // Every node of the graph has an id from first_id() up to end_id().
  uint32_t first_id() const { return first; }
  uint32_t end_id() const { return end; }

  TCMD* tcmd;

 private:
  // Where an instruction's registers stand in `slots`: the destinations,
  // then the sources, each as the index of its register or -1 for null.
  struct INSTR_REGS {
    TINSTR* instr;
    uint32_t first_dst;
    uint32_t dsts;
    uint32_t srcs;
  };
  using PHIS = std::vector<std::pair<uint32_t, PHI*>>;  // by register index

  void gather_registers();
  // The index of `reg` among the registers of the loop, -1 for null.
  int32_t index_of(const VREG* reg) const;
  void insert_phi_nodes();
  void place_phi(uint32_t place, uint32_t reg);
  void rename(uint32_t place);
  void rewrite_tinstr(uint32_t place, const INSTR_REGS& instr, int32_t dst_index);

  DOMINANCE dominance;
  uint32_t first;
  uint32_t end;
  std::vector<VREG*> registers;             // by creation
  std::vector<int32_t> slots;
  std::vector<INSTR_REGS> instrs;           // by block, then as in the block
  std::vector<uint32_t> instrs_of_place;    // the first of each place, and the end
  std::vector<PHIS> phis;                   // by place
  std::vector<std::vector<NODE*>> nodes;    // by place
  std::vector<NODE*> undefined_nodes;       // by register index
  std::vector<std::vector<NODE*>> stacks;   // by register index
  std::vector<std::pair<const TINSTR*, NODE*>> by_instr;  // sorted by instruction
  std::deque<NODE> node_store;
  std::deque<PHI> phi_store;
};

}  // namespace SSA

#endif
