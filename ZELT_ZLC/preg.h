// Parameter registers: the slots of the parameter block that the coprocessor
// reads when a vector loop starts, shared by text, and the table of one loop
// that hands out their slot numbers.
#ifndef ZLC_ZELT_ZLC_PREG_H
#define ZLC_ZELT_ZLC_PREG_H

#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "ZELT_ZLC/symtab.h"

class VKERNEL;

class PREG : public SYMREG {
 public:
  PREG(const DIAG_SRCINFO& srcinfo, const std::string& name) : SYMREG(srcinfo, name) {}

  std::string format_prefix() const override { return "_PREG"; }

  // Makes this the holder of a custom distribution array: `arr_text` is the
  // initialiser "{a, b, ...}", `arr_name` the array's name.
  void add_cust_arr(const std::string& arr_text, const std::string& arr_name);

  std::string text;       // the value, as source text
  std::string ref_text;   // the array's name, for a custom distribution
  std::string cust_text;  // the array's initialiser, for a custom distribution
  int32_t nregs = 1;      // parameter words
};

// The registers of every table with numbers 0 and 1, holding "0" and "1".
extern PREG* const PREG_ZERO;
extern PREG* const PREG_ONE;

class PREG_TABLE : public SYM_TABLE<PREG> {
 public:
  // The first slot that allocation hands out; 2 to 5 hold the trip counts.
  static constexpr int32_t first_free_mr = 6;
  // Custom blocks stand at multiples of 8 and take two slots each.
  static constexpr int32_t custom_block = 8;
  static constexpr int32_t last_custom_mr = 24;

  // A run of free slots left behind by alignment or by a custom block.
  struct HOLE {
    int32_t start;
    int32_t size;
  };

  explicit PREG_TABLE(VKERNEL& kernel);

  // The register holding `text` in `nregs` words: an existing one of the
  // same text and count, with `only_unassigned` only among those without a
  // number, or a new one.
  PREG* new_preg(const std::string& text, int32_t nregs, bool only_unassigned);
  // A register bound to the fixed number `number`, which takes no slot of
  // its own; the same number and text give the same register.
  PREG* new_fixed_preg(const std::string& text, int32_t number);

  // Numbers every register without one: the waiting list first, in order,
  // then the rest by name.  Returns the count of slots in use.
  int32_t assign_mrs();
  // The first slot of `n` free ones, filling `holes` first.
  int32_t get_next_mr(int32_t n, std::list<HOLE>& holes);

  // The slot of the next custom block, 8, 16 and 24 in turn, then -1.
  int32_t next_custom_mr();
  // Places `preg` in the custom block at `slot`.
  void set_custom_mr(PREG* preg, int32_t slot);
  // The register whose custom array has the initialiser `arr_text`, or null.
  PREG* cust_search(const std::string& arr_text) const;

  std::vector<PREG*> waiting;  // numbered first by assign_mrs, in this order
  VKERNEL& kernel;
  int32_t next_mr = first_free_mr;

 private:
  int32_t custom_mr = 0;       // the last custom block handed out
  int32_t last_custom = 0;     // the highest custom block in use
};

#endif
