// The option object: what the command line asked for, filled word by word.
#ifndef ZLC_OPTIONS_OPTOBJ_H
#define ZLC_OPTIONS_OPTOBJ_H

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <variant>

class option_obj {
 public:
  enum option_id : unsigned {
#define OPTION(NAME, ...) OO_##NAME,
#include "options/options.def"
#undef OPTION
    OO_COUNT
  };
  static constexpr unsigned num_options = OO_COUNT;

  // One argument: a string, or a number (the value of a list item).
  using an_argument_t = std::variant<std::string, long>;

  // All counters start at 0; with `apply_defaults` the option --zelt_simd
  // holds its default "8" as if it had been given.
  explicit option_obj(bool apply_defaults);

  // Recognises one word, given without its first dash, and acts on it.
  // Returns false for a word that names no option, or that has text left
  // behind a plain flag; `bad`, when not null, then gets where recognition
  // stopped.  Options recognised before that point have taken effect.
  bool process_option(const char* word, const char** bad);

  // The argument at `index`: 0 and null while the option holds none.  A list
  // item's number is its value and its string the text that the user types.
  long getnumarg(option_id id, unsigned index) const;
  const char* getstrarg(option_id id, unsigned index) const;

  // Store an argument: one-value options replace it, list options append.
  // An option not yet enabled becomes enabled and counts as set once.
  void setarg(option_id id, const char* text);
  void setarg(option_id id, long value);
  void setopt(option_id id);

  // Prints the usage text and exits with 0.
  [[noreturn]] static void display_option_help();

  std::array<int32_t, num_options> state{};    // how often the option was set
  std::array<uint8_t, num_options> form{};     // spelling used last; 0 is the long name
  std::array<int32_t, num_options> enabled{};  // non-zero once the option holds a value
  std::array<int32_t, num_options> parsed{};   // how often a word named the option
  // A deque keeps the strings of earlier list elements in place.
  std::array<std::deque<an_argument_t>, num_options> args;

  static const char* executable_name;
  // Yields the word after the current one, or null at the end.
  static const char* (*next_arg)();

 private:
  void enable(option_id id);
};

#endif
