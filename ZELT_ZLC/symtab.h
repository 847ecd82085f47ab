// The base of every named thing of a kernel, and the table that holds them
// by name and by number.
#ifndef ZLC_ZELT_ZLC_SYMTAB_H
#define ZLC_ZELT_ZLC_SYMTAB_H

#include <cstdint>
#include <algorithm>
#include <map>
#include <string>
#include <string_view>

#include "DIAG/diag.h"
#include "ZELT_ZLC/kernel_objects.h"

class SYMREG {
 public:
  SYMREG(const DIAG_SRCINFO& srcinfo, std::string name, int32_t number = -1);
  virtual ~SYMREG() = default;

  // The prefix, then "(" number ")": "_VREG(3)".
  virtual std::string format() const;
  virtual std::string format_prefix() const;

  // -1 and -2 both stand for "no number yet".
  bool is_unassigned() const { return number == -1 || number == -2; }

  DIAG_SRCINFO_DATA srcinfo;  // where it was declared
  std::string name;
  int32_t number;
};

// The order of names in the tables: that of std::string, compared inline,
// as names are short and most differ in their first characters.  Looks up
// names given as any string view without making a string.
struct NAME_LESS {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const {
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i)
      if (a[i] != b[i]) return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[i]);
    return a.size() < b.size();
  }
};

// Named objects of type T, which derives from SYMREG and is constructible
// from (const DIAG_SRCINFO&, const std::string&) with number -1.  Objects
// are allocated here and live to the end of the run.
template <typename T>
class SYM_TABLE {
 public:
  // Makes and enters a new object.  A name that is already taken keeps its
  // old entry: the new object is then unreachable by name, and the caller,
  // who checks for duplicates itself, still gets it.  A number other than -1
  // is stored in the object and enters or replaces the number map's entry.
  T* new_sym(const DIAG_SRCINFO& srcinfo, const std::string& name, int32_t number) {
    T* sym = kernel_new<T>(srcinfo, name);
    by_name.emplace(name, sym);
    if (number != -1) {
      sym->number = number;
      by_number[number] = sym;
    }
    return sym;
  }

  // The object of that name, or null.
  T* lookup(std::string_view name) const {
    auto it = by_name.find(name);
    return it == by_name.end() ? nullptr : it->second;
  }

  std::map<std::string, T*, NAME_LESS> by_name;
  std::map<int32_t, T*> by_number;
};

#endif
