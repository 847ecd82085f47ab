// Histogram loops and table lookup loops: vector loops that refuse most
// statements and accept the histogram update or the table lookup, with the
// counts, duplication and table size that their announcement gives.
#ifndef ZLC_ZELT_ZLC_VCMD_HIST_TBL_H
#define ZLC_ZELT_ZLC_VCMD_HIST_TBL_H

#include "ZELT_ZLC/vcmd.h"

// Whether the switch debug:looptype asks for one "ZLC_PROFILE: " line per
// special loop and per scatter or offset_np1 store.
bool profile_looptypes();

class VCMD_HIST : public VCMD {
 public:
  VCMD_HIST(VKERNEL& kernel, const VPEXPR* hist_count, const VPEXPR* table_size);

  int32_t vloop_type() const override { return HIST; }
  const VPEXPR* num_objs() const override { return hist_count; }

  void add_hist_update(const DIAG_SRCINFO& srcinfo, VREG* data, VREG* weight) override;

  void new_vstore(const DIAG_SRCINFO& srcinfo) override;
  void new_collate_vstore(const DIAG_SRCINFO& srcinfo, VREG* pred) override;
  void new_vop(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* dst, VREG* src1,
               VREG* src2, VREG* src3) override;
  void new_vop2d(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* src1,
                 VREG* src2) override;
  void new_vmove(const DIAG_SRCINFO& srcinfo, VREG* dst, VREG* src) override;
  void new_vexit(const DIAG_SRCINFO& srcinfo, const std::string& label, VREG* vreg,
                 const VPEXPR* index, const VPEXPR* rhs) override;

  const VPEXPR* hist_count;
  const VPEXPR* dup;         // ZELT_SIMD_WIDTH / 8
  const VPEXPR* table_size;  // null when not given

 private:
  // Reports a statement that histogram loops don't take; the message names
  // the loop kind and carries no position.
  void refuse();
};

class VCMD_TBL : public VCMD {
 public:
  // `table_count` and `points` are null for an expanding loop.
  VCMD_TBL(VKERNEL& kernel, const VPEXPR* table_count, const VPEXPR* points, const VPEXPR* dup,
           const VPEXPR* table_size);

  int32_t vloop_type() const override { return TLU; }
  const VPEXPR* num_objs() const override { return table_count; }
  const VPEXPR* num_pts() const override { return points; }

  void add_table_lookup(const DIAG_SRCINFO& srcinfo, VREG* index) override;
  void add_expand_vload(const DIAG_SRCINFO& srcinfo, VREG* flags) override;
  // The predicate of a table store must be the loaded index register.
  void set_vstore_pred(VREG* pred) override;

  void new_vinit(const DIAG_SRCINFO& srcinfo, const VPEXPR* value) override;
  void new_collate_vstore(const DIAG_SRCINFO& srcinfo, VREG* pred) override;
  void new_vop(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* dst, VREG* src1,
               VREG* src2, VREG* src3) override;
  void new_vop2d(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* src1,
                 VREG* src2) override;
  void new_vmove(const DIAG_SRCINFO& srcinfo, VREG* dst, VREG* src) override;
  void new_vexit(const DIAG_SRCINFO& srcinfo, const std::string& label, VREG* vreg,
                 const VPEXPR* index, const VPEXPR* rhs) override;

  const VPEXPR* table_count;
  const VPEXPR* points;
  const VPEXPR* dup;
  const VPEXPR* table_size;  // null when not given

 private:
  // Reports a statement that table lookup loops don't take, without a
  // position like its histogram counterpart.
  void refuse();
};

#endif
