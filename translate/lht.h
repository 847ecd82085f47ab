// Lookup, histogram and scatter tables of a translated vector loop: the
// template that sizes and configures one table in the target's table
// memory, the pair of them that a loop may use, and the instructions that
// set a table up, use it and copy it back.
#ifndef ZLC_TRANSLATE_LHT_H
#define ZLC_TRANSLATE_LHT_H

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vdata_type.h"
#include "translate/tinstr.h"

class AGEN;
class LHT_OPEN;
class LUT_MAX_INDEX;
class LUT_SCATTER_SIZE;
class PARM;
class SREG;
class TCMD;
class TEXPR;
class VAL_RANGES;
class VREG;

class LHT_TEMPLATE {
 public:
  // The kinds; the scatter kinds come from stores that write a table.
  enum KIND : int32_t { LOOKUP = 0, HISTOGRAM = 1, SCATTER = 2, SCATTER_NP1 = 3 };

  // Bytes of table memory that the tables of one loop share.
  static constexpr int32_t memory_bytes = 32768;

  LHT_TEMPLATE(TCMD* cmd, int32_t id) : id(id), cmd(cmd) {}
  LHT_TEMPLATE(const LHT_TEMPLATE&) = delete;
  LHT_TEMPLATE& operator=(const LHT_TEMPLATE&) = delete;

  void set_fields(VDATA_TYPE type, int32_t num_objs, int32_t num_pts, int32_t dup, TEXPR* table,
                  PARM* parm, AGEN* agen, TEXPR* user_size, const DIAG_SRCINFO* src);
  uint32_t elements_per_lookup() const;
  // "zelt_lookup<type, objs, pts, dup, lut_id<id, share> >", where the
  // share is the table memory divided among the loop's tables.
  std::string template_name() const;
  // The bits an address generator's byte offset is shifted by to make an
  // index into the table.
  int32_t agen_shift() const;

  // The table size of a lookup or histogram: the user's, or the one that
  // the range of the index needs, within the table memory; warns when the
  // worst case has to be taken.
  void set_lht_size(VAL_RANGES& ranges);

  // Configuration values, computed by the init function.
  void generate_init();
  void generate_copyin_init();
  void generate_copyout_init();
  void generate_max_sub_base_offset();
  void generate_max_agen();
  void generate_copy_size_expr();

  // The setup and teardown lines.
  void format_open(TEXT_OUT& out) const;
  void format_copyin(TEXT_OUT& out) const;
  void format_copyout(TEXT_OUT& out) const;
  void format_max_index(TEXT_OUT& out) const;
  void format_scatter_size(TEXT_OUT& out) const;

  int32_t id;
  TCMD* cmd;
  int32_t kind = LOOKUP;
  bool in_use = false;
  std::vector<TINSTR*> users;  // in translation order
  LHT_OPEN* open_instr = nullptr;
  VREG* index_reg = nullptr;  // scatter kinds: the first user's offsets
  LUT_MAX_INDEX* max_index_instr = nullptr;
  LUT_SCATTER_SIZE* scatter_size_instr = nullptr;
  TEXPR* config = nullptr;
  TEXPR* copy_in_config = nullptr;
  TEXPR* copy_out_config = nullptr;
  TEXPR* copy_in_se_config = nullptr;
  TEXPR* copy_out_sa_config = nullptr;
  TEXPR* max_agen = nullptr;
  TEXPR* table = nullptr;  // the table's address
  PARM* parm = nullptr;
  TEXPR* size = nullptr;
  TEXPR* user_size = nullptr;
  SREG* max_index_sreg = nullptr;
  SREG* scatter_size_sreg = nullptr;
  TEXPR* copy_size = nullptr;
  TEXPR* max_sub_base_offset = nullptr;
  AGEN* agen = nullptr;  // only when it moves in the loops
  VDATA_TYPE type;
  int32_t num_pts = 0;
  int32_t num_objs = 0;
  int32_t dup = 0;
  const DIAG_SRCINFO* src = nullptr;

 private:
  // A configuration value of `type` on `text`, which mentions `refs`.
  TEXPR* config_value(const std::string& type, const std::string& text,
                      const std::vector<const TEXPR*>& refs = {});
  // The copy forms: "copy_table_in" or "copy_table_out" with its configs.
  void format_copy(TEXT_OUT& out, const char* word, const TEXPR* config,
                   const TEXPR* stream_config) const;
};

