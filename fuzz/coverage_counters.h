// The inline coverage counters of a libFuzzer build.
#ifndef ZLC_FUZZ_COVERAGE_COUNTERS_H
#define ZLC_FUZZ_COVERAGE_COUNTERS_H

#include <cstddef>
#include <cstdint>

// The counters of the whole program and their number; none outside a
// libFuzzer build.
uint8_t* coverage_counters();
size_t coverage_counter_count();

#endif
