// Printing, wrapping and counting of diagnostics.
#include "diag.h"

#include <cctype>
#include <cstdarg>
#include <cstdlib>
#include <algorithm>
#include <map>

namespace {

enum flag_bits { none = 0, F = 1, I = 2, IF = 3 };

std::vector<DIAG_INFO> build_table() {
  std::vector<DIAG_INFO> t;
#define DIAG_MSG(NAME, CODE, SEVERITY, FLAGS, TEXT, ...) \
  t.push_back({CODE, TEXT, nullptr, SEVERITY, (FLAGS & I) != 0, (FLAGS & F) != 0});
#include "diag_messages.def"
#undef DIAG_MSG
  return t;
}

bool is_blank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

void new_line(FILE* out, int& cols_left, int cols, int indent, int wrap_indent) {
  std::fputc('\n', out);
  cols_left = cols - indent - wrap_indent;
  std::fprintf(out, "%*s", indent + wrap_indent, "");
}

}  // namespace

DIAG_SRCINFO_DATA srcloc_internal("internal", 0, 0, false);

bool DIAG_SRCINFO::is_equal(const DIAG_SRCINFO* other) const {
  return other && line() == other->line() && column() == other->column() &&
         file() == other->file();
}

bool DIAGNOSTIC::wrap_enabled_m = true;
bool DIAGNOSTIC::warnings_m = true;
int DIAGNOSTIC::max_errors_m = 100;
int DIAGNOSTIC::wrap_indent_m = 3;
int DIAGNOSTIC::diag_cols_m = 79;
bool DIAGNOSTIC::display_code_m = false;
bool DIAGNOSTIC::display_ipos_m = false;
bool DIAGNOSTIC::wrap_headers_m = false;
bool DIAGNOSTIC::advice_m = false;
bool DIAGNOSTIC::debug_m = false;
bool DIAGNOSTIC::remarks_m = false;
int DIAGNOSTIC::indent_m = 0;
FILE* DIAGNOSTIC::fp_m = nullptr;
int DIAGNOSTIC::error_count_m = 0;

DIAGNOSTIC::DIAGNOSTIC(const DIAG_INFO* info, const char* raise_file, unsigned raise_line)
    : info_(info), cols_left_(diag_cols_m), raise_file_(raise_file), raise_line_(raise_line) {}

DIAGNOSTIC::DIAGNOSTIC(const DIAGNOSTIC& other)
    : info_(other.info_),
      cols_left_(other.cols_left_),
      src_(other.src_ ? std::make_unique<DIAG_SRCINFO_DATA>(*other.src_) : nullptr),
      raise_file_(other.raise_file_),
      raise_line_(other.raise_line_),
      header_done_(other.header_done_) {}

bool DIAGNOSTIC::is_equal(const DIAGNOSTIC* other) const {
  if (!other || other->info_ != info_) return false;
  if (!src_ || !other->src_) return !src_ && !other->src_;
  return src_->is_equal(other->src_.get());
}

DIAGNOSTIC& DIAGNOSTIC::set_src(const DIAG_SRCINFO* src) {
  if (src)
    src_ = std::make_unique<DIAG_SRCINFO_DATA>(src->file(), src->line(), src->column(),
                                               src->approx());
  return *this;
}

const std::vector<DIAG_INFO>& DIAGNOSTIC::table() {
  static const std::vector<DIAG_INFO> t = build_table();
  return t;
}

const DIAG_INFO* DIAGNOSTIC::get_info(int code) {
  static const std::map<int, const DIAG_INFO*> by_code = [] {
    std::map<int, const DIAG_INFO*> m;
    for (const DIAG_INFO& i : table()) m.emplace(i.code, &i);
    return m;
  }();
  auto it = by_code.find(code);
  return it == by_code.end() ? nullptr : it->second;
}

const char* DIAGNOSTIC::severity_name(int severity) {
  static const char* const names[] = {"(suppressed)", "(no error)", "advice", "debug",
                                      "remark",       "warning",    "error",  "fatal error"};
  return severity >= 0 && severity <= dc_fatal ? names[severity] : "(unknown)";
}

const char* DIAGNOSTIC::sev_str() const { return severity_name(info_->severity); }

FILE* DIAGNOSTIC::fp() const {
  if (fp_m) return fp_m;
  return info_->severity < dc_warning ? stdout : stderr;
}

bool DIAGNOSTIC::is_discretionary() const {
  if (info_->fixed || info_->internal) return false;
  return info_->severity != dc_advice && info_->severity < dc_fatal;
}

bool DIAGNOSTIC::suppress() const {
  switch (info_->severity) {
    case dc_suppressed: return true;
    case dc_advice: return !advice_m;
    case dc_debug: return !debug_m;
    case dc_remark: return !remarks_m;
    case dc_warning: return !warnings_m;
    default: return false;
  }
}

