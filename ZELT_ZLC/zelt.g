// The kernel language: lexer and parser.  The parser's actions build the
// kernel model through curr_vkernel and curr_vcmd while the text is read;
// only the parameter-expression rules build trees, in their actions.
grammar zelt;

options {
  language = C;
  tokenVocab = zelt_vocab;
}

@lexer::includes {
#include "ZELT_ZLC/antlr_if.h"
}

@lexer::context {
  ANTLR_INTERFACE* ai;  // the interface that owns this lexer
}

@parser::context {
  EXPR_TREES* trees;  // the nodes of the current statement's expressions
  TOKEN_BUFFER* tokens;  // the tokens that the parser's stream serves
}

@parser::includes {
#include "ZELT_ZLC/antlr_if.h"
#include "ZELT_ZLC/expr_tree.h"
#include "ZELT_ZLC/follow_stack.h"
#include "ZELT_ZLC/kernel_objects.h"
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/text_out.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vctree.h"
#include "ZELT_ZLC/vload.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vstore.h"
}

@parser::members {
// The arena of expression trees, and the text of a rule from its tokens.
#define TREES (*ctx->trees)
#define RULE_TEXT(start, stop) antlr_text(RECOGNIZER, start, stop)
// The look-ahead of the rules and decisions asks the token buffer directly,
// not through the functions of the stream.
#undef LA
#define LA(n) ctx->tokens->look_ahead(n)
#undef LT
#define LT(n) ctx->tokens->look_token(n)
// So do the matches of expected tokens and the pushes and pops of the
// follow stack around every rule call.
#undef MATCHT
#define MATCHT(t, fs) ctx->tokens->match_token(RECOGNIZER, t, fs)
#undef FOLLOWPUSH
#define FOLLOWPUSH(x) follow_push(FOLLOWSTACK, (void*)&(x))
#undef FOLLOWPOP
#define FOLLOWPOP() follow_pop(FOLLOWSTACK)

// The level of a binary operator, from 1 for the logical or to 10 for the
// multiplying operators; 0 for any other token.
static int binary_level(ANTLR3_UINT32 type) {
  switch (type) {
    case OROR: return 1;
    case ANDAND: return 2;
    case ORB: return 3;
    case XORB: return 4;
    case ANDB: return 5;
    case EQ: case NEQ: return 6;
    case LESS: case LE: case GT: case GE: return 7;
    case SHL: case SHR: return 8;
    case PLUS: case MINUS: return 9;
    case MULT: case DIV: case MOD: return 10;
    default: return 0;
  }
}
}


// ---------------------------------------------------------------------------
// Kernels, parameters and declarations.

translation_unit
  : kernel_definition ( kernel_definition )* EOF
  ;

kernel_definition
@init {
  if (BACKTRACKING == 0) {
    KERNEL_OBJECTS::begin();  // the objects of the previous kernel go first
    curr_vkernel = new_vkernel(source_text(), header_text());
  }
}
  : kernel_header compound_statement
    { curr_vkernel->format(); }
  ;

kernel_header
  : kernel_return_type kernel_declarator
  ;

kernel_return_type
  : 'void'
  ;

kernel_declarator
  : name=IDENTIFIER '(' parameter_list ')'
    { curr_vkernel->set_name(antlr_text($name)); }
  ;

parameter_list
  : parameter_declaration ( ',' parameter_declaration )*
  |
  ;

parameter_declaration
  : q=parameter_qualifiers t=parameter_type name=IDENTIFIER a=array_suffixes
    {
      curr_vkernel->new_parm(antlr_srcinfo($name), antlr_text($name), $q.flags,
                             RULE_TEXT($t.start, $t.stop), RULE_TEXT($a.start, $a.stop));
    }
  ;

parameter_qualifiers returns [uint32_t flags = 0]
@init { $flags = 0; }
  : ( q=parameter_qualifier { $flags |= $q.flag; } )*
  ;

parameter_qualifier returns [uint32_t flag = 0]
  : '__update' { $flag = PARM::QF_UPDATE; }
  | '__tscratch' { $flag = PARM::QF_TSCRATCH; }
  | '__output_only' { $flag = PARM::QF_OUTPUT_ONLY; }
  ;

parameter_type
  : type_specifier_list ( pointer )?
  ;

type_specifier_list
  : ( INT_TYPE | UNS_TYPE | 'void' | 'char' | 'short' | 'long' | 'float' | 'double' | 'signed'
    | typedef_name
    )+
  ;

typedef_name
  : IDENTIFIER
  ;

pointer
  : MULT pointer
  | MULT
  ;

array_suffixes
  : ( array_suffix )*
  ;

array_suffix
  : '[' constant ']'
  | '[' ']'
  ;

compound_statement
  : '{' statement_list '}'
  ;

statement_list
  : kernel_statement ( kernel_statement )*
  ;

declaration
  : vector_declaration
  | agen_declaration
  ;

vector_declaration
scope { VDATA_TYPE type; }
  : vector_type vreg_declarator_list ';'
  ;

vector_type
  : '__vector' { $vector_declaration::type = VDATA_TYPE::untyped; }
  | '__vector_int32' { $vector_declaration::type = VDATA_TYPE::int32; }
  | '__vector_uint32' { $vector_declaration::type = VDATA_TYPE::uint32; }
  ;

vreg_declarator_list
  : vreg_declarator ( ',' vreg_declarator )*
  ;

