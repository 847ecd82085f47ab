// Kernels translated from source text, with options of the run set for the
// duration, and the loads and stores of their model looked up afterwards.
#ifndef ZLC_TESTS_UNIT_TRANSLATE_SOURCE_SUPPORT_H
#define ZLC_TESTS_UNIT_TRANSLATE_SOURCE_SUPPORT_H

#include <initializer_list>
#include <string>
#include <vector>

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vstore.h"
#include "options/optobj.h"
#include "tests/unit/zelt_parse_support.h"

// Parses and translates `source` with the options `set` given; returns what
// was printed on the error stream.
inline std::string translate_source(const std::string& source,
                                    std::initializer_list<option_obj::option_id> set = {}) {
  option_obj opts(true);
  for (option_obj::option_id id : set) opts.setopt(id);
  option_obj* saved = global_opts;
  global_opts = &opts;
  const PARSE_RESULT result = parse_text(source);
  global_opts = saved;
  return result.err;
}

// The instructions of vector loop `n` of the last kernel that `is` accepts,
// block by block.
template <class T>
std::vector<T*> instrs_of(size_t n, VINSTR_PREDICATE is) {
  std::vector<T*> found;
  for (const VBLOCK* block : curr_vkernel->vcmds.at(n)->blocks)
    for (VINSTR* instr : block->instrs)
      if ((instr->*is)()) found.push_back(static_cast<T*>(instr));
  return found;
}
inline std::vector<VLOAD*> loads_of(size_t n) { return instrs_of<VLOAD>(n, &VINSTR::is_vload); }
inline std::vector<VSTORE*> stores_of(size_t n) {
  return instrs_of<VSTORE>(n, &VINSTR::is_vstore);
}

#endif
