// One vector loop: a nest of up to four `for` levels, optionally inside one
// `foreach`, the state of the statement being parsed into it, the limits on
// its instructions and the analysis run when it closes.
#ifndef ZLC_ZELT_ZLC_VCMD_H
#define ZLC_ZELT_ZLC_VCMD_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "DIAG/diag.h"
#include "ZELT_ZLC/preg.h"
#include "ZELT_ZLC/vblock.h"

class VKERNEL;
class VPEXPR;

class VCMD {
 public:
  // Kinds of vector loop.
  enum VLOOP_TYPE : int32_t { COMPUTE = 0, HIST = 1, TLU = 2 };

  // Instruction limits of one vector loop.
  static constexpr unsigned max_ops = 40;
  static constexpr unsigned max_loads = 8;
  static constexpr unsigned max_stores = 8;
  static constexpr unsigned max_inits = 16;
  static constexpr unsigned max_live_vregs = 16;  // loads and inits together

  explicit VCMD(VKERNEL& kernel);
  virtual ~VCMD() = default;
  VCMD(const VCMD&) = delete;
  VCMD& operator=(const VCMD&) = delete;

  virtual int32_t vloop_type() const { return COMPUTE; }
  // The table or histogram count and the point count of special loops.
  virtual const VPEXPR* num_objs() const { return nullptr; }
  virtual const VPEXPR* num_pts() const { return nullptr; }

  // The target registers of the statement being parsed; a single target
  // clears the second register of a pair.
  void set_curr_vreg(VREG* vreg);
  // With a pair already current, the old pair is saved as the destination
  // and the new registers take the old names as aliases.
  void set_curr_vpair(VREG* first, VREG* second);
  void clear_curr();

  // Opens a `for` level under the current block.
  void push_block(const DIAG_SRCINFO& srcinfo, const std::string& lcv, const VPEXPR* tripcount);
  // Opens the `foreach` level, which must stand outermost.
  void push_rpt(const DIAG_SRCINFO& srcinfo, const std::string& lcv, const VPEXPR* count,
                const VPEXPR* max);
  // Closes the current level; back at the root the loop is complete and the
  // kernel takes it.
  void pop_block();
  // A loop that replaces `other` takes over its `foreach` level, and with
  // copy_vcmd_info its location as well.
  void transfer_vrpt(const VRPT* other);
  void copy_vcmd_info(const VCMD& other);

  // A register visible from the current block; with `warn_dead`, a register
  // whose value has moved to another name is reported.
  VREG* lookup_vreg(std::string_view name, const DIAG_SRCINFO& srcinfo, bool warn_dead);
  AGEN* lookup_agen(std::string_view name) const;
  // Declares a generator in the current block; one of the outermost level
  // also goes on the kernel's list of global generators.
  AGEN* new_agen(const DIAG_SRCINFO& srcinfo, const std::string& name);

  // The memory reference of the statement, with its address in a two-word
  // parameter register.
  VLVALUE* new_vlvalue(const DIAG_SRCINFO& srcinfo, const VPEXPR* addr, PARM* parm,
                       const VPEXPR* base, const VPEXPR* offset, AGEN* agen, VDATA_TYPE type);
  // Places the current reference in a circular buffer of size `code`.
  void set_lval_circ(int32_t code);
  // False, after the message, when `lv` goes through a generator that was
  // never given a formula.
  bool check_agen_init(const VLVALUE* lv, const DIAG_SRCINFO& srcinfo) const;

  PREG* new_preg(const std::string& text, int32_t nregs, bool only_unassigned) {
    return pregs.new_preg(text, nregs, only_unassigned);
  }

  void new_vprint(const DIAG_SRCINFO& srcinfo, VREG* vreg, const std::string& text);

  // Counts `instr`, applies its rules and adds it to the current block when
  // both pass; it becomes the current instruction in any case.
  void add_instr(VINSTR* instr);
  // The instruction limits; counters grow even past a limit.
  bool check_ins_count(const VINSTR* instr);
  bool check_vreg_pressure(const DIAG_SRCINFO& srcinfo);
  // The rule of register pairs for the current registers: `want_pair` for
  // deinterleaving loads and interleaving stores.
  bool check_pair_status(bool want_pair, const DIAG_SRCINFO& srcinfo);
  // `reg` of a pair must be, or becomes, register V`expected`.
  bool check_pair_mr_assignments(VREG* reg, uint32_t expected, const DIAG_SRCINFO& srcinfo);

  // Whether `name` is the variable of a loop around the current statement;
  // `level` gets that loop's level.
  bool is_lcv(const std::string& name, int32_t& level) const;
  std::string lcv_name(int32_t level) const;
  // The trip count of loop level `level`; 1 where the nest has no such level.
  const VPEXPR* tripcount_expr(int32_t level) const;
  int32_t max_depth() const;
  // The constant maximum of the `foreach`, 1 without one.
  int64_t rpt_max() const;
  // `level` renumbered so that the innermost loop is 4.
  int32_t zelt_depth(int32_t level) const;
  // The instruction that defines `vreg` in this loop, or null.
  VINSTR* find_vreg_instr(const VREG* vreg) const;

