// Value ranges over the single assignment graph of one translated vector
// loop: a lower and an upper bound for every value, numeric or symbolic in
// the kernel's parameters, found by iterating to a fixed point.  They prove
// saturations needless and size lookup tables.
#ifndef ZLC_TRANSLATE_VAL_RANGES_H
#define ZLC_TRANSLATE_VAL_RANGES_H

#include <cstdint>
#include <ostream>
#include <vector>

#include "ZELT_ZLC/vdata_type.h"
#include "translate/ssa.h"

class TINSTR;
class VPEXPR;

// Null bounds mean nothing known yet; an indeterminate range is the top of
// the lattice and absorbs everything.
class VAL_RANGE {
 public:
  explicit VAL_RANGE(SSA::NODE* node) : node(node) {}

  // Sets the bounds that aren't null; true when one changed.  Announces a
  // change under debug:ranges.
  bool update(const VPEXPR* new_min, const VPEXPR* new_max);
  // True when the range wasn't indeterminate before.
  bool set_indeterminate();
  // Widens this range to take in `other`; two bounds of which one isn't a
  // number make it indeterminate.
  bool merge_direct_input(const VAL_RANGE& other);
  // The whole range of `type`.
  bool update_to_type_bounds(const VDATA_TYPE& type);

  SSA::NODE* get_node() const { return node; }
  const VPEXPR* get_min() const { return min; }
  const VPEXPR* get_max() const { return max; }
  bool is_indeterminate() const { return indeterminate; }

  // "\t<id>:\tmin: <min>\tmax:<max>\n", or "\t<id>:\tindeterminate\n".
  void print(std::ostream& out) const;

 private:
  SSA::NODE* node;
  const VPEXPR* min = nullptr;
  const VPEXPR* max = nullptr;
  bool indeterminate = false;
};

class VAL_RANGES {
 public:
  // Finds the ranges of every node of `graph`; under debug:ranges the graph
  // is printed first.
  explicit VAL_RANGES(SSA::GRAPH& graph);
  VAL_RANGES(const VAL_RANGES&) = delete;
  VAL_RANGES& operator=(const VAL_RANGES&) = delete;

  // The range of `instr`'s destination `dst_index`, or null.
  VAL_RANGE* get_range(const TINSTR* instr, int32_t dst_index);
  VAL_RANGE* get_range(const SSA::NODE* node);
  // The range of operand `index` of that node, or null.
  VAL_RANGE* get_operand_range(const TINSTR* instr, int32_t dst_index, size_t index);

 private:
  void initialize_ranges();
  // Passes over all nodes until one changes nothing.
  void find_ranges();
  bool find_range(VAL_RANGE& range);

  SSA::GRAPH& graph;
  std::vector<VAL_RANGE> ranges;         // in the order of the graph's nodes
  std::vector<uint32_t> range_of_node;   // by node id from the graph's first
  std::vector<VAL_RANGE*> operands;      // of the node at hand
};

// The bound is a signed or unsigned constant.
bool bound_is_numeric(const VPEXPR* bound);

#endif
