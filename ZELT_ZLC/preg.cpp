// Parameter registers: sharing by text, slot allocation around custom blocks.
#include "ZELT_ZLC/preg.h"

#include <algorithm>

namespace {

// Parameter registers stand for no place in the source.
const DIAG_SRCINFO_DATA no_position;

PREG* make_shared_preg(int32_t number, const char* text) {
  auto* preg = new PREG(DIAG_SRCINFO_DATA(), text);
  preg->number = number;
  preg->text = text;
  return preg;
}

}  // namespace

PREG* const PREG_ZERO = make_shared_preg(0, "0");
PREG* const PREG_ONE = make_shared_preg(1, "1");

void PREG::add_cust_arr(const std::string& arr_text, const std::string& arr_name) {
  cust_text = arr_text;
  ref_text = arr_name;
}

PREG_TABLE::PREG_TABLE(VKERNEL& kernel) : kernel(kernel) {
  for (PREG* shared : {PREG_ZERO, PREG_ONE}) {
    by_name.emplace(shared->name, shared);
    by_number[shared->number] = shared;
  }
}

PREG* PREG_TABLE::new_preg(const std::string& text, int32_t nregs, bool only_unassigned) {
  for (const auto& [name, preg] : by_name)
    if (preg->text == text && preg->nregs == nregs &&
        (!only_unassigned || preg->is_unassigned()))
      return preg;
  if (nregs == 2 && next_mr % 2 != 0) ++next_mr;
  const int32_t slot = next_mr;
  next_mr += nregs;
  std::string name = "P" + std::to_string(slot);
  while (by_name.count(name)) name += "_";
  PREG* preg = new_sym(no_position, name, -1);
  preg->text = text;
  preg->nregs = nregs;
  return preg;
}

PREG* PREG_TABLE::new_fixed_preg(const std::string& text, int32_t number) {
  auto found = by_number.find(number);
  if (found != by_number.end() && found->second->text == text) return found->second;
  std::string name = "P" + std::to_string(number);
  while (by_name.count(name)) name += "_";
  PREG* preg = new_sym(no_position, name, number);
  preg->text = text;
  return preg;
}

int32_t PREG_TABLE::get_next_mr(int32_t n, std::list<HOLE>& holes) {
  for (auto hole = holes.begin(); hole != holes.end(); ++hole) {
    if (hole->size < n) continue;
    const int32_t start = hole->start;
    if (hole->size == n) {
      holes.erase(hole);
    } else {
      hole->start += n;
      hole->size -= n;
    }
    return start;
  }
  if (n >= 2 && next_mr % 2 != 0) {
    holes.push_back({next_mr, 1});
    ++next_mr;
  }
  const int32_t block = (next_mr + custom_block - 1) / custom_block * custom_block;
  if (by_number.count(block) && next_mr + n > block) {
    if (block > next_mr) holes.push_back({next_mr, block - next_mr});
    next_mr = block | 2;
  }
  const int32_t slot = next_mr;
  next_mr += n;
  return slot;
}

int32_t PREG_TABLE::assign_mrs() {
  next_mr = first_free_mr;
  std::list<HOLE> holes;
  auto assign = [&](PREG* preg) {
    if (!preg->is_unassigned()) return;
    preg->number = get_next_mr(preg->nregs, holes);
    by_number[preg->number] = preg;
  };
  for (PREG* preg : waiting) assign(preg);
  for (const auto& [name, preg] : by_name) assign(preg);
  next_mr = (next_mr - 2 + 1) / 2 * 2;
  return std::max(next_mr, last_custom + 2);
}

int32_t PREG_TABLE::next_custom_mr() {
  if (custom_mr <= last_custom_mr) custom_mr += custom_block;
  return custom_mr > last_custom_mr ? -1 : custom_mr;
}

void PREG_TABLE::set_custom_mr(PREG* preg, int32_t slot) {
  preg->number = slot;
  if (slot < 0) return;
  by_number[slot] = preg;
  last_custom = std::max(last_custom, slot);
}

PREG* PREG_TABLE::cust_search(const std::string& arr_text) const {
  for (const auto& [name, preg] : by_name)
    if (!preg->cust_text.empty() && preg->cust_text == arr_text) return preg;
  return nullptr;
}
