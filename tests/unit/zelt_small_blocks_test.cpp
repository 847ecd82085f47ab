// Small-block memory: alignment, reuse of released blocks by size class,
// and large blocks beside the classes.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "ZELT_ZLC/small_blocks.h"

namespace {

TEST(ZeltSmallBlocks, BlocksAreAlignedAndReusedWithinTheirClass) {
  SMALL_BLOCKS blocks;
  std::vector<void*> made;
  for (size_t size : {0, 1, 15, 16, 17, 100, 1024, 1025, 5000}) {
    void* block = blocks.allocate(size);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % SMALL_BLOCKS::alignment, 0u) << size;
    std::memset(block, 0xA5, size);
    made.push_back(block);
  }
  // 17 and 32 bytes share a class: the block released last comes back first.
  void* seventeen = made[4];
  blocks.release(seventeen);
  EXPECT_EQ(blocks.allocate(32), seventeen);
  EXPECT_NE(blocks.allocate(17), seventeen);
  // 100 bytes come back for 112, not for 128.
  blocks.release(made[5]);
  EXPECT_NE(blocks.allocate(128), made[5]);
  EXPECT_EQ(blocks.allocate(112), made[5]);
  for (void* block : made) blocks.release(block);
  blocks.release(nullptr);
}

TEST(ZeltSmallBlocks, ManyBlocksSpanSeveralRegions) {
  SMALL_BLOCKS blocks;
  std::vector<char*> made;
  for (int i = 0; i < 20000; ++i) {
    auto* block = static_cast<char*>(blocks.allocate(200));
    ASSERT_NE(block, nullptr);
    block[0] = static_cast<char>(i);
    block[199] = static_cast<char>(i);
    made.push_back(block);
  }
  for (int i = 0; i < 20000; ++i) {
    EXPECT_EQ(made[static_cast<size_t>(i)][0], static_cast<char>(i));
    EXPECT_EQ(made[static_cast<size_t>(i)][199], static_cast<char>(i));
  }
  for (char* block : made) blocks.release(block);
}

}  // namespace
