// The base of every translated instruction that a block holds: its virtual
// queries for streams, registers and types, the tests of its class, and the
// declaration of the registers it touches.
#ifndef ZLC_TRANSLATE_TINSTR_H
#define ZLC_TRANSLATE_TINSTR_H

#include <string>
#include <vector>

#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vdata_type.h"

class AGEN;
class BBLOCK;
class LHT_TEMPLATE;
class SREG;
class STREAM_TEMPLATE;
class TEXPR;
class VAL_RANGE;
class VREG;

class TINSTR {
 public:
  TINSTR() = default;
  virtual ~TINSTR() = default;
  TINSTR(const TINSTR&) = delete;
  TINSTR& operator=(const TINSTR&) = delete;

  // Writes the instruction's lines of the vector-loop function.
  virtual void format(TEXT_OUT& out) const = 0;
  virtual LHT_TEMPLATE* lht() const { return nullptr; }
  // Whether the access may be served by the stream `t`, and the hand-over.
  virtual bool can_use_stream(STREAM_TEMPLATE& t) const;
  virtual void use_stream(STREAM_TEMPLATE* t);
  virtual STREAM_TEMPLATE* stream() const { return nullptr; }
  // Elements of one access.
  virtual unsigned nelem() const { return 0; }
  virtual VDATA_TYPE elem_type() const { return VDATA_TYPE::untyped; }
  virtual AGEN* agen() const { return nullptr; }
  virtual TEXPR* base() const { return nullptr; }
  virtual std::vector<VREG*> dst_regs() const { return {}; }
  virtual std::vector<VREG*> src_regs() const { return {}; }
  // The short name of the class, "LOAD".
  virtual std::string instr_string() const = 0;
  // Narrows `range`, the range of this instruction's destination, from the
  // ranges of its operands (null for a null operand); true when it changed.
  // An instruction that carries no range forward makes it indeterminate.
  virtual bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands);
  virtual bool is_transpose() const { return false; }

  // Tests of the dynamic class; each is defined beside the class it names.
  bool is_tvload() const;
  bool is_tvstore() const;
  bool is_tvinit() const;
  bool is_tvop() const;
  bool is_tvmove() const;
  bool is_tsat() const;
  bool is_tround() const;
  bool is_tainit() const;
  bool is_taincr() const;
  bool is_tvlookup() const;
  bool is_tvhist() const;
  bool is_seopen() const;
  bool is_seclose() const;
  bool is_saopen() const;
  bool is_saclose() const;
  bool is_lht_copyin() const;
  bool is_lht_copyout() const;
  bool is_lht_open() const;
  bool is_tvexit() const;
  bool is_tvprint() const;
  bool is_beginloop() const;
  bool is_endloop() const;

  // Declares a register in the loop of this instruction's block: vector
  // registers as "__vector", scalars as "int32_t".  An untyped register
  // becomes int32_t.  Null does nothing.
  void declare_vreg(VREG* reg);
  void declare_sreg(SREG* reg);

  // The third template argument of a load or store: "nosa" without a
  // stream, otherwise "sa" or "se", the slot, and "adv" on the instruction
  // that advances it.
  std::string sa_tag() const;

  BBLOCK* block = nullptr;
};

#endif
