#include "ZELT_ZLC/follow_union.h"

#include <algorithm>

pANTLR3_BITSET FOLLOW_UNION::combine(pANTLR3_STACK following) {
  const size_t depth = following->size(following);
  size_t same = 0;
  while (same < depth && same < levels.size() &&
         levels[same] == following->get(following, static_cast<ANTLR3_INTKEY>(same)))
    ++same;
  levels.resize(same);
  unions.resize(same);
  for (size_t i = same; i < depth; ++i) {
    const void* entry = following->get(following, static_cast<ANTLR3_INTKEY>(i));
    WORDS words = i ? unions[i - 1] : WORDS();
    if (const auto* set = static_cast<const ANTLR3_BITSET_LIST*>(entry)) {
      if (words.size() < set->length) words.resize(set->length);
      for (ANTLR3_UINT32 w = 0; w < set->length; ++w) words[w] |= set->bits[w];
    }
    levels.push_back(entry);
    unions.push_back(std::move(words));
  }

  static ANTLR3_BITWORD no_word = 0;
  WORDS* top = depth ? &unions[depth - 1] : nullptr;
  ANTLR3_BITSET_LIST list{top && !top->empty() ? top->data() : &no_word,
                          top && !top->empty() ? static_cast<ANTLR3_UINT32>(top->size()) : 1};
  return antlr3BitsetLoad(&list);
}
