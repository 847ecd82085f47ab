// Printing of vector operations through the operation table.
#include "translate/top.h"

#include <cstdio>
#include <initializer_list>
#include <vector>

#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vreg.h"
#include "translate/loop.h"

namespace {

enum OPERAND { D1, D2, S1, S2, S3 };

// One piece of an operation's line: a register or literal text.
struct PIECE {
  constexpr PIECE(OPERAND reg) : reg(reg) {}
  constexpr PIECE(const char* text) : text(text) {}

  OPERAND reg = D1;
  const char* text = nullptr;
};

struct OP_FORM {
  const char* word;
  const char* template_word;  // null for an expression
  const char* separator;
  std::vector<PIECE> pieces;
};

const std::vector<OP_FORM>& op_forms() {
  static const std::vector<OP_FORM> forms{
#define ZELT_OP_EXPR(word, ...) {"__zelt_" #word, nullptr, nullptr, {__VA_ARGS__}},
#define ZELT_OP_TEMPLATE(word, templ, sep, ...) {"__zelt_" #word, templ, sep, {__VA_ARGS__}},
#include "translate/top.def"
#undef ZELT_OP_EXPR
#undef ZELT_OP_TEMPLATE
  };
  return forms;
}

const OP_FORM* find_form(const std::string& name) {
  for (const OP_FORM& form : op_forms())
    if (name == form.word) return &form;
  return nullptr;
}

std::string reg_name(const VREG* reg) { return reg ? reg->name : std::string(); }

}  // namespace

bool TINSTR::is_tvop() const { return dynamic_cast<const TVOP*>(this) != nullptr; }

std::vector<VREG*> TVOP::dst_regs() const { return vop->dst_vregs(); }

std::vector<VREG*> TVOP::src_regs() const { return vop->src_vregs(); }

VDATA_TYPE TVOP::operation_data_type() const {
  if (vop->name == "__zelt_vshf" || vop->name == "__zelt_vshfor")
    return vop->src1 && vop->src1->type.is_signed ? VDATA_TYPE::int32 : VDATA_TYPE::uint32;
  std::vector<const VREG*> regs;
  for (const VREG* reg : {vop->src1, vop->src2, vop->src3})
    if (reg) regs.push_back(reg);
  if (regs.empty())
    for (const VREG* reg : {vop->dst1, vop->dst2})
      if (reg) regs.push_back(reg);
  bool any_signed = false;
  bool any_unsigned = false;
  for (const VREG* reg : regs) (reg->type.is_signed ? any_signed : any_unsigned) = true;
  return any_unsigned && !any_signed ? VDATA_TYPE::uint32 : VDATA_TYPE::int32;
}

void TVOP::format(TEXT_OUT& out) const {
  const OP_FORM* form = find_form(vop->name);
  if (!form) {
    std::printf("warning: unknown op in TVOP::format: %s\n", vop->name.c_str());
    return;
  }
  const VREG* regs[] = {vop->dst1, vop->dst2, vop->src1, vop->src2, vop->src3};
  INDENT::indent(out);
  if (!form->template_word) {
    for (const PIECE& piece : form->pieces)
      out << (piece.text ? std::string(piece.text) : reg_name(regs[piece.reg]));
    out << "\n";
    return;
  }
  out << form->template_word << operation_data_type().get_name() << ">::apply(";
  const char* sep = "";
  for (const PIECE& piece : form->pieces) {
    out << sep << reg_name(regs[piece.reg]);
    sep = form->separator;
  }
  out << ");\n";
}
