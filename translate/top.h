// A vector operation of the generated loop body: an expression on vector
// registers or a call of one of the run-time operation templates.
#ifndef ZLC_TRANSLATE_TOP_H
#define ZLC_TRANSLATE_TOP_H

#include <string>
#include <vector>

#include "ZELT_ZLC/text_out.h"
#include "translate/tinstr.h"

class VOP;

class TVOP : public TINSTR {
 public:
  explicit TVOP(VOP* vop) : vop(vop) {}

  // The operation's line; an operation that no row of the table knows
  // writes nothing and warns on standard output.
  void format(TEXT_OUT& out) const override;
  std::vector<VREG*> dst_regs() const override;
  std::vector<VREG*> src_regs() const override;
  std::string instr_string() const override { return "OP"; }

  // "int32_t" or "uint32_t" by the signedness of the registers read.
  VDATA_TYPE operation_data_type() const;

  VOP* vop;
};

#endif
