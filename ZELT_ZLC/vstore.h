// Stores of vector registers, or register pairs, to memory: distributions,
// predicates, scatters, and the rules a store must pass.
#ifndef ZLC_ZELT_ZLC_VSTORE_H
#define ZLC_ZELT_ZLC_VSTORE_H

#include <cstdint>
#include <string>

#include "ZELT_ZLC/vload.h"

class VSTORE : public VMEM_INSTR {
 public:
  // The distribution, chosen by the keyword after the reference or set by
  // the rules and transformations.
  enum VDIST : int32_t {
    NPT = 0,
    ONEPT = 1,
    DS2 = 2,
    INTERLEAVE = 3,  // a register pair
    OFFSET_NP1 = 4,
    COLLATE = 5,
    S_SCATTER = 6,
    P_SCATTER = 7,
    SKIP = 8,
    TABLE_NPT = 9,        // a plain store in a table loop with a table count
    TRANSPOSE = 10,       // the write side of a transpose
    LUT_SCATTER = 11,     // scatter into a lookup table
    LUT_OFFSET_NP1 = 12,  // offset_np1 into a lookup table
  };

  VSTORE(const DIAG_SRCINFO& srcinfo, VCMD* vcmd, VLVALUE* lv) : VMEM_INSTR(srcinfo, vcmd, lv) {}

  void analyze(int32_t& count) override;
  bool check_if_valid() override;
  std::string to_string() const override { return "VSTORE"; }
  uint32_t class_mask() const override { return IC_VSTORE; }

  VREG* vreg = nullptr;  // the source, known only at the end of the statement
  VDIST dist = NPT;
  VREG* pred = nullptr;  // null for an unconditional store
  VREG* scatter_vreg = nullptr;
  int32_t lut_index = -1;

 private:
  // The extra rules of a store in a table lookup loop.
  bool check_table_store();
};

#endif
