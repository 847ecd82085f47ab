// The table of the tool's options: spellings, parameters, values and actions.
#ifndef ZLC_OPTIONS_OPTION_TABLE_H
#define ZLC_OPTIONS_OPTION_TABLE_H

#include <array>
#include <span>
#include <string>

#include "options/optobj.h"

// How a word gives the option its argument.
enum class parse_kind {
  flag,           // none; the word must end with the name
  chained_flag,   // none; behind the short name more short options may follow
  required,       // a string, attached, attached after "=", or the next word
  optional,       // a string, attached only; the default when left out
  optional_item,  // one of the items, attached only; the default when left out
};

// One accepted value of a list option.  The text starts with a mark: "+"
// for a value that messages list, "*" for a deprecated one.
struct option_item {
  const char* text;
  long value;
};

constexpr unsigned max_spellings = 4;

struct option_definition {
  int parm_type;  // 0 nothing, 1 one string, 4 one item value, 5 list of strings
  parse_kind parse;
  const char* parm_name;
  std::span<const option_item> items;
  const char* default_text;
  void (*action)(option_obj& opts, option_obj::option_id id);
  std::array<const char*, max_spellings> spellings;  // long name first; then null
};

extern const std::array<option_definition, option_obj::num_options> option_definitions;

// The item whose text behind its mark equals `text`, ignoring case, or null.
// A deprecated item draws a warning on standard error naming `option_name`.
const option_item* match_item(std::span<const option_item> items, const char* text,
                              const char* option_name);

// The texts of the listed items, joined by commas, as messages show them.
std::string listed_items(std::span<const option_item> items);

#endif
