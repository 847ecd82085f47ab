// The inline coverage counters, found through the bounds that the linker
// gives their section.  This file is built without coverage of its own: a
// reference to the bounds from instrumented code would clash with the
// compiler's, and the counters would not be registered.
#include "fuzz/coverage_counters.h"

extern "C" __attribute__((weak, visibility("hidden"))) uint8_t __start___sancov_cntrs[];
extern "C" __attribute__((weak, visibility("hidden"))) uint8_t __stop___sancov_cntrs[];

uint8_t* coverage_counters() { return __start___sancov_cntrs; }

size_t coverage_counter_count() {
  return __start___sancov_cntrs ? __stop___sancov_cntrs - __start___sancov_cntrs : 0;
}
