// Every C++ allocation of the program goes through small-block memory of
// the thread that makes it.  Under AddressSanitizer the allocator of the
// sanitizer stays, so that its checks see every object.
#include "ZELT_ZLC/address_sanitizer.h"

#if !ZLC_ADDRESS_SANITIZER

#include <new>

#include "ZELT_ZLC/small_blocks.h"

namespace {

thread_local SMALL_BLOCKS blocks;

}  // namespace

void* operator new(size_t size) {
  if (void* block = blocks.allocate(size)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept { blocks.release(block); }

void operator delete(void* block, size_t) noexcept { blocks.release(block); }

#endif
