// Loads, stores, register initialisation, generator reset and increment,
// and moves: their queries, their streams and their generated lines.
#include "translate/tmem.h"

#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vpexpr.h"
#include "ZELT_ZLC/vreg.h"
#include "translate/lht.h"
#include "translate/loop.h"
#include "translate/stream.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"

namespace {
std::string name_of(const SYMREG* sym) { return sym ? sym->name : std::string(); }
}  // namespace

std::string new_collate_ptr() {
  static uint32_t counter = 0;
  return "__collate_ptr_" + std::to_string(counter++);
}

std::string TINSTR::sa_tag() const {
  const STREAM_TEMPLATE* t = stream();
  if (!t) return "nosa";
  return (t->is_se() ? "se" : "sa") + std::to_string(t->id) + (t->advance_instr == this ? "adv" : "");
}

bool TINSTR::is_tvload() const { return dynamic_cast<const TVLOAD*>(this) != nullptr; }
bool TINSTR::is_tvstore() const { return dynamic_cast<const TVSTORE*>(this) != nullptr; }
bool TINSTR::is_tvinit() const { return dynamic_cast<const TVINIT*>(this) != nullptr; }
bool TINSTR::is_tvmove() const { return dynamic_cast<const TVMOVE*>(this) != nullptr; }
bool TINSTR::is_tainit() const { return dynamic_cast<const TAINIT*>(this) != nullptr; }
bool TINSTR::is_taincr() const { return dynamic_cast<const TAINCR*>(this) != nullptr; }

std::string TVLOAD::dist_word(int32_t dist) {
  static const char* const words[] = {"npt",          "onept",  "circ2", "ds2",
                                      "us2",          "deinterleave", "custom", "nbits",
                                      "expand",       "",       "transpose"};
  return dist >= 0 && dist < 11 ? words[dist] : "";
}

std::string TVSTORE::dist_word(int32_t dist) {
  static const char* const words[] = {"npt",       "onept",      "ds2",       "interleave",
                                      "offset_np1", "collate_",  "s_scatter", "p_scatter",
                                      "skip",      "table_npt",  "transpose", "lut_pdda",
                                      "lut_offset_np1"};
  return dist >= 0 && dist < 13 ? words[dist] : "";
}

bool TVLOAD::can_use_stream(STREAM_TEMPLATE&) const { return dist != 7 && dist != 8 && !circ; }

void TVLOAD::use_stream(STREAM_TEMPLATE* t) {
  t->in_use = true;
  if (t->is_se()) t->mode = dist;
  stream_ = t;
  agen_ = nullptr;
}

unsigned TVLOAD::nelem() const {
  unsigned w = static_cast<unsigned>(zelt_simd_width);
  switch (dist) {
    case 1: return 1;
    case 2: return 2;
    case 3: case 5: return 2 * w;
    case 4: return w / 2;
    case 6: return 8;
    case 7: case 8: case 10: return 0;
    default: return w;
  }
}

std::vector<VREG*> TVLOAD::dst_regs() const {
  if (dst2) return {dst, dst2};
  return {dst};
}

// The address argument of a load or a plain store; none for an engine,
// which was given its address when it opened.
void TVMEM::format_address(TEXT_OUT& out) const {
  if (circ)
    out << ", (void*)circ(" << base_->ref(true) << ", " << name_of(agen_) << ", " << circ << ")";
  else if (stream_ && stream_->is_sa())
    out << ", (void*)(" << base_->ref(false) << ")";
  else if (agen_)
    out << ", (void*)((char*)" << base_->ref(false) << " + " << agen_->name << ")";
}

void TVLOAD::format(TEXT_OUT& out) const {
  INDENT::indent(out) << "zelt_load<" << type.get_name() << ", " << dist_word(dist) << ", "
                      << sa_tag() << ">::" << (stream_ && stream_->is_se() ? "SE_load(" : "load(")
                      << name_of(dst);
  if (dist == 8) {
    out << ", " << collate_ptr << ", " << name_of(flags) << ");\n";
    return;
  }
  if (dist == 5) out << ", " << name_of(dst2);
  format_address(out);
  if (dist == 6) out << ", " << custom->ref(true);
  out << ");\n";
}

