// Named integer switches that a module defines in one line, for instance
//   static register_option debug_looptype("debug:looptype");
// and that the options --debug: and --disable: set.
#ifndef ZLC_OPTIONS_REGISTER_OPTION_H
#define ZLC_OPTIONS_REGISTER_OPTION_H

#include <cstdint>
#include <map>
#include <string>

class register_option {
 public:
  // Enters the switch under its full name ("debug:..." or "disable:..."),
  // replacing an earlier switch of the same name; the value starts at 0.
  explicit register_option(std::string name);
  ~register_option();
  register_option(const register_option&) = delete;
  register_option& operator=(const register_option&) = delete;

  operator int() const { return value; }
  register_option& operator=(int v) {
    value = v;
    return *this;
  }

  // The switch of that name, or null.
  static register_option* get_option(const std::string& name);

 private:
  // Made on first use, so that switches may register from any module during
  // static initialisation; it doesn't own them.
  static std::map<std::string, register_option*>& objects();

  std::string name;
  int32_t value = 0;
};

// Sets the switches named in a comma-separated `list` within the name space
// `prefix` ("debug" or "disable"): "name" sets 1, "name=N" sets N (decimal,
// octal or hex).  Unknown names are ignored.
void process_debug_option(const char* prefix, const char* list);

#endif
