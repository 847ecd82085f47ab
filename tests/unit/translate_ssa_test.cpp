// Dominance and the single assignment graph on hand-built block graphs:
// dominators, immediate dominators, frontiers, phi placement and renaming
// for a diamond, a loop and a loop nest.
#include <sstream>
#include <string>
#include <vector>

#include "ZELT_ZLC/vpexpr.h"
#include "tests/unit/translate_core_fixture.h"
#include "translate/dominance.h"
#include "translate/ssa.h"
#include "translate/texpr.h"
#include "translate/tmem.h"

namespace {

class SsaTest : public TRANSLATE_TEST {
 protected:
  void SetUp() override {
    TRANSLATE_TEST::SetUp();
    cmd = new TCMD(*tkernel, v());
    cmd->blocks.clear();  // the graph is built by hand below
  }

  // `count` blocks of the root loop, in the command's list, without edges.
  std::vector<BBLOCK*> blocks(int count) {
    std::vector<BBLOCK*> made;
    for (int i = 0; i < count; ++i) made.push_back(cmd->new_bblock(&cmd->root_loop));
    cmd->blocks = made;
    return made;
  }
  VREG* reg(const std::string& name) { return new VREG(at(1), name); }
  TVINIT* set(BBLOCK* block, VREG* dst, long value) {
    auto* init = new TVINIT(dst, new TEXPR(*cmd, num(value)));
    block->add_tinstr_back(init);
    return init;
  }
  TVMOVE* move(BBLOCK* block, VREG* dst, VREG* src) {
    auto* copy = new TVMOVE(dst, src);
    block->add_tinstr_back(copy);
    return copy;
  }
  // The ids of the blocks at `places`, and of `list`, for comparison.
  static std::vector<int32_t> ids(const DOMINANCE& d, const std::vector<uint32_t>& places) {
    std::vector<int32_t> found;
    for (uint32_t place : places) found.push_back(d.block(place)->id);
    return found;
  }
  static std::vector<int32_t> ids(std::initializer_list<BBLOCK*> list) {
    std::vector<int32_t> found;
    for (const BBLOCK* block : list) found.push_back(block->id);
    return found;
  }
  // The ids of the dominators of the block at `place`.
  static std::vector<int32_t> dominators(const DOMINANCE& d, uint32_t place) {
    std::vector<uint32_t> places;
    for (uint32_t i = 0; i < d.size(); ++i)
      if (d.dominates(i, place)) places.push_back(i);
    return ids(d, places);
  }

