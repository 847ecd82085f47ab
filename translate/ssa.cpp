// The single assignment graph of a translated vector loop: dominators by
// iteration, immediate dominators, dominance frontiers, phi placement and
// the renaming walk down the dominator tree.
#include "translate/ssa.h"

#include <algorithm>
#include <map>

#include "translate/tcmd.h"
#include "translate/tinstr.h"

namespace SSA {

uint32_t NODE::id_counter = 0;

NODE::NODE(TINSTR* instr, int32_t dst_index) : instr(instr), id(id_counter++), dst_index(dst_index) {}

namespace {

// Sets of blocks as rows of flags over the places of the blocks in their
// list, so that the iterations allocate nothing per member.
using ROW = std::vector<bool>;
using ROWS = std::vector<ROW>;
constexpr size_t no_place = static_cast<size_t>(-1);

// The dominators of each place; a predecessor outside the list counts as
// dominated by nothing.
ROWS dominator_rows(const std::vector<BBLOCK*>& blocks) {
  const size_t n = blocks.size();
  std::map<const BBLOCK*, size_t> place;
  for (size_t i = 0; i < n; ++i) place.emplace(blocks[i], i);
  ROWS doms(n, ROW(n, true));
  if (n == 0) return doms;
  doms[0].assign(n, false);
  doms[0][0] = true;
  for (bool changed = true; changed;) {
    changed = false;
    for (size_t b = 1; b < n; ++b) {
      ROW next(n, true);
      for (const BBLOCK* pred : blocks[b]->pred) {
        auto it = place.find(pred);
        for (size_t i = 0; i < n; ++i) next[i] = next[i] && it != place.end() && doms[it->second][i];
      }
      next[b] = true;
      if (next != doms[b]) {
        doms[b] = std::move(next);
        changed = true;
      }
    }
  }
  return doms;
}

// The place of each block's immediate dominator, no_place for the entry.
std::vector<size_t> idom_places(const std::vector<BBLOCK*>& blocks, ROWS strict) {
  const size_t n = blocks.size();
  for (size_t i = 0; i < n; ++i) strict[i][i] = false;
  std::vector<size_t> idoms(n, no_place);
  for (size_t b = 1; b < n; ++b) {
    std::vector<size_t> snapshot;
    for (size_t i = 0; i < n; ++i)
      if (strict[b][i]) snapshot.push_back(i);
    // A dominator that dominates another dominator is not the immediate one.
    for (size_t d1 : snapshot)
      for (size_t d2 : snapshot)
        if (d1 != d2 && strict[d1][d2]) strict[b][d2] = false;
    for (size_t i = 0; i < n; ++i)
      if (strict[b][i] && (idoms[b] == no_place || blocks[i]->id < blocks[idoms[b]]->id))
        idoms[b] = i;
  }
  return idoms;
}

IDOMS idom_map(const std::vector<BBLOCK*>& blocks, const std::vector<size_t>& places) {
  IDOMS idoms;
  for (size_t b = 0; b < blocks.size(); ++b)
    if (places[b] != no_place) idoms[blocks[b]] = blocks[places[b]];
  return idoms;
}

}  // namespace

GRAPH::GRAPH(TCMD* tcmd) : tcmd(tcmd) {
  const std::vector<BBLOCK*>& blocks = tcmd->blocks;
  if (blocks.empty()) return;
  IDOMS idoms = idom_map(blocks, idom_places(blocks, dominator_rows(blocks)));
  insert_phi_nodes(compute_dom_frontiers(blocks, idoms));
  STACKS stacks;
  rename(blocks.front(), stacks, idoms);
  for (auto& [block, list] : nodes)
    for (NODE& node : list) instr_map.emplace(node.instr, &node);
}

BLOCK_SETS GRAPH::compute_doms(const std::vector<BBLOCK*>& blocks) {
  const ROWS rows = dominator_rows(blocks);
  BLOCK_SETS doms;
  for (size_t b = 0; b < blocks.size(); ++b)
    for (size_t i = 0; i < blocks.size(); ++i)
      if (rows[b][i]) doms[blocks[b]].insert(blocks[i]);
  return doms;
}

IDOMS GRAPH::compute_idoms(const std::vector<BBLOCK*>& blocks, const BLOCK_SETS& doms) {
  ROWS rows(blocks.size(), ROW(blocks.size(), false));
  for (size_t b = 0; b < blocks.size(); ++b) {
    auto of_block = doms.find(blocks[b]);
    if (of_block == doms.end()) continue;
    for (size_t i = 0; i < blocks.size(); ++i) rows[b][i] = of_block->second.count(blocks[i]) != 0;
  }
  return idom_map(blocks, idom_places(blocks, std::move(rows)));
}

BLOCK_SETS GRAPH::compute_dom_frontiers(const std::vector<BBLOCK*>& blocks, const IDOMS& idoms) {
  BLOCK_SETS frontiers;
  auto idom_of = [&idoms](BBLOCK* block) -> BBLOCK* {
    auto it = idoms.find(block);
    return it == idoms.end() ? nullptr : it->second;
  };
  for (BBLOCK* block : blocks) frontiers[block];
  for (BBLOCK* block : blocks) {
    if (block->pred.size() < 2) continue;
    BBLOCK* idom = idom_of(block);
    // The walk ends at the entry too, which a block that the entry doesn't
    // reach would otherwise pass.
    for (BBLOCK* runner : block->pred)
      for (; runner && runner != idom; runner = idom_of(runner)) frontiers[runner].insert(block);
  }
  return frontiers;
}

std::map<VREG*, std::vector<BBLOCK*>, VREG_ORDER> GRAPH::defing_blocks() const {
  std::map<VREG*, std::vector<BBLOCK*>, VREG_ORDER> defs;
  for (BBLOCK* block : tcmd->blocks)
    for (const TINSTR* instr : block->instrs) {
      std::vector<VREG*> dsts = instr->dst_regs();
      for (size_t i = 0; i < dsts.size(); ++i)
        if (dsts[i] && std::find(dsts.begin(), dsts.begin() + i, dsts[i]) == dsts.begin() + i)
          defs[dsts[i]].push_back(block);
    }
  return defs;
}

// A register that is only read has no defining block and so no phi; the
// registers are visited in creation order, which numbers the phis.
void GRAPH::insert_phi_nodes(const BLOCK_SETS& frontiers) {
  for (auto& [reg, worklist] : defing_blocks()) {
    for (size_t i = 0; i < worklist.size(); ++i) {
      auto it = frontiers.find(worklist[i]);
      if (it == frontiers.end()) continue;
      for (BBLOCK* f : it->second) {
        // A phi placed again replaces the earlier one.
        phis[f][reg] = std::make_unique<PHI>(reg);
        if (std::find(worklist.begin(), worklist.end(), f) == worklist.end())
          worklist.push_back(f);
      }
    }
  }
}

void GRAPH::rename(BBLOCK* block, STACKS& stacks, const IDOMS& idoms) {
  auto phis_of = phis.find(block);
  if (phis_of != phis.end())
    for (auto& [reg, phi] : phis_of->second) {
      phi->instr = nullptr;
      phi->dst_index = -1;
      stacks[reg].push(phi.get());
    }
  for (TINSTR* instr : block->instrs) {
    std::vector<VREG*> dsts = instr->dst_regs();
    if (dsts.empty()) rewrite_tinstr(instr, -1, stacks);
    for (size_t i = 0; i < dsts.size(); ++i)
      if (dsts[i]) rewrite_tinstr(instr, static_cast<int32_t>(i), stacks);
  }
  for (BBLOCK* succ : block->succ) {
    auto succ_phis = phis.find(succ);
    if (succ_phis == phis.end()) continue;
    for (auto& [reg, phi] : succ_phis->second) {
      auto stack = stacks.find(reg);
      if (stack != stacks.end() && !stack->second.empty()) phi->params.insert(stack->second.top());
    }
  }
  for (const auto& [child, idom] : idoms)
    if (idom == block) rename(child, stacks, idoms);
  if (phis_of != phis.end())
    for (auto& [reg, phi] : phis_of->second) stacks[reg].pop();
  for (TINSTR* instr : block->instrs)
    for (VREG* reg : instr->dst_regs())
      if (reg) stacks[reg].pop();
}

void GRAPH::rewrite_tinstr(TINSTR* instr, int32_t dst_index, STACKS& stacks) {
  NODE& node = nodes[instr->block].emplace_back(instr, dst_index);
  for (VREG* reg : instr->src_regs()) {
    if (!reg) {
      node.operands.push_back(nullptr);
      continue;
    }
    std::stack<NODE*>& stack = stacks[reg];
    node.operands.push_back(stack.empty() ? &undefined.try_emplace(reg, nullptr, -1).first->second
                                          : stack.top());
  }
  if (dst_index >= 0) stacks[instr->dst_regs()[static_cast<size_t>(dst_index)]].push(&node);
}

NODE* GRAPH::get_node(const TINSTR* instr, int32_t dst_index) const {
  auto [from, to] = instr_map.equal_range(instr);
  for (auto it = from; it != to; ++it)
    if (it->second->dst_index == dst_index) return it->second;
  return nullptr;
}

void GRAPH::get_all_nodes(std::vector<NODE*>& all) {
  all.clear();
  for (auto& [reg, node] : undefined) all.push_back(&node);
  for (BBLOCK* block : tcmd->blocks) {
    auto phis_of = phis.find(block);
    if (phis_of != phis.end())
      for (const auto& [reg, phi] : phis_of->second) all.push_back(phi.get());
    auto nodes_of = nodes.find(block);
    if (nodes_of != nodes.end())
      for (NODE& node : nodes_of->second) all.push_back(&node);
  }
}

void GRAPH::dump(std::ostream& out) const {
  out << "===== SSA =====\n";
  for (BBLOCK* block : tcmd->blocks) {
    out << "B" << block->id << ":\n";
    auto phis_of = phis.find(block);
    if (phis_of != phis.end())
      for (const auto& [reg, phi] : phis_of->second) {
        out << "\t" << phi->id << ":\tPHI " << reg->name << "( ";
        for (const NODE* param : phi->params) out << param->id << " ";
        out << ")\n";
      }
    auto nodes_of = nodes.find(block);
    if (nodes_of == nodes.end()) continue;
    for (const NODE& node : nodes_of->second) {
      out << "\t" << node.id << ":\t";
      if (node.dst_index >= 0)
        out << "RES" << node.dst_index << " "
            << node.instr->dst_regs()[static_cast<size_t>(node.dst_index)]->name << " = ";
      out << node.instr->instr_string() << "( ";
      for (const NODE* operand : node.operands)
        if (operand) out << operand->id << " ";
      out << ")\n";
    }
  }
}

}  // namespace SSA
