// Loops, blocks, scopes and declarations of a translated vector loop, and
// the indentation of generated text.
#include "translate/loop.h"

#include <algorithm>

#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vblock.h"
#include "ZELT_ZLC/vpexpr.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"
#include "translate/tkernel.h"
#include "translate/tmem.h"

TEXT_OUT& INDENT::indent(TEXT_OUT& out) {
  for (long n = out.level; n > 0; --n) out << "   ";
  return out;
}

void INDENT::raise(TEXT_OUT& out) { ++out.level; }

void INDENT::lower(TEXT_OUT& out) {
  if (out.level > 0) --out.level;
}

void INDENT::reset(TEXT_OUT& out) { out.level = 0; }

void INDENT::open(TEXT_OUT& out) {
  indent(out) << "{\n";
  raise(out);
}

void INDENT::close(TEXT_OUT& out) {
  lower(out);
  indent(out) << "}\n";
}

void INDENT::blankline(TEXT_OUT& out) {
  const size_t position = out.position();
  if (out.after_blank_line == position + 1) return;
  out << '\n';
  out.after_blank_line = position + 2;
}

TKERNEL* TDECL::kernel() const { return scope->kernel; }

void TDECL::format(TEXT_OUT& out) const {
  INDENT::indent(out) << type << ' ' << name;
  if (init) out << " = " << pexpr_text(init);
  out << ";\n";
}

bool TDECL::less_by_type(const TDECL* a, const TDECL* b) {
  if (a->type != b->type) return a->type < b->type;
  return a->name < b->name;
}

bool TDECL::less_by_seq(const TDECL* a, const TDECL* b) { return a->seq < b->seq; }

TDECL* SCOPE::add(const std::string& type, const std::string& name, const VPEXPR* init) {
  auto it = decls.find(name);
  if (it != decls.end()) return it->second;
  auto* decl = kernel_new<TDECL>(this, next_seq++, type, name, init);
  decls.emplace(name, decl);
  return decl;
}

TDECL* SCOPE::lookup(const std::string&, const std::string& name) const {
  auto it = decls.find(name);
  return it == decls.end() ? nullptr : it->second;
}

void SCOPE::remove(const std::string&, const std::string& name) { decls.erase(name); }

void SCOPE::format_declarations(TEXT_OUT& out,
                                bool (*less)(const TDECL*, const TDECL*)) const {
  if (decls.empty()) return;
  std::vector<const TDECL*> sorted;
  for (const auto& [name, decl] : decls) sorted.push_back(decl);
  std::stable_sort(sorted.begin(), sorted.end(), less);
  for (const TDECL* decl : sorted) decl->format(out);
  INDENT::blankline(out);
}

LOOPNODE::LOOPNODE(TCMD& cmd, LOOP* parent)
    : cmd(cmd), parent(parent), depth(parent ? parent->depth + 1 : 0) {
  if (parent) parent->add_member(this);
}

int32_t BBLOCK::id_counter = 0;

BBLOCK::BBLOCK(TCMD& cmd, LOOP* parent) : LOOPNODE(cmd, parent), id(id_counter++) {}

void BBLOCK::format(TEXT_OUT& out) const {
  for (const TINSTR* instr : instrs) instr->format(out);
}

void BBLOCK::add_tinstr_back(TINSTR* instr) { add_tinstr(instrs.end(), instr); }

void BBLOCK::add_tinstr_front(TINSTR* instr) { add_tinstr(instrs.begin(), instr); }

void BBLOCK::add_tinstr(std::list<TINSTR*>::iterator position, TINSTR* instr) {
  instrs.insert(position, instr);
  instr->block = this;
}

void BBLOCK::add_tinstr_after(const TINSTR* after, TINSTR* instr) {
  auto it = std::find(instrs.begin(), instrs.end(), after);
  add_tinstr(it == instrs.end() ? it : std::next(it), instr);
}

void BBLOCK::add_edge(BBLOCK* to) {
  if (std::find(succ.begin(), succ.end(), to) != succ.end()) return;
  succ.push_back(to);
  to->pred.push_back(this);
}

std::string BBLOCK::name() const { return "b" + std::to_string(id); }

LOOP::LOOP(TCMD& cmd)
    : LOOPNODE(cmd, nullptr), decls(&cmd.kernel), tval_decls(&cmd.kernel) {}

