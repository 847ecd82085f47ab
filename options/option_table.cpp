// The rows of the option table and what each option does when it is given.
#include "options/option_table.h"

#include <strings.h>

#include <cstdio>
#include <cstdlib>

#include "DIAG/diag.h"
#include "ZELT_ZLC/driver.h"
#include "options/register_option.h"
#include "support/cmdfile.h"
#include "support/identity.h"

namespace {

constexpr std::span<const option_item> no_items{};

constexpr long diag_wrap_off = 1;
constexpr option_item diag_wrap_items[] = {{"+on", 2}, {"+off", diag_wrap_off}};
constexpr option_item zelt_simd_items[] = {{"+8", 4}, {"+16", 3}};

// The argument that the word just recognised has stored.
const char* newest(const option_obj& opts, option_obj::option_id id) {
  return opts.getstrarg(id, static_cast<unsigned>(opts.args[id].size() - 1));
}

void act_cmd_file(option_obj& opts, option_obj::option_id id) { open_cmd_file(newest(opts, id)); }

void act_debug(option_obj& opts, option_obj::option_id id) {
  process_debug_option("debug", newest(opts, id));
}

void act_disable(option_obj& opts, option_obj::option_id id) {
  process_debug_option("disable", newest(opts, id));
}

void act_define(option_obj& opts, option_obj::option_id id) { add_predef_sym(newest(opts, id)); }

void act_undefine(option_obj& opts, option_obj::option_id id) { rem_predef_sym(newest(opts, id)); }

void act_include_path(option_obj& opts, option_obj::option_id id) {
  add_user_path(newest(opts, id));
}

// "on" leaves wrapping as it is, so a later "on" doesn't undo an "off".
void act_diag_wrap(option_obj& opts, option_obj::option_id id) {
  if (opts.getnumarg(id, 0) == diag_wrap_off) DIAGNOSTIC::wrap_enabled_m = false;
}

void act_display_error_number(option_obj&, option_obj::option_id) {
  DIAGNOSTIC::display_code_m = true;
}

void act_no_warnings(option_obj&, option_obj::option_id) { DIAGNOSTIC::warnings_m = false; }

void act_toolversion(option_obj&, option_obj::option_id) {
  print_toolversion(stdout);
  std::exit(0);
}

// The word after a usage option is taken before the usage text ends the run.
void act_usage(option_obj&, option_obj::option_id) {
  if (option_obj::next_arg) option_obj::next_arg();
  option_obj::display_option_help();
}

}  // namespace

const std::array<option_definition, option_obj::num_options> option_definitions = {{
#define OPTION(NAME, TYPE, PARSE, PARM_NAME, ITEMS, DEFAULT, ACTION, ...) \
  {TYPE, parse_kind::PARSE, PARM_NAME, ITEMS, DEFAULT, ACTION, {__VA_ARGS__}},
#include "options/options.def"
#undef OPTION
}};

const option_item* match_item(std::span<const option_item> items, const char* text,
                              const char* option_name) {
  for (const option_item& item : items) {
    if (strcasecmp(item.text + 1, text) != 0) continue;
    if (item.text[0] == '*')
      std::fprintf(stderr,
                   "WARNING: argument '%s' to option '%s' is deprecated and will be removed in a "
                   "future release\n",
                   text, option_name);
    return &item;
  }
  return nullptr;
}

std::string listed_items(std::span<const option_item> items) {
  std::string list;
  for (const option_item& item : items) {
    if (item.text[0] != '+') continue;
    if (!list.empty()) list += ',';
    list += item.text + 1;
  }
  return list;
}
