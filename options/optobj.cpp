// The option object's storage: counters, arguments and the usage text.
#include "options/optobj.h"

#include <cstdio>
#include <cstdlib>

#include "DIAG/diag.h"
#include "options/option_table.h"
#include "support/fname.h"

const char* option_obj::executable_name = "<toolname>";
const char* (*option_obj::next_arg)() = nullptr;

namespace {

bool is_list_type(int parm_type) { return parm_type == 5; }

}  // namespace

option_obj::option_obj(bool apply_defaults) {
  if (!apply_defaults) return;
  const option_definition& simd = option_definitions[OO_ZELT_SIMD];
  setarg(OO_ZELT_SIMD, match_item(simd.items, simd.default_text, simd.spellings[0])->value);
}

void option_obj::enable(option_id id) {
  if (enabled[id]) return;
  enabled[id] = 1;
  ++state[id];
}

void option_obj::setarg(option_id id, const char* text) {
  if (id >= num_options) return;
  const int type = option_definitions[id].parm_type;
  if (type != 1 && !is_list_type(type))
    DIAG::optgen_unhandled_clause_in_setarg(static_cast<unsigned>(type)).report();
  enable(id);
  if (!is_list_type(type)) args[id].clear();
  args[id].emplace_back(std::string(text ? text : ""));
}

void option_obj::setarg(option_id id, long value) {
  if (id >= num_options) return;
  const int type = option_definitions[id].parm_type;
  if (type != 4) DIAG::optgen_unhandled_clause_in_setarg(static_cast<unsigned>(type)).report();
  enable(id);
  args[id].clear();
  args[id].emplace_back(value);
}

void option_obj::setopt(option_id id) {
  if (id >= num_options) return;
  ++state[id];
  ++enabled[id];
}

long option_obj::getnumarg(option_id id, unsigned index) const {
  if (id >= num_options || !enabled[id] || index >= args[id].size()) return 0;
  const an_argument_t& arg = args[id][index];
  if (const long* value = std::get_if<long>(&arg)) return *value;
  return std::strtol(std::get<std::string>(arg).c_str(), nullptr, 10);
}

const char* option_obj::getstrarg(option_id id, unsigned index) const {
  if (id >= num_options || !enabled[id] || index >= args[id].size()) return nullptr;
  const option_definition& def = option_definitions[id];
  const an_argument_t& arg = args[id][index];
  if (const std::string* text = std::get_if<std::string>(&arg)) return text->c_str();
  for (const option_item& item : def.items)
    if (item.value == std::get<long>(arg)) return item.text + 1;
  return nullptr;
}

void option_obj::display_option_help() {
  const std::string base = fn_basename(executable_name);
  std::printf("Usage: %s [-options] filename\n\n", base.c_str());
  std::printf("This tool is designed to be invoked by the compiler.\n");
  std::exit(0);
}