vreg_declarator
@init {
  if (BACKTRACKING == 0) curr_vcmd->clear_curr();
}
  : name=IDENTIFIER
    {
      curr_vkernel->new_vreg(antlr_srcinfo($name), antlr_text($name),
                             $vector_declaration::type);
    }
    ( ASG vreg_rhs )?
  ;

agen_declaration
  : '__agen' agen_declarator_list ';'
  ;

agen_declarator_list
  : agen_declarator ( ',' agen_declarator )*
  ;

agen_name returns [AGEN* agen = NULL]
  : name=IDENTIFIER
    { $agen = curr_vcmd->new_agen(antlr_srcinfo($name), antlr_text($name)); }
  ;

agen_declarator
@init { EXPR_TREE* formula = nullptr; }
  : a=agen_name ( ASG e=agen_expression { formula = $e.expr; } )?
    { analyze_agen_expr(formula, $a.agen); }
  ;

agen_expression returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : e=pexpression { $expr = $e.expr; }
  ;

// ---------------------------------------------------------------------------
// Statements and loops.

kernel_statement
options { k = 1; }
scope { int unused; }
@init {
  if (BACKTRACKING == 0) {
    antlr_begin_statement(RECOGNIZER);
    antlr_push(RECOGNIZER, "statement");
    curr_vcmd->clear_curr();
  }
}
@after {
  if (BACKTRACKING == 0) antlr_pop(RECOGNIZER);
}
  : { is_agen(LT(1)) }?=> agen_assignment
  | { is_vreg(LT(1)) }?=> vreg_statement
  | ( vreg_target )=> vreg_statement
  | store_statement
  | loop_statement
  | special_loop_statement
  | declaration
  | if_statement
  ;

loop_statement
  : ( f='for' '(' init=loop_init ';' cond=loop_condition ';' loop_increment ')'
      {
        curr_vcmd->push_block(antlr_srcinfo($f), antlr_text($init.name), $cond.tripcount);
      }
    | f='foreach' '(' lcv=IDENTIFIER ',' count=pexpression ',' limit=pexpression ')'
      {
        curr_vcmd->push_rpt(antlr_srcinfo($f), antlr_text($lcv),
                            build_pexpr($count.expr, RULE_TEXT($count.start, $count.stop)),
                            build_pexpr($limit.expr, RULE_TEXT($limit.start, $limit.stop)));
      }
    )
    compound_statement
    ( exit_label )?
    { curr_vcmd->pop_block(); }
  ;

exit_label
  : name=IDENTIFIER ':' ';'
    { curr_vcmd->set_vexit_level(antlr_srcinfo($name), antlr_text($name)); }
  ;

loop_init returns [pANTLR3_COMMON_TOKEN name = NULL]
  : INT_TYPE id=IDENTIFIER ASG first=constant
    {
      $name = $id;
      check_pexpr_value_equals($first.expr, RULE_TEXT($first.start, $first.stop), 0);
    }
  ;

loop_condition returns [VPEXPR* tripcount = NULL]
@init { $tripcount = nullptr; }
  : IDENTIFIER LESS e=pexpression
    { $tripcount = build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop)); }
  ;

loop_increment
  : '++' IDENTIFIER
  | IDENTIFIER '++'
  | IDENTIFIER '+=' step=integer_constant
    { check_pexpr_value_equals($step.expr, RULE_TEXT($step.start, $step.stop), 1); }
  ;

special_loop_statement
@init {
  VPEXPR* first = nullptr;
  VPEXPR* second = nullptr;
  VPEXPR* third = nullptr;
  VPEXPR* fourth = nullptr;
}
  : '_HISTOGRAM' '(' count=pexpression
    ( ',' size=pexpression
      { second = build_pexpr($size.expr, RULE_TEXT($size.start, $size.stop)); }
    )?
    ')' ';'
    {
      first = build_pexpr($count.expr, RULE_TEXT($count.start, $count.stop));
      curr_vkernel->add_histogram_vloop(antlr_srcinfo($count.expr), first, second);
    }
  | '_LOOKUP' '(' tables=pexpression ',' points=pexpression
    ( ',' dup=pexpression { third = build_pexpr($dup.expr, RULE_TEXT($dup.start, $dup.stop)); }
      ( ',' size=pexpression
        { fourth = build_pexpr($size.expr, RULE_TEXT($size.start, $size.stop)); }
      )?
    )?
    ')' ';'
    {
      first = build_pexpr($tables.expr, RULE_TEXT($tables.start, $tables.stop));
      second = build_pexpr($points.expr, RULE_TEXT($points.start, $points.stop));
      curr_vkernel->add_tablelkup_vloop(antlr_srcinfo($tables.expr), first, second, third, fourth);
    }
  | '_EXPAND' '(' flags=pexpression ')' ';'
    {
      curr_vkernel->add_tablelkup_vloop(antlr_srcinfo($flags.expr), nullptr, nullptr, nullptr,
                                        nullptr);
    }
  | '_COLLATE' '(' pexpression ')' ';'
  ;

agen_assignment
  : a=agen ASG e=agen_expression ';'
    { analyze_agen_expr($e.expr, $a.agen); }
  ;

vreg_statement
  : vreg_target ASG vreg_rhs ';'
  | vreg_opassign ';'
  | vreg_method ';'
  | vreg_pair ASG vreg_method ';'
  ;

