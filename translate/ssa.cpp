// The single assignment graph of a translated vector loop: phi placement
// over the dominance frontiers and the renaming walk down the dominator
// tree.  Registers are numbered by creation for the walk.
#include "translate/ssa.h"

#include <algorithm>

#include "translate/loop.h"
#include "translate/tcmd.h"
#include "translate/tinstr.h"

namespace SSA {

uint32_t NODE::id_counter = 0;

NODE::NODE(TINSTR* instr, int32_t dst_index) : instr(instr), id(id_counter++), dst_index(dst_index) {}

GRAPH::GRAPH(TCMD* tcmd) : tcmd(tcmd), dominance(tcmd->blocks), first(NODE::id_counter) {
  const size_t places = dominance.size();
  phis.resize(places);
  nodes.resize(places);
  if (places != 0) {
    gather_registers();
    insert_phi_nodes();
    rename(0);
    for (uint32_t place = 0; place < places; ++place)
      for (NODE* node : nodes[place]) by_instr.emplace_back(node->instr, node);
    std::stable_sort(by_instr.begin(), by_instr.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
  }
  end = NODE::id_counter;
}

// Asks each instruction once for its registers.
void GRAPH::gather_registers() {
  std::vector<VREG*> found;
  instrs_of_place.push_back(0);
  for (uint32_t place = 0; place < dominance.size(); ++place) {
    for (TINSTR* instr : dominance.block(place)->instrs) {
      const std::vector<VREG*> dsts = instr->dst_regs();
      const std::vector<VREG*> srcs = instr->src_regs();
      instrs.push_back({instr, static_cast<uint32_t>(found.size()), static_cast<uint32_t>(dsts.size()),
                        static_cast<uint32_t>(srcs.size())});
      found.insert(found.end(), dsts.begin(), dsts.end());
      found.insert(found.end(), srcs.begin(), srcs.end());
    }
    instrs_of_place.push_back(static_cast<uint32_t>(instrs.size()));
  }
  registers = found;
  std::erase(registers, nullptr);
  std::sort(registers.begin(), registers.end(), VREG_ORDER());
  registers.erase(std::unique(registers.begin(), registers.end()), registers.end());
  slots.reserve(found.size());
  for (const VREG* reg : found) slots.push_back(index_of(reg));
  undefined_nodes.assign(registers.size(), nullptr);
  stacks.resize(registers.size());
}

int32_t GRAPH::index_of(const VREG* reg) const {
  if (!reg) return -1;
  auto it = std::lower_bound(registers.begin(), registers.end(), reg, VREG_ORDER());
  return static_cast<int32_t>(it - registers.begin());
}

// A register that is only read has no defining block and so no phi.  The
// registers are visited in creation order, each with its defining blocks,
// once for each instruction there that writes it; this order numbers the
// phis, and a phi placed again replaces the earlier one.
void GRAPH::insert_phi_nodes() {
  std::vector<std::pair<uint32_t, uint32_t>> defs;  // register, place
  for (uint32_t place = 0; place < dominance.size(); ++place)
    for (uint32_t i = instrs_of_place[place]; i < instrs_of_place[place + 1]; ++i) {
      const int32_t* dsts = slots.data() + instrs[i].first_dst;
      for (uint32_t d = 0; d < instrs[i].dsts; ++d)
        if (dsts[d] >= 0 && std::find(dsts, dsts + d, dsts[d]) == dsts + d)
          defs.emplace_back(static_cast<uint32_t>(dsts[d]), place);
    }
  std::stable_sort(defs.begin(), defs.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<uint32_t> worklist;
  for (size_t next = 0; next < defs.size();) {
    const uint32_t reg = defs[next].first;
    worklist.clear();
    for (; next < defs.size() && defs[next].first == reg; ++next) worklist.push_back(defs[next].second);
    for (size_t i = 0; i < worklist.size(); ++i)
      for (uint32_t f : dominance.frontier(worklist[i])) {
        place_phi(f, reg);
        if (std::find(worklist.begin(), worklist.end(), f) == worklist.end()) worklist.push_back(f);
      }
  }
}

void GRAPH::place_phi(uint32_t place, uint32_t reg) {
  PHIS& of_place = phis[place];
  auto it = std::lower_bound(of_place.begin(), of_place.end(), reg,
                             [](const auto& entry, uint32_t r) { return entry.first < r; });
  if (it != of_place.end() && it->first == reg)
    it->second->id = NODE::id_counter++;  // a new phi in the old one's place
  else
    of_place.emplace(it, reg, &phi_store.emplace_back(registers[reg]));
}

void GRAPH::rename(uint32_t place) {
  for (auto& [reg, phi] : phis[place]) {
    phi->instr = nullptr;
    phi->dst_index = -1;
    stacks[reg].push_back(phi);
  }
  for (uint32_t i = instrs_of_place[place]; i < instrs_of_place[place + 1]; ++i) {
    const INSTR_REGS& instr = instrs[i];
    if (instr.dsts == 0) rewrite_tinstr(place, instr, -1);
    for (uint32_t d = 0; d < instr.dsts; ++d)
      if (slots[instr.first_dst + d] >= 0) rewrite_tinstr(place, instr, static_cast<int32_t>(d));
  }
  for (const BBLOCK* succ : dominance.block(place)->succ) {
    const uint32_t at = dominance.place(succ);
    if (at == DOMINANCE::none) continue;
    for (auto& [reg, phi] : phis[at])
      if (!stacks[reg].empty()) phi->params.insert(stacks[reg].back());
  }
  for (uint32_t child : dominance.children(place)) rename(child);
  for (auto& [reg, phi] : phis[place]) stacks[reg].pop_back();
  for (uint32_t i = instrs_of_place[place]; i < instrs_of_place[place + 1]; ++i)
    for (uint32_t d = 0; d < instrs[i].dsts; ++d) {
      const int32_t reg = slots[instrs[i].first_dst + d];
      if (reg >= 0) stacks[static_cast<size_t>(reg)].pop_back();
    }
}

void GRAPH::rewrite_tinstr(uint32_t place, const INSTR_REGS& instr, int32_t dst_index) {
  NODE& node = node_store.emplace_back(instr.instr, dst_index);
  nodes[place].push_back(&node);
  node.operands.reserve(instr.srcs);
  const int32_t* srcs = slots.data() + instr.first_dst + instr.dsts;
  for (uint32_t s = 0; s < instr.srcs; ++s) {
    if (srcs[s] < 0) {
      node.operands.push_back(nullptr);
      continue;
    }
    const auto reg = static_cast<size_t>(srcs[s]);
    if (!stacks[reg].empty()) {
      node.operands.push_back(stacks[reg].back());
      continue;
    }
    if (!undefined_nodes[reg]) undefined_nodes[reg] = &node_store.emplace_back(nullptr, -1);
    node.operands.push_back(undefined_nodes[reg]);
  }
  if (dst_index >= 0)
    stacks[static_cast<size_t>(slots[instr.first_dst + static_cast<uint32_t>(dst_index)])]
        .push_back(&node);
}

NODE* GRAPH::get_node(const TINSTR* instr, int32_t dst_index) const {
  auto it = std::lower_bound(by_instr.begin(), by_instr.end(), instr,
                             [](const auto& entry, const TINSTR* i) { return entry.first < i; });
  for (; it != by_instr.end() && it->first == instr; ++it)
    if (it->second->dst_index == dst_index) return it->second;
  return nullptr;
}

PHI* GRAPH::phi(const BBLOCK* block, const VREG* reg) const {
  const uint32_t place = dominance.place(block);
  const int32_t index = index_of(reg);
  if (place == DOMINANCE::none || index < 0 || static_cast<size_t>(index) >= registers.size() ||
      registers[static_cast<size_t>(index)] != reg)
    return nullptr;
  for (const auto& [r, phi] : phis[place])
    if (r == static_cast<uint32_t>(index)) return phi;
  return nullptr;
}

size_t GRAPH::blocks_with_phis() const {
  return static_cast<size_t>(
      std::count_if(phis.begin(), phis.end(), [](const PHIS& of_place) { return !of_place.empty(); }));
}

NODE* GRAPH::undefined(const VREG* reg) const {
  const int32_t index = index_of(reg);
  if (index < 0 || static_cast<size_t>(index) >= registers.size() ||
      registers[static_cast<size_t>(index)] != reg)
    return nullptr;
  return undefined_nodes[static_cast<size_t>(index)];
}

size_t GRAPH::undefined_count() const {
  return registers.size() - static_cast<size_t>(std::count(undefined_nodes.begin(),
                                                           undefined_nodes.end(), nullptr));
}

void GRAPH::get_all_nodes(std::vector<NODE*>& all) {
  all.clear();
  for (NODE* node : undefined_nodes)
    if (node) all.push_back(node);
  for (uint32_t place = 0; place < dominance.size(); ++place) {
    for (const auto& [reg, phi] : phis[place]) all.push_back(phi);
    all.insert(all.end(), nodes[place].begin(), nodes[place].end());
  }
}

void GRAPH::dump(std::ostream& out) const {
  out << "===== SSA =====\n";
  for (uint32_t place = 0; place < dominance.size(); ++place) {
    out << "B" << dominance.block(place)->id << ":\n";
    for (const auto& [reg, phi] : phis[place]) {
      out << "\t" << phi->id << ":\tPHI " << registers[reg]->name << "( ";
      for (const NODE* param : phi->params) out << param->id << " ";
      out << ")\n";
    }
    for (const NODE* node : nodes[place]) {
      out << "\t" << node->id << ":\t";
      if (node->dst_index >= 0)
        out << "RES" << node->dst_index << " "
            << node->instr->dst_regs()[static_cast<size_t>(node->dst_index)]->name << " = ";
      out << node->instr->instr_string() << "( ";
      for (const NODE* operand : node->operands)
        if (operand) out << operand->id << " ";
      out << ")\n";
    }
  }
}

}  // namespace SSA
