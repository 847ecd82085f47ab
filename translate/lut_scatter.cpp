// The table scatter transformation: which registers hold offsets loaded
// outside every loop, which buffers a vector loop writes only by scatter or
// only by offset_np1 through one generator, and the rewrite of their stores
// into table writes.
#include "translate/lut_scatter.h"

#include <map>
#include <set>
#include <vector>

#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/parm.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vstore.h"
#include "options/optobj.h"
#include "options/register_option.h"

namespace {

// Accepted, without effect.
register_option disable_lut_scatter("disable:lut_scatter");
register_option debug_lut_scatter("debug:lut_scatter");

// A vector loop has two tables.
constexpr int32_t max_tables = 2;

// Loads outside every `for` loop, by the register they load: a register
// that no later instruction redefines holds the same offsets throughout.
using OUTER_LOADS = std::map<const VREG*, VLOAD*, VREG_ORDER>;

// Adds the loads of `vcmd` that stand in its root or its `foreach`, and
// forgets the registers that `vcmd` defines anywhere else.
void find_outer_loads(const VCMD& vcmd, OUTER_LOADS& outer_loads) {
  std::set<const VREG*, VREG_ORDER> redefined;
  for (const VBLOCK* block : vcmd.blocks)
    for (VINSTR* instr : block->instrs) {
      if (instr->is_vload()) {
        auto* load = static_cast<VLOAD*>(instr);
        if (block->depth < 0)
          outer_loads[load->vreg] = load;
        else
          redefined.insert(load->vreg);
      } else if (instr->is_vinit()) {
        redefined.insert(static_cast<VINIT*>(instr)->vreg);
      } else if (instr->is_vop()) {
        for (const VREG* dst : static_cast<VOP*>(instr)->dst_vregs())
          if (dst) redefined.insert(dst);
      }
    }
  for (const VREG* reg : redefined) outer_loads.erase(reg);
}

// Whether a buffer's stores can all become writes of one table.
SET_INFO judge(const std::vector<VSTORE*>& stores, const OUTER_LOADS& outer_loads) {
  SET_INFO info;
  for (const VSTORE* store : stores) {
    const VLVALUE* lv = store->lv;
    if (!info.agen) {
      info.agen = lv->agen;
    } else if (info.agen != lv->agen) {
      info.ok = false;
      break;
    }
    if (!lv->base || !lv->offset) {
      info.ok = false;
      break;
    }
    if (store->dist == VSTORE::P_SCATTER) {
      info.has_scatter = true;
      if (info.has_offset_np1) {
        info.ok = false;
        break;
      }
      if (!info.scatter_vreg) info.scatter_vreg = store->scatter_vreg;
      if (info.scatter_vreg != store->scatter_vreg || !outer_loads.count(info.scatter_vreg)) {
        info.ok = false;
        break;
      }
    } else if (store->dist == VSTORE::OFFSET_NP1) {
      info.has_offset_np1 = true;
      if (info.has_scatter) {
        info.ok = false;
        break;
      }
    } else {
      info.ok = false;
      break;
    }
  }
  if ((info.has_scatter && !info.scatter_vreg) || !info.agen) info.ok = false;
  return info;
}

// Judges the buffers of one vector loop and rewrites the stores of the
// first two that qualify, in parameter order.
void rewrite_vcmd(const VCMD& vcmd, OUTER_LOADS& outer_loads) {
  std::map<PARM*, std::vector<VSTORE*>, PARM_LESS> stores;
  for (const VBLOCK* block : vcmd.blocks)
    for (VINSTR* instr : block->instrs)
      if (instr->is_vstore() && instr->lvalue() && instr->lvalue()->parm)
        stores[instr->lvalue()->parm].push_back(static_cast<VSTORE*>(instr));

  int32_t index = 0;
  for (const auto& [parm, buffer_stores] : stores) {
    if (index >= max_tables) break;
    const SET_INFO info = judge(buffer_stores, outer_loads);
    if (!info.ok) continue;
    for (VSTORE* store : buffer_stores) {
      store->dist = info.has_offset_np1 ? VSTORE::LUT_OFFSET_NP1 : VSTORE::LUT_SCATTER;
      store->lut_index = index;
    }
    if (info.has_scatter) {
      VLOAD* load = outer_loads.at(info.scatter_vreg);
      load->lut_load = true;
      load->lut_indices.insert(index);
    }
    ++index;
  }
}

}  // namespace

void do_lut_scatter_transformation(VKERNEL* kernel) {
  if (!global_opts || global_opts->state[option_obj::OO_LUT_SCATTER] == 0) return;
  OUTER_LOADS outer_loads;  // kept from one vector loop to the next
  for (const VCMD* vcmd : kernel->vcmds) {
    find_outer_loads(*vcmd, outer_loads);
    rewrite_vcmd(*vcmd, outer_loads);
  }
}
