// Zone allocator: bump allocation from zeroed pools, released as a whole.
#include "support/mzone.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "support/safealloc.h"

uint64_t MZONE::cur_alloced = 0;
uint64_t MZONE::max_alloced = 0;

namespace {

uint32_t next_zone_id = 0;

std::vector<MZONE*>& all_zones() {
  static std::vector<MZONE*> zones;  // in order of creation
  return zones;
}

}  // namespace

MZONE::MZONE(unsigned min_alloc, const char* name, int line)
    : min_alloc(min_alloc), id_(++next_zone_id), name(name), line(line) {
  all_zones().push_back(this);
}

MZONE::~MZONE() {
  free_pools(nullptr);
  auto& zones = all_zones();
  zones.erase(std::remove(zones.begin(), zones.end(), this), zones.end());
}

void MZONE::free_pools(POOL* stop) {
  while (pools != stop) {
    POOL* next = pools->next;
    cur_alloced -= pools->size;
    std::free(pools->memory);
    std::free(pools);
    pools = next;
  }
}

void* MZONE::alloc(unsigned size) {
  if (avail < size) {
    const uint32_t pool_size = std::max<uint32_t>(size, min_alloc);
    POOL* pool = static_cast<POOL*>(safemalloc(sizeof(POOL)));
    pool->memory = static_cast<char*>(safecalloc(pool_size, 1));
    pool->size = pool_size;
    pool->next = pools;
    pools = pool;
    avail = pool_size;
    cur_alloced += pool_size;
    max_alloced = std::max(max_alloced, cur_alloced);
  }
  void* block = pools->memory + (pools->size - avail);
  if (avail - size < 8)
    avail = 0;
  else
    avail -= size + 8 - size % 8;  // keeps the next block 8-aligned
  cur_size += size;
  max_size = std::max(max_size, cur_size);
  return block;
}

void MZONE::add_release(void (*release)(void*), void* object) {
  releases.push_back({release, object});
}

void MZONE::reset() {
  for (const RELEASE& r : releases) r.release(r.object);
  releases.clear();
  if (!pools) return;
  POOL* oldest = pools;
  while (oldest->next) oldest = oldest->next;
  free_pools(oldest);
  std::memset(oldest->memory, 0, oldest->size);
  avail = oldest->size;
  cur_size = 0;
}

void MZONE::dump(bool show_pools) const {
  std::printf("zone %u (%s:%d): %u bytes in use, %u at most\n", id_, name, line, cur_size,
              max_size);
  if (!show_pools) return;
  for (const POOL* p = pools; p; p = p->next) std::printf("   pool of %u bytes\n", p->size);
}

void MZONE::zdump_zones(bool show_pools) {
  for (const MZONE* z : all_zones()) z->dump(show_pools);
}

void MZONE::zdump_zones_id(bool show_pools) {
  std::vector<MZONE*> zones = all_zones();
  std::sort(zones.begin(), zones.end(), [](MZONE* a, MZONE* b) { return a->id_ < b->id_; });
  for (const MZONE* z : zones) z->dump(show_pools);
}

void MZONE::zreport() {
  std::printf("\nMemory zone usage\n-----------------\n");
  std::printf("Maximum allocated  :  %s bytes\n", std::to_string(max_alloced).c_str());
  std::printf("Currently allocated:  %s bytes\n\n", std::to_string(cur_alloced).c_str());
}
