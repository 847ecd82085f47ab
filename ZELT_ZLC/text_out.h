// Generated text on its way to an output stream: collected in memory and
// handed to the stream in large pieces, with the indentation level and the
// memory of the last blank line that belong to the text.
#ifndef ZLC_ZELT_ZLC_TEXT_OUT_H
#define ZLC_ZELT_ZLC_TEXT_OUT_H

#include <charconv>
#include <concepts>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

class TEXT_OUT {
 public:
  explicit TEXT_OUT(std::ostream& stream) : out(stream) { held.reserve(hold_limit); }
  // What is still held goes to the stream.
  ~TEXT_OUT() { flush(); }
  TEXT_OUT(const TEXT_OUT&) = delete;
  TEXT_OUT& operator=(const TEXT_OUT&) = delete;

  TEXT_OUT& operator<<(std::string_view text) {
    held.append(text);
    if (held.size() >= hold_limit) flush();
    return *this;
  }
  TEXT_OUT& operator<<(const char* text) { return *this << std::string_view(text); }
  TEXT_OUT& operator<<(const std::string& text) { return *this << std::string_view(text); }
  TEXT_OUT& operator<<(char c) { return *this << std::string_view(&c, 1); }
  // Integers in decimal, as a stream prints them; what a stream would print
  // otherwise has no place here.
  template <std::integral T>
    requires(!std::same_as<T, char> && !std::same_as<T, bool> && !std::same_as<T, signed char> &&
             !std::same_as<T, unsigned char>)
  TEXT_OUT& operator<<(T value) {
    char digits[24];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value);
    return *this << std::string_view(digits, static_cast<size_t>(end - digits));
  }

  TEXT_OUT& operator<<(bool) = delete;
  TEXT_OUT& operator<<(signed char) = delete;
  TEXT_OUT& operator<<(unsigned char) = delete;
  TEXT_OUT& operator<<(double) = delete;

  // Hands what is held to the stream.
  void flush();
  // The characters written so far, held ones included.
  size_t position() const { return handed + held.size(); }
  std::ostream& stream() const { return out; }

  long level = 0;              // of indentation
  size_t after_blank_line = 0; // one more than the position after the last blank line, 0 for none

 private:
  static constexpr size_t hold_limit = size_t{1} << 16;

  std::ostream& out;
  std::string held;
  size_t handed = 0;
};

// The generated source and the generated header: the driver's `outfile`
// and `header_file`, each through one writer for the whole run.
TEXT_OUT& source_text();
TEXT_OUT& header_text();
// Hands what the writers made so far hold to their streams; makes none.
void flush_text_outputs();

#endif
