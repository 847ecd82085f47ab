// The table scatter transformation: a buffer that a vector loop writes only
// by .p_scatter() with an offsets register loaded outside its loops, or only
// by .offset_np1(), through one address generator, becomes a table that the
// target keeps in its table memory.  At most two buffers a vector loop.
#ifndef ZLC_TRANSLATE_LUT_SCATTER_H
#define ZLC_TRANSLATE_LUT_SCATTER_H

class AGEN;
class VKERNEL;
class VREG;

// The judgement of one buffer of a vector loop.
struct SET_INFO {
  bool ok = true;
  bool has_offset_np1 = false;
  bool has_scatter = false;
  VREG* scatter_vreg = nullptr;
  AGEN* agen = nullptr;
};

// Turns the stores of the buffers that qualify into table writes
// (distributions 11 and 12) and marks the loads of their offsets registers.
// Runs only when the option without a spelling that gates it is set.
void do_lut_scatter_transformation(VKERNEL* kernel);

#endif
