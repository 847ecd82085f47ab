// The objects of one kernel, destroyed together.
#include "ZELT_ZLC/kernel_objects.h"

bool& KERNEL_OBJECTS::collecting() {
  static bool on = false;
  return on;
}

std::vector<KERNEL_OBJECTS::OWNED>& KERNEL_OBJECTS::owned() {
  static std::vector<OWNED> objects;
  return objects;
}

void KERNEL_OBJECTS::begin() {
  std::vector<OWNED>& objects = owned();
  for (auto it = objects.rbegin(); it != objects.rend(); ++it) it->destroy(it->object);
  objects.clear();
  collecting() = true;
}

void KERNEL_OBJECTS::close() { collecting() = false; }