vreg_target
  : v=vreg { curr_vcmd->set_curr_vreg($v.vreg); }
  | vreg_pair
  ;

vreg_pair
  : '(' first=vreg COMMA second=vreg ')' { curr_vcmd->set_curr_vpair($first.vreg, $second.vreg); }
  ;

vreg_rhs
options { k = 1; }
  : ( load_expression )=> load_expression
  | ( vector_operation )=> vector_operation
  | e=pexpression
    {
      curr_vcmd->new_vinit(antlr_srcinfo($e.expr),
                           build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop)));
    }
  ;

load_expression
  : e=pexpression
    ( '[' a=agen ']'
      {
        analyze_lvalue_expr($e.expr, RULE_TEXT($e.start, $e.stop), $a.agen);
        curr_vcmd->new_vload(antlr_srcinfo($e.expr));
      }
    | '[' 'expand' '(' flags=vreg ')' ']'
      {
        analyze_lvalue_expr($e.expr, RULE_TEXT($e.start, $e.stop), nullptr);
        curr_vcmd->add_expand_vload(antlr_srcinfo($e.expr), $flags.vreg);
      }
    )
    ( load_distribution )?
    ( circular_suffix )?
    { curr_vcmd->add_instr(curr_vcmd->curr_instr); }
  ;

load_distribution
  : STDOT
    ( 'npt' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::NPT); }
    | 'onept' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::ONEPT); }
    | 'circ2' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::CIRC2); }
    | 'ds2' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::DS2); }
    | 'us2' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::US2); }
    | 'deinterleave' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::DEINTERLEAVE); }
    | 'dist' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::CUSTOM); }
    | 'dist' '(' custom_dist_list ')' { curr_vcmd->set_vload_dist(VLOAD::CUSTOM); }
    | 'nbits' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::NBITS); }
    | 'weight_load' '(' ')' { curr_vcmd->set_vload_dist(VLOAD::WEIGHT_LOAD); }
    | 'hist_update' '(' data=vreg ( memory_rounding )* COMMA weight=vreg ')'
      { curr_vcmd->add_hist_update(antlr_srcinfo($data.start), $data.vreg, $weight.vreg); }
    | 'lookup' '(' index=vreg ( memory_rounding )* ')'
      { curr_vcmd->add_table_lookup(antlr_srcinfo($index.start), $index.vreg); }
    | word=IDENTIFIER '(' ( pid | agen | vreg )? ')'
      { DIAG::zlc_illegal_dist message; antlr_report(message, $word); }
    )
  ;

custom_dist_list
  : custom_dist_value ( COMMA custom_dist_value )*
  ;

custom_dist_value
  : e=pexpression
    { curr_vcmd->add_cust_pexpr(build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop))); }
  ;

store_statement
  : store_target ASG store_source ';'
    { curr_vcmd->set_vstore_rhs(); }
  ;

store_target
  : e=pexpression
    ( '[' a=agen ']'
      {
        analyze_lvalue_expr($e.expr, RULE_TEXT($e.start, $e.stop), $a.agen);
        curr_vcmd->new_vstore(antlr_srcinfo($e.expr));
      }
    | '[' 'collate' '(' pred=vreg ')' ']'
      {
        analyze_lvalue_expr($e.expr, RULE_TEXT($e.start, $e.stop), nullptr);
        curr_vcmd->new_collate_vstore(antlr_srcinfo($e.expr), $pred.vreg);
      }
    )
    ( store_distribution )?
    ( circular_suffix )?
  ;

store_distribution
  : STDOT
    ( 'npt' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::NPT, nullptr); }
    | 'table_npt' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::NPT, nullptr); }
    | 'onept' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::ONEPT, nullptr); }
    | 'ds2' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::DS2, nullptr); }
    | 'interleave' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::INTERLEAVE, nullptr); }
    | 'offset_np1' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::OFFSET_NP1, nullptr); }
    | 's_scatter' '(' v=vreg ')' { curr_vcmd->set_vstore_dist(VSTORE::S_SCATTER, $v.vreg); }
    | 'p_scatter' '(' v=vreg ')' { curr_vcmd->set_vstore_dist(VSTORE::P_SCATTER, $v.vreg); }
    | 'skip' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::SKIP, nullptr); }
    | 'table_skip' '(' ')' { curr_vcmd->set_vstore_dist(VSTORE::SKIP, nullptr); }
    | word=IDENTIFIER '(' ( pid | agen | vreg )? ')'
      { DIAG::zlc_illegal_dist message; antlr_report(message, $word); }
    )
  ;

store_source
  : vreg_target ( memory_rounding )* ( store_predicate )?
  ;

store_predicate
  : STDOT 'predicate' '(' pred=vreg ')' { curr_vcmd->set_vstore_pred($pred.vreg); }
  ;

circular_suffix
  : MOD size=circular_size { curr_vcmd->set_lval_circ($size.code); }
  ;

circular_size returns [int32_t code = 0]
  : 'CIRC_1K' { $code = 1; }
  | 'CIRC_2K' { $code = 2; }
  | 'CIRC_4K' { $code = 3; }
  | 'CIRC_8K' { $code = 4; }
  | 'CIRC_16K' { $code = 5; }
  | 'CIRC_32K' { $code = 6; }
  | IDENTIFIER { $code = 0; }
  ;

// The forms are tried in order by speculation, so three saturation bounds
// fail as a whole.
memory_rounding
options { backtrack = true; }
  : memory_round
  | memory_truncate
  | memory_saturate4
  | memory_saturate2
  | memory_saturate1
  | memory_saturate0
  ;

