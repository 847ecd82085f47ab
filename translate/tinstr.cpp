// Defaults of the translated instruction base and the declaration of the
// registers that instructions touch.
#include "translate/tinstr.h"

#include "ZELT_ZLC/vreg.h"
#include "translate/loop.h"

bool TINSTR::can_use_stream(STREAM_TEMPLATE&) const { return false; }

void TINSTR::use_stream(STREAM_TEMPLATE*) {}

void TINSTR::declare_vreg(VREG* reg) {
  if (!reg) return;
  block->loop()->add_tdecl("__vector", reg->name, nullptr);
  if (reg->type.is_untyped()) reg->type = VDATA_TYPE::int32;
}

void TINSTR::declare_sreg(SREG* reg) {
  if (!reg) return;
  block->loop()->add_tdecl("int32_t", reg->name, nullptr);
  reg->type = VDATA_TYPE::int32;
}
