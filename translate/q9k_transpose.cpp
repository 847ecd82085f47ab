// The transpose transformation: the loads and stores of a kernel grouped by
// the block of memory they touch, each group of offset_np1 writes followed by
// npt reads in a later vector loop tested against the buffer's type and the
// streams left, and the groups that pass marked as transposing accesses.
#include "translate/q9k_transpose.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"
#include "ZELT_ZLC/vstore.h"
#include "options/optobj.h"
#include "options/register_option.h"
#include "translate/stream.h"

namespace {

register_option disable_transpose("disable:transpose");
register_option debug_transpose("debug:transpose");  // accepted, without effect

// The stores of a buffer block followed by the loads that read it back.
using GROUP = std::pair<std::vector<VSTORE*>, std::vector<VLOAD*>>;

const std::string& name_of(const PARM* parm) {
  static const std::string none;
  return parm ? parm->name : none;
}

// The offset of a block: its text, or "$" and the number of the tile of w
// rows of w + 1 words that a constant offset falls in.
std::string block_offset(const VPEXPR* offset) {
  if (!offset->is_const()) return offset->text;
  const int64_t tile = (int64_t{zelt_simd_width} * 4 + 4) * zelt_simd_width;
  return "$" + std::to_string(offset->value64() / tile);
}

// Every load and store of the kernel, loop by loop, block by block.
std::vector<VMEM_INSTR*> gather_accesses(const VKERNEL& kernel) {
  std::vector<VMEM_INSTR*> accesses;
  for (const VCMD* vcmd : kernel.vcmds)
    for (const VBLOCK* block : vcmd->blocks)
      for (VINSTR* instr : block->instrs)
        if ((instr->is_vload() || instr->is_vstore()) && instr->lvalue())
          accesses.push_back(static_cast<VMEM_INSTR*>(instr));
  return accesses;
}

// The accesses of each block of memory, in program order; a buffer with an
// access whose base or offset is unknown is left out altogether.
std::map<BLOCK_ID, std::vector<VMEM_INSTR*>> group_by_block(
    const std::vector<VMEM_INSTR*>& accesses) {
  std::map<BLOCK_ID, std::vector<VMEM_INSTR*>> blocks;
  PARM_SET excluded;
  for (VMEM_INSTR* access : accesses) {
    const VLVALUE* lv = access->lv;
    if (!lv->parm) continue;  // no buffer to speak of
    if (!lv->base || !lv->offset) {
      excluded.insert(lv->parm);
      continue;
    }
    blocks[BLOCK_ID{lv->parm, block_offset(lv->offset)}].push_back(access);
  }
  std::erase_if(blocks, [&](const auto& entry) { return excluded.count(entry.first.parm) != 0; });
  return blocks;
}

GROUP make_group(const std::vector<VMEM_INSTR*>& run) {
  GROUP group;
  for (VMEM_INSTR* access : run) {
    if (access->is_vstore())
      group.first.push_back(static_cast<VSTORE*>(access));
    else
      group.second.push_back(static_cast<VLOAD*>(access));
  }
  return group;
}

// Splits the accesses of one block into runs of stores followed by runs of
// loads.  Loads ahead of the first store read nothing written here; a store
// after a load opens the next group.
void split_groups(const std::vector<VMEM_INSTR*>& accesses, std::vector<GROUP>& groups) {
  auto it = std::find_if(accesses.begin(), accesses.end(),
                         [](const VMEM_INSTR* access) { return access->is_vstore(); });
  std::vector<VMEM_INSTR*> current;
  auto end_group = [&] {
    if (!current.empty()) groups.push_back(make_group(current));
    current.clear();
  };
  for (; it != accesses.end(); ++it) {
    VMEM_INSTR* access = *it;
    const bool last = it + 1 == accesses.end();
    if (last && access->is_vload()) {
      current.push_back(access);
      end_group();
      break;
    }
    if (last || (access->is_vstore() && it != accesses.begin() && (*(it - 1))->is_vload()))
      end_group();
    current.push_back(access);
  }
}

bool transpose_requested() {
  return global_opts && global_opts->state[option_obj::OO_TRANSPOSE] != 0;
}

// Marks `group` when its writes and reads form a transpose that the buffer's
// type and the streams left allow.
void test_group(const GROUP& group, RESOURCE_TRACKER& tracker) {
  const auto& [stores, loads] = group;
  RESOURCE_TRACKER::KERN_RESOURCE_SET request;

  bool stores_ok = !stores.empty();
  uint32_t last_store_id = 0;
  for (VSTORE* store : stores) {
    if (store->dist != VSTORE::OFFSET_NP1 || store->depth < 0) stores_ok = false;
    last_store_id = store->vcmd->id;
    request[store->vcmd].agens.insert(store->lv->agen);
  }
  bool loads_ok = !loads.empty();
  const uint32_t first_load_id = loads.empty() ? 0 : loads.front()->vcmd->id;
  for (VLOAD* load : loads) {
    if (load->dist != VLOAD::NPT || load->depth < 0) loads_ok = false;
    ++request[load->vcmd].loads;
  }
  // The read must lie in a strictly later vector loop.
  if (!stores_ok || !loads_ok || last_store_id >= first_load_id) return;

  const PARM* buffer = stores.front()->lv->parm;
  if (!buffer->has_flag(PARM::QF_TSCRATCH) && !transpose_requested()) return;
  const VDATA_TYPE type = buffer->type();
  if (type.bits != 32) {
    DIAG::zlc_transpose_type(buffer->name, type.get_name()).report();
    return;
  }
  if (!tracker.request_resources(request)) return;
  for (VSTORE* store : stores) store->dist = VSTORE::TRANSPOSE;
  for (VLOAD* load : loads) load->dist = VLOAD::TRANSPOSE;
}

}  // namespace

bool BLOCK_ID::operator<(const BLOCK_ID& other) const {
  const int by_name = name_of(parm).compare(name_of(other.parm));
  if (by_name != 0) return by_name < 0;
  return offset < other.offset;
}

bool RESOURCE_TRACKER::VCMD_ORDER::operator()(const VCMD* a, const VCMD* b) const {
  return a->id < b->id;
}

bool RESOURCE_TRACKER::request_resources(const KERN_RESOURCE_SET& request) {
  for (const auto& [vcmd, wanted] : request) {
    size_t agens = wanted.agens.size();
    int32_t loads = wanted.loads;
    if (auto held = taken.find(vcmd); held != taken.end()) {
      for (const AGEN* agen : held->second.agens) agens += wanted.agens.count(agen) ? 0 : 1;
      loads += held->second.loads;
    }
    if (agens > max_agens || loads > max_loads) return false;
  }
  for (const auto& [vcmd, wanted] : request) {
    VCMD_RESOURCE_SET& set = taken[vcmd];
    set.agens.insert(wanted.agens.begin(), wanted.agens.end());
    set.loads += wanted.loads;
  }
  return true;
}

void do_transpose_transformation(VKERNEL* kernel) {
  if (disable_transpose != 0 || disable_se != 0) return;
  std::vector<GROUP> groups;
  for (const auto& [block, accesses] : group_by_block(gather_accesses(*kernel)))
    split_groups(accesses, groups);
  // The limits hold over all the groups of the kernel that are taken.
  RESOURCE_TRACKER tracker;
  for (const GROUP& group : groups) test_group(group, tracker);
}
