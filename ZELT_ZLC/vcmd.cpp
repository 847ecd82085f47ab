// The block structure of a vector loop, the state of the current statement,
// the instruction limits and pair rules, and the analysis of a closed loop.
#include "ZELT_ZLC/vcmd.h"

#include <set>
#include <sstream>

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"
#include "options/optobj.h"

namespace {
uint32_t vcmd_id_counter = 0;
constexpr int32_t root_depth = -2;
constexpr int32_t rpt_depth = -1;
constexpr int32_t max_for_depth = 3;
constexpr int32_t circ_shift = 20;

DIAG_SRCINFO_DATA copy_of(const DIAG_SRCINFO& at) {
  return DIAG_SRCINFO_DATA(at.file(), at.line(), at.column(), at.approx());
}
}  // namespace

VCMD::VCMD(VKERNEL& kernel)
    : srcinfo(srcloc_internal),
      kernel(kernel),
      root(srcloc_internal, this, kernel, "", nullptr),
      pregs(kernel),
      curr_block(&root),
      id(vcmd_id_counter++) {
  root.depth = root_depth;
  blocks.push_back(&root);
}

void VCMD::set_curr_vreg(VREG* vreg) {
  curr_vreg = vreg;
  curr_vreg2 = nullptr;
}

void VCMD::set_curr_vpair(VREG* first, VREG* second) {
  if (curr_vreg && curr_vreg2) {
    saved_vreg = curr_vreg;
    saved_vreg2 = curr_vreg2;
    if (first) first->alias_name = saved_vreg->name;
    if (second) second->alias_name = saved_vreg2->name;
  }
  curr_vreg = first;
  curr_vreg2 = second;
}

void VCMD::clear_curr() {
  curr_vreg = nullptr;
  curr_vreg2 = nullptr;
  curr_lvalue = nullptr;
  curr_instr = nullptr;
  saved_vreg = nullptr;
  saved_vreg2 = nullptr;
  move_conds.clear();
  move_pos = 2;
}

void VCMD::push_block(const DIAG_SRCINFO& at, const std::string& lcv, const VPEXPR* tripcount) {
  auto* block = kernel_new<VBLOCK>(at, this, kernel, lcv, tripcount);
  for (const VBLOCK* existing : blocks)
    if (existing->depth == curr_block->depth + 1) {
      DIAG::zlc_illegal_loop_nest().set_src(&at).report();
      return;
    }
  if (curr_block->depth >= max_for_depth) DIAG::zlc_exceed_depth().set_src(&at).report();
  const bool outermost = curr_block == &root;
  curr_block->add(block);
  if (block->depth == rpt_depth) block->depth = 0;
  if (outermost) srcinfo = copy_of(at);
  curr_block = innermost = block;
  blocks.push_back(block);
  clear_curr();
}

void VCMD::push_rpt(const DIAG_SRCINFO& at, const std::string& lcv, const VPEXPR* count,
                    const VPEXPR* max) {
  auto* rpt = kernel_new<VRPT>(at, this, kernel, lcv, count, max);
  if (max && !max->is_const()) DIAG::zlc_rpt_nonconst_max(max->text).set_src(&at).report();
  if (load_count || init_count) DIAG::zlc_rpt_outer_instrs().set_src(&at).report();
  VBLOCK* parent = curr_block;
  parent->add(rpt);
  if (rpt->depth != rpt_depth) {
    DIAG::zlc_bad_rpt_depth().set_src(&at).report();
    return;
  }
  curr_block = innermost = vrpt = rpt;
  blocks.push_back(rpt);
  if (parent == &root) srcinfo = copy_of(at);
  clear_curr();
}

void VCMD::pop_block() {
  if (!curr_block->parent) return;
  curr_block = curr_block->parent;
  if (curr_block->depth == root_depth) kernel.add_curr_vloop();
  clear_curr();
}

void VCMD::transfer_vrpt(const VRPT* other) {
  if (!other) return;
  auto* rpt = kernel_new<VRPT>(other->srcinfo, this, kernel, other->lcv, other->count(), other->max);
  root.add(rpt);
  curr_block = innermost = vrpt = rpt;
  blocks.push_back(rpt);
}

void VCMD::copy_vcmd_info(const VCMD& other) {
  transfer_vrpt(other.vrpt);
  if (!other.srcinfo.is_equal(&srcloc_internal)) srcinfo = copy_of(other.srcinfo);
}

VREG* VCMD::lookup_vreg(std::string_view name, const DIAG_SRCINFO& at, bool warn_dead) {
  VREG* vreg = curr_block->lookup_vreg(name);
  if (vreg && warn_dead && !vreg->alias_name.empty())
    DIAG::zlc_dead_vreg(vreg->name, vreg->alias_name).set_src(&at).report();
  return vreg;
}

AGEN* VCMD::lookup_agen(std::string_view name) const { return curr_block->lookup_agen(name); }

AGEN* VCMD::new_agen(const DIAG_SRCINFO& at, const std::string& name) {
  AGEN* agen = curr_block->new_agen(at, name);
  if (agen && curr_block == &root && !kernel.lookup_global_agen(name))
    kernel.global_agens.push_back(agen);
  return agen;
}

