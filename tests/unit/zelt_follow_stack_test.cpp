#include <gtest/gtest.h>

#include <random>

#include "ZELT_ZLC/follow_stack.h"

namespace {

int freed = 0;
void count_free(void*) { ++freed; }

// Random pushes and pops on a fast stack and on the runtime's own, past the
// vector's first size and with some elements that carry a function to free
// them: after each change both show the same elements and top, and free
// the same elements.
TEST(FollowStack, BehavesAsTheRuntimesStack) {
  std::mt19937 random(11);
  int values[64];
  pANTLR3_STACK fast = antlr3StackNew(0);
  pANTLR3_STACK runtime = antlr3StackNew(0);
  use_fast_follow_stack(fast);
  int freed_fast = 0;
  for (int step = 0; step < 5000; ++step) {
    const bool grow = step % 1000 < 600;
    if (fast->size(fast) > 0 && random() % 10 < (grow ? 4u : 6u)) {
      freed = 0;
      EXPECT_EQ(fast->pop(fast), runtime->pop(runtime));
      freed_fast += freed;
    } else {
      void* element = random() % 7 ? &values[random() % 64] : nullptr;
      void (*free_it)(void*) = random() % 9 ? nullptr : count_free;
      fast->push(fast, element, free_it);
      runtime->push(runtime, element, free_it);
    }
    ASSERT_EQ(fast->size(fast), runtime->size(runtime)) << "step " << step;
    EXPECT_EQ(fast->peek(fast), runtime->peek(runtime));
    for (ANTLR3_UINT32 i = 0; i < fast->size(fast); ++i)
      ASSERT_EQ(fast->get(fast, i), runtime->get(runtime, i)) << "step " << step << " at " << i;
  }
  EXPECT_GT(freed_fast, 0);
  fast->free(fast);
  runtime->free(runtime);
}

}  // namespace
