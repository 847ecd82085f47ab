// Diagnostics: every message is an object that carries a catalogue record,
// its arguments and an optional source position, and prints itself.
#ifndef ZLC_DIAG_DIAG_H
#define ZLC_DIAG_DIAG_H

#include <cstdio>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

enum dc_SEVERITY {
  dc_suppressed = 0,
  dc_no_error = 1,
  dc_advice = 2,
  dc_debug = 3,
  dc_remark = 4,
  dc_warning = 5,
  dc_error = 6,
  dc_fatal = 7,
};

// One catalogue record.
struct DIAG_INFO {
  int code;
  const char* std_msg;
  const char* vrb_msg;
  dc_SEVERITY severity;
  bool internal;  // a fault of the tool itself
  bool fixed;     // not discretionary: no "-D" mark
};

// An abstract position in the user's source.
class DIAG_SRCINFO {
 public:
  virtual std::string file() const = 0;
  virtual unsigned line() const = 0;
  virtual unsigned column() const = 0;
  virtual bool approx() const = 0;
  virtual ~DIAG_SRCINFO() = default;
  virtual bool is_equal(const DIAG_SRCINFO* other) const;
};

class DIAG_SRCINFO_DATA : public DIAG_SRCINFO {
 public:
  DIAG_SRCINFO_DATA() = default;
  DIAG_SRCINFO_DATA(std::string file, unsigned line, unsigned column = 0, bool approx = false)
      : file_(std::move(file)), line_(line), column_(column), approx_(approx) {}
  std::string file() const override { return file_; }
  unsigned line() const override { return line_; }
  unsigned column() const override { return column_; }
  bool approx() const override { return approx_; }

 private:
  std::string file_;
  unsigned line_ = 0;
  unsigned column_ = 0;
  bool approx_ = false;
};

// Position of things the translator made up itself.
extern DIAG_SRCINFO_DATA srcloc_internal;

class DIAGNOSTIC {
 public:
  explicit DIAGNOSTIC(const DIAG_INFO* info, const char* raise_file = "", unsigned raise_line = 0);
  DIAGNOSTIC(const DIAGNOSTIC& other);
  DIAGNOSTIC& operator=(const DIAGNOSTIC&) = delete;
  virtual ~DIAGNOSTIC() = default;

  virtual DIAGNOSTIC* alloc() const = 0;
  virtual int report() = 0;
  virtual bool is_equal(const DIAGNOSTIC* other) const;

  // Attaches a private copy of the position; a null position changes nothing.
  DIAGNOSTIC& set_src(const DIAG_SRCINFO* src);
  const DIAG_SRCINFO* src() const { return src_.get(); }
  const DIAG_INFO* info() const { return info_; }

  int print_header();
  int print(const char* format, ...) __attribute__((format(printf, 2, 3)));
  void flush();

  FILE* fp() const;
  const char* sev_str() const;
  bool is_discretionary() const;
  bool suppress() const;

  static const DIAG_INFO* get_info(int code);
  static const std::vector<DIAG_INFO>& table();
  static std::string srcinfo_str(const DIAG_SRCINFO* src);
  static const char* severity_name(int severity);

  // Class-wide settings.
  static bool wrap_enabled_m;
  static bool warnings_m;
  static int max_errors_m;
  static int wrap_indent_m;
  static int diag_cols_m;
  static bool display_code_m;
  static bool display_ipos_m;
  static bool wrap_headers_m;
  static bool advice_m;
  static bool debug_m;
  static bool remarks_m;
  static int indent_m;
  static FILE* fp_m;
  static int error_count_m;

 protected:
  const DIAG_INFO* info_;

 private:
  int cols_left_;
  std::unique_ptr<DIAG_SRCINFO_DATA> src_;
  const char* raise_file_;
  unsigned raise_line_;
  bool header_done_ = false;
};

// Writes `text` with the wrapping rules of the message printer: pieces end at
// blanks, line feeds in the text and the line width; each continuation line
// starts with `indent + wrap_indent` blanks.  `cols_left` is updated.
void print_formatted(FILE* out, const std::string& text, int& cols_left, int cols, int indent,
                     int wrap_indent);

// The index of the last character of `text` that may end a line of `n`
// columns, breaking at white space where it can.
size_t last_printable_char(const std::string& text, int n);

namespace DIAG {

// One class per catalogue record: the record's code and the types of the
// arguments of its text.  The arguments are printed in their order.
template <int CODE, typename... ARGS>
class MESSAGE final : public DIAGNOSTIC {
 public:
  explicit MESSAGE(ARGS... args) : DIAGNOSTIC(get_info(CODE)), args_(std::move(args)...) {}
  DIAGNOSTIC* alloc() const override { return new MESSAGE(*this); }
  int report() override {
    int n = print_header();
    n += std::apply([this](const auto&... a) { return print(info_->std_msg, c_arg(a)...); },
                    args_);
    flush();
    return n;
  }

 private:
  static const char* c_arg(const std::string& s) { return s.c_str(); }
  static unsigned c_arg(unsigned v) { return v; }
  static int c_arg(int v) { return v; }
  std::tuple<ARGS...> args_;
};

#define DIAG_MSG(NAME, CODE, SEVERITY, FLAGS, TEXT, ...) \
  using NAME = MESSAGE<CODE __VA_OPT__(, ) __VA_ARGS__>;
#include "diag_messages.def"
#undef DIAG_MSG

}  // namespace DIAG

#endif
