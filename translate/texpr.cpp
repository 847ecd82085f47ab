// Operands of translated instructions and the text they print.
#include "translate/texpr.h"

#include "ZELT_ZLC/vpexpr.h"
#include "translate/tcmd.h"
#include "translate/tkernel.h"
#include "translate/tval.h"

std::string pexpr_text(const VPEXPR* expr) {
  if (expr->eval_type == VPEXPR::EVAL_SIGNED)
    return std::to_string(static_cast<int32_t>(expr->value));
  if (expr->eval_type == VPEXPR::EVAL_UNSIGNED) return std::to_string(expr->value);
  return expr->text;
}

bool pexpr_is(const VPEXPR* expr, int64_t value) {
  return expr && expr->is_const() && expr->value64() == value;
}

TEXPR::TEXPR(TCMD& cmd, std::string type, const VPEXPR* expr)
    : cmd(cmd), type(std::move(type)), pexpr(expr) {
  if (expr->is_const()) return;
  parm = cmd.kernel.lookup_parm(expr->text);
  if (parm)
    cmd.kernel.used_parms.insert(parm);
  else
    tval = cmd.new_tval(this->type, expr);
}

TEXPR::TEXPR(TCMD& cmd, const VPEXPR* expr) : cmd(cmd), pexpr(expr) {}

TEXPR::TEXPR(TCMD& cmd, TVAL* tval) : cmd(cmd), type(tval->type), tval(tval) {}

std::string TEXPR::ref(bool cast) const {
  if (parm) {
    if (cast && type != parm->type_text) return "(" + type + ")" + parm->name;
    return parm->name;
  }
  if (tval) return "__" + tval->name;
  return pexpr_text(pexpr);
}

PARM_SET TEXPR::parm_refs() const {
  if (parm) return {parm};
  if (tval) return tval->parm_refs();
  return pexpr ? pexpr->parm_refs : PARM_SET{};
}
