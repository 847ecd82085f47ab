// The base of everything that stands in a vector loop, and the loop level
// that holds instructions together with its own registers and generators.
#ifndef ZLC_ZELT_ZLC_VBLOCK_H
#define ZLC_ZELT_ZLC_VBLOCK_H

#include <cstdint>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/vreg.h"

class VBLOCK;
class VCMD;
class VKERNEL;
class VPEXPR;

class VINSTR {
 public:
  VINSTR(const DIAG_SRCINFO& at, VCMD* vcmd)
      : srcinfo(at.file(), at.line(), at.column(), at.approx()), vcmd(vcmd) {}
  virtual ~VINSTR() = default;

  bool is_vblock() const;
  bool is_vrpt() const;

  DIAG_SRCINFO_DATA srcinfo;
  VCMD* vcmd;
  VBLOCK* parent = nullptr;  // null until added to a block
  int32_t depth = 0;         // the parent's depth + 1
};

// One loop level.  The root level of a vector loop has depth -2 and no loop
// variable; `for` levels have depths 0 to 3.
class VBLOCK : public VINSTR {
 public:
  VBLOCK(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VKERNEL& kernel, std::string lcv,
         const VPEXPR* tripcount)
      : VINSTR(srcinfo, vcmd), lcv(std::move(lcv)), tripcount(tripcount), kernel(kernel) {}

  // Appends `instr` and makes this block its parent.
  void add(VINSTR* instr);

  // Registers: this level, its ancestors, then the kernel's table.
  VREG* lookup_vreg(const std::string& name) const;
  // Generators: this level and its ancestors.
  AGEN* lookup_agen(const std::string& name) const;

  // Declarations in this level, with the redeclaration rules; null when
  // the name can't be declared here.
  VREG* new_vreg(const DIAG_SRCINFO& srcinfo, const std::string& name);
  AGEN* new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name);

  std::vector<VINSTR*> instrs;  // in source order
  std::string lcv;              // the loop variable
  const VPEXPR* tripcount;
  VREG_TABLE vregs;
  AGEN_TABLE agens;
  VKERNEL& kernel;
};

// A `foreach` level: `count` iterations out of at most `max`.
class VRPT : public VBLOCK {
 public:
  VRPT(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VKERNEL& kernel, std::string lcv,
       const VPEXPR* count, const VPEXPR* max)
      : VBLOCK(srcinfo, vcmd, kernel, std::move(lcv), count), max(max) {}

  const VPEXPR* max;
  int32_t ctrl_index = 0;
};

#endif
