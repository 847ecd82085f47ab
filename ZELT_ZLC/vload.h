// Loads of memory into vector registers in their distributions, the
// initialisation of registers from scalar values, and the base of every
// instruction that moves data between memory and registers.
#ifndef ZLC_ZELT_ZLC_VLOAD_H
#define ZLC_ZELT_ZLC_VLOAD_H

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "ZELT_ZLC/round_sat.h"
#include "ZELT_ZLC/vblock.h"

class PREG;
class VPEXPR;
class VREG;

// An instruction with a memory reference, and the rounding and saturation
// that the statement's suffixes give it.
class VMEM_INSTR : public VINSTR {
 public:
  VMEM_INSTR(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VLVALUE* lv)
      : VINSTR(srcinfo, vcmd), round_sat(srcinfo, this), lv(lv) {}

  VLVALUE* lvalue() const override { return lv; }

  ROUND_SAT round_sat;
  VLVALUE* lv;
};

class VLOAD : public VMEM_INSTR {
 public:
  // The distribution, chosen by the keyword after the reference.
  enum VDIST : int32_t {
    NPT = 0,
    ONEPT = 1,
    CIRC2 = 2,
    DS2 = 3,
    US2 = 4,
    DEINTERLEAVE = 5,  // a register pair
    CUSTOM = 6,        // points from a table
    NBITS = 7,         // bit-packed flags of a histogram or table
    EXPAND = 8,        // expanding load under a flags register
    WEIGHT_LOAD = 9,   // histogram weight
    TRANSPOSE = 10,    // the read side of a transpose
  };

  VLOAD(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VREG* vreg, VLVALUE* lv)
      : VMEM_INSTR(srcinfo, vcmd, lv), vreg(vreg) {}

  void analyze(int32_t& count) override { count += 1; }
  bool check_if_valid() override;
  std::string to_string() const override { return "VLOAD"; }
  uint32_t class_mask() const override { return IC_VLOAD; }
  VREG* load_dst() const override { return vreg; }
  bool is_deinterleave() const override { return dist == DEINTERLEAVE; }

  // The rules of the distribution in the kind of loop the load stands in.
  bool check_dist_constraints();
  // Gives a custom distribution its table of points from `cust_args`.
  void setup_custom_dist();

  VREG* vreg;
  VDIST dist = NPT;
  VREG* flags_vreg = nullptr;  // of an expanding load
  PREG* cust_preg = nullptr;
  std::vector<const VPEXPR*> cust_args;
  bool lut_load = false;
  std::set<int> lut_indices;

 private:
  // A load whose generator steps at a level outside the load's own.
  bool check_agen_depth();
};

// The register of the statement made from a constant, a scalar expression
// or a loop variable.
class VINIT : public VINSTR {
 public:
  VINIT(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VREG* vreg, PREG* preg, const VPEXPR* value,
        VDATA_TYPE type)
      : VINSTR(srcinfo, vcmd), vreg(vreg), preg(preg), value(value), type(type) {}

  void analyze(int32_t& count) override { count += 1; }
  bool check_if_valid() override;
  std::string to_string() const override { return "VINIT"; }
  uint32_t class_mask() const override { return IC_VINIT; }

  VREG* vreg;
  PREG* preg;
  const VPEXPR* value;
  VDATA_TYPE type;
};

// A load of the statement's register from its memory reference, or null
// when the statement lacks either; the register becomes a load target.
VLOAD* make_vload(VCMD& vcmd, const DIAG_SRCINFO& srcinfo);

#endif
