// Table templates: their allocation in a loop, their name in the generated
// code, the size of a lookup or histogram table, and the configuration
// values that the init function computes for each table.
#include "translate/lht.h"

#include <bit>

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/vpexpr.h"
#include "translate/loop.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"
#include "translate/tmem.h"
#include "translate/tval.h"
#include "translate/val_ranges.h"

namespace {

const VPEXPR* constant(int64_t value) { return kernel_new<VPEXPR>(value, VPEXPR::EVAL_SIGNED); }

// An operand inside a configuration text: the init function reads a value
// from where it stores it, not from the loop's local copy.
std::string init_text(const TEXPR* operand) {
  return operand->tval ? operand->tval->init_ref() : operand->ref(true);
}

// Leading zeros of a 32-bit value, 32 for zero.
int32_t leading_zeros(uint32_t value) { return std::countl_zero(value); }

}  // namespace

LHT_TEMPLATE* LHT_TABLE::at(size_t id) {
  if (!templates[id])
    templates[id] = std::make_unique<LHT_TEMPLATE>(&cmd, static_cast<int32_t>(id));
  return templates[id].get();
}

LHT_TEMPLATE* LHT_TABLE::allocate_lht() {
  for (size_t id = 0; id < templates.size(); ++id)
    if (LHT_TEMPLATE* lht = at(id); !lht->in_use) {
      lht->in_use = false;
      lht->open_instr = nullptr;
      ++lht_count;
      return lht;
    }
  return nullptr;
}

void LHT_TEMPLATE::set_fields(VDATA_TYPE type, int32_t num_objs, int32_t num_pts, int32_t dup,
                              TEXPR* table, PARM* parm, AGEN* agen, TEXPR* user_size,
                              const DIAG_SRCINFO* src) {
  this->type = type;
  this->num_objs = num_objs;
  this->num_pts = num_pts;
  this->dup = dup;
  this->table = table;
  this->parm = parm;
  this->agen = agen;
  this->user_size = user_size;
  this->src = src;
}

uint32_t LHT_TEMPLATE::elements_per_lookup() const {
  return static_cast<uint32_t>(num_pts) * static_cast<uint32_t>(num_objs) *
         static_cast<uint32_t>(dup);
}

std::string LHT_TEMPLATE::template_name() const {
  const char* word = kind == LOOKUP ? "zelt_lookup" : kind == HISTOGRAM ? "zelt_hist" : "zelt_scatter";
  const int32_t tables = cmd->lht_table.lht_count;
  const int32_t share = tables > 0 ? memory_bytes / tables : memory_bytes;
  return std::string(word) + "<" + type.get_name() + ", " + std::to_string(num_objs) + ", " +
         std::to_string(num_pts) + ", " + std::to_string(dup) + ", lut_id<" +
         std::to_string(id) + ", " + std::to_string(share) + "> >";
}

int32_t LHT_TEMPLATE::agen_shift() const {
  const uint32_t bytes = type.bits / 8;
  return 64 - leading_zeros(static_cast<uint32_t>(num_objs) / 2) - leading_zeros(bytes / 2);
}

void LHT_TEMPLATE::set_lht_size(VAL_RANGES& ranges) {
  if (size) return;
  // A duplication or table count that isn't a constant has been reported;
  // the loop is still translated, and neither may divide by zero here.
  const int64_t m = memory_bytes / (dup > 0 ? dup : 1);
  const int64_t bytes = type.bits / 8;
  const VAL_RANGE* index =
      users.empty() ? nullptr : ranges.get_operand_range(users.front(), 0, 0);
  const bool determinate = index && !index->is_indeterminate() && index->get_max();

  const VPEXPR* computed = nullptr;
  if (determinate && num_objs > 0) {
    const VPEXPR* max = index->get_max();
    if (bound_is_numeric(max) && max->value64() >= m) {
      computed = kernel_new<VPEXPR>(0xFFFFFFFF, VPEXPR::EVAL_UNSIGNED);  // limited below
    } else {
      const VPEXPR* objs = constant(num_objs);
      const VPEXPR* q = VPEXPR::quotient(constant(32), objs);
      const VPEXPR* d = VPEXPR::product(VPEXPR::sum(max, VPEXPR::one), constant(bytes));
      const VPEXPR* t = VPEXPR::quotient(VPEXPR::diff(VPEXPR::sum(d, q), VPEXPR::one), q);
      computed = VPEXPR::sum(
          VPEXPR::product(q, VPEXPR::product(t, VPEXPR::diff(objs, VPEXPR::one))), d);
    }
  }

  const VPEXPR* user = user_size ? user_size->pexpr : nullptr;
  const VPEXPR* chosen;
  bool worst = false;
  if (agen && user) {
    chosen = user;
  } else if (agen) {
    chosen = constant(m);
    worst = true;
  } else if (user && computed && user->is_const() && computed->is_const()) {
    chosen = user->value64() <= computed->value64() ? user : computed;
  } else if (user) {
    chosen = user;
  } else if (computed) {
    chosen = computed;
  } else {
    chosen = constant(m);
    worst = true;
  }

  if (chosen->is_const()) {
    if (chosen->value64() > m) {
      chosen = constant(m);
      worst = true;
    }
  } else {
    // The limit is applied at run time.
    const std::string s = chosen->text;
    const std::string limit = std::to_string(m);
    auto* limited = kernel_new<VPEXPR>("((" + s + ")>" + limit + "?" + limit + ":(" + s + "))");
    limited->eval_type = VPEXPR::EVAL_SYMBOLIC;
    limited->merge_parm_refs(chosen);
    chosen = limited;
  }

  if (worst) {
    const bool histogram = kind == HISTOGRAM;
    DIAG::zlc_worst_case_table_size(histogram ? "histogram" : "lookup", static_cast<int>(m),
                                    histogram ? "_HISTOGRAM" : "_LOOKUP")
        .set_src(src)
        .report();
  }
  size = kernel_new<TEXPR>(*cmd, "uint32_t", chosen);
}