VLVALUE* VCMD::new_vlvalue(const DIAG_SRCINFO& at, const VPEXPR* addr, PARM* parm,
                           const VPEXPR* base, const VPEXPR* offset, AGEN* agen,
                           VDATA_TYPE type) {
  auto* lv = kernel_new<VLVALUE>();
  lv->srcinfo = copy_of(at);
  lv->parm = parm;
  lv->base = base;
  lv->offset = offset;
  lv->addr = addr;
  lv->agen = agen;
  lv->type = type;
  if (addr) {
    const size_t before = pregs.by_name.size();
    lv->preg = new_preg(addr->text, 2, false);
    curr_lvalue_owns_preg = pregs.by_name.size() != before;
  }
  if (agen) agen->flags |= AGEN::AF_MEM_REF;
  curr_lvalue = lv;
  return lv;
}

void VCMD::set_lval_circ(int32_t code) {
  if (!curr_lvalue) return;
  if (code == 0) DIAG::zlc_illegal_circ().set_src(&curr_lvalue->srcinfo).report();
  curr_lvalue->circ = code;
  const VPEXPR* old = curr_lvalue->addr;
  if (!old) return;
  std::ostringstream text;
  text << "(char *)(((unsigned int)(" << old->text << ")) | 0x" << std::hex
       << (static_cast<uint32_t>(code) << circ_shift) << ")";
  auto* addr = kernel_new<VPEXPR>(text.str());
  addr->eval_type = VPEXPR::EVAL_SYMBOLIC;
  addr->uses_width = old->uses_width;
  addr->merge_parm_refs(old);
  curr_lvalue->addr = addr;
  // A register that no other reference shares takes the new text in place,
  // so that the old text leaves no slot behind.
  if (curr_lvalue_owns_preg && curr_lvalue->preg)
    curr_lvalue->preg->text = addr->text;
  else
    curr_lvalue->preg = new_preg(addr->text, 2, false);
}

bool VCMD::check_agen_init(const VLVALUE* lv, const DIAG_SRCINFO& at) const {
  if (!lv || !lv->agen || lv->agen->has_init) return true;
  DIAG::zlc_agen_undef(lv->agen->name).set_src(&at).report();
  return false;
}

void VCMD::new_vprint(const DIAG_SRCINFO& at, VREG* vreg, const std::string& text) {
  curr_instr = nullptr;
  if (vreg) add_instr(kernel_new<VPRINT>(at, this, vreg, text));
}

void VCMD::add_instr(VINSTR* instr) {
  curr_instr = nullptr;
  if (!instr || !curr_block) return;
  const bool counted = check_ins_count(instr);
  instr->parent = curr_block;
  const bool valid = instr->check_if_valid();
  if (vexit && vexit != instr) DIAG::zlc_post_exit_instr().set_src(&instr->srcinfo).report();
  if (counted && valid) curr_block->add(instr);
  curr_instr = instr;
}

bool VCMD::check_ins_count(const VINSTR* instr) {
  if (!instr) return true;
  const DIAG_SRCINFO& at = instr->srcinfo;
  if (instr->is_vop()) {
    if (instr->op_name() == "__zelt_vmove") return true;
    if (++op_count > max_ops) {
      DIAG::zlc_op_count(max_ops).set_src(&at).report();
      return false;
    }
    return true;
  }
  if (instr->is_vload()) {
    if (++load_count > max_loads) {
      DIAG::zlc_load_count(max_loads).set_src(&at).report();
      return false;
    }
    return check_vreg_pressure(at);
  }
  if (instr->is_vstore()) {
    if (++store_count > max_stores) {
      DIAG::zlc_store_count(max_stores).set_src(&at).report();
      return false;
    }
    return true;
  }
  if (instr->is_vinit()) {
    if (++init_count > max_inits) {
      DIAG::zlc_init_count(max_inits).set_src(&at).report();
      return false;
    }
    return check_vreg_pressure(at);
  }
  return true;
}

bool VCMD::check_vreg_pressure(const DIAG_SRCINFO& at) {
  const unsigned live = static_cast<unsigned>(load_count) + init_count;
  if (live <= max_live_vregs) return true;
  DIAG::zlc_vreg_pressure(live, max_live_vregs).set_src(&at).report();
  return false;
}

