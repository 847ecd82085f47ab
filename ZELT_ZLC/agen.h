// Address generators: one stride per loop depth from the declaration's
// formula, and the table of one loop level.
#ifndef ZLC_ZELT_ZLC_AGEN_H
#define ZLC_ZELT_ZLC_AGEN_H

#include <array>
#include <cstdint>
#include <string>

#include "ZELT_ZLC/symtab.h"

class VPEXPR;

class AGEN : public SYMREG {
 public:
  static constexpr int max_depth = 5;

  AGEN(const DIAG_SRCINFO& srcinfo, const std::string& name) : SYMREG(srcinfo, name) {}

  std::string format_prefix() const override { return "_AGEN"; }

  bool has_init = false;  // the declaration or an assignment gave a formula
  int32_t deepest_depth = 0;
  std::array<const VPEXPR*, max_depth> strides{};  // by loop depth; null where none
  uint32_t flags = 0;
  int32_t condition = 0;  // 0 none, 1 an increment is 0, 2 one could be 0
};

class AGEN_TABLE : public SYM_TABLE<AGEN> {
 public:
  static constexpr unsigned max_agens = 8;

  // Enters a generator; past `max_agens` in one table it is reported, and
  // returned all the same.
  AGEN* new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name);
};

#endif
