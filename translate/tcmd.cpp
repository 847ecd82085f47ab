// Building the tree of a translated vector loop from the model's blocks,
// dispatching its instructions, and choosing the addressing of its accesses.
#include "translate/tcmd.h"

#include <algorithm>
#include <iostream>

#include "ZELT_ZLC/agen.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vblock.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vpexpr.h"
#include "translate/stream.h"
#include "translate/texpr.h"
#include "translate/tkernel.h"
#include "translate/tmem.h"
#include "translate/tvexit.h"

uint32_t TCMD::id_counter = 0;

TCMD::TCMD(TKERNEL& kernel, VCMD* vcmd)
    : kernel(kernel),
      vcmd(vcmd),
      se_table(*this),
      sa_table(*this),
      lht_table(*this),
      root_loop(*this),
      top_loop(&root_loop),
      rpt_max(static_cast<uint32_t>(vcmd->rpt_max())),
      tvals(kernel, *this),
      id(id_counter++) {
  new_bblock_append(&root_loop);
}

BBLOCK* TCMD::new_bblock_append(LOOP* loop) {
  auto* block = kernel_new<BBLOCK>(*this, loop);
  if (!blocks.empty()) blocks.back()->add_edge(block);
  blocks.push_back(block);
  return block;
}

BBLOCK* TCMD::new_bblock(LOOP* loop) { return kernel_new<BBLOCK>(*this, loop); }

void TCMD::append_tinstr(TINSTR* instr) { blocks.back()->add_tinstr_back(instr); }

void TCMD::translate_vblock(VBLOCK* block, LOOP* loop) {
  if (block != &vcmd->root) {
    translate_loop(block, loop);
    return;
  }
  loop->init_block = new_bblock_append(loop);
  loop->entry_block = new_bblock_append(loop);
  new_bblock_append(loop);
  translate_children(block, loop);
  loop->cleanup_block = new_bblock_append(loop);
}

void TCMD::translate_children(VBLOCK* block, LOOP* loop) {
  for (VINSTR* child : block->instrs) {
    if (child->is_vblock())
      translate_vblock(static_cast<VBLOCK*>(child), loop);
    else
      translate_vinstr(*child);
  }
}

void TCMD::translate_loop(VBLOCK* block, LOOP* loop) {
  // A loop header that failed to parse leaves no count; such a kernel has
  // already been reported and its output will be removed.
  const VPEXPR* tripcount = block->tripcount ? block->tripcount : VPEXPR::one;
  bool repeat = block->depth == -1;
  TEXPR* count;
  if (!repeat) {
    count = kernel_new<TEXPR>(*this, "int32_t", tripcount);
  } else if (tripcount->is_const()) {
    has_repeat = true;
    count = kernel_new<TEXPR>(*this, tripcount);
  } else {
    has_repeat = true;
    TVAL_RT* rt = tvals.new_tval_rt(tripcount);
    root_loop.tval_decls.add(rt->type, "__" + rt->name, kernel_new<VPEXPR>(rt->init_ref()));
    count = kernel_new<TEXPR>(*this, rt);
  }
  loop->add_tdecl("int32_t", block->lcv, nullptr);
  BBLOCK* init = new_bblock_append(loop);
  auto* inner = kernel_new<LOOP>(*this, loop, block, init, count, block->lcv);
  inner->entry_block = new_bblock_append(inner);
  if (repeat) top_loop = inner;
  new_bblock_append(inner);
  auto* begin = kernel_new<TBEGINLOOP>(block->lcv, count);
  append_tinstr(begin);
  translate_children(block, inner);
  append_tinstr(kernel_new<TENDLOOP>(begin));
  blocks.back()->add_edge(inner->entry_block);
  inner->cleanup_block = new_bblock_append(loop);
}

