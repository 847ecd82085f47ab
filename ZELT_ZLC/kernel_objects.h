// The objects of one kernel's model and translation.  They are made with
// kernel_new while the kernel is read and translated, in memory of their
// own, and destroyed together when the next kernel starts, which then reuses
// that memory: memory does not grow with the number of kernels.  The last
// kernel's objects stay, as does everything made while no kernel is read.
#ifndef ZLC_ZELT_ZLC_KERNEL_OBJECTS_H
#define ZLC_ZELT_ZLC_KERNEL_OBJECTS_H

#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

class KERNEL_OBJECTS {
 public:
  // Destroys the objects of the previous kernel, newest first, and collects
  // those made from now on.
  static void begin();
  // Stops collecting; what was collected stays until the next begin().
  static void close();

  template <class T, class... ARGS>
  static T* make(ARGS&&... args) {
    KERNEL_OBJECTS& objects = current();
    if (!objects.collecting) return new T(std::forward<ARGS>(args)...);
    T* object = new (objects.allocate(sizeof(T), alignof(T))) T(std::forward<ARGS>(args)...);
    objects.owned.push_back({object, [](void* p) { static_cast<T*>(p)->~T(); }});
    return object;
  }

 private:
  struct OWNED {
    void* object;
    void (*destroy)(void*);
  };
  struct BLOCK {
    std::unique_ptr<std::byte[]> memory;
    size_t size;
  };
  static constexpr size_t block_size = 256 * 1024;

  static KERNEL_OBJECTS& current();
  void* allocate(size_t size, size_t alignment);

  bool collecting = false;
  std::vector<OWNED> owned;
  std::vector<BLOCK> blocks;
  size_t block = 0;  // the block being filled
  size_t used = 0;   // bytes used in it
};

// A new object of the kernel being read and translated.
template <class T, class... ARGS>
T* kernel_new(ARGS&&... args) {
  return KERNEL_OBJECTS::make<T>(std::forward<ARGS>(args)...);
}

#endif