std::string DIAGNOSTIC::srcinfo_str(const DIAG_SRCINFO* src) {
  if (!src || src->file().empty()) return "";
  std::string s = "\"" + src->file() + "\"";
  if (src->line() != 0) s += ", line " + std::to_string(src->line());
  if (src->approx()) s += " (approximate)";
  return s;
}

int DIAGNOSTIC::print_header() {
  header_done_ = true;
  if (suppress()) return 0;
  flush();
  const bool saved_wrap = wrap_enabled_m;
  if (!wrap_headers_m) wrap_enabled_m = false;  // a header is never broken
  int n = 0;
  if (indent_m > 0) n += print("%*s", indent_m, "");
  if (display_ipos_m || info_->internal) n += print("%s:%u:", raise_file_, raise_line_);
  const std::string where = srcinfo_str(src_.get());
  if (!where.empty()) n += print("%s: ", where.c_str());
  if (display_code_m || info_->internal) {
    const bool mark = !info_->internal && !info_->fixed && info_->severity < dc_fatal &&
                      info_->severity != dc_advice;
    n += print("%s%s #%u%s: ", info_->internal ? "internal " : "", sev_str(),
               static_cast<unsigned>(info_->code), mark ? "-D" : "");
  } else {
    n += print("%s: ", sev_str());
  }
  wrap_enabled_m = saved_wrap;
  return n;
}

int DIAGNOSTIC::print(const char* format, ...) {
  if (suppress()) return 0;
  if (!format) format = "";
  va_list ap;
  va_start(ap, format);
  va_list copy;
  va_copy(copy, ap);
  const int len = std::vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string text(len > 0 ? static_cast<size_t>(len) : 0, '\0');
  if (len > 0) std::vsnprintf(text.data(), text.size() + 1, format, ap);
  va_end(ap);
  FILE* out = fp();
  if (wrap_enabled_m && cols_left_ <= 0)
    new_line(out, cols_left_, diag_cols_m, indent_m, wrap_indent_m);
  print_formatted(out, text, cols_left_, diag_cols_m, indent_m, wrap_indent_m);
  return static_cast<int>(text.size());
}

void DIAGNOSTIC::flush() {
  if (cols_left_ >= diag_cols_m) return;  // nothing printed on this object
  cols_left_ = diag_cols_m;
  std::fputc('\n', fp());
  if (info_->severity >= dc_error) ++error_count_m;
  if (info_->severity == dc_fatal) {
    std::fflush(nullptr);
    if (info_->internal) std::abort();
    std::exit(1);
  }
  if (error_count_m > max_errors_m) DIAG::max_errors(static_cast<unsigned>(max_errors_m)).report();
}

size_t last_printable_char(const std::string& text, int n) {
  const size_t last = text.empty() ? 0 : text.size() - 1;
  if (!DIAGNOSTIC::wrap_enabled_m) return last;
  if (n <= 0 || text.size() < static_cast<size_t>(n)) return last;
  size_t p = static_cast<size_t>(n) - 1;
  if (p + 1 < text.size() && is_blank(text[p + 1])) return p;
  size_t q = p + 1;
  while (q > 0 && !is_blank(text[q - 1])) --q;
  if (q == 0) return 0;  // no white space before p
  --q;                   // q is the nearest white space
  while (q > 0 && is_blank(text[q])) --q;
  return q;
}

void print_formatted(FILE* out, const std::string& text, int& cols_left, int cols, int indent,
                     int wrap_indent) {
  if (cols <= indent + wrap_indent) {
    std::fprintf(stderr, "Assertion failed: diag_cols > (indent + wrap_indent)\n");
    std::abort();
  }
  const int width = cols - indent - wrap_indent;
  size_t pos = 0;
  while (pos < text.size()) {
    const std::string rest = text.substr(pos);
    size_t end = last_printable_char(rest, cols_left);
    if (end == 0) {
      const size_t fresh = last_printable_char(rest, width);
      if (fresh > 0) {  // the word fits on a fresh line
        new_line(out, cols_left, cols, indent, wrap_indent);
        end = fresh;
      }
    }
    size_t piece = end + 1;
    if (end == 0) {  // no word boundary: break the word
      const long fit = cols_left > 0 ? cols_left : 1;
      piece = std::min(rest.size(), static_cast<size_t>(fit));
    }
    size_t next = pos + piece;
    const size_t feed = rest.find('\n');
    if (feed != std::string::npos && feed < piece) {
      piece = feed;
      next = pos + feed + 1;
    }
    std::fwrite(rest.data(), 1, piece, out);
    cols_left -= static_cast<int>(piece);
    pos = next;
    if (pos >= text.size()) break;
    while (pos < text.size() && is_blank(text[pos])) ++pos;
    if (pos >= text.size()) break;
    new_line(out, cols_left, cols, indent, wrap_indent);
  }
}
