// Printing of early exits and debug prints.
#include "translate/tvexit.h"

#include "ZELT_ZLC/vreg.h"
#include "translate/loop.h"

bool TINSTR::is_tvexit() const { return dynamic_cast<const TVEXIT*>(this) != nullptr; }

bool TINSTR::is_tvprint() const { return dynamic_cast<const TVPRINT*>(this) != nullptr; }

void TVEXIT::format(TEXT_OUT& out) const {
  INDENT::indent(out) << "if (" << reg->name << ".s0 != 0) goto " << *label << ";\n";
}

void TVPRINT::format(TEXT_OUT& out) const {
  INDENT::indent(out) << "print<int32_t>::apply(" << reg->name;
  if (!text.empty()) out << ", " << text;
  out << ");\n";
}
