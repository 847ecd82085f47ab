// Size classes, free lists and regions of the small-block memory.
#include "ZELT_ZLC/small_blocks.h"

#include <cstdlib>
#include <cstring>

void* SMALL_BLOCKS::allocate(size_t size) {
  if (size > largest) {
    auto* block = static_cast<char*>(std::malloc(header + size));
    if (!block) return nullptr;
    std::memcpy(block, &large, sizeof large);
    return block + header;
  }
  const uint32_t number = static_cast<uint32_t>(size == 0 ? 0 : (size - 1) / alignment);
  if (FREE* block = free_lists[number]) {
    free_lists[number] = block->next;
    return block;
  }
  const size_t bytes = header + (size_t{number} + 1) * alignment;
  if (static_cast<size_t>(region_end - region_next) < bytes) {
    region_next = static_cast<char*>(std::malloc(region_size));
    if (!region_next) {
      region_end = nullptr;
      return nullptr;
    }
    region_end = region_next + region_size;
  }
  char* block = region_next;
  region_next += bytes;
  std::memcpy(block, &number, sizeof number);
  return block + header;
}

void SMALL_BLOCKS::release(void* block) {
  if (!block) return;
  char* start = static_cast<char*>(block) - header;
  uint32_t number;
  std::memcpy(&number, start, sizeof number);
  if (number == large) {
    std::free(start);
    return;
  }
  auto* released = static_cast<FREE*>(block);
  released->next = free_lists[number];
  free_lists[number] = released;
}
