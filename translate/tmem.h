// Translated instructions that touch memory, registers and address
// generators: loads, stores, register initialisation, generator reset and
// increment, and register moves.
#ifndef ZLC_TRANSLATE_TMEM_H
#define ZLC_TRANSLATE_TMEM_H

#include <cstdint>
#include <string>

#include "translate/tinstr.h"

class VMOVE;
struct VLVALUE;

// The name of a pointer that walks a collated load or store:
// "__collate_ptr_" and a run-wide number.
std::string new_collate_ptr();

// What loads and stores share: an address, walked by a plain generator or
// by a stream, in a circular buffer or not, over elements of one type.
class TVMEM : public TINSTR {
 public:
  STREAM_TEMPLATE* stream() const override { return stream_; }
  VDATA_TYPE elem_type() const override { return type; }
  AGEN* agen() const override { return agen_; }
  bool is_transpose() const override { return dist == 10; }
  void format_address(TEXT_OUT& out) const;

  TEXPR* base_ = nullptr;
  AGEN* agen_ = nullptr;
  int32_t circ = 0;
  STREAM_TEMPLATE* stream_ = nullptr;
  std::string collate_ptr;
  VDATA_TYPE type;
  int32_t dist = 0;
};

class TVLOAD : public TVMEM {
 public:
  void format(TEXT_OUT& out) const override;
  // The address that an engine opens on; only loads offer one.
  TEXPR* base() const override { return base_; }
  bool can_use_stream(STREAM_TEMPLATE& t) const override;
  void use_stream(STREAM_TEMPLATE* t) override;
  unsigned nelem() const override;
  std::vector<VREG*> dst_regs() const override;
  std::string instr_string() const override { return "LOAD"; }
  bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) override;

  // The distribution word of a load, "npt"; empty for an unknown value.
  static std::string dist_word(int32_t dist);

  VREG* dst = nullptr;
  VREG* dst2 = nullptr;
  VREG* flags = nullptr;
  TEXPR* custom = nullptr;
};

class TVSTORE : public TVMEM {
 public:
  void format(TEXT_OUT& out) const override;
  LHT_TEMPLATE* lht() const override { return lht_; }
  bool can_use_stream(STREAM_TEMPLATE& t) const override;
  void use_stream(STREAM_TEMPLATE* t) override;
  unsigned nelem() const override;
  std::vector<VREG*> src_regs() const override;
  std::string instr_string() const override { return "STORE"; }

  // The distribution word of a store, "npt"; empty for an unknown value.
  static std::string dist_word(int32_t dist);
  void format_table_location(TEXT_OUT& out) const;

  VREG* src = nullptr;
  VREG* src2 = nullptr;
  VREG* scatter = nullptr;
  VREG* pred = nullptr;
  TEXPR* offset = nullptr;
  LHT_TEMPLATE* lht_ = nullptr;
  VLVALUE* lv = nullptr;
};

class TVINIT : public TINSTR {
 public:
  TVINIT(VREG* reg, TEXPR* value) : reg(reg), value(value) {}
  void format(TEXT_OUT& out) const override;
  std::vector<VREG*> dst_regs() const override { return {reg}; }
  std::string instr_string() const override { return "INIT"; }
  bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) override;

  VREG* reg;
  TEXPR* value;
};

class TAINIT : public TINSTR {
 public:
  explicit TAINIT(AGEN* agen) : agen_(agen) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "AINIT"; }

  AGEN* agen_;
};

class TAINCR : public TINSTR {
 public:
  TAINCR(AGEN* agen, TEXPR* incr) : agen_(agen), incr(incr) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "AINCR"; }

  AGEN* agen_;
  TEXPR* incr;
};

// dst = src, under the position conditions of the source's move, if any.
class TVMOVE : public TINSTR {
 public:
  TVMOVE(VREG* dst, VREG* src, VMOVE* vmove = nullptr) : dst(dst), src(src), vmove(vmove) {}
  void format(TEXT_OUT& out) const override;
  std::vector<VREG*> dst_regs() const override { return {dst}; }
  std::vector<VREG*> src_regs() const override;
  std::string instr_string() const override { return "MOVE"; }
  bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) override;

  bool is_conditional() const;

  VREG* dst;
  VREG* src;
  VMOVE* vmove;
};

#endif
