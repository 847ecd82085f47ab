// Vector loops: induction of generator increments, instruction limits,
// nesting rules, positions, trip-count registers and the kernel's counts.
#include "tests/unit/zelt_model_support.h"

namespace {

using LoopTest = MODEL_TEST;

TEST_F(LoopTest, InductionSubtractsWhatDeeperLoopsAdded) {
  VCMD* vcmd = curr_vcmd;
  vcmd->push_block(at_line(1), "j", num(10));
  vcmd->push_block(at_line(2), "i", sym("N"));
  AGEN* a = vcmd->new_agen(at_line(3), "A");
  a->has_init = true;
  a->strides[2] = VPEXPR::one;
  a->strides[1] = sym("w");
  a->deepest_depth = 2;
  AGEN* zero = vcmd->new_agen(at_line(4), "Z");
  zero->has_init = true;
  vcmd->pop_block();
  vcmd->pop_block();
  EXPECT_EQ(kernel->vcmds.size(), 1u);
  ASSERT_NE(a->increments[1], nullptr);
  EXPECT_EQ(a->increments[2], PREG_ONE);
  EXPECT_EQ(a->increments[1]->text, "(w) -(1)*((N)-1)");
  EXPECT_EQ(a->condition, 2);
  EXPECT_FALSE(zero->has_incr());
  EXPECT_EQ(vcmd->innermost->agens.num_agens(), 1);
  EXPECT_EQ(a->number, 0);
  EXPECT_EQ(zero->number, 1);
}

TEST_F(LoopTest, ConstantIncrementOfZeroMakesLoadsConditional) {
  VCMD* vcmd = curr_vcmd;
  VREG* v = kernel->new_vreg(at_line(1), "v", VDATA_TYPE::untyped);
  v->alias_name = "w";
  vcmd->push_block(at_line(2), "j", num(4));
  vcmd->push_block(at_line(3), "i", num(4));
  AGEN* a = vcmd->new_agen(at_line(4), "A");
  a->has_init = true;
  a->strides[2] = num(4);
  a->strides[1] = num(12);
  a->deepest_depth = 2;
  FAKE_INSTR* load = add(5, VINSTR::IC_VLOAD);
  load->lv = vcmd->new_vlvalue(at_line(5), sym("p"), nullptr, nullptr, nullptr, a,
                               VDATA_TYPE::int16);
  load->dst = v;
  vcmd->pop_block();
  vcmd->pop_block();
  ASSERT_NE(a->increments[1], nullptr);
  EXPECT_EQ(a->increments[1]->text, "0");
  EXPECT_EQ(a->condition, 1);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 5: warning: register of conditional load aliased; performance may\n"
            "   suffer\n   unless the --zelt_unconditional_loads option is supplied\n");
}

TEST_F(LoopTest, GeneratorsPerBlockAndPerInstruction) {
  for (int n = 0; n < 9; ++n) curr_vcmd->new_agen(at_line(n + 1), "G" + std::to_string(n));
  AGEN* g = curr_vcmd->lookup_agen("G0");
  EXPECT_TRUE(g->check_and_assign(0, at_line(10)));
  EXPECT_FALSE(g->check_and_assign(0, at_line(11)));
  EXPECT_EQ(kernel->global_agens.size(), 9u);
  EXPECT_FALSE(curr_vcmd->check_agen_init(
      curr_vcmd->new_vlvalue(at_line(12), sym("p"), nullptr, nullptr, nullptr, g,
                             VDATA_TYPE::uint8),
      at_line(12)));
  EXPECT_EQ(messages(),
            "\"k.zc\", line 9: error: too many address generators (Max 8), cannot allocate G8\n"
            "\"k.zc\", line 11: error: address generator \"G0\" must be unique to this\n"
            "   instruction\n"
            "\"k.zc\", line 12: error: address generator \"G0\" is uninitialized\n");
}

TEST_F(LoopTest, InstructionLimits) {
  curr_vcmd->push_block(at_line(1), "i", num(4));
  for (int n = 0; n < 40; ++n) add(2, VINSTR::IC_VOP, "__zelt_vadd");
  add(3, VINSTR::IC_VOP, "__zelt_vmove");
  add(4, VINSTR::IC_VOP | VINSTR::IC_VMOVE, "MOV_TEMP_NAME");
  for (int n = 0; n < 8; ++n) add(5, VINSTR::IC_VLOAD);
  for (int n = 0; n < 9; ++n) add(6, VINSTR::IC_VINIT);
  for (int n = 0; n < 9; ++n) add(7, VINSTR::IC_VSTORE);
  EXPECT_EQ(curr_vcmd->innermost->instrs.size(), 41u + 8 + 8 + 8);
  EXPECT_EQ(curr_vcmd->op_count, 41);
  EXPECT_EQ(curr_vcmd->init_count, 9);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 4: error: too many arithemetic operations, maximum is 40\n"
            "\"k.zc\", line 6: error: trying to initialize/load 17 vregs, maximum is 16\n"
            "\"k.zc\", line 7: error: too many stores, maximum is 8\n");
}

