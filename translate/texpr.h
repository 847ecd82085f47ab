// The operand of a translated instruction: a constant printed in place, a
// parameter read from its local copy, or a value computed by the init
// function and kept in the parameter block.
#ifndef ZLC_TRANSLATE_TEXPR_H
#define ZLC_TRANSLATE_TEXPR_H

#include <cstdint>
#include <string>

#include "ZELT_ZLC/parm.h"

class TCMD;
class TVAL;
class VPEXPR;

class TEXPR {
 public:
  // A constant stays itself; a bare parameter is entered in the kernel's
  // used parameters; any other expression becomes a value of `type`.
  TEXPR(TCMD& cmd, std::string type, const VPEXPR* expr);
  // Only the expression, printed as it stands.
  TEXPR(TCMD& cmd, const VPEXPR* expr);
  TEXPR(TCMD& cmd, TVAL* tval);

  // The operand's text; with `cast`, a parameter whose declared type
  // differs from `type` is cast to it.
  std::string ref(bool cast) const;
  // The parameters behind the operand.
  PARM_SET parm_refs() const;
  TCMD& cmd;
  std::string type;
  TVAL* tval = nullptr;
  const VPEXPR* pexpr = nullptr;
  PARM* parm = nullptr;
};

// The text of an expression, a constant as its decimal number: signed
// when its evaluation type says so, otherwise unsigned.
std::string pexpr_text(const VPEXPR* expr);

// The expression is a constant of exactly `value`.
bool pexpr_is(const VPEXPR* expr, int64_t value);

#endif
