// Memory for the many small objects of a translation: blocks in size
// classes of 16 bytes up to 1 KiB, carved from large regions and kept on a
// free list per class once released, so that making and releasing them
// costs a few instructions.  Larger blocks come from malloc.  Each block
// carries its class in a header, so it can be released without its size.
// The regions are never given back: released blocks serve later requests.
#ifndef ZLC_ZELT_ZLC_SMALL_BLOCKS_H
#define ZLC_ZELT_ZLC_SMALL_BLOCKS_H

#include <cstddef>
#include <cstdint>

class SMALL_BLOCKS {
 public:
  static constexpr size_t alignment = 16;
  static constexpr size_t largest = 1024;

  // Null when memory is exhausted.
  void* allocate(size_t size);
  // `block` came from allocate(); null does nothing.
  void release(void* block);

 private:
  struct FREE {
    FREE* next;
  };
  static constexpr size_t classes = largest / alignment;
  static constexpr size_t header = alignment;
  static constexpr size_t region_size = size_t{1} << 20;
  static constexpr uint32_t large = UINT32_MAX;

  FREE* free_lists[classes] = {};
  char* region_next = nullptr;
  char* region_end = nullptr;
};

#endif
