// Kernel parameters and the parameter table.
#include "ZELT_ZLC/parm.h"

#include <utility>

namespace {

// Numbers parameters across all kernels of the run.
int32_t next_parm_number = 0;

struct VPTR_TYPE_NAME {
  const char* word;
  VDATA_TYPE type;
};

// Searched in this order: the first word found in the type text decides.
constexpr VPTR_TYPE_NAME vptr_type_names[] = {
    {"__vptr_uint8", VDATA_TYPE::uint8},   {"__vptr_int8", VDATA_TYPE::int8},
    {"__vptr_uint16", VDATA_TYPE::uint16}, {"__vptr_int16", VDATA_TYPE::int16},
    {"__vptr_uint32", VDATA_TYPE::uint32}, {"__vptr_int32", VDATA_TYPE::int32},
};

}  // namespace

bool PARM_LESS::operator()(const PARM* a, const PARM* b) const { return a->number < b->number; }

VDATA_TYPE PARM::type() const {
  if (!array_text.empty()) return VDATA_TYPE::untyped;
  for (const VPTR_TYPE_NAME& entry : vptr_type_names)
    if (type_text.find(entry.word) != std::string::npos) return entry.type;
  return VDATA_TYPE::untyped;
}

std::string PARM::declaration() const {
  if (is_array) return type_text + " (*" + name + ")" + array_text;
  return type_text + " " + name + array_text;
}

void PARM::normalize_array_type() {
  size_t arr = type_text.find("_arr");
  if (arr != std::string::npos) {
    type_text.erase(arr);
    is_array = true;
    return;
  }
  if (array_text.find('[') == std::string::npos) return;
  size_t close = array_text.find(']');
  array_text = close == std::string::npos ? "" : array_text.substr(close + 1);
  is_array = true;
}

PARM* PARM_TABLE::new_parm(const DIAG_SRCINFO& srcinfo, const std::string& name, uint32_t flags,
                           const std::string& type_text, const std::string& array_text) {
  PARM* parm = new_sym(srcinfo, name, next_parm_number++);
  parm->type_text = type_text;
  parm->array_text = array_text;
  parm->set_flags(flags);
  parm->normalize_array_type();
  return parm;
}

void PARM_TABLE::format_declarations(const std::string& pblock_name, TEXT_OUT& out,
                                     bool only_update, bool with_block, bool cpp_out) const {
  out << "(";
  bool first = true;
  for (const auto& [number, parm] : by_number) {
    if (only_update && !parm->has_flag(PARM::QF_UPDATE)) continue;
    if (!first) out << ",";
    first = false;
    out << "\n   " << parm->declaration();
  }
  if (with_block) {
    out << ",\n";  // also with no parameter before it
    if (cpp_out)
      out << "   unsigned short* pblock = " << pblock_name;
    else
      out << "   unsigned short pblock[]";
  }
  out << ")";
}

std::string PARM_TABLE::format_args(const std::string& extra) const {
  std::string args = "(";
  const char* sep = "";
  for (const auto& [number, parm] : by_number) {
    args += sep + parm->name;
    sep = ", ";
  }
  if (!extra.empty()) args += ", " + extra;  // also with no parameter before it
  return args + ")";
}

bool PARM_TABLE::has_update_parms() const {
  for (const auto& [number, parm] : by_number)
    if (parm->has_flag(PARM::QF_UPDATE)) return true;
  return false;
}
