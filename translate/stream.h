// Streaming engines and streaming address generators of a translated
// vector loop: the access pattern that configures each one, the tables of
// the two engines and four generators, and the instructions that open and
// close them around the loop nest.
#ifndef ZLC_TRANSLATE_STREAM_H
#define ZLC_TRANSLATE_STREAM_H

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vdata_type.h"
#include "translate/tinstr.h"

class AGEN;
class TCMD;
class TEXPR;
class VPEXPR;
class register_option;

// Stops engines and address generators alike, and with them the transpose
// transformation.
extern register_option disable_se;

class STREAM_TEMPLATE {
 public:
  // Dimensions of one pattern.
  static constexpr int max_dims = 6;

  STREAM_TEMPLATE(TCMD* cmd, int32_t id, int32_t kind);
  virtual ~STREAM_TEMPLATE() = default;
  STREAM_TEMPLATE(const STREAM_TEMPLATE&) = delete;
  STREAM_TEMPLATE& operator=(const STREAM_TEMPLATE&) = delete;

  virtual bool is_se() const { return false; }
  virtual bool is_sa() const { return false; }
  // Makes the configuration value `init` once.
  virtual void generate_init() = 0;
  // Makes the open and close instructions once, around the loops of `instr`.
  virtual void generate_setup(TINSTR* instr) = 0;

  // Frees the template and forgets its pattern.
  void reset();
  // Fills the pattern from the access `instr` through `agen`; false when
  // the nest doesn't fit six dimensions or the access can't stream.
  bool qualify(TINSTR* instr, AGEN* agen);

  int32_t id;  // the slot; -1 for a temporary
  TCMD* cmd;
  int32_t kind;  // 2 an engine; a generator: 1 store, 2 load, 3 transposing
  bool in_use = false;
  TINSTR* open_instr = nullptr;
  TINSTR* advance_instr = nullptr;  // the last user in block order
  TEXPR* init = nullptr;
  VDATA_TYPE type;
  uint32_t nelem = 1;
  std::array<const VPEXPR*, max_dims> dim;   // byte stride of each dimension
  std::array<const VPEXPR*, max_dims> icnt;  // count of each dimension
  int32_t mode = 0;  // the access's distribution

 protected:
  // "icnt0, dim1/E, icnt1, ..., dim5/E, icnt5" of the configuration call.
  std::string format_dims() const;
  // "TRANSPOSE_ON" for a transposing access, else "TRANSPOSE_OFF".
  std::string transpose_word() const;
  // `init` from the configuration text, typed `type_name`.
  void make_init(const char* type_name, const std::string& text);
};

class SE_TEMPLATE : public STREAM_TEMPLATE {
 public:
  SE_TEMPLATE(TCMD* cmd, int32_t id) : STREAM_TEMPLATE(cmd, id, 2) {}

  bool is_se() const override { return true; }
  void generate_init() override;
  void generate_setup(TINSTR* instr) override;
};

class SA_TEMPLATE : public STREAM_TEMPLATE {
 public:
  SA_TEMPLATE(TCMD* cmd, int32_t id, int32_t kind) : STREAM_TEMPLATE(cmd, id, kind) {}

  bool is_sa() const override { return true; }
  void generate_init() override;
  void generate_setup(TINSTR* instr) override;

  // Same element count and type, and textually equal dimensions.
  bool matches(const SA_TEMPLATE& other) const;
  // Takes over the kind and the pattern of `other`.
  void copy(const SA_TEMPLATE& other);
};

// The templates of a table are made at their first use: most loops use few
// of them.
class SE_TABLE {
 public:
  explicit SE_TABLE(TCMD& cmd) : cmd(cmd) {}

  // The first free engine, reset; null when both are taken.
  SE_TEMPLATE* allocate_se();
  // The engine of slot `id`.
  SE_TEMPLATE* at(size_t id);

  std::array<std::unique_ptr<SE_TEMPLATE>, 2> templates;  // null until used
  TCMD& cmd;
};

class SA_TABLE {
 public:
  explicit SA_TABLE(TCMD& cmd) : cmd(cmd) {}

  // A generator for the pattern `t`: one in use with the same kind and
  // pattern, else a free one taking a copy of `t`, else, when all are in
  // use, the last one with the same pattern and no transposing kind; null
  // when there is none.
  SA_TEMPLATE* allocate_sa(const SA_TEMPLATE& t);
  // The generator of slot `id`.
  SA_TEMPLATE* at(size_t id);

  std::array<std::unique_ptr<SA_TEMPLATE>, 4> templates;  // null until used
  TCMD& cmd;
};

// "__SE<id>_OPEN(base, config);" ahead of the loops that read the stream.
class SE_OPEN : public TINSTR {
 public:
  SE_OPEN(SE_TEMPLATE* stream, TEXPR* base) : stream_(stream), base_(base) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "SE_OPEN"; }

  SE_TEMPLATE* stream_;
  TEXPR* base_;
};

// "__SA<id>_OPEN(config);"
class SA_OPEN : public TINSTR {
 public:
  explicit SA_OPEN(SA_TEMPLATE* stream) : stream_(stream) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "SA_OPEN"; }

  SA_TEMPLATE* stream_;
};

// "__SE<id>_CLOSE();"
class SE_CLOSE : public TINSTR {
 public:
  explicit SE_CLOSE(SE_TEMPLATE* stream) : stream_(stream) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "SE_CLOSE"; }

  SE_TEMPLATE* stream_;
};

// "__SA<id>_CLOSE();"
class SA_CLOSE : public TINSTR {
 public:
  explicit SA_CLOSE(SA_TEMPLATE* stream) : stream_(stream) {}
  void format(TEXT_OUT& out) const override;
  std::string instr_string() const override { return "SA_CLOSE"; }

  SA_TEMPLATE* stream_;
};

#endif