  // Trip counts less one of the levels from the innermost out, in P5 to P2.
  void assign_tripcounts();
  // Numbers the generators and turns their strides into increments.
  void evaluate_agens();
  // Run once when the loop is closed.
  void analyze_vloop();

  // Instructions: loads, stores, operations, moves and exits.  Their
  // definitions live in vcmd_loads.cpp, vcmd_stores.cpp and vcmd_ops.cpp.
  // A load: new_vload (or add_expand_vload), the distribution, then
  // add_instr(curr_instr).  Custom points come before set_vload_dist(6).
  void new_vload(const DIAG_SRCINFO& srcinfo);
  virtual void add_expand_vload(const DIAG_SRCINFO& srcinfo, VREG* flags);
  virtual void set_vload_dist(int32_t dist);
  void add_cust_pexpr(const VPEXPR* expr);
  virtual void add_hist_update(const DIAG_SRCINFO& srcinfo, VREG* data, VREG* weight);
  virtual void add_table_lookup(const DIAG_SRCINFO& srcinfo, VREG* index);
  // The statement's register from a constant, expression or loop variable.
  virtual void new_vinit(const DIAG_SRCINFO& srcinfo, const VPEXPR* value);

  // A store: new_vstore (or new_collate_vstore), its distribution, the
  // rounding and saturation, the predicate, and last set_vstore_rhs, which
  // adds it.
  virtual void new_vstore(const DIAG_SRCINFO& srcinfo);
  virtual void new_collate_vstore(const DIAG_SRCINFO& srcinfo, VREG* pred);
  void set_vstore_dist(int32_t dist, VREG* vreg);
  virtual void set_vstore_pred(VREG* pred);
  virtual void set_vstore_rhs();

  // Rounding and saturation of the memory instruction in progress.
  void set_vmem_round(const VPEXPR* expr);
  void set_vmem_trunc(const VPEXPR* expr);
  // Any of `b`, `c`, `d` may be null, and `a` too when `b` is.
  void set_vmem_sat(const VPEXPR* a, const VPEXPR* b, const VPEXPR* c, const VPEXPR* d);
  // The ROUND_SAT::SAT_MODE that bounds `lo` and `hi` take for the
  // statement's memory reference.
  int32_t determine_sat_mode(const VPEXPR* lo, const VPEXPR* hi) const;

  // Operations: `name` is the word without its "__zelt_" prefix; a null
  // `dst` means the statement's register.
  virtual void new_vop(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* dst,
                       VREG* src1, VREG* src2, VREG* src3);
  virtual void new_vop2d(const DIAG_SRCINFO& srcinfo, const std::string& name, VREG* src1,
                         VREG* src2);
  // `mode` is VOP::ROUND_MODE: 1 round, 2 truncate, 3 left shift.
  void set_vop_round(int32_t mode, const VPEXPR* value);
  virtual void new_vmove(const DIAG_SRCINFO& srcinfo, VREG* dst, VREG* src);
  // A condition of the next move: `pos` 0 compares `lcv` with zero, 1 is
  // last(lcv, value).
  virtual void add_vmove_lcv(const DIAG_SRCINFO& srcinfo, const std::string& lcv,
                             const VPEXPR* value, int32_t pos);
  virtual void new_vexit(const DIAG_SRCINFO& srcinfo, const std::string& label, VREG* vreg,
                         const VPEXPR* index, const VPEXPR* rhs);
  void set_vexit_level(const DIAG_SRCINFO& srcinfo, const std::string& label);

  VINSTR* curr_instr = nullptr;
  VREG* curr_vreg = nullptr;
  VLVALUE* curr_lvalue = nullptr;
  VREG* curr_vreg2 = nullptr;
  int32_t next_agen = 0;
  uint16_t op_count = 0;
  uint16_t load_count = 0;
  uint16_t init_count = 0;
  uint16_t store_count = 0;
  DIAG_SRCINFO_DATA srcinfo;    // the loop's location, internal until a level is pushed
  std::vector<VBLOCK*> blocks;  // root first, in order of creation
  // The defining instruction of each register, in order of the registers' creation.
  std::map<const VREG*, VINSTR*, VREG_ORDER> vreg_instrs;
  VKERNEL& kernel;
  VBLOCK root;
  PREG_TABLE pregs;
  int32_t param_words = 1;
  int32_t preg_count = 0;
  VBLOCK* curr_block;
  VBLOCK* innermost = nullptr;
  VREG* saved_vreg = nullptr;
  VREG* saved_vreg2 = nullptr;
  std::map<std::string, const VPEXPR*> move_conds;  // loop variable to compared value
  int32_t move_pos = 2;
  VREG* scatter_vreg = nullptr;
  VINSTR* vexit = nullptr;
  VRPT* vrpt = nullptr;
  uint32_t id;

 private:
  // The current reference's address register was made for it alone.
  bool curr_lvalue_owns_preg = false;
};

#endif
