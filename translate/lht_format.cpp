// The generated lines of tables: opening, copying in and out, the size of a
// scatter table, and the lookups and histogram updates of the loop body.
#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/vreg.h"
#include "translate/lht.h"
#include "translate/loop.h"
#include "translate/texpr.h"

namespace {
std::string name_of(const SYMREG* sym) { return sym ? sym->name : std::string(); }
std::string ref_of(const TEXPR* operand) { return operand ? operand->ref(true) : std::string(); }

// " + (int)(agen >> shift)": the generator's byte offset as a table index.
void format_agen_index(TEXT_OUT& out, const AGEN* agen, const LHT_TEMPLATE* lht) {
  if (agen) out << " + (int)(" << agen->name << " >> " << lht->agen_shift() << ")";
}
}  // namespace

bool TINSTR::is_tvlookup() const { return dynamic_cast<const TVLOOKUP*>(this) != nullptr; }
bool TINSTR::is_tvhist() const { return dynamic_cast<const TVHIST*>(this) != nullptr; }
bool TINSTR::is_lht_copyin() const { return dynamic_cast<const LHT_COPYIN*>(this) != nullptr; }
bool TINSTR::is_lht_copyout() const { return dynamic_cast<const LHT_COPYOUT*>(this) != nullptr; }
bool TINSTR::is_lht_open() const { return dynamic_cast<const LHT_OPEN*>(this) != nullptr; }

void LHT_TEMPLATE::format_open(TEXT_OUT& out) const {
  INDENT::indent(out) << template_name() << "::open(" << id << ", " << ref_of(config) << ");\n";
}

void LHT_TEMPLATE::format_copy(TEXT_OUT& out, const char* word, const TEXPR* copy_config,
                               const TEXPR* stream_config) const {
  INDENT::indent(out) << template_name() << "::" << word << "(" << ref_of(table) << ", ";
  if (kind == SCATTER)
    out << name_of(scatter_size_sreg) << ", " << ref_of(copy_config);
  else if (kind == SCATTER_NP1)
    out << ref_of(copy_size) << ", " << ref_of(copy_config);
  else
    out << ref_of(size) << ", " << ref_of(copy_config) << ", " << ref_of(stream_config);
  out << ");\n";
}

void LHT_TEMPLATE::format_copyin(TEXT_OUT& out) const {
  format_copy(out, "copy_table_in", copy_in_config, copy_in_se_config);
}

void LHT_TEMPLATE::format_copyout(TEXT_OUT& out) const {
  format_copy(out, "copy_table_out", copy_out_config, copy_out_sa_config);
}

void LHT_TEMPLATE::format_max_index(TEXT_OUT& out) const {
  INDENT::indent(out) << name_of(max_index_sreg) << " = " << template_name() << "::max_index("
                      << name_of(index_reg) << ");\n";
}

void LHT_TEMPLATE::format_scatter_size(TEXT_OUT& out) const {
  INDENT::indent(out) << name_of(scatter_size_sreg) << " = " << template_name()
                      << "::scatter_size(" << ref_of(max_agen) << ", "
                      << name_of(max_index_sreg) << ", " << ref_of(max_sub_base_offset)
                      << ");\n";
}

void TVLOOKUP::format(TEXT_OUT& out) const {
  INDENT::indent(out) << lht_->template_name() << "::lookup(" << name_of(dst) << ", "
                      << name_of(index);
  format_agen_index(out, agen_, lht_);
  out << ");\n";
}

std::vector<VREG*> TVHIST::src_regs() const {
  if (weight) return {data, weight};
  return {data};
}

void TVHIST::format(TEXT_OUT& out) const {
  INDENT::indent(out) << lht_->template_name()
                      << (weight ? "::whist_update(" : "::hist_update(") << name_of(dst) << ", "
                      << name_of(data);
  format_agen_index(out, agen_, lht_);
  if (weight) out << ", " << weight->name;
  out << ");\n";
}
