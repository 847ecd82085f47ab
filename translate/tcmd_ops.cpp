// Translation of vector operations and debug prints; a rounded
// multiply-accumulate is split into the product, its rounding and the
// accumulation.
#include "ZELT_ZLC/vblock.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vpexpr.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"
#include "translate/tkernel.h"
#include "translate/tmem.h"
#include "translate/top.h"
#include "translate/tround_sat.h"
#include "translate/tvexit.h"

void TCMD::translate_vop(VINSTR& instr) {
  auto& vop = static_cast<VOP&>(instr);
  TINSTR* tinstr;
  if (vop.name == "__zelt_vmove")
    tinstr = kernel_new<TVMOVE>(vop.dst1, vop.src1);
  else
    tinstr = kernel_new<TVOP>(&vop);
  append_tinstr(tinstr);

  if (vop.round_mode != VOP::RM_NONE) {
    VREG* target = vop.dst1;
    VOP* accumulate = nullptr;
    if (vop.name != "__zelt_vmpy") {
      // The product goes to a temporary, which is rounded and then added to
      // or subtracted from the accumulator.
      VREG* temp = kernel.temp_vreg();
      tinstr->declare_vreg(temp);
      VREG* acc = vop.src3;
      accumulate = kernel_new<VOP>(vop.srcinfo, vop.vcmd,
                           vop.name == "__zelt_vmadd" ? "__zelt_vadd" : "__zelt_vsub");
      accumulate->src1 = acc;
      accumulate->src2 = temp;
      accumulate->dst1 = acc;
      vop.name = "__zelt_vmpy";
      vop.dst1 = temp;
      vop.src3 = nullptr;
      target = temp;
    }
    auto* bits = kernel_new<TEXPR>(*this, "uint32_t", kernel_new<VPEXPR>(vop.round_value, VPEXPR::EVAL_SIGNED));
    append_tinstr(kernel_new<TROUND>(target, TROUND::translate(vop.round_mode), bits));
    if (accumulate) append_tinstr(kernel_new<TVOP>(accumulate));
  }

  for (VREG* reg : {vop.dst1, vop.dst2, vop.src1, vop.src2, vop.src3}) tinstr->declare_vreg(reg);
}

void TCMD::translate_vprint(VINSTR& instr) {
  auto& print = static_cast<VPRINT&>(instr);
  auto* tinstr = kernel_new<TVPRINT>(print.vreg, print.text);
  append_tinstr(tinstr);
  tinstr->declare_vreg(print.vreg);
}
