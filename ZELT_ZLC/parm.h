// Kernel parameters: their declared type and array texts, their qualifiers,
// and the table that numbers them across the whole run.
#ifndef ZLC_ZELT_ZLC_PARM_H
#define ZLC_ZELT_ZLC_PARM_H

#include <cstdint>
#include <set>
#include <string>

#include "ZELT_ZLC/symtab.h"
#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vdata_type.h"

class PARM : public SYMREG {
 public:
  enum qualifier_flags : uint32_t {
    QF_NONE = 0,
    QF_UPDATE = 1,       // "__update"
    QF_TSCRATCH = 2,     // "__tscratch"
    QF_OUTPUT_ONLY = 4,  // "__output_only"
  };

  PARM(const DIAG_SRCINFO& srcinfo, const std::string& name) : SYMREG(srcinfo, name) {}

  void set_flags(uint32_t flags) { qualifiers = flags; }
  bool has_flag(qualifier_flags flag) const { return (qualifiers & flag) != 0; }

  // The vector pointer type named in the type text, or untyped.  A
  // parameter is a pointer parameter when this isn't untyped.
  VDATA_TYPE type() const;

  // The parameter as written in a function head: "int (*x)[5]" for an array,
  // "__vptr_uint8 p" otherwise.
  std::string declaration() const;

  // Turns an array parameter into a pointer to its elements: a "_arr" type
  // is cut there, else the first bracket pair of the array text goes.
  void normalize_array_type();

  std::string array_text;  // what is left of the array suffix
  std::string type_text;   // the declared type as written
  uint32_t qualifiers = QF_NONE;
  bool is_array = false;  // passed as a pointer to an array
};

// Orders parameters by their run-wide number, so that sets of them iterate
// in creation order.
struct PARM_LESS {
  bool operator()(const PARM* a, const PARM* b) const;
};
using PARM_SET = std::set<PARM*, PARM_LESS>;

class PARM_TABLE : public SYM_TABLE<PARM> {
 public:
  // Makes a parameter numbered from the run-wide counter, which starts at 0
  // and is never reset.  A duplicate name is not detected here.
  PARM* new_parm(const DIAG_SRCINFO& srcinfo, const std::string& name, uint32_t flags,
                 const std::string& type_text, const std::string& array_text);

  // The declaration list of a function head, in number order: "(", the
  // declarations each on its own line after three blanks and separated by
  // ",", then with `with_block` the parameter block, then ")".  The block is
  // "unsigned short pblock[]", or with `cpp_out` "unsigned short* pblock = "
  // and `pblock_name`.  With `only_update` only the "__update" parameters.
  void format_declarations(const std::string& pblock_name, TEXT_OUT& out, bool only_update,
                           bool with_block, bool cpp_out) const;

  // "(" the names joined by ", ", then ", " and `extra` when it isn't empty,
  // ")".
  std::string format_args(const std::string& extra) const;

  bool has_update_parms() const;
};

#endif
