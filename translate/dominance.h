// Dominance over the list of blocks of one translated vector loop: the
// dominators of each block, its immediate dominator, the dominator tree and
// the dominance frontiers.  Blocks are numbered by their place in the list;
// sets of blocks are rows of bits over the places.
#ifndef ZLC_TRANSLATE_DOMINANCE_H
#define ZLC_TRANSLATE_DOMINANCE_H

#include <cstddef>
#include <cstdint>
#include <vector>

class BBLOCK;

class DOMINANCE {
 public:
  static constexpr uint32_t none = UINT32_MAX;

  // `blocks` starts with the entry.  A predecessor outside the list counts
  // as dominated by nothing.
  explicit DOMINANCE(const std::vector<BBLOCK*>& blocks);

  size_t size() const { return blocks.size(); }
  BBLOCK* block(uint32_t place) const { return blocks[place]; }
  // The place of `block`, none when it isn't in the list.
  uint32_t place(const BBLOCK* block) const;

  // Whether the block at `dominator` dominates the block at `place`.
  bool dominates(uint32_t dominator, uint32_t place) const;
  // The immediate dominator, none for the entry.
  uint32_t idom(uint32_t place) const { return idoms[place]; }
  // The blocks whose immediate dominator is this one, by block id.
  const std::vector<uint32_t>& children(uint32_t place) const { return tree[place]; }
  // The dominance frontier, by block id.
  const std::vector<uint32_t>& frontier(uint32_t place) const { return frontiers[place]; }

 private:
  using WORD = uint64_t;

  WORD* row(std::vector<WORD>& rows, uint32_t place) { return rows.data() + place * words; }
  const WORD* row(const std::vector<WORD>& rows, uint32_t place) const {
    return rows.data() + place * words;
  }
  void find_dominators();
  void find_idoms();
  void find_tree();
  void find_frontiers();
  // Sorts places by the ids of their blocks.
  void sort_by_id(std::vector<uint32_t>& places) const;

  std::vector<BBLOCK*> blocks;
  size_t words = 0;                    // words of one row
  std::vector<uint32_t> place_by_id;   // from id - first_id
  int32_t first_id = 0;
  std::vector<WORD> doms;              // one row a place
  std::vector<uint32_t> idoms;
  std::vector<std::vector<uint32_t>> tree;
  std::vector<std::vector<uint32_t>> frontiers;
};

#endif
