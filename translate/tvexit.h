// The early exit of a loop and the debug print of a register.
#ifndef ZLC_TRANSLATE_TVEXIT_H
#define ZLC_TRANSLATE_TVEXIT_H

#include <string>

#include "ZELT_ZLC/text_out.h"
#include "translate/tinstr.h"

// Leaves the loop that carries `label` when lane 0 of `reg` is not zero.
class TVEXIT : public TINSTR {
 public:
  TVEXIT(VREG* reg, const std::string* label) : reg(reg), label(label) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "EXIT"; }

  VREG* reg;
  const std::string* label;
};

class TVPRINT : public TINSTR {
 public:
  TVPRINT(VREG* reg, std::string text) : reg(reg), text(std::move(text)) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "PRINT"; }

  VREG* reg;
  std::string text;
};

#endif
