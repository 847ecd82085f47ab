// The instructions of the special loops: the histogram update, which adds a
// weight to the bins that a data register selects, and the table lookup,
// which reads table entries at the points of an index register.
#ifndef ZLC_ZELT_ZLC_VHUP_VTLD_H
#define ZLC_ZELT_ZLC_VHUP_VTLD_H

#include <cstdint>
#include <string>

#include "ZELT_ZLC/vload.h"

class VCMD_HIST;
class VCMD_TBL;

// dst = hist[agen].hist_update(data, weight): `lv` is the histogram.
class VHUP : public VMEM_INSTR {
 public:
  // The registers that the hardware reads the operands from.
  static constexpr int32_t dst_mr = 0;
  static constexpr int32_t data_mr = 2;
  static constexpr int32_t weight_mr = 4;

  VHUP(const DIAG_SRCINFO& srcinfo, VCMD_HIST* vcmd_hist, VREG* data, VREG* weight, VREG* dst,
       VLVALUE* lv);

  void analyze(int32_t& count) override;
  bool check_if_valid() override;
  std::string to_string() const override { return "VHUP"; }
  uint32_t class_mask() const override { return IC_VHUP; }

  // The weight's memory type must fit the histogram's, in width and sign.
  bool check_weight_load_type() const;

  VCMD_HIST* vcmd_hist;
  VREG* data;    // the bin indices
  VREG* weight;
  VREG* dst;
  VLOAD* data_load;      // the definition of `data` when it is a load
  VINSTR* weight_instr;  // the definition of `weight`, of any kind
};

// dst = table[agen].lookup(index): `lv` is the table.
class VTLD : public VMEM_INSTR {
 public:
  static constexpr int32_t dst_mr = 0;
  static constexpr int32_t index_mr = 2;

  VTLD(const DIAG_SRCINFO& srcinfo, VCMD_TBL* vcmd_tbl, VREG* index, VREG* dst, VLVALUE* lv);

  void analyze(int32_t& count) override;
  bool check_if_valid() override;
  std::string to_string() const override { return "VTLD"; }
  uint32_t class_mask() const override { return IC_VTLD; }

  VCMD_TBL* vcmd_tbl;
  VREG* index;
  VREG* dst;
  VLOAD* index_load;  // the definition of `index` when it is a load
};

#endif
