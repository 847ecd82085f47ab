// The translating kernel: turns each vector loop of a kernel into a
// translated loop, keeps the declarations of the whole kernel, and writes
// the kernel's generated functions.
#ifndef ZLC_TRANSLATE_TKERNEL_H
#define ZLC_TRANSLATE_TKERNEL_H

#include <cstdint>
#include <string>
#include <vector>

#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vreg.h"
#include "translate/loop.h"

class TCMD;

class TKERNEL : public VKERNEL {
 public:
  TKERNEL(TEXT_OUT& outfile, TEXT_OUT& header_file);

  void translate_for_9k() override;
  bool needs_update_function() override;
  // "void", the name, "_update", and the update parameters with the block.
  void format_update_sig(TEXT_OUT& out) override;

  // The generated text of the kernel: value types, parameter block, count,
  // init and update functions, vector-loop function and runners.
  void format_initializer() override;
  void format_vloops() override;
  void format_runner() override;
  void format_kernel_information() override;
  void format_tval_typedef();
  // The line that views the parameter block as the kernel value type.
  void format_tval_assignment();

  // Builds and analyses the translated form of one vector loop.
  void translate_vcmd(VCMD* vcmd);

  // "__PBLOCK_SIZE(" the kernel value type ")".
  std::string pblock_size() const;
  // The kernel value type, the name and "_tvals_t".
  std::string tval_type_name() const;

  // `prefix` and the next number whose name no register has yet; the
  // counter serves every prefix.
  std::string temp_name(const std::string& prefix);
  VREG* temp_vreg();
  SREG* temp_sreg();

  std::vector<TCMD*> tcmds;
  SCOPE scope;
  PARM_SET used_parms;
  int32_t temp_counter = 0;
  SREG_TABLE sregs;  // scalar temporaries
};

// The kernel object of every kernel of the source file.
VKERNEL* new_translation_kernel(TEXT_OUT& outfile, TEXT_OUT& header_file);

#endif
