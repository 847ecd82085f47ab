// Zone allocator: many small blocks of one lifetime taken from large zeroed
// pools and released together.
#ifndef ZLC_SUPPORT_MZONE_H
#define ZLC_SUPPORT_MZONE_H

#include <cstdint>
#include <vector>

class MZONE {
 public:
  MZONE(unsigned min_alloc, const char* name, int line);
  ~MZONE();
  MZONE(const MZONE&) = delete;
  MZONE& operator=(const MZONE&) = delete;

  // A zeroed block of `size` bytes, 8-aligned; never null (exhaustion ends
  // the run).  Blocks are not freed one by one.
  void* alloc(unsigned size);

  // Calls the release functions of the registered objects, frees every pool
  // but the oldest and makes that one empty again.
  void reset();

  // Registers `release(object)` to be called by reset().
  void add_release(void (*release)(void*), void* object);

  void set_min_alloc(unsigned size) { min_alloc = size; }
  uint32_t id() const { return id_; }
  uint32_t current_size() const { return cur_size; }
  uint32_t maximum_size() const { return max_size; }

  // Debugging output on standard output.
  void dump(bool pools) const;
  static void zdump_zones(bool pools);
  static void zdump_zones_id(bool pools);
  static void zreport();

  static uint64_t cur_alloced;  // pool bytes of all zones
  static uint64_t max_alloced;

 private:
  struct POOL {
    char* memory;
    uint32_t size;
    POOL* next;
  };
  struct RELEASE {
    void (*release)(void*);
    void* object;
  };

  void free_pools(POOL* stop);

  uint32_t min_alloc;
  uint32_t avail = 0;  // bytes left in the newest pool
  POOL* pools = nullptr;
  uint32_t cur_size = 0;
  uint32_t max_size = 0;
  uint32_t id_;
  const char* name;
  int line;
  std::vector<RELEASE> releases;
};

#endif