TEST_F(LoopTest, FailedRulesAndEarlyExits) {
  curr_vcmd->push_block(at_line(1), "i", num(4));
  FAKE_INSTR* bad = new FAKE_INSTR(2, VINSTR::IC_VSTORE);
  bad->valid = false;
  curr_vcmd->add_instr(bad);
  EXPECT_EQ(curr_vcmd->curr_instr, bad);
  EXPECT_TRUE(curr_vcmd->innermost->instrs.empty());
  curr_vcmd->vexit = add(3, VINSTR::IC_VOP | VINSTR::IC_VEXIT, "__zelt_vexitnz");
  add(4, VINSTR::IC_VSTORE);
  EXPECT_EQ(curr_vcmd->innermost->instrs.size(), 2u);
  EXPECT_EQ(messages(), "\"k.zc\", line 4: error: no instruction may occur after an early exit\n");
}

TEST_F(LoopTest, NestingRulesAndPositions) {
  VCMD* vcmd = curr_vcmd;
  vcmd->push_block(at_line(1), "j", num(4));
  add(2, VINSTR::IC_VOP, "__zelt_vadd");
  add(3, VINSTR::IC_VOP | VINSTR::IC_VMOVE, "__zelt_vmove");
  FAKE_INSTR* before = add(4, VINSTR::IC_VLOAD);
  vcmd->push_block(at_line(5), "i", num(4));
  FAKE_INSTR* inner = add(6, VINSTR::IC_VLOAD);
  vcmd->pop_block();
  FAKE_INSTR* after = add(7, VINSTR::IC_VSTORE);
  vcmd->push_block(at_line(8), "k", num(4));
  EXPECT_EQ(before->position(), VINSTR::POS_BEFORE_NESTED);
  EXPECT_EQ(after->position(), VINSTR::POS_AFTER_NESTED);
  EXPECT_EQ(inner->position(), VINSTR::POS_INNERMOST);
  EXPECT_EQ(vcmd->blocks[1]->get_instrs_of_type(&VINSTR::is_vload).size(), 1u);
  EXPECT_EQ(vcmd->blocks[1]->get_instrs_of_type(nullptr).size(), 5u);
  EXPECT_EQ(inner->zelt_depth(), 4);
  EXPECT_EQ(before->zelt_depth(), 3);
  EXPECT_EQ(vcmd->curr_block, vcmd->blocks[1]);
  vcmd->push_rpt(at_line(9), "r", num(2), num(4));
  EXPECT_EQ(messages(),
            "\"k.zc\", line 2: error: operations must be inside the innermost loop\n"
            "\"k.zc\", line 8: error: cannot have more than one nested loop at the same depth\n"
            "\"k.zc\", line 9: error: zelt instructions can not directly precede a foreach\n"
            "   loop\n"
            "\"k.zc\", line 2: error: operations must be inside the innermost loop\n"
            "\"k.zc\", line 9: error: foreach loop at illegal depth, must be the outermost\n"
            "   loop\n");
}

TEST_F(LoopTest, ForeachAndTripCountRegisters) {
  VCMD* vcmd = curr_vcmd;
  vcmd->push_rpt(at_line(1), "r", sym("n"), sym("m"));
  vcmd->push_block(at_line(2), "i", sym("N"));
  EXPECT_EQ(vcmd->vrpt->depth, -1);
  EXPECT_EQ(vcmd->innermost->depth, 0);
  int32_t level = -1;
  EXPECT_TRUE(vcmd->is_lcv("r", level));
  EXPECT_EQ(level, 0);
  EXPECT_TRUE(vcmd->is_lcv("i", level));
  EXPECT_EQ(level, 1);
  EXPECT_FALSE(vcmd->is_lcv("n", level));
  EXPECT_EQ(vcmd->lcv_name(1), "i");
  EXPECT_EQ(vcmd->tripcount_expr(2)->value64(), 1);
  EXPECT_EQ(vcmd->rpt_max(), 1);
  vcmd->pop_block();
  vcmd->pop_block();
  EXPECT_EQ(vcmd->pregs.by_number.at(5)->text, "(N)-1");
  for (int n = 2; n <= 4; ++n) EXPECT_EQ(vcmd->pregs.by_number.at(n)->text, "0");
  EXPECT_EQ(messages(), "\"k.zc\", line 1: error: foreach maximum iterations \"m\" is not constant\n");
}