memory_round
  : STDOT 'round' '(' e=pexpression ')'
    { curr_vcmd->set_vmem_round(build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop))); }
  ;

memory_truncate
  : STDOT 'truncate' '(' e=pexpression ')'
    { curr_vcmd->set_vmem_trunc(build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop))); }
  ;

memory_saturate4
  : STDOT 'saturate' '(' a=pexpression COMMA b=pexpression COMMA c=pexpression COMMA
    d=pexpression ')'
    {
      curr_vcmd->set_vmem_sat(build_pexpr($a.expr, RULE_TEXT($a.start, $a.stop)),
                              build_pexpr($b.expr, RULE_TEXT($b.start, $b.stop)),
                              build_pexpr($c.expr, RULE_TEXT($c.start, $c.stop)),
                              build_pexpr($d.expr, RULE_TEXT($d.start, $d.stop)));
    }
  ;

memory_saturate2
  : STDOT 'saturate' '(' a=pexpression COMMA b=pexpression ')'
    {
      curr_vcmd->set_vmem_sat(build_pexpr($a.expr, RULE_TEXT($a.start, $a.stop)),
                              build_pexpr($b.expr, RULE_TEXT($b.start, $b.stop)), nullptr, nullptr);
    }
  ;

memory_saturate1
  : STDOT 'saturate' '(' a=pexpression ')'
    {
      curr_vcmd->set_vmem_sat(build_pexpr($a.expr, RULE_TEXT($a.start, $a.stop)), nullptr, nullptr,
                              nullptr);
    }
  ;

memory_saturate0
  : STDOT 'saturate' '(' ')'
    { curr_vcmd->set_vmem_sat(nullptr, nullptr, nullptr, nullptr); }
  ;

// The three shapes are tried in order by speculation.
if_statement
options { backtrack = true; }
  : conditional_move
  | early_exit
  | early_exit_compare
  ;

conditional_move
  : f='if' '(' move_condition ')' dst=vreg ASG src=vreg ';'
    { curr_vcmd->new_vmove(antlr_srcinfo($f), $dst.vreg, $src.vreg); }
  ;

early_exit
  : f='if' '(' v=vreg '[' lane=pexpression ']' ')' 'goto' target=IDENTIFIER ';'
    {
      curr_vcmd->new_vexit(antlr_srcinfo($f), antlr_text($target), $v.vreg,
                           build_pexpr($lane.expr, RULE_TEXT($lane.start, $lane.stop)), nullptr);
    }
  ;

early_exit_compare
  : f='if' '(' v=vreg '[' lane=pexpression ']' NEQ rhs=pexpression ')' 'goto' target=IDENTIFIER
    ';'
    {
      curr_vcmd->new_vexit(antlr_srcinfo($f), antlr_text($target), $v.vreg,
                           build_pexpr($lane.expr, RULE_TEXT($lane.start, $lane.stop)),
                           build_pexpr($rhs.expr, RULE_TEXT($rhs.start, $rhs.stop)));
    }
  ;

move_condition
  : lcv=IDENTIFIER EQ e=pexpression
    {
      curr_vcmd->add_vmove_lcv(antlr_srcinfo($lcv), antlr_text($lcv),
                               build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop)), VMOVE::MP_ZERO);
    }
  | ( move_condition_term ( ANDAND move_condition_term )* )=>
    move_condition_term ( ANDAND move_condition_term )*
  | '(' move_condition ')'
  ;

move_condition_term
  : 'last' '(' lcv=IDENTIFIER COMMA e=pexpression ')'
    {
      curr_vcmd->add_vmove_lcv(antlr_srcinfo($lcv), antlr_text($lcv),
                               build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop)),
                               VMOVE::MP_TRIPCOUNT);
    }
  | '(' lcv=IDENTIFIER EQ e=pexpression ')'
    {
      curr_vcmd->add_vmove_lcv(antlr_srcinfo($lcv), antlr_text($lcv),
                               build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop)), VMOVE::MP_ZERO);
    }
  | '(' move_condition_term ')'
  ;

// ---------------------------------------------------------------------------
// Vector operations and register methods.  The position of an operation is
// that of its operator or keyword; a null destination is the statement's
// register.

