// The objects of one kernel's model and translation.  They are made with
// kernel_new while the kernel is read and translated, and destroyed together
// when the next kernel starts, so that memory does not grow with the number
// of kernels.  The last kernel's objects stay, as does everything made while
// no kernel is being read.
#ifndef ZLC_ZELT_ZLC_KERNEL_OBJECTS_H
#define ZLC_ZELT_ZLC_KERNEL_OBJECTS_H

#include <utility>
#include <vector>

class KERNEL_OBJECTS {
 public:
  // Destroys the objects of the previous kernel, newest first, and collects
  // those made from now on.
  static void begin();
  // Stops collecting; what was collected stays until the next begin().
  static void close();

  template <class T>
  static T* adopt(T* object) {
    if (collecting()) owned().push_back({object, [](void* p) { delete static_cast<T*>(p); }});
    return object;
  }

 private:
  struct OWNED {
    void* object;
    void (*destroy)(void*);
  };
  static bool& collecting();
  static std::vector<OWNED>& owned();
};

// A new object of the kernel being read and translated.
template <class T, class... ARGS>
T* kernel_new(ARGS&&... args) {
  return KERNEL_OBJECTS::adopt(new T(std::forward<ARGS>(args)...));
}

#endif
