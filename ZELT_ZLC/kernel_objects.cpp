// The objects of one kernel, in memory that the next kernel reuses.
#include "ZELT_ZLC/kernel_objects.h"

#include <algorithm>

#include "ZELT_ZLC/address_sanitizer.h"

// Under AddressSanitizer the memory of destroyed objects is poisoned until
// it is handed out again, so that a use after destruction is still caught.
#if ZLC_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#define KERNEL_OBJECTS_POISON(address, size) ASAN_POISON_MEMORY_REGION(address, size)
#define KERNEL_OBJECTS_UNPOISON(address, size) ASAN_UNPOISON_MEMORY_REGION(address, size)
#else
#define KERNEL_OBJECTS_POISON(address, size) ((void)(address), (void)(size))
#define KERNEL_OBJECTS_UNPOISON(address, size) ((void)(address), (void)(size))
#endif

KERNEL_OBJECTS& KERNEL_OBJECTS::current() {
  static KERNEL_OBJECTS objects;
  return objects;
}

void KERNEL_OBJECTS::begin() {
  KERNEL_OBJECTS& objects = current();
  for (auto it = objects.owned.rbegin(); it != objects.owned.rend(); ++it) it->destroy(it->object);
  objects.owned.clear();
  for (BLOCK& b : objects.blocks) KERNEL_OBJECTS_POISON(b.memory.get(), b.size);
  objects.block = 0;
  objects.used = 0;
  objects.collecting = true;
}

void KERNEL_OBJECTS::close() { current().collecting = false; }

void* KERNEL_OBJECTS::allocate(size_t size, size_t alignment) {
  for (;; ++block, used = 0) {
    if (block == blocks.size()) {
      const size_t bytes = std::max(block_size, size + alignment);
      blocks.push_back({std::make_unique<std::byte[]>(bytes), bytes});
    }
    BLOCK& b = blocks[block];
    const size_t start = (used + alignment - 1) / alignment * alignment;
    if (start + size <= b.size) {
      used = start + size;
      KERNEL_OBJECTS_UNPOISON(b.memory.get() + start, size);
      return b.memory.get() + start;
    }
  }
}
