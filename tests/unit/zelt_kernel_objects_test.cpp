// The objects of a kernel: collected while it is read, destroyed when the
// next kernel starts.
#include <gtest/gtest.h>

#include "ZELT_ZLC/kernel_objects.h"

namespace {

struct COUNTED {
  explicit COUNTED(int& alive) : alive(alive) { ++alive; }
  ~COUNTED() { --alive; }
  int& alive;
};

TEST(ZeltKernelObjects, DestroyedWhenTheNextKernelStarts) {
  int alive = 0;
  KERNEL_OBJECTS::begin();
  kernel_new<COUNTED>(alive);
  kernel_new<COUNTED>(alive);
  EXPECT_EQ(alive, 2);
  KERNEL_OBJECTS::begin();
  EXPECT_EQ(alive, 0);
  kernel_new<COUNTED>(alive);
  KERNEL_OBJECTS::close();
  COUNTED* kept = kernel_new<COUNTED>(alive);  // made while no kernel is read
  KERNEL_OBJECTS::begin();
  KERNEL_OBJECTS::close();
  EXPECT_EQ(alive, 1);
  delete kept;
}

}  // namespace