TEST_F(LoopTest, TripCountLimit) {
  curr_vcmd->push_block(at_line(1), "i", num(65535));
  curr_vcmd->pop_block();
  curr_vcmd->push_block(at_line(2), "i", num(65536));
  curr_vcmd->pop_block();
  curr_vcmd->push_block(at_line(3), "i", sym("n"));
  curr_vcmd->pop_block();
  EXPECT_EQ(kernel->vcmds.size(), 3u);
  EXPECT_EQ(messages(), "\"internal\": error: loop tripcount cannot exceed 65535\n");
}

TEST_F(LoopTest, KernelCountsParameterWords) {
  curr_vcmd->push_rpt(at_line(1), "r", sym("n"), num(3));
  curr_vcmd->push_block(at_line(2), "i", num(4));
  curr_vcmd->pregs.new_preg("x", 1, false);
  curr_vcmd->pop_block();
  curr_vcmd->pop_block();
  curr_vcmd->push_block(at_line(3), "i", num(4));
  for (int n = 0; n < 59; ++n) curr_vcmd->pregs.new_preg("y" + std::to_string(n), 1, false);
  curr_vcmd->pop_block();
  kernel->analyze_kernel();
  EXPECT_EQ(kernel->vcmds[0]->preg_count, 6);
  EXPECT_EQ(kernel->vcmds[0]->vrpt->ctrl_index, 0);
  EXPECT_EQ(kernel->ctrl_count, 1u);
  EXPECT_EQ(kernel->vcmds[1]->preg_count, 64);
  EXPECT_EQ(kernel->param_count, 6u * 3 + 64);
  EXPECT_EQ(messages(),
            "\"k.zc\", line 3: error: loop uses too many parameter registers (64); rewrite to\n"
            "   use fewer\n");
}

TEST_F(LoopTest, LaterLoopsSeeDefinitionsOfEarlierOnes) {
  VREG* v = kernel->new_vreg(at_line(1), "v", VDATA_TYPE::untyped);
  VREG* w = kernel->new_vreg(at_line(1), "w", VDATA_TYPE::untyped);
  curr_vcmd->push_block(at_line(2), "i", num(4));
  FAKE_INSTR* store = add(3, VINSTR::IC_VSTORE);
  curr_vcmd->vreg_instrs[v] = store;
  curr_vcmd->pop_block();
  curr_vcmd->push_block(at_line(4), "i", num(4));
  FAKE_INSTR* init = add(5, VINSTR::IC_VINIT);
  curr_vcmd->vreg_instrs[w] = init;
  curr_vcmd->vreg_instrs[v] = add(6, VINSTR::IC_VSTORE);
  curr_vcmd->pop_block();
  EXPECT_EQ(kernel->find_vreg_instr(v), store);
  EXPECT_EQ(kernel->find_vreg_instr(w), init);
  curr_vcmd->push_block(at_line(7), "i", num(4));
  curr_vcmd->pop_block();
  EXPECT_EQ(kernel->find_vreg_instr(v), store);
}

TEST_F(LoopTest, HeaderLines) {
  kernel->set_name("k");
  kernel->new_parm(at_line(1), "n", PARM::QF_NONE, "int", "");
  curr_vcmd->push_rpt(at_line(2), "r", sym("n"), num(2));
  curr_vcmd->push_block(at_line(3), "i", num(4));
  curr_vcmd->pop_block();
  curr_vcmd->pop_block();
  kernel->format();
  EXPECT_EQ(header.str(),
            "/* Parameter Register Block */\n"
            "extern unsigned short __pblock_k[8];\n\n"
            "/* Basic Runner Function */\nvoid k(\n   int n);\n\n"
            "/* Custom Runner Function */\n"
            "void k_custom(\n   int n,\n   unsigned short pblock[]);\n\n"
            "/* Parameter Block Initialization Function */\n"
            "unsigned int k_init(\n   int n,\n   unsigned short pblock[]);\n\n"
            "/* ZELT VLOOP Execution Function */\n"
            "void k_vloops(\n   unsigned short pblock[]);\n\n"
            "/* Parameter Register Count */\n"
            "#define PARAM_SIZE_k ((unsigned int)8)\n"
            "unsigned int k_param_count(void);\n"
            "/***********************************************************/\n");
}

}  // namespace
