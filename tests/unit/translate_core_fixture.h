// Kernels built through the model's entry points on a translating kernel,
// translated, and their loops printed.
#ifndef ZLC_TESTS_UNIT_TRANSLATE_CORE_FIXTURE_H
#define ZLC_TESTS_UNIT_TRANSLATE_CORE_FIXTURE_H

#include <string>

#include "ZELT_ZLC/vcmd.h"
#include "tests/unit/string_out.h"
#include "tests/unit/zelt_instr_support.h"
#include "translate/tcmd.h"
#include "translate/tkernel.h"

// Loop ids count across the whole run; the texts name the first loop of a
// kernel, `first`, "loop0".
inline std::string unnumbered(std::string text, const TCMD* first) {
  if (!first) return text;
  const std::string from = "tvals->loop" + std::to_string(first->id) + ".";
  const std::string to = "tvals->loop0.";
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}
// The loops of `cmd`, and the values of its init function.
inline std::string loop_text(TCMD* cmd) {
  STRING_OUT text;
  cmd->format(text);
  return text.str();
}
inline std::string init_text(TCMD* cmd, bool update) {
  STRING_OUT text;
  cmd->tvals.format_init(text, update);
  return text.str();
}

class TRANSLATE_TEST : public INSTR_TEST {
 protected:
  void SetUp() override {
    INSTR_TEST::SetUp();
    tkernel = new TKERNEL(out, header);
    kernel = tkernel;
    curr_vkernel = tkernel;
    tkernel->set_name("k");
  }

  PARM* parm(const std::string& name, const std::string& type, uint32_t flags = 0) {
    return tkernel->new_parm(at(1), name, flags, type, "");
  }
  AGEN* agen(const std::string& name, int depth, const VPEXPR* stride) {
    AGEN* a = v()->new_agen(at(1), name);
    a->has_init = true;
    a->strides[static_cast<size_t>(depth)] = stride;
    a->deepest_depth = depth;
    return a;
  }
  void end_loop() { v()->pop_block(); }

  // Translates the kernel and prints the loops of every translated loop.
  std::string translate() {
    tkernel->analyze_kernel();
    tkernel->translate_for_9k();
    std::string text;
    for (TCMD* cmd : tkernel->tcmds) text += loop_text(cmd);
    return unnumbered(text, tkernel->tcmds.empty() ? nullptr : tkernel->tcmds[0]);
  }
  std::string init_text(bool update) {
    std::string text;
    for (TCMD* cmd : tkernel->tcmds) text += ::init_text(cmd, update);
    return unnumbered(text, tkernel->tcmds.empty() ? nullptr : tkernel->tcmds[0]);
  }

  TKERNEL* tkernel = nullptr;
};

#endif