vector_operation
  : op=NOTB a=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vnot", nullptr, $a.reg, nullptr, nullptr); }
  | v=vreg { curr_vcmd->new_vmove(antlr_srcinfo($v.start), nullptr, $v.vreg); }
  | v=vreg op=SHL w=vreg { curr_vcmd->new_vop(antlr_srcinfo($op), "vshf", nullptr, $v.vreg, $w.vreg, nullptr); }
  | op='round' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vrnd", nullptr, $a.reg, $b.reg, nullptr); }
  | op='abs' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vabs", nullptr, $a.reg, nullptr, nullptr); }
  | op='abs' '(' a=vsource MINUS b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vabsdif", nullptr, $a.reg, $b.reg, nullptr); }
  | op='min' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vmin", nullptr, $a.reg, $b.reg, nullptr); }
  | op='max' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vmax", nullptr, $a.reg, $b.reg, nullptr); }
  | op='minf' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vminsetf", $a.reg, $b.reg); }
  | op='maxf' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vmaxsetf", $a.reg, $b.reg); }
  | op='pack' '(' a=vsource GE b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitpk", nullptr, $a.reg, $b.reg, nullptr); }
  | op='unpack' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitunpk", nullptr, $a.reg, $b.reg, nullptr); }
  | op='apply_sign' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vsign", nullptr, $a.reg, $b.reg, nullptr); }
  | op='count_bits' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitc", nullptr, $a.reg, nullptr, nullptr); }
  | op='reverse_bits' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitr", nullptr, $a.reg, nullptr, nullptr); }
  | op='transpose_bits' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbittr", nullptr, $a.reg, nullptr, nullptr); }
  | op='binlog' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbinlog", nullptr, $a.reg, nullptr, nullptr); }
  | op='leading_bit' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vlmbd", nullptr, $a.reg, $b.reg, nullptr); }
  | op='interleave_bits' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbiti", nullptr, $a.reg, $b.reg, nullptr); }
  | op='deinterleave_bits' '(' a=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vbitdi", $a.reg, nullptr); }
  | op='jus16' '(' a=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vshf16", $a.reg, nullptr); }
  | op='select' '(' a=vsource COMMA b=vsource COMMA c=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vsel", nullptr, $a.reg, $b.reg, $c.reg); }
  | a=vsource op=XORB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vxor", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=ORB b=vsource ORB c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vor3", nullptr, $a.reg, $b.reg, $c.reg); }
  | a=vsource op=ORB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vor", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=ANDB b=vsource ANDB c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vand3", nullptr, $a.reg, $b.reg, $c.reg); }
  | a=vsource op=ANDB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vand", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=ANDB NOTB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vandn", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=MINUS b=vsource PLUS c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadif", nullptr, $a.reg, $b.reg, $c.reg); }
  | a=vsource op=MINUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vsub", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=PLUS b=vsource PLUS c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadd3", nullptr, $a.reg, $b.reg, $c.reg); }
  | a=vsource op=PLUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadd", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=PLUS 'hi' '(' b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vaddh", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=MULT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vmpy", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=GE b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmpge", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=GT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmpgt", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=LE b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmple", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=LESS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmplt", nullptr, $a.reg, $b.reg, nullptr); }
  | a=vsource op=EQ b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmpeq", nullptr, $a.reg, $b.reg, nullptr); }
  | '(' vector_operation ')' ( operation_rounding )?
  ;

operation_rounding
  : STDOT 'round' '(' e=pexpression ')'
    { curr_vcmd->set_vop_round(VOP::RM_ROUND, build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop))); }
  | STDOT 'truncate' '(' e=pexpression ')'
    { curr_vcmd->set_vop_round(VOP::RM_TRUNC, build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop))); }
  | SHL e=pexpression
    { curr_vcmd->set_vop_round(VOP::RM_SHIFT, build_pexpr($e.expr, RULE_TEXT($e.start, $e.stop))); }
  ;

// The right sides of compound assignments: d is the register on the left.
vreg_opassign
scope { VREG* dst; }
@init { $vreg_opassign::dst = nullptr; }
  : d=vreg { $vreg_opassign::dst = $d.vreg; }
    ( '+=' add_assign_rhs
    | '-=' sub_assign_rhs
    | '*=' mul_assign_rhs
    | '&=' and_assign_rhs
    | '|=' or_assign_rhs
    | '^=' xor_assign_rhs
    )
  ;

add_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vadd", d, d, $v.vreg, nullptr); }
  | op='hi' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vaddh", d, d, $a.reg, nullptr); }
  | op='abs' '(' a=vsource MINUS b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vsad", d, $a.reg, $b.reg, d); }
  | a=vsource op=MINUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadif", d, $a.reg, $b.reg, d); }
  | a=vsource op=PLUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadd3", d, $a.reg, $b.reg, d); }
  | a=vsource op=MULT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vmadd", d, $a.reg, $b.reg, d); }
  | '(' add_assign_rhs ')' ( operation_rounding )?
  ;

sub_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vsub", d, d, $v.vreg, nullptr); }
  | a=vsource op=MULT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vmsub", d, $a.reg, $b.reg, d); }
  | '(' sub_assign_rhs ')' ( operation_rounding )?
  ;

mul_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vmpy", d, d, $v.vreg, nullptr); }
  | '(' mul_assign_rhs ')' ( operation_rounding )?
  ;

and_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vand", d, d, $v.vreg, nullptr); }
  | a=vsource op=ANDB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vand3", d, $a.reg, $b.reg, d); }
  | op=NOTB a=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vandn", d, d, $a.reg, nullptr); }
  | '(' and_assign_rhs ')' ( operation_rounding )?
  ;

or_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vor", d, d, $v.vreg, nullptr); }
  | v=vreg op=SHL w=vreg { curr_vcmd->new_vop(antlr_srcinfo($op), "vshfor", d, $v.vreg, $w.vreg, d); }
  | a=vsource op=ORB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vor3", d, $a.reg, $b.reg, d); }
  | '(' or_assign_rhs ')' ( operation_rounding )?
  ;

xor_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vxor", d, d, $v.vreg, nullptr); }
  | '(' xor_assign_rhs ')' ( operation_rounding )?
  ;

