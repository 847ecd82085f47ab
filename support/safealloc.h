// Allocation that ends the run with "ERROR: out of memory" when it fails.
#ifndef ZLC_SUPPORT_SAFEALLOC_H
#define ZLC_SUPPORT_SAFEALLOC_H

#include <cstddef>

void* safemalloc(size_t size);
void* saferealloc(void* block, size_t size);  // a null block is a plain allocation
void* safecalloc(size_t count, size_t size);

#endif