TEXPR* LHT_TEMPLATE::config_value(const std::string& value_type, const std::string& text,
                                  const std::vector<const TEXPR*>& refs) {
  auto* expr = kernel_new<VPEXPR>(text);
  expr->eval_type = VPEXPR::EVAL_SYMBOLIC;
  for (const TEXPR* ref : refs) expr->merge_parm_refs(ref->parm_refs());
  return kernel_new<TEXPR>(*cmd, value_type, expr);
}

void LHT_TEMPLATE::generate_init() {
  config = config_value("uint32_t", template_name() + "::config()");
}

void LHT_TEMPLATE::generate_copyin_init() {
  copy_in_config = config_value("uint32_t", template_name() + "::copy_in_config()");
  if (kind == LOOKUP || kind == HISTOGRAM)
    copy_in_se_config = config_value(
        "__SE_TEMPLATE_v1", template_name() + "::copy_in_SE_config(" + init_text(size) + ")",
        {size});
}

void LHT_TEMPLATE::generate_copyout_init() {
  copy_out_config = config_value("uint32_t", template_name() + "::copy_out_config()");
  if (kind == LOOKUP || kind == HISTOGRAM)
    copy_out_sa_config = config_value(
        "__SA_TEMPLATE_v1", template_name() + "::copy_out_SA_config(" + init_text(size) + ")",
        {size});
}

void LHT_TEMPLATE::generate_copy_size_expr() {
  const int64_t w = zelt_simd_width;
  copy_size = config_value("uint32_t",
                           template_name() + "::scatter_size(" + init_text(max_agen) + ", " +
                               std::to_string((w - 1) * (w * 4 + 4)) + ", " +
                               init_text(max_sub_base_offset) + ")",
                           {max_agen, max_sub_base_offset});
}

void LHT_TEMPLATE::generate_max_sub_base_offset() {
  std::string text = "max8(";
  std::vector<const TEXPR*> refs;
  const char* sep = "";
  for (const TINSTR* user : users) {
    const TEXPR* offset = user->is_tvstore() ? static_cast<const TVSTORE*>(user)->offset : nullptr;
    text += sep;
    sep = ", ";
    if (!offset) {
      text += "0";  // the store has no offset
      continue;
    }
    text += init_text(offset);
    refs.push_back(offset);
  }
  max_sub_base_offset = config_value("uint32_t", text + ")", refs);
}

void LHT_TEMPLATE::generate_max_agen() {
  const AGEN* first_agen = users.empty() ? nullptr : users.front()->agen();
  std::string text = "max_agen(";
  auto* expr = kernel_new<VPEXPR>("");
  expr->eval_type = VPEXPR::EVAL_SYMBOLIC;
  const char* sep = "";
  for (LOOP* loop = cmd->top_loop->nested_loop(); loop; loop = loop->nested_loop()) {
    const VPEXPR* stride = first_agen ? loop->stride(first_agen) : VPEXPR::zero;
    text += sep + init_text(loop->count) + ", " + pexpr_text(stride);
    sep = ", ";
    expr->merge_parm_refs(loop->count->parm_refs());
    expr->merge_parm_refs(stride);
  }
  expr->text = text + ")";
  max_agen = kernel_new<TEXPR>(*cmd, "uint32_t", expr);
}
