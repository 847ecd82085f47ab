// The tree of translated loops: loop headers, declarations, values of trip
// counts and repeat loops, streams and plain address generators, and the
// written form of strides and counts in stream configurations.
#include <string>
#include <vector>

#include "ZELT_ZLC/agen.h"
#include "options/register_option.h"
#include "tests/unit/translate_core_fixture.h"

namespace {

class LoopTest : public TRANSLATE_TEST {
 protected:
  // A constant as the source wrote it: its text and its value differ.
  static const VPEXPR* written(const std::string& text, uint32_t value) {
    auto* e = new VPEXPR(text);
    e->value = value;
    e->eval_type = VPEXPR::EVAL_SIGNED;
    return e;
  }
  // A generator stepping `inner` in j and n*8 in i.
  AGEN* nest_agen(const std::string& name, const VPEXPR* inner) {
    AGEN* g = agen(name, 2, inner);
    g->strides[1] = sym("n * 8");
    return g;
  }
  void store(unsigned line, VREG* src, AGEN* g) {
    v()->clear_curr();
    ref(line, VDATA_TYPE::int32, g);
    v()->new_vstore(at(line));
    v()->set_curr_vreg(src);
    v()->set_vstore_rhs();
  }
  // p[A] with A stepping 4 bytes in j and n*8 in i, under i < n, j < n*2.
  void nest() {
    parm("n", "int32_t");
    parm("p", "__vptr_int32");
    VREG* a = vreg("a");
    loop(2, "i", sym("n"));
    loop(3, "j", sym("n * 2"));
    load(4, a, VDATA_TYPE::int32, 0, nullptr, nest_agen("A", num(4)));
    end_loop();
    end_loop();
  }
  // foreach (r, count, max) { for (i < 8) { a = value; } }, translated.
  std::string repeat_init(const VPEXPR* count, const VPEXPR* max, const VPEXPR* value) {
    VREG* a = vreg("a");
    v()->push_rpt(at(2), "r", count, max);
    loop(3, "i", num(8));
    init(4, a, value);
    v()->add_instr(v()->curr_instr);
    end_loop();
    end_loop();
    return translate();
  }
};

TEST_F(LoopTest, NestReadsThroughAnEngine) {
  nest();
  EXPECT_EQ(translate(),
            "int32_t __p0 = tvals->loop0.tvals[0].p0;\n"
            "void* __p1 = tvals->loop0.tvals[0].p1;\n"
            "__SE_TEMPLATE_v1 __p2 = tvals->loop0.tvals[0].p2;\n"
            "\n"
            "int32_t i;\n"
            "\n"
            "__SE0_OPEN(__p1, __p2);\n"
            "\n"
            "#pragma MUST_ITERATE(1,65535,)\n"
            "#pragma PARALLEL_LOOP\n"
            "for (i = 0; i < n; ++i)\n"
            "{\n"
            "   int32_t j;\n"
            "\n"
            "   #pragma MUST_ITERATE(1,65535,)\n"
            "   #pragma PARALLEL_LOOP\n"
            "   for (j = 0; j < __p0; ++j)\n"
            "   {\n"
            "      zelt_load<int32_t, npt, se0adv>::SE_load(a);\n"
            "   }\n"
            "}\n"
            "__SE0_CLOSE();\n");
  EXPECT_EQ(tkernel->used_parms.size(), 1u);  // n, as the outer count
  EXPECT_EQ(tkernel->scope.decls.count("a"), 1u);
}

TEST_F(LoopTest, WithoutStreamsTheGeneratorStepsAtEachLoopEnd) {
  process_debug_option("disable", "se");
  nest();
  std::string text = translate();
  process_debug_option("disable", "se=0");
  EXPECT_NE(text.find("A = 0;\n\n#pragma"), std::string::npos) << text;
  EXPECT_NE(text.find("      zelt_load<int32_t, npt, nosa>::load(a, (void*)((char*)__p1 + A));\n"
                      "      A += 4;\n"
                      "   }\n"
                      "   A += __p2;\n"
                      "}\n"),
            std::string::npos)
      << text;
  EXPECT_EQ(init_text(false),
            "tvals->loop0.tvals[0].p0 = n * 2;\n"
            "tvals->loop0.tvals[0].p1 = p + 4;\n"
            "tvals->loop0.tvals[0].p2 = ((n * 8) - (((4) * (n * 2))));\n");
  EXPECT_EQ(tkernel->scope.lookup("", "A")->type, "__agen");
}

TEST_F(LoopTest, RunTimeRepeatCountIndexesValuesByTheRepeatVariable) {
  PARM* n = parm("n", "int32_t", PARM::QF_UPDATE);
  parm("m", "int32_t");
  std::string text = repeat_init(sym("m + 1"), num(4), sym("n * 3"));
  TCMD* cmd = tkernel->tcmds[0];
  EXPECT_TRUE(cmd->has_repeat);
  EXPECT_EQ(cmd->rpt_max, 4u);
  EXPECT_EQ(cmd->top_loop->lcv, "r");
  EXPECT_EQ(text.substr(0, 58), "int32_t __tripcount = tvals->loop0.tripcount;\n\nint32_t r;\n");
  EXPECT_NE(text.find("for (r = 0; r < __tripcount; ++r)\n{\n"
                      "   int32_t __p0 = tvals->loop0.tvals[r].p0;\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("      a = (__vector)((int)__p0);\n"), std::string::npos) << text;
  const std::string block =
      "{\n"
      "   tvals->loop0.tripcount = m + 1;\n"
      "   int32_t __tripcount = tvals->loop0.tripcount;\n"
      "   int32_t r;\n"
      "\n"
      "   #pragma MUST_ITERATE(1,65535,)\n"
      "   #pragma PARALLEL_LOOP\n"
      "   for (r = 0; r < __tripcount; ++r)\n"
      "   {\n";
  EXPECT_EQ(init_text(false), block + "      tvals->loop0.tvals[r].p0 = n * 3;\n   }\n}\n");
  n->set_flags(0);
  EXPECT_EQ(init_text(true), block + "   }\n}\n");
}

TEST_F(LoopTest, ConstantRepeatMakesNoCountValueAndLoopVariablesInitAsNames) {
  std::string text = repeat_init(num(3), num(3), sym("i"));
  TCMD* cmd = tkernel->tcmds[0];
  EXPECT_TRUE(cmd->has_repeat);
  EXPECT_EQ(cmd->tvals.rt, nullptr);
  EXPECT_TRUE(cmd->tvals.by_number.empty());
  EXPECT_NE(text.find("for (r = 0; r < 3; ++r)"), std::string::npos) << text;
  EXPECT_NE(text.find("a = (__vector)((int)i);"), std::string::npos) << text;
  // Blocks chain in creation order; each loop adds a back edge before the
  // edge into its cleanup block.
  LOOP* inner = cmd->find_loop("i");
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(inner->last_block()->succ.size(), 2u);
  EXPECT_EQ(inner->last_block()->succ.front(), inner->entry_block);
}

TEST_F(LoopTest, ConfigurationsKeepTheWrittenFormAndShareSlotsByIt) {
  parm("n", "int32_t");
  parm("p", "__vptr_int32");
  VREG* a = vreg("a");
  loop(2, "i", sym("n"));
  loop(3, "j", written("0x4", 4));
  load(4, a, VDATA_TYPE::int32, 0, nullptr, nest_agen("A", written("0x10", 16)));
  store(5, a, nest_agen("B", written("0x10", 16)));
  store(6, a, nest_agen("C", num(16)));
  store(7, a, nest_agen("D", written("0x10", 16)));
  end_loop();
  end_loop();
  translate();

  const std::string init = init_text(false);
  EXPECT_NE(init.find("SE_init<int32_t, zelt_load<int32_t, npt>, TRANSPOSE_OFF>::apply("
                      "8, 0x10/4, 0x4, n * 8/4, n, 0/4, 1, 0/4, 1, 0/4, 1);"),
            std::string::npos)
      << init;
  EXPECT_NE(init.find("SA_init<int32_t, 8, TRANSPOSE_OFF>::apply("
                      "8, 16/4, 0x4, n * 8/4, n, 0/4, 1, 0/4, 1, 0/4, 1);"),
            std::string::npos)
      << init;

  // Equal values written differently take two generators.
  TCMD* cmd = tkernel->tcmds[0];
  std::vector<const STREAM_TEMPLATE*> streams;
  for (BBLOCK* block : cmd->blocks)
    for (TINSTR* instr : block->instrs)
      if (instr->is_tvstore()) streams.push_back(instr->stream());
  ASSERT_EQ(streams.size(), 3u);
  EXPECT_EQ(streams[0], cmd->sa_table.at(0));
  EXPECT_EQ(streams[1], cmd->sa_table.at(1));
  EXPECT_EQ(streams[2], streams[0]);
}

TEST_F(LoopTest, LoopWithoutCountMovesGeneratorsAsIfItRanOnce) {
  process_debug_option("disable", "se");
  parm("n", "int32_t");
  parm("p", "__vptr_int32");
  VREG* a = vreg("a");
  loop(2, "i", sym("n"));
  loop(3, "j", nullptr);  // a header that failed to parse
  load(4, a, VDATA_TYPE::int32, 0, nullptr, nest_agen("A", num(4)));
  end_loop();
  end_loop();
  std::string text = translate();
  process_debug_option("disable", "se=0");
  EXPECT_NE(text.find("      A += 4;\n   }\n   A += __p1;\n}\n"), std::string::npos) << text;
  EXPECT_NE(init_text(false).find(".p1 = ((n * 8) - (4));"), std::string::npos)
      << init_text(false);
}

}  // namespace
