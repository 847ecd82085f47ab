// Whole kernels built through the model's entry points and written by the
// translating kernel: stream choice, operation splitting and the layout of
// the generated functions.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vpexpr.h"
#include "tests/unit/translate_core_fixture.h"
#include "translate/loop.h"
#include "translate/stream.h"
#include "translate/tcmd.h"
#include "translate/texpr.h"
#include "translate/tkernel.h"
#include "translate/tval.h"

namespace {

class TRANSLATE_KERNEL : public TRANSLATE_TEST {
 protected:
  void SetUp() override {
    TRANSLATE_TEST::SetUp();
    tkernel->new_parm(at(1), "p", 0, "__vptr_int16", "");
    tkernel->new_parm(at(1), "n", 0, "int", "");
  }

  // A generator that moves `step` bytes per iteration of loop level `level`.
  AGEN* step_agen(const std::string& name, int level, long step) {
    AGEN* a = v()->new_agen(at(1), name);
    a->has_init = true;
    a->strides[level + 1] = num(step);
    a->deepest_depth = level + 1;
    return a;
  }
  void lvalue(AGEN* a) {
    v()->new_vlvalue(at(2), sym("p"), tkernel->lookup_parm("p"), sym("p"), nullptr, a,
                     VDATA_TYPE::int16);
  }
  void load(VREG* dst, AGEN* a, int32_t dist = 0) {
    v()->clear_curr();
    v()->set_curr_vreg(dst);
    lvalue(a);
    v()->new_vload(at(2));
    if (dist) v()->set_vload_dist(dist);
    v()->add_instr(v()->curr_instr);
  }
  void store(VREG* src, AGEN* a) {
    v()->clear_curr();
    lvalue(a);
    v()->new_vstore(at(3));
    v()->set_curr_vreg(src);
    v()->set_vstore_rhs();
  }
  void op(const std::string& name, VREG* dst, VREG* a, VREG* b, VREG* c = nullptr) {
    v()->clear_curr();
    v()->set_curr_vreg(dst);
    v()->new_vop(at(4), name, nullptr, a, b, c);
  }
  // Closes the loop nest and writes the kernel.
  std::string finish(int levels) {
    for (int i = 0; i < levels; ++i) v()->pop_block();
    tkernel->format();
    return out.str();
  }
};

// The translated loop of the kernel's only vector loop, before addressing.
TCMD* TRANSLATE_KERNEL_translate(TKERNEL* kernel) {
  kernel->analyze_kernel();
  VCMD* vcmd = kernel->vcmds.front();
  auto* cmd = new TCMD(*kernel, vcmd);
  cmd->translate_vblock(&vcmd->root, &cmd->root_loop);
  return cmd;
}

std::vector<TINSTR*> accesses(const TCMD* cmd) {
  std::vector<TINSTR*> found;
  for (BBLOCK* block : cmd->blocks)
    for (TINSTR* instr : block->instrs)
      if (instr->agen()) found.push_back(instr);
  return found;
}

std::string dims(const STREAM_TEMPLATE* t) {
  std::string text;
  for (int k = 0; k < STREAM_TEMPLATE::max_dims; ++k)
    text += "[" + pexpr_text(t->dim[k]) + "," + pexpr_text(t->icnt[k]) + "]";
  return text;
}

TEST_F(TRANSLATE_KERNEL, EnginesThenAddressGenerators) {
  v()->push_block(at(1), "i", sym("n"));
  VREG* x = vreg("x");
  load(x, step_agen("A", 0, 16));
  load(vreg("y"), step_agen("B", 0, 16));
  load(vreg("z"), step_agen("C", 0, 16));
  store(x, step_agen("D", 0, 16));
  store(x, step_agen("E", 0, 16));
  v()->pop_block();
  TCMD* cmd = TRANSLATE_KERNEL_translate(tkernel);
  std::vector<TINSTR*> acc = accesses(cmd);
  ASSERT_EQ(acc.size(), 5u);

  ASSERT_TRUE(cmd->use_se(acc[0], acc[0]->agen()));
  ASSERT_TRUE(cmd->use_se(acc[1], acc[1]->agen()));
  EXPECT_FALSE(cmd->use_se(acc[2], acc[2]->agen()));  // both engines taken
  EXPECT_FALSE(cmd->use_se(acc[3], acc[3]->agen()));  // a store never has one
  ASSERT_TRUE(cmd->use_sa(acc[2], acc[2]->agen()));
  ASSERT_TRUE(cmd->use_sa(acc[3], acc[3]->agen()));
  ASSERT_TRUE(cmd->use_sa(acc[4], acc[4]->agen()));

  EXPECT_EQ(acc[1]->stream(), cmd->se_table.at(1));
  // Contiguous 16-byte steps fold the loop into the first dimension.
  EXPECT_EQ(dims(acc[0]->stream()), "[2,((8) * (n))][0,1][0,1][0,1][0,1][0,1]");
  EXPECT_EQ(acc[2]->stream(), cmd->sa_table.at(0));
  EXPECT_EQ(acc[2]->stream()->kind, 2);
  // Two stores of one pattern share a generator; the load's has another kind.
  EXPECT_EQ(acc[3]->stream(), cmd->sa_table.at(1));
  EXPECT_EQ(acc[4]->stream(), acc[3]->stream());
  EXPECT_EQ(acc[0]->agen(), nullptr);
}

TEST_F(TRANSLATE_KERNEL, DimensionsOfANest) {
  v()->push_block(at(1), "i", num(4));
  v()->push_block(at(1), "j", num(3));
  v()->push_block(at(1), "k", num(5));
  AGEN* a = step_agen("A", 0, 0);
  a->strides[2] = VPEXPR::zero;  // neither i nor j moves: one dimension of 12
  a->strides[3] = num(64);       // k's step isn't contiguous: a dimension of its own
  a->deepest_depth = 3;
  load(vreg("x"), a);
  for (int i = 0; i < 3; ++i) v()->pop_block();
  TCMD* cmd = TRANSLATE_KERNEL_translate(tkernel);
  std::vector<TINSTR*> acc = accesses(cmd);
  ASSERT_EQ(acc.size(), 1u);
  ASSERT_TRUE(cmd->use_se(acc[0], acc[0]->agen()));
  EXPECT_EQ(dims(acc[0]->stream()), "[2,8][64,5][0,12][0,1][0,1][0,1]");
}

}  // namespace
