// Stream templates: fitting an access pattern into the dimensions of a
// streaming engine or address generator, sharing generators between equal
// patterns, and the configuration, open and close instructions.
#include "translate/stream.h"

#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vpexpr.h"
#include "options/register_option.h"
#include "translate/loop.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"
#include "translate/tmem.h"

register_option disable_se("disable:se");

namespace {

const VPEXPR* constant(int64_t value) { return kernel_new<VPEXPR>(value, VPEXPR::EVAL_SIGNED); }

}  // namespace

bool TINSTR::is_seopen() const { return dynamic_cast<const SE_OPEN*>(this) != nullptr; }
bool TINSTR::is_seclose() const { return dynamic_cast<const SE_CLOSE*>(this) != nullptr; }
bool TINSTR::is_saopen() const { return dynamic_cast<const SA_OPEN*>(this) != nullptr; }
bool TINSTR::is_saclose() const { return dynamic_cast<const SA_CLOSE*>(this) != nullptr; }

STREAM_TEMPLATE::STREAM_TEMPLATE(TCMD* cmd, int32_t id, int32_t kind)
    : id(id), cmd(cmd), kind(kind) {
  reset();
}

void STREAM_TEMPLATE::reset() {
  in_use = false;
  nelem = 1;
  open_instr = nullptr;
  advance_instr = nullptr;
  init = nullptr;
  dim.fill(VPEXPR::zero);
  icnt.fill(VPEXPR::one);
}

bool STREAM_TEMPLATE::qualify(TINSTR* instr, AGEN* agen) {
  if (disable_se != 0 || !instr->can_use_stream(*this)) return false;
  const LOOP* loop = instr->block->loop();
  const VPEXPR* inner = loop->stride(agen);

  type = instr->elem_type();
  nelem = instr->nelem();
  const int64_t size = type.bits / 8;
  dim[0] = constant(size);
  const VPEXPR* count = constant(nelem);

  int n;
  if (is_se() && instr->is_tvload() && static_cast<const TVLOAD*>(instr)->dist == 5) {
    icnt[0] = count;
    dim[1] = dim[0];
    icnt[1] = VPEXPR::two;
    n = 2;
  } else {
    if (inner->is_const() && inner->value64() == size * nelem) {
      icnt[0] = VPEXPR::product(count, loop->tripcount());  // contiguous inner loop
      loop = loop->parent;
    } else {
      icnt[0] = count;
    }
    n = 1;
  }

  // Each loop out to the anchoring loop adds a dimension, or widens the
  // last one when neither moves through memory.
  for (; loop; loop = loop->parent) {
    if (loop == cmd->top_loop) return true;
    if (n > max_dims - 1) return false;
    const VPEXPR* c = loop->tripcount();
    const VPEXPR* s = loop->stride(agen);
    if (s->is_const() && s->value64() == 0 && dim[n - 1]->is_const() &&
        dim[n - 1]->value64() == 0) {
      icnt[n - 1] = VPEXPR::product(icnt[n - 1], c);
    } else {
      dim[n] = s;
      icnt[n] = c;
      ++n;
    }
  }
  return false;  // the access stands outside the anchoring loop
}

std::string STREAM_TEMPLATE::format_dims() const {
  const std::string elem_size = std::to_string(type.bits / 8);
  std::string text = icnt[0]->text;
  for (int k = 1; k < max_dims; ++k)
    text += ", " + dim[k]->text + "/" + elem_size + ", " + icnt[k]->text;
  return text;
}

std::string STREAM_TEMPLATE::transpose_word() const {
  return mode == 10 ? "TRANSPOSE_ON" : "TRANSPOSE_OFF";
}

void STREAM_TEMPLATE::make_init(const char* type_name, const std::string& text) {
  auto* expr = kernel_new<VPEXPR>(text);
  expr->eval_type = VPEXPR::EVAL_SYMBOLIC;
  for (int k = 0; k < max_dims; ++k) {
    expr->merge_parm_refs(dim[k]);
    expr->merge_parm_refs(icnt[k]);
  }
  init = kernel_new<TEXPR>(*cmd, type_name, expr);
}