vreg_method
  : v=vreg STDOT 'clear' '(' ')'
    {
      curr_vcmd->set_curr_vreg($v.vreg);
      curr_vcmd->new_vinit(antlr_srcinfo($v.start), kernel_new<VPEXPR>("0"));
    }
  | v=vreg STDOT 'print' '(' arg=print_argument ')'
    { curr_vcmd->new_vprint(antlr_srcinfo($v.start), $v.vreg, RULE_TEXT($arg.start, $arg.stop)); }
  | vreg_pair STDOT
    ( op='deinterleave' '(' ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vdintrlv", nullptr, nullptr); }
    | op='interleave' '(' ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vintrlv", nullptr, nullptr); }
    | op='addsub' '(' ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vaddsub", nullptr, nullptr); }
    | op='minmax' '(' ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vsort2", nullptr, nullptr); }
    | op='swap' '(' s=vreg ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vswap", $s.vreg, nullptr); }
    | op='interleave2' '(' ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vintrlv2", nullptr, nullptr); }
    | op='deinterleave2' '(' ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vdintrlv2", nullptr, nullptr); }
    | op='interleave4' '(' ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vintrlv4", nullptr, nullptr); }
    | word=IDENTIFIER '(' ( pid | agen | vreg )? ')'
      { DIAG::zlc_illegal_vreg_method message; antlr_report(message, $word); }
    )
  ;

print_argument
  : STRING_LITERAL
  |
  ;

// ---------------------------------------------------------------------------
// Parameter expressions: the only rules that build trees.  Each returns its
// tree in `expr`, the error tree when the rule failed; the trees are built
// only when the parser is not speculating.

pexpression returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : body=pexpression_body
    {
      $expr = TREES.imaginary(PEXPR, "PEXPR");
      TREES.add_child($expr, $body.expr);
    }
  ;

pexpression_body returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : c=conditional_pexpression { $expr = $c.expr; }
  ;

// The ':' stays in the tree as the third child of '?'.
conditional_pexpression returns [EXPR_TREE* expr]
@init { EXPR_ROOT root; $expr = error_tree(); }
@after { if (BACKTRACKING == 0) $expr = root.result(); }
  : a=binary_pexpression[1] { root.add(TREES, $a.expr); }
    ( op=QUEST { root.become_root(TREES, TREES.node($op)); }
      b=pexpression_body { root.add(TREES, $b.expr); }
      colon=':' { root.add(TREES, TREES.node($colon)); }
      c=conditional_pexpression { root.add(TREES, $c.expr); }
    )?
  ;

// The binary operators, loosest first: || && | ^ & (== !=) (< <= > >=)
// (<< >>) (+ -) (* / %).  An operand takes the operators of higher levels;
// operators of one level group to the left.
binary_pexpression[int level] returns [EXPR_TREE* expr]
@init { EXPR_ROOT root; $expr = error_tree(); }
@after { if (BACKTRACKING == 0) $expr = root.result(); }
  : a=cast_expression { root.add(TREES, $a.expr); }
    ( { binary_level(LA(1)) >= $level }?=>
      op=( OROR | ANDAND | ORB | XORB | ANDB | EQ | NEQ | LESS | LE | GT | GE | SHL | SHR | PLUS
         | MINUS | MULT | DIV | MOD
         )
      { root.become_root(TREES, TREES.node($op)); }
      b=binary_pexpression[binary_level($op->type) + 1] { root.add(TREES, $b.expr); }
    )*
  ;

// The type word becomes the root of its operand.
cast_expression returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : '(' t=type_spec ')' u=unary_pexpression
    {
      EXPR_ROOT root;
      root.become_root(TREES, $t.expr);
      root.add(TREES, $u.expr);
      $expr = root.result();
    }
  | u=unary_pexpression { $expr = $u.expr; }
  ;

type_spec returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : t=INT_TYPE { $expr = TREES.node($t); }
  | t=UNS_TYPE { $expr = TREES.node($t); }
  ;

// A unary operator is the root of its operand; the imaginary nodes of '*',
// '-' and '&' print the operator's sign.  A '+' makes no node.
unary_pexpression returns [EXPR_TREE* expr]
@init { EXPR_TREE* op = nullptr; $expr = error_tree(); }
  : t=SIZEOF u=unary_pexpression { op = TREES.node($t); TREES.add_child(op, $u.expr); $expr = op; }
  | t=NOTB c=cast_expression { op = TREES.node($t); TREES.add_child(op, $c.expr); $expr = op; }
  | t=EXCLAIM c=cast_expression { op = TREES.node($t); TREES.add_child(op, $c.expr); $expr = op; }
  | MULT c=cast_expression
    { op = TREES.imaginary(UMULT, "*"); TREES.add_child(op, $c.expr); $expr = op; }
  | PLUS c=cast_expression { $expr = $c.expr; }
  | MINUS c=cast_expression
    { op = TREES.imaginary(UMINUS, "-"); TREES.add_child(op, $c.expr); $expr = op; }
  | ANDB c=cast_expression
    { op = TREES.imaginary(UAND, "&"); TREES.add_child(op, $c.expr); $expr = op; }
  | p=postfix_pexpression { $expr = $p.expr; }
  ;