// Its templates are made at their first use: most loops have no table.
class LHT_TABLE {
 public:
  explicit LHT_TABLE(TCMD& cmd) : cmd(cmd) {}

  // The first template not in use, reset and counted; null when both are.
  LHT_TEMPLATE* allocate_lht();
  // The template of slot `id`.
  LHT_TEMPLATE* at(size_t id);

  std::array<std::unique_ptr<LHT_TEMPLATE>, 2> templates;  // null until used
  TCMD& cmd;
  int32_t lht_count = 0;  // templates allocated in this loop
};

// dst = the table's entries at the points of `index`.
class TVLOOKUP : public TINSTR {
 public:
  TVLOOKUP(VREG* dst, VREG* index, AGEN* agen, VDATA_TYPE type, LHT_TEMPLATE* lht)
      : dst(dst), index(index), agen_(agen), type(type), lht_(lht) {}

  void format(TEXT_OUT& out) const override;
  LHT_TEMPLATE* lht() const override { return lht_; }
  AGEN* agen() const override { return agen_; }
  std::vector<VREG*> dst_regs() const override { return {dst}; }
  std::vector<VREG*> src_regs() const override { return {index}; }
  std::string instr_string() const override { return "LOOKUP"; }
  bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) override;

  VREG* dst;
  VREG* index;
  AGEN* agen_;
  VDATA_TYPE type;
  LHT_TEMPLATE* lht_;
};

// The bins that `data` selects grow by `weight`, or by one without it.
class TVHIST : public TINSTR {
 public:
  TVHIST(VREG* dst, VREG* data, VREG* weight, AGEN* agen, VDATA_TYPE type, LHT_TEMPLATE* lht)
      : dst(dst), data(data), weight(weight), agen_(agen), type(type), lht_(lht) {}

  void format(TEXT_OUT& out) const override;
  LHT_TEMPLATE* lht() const override { return lht_; }
  AGEN* agen() const override { return agen_; }
  std::vector<VREG*> dst_regs() const override { return {dst}; }
  std::vector<VREG*> src_regs() const override;
  std::string instr_string() const override { return "HIST"; }
  bool find_range(VAL_RANGE* range, const std::vector<VAL_RANGE*>& operands) override;

  VREG* dst;
  VREG* data;
  VREG* weight;
  AGEN* agen_;
  VDATA_TYPE type;
  LHT_TEMPLATE* lht_;
};

// The largest offset of a scatter table's index register.
class LUT_MAX_INDEX : public TINSTR {
 public:
  explicit LUT_MAX_INDEX(LHT_TEMPLATE* lht) : lht(lht) {}
  void format(TEXT_OUT& out) const override { lht->format_max_index(out); }
  std::string instr_string() const override { return "LUT_MAX_INDEX"; }

  LHT_TEMPLATE* lht;
};

// The bytes that a scatter table spans.
class LUT_SCATTER_SIZE : public TINSTR {
 public:
  LUT_SCATTER_SIZE(SREG* max_index, LHT_TEMPLATE* lht) : max_index(max_index), lht(lht) {}
  void format(TEXT_OUT& out) const override { lht->format_scatter_size(out); }
  std::string instr_string() const override { return "LUT_SCATTER_SIZE"; }

  SREG* max_index;
  LHT_TEMPLATE* lht;
};

class LHT_COPYIN : public TINSTR {
 public:
  explicit LHT_COPYIN(LHT_TEMPLATE* lht) : lht(lht) {}
  void format(TEXT_OUT& out) const override { lht->format_copyin(out); }
  std::string instr_string() const override { return "LHT_COPYIN"; }

  LHT_TEMPLATE* lht;
};

class LHT_OPEN : public TINSTR {
 public:
  explicit LHT_OPEN(LHT_TEMPLATE* lht) : lht(lht) {}
  void format(TEXT_OUT& out) const override { lht->format_open(out); }
  std::string instr_string() const override { return "LHT_OPEN"; }

  LHT_TEMPLATE* lht;
};

class LHT_COPYOUT : public TINSTR {
 public:
  explicit LHT_COPYOUT(LHT_TEMPLATE* lht) : lht(lht) {}
  void format(TEXT_OUT& out) const override { lht->format_copyout(out); }
  std::string instr_string() const override { return "LHT_COPYOUT"; }

  LHT_TEMPLATE* lht;
};

#endif