  TCMD* cmd = nullptr;
};

// A -> B, A -> C, B -> D, C -> D; x is set on both sides and read in D.
TEST_F(SsaTest, DiamondMeetsInAPhi) {
  std::vector<BBLOCK*> b = blocks(4);
  b[0]->add_edge(b[1]);
  b[0]->add_edge(b[2]);
  b[1]->add_edge(b[3]);
  b[2]->add_edge(b[3]);

  const DOMINANCE d(b);
  EXPECT_EQ(dominators(d, 3), ids({b[0], b[3]}));
  EXPECT_EQ(dominators(d, 1), ids({b[0], b[1]}));
  EXPECT_EQ(d.idom(0), DOMINANCE::none);
  for (uint32_t i = 1; i < 4; ++i) EXPECT_EQ(d.idom(i), 0u);
  EXPECT_EQ(ids(d, d.children(0)), ids({b[1], b[2], b[3]}));
  EXPECT_EQ(ids(d, d.frontier(1)), ids({b[3]}));
  EXPECT_EQ(ids(d, d.frontier(2)), ids({b[3]}));
  EXPECT_TRUE(d.frontier(0).empty());
  EXPECT_TRUE(d.frontier(3).empty());

  VREG* x = reg("x");
  VREG* y = reg("y");
  TVINIT* left = set(b[1], x, 1);
  TVINIT* right = set(b[2], x, 2);
  TVMOVE* read = move(b[3], y, x);
  const uint32_t first = SSA::NODE::id_counter;
  SSA::GRAPH graph(cmd);

  ASSERT_EQ(graph.blocks_with_phis(), 1u);
  SSA::PHI* phi = graph.phi(b[3], x);
  ASSERT_NE(phi, nullptr);
  SSA::NODE_SET expected{graph.get_node(left, 0), graph.get_node(right, 0)};
  EXPECT_EQ(phi->get_phi_params(), expected);
  EXPECT_EQ(graph.get_node(read, 0)->get_operands(), std::vector<SSA::NODE*>{phi});
  EXPECT_EQ(graph.undefined_count(), 0u);

  // x's phi is placed twice, once from each side; the second one stays.
  std::ostringstream dump;
  graph.dump(dump);
  const std::string p = std::to_string(first + 1);
  auto id = [](const SSA::NODE* node) { return std::to_string(node->id); };
  EXPECT_EQ(dump.str(), "===== SSA =====\n"
                        "B" + std::to_string(b[0]->id) + ":\n"
                        "B" + std::to_string(b[1]->id) + ":\n"
                        "\t" + id(graph.get_node(left, 0)) + ":\tRES0 x = INIT( )\n"
                        "B" + std::to_string(b[2]->id) + ":\n"
                        "\t" + id(graph.get_node(right, 0)) + ":\tRES0 x = INIT( )\n"
                        "B" + std::to_string(b[3]->id) + ":\n"
                        "\t" + p + ":\tPHI x( " + id(graph.get_node(left, 0)) + " " +
                            id(graph.get_node(right, 0)) + " )\n"
                        "\t" + id(graph.get_node(read, 0)) + ":\tRES0 y = MOVE( " + p + " )\n");
}

// b0 -> b1 (head) -> b2 (body) -> b1, b2 -> b3; the body reads x at its top
// and sets it afterwards.
TEST_F(SsaTest, LoopHeadMergesEntryAndBackEdge) {
  std::vector<BBLOCK*> b = blocks(4);
  b[0]->add_edge(b[1]);
  b[1]->add_edge(b[2]);
  b[2]->add_edge(b[1]);
  b[2]->add_edge(b[3]);

  const DOMINANCE d(b);
  EXPECT_EQ(d.idom(1), 0u);
  EXPECT_EQ(d.idom(2), 1u);
  EXPECT_EQ(d.idom(3), 2u);
  EXPECT_EQ(ids(d, d.frontier(1)), ids({b[1]}));
  EXPECT_EQ(ids(d, d.frontier(2)), ids({b[1]}));
  EXPECT_TRUE(d.frontier(3).empty());

  VREG* x = reg("x");
  VREG* y = reg("y");
  TVINIT* before = set(b[0], x, 0);
  TVMOVE* top = move(b[2], y, x);
  TVINIT* after = set(b[2], x, 5);
  auto* store = new TVSTORE;
  store->src = y;
  b[3]->add_tinstr_back(store);
  SSA::GRAPH graph(cmd);

  SSA::PHI* phi = graph.phi(b[1], x);
  ASSERT_NE(phi, nullptr);
  EXPECT_EQ(phi->get_phi_params(),
            (SSA::NODE_SET{graph.get_node(before, 0), graph.get_node(after, 0)}));
  EXPECT_EQ(graph.get_node(top, 0)->get_operands()[0], phi);
  // y is set only in the body: its phi has the back edge's value alone.
  SSA::PHI* y_phi = graph.phi(b[1], y);
  ASSERT_NE(y_phi, nullptr);
  EXPECT_EQ(y_phi->get_phi_params(), SSA::NODE_SET{graph.get_node(top, 0)});
  // A store has no destination; its node answers to -1.
  SSA::NODE* stored = graph.get_node(store, -1);
  ASSERT_NE(stored, nullptr);
  EXPECT_EQ(stored->get_operands()[0], graph.get_node(top, 0));
  EXPECT_EQ(graph.get_node(store, 0), nullptr);
}

// b0 -> b1 (outer head) -> b2 -> b3 (inner head) -> b4 (inner body) -> b3,
// b4 -> b5 -> b1, b5 -> b6.  x is set in the inner body only.
TEST_F(SsaTest, LoopNestPlacesPhisAtBothHeads) {
  std::vector<BBLOCK*> b = blocks(7);
  for (int i = 0; i < 6; ++i) b[i]->add_edge(b[i + 1]);
  b[4]->add_edge(b[3]);
  b[5]->add_edge(b[1]);

  const DOMINANCE d(b);
  for (uint32_t i = 1; i < 7; ++i) EXPECT_EQ(d.idom(i), i - 1);
  EXPECT_EQ(ids(d, d.frontier(1)), ids({b[1]}));
  EXPECT_EQ(ids(d, d.frontier(2)), ids({b[1]}));
  EXPECT_EQ(ids(d, d.frontier(3)), ids({b[1], b[3]}));
  EXPECT_EQ(ids(d, d.frontier(4)), ids({b[1], b[3]}));
  EXPECT_EQ(ids(d, d.frontier(5)), ids({b[1]}));
  EXPECT_TRUE(d.frontier(6).empty());

  VREG* x = reg("x");
  VREG* y = reg("y");
  TVMOVE* read = move(b[4], y, x);
  TVINIT* inner = set(b[4], x, 7);
  SSA::GRAPH graph(cmd);

  SSA::PHI* outer_phi = graph.phi(b[1], x);
  SSA::PHI* inner_phi = graph.phi(b[3], x);
  ASSERT_NE(outer_phi, nullptr);
  ASSERT_NE(inner_phi, nullptr);
  EXPECT_EQ(graph.blocks_with_phis(), 2u);
  // Nothing sets x before the nest: the outer head sees only the value that
  // comes round from the inner body, the inner head also the outer phi.
  EXPECT_EQ(outer_phi->get_phi_params(), SSA::NODE_SET{graph.get_node(inner, 0)});
  EXPECT_EQ(inner_phi->get_phi_params(),
            (SSA::NODE_SET{outer_phi, graph.get_node(inner, 0)}));
  EXPECT_EQ(graph.get_node(read, 0)->get_operands()[0], inner_phi);

  std::vector<SSA::NODE*> all;
  graph.get_all_nodes(all);
  ASSERT_EQ(all.size(), 6u);  // x and y at both heads, the move, the init
  EXPECT_TRUE(all[0]->is_phi());
  EXPECT_EQ(all[4], graph.get_node(read, 0));
}

// A register read before any write comes from one undefined node per
// register; a single block has no phi.
TEST_F(SsaTest, ReadBeforeWriteIsUndefined) {
  std::vector<BBLOCK*> b = blocks(1);
  VREG* x = reg("x");
  VREG* y = reg("y");
  TVMOVE* first = move(b[0], y, x);
  TVMOVE* second = move(b[0], y, x);
  SSA::GRAPH graph(cmd);
  EXPECT_EQ(graph.blocks_with_phis(), 0u);
  ASSERT_EQ(graph.undefined_count(), 1u);
  SSA::NODE* undefined = graph.undefined(x);
  ASSERT_NE(undefined, nullptr);
  EXPECT_TRUE(undefined->is_undefined());
  EXPECT_EQ(graph.get_node(first, 0)->get_operands()[0], undefined);
  EXPECT_EQ(graph.get_node(second, 0)->get_operands()[0], undefined);
}

TEST_F(SsaTest, EmptyLoopDumpsTheHeadlineOnly) {
  SSA::GRAPH graph(cmd);
  std::ostringstream dump;
  graph.dump(dump);
  EXPECT_EQ(dump.str(), "===== SSA =====\n");
  std::vector<SSA::NODE*> all{nullptr};
  graph.get_all_nodes(all);
  EXPECT_TRUE(all.empty());
}

}  // namespace
