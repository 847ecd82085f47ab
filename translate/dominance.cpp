// Dominators by iteration over rows of bits, immediate dominators, the
// dominator tree and dominance frontiers.
#include "translate/dominance.h"

#include <algorithm>
#include <bit>

#include "translate/loop.h"

DOMINANCE::DOMINANCE(const std::vector<BBLOCK*>& list) : blocks(list) {
  const size_t n = blocks.size();
  idoms.assign(n, none);
  tree.resize(n);
  frontiers.resize(n);
  if (n == 0) return;
  words = (n + 63) / 64;
  auto [low, high] = std::minmax_element(blocks.begin(), blocks.end(),
                                         [](const BBLOCK* a, const BBLOCK* b) { return a->id < b->id; });
  first_id = (*low)->id;
  place_by_id.assign(static_cast<size_t>((*high)->id - first_id) + 1, none);
  for (size_t i = 0; i < n; ++i)
    place_by_id[static_cast<size_t>(blocks[i]->id - first_id)] = static_cast<uint32_t>(i);
  find_dominators();
  find_idoms();
  find_tree();
  find_frontiers();
}

uint32_t DOMINANCE::place(const BBLOCK* block) const {
  if (!block || place_by_id.empty() || block->id < first_id) return none;
  const auto offset = static_cast<size_t>(block->id - first_id);
  if (offset >= place_by_id.size()) return none;
  const uint32_t found = place_by_id[offset];
  return found != none && blocks[found] == block ? found : none;
}

bool DOMINANCE::dominates(uint32_t dominator, uint32_t at) const {
  return (row(doms, at)[dominator / 64] >> (dominator % 64) & 1) != 0;
}

// Every block starts dominated by all; each pass intersects the rows of the
// predecessors until nothing changes.
void DOMINANCE::find_dominators() {
  const size_t n = blocks.size();
  const WORD tail = n % 64 == 0 ? ~WORD{0} : (WORD{1} << (n % 64)) - 1;
  std::vector<WORD> all(words, ~WORD{0});
  all.back() = tail;
  doms.resize(n * words);
  for (uint32_t b = 0; b < n; ++b) std::copy(all.begin(), all.end(), row(doms, b));
  std::fill_n(row(doms, 0), words, 0);
  row(doms, 0)[0] = 1;
  std::vector<WORD> next(words);
  for (bool changed = true; changed;) {
    changed = false;
    for (uint32_t b = 1; b < n; ++b) {
      next = all;
      for (const BBLOCK* pred : blocks[b]->pred) {
        const uint32_t p = place(pred);
        if (p == none) {
          std::fill(next.begin(), next.end(), 0);
          break;
        }
        const WORD* of_pred = row(doms, p);
        for (size_t w = 0; w < words; ++w) next[w] &= of_pred[w];
      }
      next[b / 64] |= WORD{1} << (b % 64);
      WORD* of_block = row(doms, b);
      if (!std::equal(next.begin(), next.end(), of_block)) {
        std::copy(next.begin(), next.end(), of_block);
        changed = true;
      }
    }
  }
}

// A strict dominator that dominates another strict dominator is not the
// immediate one.  The rows are thinned in place order, so a row consulted
// for a later block may already be thinned; of what remains, the block with
// the lowest id is taken.
void DOMINANCE::find_idoms() {
  const size_t n = blocks.size();
  std::vector<WORD> strict = doms;
  for (uint32_t b = 0; b < n; ++b) row(strict, b)[b / 64] &= ~(WORD{1} << (b % 64));
  std::vector<WORD> covered(words);
  for (uint32_t b = 1; b < n; ++b) {
    WORD* of_block = row(strict, b);
    std::fill(covered.begin(), covered.end(), 0);
    for (size_t w = 0; w < words; ++w)
      for (WORD bits = of_block[w]; bits != 0; bits &= bits - 1) {
        const WORD* of_dominator = row(strict, static_cast<uint32_t>(w * 64 + std::countr_zero(bits)));
        for (size_t v = 0; v < words; ++v) covered[v] |= of_dominator[v];
      }
    for (size_t w = 0; w < words; ++w) {
      of_block[w] &= ~covered[w];
      for (WORD bits = of_block[w]; bits != 0; bits &= bits - 1) {
        const auto d = static_cast<uint32_t>(w * 64 + std::countr_zero(bits));
        if (idoms[b] == none || blocks[d]->id < blocks[idoms[b]]->id) idoms[b] = d;
      }
    }
  }
}

void DOMINANCE::find_tree() {
  std::vector<uint32_t> by_id(blocks.size());
  for (uint32_t b = 0; b < by_id.size(); ++b) by_id[b] = b;
  sort_by_id(by_id);
  for (uint32_t b : by_id)
    if (idoms[b] != none) tree[idoms[b]].push_back(b);
}

// From each predecessor of a join up the dominator tree to the join's
// immediate dominator, or to the root when it has none.
void DOMINANCE::find_frontiers() {
  for (uint32_t b = 0; b < blocks.size(); ++b) {
    if (blocks[b]->pred.size() < 2) continue;
    for (const BBLOCK* pred : blocks[b]->pred)
      for (uint32_t runner = place(pred); runner != none && runner != idoms[b]; runner = idoms[runner])
        frontiers[runner].push_back(b);
  }
  for (std::vector<uint32_t>& frontier : frontiers) {
    sort_by_id(frontier);
    frontier.erase(std::unique(frontier.begin(), frontier.end()), frontier.end());
  }
}

void DOMINANCE::sort_by_id(std::vector<uint32_t>& places) const {
  std::sort(places.begin(), places.end(),
            [this](uint32_t a, uint32_t b) { return blocks[a]->id < blocks[b]->id; });
}
