// The single assignment graph of a translated vector loop: dominators by
// iteration, immediate dominators, dominance frontiers, phi placement and
// the renaming walk down the dominator tree.
#include "translate/ssa.h"

#include <algorithm>

#include "translate/tcmd.h"
#include "translate/tinstr.h"

namespace SSA {

uint32_t NODE::id_counter = 0;

NODE::NODE(TINSTR* instr, int32_t dst_index) : instr(instr), id(id_counter++), dst_index(dst_index) {}

GRAPH::GRAPH(TCMD* tcmd) : tcmd(tcmd) {
  const std::vector<BBLOCK*>& blocks = tcmd->blocks;
  if (blocks.empty()) return;
  BLOCK_SETS doms = compute_doms(blocks);
  IDOMS idoms = compute_idoms(blocks, doms);
  insert_phi_nodes(compute_dom_frontiers(blocks, idoms));
  STACKS stacks;
  rename(blocks.front(), stacks, idoms);
  for (auto& [block, list] : nodes)
    for (NODE& node : list) instr_map.emplace(node.instr, &node);
}

BLOCK_SETS GRAPH::compute_doms(const std::vector<BBLOCK*>& blocks) {
  BLOCK_SETS doms;
  if (blocks.empty()) return doms;
  const BLOCK_SET all(blocks.begin(), blocks.end());
  BBLOCK* entry = blocks.front();
  for (BBLOCK* block : blocks) doms[block] = block == entry ? BLOCK_SET{entry} : all;
  for (bool changed = true; changed;) {
    changed = false;
    for (BBLOCK* block : blocks) {
      if (block == entry) continue;
      BLOCK_SET next = all;
      for (BBLOCK* pred : block->pred) {
        BLOCK_SET meet;
        const BLOCK_SET& of_pred = doms[pred];
        std::set_intersection(next.begin(), next.end(), of_pred.begin(), of_pred.end(),
                              std::inserter(meet, meet.end()), BLOCK_ORDER());
        next = std::move(meet);
      }
      next.insert(block);
      if (next != doms[block]) {
        doms[block] = std::move(next);
        changed = true;
      }
    }
  }
  return doms;
}

IDOMS GRAPH::compute_idoms(const std::vector<BBLOCK*>& blocks, const BLOCK_SETS& doms) {
  BLOCK_SETS strict = doms;
  for (auto& [block, set] : strict) set.erase(block);
  IDOMS idoms;
  if (blocks.empty()) return idoms;
  for (BBLOCK* block : blocks) {
    if (block == blocks.front()) continue;
    BLOCK_SET& set = strict[block];
    const BLOCK_SET snapshot = set;
    // A dominator that dominates another dominator is not the immediate one.
    for (BBLOCK* d1 : snapshot)
      for (BBLOCK* d2 : snapshot)
        if (d1 != d2 && strict[d1].count(d2)) set.erase(d2);
    if (!set.empty()) idoms[block] = *set.begin();
  }
  return idoms;
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

std::set<VREG*, VREG_ORDER> GRAPH::find_global_registers() const {
  std::set<VREG*, VREG_ORDER> regs;
  for (const BBLOCK* block : tcmd->blocks)
    for (const TINSTR* instr : block->instrs) {
      for (VREG* reg : instr->src_regs())
        if (reg) regs.insert(reg);
      for (VREG* reg : instr->dst_regs())
        if (reg) regs.insert(reg);
    }
  return regs;
}

std::vector<BBLOCK*> GRAPH::defing_blocks(const VREG* reg) const {
  std::vector<BBLOCK*> found;
  for (BBLOCK* block : tcmd->blocks)
    for (const TINSTR* instr : block->instrs) {
      std::vector<VREG*> dsts = instr->dst_regs();
      if (std::find(dsts.begin(), dsts.end(), reg) != dsts.end()) found.push_back(block);
    }
  return found;
}

void GRAPH::insert_phi_nodes(const BLOCK_SETS& frontiers) {
  for (VREG* reg : find_global_registers()) {
    std::vector<BBLOCK*> worklist = defing_blocks(reg);
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
