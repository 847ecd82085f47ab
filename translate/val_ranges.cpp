// The lattice of value ranges, its merge, and the iteration over the nodes
// of a single assignment graph until no range changes.
#include "translate/val_ranges.h"

#include <iostream>
#include <map>
#include <utility>
#include <vector>

#include "ZELT_ZLC/vpexpr.h"
#include "options/register_option.h"
#include "translate/tinstr.h"

namespace {

// Prints the graph and every change of a range on standard output.
register_option debug_ranges("debug:ranges");

const char* bound_text(const VPEXPR* bound) { return bound ? bound->text.c_str() : "???"; }

}  // namespace

bool bound_is_numeric(const VPEXPR* bound) { return bound && bound->is_const(); }

bool VAL_RANGE::update(const VPEXPR* new_min, const VPEXPR* new_max) {
  auto differs = [](const VPEXPR* old_bound, const VPEXPR* new_bound) {
    return new_bound && (!old_bound || !old_bound->equals(new_bound));
  };
  const bool changed = differs(min, new_min) || differs(max, new_max);
  if (new_min) min = new_min;
  if (new_max) max = new_max;
  if (changed && debug_ranges) {
    std::cout << "Update:";
    print(std::cout);
  }
  return changed;
}

bool VAL_RANGE::set_indeterminate() {
  if (indeterminate) return false;
  indeterminate = true;
  return true;
}

bool VAL_RANGE::merge_direct_input(const VAL_RANGE& other) {
  if (indeterminate) return false;
  if (other.indeterminate) return set_indeterminate();
  if (!other.min) return false;
  if (!min) return update(other.min, other.max);
  for (const VPEXPR* bound : {min, max, other.min, other.max})
    if (!bound_is_numeric(bound)) return set_indeterminate();
  return update(other.min->value64() < min->value64() ? other.min : min,
                other.max->value64() > max->value64() ? other.max : max);
}

// The bounds of each type are made once and shared.
bool VAL_RANGE::update_to_type_bounds(const VDATA_TYPE& type) {
  static std::map<std::pair<int32_t, bool>, std::pair<const VPEXPR*, const VPEXPR*>> made;
  auto [it, added] = made.try_emplace({type.bits, type.is_signed});
  if (added) {
    const int64_t bits = type.bits;
    if (type.is_signed)
      it->second = {new VPEXPR(-(int64_t{1} << (bits - 1)), VPEXPR::EVAL_SIGNED),
                    new VPEXPR((int64_t{1} << (bits - 1)) - 1, VPEXPR::EVAL_UNSIGNED)};
    else
      it->second = {new VPEXPR(0, VPEXPR::EVAL_UNSIGNED),
                    new VPEXPR((int64_t{1} << bits) - 1, VPEXPR::EVAL_UNSIGNED)};
  }
  return update(it->second.first, it->second.second);
}

void VAL_RANGE::print(std::ostream& out) const {
  out << "\t" << node->id << ":\t";
  if (indeterminate)
    out << "indeterminate\n";
  else
    out << "min: " << bound_text(min) << "\tmax:" << bound_text(max) << "\n";
}

VAL_RANGES::VAL_RANGES(SSA::GRAPH& graph) : graph(graph) {
  if (debug_ranges) {
    std::cout << "Finding ranges for:\n";
    graph.dump(std::cout);
  }
  initialize_ranges();
  find_ranges();
}

void VAL_RANGES::initialize_ranges() {
  std::vector<SSA::NODE*> all;
  graph.get_all_nodes(all);
  ranges.reserve(all.size());
  range_of_node.assign(graph.end_id() - graph.first_id(), UINT32_MAX);
  for (SSA::NODE* node : all) {
    range_of_node[node->id - graph.first_id()] = static_cast<uint32_t>(ranges.size());
    ranges.emplace_back(node);
  }
}

void VAL_RANGES::find_ranges() {
  for (bool changed = true; changed;) {
    changed = false;
    for (VAL_RANGE& range : ranges)
      if (find_range(range)) changed = true;
  }
}

bool VAL_RANGES::find_range(VAL_RANGE& range) {
  SSA::NODE* node = range.get_node();
  if (node->is_undefined()) return range.set_indeterminate();
  if (node->is_phi()) {
    bool changed = false;
    for (SSA::NODE* param : static_cast<SSA::PHI*>(node)->params)
      if (range.merge_direct_input(*get_range(param))) changed = true;
    return changed;
  }
  operands.clear();
  for (SSA::NODE* operand : node->operands) operands.push_back(operand ? get_range(operand) : nullptr);
  return node->instr->find_range(&range, operands);
}

VAL_RANGE* VAL_RANGES::get_range(const TINSTR* instr, int32_t dst_index) {
  return get_range(graph.get_node(instr, dst_index));
}

VAL_RANGE* VAL_RANGES::get_range(const SSA::NODE* node) {
  if (!node || node->id < graph.first_id() || node->id >= graph.end_id()) return nullptr;
  const uint32_t index = range_of_node[node->id - graph.first_id()];
  return index < ranges.size() && ranges[index].get_node() == node ? &ranges[index] : nullptr;
}

VAL_RANGE* VAL_RANGES::get_operand_range(const TINSTR* instr, int32_t dst_index, size_t index) {
  const SSA::NODE* node = graph.get_node(instr, dst_index);
  if (!node || index >= node->operands.size()) return nullptr;
  return get_range(node->operands[index]);
}
