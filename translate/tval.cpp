// Values computed by the init function: naming, sharing, their place in the
// parameter block, and the typedef and assignments that hold them.
#include "translate/tval.h"

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vpexpr.h"
#include "translate/loop.h"
#include "translate/tcmd.h"
#include "translate/tkernel.h"

TVAL::TVAL(const DIAG_SRCINFO& srcinfo, const std::string& name, TVAL_TABLE* table,
           std::string type)
    : SYMREG(srcinfo, name), table(table), type(std::move(type)) {}

std::string TVAL::init_ref() const {
  const TCMD& cmd = *table->cmd;
  std::string index = cmd.has_repeat ? cmd.repeat_lcv() : "0";
  return "tvals->" + table->name() + ".tvals[" + index + "]." + name;
}

std::string TVAL_RT::init_ref() const { return "tvals->" + table->name() + "." + name; }

PARM_SET TVAL::parm_refs() const { return pexpr ? pexpr->parm_refs : PARM_SET{}; }

bool TVAL::depends_on_update_parms() const {
  for (const PARM* parm : parm_refs())
    if (parm->has_flag(PARM::QF_UPDATE)) return true;
  return false;
}

bool TVAL::matches(const std::string& other_type, const VPEXPR* expr) const {
  return pexpr && type == other_type && pexpr->text == expr->text;
}

void TVAL::add_pexpr(const VPEXPR* expr) {
  assignment += init_ref() + " = " + expr->text + ";";
  pexpr = expr;
}

TVAL* TVAL_TABLE::new_tval(const std::string& type, const VPEXPR* expr) {
  for (const auto& [name, tval] : by_name)
    if (tval->matches(type, expr)) return tval;
  uint32_t number = next_number++;
  auto* tval = kernel_new<TVAL>(srcloc_internal, "p" + std::to_string(number), this, type);
  by_name.emplace(tval->name, tval);
  by_number.emplace(number, tval);
  tval->number = static_cast<int32_t>(number);
  tval->add_pexpr(expr);
  return tval;
}

TVAL_RT* TVAL_TABLE::new_tval_rt(const VPEXPR* expr) {
  rt = kernel_new<TVAL_RT>(srcloc_internal, "tripcount", this, "int32_t");
  rt->add_pexpr(expr);
  return rt;
}

std::string TVAL_TABLE::name() const { return "loop" + std::to_string(cmd->id); }

std::string TVAL_TABLE::type() const {
  return kernel->name + "_loop" + std::to_string(cmd->id) + "_tvals_t";
}

void TVAL_TABLE::format_init(TEXT_OUT& out, bool update) const {
  LOOP* repeat = cmd->has_repeat ? cmd->root_loop.nested_loop() : nullptr;
  if (repeat) {
    INDENT::open(out);
    if (rt) {
      INDENT::indent(out) << rt->assignment << '\n';
      INDENT::indent(out) << rt->type << " __" << rt->name << " = " << rt->init_ref() << ";\n";
    }
    INDENT::indent(out) << "int32_t " << repeat->lcv << ";\n";
    repeat->format_header(out);
  }
  for (const auto& [number, tval] : by_number) {
    if (update && !tval->depends_on_update_parms()) continue;
    INDENT::indent(out) << tval->assignment << '\n';
  }
  if (repeat) {
    INDENT::close(out);
    INDENT::close(out);
  }
}

void TVAL_TABLE::format_typedef(TEXT_OUT& out) const {
  out << "typedef struct\n{\n";
  if (rt) out << "   int32_t tripcount;\n";
  out << "   struct\n   {\n";
  for (const auto& [number, tval] : by_number)
    out << "      " << tval->type << ' ' << tval->name << ";\n";
  out << "   } tvals [" << cmd->rpt_max << "];\n";
  out << "} " << type() << ";\n";
  INDENT::blankline(out);
}
