// The base of every named thing of a kernel.
#include "ZELT_ZLC/symtab.h"

#include <utility>

SYMREG::SYMREG(const DIAG_SRCINFO& srcinfo, std::string name, int32_t number)
    : srcinfo(srcinfo.file(), srcinfo.line(), srcinfo.column(), srcinfo.approx()),
      name(std::move(name)),
      number(number) {}

std::string SYMREG::format() const {
  return format_prefix() + "(" + std::to_string(number) + ")";
}

std::string SYMREG::format_prefix() const { return ""; }
