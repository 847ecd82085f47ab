// The union of the follow sets on the parser's follow stack, which the
// runtime's error recovery asks for at every mismatch and every resync.
// The runtime walks the whole stack each time, so errors inside deep
// nesting cost the square of the depth; here the union of each stack prefix
// is kept and only the part of the stack that changed since the last call
// is walked again.
#ifndef ZLC_ZELT_ZLC_FOLLOW_UNION_H
#define ZLC_ZELT_ZLC_FOLLOW_UNION_H

#include <antlr3.h>

#include <vector>

class FOLLOW_UNION {
 public:
  // A new set, owned by the caller, holding every token of every set on
  // `following` (a stack of ANTLR3_BITSET_LIST pointers; null entries add
  // nothing).
  pANTLR3_BITSET combine(pANTLR3_STACK following);

 private:
  using WORDS = std::vector<ANTLR3_BITWORD>;
  std::vector<const void*> levels;  // the stack as last seen, bottom first
  std::vector<WORDS> unions;        // of levels[0..i], for each i
};

#endif
