// The registry of named debug and disable switches.
#include "options/register_option.h"

#include <cstdlib>
#include <string_view>

namespace {
// Switches that no code reads: accepted by name, without effect.
register_option debug_progress("debug:progress");
register_option debug_parse("debug:parse");
}  // namespace

register_option::register_option(std::string name) : name(std::move(name)) {
  objects()[this->name] = this;
}

register_option::~register_option() {
  auto it = objects().find(name);
  if (it != objects().end() && it->second == this) objects().erase(it);
}

std::map<std::string, register_option*>& register_option::objects() {
  static std::map<std::string, register_option*> map;
  return map;
}

register_option* register_option::get_option(const std::string& name) {
  auto it = objects().find(name);
  return it == objects().end() ? nullptr : it->second;
}

void process_debug_option(const char* prefix, const char* list) {
  std::string_view rest = list ? list : "";
  for (;;) {
    const size_t comma = rest.find(',');
    const std::string_view item = rest.substr(0, comma);
    std::string name = std::string(prefix) + ":";
    int value = 1;
    const size_t eq = item.find('=');
    if (eq != std::string_view::npos) {
      value = static_cast<int>(std::strtol(std::string(item.substr(eq + 1)).c_str(), nullptr, 0));
      name += item.substr(0, eq);
    } else {
      name += item;
    }
    if (register_option* sw = register_option::get_option(name)) *sw = value;
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
}