// Each suffix makes a new root over the expression so far.
postfix_pexpression returns [EXPR_TREE* expr]
@init { EXPR_TREE* tree = nullptr; EXPR_TREE* op = nullptr; $expr = error_tree(); }
@after { if (BACKTRACKING == 0) $expr = tree; }
  : p=primary_pexpression { tree = $p.expr; }
    ( { !is_agen(LT(2)) }? '[' e=pexpression_body ']'
      {
        op = TREES.imaginary(SUBSCRIPT, "[");
        TREES.add_child(op, tree);
        TREES.add_child(op, $e.expr);
        tree = op;
      }
    | '(' ')'
      {
        op = TREES.imaginary(CALL, "(");
        TREES.add_child(op, tree);
        TREES.add_child(op, TREES.imaginary(ARGS, "("));
        tree = op;
      }
    | '(' args=argument_pexpression_list ')'
      {
        op = TREES.imaginary(CALL, "(");
        TREES.add_child(op, tree);
        EXPR_TREE* list = TREES.imaginary(ARGS, "(");
        TREES.add_child(list, $args.expr);
        TREES.add_child(op, list);
        tree = op;
      }
    | t=STDOT field=pid
      {
        op = TREES.node($t);
        TREES.add_child(op, tree);
        TREES.add_child(op, $field.expr);
        tree = op;
      }
    | t=STREF field=pid
      {
        op = TREES.node($t);
        TREES.add_child(op, tree);
        TREES.add_child(op, $field.expr);
        tree = op;
      }
    )*
  ;

// The arguments as a nil list when there are several.
argument_pexpression_list returns [EXPR_TREE* expr]
@init { EXPR_ROOT root; $expr = error_tree(); }
@after { if (BACKTRACKING == 0) $expr = root.result(); }
  : a=pexpression_body { root.add(TREES, $a.expr); }
    ( COMMA b=pexpression_body { root.add(TREES, $b.expr); } )*
  ;

primary_pexpression returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : i=pid { $expr = $i.expr; }
  | c=integer_constant { $expr = $c.expr; }
  | '(' b=pexpression_body ')' { $expr = $b.expr; }
  ;

pid returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : { !is_vreg(LT(1)) && !is_agen(LT(1)) }? id=IDENTIFIER { $expr = TREES.node($id); }
  ;

vsource returns [VREG* reg = NULL]
  : v=vreg { $reg = $v.vreg; }
  | '(' v=vreg ')' { $reg = $v.vreg; }
  ;

vreg returns [VREG* vreg = NULL]
@init { $vreg = nullptr; }
  : { is_vreg(LT(1)) }? name=IDENTIFIER
    { $vreg = curr_vcmd->lookup_vreg(antlr_text($name), antlr_srcinfo($name), true); }
  ;

agen returns [AGEN* agen = NULL]
@init { $agen = nullptr; }
  : { is_agen(LT(1)) }? name=IDENTIFIER
    { $agen = curr_vcmd->lookup_agen(antlr_text($name)); }
  ;

constant returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : c=integer_constant { $expr = $c.expr; }
  ;

integer_constant returns [EXPR_TREE* expr]
@init { $expr = error_tree(); }
  : i=INT_LITERAL { $expr = TREES.node($i); }
  ;

// ---------------------------------------------------------------------------
// Tokens.  The numbering comes from zelt_vocab.tokens; the order of the rules
// below decides between matches of equal length.

ASG : '=' ;
COMMA : ',' ;
QUEST : '?' ;
ANDAND : '&&' ;
OROR : '||' ;
EQ : '==' ;
NEQ : '!=' ;
LESS : '<' ;
LE : '<=' ;
GT : '>' ;
GE : '>=' ;
SIZEOF : 'sizeof' ;
NOTB : '~' ;
EXCLAIM : '!' ;
MULT : '*' ;
DIV : '/' ;
MOD : '%' ;
PLUS : '+' ;
MINUS : '-' ;
SHL : '<<' ;
SHR : '>>' ;
ANDB : '&' ;
ORB : '|' ;
XORB : '^' ;
STDOT : '.' ;
STREF : '->' ;
INT_TYPE : 'int' ;
UNS_TYPE : 'unsigned' ;

// Keywords and signs of the statements, numbered 61 and up.
T__61 : 'void' ;
T__62 : '(' ;
T__63 : ')' ;
T__64 : '__update' ;
T__65 : '__tscratch' ;
T__66 : '__output_only' ;
T__67 : 'char' ;
T__68 : 'short' ;
T__69 : 'long' ;
T__70 : 'float' ;
T__71 : 'double' ;
T__72 : 'signed' ;
T__73 : '[' ;
T__74 : ']' ;
T__75 : '{' ;
T__76 : '}' ;
T__77 : 'for' ;
T__78 : ';' ;
T__79 : 'foreach' ;
T__80 : ':' ;
T__81 : '++' ;
T__82 : '+=' ;
T__83 : '_HISTOGRAM' ;
T__84 : '_LOOKUP' ;
T__85 : '_EXPAND' ;
T__86 : '_COLLATE' ;
T__87 : '__vector' ;
T__88 : '__vector_int32' ;
T__89 : '__vector_uint32' ;
T__90 : '__agen' ;
T__91 : 'expand' ;
T__92 : 'npt' ;
T__93 : 'onept' ;
T__94 : 'circ2' ;
T__95 : 'ds2' ;
T__96 : 'us2' ;
T__97 : 'deinterleave' ;
T__98 : 'dist' ;
T__99 : 'nbits' ;
T__100 : 'hist_update' ;
T__101 : 'lookup' ;
T__102 : 'weight_load' ;
T__103 : 'collate' ;
T__104 : 'interleave' ;
T__105 : 'offset_np1' ;
T__106 : 's_scatter' ;
T__107 : 'p_scatter' ;
T__108 : 'skip' ;
T__109 : 'table_npt' ;
T__110 : 'table_skip' ;
T__111 : 'predicate' ;
T__112 : 'CIRC_1K' ;
T__113 : 'CIRC_2K' ;
T__114 : 'CIRC_4K' ;
T__115 : 'CIRC_8K' ;
T__116 : 'CIRC_16K' ;
T__117 : 'CIRC_32K' ;
T__118 : 'round' ;
T__119 : 'truncate' ;
T__120 : 'saturate' ;
T__121 : 'if' ;
T__122 : 'goto' ;
T__123 : 'last' ;
T__124 : 'hi' ;
T__125 : 'abs' ;
T__126 : 'min' ;
T__127 : 'max' ;
T__128 : 'minf' ;
T__129 : 'maxf' ;
T__130 : 'pack' ;
T__131 : 'unpack' ;
T__132 : 'apply_sign' ;
T__133 : 'count_bits' ;
T__134 : 'reverse_bits' ;
T__135 : 'transpose_bits' ;
T__136 : 'binlog' ;
T__137 : 'leading_bit' ;
T__138 : 'interleave_bits' ;
T__139 : 'deinterleave_bits' ;
T__140 : 'jus16' ;
T__141 : 'select' ;
T__142 : '-=' ;
T__143 : '*=' ;
T__144 : '&=' ;
T__145 : '|=' ;
T__146 : '^=' ;
T__147 : 'clear' ;
T__148 : 'addsub' ;
T__149 : 'minmax' ;
T__150 : 'swap' ;
T__151 : 'interleave2' ;
T__152 : 'deinterleave2' ;
T__153 : 'interleave4' ;
T__154 : 'print' ;

