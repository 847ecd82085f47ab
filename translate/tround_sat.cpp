// Rounding and saturation instructions: the choice of the saturation form
// from its bounds, and their printing.
#include "translate/tround_sat.h"

#include <bit>

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vpexpr.h"
#include "ZELT_ZLC/vreg.h"
#include "translate/loop.h"
#include "translate/texpr.h"

bool TINSTR::is_tround() const { return dynamic_cast<const TROUND*>(this) != nullptr; }

bool TINSTR::is_tsat() const { return dynamic_cast<const TSAT*>(this) != nullptr; }

int32_t TROUND::translate(ROUND_SAT::ROUND_MODE mode) {
  switch (mode) {
    case ROUND_SAT::RM_TRUNC:
      return TRUNCATE;
    case ROUND_SAT::RM_ROUND:
      return ROUND;
    default:
      return NONE;
  }
}

int32_t TROUND::translate(VOP::ROUND_MODE mode) {
  return mode >= VOP::RM_ROUND && mode <= VOP::RM_SHIFT ? static_cast<int32_t>(mode) : NONE;
}

void TROUND::format(TEXT_OUT& out) const {
  INDENT::indent(out);
  if (mode == SHIFT) {
    out << reg->name << " <<= " << bits->ref(true) << ";\n";
    return;
  }
  out << (mode == ROUND ? "round" : "truncate") << "<"
      << (reg->type.is_signed ? "int32_t" : "uint32_t") << ">::apply(" << reg->name << ", "
      << reg->name << ", " << bits->ref(true) << ");\n";
}

TSAT::TSAT(TCMD& cmd, VREG* reg, ROUND_SAT& rs, const VDATA_TYPE& type) : reg(reg), type(type) {
  // A bound that the model left out reads as zero.
  auto bound = [&](size_t index) {
    const VPEXPR* expr = index < rs.sat_bounds.size() ? rs.sat_bounds[index] : nullptr;
    return kernel_new<TEXPR>(cmd, "int32_t", expr ? expr : VPEXPR::zero);
  };
  if (rs.sat_mode == ROUND_SAT::SM_4PARAM) {
    kind = RANGE4;
    lo_test = bound(0);
    lo_set = bound(1);
    hi_test = bound(2);
    hi_set = bound(3);
  } else {
    kind = RANGE;
    lo_test = lo_set = bound(0);
    hi_test = hi_set = bound(1);
  }
  for (const TEXPR* e : {lo_test, lo_set, hi_test, hi_set})
    if (!e->pexpr->is_const()) return;
  const int64_t min = lo_test->pexpr->value64();
  const int64_t max = hi_test->pexpr->value64();
  if (min != lo_set->pexpr->value64() || max != hi_set->pexpr->value64()) return;
  kind = RANGE;
  width = bounds_are_bit_width(min, max);
  if (width == 0) return;
  if (min == 0)
    kind = UNSIGNED_WIDTH;
  else if (reg->type.is_signed)
    kind = SIGNED_WIDTH;
}

int32_t TSAT::bounds_are_bit_width(int64_t min, int64_t max) {
  const int32_t z = max < 2 ? 32 : std::countl_zero(static_cast<uint32_t>(max >> 1));
  if (max == -1) return 0;
  const bool power_of_two = ((max + 1) & max) == 0;
  if (power_of_two && min == 0 && max >= 1) return 33 - z;
  if (power_of_two && min < 0 && max + 1 + min == 0) return 34 - z;
  return 0;
}

void TSAT::format(TEXT_OUT& out) const {
  if (unneeded) return;
  const std::string from =
      type == VDATA_TYPE::uint32 ? type.get_name() : reg->type.get_name();
  INDENT::indent(out);
  switch (kind) {
    case SIGNED_WIDTH:
      out << "saturate_to_width<" << from << "," << VDATA_TYPE{type.bits, true}.get_name() << ","
          << width << ">::apply(" << reg->name << ");\n";
      break;
    case UNSIGNED_WIDTH:
      out << "saturate_to_width<" << from << "," << type.get_name() << "," << width
          << ">::apply(" << reg->name << ");\n";
      break;
    case RANGE:
      out << "saturate_to_range<" << from << ">::apply(" << reg->name << ", "
          << lo_test->ref(true) << ", " << hi_test->ref(true) << ");\n";
      break;
    default:
      out << "saturate_to_range<" << from << ">::apply(" << reg->name << ", "
          << lo_test->ref(true) << ", " << lo_set->ref(true) << ", " << hi_test->ref(true)
          << ", " << hi_set->ref(true) << ");\n";
      break;
  }
}
