#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "ZELT_ZLC/follow_union.h"

namespace {

std::vector<int> members(pANTLR3_BITSET set) {
  std::vector<int> result;
  for (int bit = 0; bit < 192; ++bit)
    if (set->isMember(set, static_cast<ANTLR3_UINT32>(bit))) result.push_back(bit);
  set->free(set);
  return result;
}

// Random pushes and pops of sets of one to three words, some of them null;
// after every few changes the kept union equals the runtime's own walk of
// the stack.
TEST(FollowUnion, EqualsTheRuntimesUnionAfterEveryChange) {
  std::mt19937 random(7);
  std::vector<std::vector<ANTLR3_BITWORD>> words(12);
  std::vector<ANTLR3_BITSET_LIST> sets(12);
  for (size_t i = 0; i < sets.size(); ++i) {
    words[i].resize(1 + i % 3);
    for (ANTLR3_BITWORD& word : words[i]) word = ANTLR3_BITWORD{1} << (random() % 64);
    sets[i] = {words[i].data(), static_cast<ANTLR3_UINT32>(words[i].size())};
  }
  pANTLR3_BASE_RECOGNIZER recognizer = antlr3BaseRecognizerNew(ANTLR3_TYPE_PARSER, 64, nullptr);
  pANTLR3_STACK following = antlr3StackNew(64);
  recognizer->state->following = following;
  FOLLOW_UNION kept;
  for (int step = 0; step < 2000; ++step) {
    for (int change = random() % 4; change >= 0; --change) {
      if (following->size(following) > 0 && random() % 5 < 2) {
        following->pop(following);
      } else {
        const size_t pick = random() % (sets.size() + 1);
        following->push(following, pick < sets.size() ? &sets[pick] : nullptr, nullptr);
      }
    }
    ASSERT_EQ(members(kept.combine(following)),
              members(recognizer->combineFollows(recognizer, ANTLR3_FALSE)))
        << "step " << step;
  }
  following->free(following);
  recognizer->state->following = nullptr;
  recognizer->free(recognizer);
}

}  // namespace