bool TVSTORE::can_use_stream(STREAM_TEMPLATE& t) const { return !t.is_se() && !circ && dist != 5; }

void TVSTORE::use_stream(STREAM_TEMPLATE* t) {
  t->in_use = true;
  stream_ = t;
  agen_ = nullptr;
  t->mode = dist;
}

unsigned TVSTORE::nelem() const {
  unsigned w = static_cast<unsigned>(zelt_simd_width);
  switch (dist) {
    case 1: case 4: case 10: case 12: return 1;
    case 2: return w / 2;
    case 3: case 8: return 2 * w;
    case 5: return 0;
    case 6: case 7: case 11: return 8;
    case 9: return lht_ ? lht_->elements_per_lookup() : w;
    default: return w;
  }
}

std::vector<VREG*> TVSTORE::src_regs() const {
  std::vector<VREG*> regs;
  for (VREG* reg : {src, src2, scatter, pred})
    if (reg) regs.push_back(reg);
  return regs;
}

// The address of a table write: the generator, or the stream's pointer,
// and the offset of the reference.
void TVSTORE::format_table_location(TEXT_OUT& out) const {
  if (stream_)
    out << "(long long)SAptr<" << type.get_name() << "," << sa_tag() << ">(NULL).addr()";
  else
    out << name_of(agen_);
  if (offset && !pexpr_is(offset->pexpr, 0)) out << " + " << offset->ref(true);
}

void TVSTORE::format(TEXT_OUT& out) const {
  if (dist == 11 || dist == 12) {
    INDENT::indent(out) << (lht_ ? lht_->template_name() : std::string())
                        << (dist == 11 ? "::scatter(" : "::offset_np1(") << name_of(src) << ", ";
    format_table_location(out);
    if (dist == 11) out << ", " << name_of(scatter);
    out << ");\n";
    return;
  }
  INDENT::indent(out) << "zelt_store<" << type.get_name() << ", " << dist_word(dist) << ", "
                      << sa_tag();
  if (dist == 9) out << ", " << (lht_ ? lht_->elements_per_lookup() : 0);
  out << ">::";
  if (dist == 5) {
    out << "store(" << name_of(src) << ", " << collate_ptr << ", " << name_of(pred) << ");\n";
    return;
  }
  out << (pred ? "store_pred" : "store") << "(" << name_of(src);
  if (dist == 3) out << ", " << name_of(src2);
  format_address(out);
  if (dist == 6 || dist == 7) out << ", " << name_of(scatter);
  if (pred) out << ", " << pred->name;
  out << ");\n";
}

void TVINIT::format(TEXT_OUT& out) const {
  INDENT::indent(out) << reg->name << " = (__vector)((int)" << value->ref(true) << ");\n";
}

void TAINIT::format(TEXT_OUT& out) const { INDENT::indent(out) << agen_->name << " = 0;\n"; }

void TAINCR::format(TEXT_OUT& out) const {
  INDENT::indent(out) << agen_->name << " += " << incr->ref(true) << ";\n";
}

bool TVMOVE::is_conditional() const { return vmove && !vmove->cond.empty(); }

std::vector<VREG*> TVMOVE::src_regs() const {
  if (is_conditional()) return {src, dst};
  return {src};
}

void TVMOVE::format(TEXT_OUT& out) const {
  bool conditional = is_conditional();
  if (conditional) {
    INDENT::indent(out) << "if (";
    const char* sep = "";
    for (const auto& [lcv, value] : vmove->conds) {
      out << sep;
      sep = " && ";
      if (vmove->pos == VMOVE::MP_TRIPCOUNT) {
        const LOOP* loop = block->cmd.find_loop(lcv);
        out << "__last(" << lcv << "," << (loop ? loop->count->ref(true) : pexpr_text(value))
            << ")";
      } else {
        out << "__first(" << lcv << ")";
      }
    }
    out << ")\n";
    INDENT::raise(out);
  }
  INDENT::indent(out) << dst->name << " = " << src->name << ";\n";
  if (conditional) INDENT::lower(out);
}
