// The choice of a streaming engine or a streaming address generator for
// one memory access.
#include "translate/stream.h"
#include "translate/tcmd.h"

bool TCMD::use_se(TINSTR* instr, AGEN* agen) {
  if (!instr->is_tvload() || instr->block->loop() == top_loop) return false;
  SE_TEMPLATE* t = se_table.allocate_se();
  if (!t || !t->qualify(instr, agen)) return false;
  instr->use_stream(t);
  return true;
}

bool TCMD::use_sa(TINSTR* instr, AGEN* agen) {
  const bool load = instr->is_tvload();
  if ((!load && !instr->is_tvstore()) || instr->block->loop() == top_loop) return false;
  SA_TEMPLATE t(this, -1, instr->is_transpose() ? 3 : load ? 2 : 1);
  if (!t.qualify(instr, agen)) return false;
  SA_TEMPLATE* slot = sa_table.allocate_sa(t);
  if (!slot) return false;
  instr->use_stream(slot);
  return true;
}