LOOP::LOOP(TCMD& cmd, LOOP* parent, VBLOCK* vblock, BBLOCK* init_block, TEXPR* count,
           std::string lcv)
    : LOOPNODE(cmd, parent),
      vblock(vblock),
      decls(&cmd.kernel),
      tval_decls(&cmd.kernel),
      count(count),
      lcv(std::move(lcv)),
      init_block(init_block) {}

void LOOP::format_header(TEXT_OUT& out) const {
  if (lcv.empty()) return;
  INDENT::blankline(out);
  INDENT::indent(out) << "#pragma MUST_ITERATE(1,65535,)\n";
  INDENT::indent(out) << "#pragma PARALLEL_LOOP\n";
  INDENT::indent(out) << "for (" << lcv << " = 0; " << lcv << " < " << count->ref(true) << "; ++"
                      << lcv << ")\n";
  INDENT::open(out);
}

void LOOP::format(TEXT_OUT& out) const {
  format_header(out);
  tval_decls.format_declarations(out, TDECL::less_by_seq);
  decls.format_declarations(out, TDECL::less_by_type);
  for (const LOOPNODE* member : members) member->format(out);
  if (!lcv.empty()) INDENT::close(out);
  if (!exit_label.empty()) out << exit_label << ": ;\n";
}

TDECL* LOOP::find_tdecl(const std::string& type, const std::string& name) const {
  for (const LOOP* loop = this; loop; loop = loop->parent)
    if (TDECL* decl = loop->decls.lookup(type, name)) return decl;
  return cmd.kernel.scope.lookup(type, name);
}

void LOOP::add_tdecl(const std::string& type, const std::string& name, const VPEXPR* init) {
  if (find_tdecl(type, name)) return;
  for (LOOPNODE* member : members)
    if (member->is_loop()) static_cast<LOOP*>(member)->decls.remove(type, name);
  if (cmd.kernel.lookup_vreg(name))
    cmd.kernel.scope.add(type, name, init);
  else
    decls.add(type, name, init);
}

const VPEXPR* LOOP::stride(const AGEN* a) const {
  size_t index = vblock ? static_cast<size_t>(vblock->depth + 1) : 0;
  if (index >= a->strides.size() || !a->strides[index]) return VPEXPR::zero;
  return a->strides[index];
}

const VPEXPR* LOOP::tripcount() const {
  return vblock && vblock->tripcount ? vblock->tripcount : VPEXPR::one;
}

const VPEXPR* LOOP::incr_expr(const AGEN* a) const {
  const VPEXPR* incr = stride(a);
  if (const LOOP* nested = nested_loop())
    incr = VPEXPR::diff(incr, VPEXPR::product(nested->stride(a), nested->tripcount()));
  return incr;
}

const VPEXPR* LOOP::rewind_expr(const AGEN* a) const {
  const VPEXPR* first = a->strides[0] ? a->strides[0] : VPEXPR::zero;
  return VPEXPR::product(first, tripcount());
}

void LOOP::add_agen_increments(AGEN* a) {
  for (LOOPNODE* member : members)
    if (member->is_loop()) static_cast<LOOP*>(member)->add_agen_increments(a);
  if (is_vcmd()) return;
  const VPEXPR* incr = incr_expr(a);
  if (pexpr_is(incr, 0)) return;
  auto* step = kernel_new<TAINCR>(a, kernel_new<TEXPR>(cmd, "int32_t", incr));
  BBLOCK* last = last_block();
  last->add_tinstr(endloop_pos(), step);
}

LOOP* LOOP::nested_loop() const {
  for (auto it = members.rbegin(); it != members.rend(); ++it)
    if ((*it)->is_loop()) return static_cast<LOOP*>(*it);
  return nullptr;
}

BBLOCK* LOOP::first_block() const {
  for (LOOPNODE* member : members)
    if (member->is_block()) return static_cast<BBLOCK*>(member);
  return nullptr;
}

BBLOCK* LOOP::last_block() const {
  for (auto it = members.rbegin(); it != members.rend(); ++it)
    if ((*it)->is_block()) return static_cast<BBLOCK*>(*it);
  return nullptr;
}

std::list<TINSTR*>::iterator LOOP::endloop_pos() const {
  BBLOCK* last = last_block();
  return std::find_if(last->instrs.begin(), last->instrs.end(),
                      [](const TINSTR* instr) { return instr->is_endloop(); });
}

bool LOOP::is_vcmd() const { return this == cmd.top_loop; }

bool TINSTR::is_beginloop() const { return dynamic_cast<const TBEGINLOOP*>(this) != nullptr; }

bool TINSTR::is_endloop() const { return dynamic_cast<const TENDLOOP*>(this) != nullptr; }