IDENTIFIER
  : LETTER ( LETTER | '0'..'9' )*
  ;

fragment LETTER
  : '$' | 'A'..'Z' | 'a'..'z' | '_'
  ;

// A run of digits is a floating-point literal only when a '.', an exponent
// or a float suffix follows it; otherwise it is an integer, which may end
// before the run does (0128 is 012 and 8).
INT_LITERAL
options { k = 1; }
  : ( ( '0'..'9' )+ ( '.' | 'e' | 'E' | 'f' | 'F' | 'd' | 'D' ) )=>
    ( ( '0'..'9' )+ '.' ( '0'..'9' )* ( Exponent )? ( FloatTypeSuffix )?
    | ( '0'..'9' )+ ( Exponent ( FloatTypeSuffix )? | FloatTypeSuffix )
    )
    { $type = FLOATING_POINT_LITERAL; }
  | ( HEX_LITERAL | OCTAL_LITERAL | DECIMAL_LITERAL ) ( IntegerTypeSuffix )?
  ;

fragment HEX_LITERAL
  : '0' ( 'x' | 'X' ) ( HexDigit )+
  ;

fragment DECIMAL_LITERAL
  : '0'
  | '1'..'9' ( '0'..'9' )*
  ;

fragment OCTAL_LITERAL
  : '0' ( '0'..'7' )+
  ;

fragment HexDigit
  : '0'..'9' | 'a'..'f' | 'A'..'F'
  ;

fragment IntegerTypeSuffix
  : ( 'u' | 'U' ) ( 'l' | 'L' )?
  | 'l'
  | 'L'
  ;

CHARACTER_LITERAL
  : '\'' ( EscapeSequence | ~( '\'' | '\\' ) ) '\''
  ;

STRING_LITERAL
  : '"' STRING_GUTS '"'
  ;

// The floats that start with digits are read by INT_LITERAL.
FLOATING_POINT_LITERAL
  : '.' ( '0'..'9' )+ ( Exponent )? ( FloatTypeSuffix )?
  ;

fragment STRING_GUTS
  : ( EscapeSequence | ~( '\\' | '"' ) )*
  ;


fragment Exponent
  : ( 'e' | 'E' ) ( '+' | '-' )? ( '0'..'9' )+
  ;

fragment FloatTypeSuffix
  : 'f' | 'F' | 'd' | 'D'
  ;

fragment EscapeSequence
  : '\\' ( 'b' | 't' | 'n' | 'f' | 'r' | '"' | '\'' | '\\' )
  | OctalEscape
  ;

fragment OctalEscape
  : '\\' ( '0'..'3' ) ( '0'..'7' ) ( '0'..'7' )
  | '\\' ( '0'..'7' ) ( '0'..'7' )
  | '\\' ( '0'..'7' )
  ;

fragment UnicodeEscape
  : '\\' 'u' HexDigit HexDigit HexDigit HexDigit
  ;

WS
  : ( ' ' | '\t' | '\n' | '\f' | '\r' ) { $channel = HIDDEN; }
  ;

COMMENT
  : '/*' ( options { greedy = false; } : . )* '*/' { $channel = HIDDEN; }
  ;

LINE_COMMENT
  : '//' ~( '\n' | '\r' )* ( '\r' )? '\n' { $channel = HIDDEN; }
  ;

LINE_COMMAND
  : '#line' ( ' ' | '\t' )+ number=DECIMAL_LITERAL
    ( ( ' ' | '\t' )+ '"' file=STRING_GUTS '"' )?
    ( ' ' | '\t' )? ( '\r' )? '\n'
    {
      antlr_line_directive(LEXER, file ? antlr_text(file).c_str() : nullptr,
                           antlr_parse_line_number($number));
      $channel = HIDDEN;
    }
  ;
