// Allocation wrappers that never return null.
#include "support/safealloc.h"

#include <cstdio>
#include <cstdlib>

namespace {

void* checked(void* block) {
  if (!block) {
    std::fputs("ERROR: out of memory\n", stderr);
    std::exit(1);
  }
  return block;
}

}  // namespace

void* safemalloc(size_t size) { return checked(std::malloc(size ? size : 1)); }

void* saferealloc(void* block, size_t size) {
  return checked(block ? std::realloc(block, size ? size : 1) : std::malloc(size ? size : 1));
}

void* safecalloc(size_t count, size_t size) {
  return checked(std::calloc(count ? count : 1, size ? size : 1));
}