bool VCMD::check_pair_status(bool want_pair, const DIAG_SRCINFO& at) {
  if (!want_pair) {
    if (!curr_vreg || !curr_vreg2) return true;
    DIAG::zlc_unexpected_vreg_pair().set_src(&at).report();
    return false;
  }
  if (curr_vreg && curr_vreg2)
    curr_vreg->set_pair_partner(curr_vreg2, at);
  else if (curr_vreg)
    curr_vreg2 = curr_vreg->pair_partner();
  if (!curr_vreg || !curr_vreg2) {
    DIAG::zlc_expected_vreg_pair().set_src(&at).report();
    return false;
  }
  VREG* first = curr_vreg;
  VREG* second = curr_vreg2;
  if (!first->is_unassigned()) {
    const auto number = static_cast<uint32_t>(first->number);
    if (number % 2 != 0) {
      DIAG::zlc_illegal_manual_reg(number, "even").set_src(&at).report();
      return false;
    }
    if (!check_pair_mr_assignments(second, number + 1, at)) return false;
  }
  if (!second->is_unassigned()) {
    const auto number = static_cast<uint32_t>(second->number);
    if (number % 2 == 0) {
      DIAG::zlc_illegal_manual_reg(number, "odd").set_src(&at).report();
      return false;
    }
    return check_pair_mr_assignments(first, number - 1, at);
  }
  return true;
}

bool VCMD::check_pair_mr_assignments(VREG* reg, uint32_t expected, const DIAG_SRCINFO& at) {
  if (reg->is_unassigned()) {
    DIAG::zlc_mr_pair_forced_alloc(reg->name, expected, expected).set_src(&at).report();
    reg->number = static_cast<int32_t>(expected);
    return true;
  }
  if (static_cast<uint32_t>(reg->number) == expected) return true;
  DIAG::zlc_illegal_mr_pair(static_cast<uint32_t>(reg->number), expected).set_src(&at).report();
  return false;
}

bool VCMD::is_lcv(const std::string& name, int32_t& level) const {
  const VBLOCK* block = curr_block == &root && innermost ? innermost : curr_block;
  for (; block; block = block->parent)
    if (!block->lcv.empty() && block->lcv == name) {
      level = block->depth + 1;
      return true;
    }
  return false;
}

namespace {
// The block of loop level `level` on the chain from `innermost` out.
const VBLOCK* block_at_level(const VBLOCK* innermost, int32_t level) {
  for (const VBLOCK* block = innermost; block; block = block->parent)
    if (block->depth == level - 1) return block;
  return nullptr;
}
}  // namespace

std::string VCMD::lcv_name(int32_t level) const {
  const VBLOCK* block = block_at_level(innermost, level);
  return block ? block->lcv : root.lcv;
}

const VPEXPR* VCMD::tripcount_expr(int32_t level) const {
  const VBLOCK* block = block_at_level(innermost, level);
  if (block && block->tripcount) return block->tripcount;
  return kernel_new<VPEXPR>(1, VPEXPR::EVAL_SIGNED);
}

int32_t VCMD::max_depth() const { return innermost ? innermost->depth + 1 : 0; }

int64_t VCMD::rpt_max() const {
  if (!vrpt || !vrpt->max || !vrpt->max->is_const()) return 1;
  return vrpt->max->value64();
}

int32_t VCMD::zelt_depth(int32_t level) const {
  if (level < 1) return 0;
  if (!innermost) return 4 + level;
  return 3 - innermost->depth + level;
}

VINSTR* VCMD::find_vreg_instr(const VREG* vreg) const {
  auto found = vreg_instrs.find(vreg);
  return found == vreg_instrs.end() ? nullptr : found->second;
}

void VCMD::assign_tripcounts() {
  const VBLOCK* cursor = innermost;
  for (int32_t n = 5; n >= 2; --n) {
    std::string text = "0";
    if (cursor && cursor != &root && !cursor->is_vrpt()) {
      text = "(" + (cursor->tripcount ? cursor->tripcount->text : std::string("1")) + ")-1";
      cursor = cursor->parent;
    }
    pregs.new_fixed_preg(text, n);
  }
}

void VCMD::evaluate_agens() {
  int32_t with_increments = 0;
  for (VBLOCK* block : blocks) {
    for (auto& [name, agen] : block->agens.by_name)
      if (agen->is_unassigned()) agen->number = next_agen++;
    block->agens.induction(*this);
    with_increments += block->agen_count();
  }
  param_words += with_increments;
}

void VCMD::analyze_vloop() {
  assign_tripcounts();
  int32_t count = 0;
  root.analyze(count);
  param_words += count;
  evaluate_agens();

  std::set<VREG*> aliased = kernel.vregs.all_aliased_regs();
  std::vector<VINSTR*> loads;
  for (const VBLOCK* block = innermost ? innermost : &root; block; block = block->parent) {
    aliased.merge(block->vregs.all_aliased_regs());
    for (VINSTR* load : block->get_instrs_of_type(&VINSTR::is_vload)) loads.push_back(load);
  }
  const bool unconditional =
      global_opts && global_opts->state[option_obj::OO_ZELT_UNCONDITIONAL_LOADS] != 0;
  for (const VINSTR* load : loads) {
    const VLVALUE* lv = load->lvalue();
    const AGEN* agen = lv ? lv->agen : nullptr;
    if (!agen || agen->condition == 0 || (agen->condition == 2 && unconditional)) continue;
    VREG* dst = load->load_dst();
    if (!dst) continue;
    if (aliased.count(dst) || (load->is_deinterleave() && aliased.count(dst->pair_partner())))
      DIAG::zlc_conditional_load_alias().set_src(&load->srcinfo).report();
  }
}
