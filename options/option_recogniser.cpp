// Recognition of one command-line word: the option's name, its argument, and
// the effects of the option in the order the tool has always applied them.
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "DIAG/diag.h"
#include "options/option_table.h"
#include "options/optobj.h"

namespace {

// Names match regardless of case by setting bit 5 on both sides; "_" and ":"
// must match exactly.
char fold(char c) { return c == '_' || c == ':' ? c : static_cast<char>(c | 32); }

struct name_match {
  option_obj::option_id id;
  unsigned form;    // index of the spelling
  const char* end;  // first character behind the name
};

// The option whose name, written without its first dash, begins `word`.
// Names must be complete; as no name begins another, at most one fits.
// Without a fit, `stop` gets the first character at which no name goes on.
std::optional<name_match> match_name(const char* word, const char*& stop) {
  stop = word;
  for (unsigned id = 0; id < option_obj::num_options; ++id) {
    const auto& spellings = option_definitions[id].spellings;
    for (unsigned form = 0; form < max_spellings && spellings[form]; ++form) {
      const char* name = spellings[form] + 1;
      const char* p = word;
      for (; *name && *p && fold(*p) == fold(*name); ++p, ++name) {
      }
      if (!*name) return name_match{static_cast<option_obj::option_id>(id), form, p};
      if (p > stop) stop = p;
    }
  }
  return std::nullopt;
}

[[noreturn]] void missing_parameter(const std::string& typed, const option_definition& def) {
  DIAG::optgen_missing_parameter(typed, def.parm_name).report();
  std::exit(1);
}

// The argument of a string option, from the rest of the word or, for a
// required one, from the next word.  A required argument that is missing
// ends the run; an optional one that is left out gives the default.
std::string string_argument(const option_definition& def, const char* rest,
                            const std::string& typed) {
  if (def.parse == parse_kind::optional) {
    if (!*rest) return def.default_text;
    if (rest == std::string_view("=")) missing_parameter(typed, def);
  }
  if (*rest == '=') ++rest;
  if (def.parse == parse_kind::required && !*rest) {
    rest = option_obj::next_arg ? option_obj::next_arg() : nullptr;
    if (!rest || !*rest) missing_parameter(typed, def);
  }
  return rest;
}

// The item named by the rest of the word, the default item when the word
// ends with the name.  A value that is no item ends the run.
long item_argument(const option_definition& def, const char* rest, const std::string& typed) {
  if (!*rest) rest = def.default_text;
  if (rest == std::string_view("=")) missing_parameter(typed, def);
  if (*rest == '=') ++rest;
  const option_item* item = match_item(def.items, rest, def.spellings[0]);
  if (!item) {
    DIAG::optgen_bad_argument(def.spellings[0], listed_items(def.items)).report();
    std::exit(1);
  }
  return item->value;
}

// Applies the option that `match` found at `start`.  Returns what is left of
// the word behind a chained flag, or null when the word is used up.
const char* apply_option(option_obj& opts, const name_match& match, const char* start) {
  const option_obj::option_id id = match.id;
  const option_definition& def = option_definitions[id];
  const char* canonical = def.spellings[match.form];
  const std::string typed = "-" + std::string(start, match.end);
  if (typed != canonical)
    DIAG::optgen_case_insensitivity_deprecated(typed, canonical).report();
  opts.form[id] = static_cast<uint8_t>(match.form);

  const char* rest = nullptr;
  switch (def.parse) {
    case parse_kind::chained_flag:
      rest = match.end;
      [[fallthrough]];
    case parse_kind::flag:
      ++opts.parsed[id];
      opts.setopt(id);
      break;
    case parse_kind::required:
    case parse_kind::optional: {
      const std::string value = string_argument(def, match.end, typed);
      ++opts.parsed[id];
      ++opts.state[id];
      ++opts.enabled[id];
      opts.setarg(id, value.c_str());
      break;
    }
    case parse_kind::optional_item: {
      const long value = item_argument(def, match.end, typed);
      ++opts.parsed[id];
      ++opts.state[id];
      ++opts.enabled[id];
      opts.setarg(id, value);
      break;
    }
  }
  if (def.action) def.action(opts, id);
  return rest;
}

// A plain flag must end the word; behind the short spelling of a chained
// flag further short options may follow.
bool must_end_word(const option_definition& def, unsigned form) {
  return def.parse == parse_kind::flag ||
         (def.parse == parse_kind::chained_flag && def.spellings[form][1] == '-');
}

}  // namespace

bool option_obj::process_option(const char* word, const char** bad) {
  while (word && *word) {
    const char* stop = word;
    std::optional<name_match> match = match_name(word, stop);
    if (match && *match->end && must_end_word(option_definitions[match->id], match->form)) {
      stop = match->end;
      match.reset();
    }
    if (!match) {
      if (bad) *bad = stop;
      return false;
    }
    word = apply_option(*this, *match, word);
  }
  return true;
}