void SE_TEMPLATE::generate_init() {
  if (init) return;
  const std::string t = type.get_name();
  make_init("__SE_TEMPLATE_v1", "SE_init<" + t + ", zelt_load<" + t + ", " +
                                    TVLOAD::dist_word(mode) + ">, " + transpose_word() +
                                    ">::apply(" + format_dims() + ")");
}

void SE_TEMPLATE::generate_setup(TINSTR* instr) {
  if (open_instr) return;
  LOOP* top = cmd->top_loop;
  LOOP* nested = top->nested_loop();
  BBLOCK* last = top->last_block();
  if (!nested || !last) return;  // an engine always has a loop below the anchor
  open_instr = kernel_new<SE_OPEN>(this, instr->base());
  nested->init_block->add_tinstr_back(open_instr);
  last->add_tinstr_front(kernel_new<SE_CLOSE>(this));
}

void SA_TEMPLATE::generate_init() {
  if (init) return;
  make_init("__SA_TEMPLATE_v1", "SA_init<" + type.get_name() + ", " + std::to_string(nelem) +
                                    ", " + transpose_word() + ">::apply(" + format_dims() + ")");
}

void SA_TEMPLATE::generate_setup(TINSTR*) {
  if (open_instr) return;
  LOOP* top = cmd->top_loop;
  BBLOCK* last = top->last_block();
  if (!last) return;
  open_instr = kernel_new<SA_OPEN>(this);
  top->entry_block->add_tinstr_back(open_instr);
  last->add_tinstr_front(kernel_new<SA_CLOSE>(this));
}

bool SA_TEMPLATE::matches(const SA_TEMPLATE& other) const {
  if (nelem != other.nelem || type.bits != other.type.bits ||
      type.is_signed != other.type.is_signed)
    return false;
  for (int k = 0; k < max_dims; ++k)
    if (icnt[k]->text != other.icnt[k]->text || dim[k]->text != other.dim[k]->text) return false;
  return true;
}

void SA_TEMPLATE::copy(const SA_TEMPLATE& other) {
  kind = other.kind;
  nelem = other.nelem;
  type = other.type;
  dim = other.dim;
  icnt = other.icnt;
}

SE_TEMPLATE* SE_TABLE::at(size_t id) {
  if (!templates[id]) templates[id] = std::make_unique<SE_TEMPLATE>(&cmd, static_cast<int32_t>(id));
  return templates[id].get();
}

SE_TEMPLATE* SE_TABLE::allocate_se() {
  for (size_t id = 0; id < templates.size(); ++id)
    if (SE_TEMPLATE* t = at(id); !t->in_use) {
      t->reset();
      return t;
    }
  return nullptr;
}

SA_TEMPLATE* SA_TABLE::at(size_t id) {
  if (!templates[id])
    templates[id] = std::make_unique<SA_TEMPLATE>(&cmd, static_cast<int32_t>(id), 2);
  return templates[id].get();
}

SA_TEMPLATE* SA_TABLE::allocate_sa(const SA_TEMPLATE& t) {
  SA_TEMPLATE* shared = nullptr;  // same pattern, other kind; taken only when all are in use
  for (auto& slot : templates) {
    if (!slot || !slot->in_use || !slot->matches(t)) continue;
    if (slot->kind == t.kind) return slot.get();
    if (slot->kind != 3 && t.kind != 3) shared = slot.get();
  }
  for (size_t id = 0; id < templates.size(); ++id)
    if (SA_TEMPLATE* slot = at(id); !slot->in_use) {
      slot->copy(t);
      return slot;
    }
  return shared;
}

void SE_OPEN::format(TEXT_OUT& out) const {
  INDENT::indent(out) << "__SE" << stream_->id << "_OPEN(" << base_->ref(true) << ", "
                      << stream_->init->ref(true) << ");\n";
}

void SA_OPEN::format(TEXT_OUT& out) const {
  INDENT::indent(out) << "__SA" << stream_->id << "_OPEN(" << stream_->init->ref(true) << ");\n";
}

void SE_CLOSE::format(TEXT_OUT& out) const {
  INDENT::indent(out) << "__SE" << stream_->id << "_CLOSE();\n";
}

void SA_CLOSE::format(TEXT_OUT& out) const {
  INDENT::indent(out) << "__SA" << stream_->id << "_CLOSE();\n";
}
