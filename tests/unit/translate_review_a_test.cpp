// Stream configurations and generator increments of translated loop nests:
// the written form of strides and counts, slot sharing by that form, and a
// loop whose count is missing.
#include <string>
#include <vector>

#include "ZELT_ZLC/agen.h"
#include "options/register_option.h"
#include "tests/unit/translate_core_fixture.h"

namespace {

class StreamTextTest : public TRANSLATE_TEST {
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
};

TEST_F(StreamTextTest, ConfigurationsKeepTheWrittenFormAndShareSlotsByIt) {
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

TEST_F(StreamTextTest, LoopWithoutCountMovesGeneratorsAsIfItRanOnce) {
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