// Increments come back from the address generators and the repeat has
// become a loop, so those two kinds translate to nothing.
void TCMD::translate_vinstr(VINSTR& instr) {
  if (instr.is_vinit())
    translate_vinit(instr);
  else if (instr.is_vload())
    translate_vload(instr);
  else if (instr.is_vstore())
    translate_vstore(instr);
  else if (instr.is_vmove())
    translate_vmove(instr);
  else if (instr.is_vexit())
    translate_vexit(instr);
  else if (instr.is_vincr() || instr.is_vrpt())
    return;
  else if (instr.is_vhup())
    translate_vhup(instr);
  else if (instr.is_vtld())
    translate_vtld(instr);
  else if (instr.is_vprint())
    translate_vprint(instr);
  else if (instr.is_vop())
    translate_vop(instr);
}

void TCMD::translate_vexit(VINSTR& instr) {
  auto& vexit = static_cast<VEXIT&>(instr);
  auto* exit = kernel_new<TVEXIT>(vexit.src1, &vexit.label);
  append_tinstr(exit);
  exit->declare_vreg(vexit.src1);
  LOOP* target = vexit.level == 1 ? top_loop : top_loop->nested_loop();
  if (target) target->exit_label = vexit.label;
}

TVAL* TCMD::new_tval(const std::string& type, const VPEXPR* expr) {
  TVAL* tval = tvals.new_tval(type, expr);
  top_loop->tval_decls.add(type, "__" + tval->name, kernel_new<VPEXPR>(tval->init_ref()));
  return tval;
}

std::string TCMD::repeat_lcv() const {
  const LOOP* repeat = root_loop.nested_loop();
  return repeat ? repeat->lcv : std::string();
}

LOOP* TCMD::find_loop(const std::string& lcv) {
  for (LOOP* loop = &root_loop; loop; loop = loop->nested_loop())
    if (loop->lcv == lcv) return loop;
  return nullptr;
}

bool TCMD::agen_is_updated(const AGEN* agen) {
  for (int32_t depth = 0; depth <= agen->deepest_depth && depth < AGEN::max_depth; ++depth) {
    const VPEXPR* stride = agen->strides[static_cast<size_t>(depth)];
    if (stride && !pexpr_is(stride, 0)) return true;
  }
  return false;
}

void TCMD::setup_plain_agen(AGEN* a) {
  if (std::find(agens_done.begin(), agens_done.end(), a) != agens_done.end()) return;
  top_loop->add_agen_increments(a);
  kernel.scope.add("__agen", a->name, nullptr);
  top_loop->entry_block->add_tinstr_front(kernel_new<TAINIT>(a));
  agens_done.push_back(a);
}

void TCMD::analyze_addressing() {
  std::vector<TINSTR*> accesses;
  for (BBLOCK* block : blocks)
    for (TINSTR* instr : block->instrs)
      if (instr->agen()) accesses.push_back(instr);
  // Transposing accesses first, then the most deeply nested: they have the
  // first claim on the streams.  Equal ones keep their block order.
  std::stable_sort(accesses.begin(), accesses.end(), [](const TINSTR* a, const TINSTR* b) {
    if (a->is_transpose() || b->is_transpose()) return a->is_transpose() && !b->is_transpose();
    return a->block->depth > b->block->depth;
  });
  for (TINSTR* instr : accesses) {
    AGEN* a = instr->agen();
    if (use_se(instr, a) || use_sa(instr, a)) {
      instr->stream()->generate_init();
      instr->stream()->generate_setup(instr);
    } else {
      setup_plain_agen(a);
    }
  }
  find_stream_advances();
}

void TCMD::find_stream_advances() {
  for (BBLOCK* block : blocks)
    for (TINSTR* instr : block->instrs)
      if (STREAM_TEMPLATE* stream = instr->stream()) stream->advance_instr = instr;
}

void TCMD::dump() const {
  for (const BBLOCK* block : blocks) {
    std::cout << block->name() << "\n   pred: ";
    for (const BBLOCK* pred : block->pred) std::cout << pred->name() << " ";
    std::cout << "\n   succ: ";
    for (const BBLOCK* succ : block->succ) std::cout << succ->name() << " ";
    std::cout << "\n";
  }
}
