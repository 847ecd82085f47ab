// The translated form of one vector loop: the tree of loops and blocks with
// their instructions, the values computed at init time, and the choice of
// addressing for every memory access.
#ifndef ZLC_TRANSLATE_TCMD_H
#define ZLC_TRANSLATE_TCMD_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "ZELT_ZLC/text_out.h"
#include "translate/lht.h"
#include "translate/loop.h"
#include "translate/stream.h"
#include "translate/tval.h"

class AGEN;
class TKERNEL;
class VAL_RANGES;
class VCMD;
class VINSTR;
class VMEM_INSTR;
class VPEXPR;
class VREG;
class VSTORE;
struct VLVALUE;

namespace SSA {
class GRAPH;
}

class TCMD {
 public:
  TCMD(TKERNEL& kernel, VCMD* vcmd);
  TCMD(const TCMD&) = delete;
  TCMD& operator=(const TCMD&) = delete;

  // A block of `loop`, entered in the list of blocks after an edge from the
  // block made before it.
  BBLOCK* new_bblock_append(LOOP* loop);
  // A block of `loop` outside the list and the edges.
  BBLOCK* new_bblock(LOOP* loop);
  // Appends to the last block.
  void append_tinstr(TINSTR* instr);

  // Builds the loops and blocks of `block`, inside `loop`.
  void translate_vblock(VBLOCK* block, LOOP* loop);
  void translate_vinstr(VINSTR& instr);
  void translate_vinit(VINSTR& instr);
  void translate_vload(VINSTR& instr);
  void translate_vstore(VINSTR& instr);
  void translate_vmove(VINSTR& instr);
  void translate_vexit(VINSTR& instr);
  // Copies of the registers that a store rounds or saturates, and the
  // rounding and saturation of the copies; the outputs name the registers
  // that the store then reads.
  void translate_round_sat(VMEM_INSTR& instr, VREG* reg, VREG*& reg_out, VREG* reg2,
                           VREG*& reg2_out);

  // Histogram updates and table lookups, each on a table of its own.
  void translate_vhup(VINSTR& instr);
  void translate_vtld(VINSTR& instr);
  // The table of a group of stores that write one table; a group without
  // one takes the next free table, which may be null.
  LHT_TEMPLATE* lut_from_scatter_group(int32_t group);
  // Sizes, configures, opens and copies the tables in use, ahead of the
  // loop nest; a table that the loop changes is copied back behind it.
  void lht_setup(VAL_RANGES& ranges);
  // A saturation whose input the ranges prove to lie within its bounds
  // prints nothing.
  void mark_unneeded_saturates(SSA::GRAPH& graph, VAL_RANGES& ranges);

  // Operations, prints and the streams of memory accesses.
  void translate_vop(VINSTR& instr);
  void translate_vprint(VINSTR& instr);
  // The access now reads or writes through a streaming engine, or through a
  // streaming address generator.
  bool use_se(TINSTR* instr, AGEN* agen);
  bool use_sa(TINSTR* instr, AGEN* agen);

  // A value of `expr` as `type`, with its local copy declared in `top_loop`.
  TVAL* new_tval(const std::string& type, const VPEXPR* expr);

  // Streams for the accesses that fit, plain generators for the others.
  void analyze_addressing();
  // Records the last user of each stream in block order.
  void find_stream_advances();
  // The generator moves in at least one loop level.
  static bool agen_is_updated(const AGEN* agen);

  BBLOCK* entry_block() const { return top_loop->entry_block; }
  BBLOCK* init_block() const { return top_loop->init_block; }
  BBLOCK* cleanup_block() const { return top_loop->cleanup_block; }
  // The loop variable of the repeat loop.
  std::string repeat_lcv() const;
  // The loop of this loop variable down the chain of nested loops, or null.
  LOOP* find_loop(const std::string& lcv);
  bool has_tvals() const { return has_repeat || !tvals.by_number.empty(); }

  void format(TEXT_OUT& out) const { root_loop.format(out); }
  // The blocks with their edges, on standard output.
  void dump() const;

  TKERNEL& kernel;
  VCMD* vcmd;
  SE_TABLE se_table;
  SA_TABLE sa_table;
  LHT_TABLE lht_table;
  LOOP root_loop;
  LOOP* top_loop;
  bool has_repeat = false;
  uint32_t rpt_max;
  TVAL_TABLE tvals;
  uint32_t id;
  std::vector<BBLOCK*> blocks;
  std::vector<AGEN*> agens_done;  // in the order they were done
  std::map<int32_t, LHT_TEMPLATE*> scatter_groups;

  static uint32_t id_counter;

 private:
  // Builds the nested loop of one `for` or `foreach` level.
  void translate_loop(VBLOCK* block, LOOP* loop);
  void translate_children(VBLOCK* block, LOOP* loop);
  // The address of a transposing access, rearranged when its offset moves
  // it; the load and the store use different layouts.
  const VPEXPR* transpose_address(const VLVALUE* lv, bool load) const;
  // Declares the collation pointer `name` in `loop`, starting at `base`.
  void declare_collate_ptr(LOOP* loop, const std::string& name, const TEXPR* base);
  // Plain generator code for an access that got no stream.
  void setup_plain_agen(AGEN* a);
  // The table that a store of a scatter group writes.
  void set_scatter_table(LHT_TEMPLATE& lht, const VSTORE& vstore);
};

#endif
