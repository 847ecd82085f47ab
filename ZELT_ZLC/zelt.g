// The kernel language: lexer and parser.  The parser's actions build the
// kernel model through curr_vkernel and curr_vcmd while the text is read;
// only the parameter-expression rules build trees.
grammar zelt;

options {
  language = C;
  output = AST;
  ASTLabelType = pANTLR3_BASE_TREE;
  tokenVocab = zelt_vocab;
}

@lexer::includes {
#include "ZELT_ZLC/antlr_if.h"
}

@lexer::context {
  ANTLR_INTERFACE* ai;  // the interface that owns this lexer
}

@parser::includes {
#include "ZELT_ZLC/antlr_if.h"
#include "ZELT_ZLC/driver.h"
#include "ZELT_ZLC/vkernel.h"
#include "ZELT_ZLC/vcmd.h"
#include "ZELT_ZLC/vctree.h"
#include "ZELT_ZLC/vload.h"
#include "ZELT_ZLC/vop.h"
#include "ZELT_ZLC/vstore.h"
}


// ---------------------------------------------------------------------------
// Kernels, parameters and declarations.

translation_unit
  : kernel_definition ( kernel_definition )* EOF
  ;

kernel_definition
@init {
  if (BACKTRACKING == 0) curr_vkernel = new_vkernel(outfile, header_file);
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
                             antlr_text($t.text), antlr_text($a.text));
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
@init { pANTLR3_BASE_TREE formula = nullptr; }
  : a=agen_name ( ASG e=agen_expression { formula = $e.tree; } )?
    { analyze_agen_expr(formula, $a.agen); }
  ;

agen_expression
  : pexpression
  ;

// ---------------------------------------------------------------------------
// Statements and loops.

kernel_statement
options { k = 1; }
scope { int unused; }
@init {
  if (BACKTRACKING == 0) {
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
                            build_pexpr($count.tree, antlr_text($count.text)),
                            build_pexpr($limit.tree, antlr_text($limit.text)));
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
      check_pexpr_value_equals($first.tree, antlr_text($first.text), 0);
    }
  ;

loop_condition returns [VPEXPR* tripcount = NULL]
@init { $tripcount = nullptr; }
  : IDENTIFIER LESS e=pexpression
    { $tripcount = build_pexpr($e.tree, antlr_text($e.text)); }
  ;

loop_increment
  : '++' IDENTIFIER
  | IDENTIFIER '++'
  | IDENTIFIER '+=' step=integer_constant
    { check_pexpr_value_equals($step.tree, antlr_text($step.text), 1); }
  ;

special_loop_statement
@init {
  VPEXPR* second = nullptr;
  VPEXPR* third = nullptr;
  VPEXPR* fourth = nullptr;
}
  : '_HISTOGRAM' '(' count=pexpression
    ( ',' size=pexpression { second = build_pexpr($size.tree, antlr_text($size.text)); } )?
    ')' ';'
    {
      curr_vkernel->add_histogram_vloop(antlr_srcinfo($count.tree),
                                        build_pexpr($count.tree, antlr_text($count.text)),
                                        second);
    }
  | '_LOOKUP' '(' tables=pexpression ',' points=pexpression
    ( ',' dup=pexpression { third = build_pexpr($dup.tree, antlr_text($dup.text)); }
      ( ',' size=pexpression { fourth = build_pexpr($size.tree, antlr_text($size.text)); } )?
    )?
    ')' ';'
    {
      curr_vkernel->add_tablelkup_vloop(antlr_srcinfo($tables.tree),
                                        build_pexpr($tables.tree, antlr_text($tables.text)),
                                        build_pexpr($points.tree, antlr_text($points.text)),
                                        third, fourth);
    }
  | '_EXPAND' '(' flags=pexpression ')' ';'
    {
      curr_vkernel->add_tablelkup_vloop(antlr_srcinfo($flags.tree), nullptr, nullptr, nullptr,
                                        nullptr);
    }
  | '_COLLATE' '(' pexpression ')' ';'
  ;

agen_assignment
  : a=agen ASG e=agen_expression ';'
    { analyze_agen_expr($e.tree, $a.agen); }
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
  : '(' a=vreg COMMA b=vreg ')' { curr_vcmd->set_curr_vpair($a.vreg, $b.vreg); }
  ;

vreg_rhs
options { k = 1; }
  : ( load_expression )=> load_expression
  | ( vector_operation )=> vector_operation
  | e=pexpression
    {
      curr_vcmd->new_vinit(antlr_srcinfo($e.tree), build_pexpr($e.tree, antlr_text($e.text)));
    }
  ;

load_expression
  : e=pexpression
    ( '[' a=agen ']'
      {
        analyze_lvalue_expr($e.tree, antlr_text($e.text), $a.agen);
        curr_vcmd->new_vload(antlr_srcinfo($e.tree));
      }
    | '[' 'expand' '(' flags=vreg ')' ']'
      {
        analyze_lvalue_expr($e.tree, antlr_text($e.text), nullptr);
        curr_vcmd->add_expand_vload(antlr_srcinfo($e.tree), $flags.vreg);
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
    { curr_vcmd->add_cust_pexpr(build_pexpr($e.tree, antlr_text($e.text))); }
  ;

store_statement
  : store_target ASG store_source ';'
    { curr_vcmd->set_vstore_rhs(); }
  ;

store_target
  : e=pexpression
    ( '[' a=agen ']'
      {
        analyze_lvalue_expr($e.tree, antlr_text($e.text), $a.agen);
        curr_vcmd->new_vstore(antlr_srcinfo($e.tree));
      }
    | '[' 'collate' '(' pred=vreg ')' ']'
      {
        analyze_lvalue_expr($e.tree, antlr_text($e.text), nullptr);
        curr_vcmd->new_collate_vstore(antlr_srcinfo($e.tree), $pred.vreg);
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
    { curr_vcmd->set_vmem_round(build_pexpr($e.tree, antlr_text($e.text))); }
  ;

memory_truncate
  : STDOT 'truncate' '(' e=pexpression ')'
    { curr_vcmd->set_vmem_trunc(build_pexpr($e.tree, antlr_text($e.text))); }
  ;

memory_saturate4
  : STDOT 'saturate' '(' a=pexpression COMMA b=pexpression COMMA c=pexpression COMMA
    d=pexpression ')'
    {
      curr_vcmd->set_vmem_sat(build_pexpr($a.tree, antlr_text($a.text)),
                              build_pexpr($b.tree, antlr_text($b.text)),
                              build_pexpr($c.tree, antlr_text($c.text)),
                              build_pexpr($d.tree, antlr_text($d.text)));
    }
  ;

memory_saturate2
  : STDOT 'saturate' '(' a=pexpression COMMA b=pexpression ')'
    {
      curr_vcmd->set_vmem_sat(build_pexpr($a.tree, antlr_text($a.text)),
                              build_pexpr($b.tree, antlr_text($b.text)), nullptr, nullptr);
    }
  ;

memory_saturate1
  : STDOT 'saturate' '(' a=pexpression ')'
    {
      curr_vcmd->set_vmem_sat(build_pexpr($a.tree, antlr_text($a.text)), nullptr, nullptr,
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
                           build_pexpr($lane.tree, antlr_text($lane.text)), nullptr);
    }
  ;

early_exit_compare
  : f='if' '(' v=vreg '[' lane=pexpression ']' NEQ rhs=pexpression ')' 'goto' target=IDENTIFIER
    ';'
    {
      curr_vcmd->new_vexit(antlr_srcinfo($f), antlr_text($target), $v.vreg,
                           build_pexpr($lane.tree, antlr_text($lane.text)),
                           build_pexpr($rhs.tree, antlr_text($rhs.text)));
    }
  ;

move_condition
  : lcv=IDENTIFIER EQ e=pexpression
    {
      curr_vcmd->add_vmove_lcv(antlr_srcinfo($lcv), antlr_text($lcv),
                               build_pexpr($e.tree, antlr_text($e.text)), VMOVE::MP_ZERO);
    }
  | ( move_condition_term ( ANDAND move_condition_term )* )=>
    move_condition_term ( ANDAND move_condition_term )*
  | '(' move_condition ')'
  ;

move_condition_term
  : 'last' '(' lcv=IDENTIFIER COMMA e=pexpression ')'
    {
      curr_vcmd->add_vmove_lcv(antlr_srcinfo($lcv), antlr_text($lcv),
                               build_pexpr($e.tree, antlr_text($e.text)), VMOVE::MP_TRIPCOUNT);
    }
  | '(' lcv=IDENTIFIER EQ e=pexpression ')'
    {
      curr_vcmd->add_vmove_lcv(antlr_srcinfo($lcv), antlr_text($lcv),
                               build_pexpr($e.tree, antlr_text($e.text)), VMOVE::MP_ZERO);
    }
  | '(' move_condition_term ')'
  ;

// ---------------------------------------------------------------------------
// Vector operations and register methods.  The position of an operation is
// that of its operator or keyword; a null destination is the statement's
// register.

vector_operation
  : op=NOTB a=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vnot", nullptr, $a.vreg, nullptr, nullptr); }
  | v=vreg { curr_vcmd->new_vmove(antlr_srcinfo($v.start), nullptr, $v.vreg); }
  | v=vreg op=SHL w=vreg { curr_vcmd->new_vop(antlr_srcinfo($op), "vshf", nullptr, $v.vreg, $w.vreg, nullptr); }
  | op='round' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vrnd", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='abs' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vabs", nullptr, $a.vreg, nullptr, nullptr); }
  | op='abs' '(' a=vsource MINUS b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vabsdif", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='min' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vmin", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='max' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vmax", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='minf' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vminsetf", $a.vreg, $b.vreg); }
  | op='maxf' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vmaxsetf", $a.vreg, $b.vreg); }
  | op='pack' '(' a=vsource GE b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitpk", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='unpack' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitunpk", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='apply_sign' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vsign", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='count_bits' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitc", nullptr, $a.vreg, nullptr, nullptr); }
  | op='reverse_bits' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbitr", nullptr, $a.vreg, nullptr, nullptr); }
  | op='transpose_bits' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbittr", nullptr, $a.vreg, nullptr, nullptr); }
  | op='binlog' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbinlog", nullptr, $a.vreg, nullptr, nullptr); }
  | op='leading_bit' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vlmbd", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='interleave_bits' '(' a=vsource COMMA b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vbiti", nullptr, $a.vreg, $b.vreg, nullptr); }
  | op='deinterleave_bits' '(' a=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vbitdi", $a.vreg, nullptr); }
  | op='jus16' '(' a=vsource ')' { curr_vcmd->new_vop2d(antlr_srcinfo($op), "vshf16", $a.vreg, nullptr); }
  | op='select' '(' a=vsource COMMA b=vsource COMMA c=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vsel", nullptr, $a.vreg, $b.vreg, $c.vreg); }
  | a=vsource op=XORB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vxor", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=ORB b=vsource ORB c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vor3", nullptr, $a.vreg, $b.vreg, $c.vreg); }
  | a=vsource op=ORB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vor", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=ANDB b=vsource ANDB c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vand3", nullptr, $a.vreg, $b.vreg, $c.vreg); }
  | a=vsource op=ANDB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vand", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=ANDB NOTB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vandn", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=MINUS b=vsource PLUS c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadif", nullptr, $a.vreg, $b.vreg, $c.vreg); }
  | a=vsource op=MINUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vsub", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=PLUS b=vsource PLUS c=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadd3", nullptr, $a.vreg, $b.vreg, $c.vreg); }
  | a=vsource op=PLUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadd", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=PLUS 'hi' '(' b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vaddh", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=MULT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vmpy", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=GE b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmpge", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=GT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmpgt", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=LE b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmple", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=LESS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmplt", nullptr, $a.vreg, $b.vreg, nullptr); }
  | a=vsource op=EQ b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vcmpeq", nullptr, $a.vreg, $b.vreg, nullptr); }
  | '(' vector_operation ')' ( operation_rounding )?
  ;

operation_rounding
  : STDOT 'round' '(' e=pexpression ')'
    { curr_vcmd->set_vop_round(VOP::RM_ROUND, build_pexpr($e.tree, antlr_text($e.text))); }
  | STDOT 'truncate' '(' e=pexpression ')'
    { curr_vcmd->set_vop_round(VOP::RM_TRUNC, build_pexpr($e.tree, antlr_text($e.text))); }
  | SHL e=pexpression
    { curr_vcmd->set_vop_round(VOP::RM_SHIFT, build_pexpr($e.tree, antlr_text($e.text))); }
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
  | op='hi' '(' a=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vaddh", d, d, $a.vreg, nullptr); }
  | op='abs' '(' a=vsource MINUS b=vsource ')' { curr_vcmd->new_vop(antlr_srcinfo($op), "vsad", d, $a.vreg, $b.vreg, d); }
  | a=vsource op=MINUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadif", d, $a.vreg, $b.vreg, d); }
  | a=vsource op=PLUS b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vadd3", d, $a.vreg, $b.vreg, d); }
  | a=vsource op=MULT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vmadd", d, $a.vreg, $b.vreg, d); }
  | '(' add_assign_rhs ')' ( operation_rounding )?
  ;

sub_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vsub", d, d, $v.vreg, nullptr); }
  | a=vsource op=MULT b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vmsub", d, $a.vreg, $b.vreg, d); }
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
  | a=vsource op=ANDB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vand3", d, $a.vreg, $b.vreg, d); }
  | op=NOTB a=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vandn", d, d, $a.vreg, nullptr); }
  | '(' and_assign_rhs ')' ( operation_rounding )?
  ;

or_assign_rhs
@init { VREG* d = $vreg_opassign::dst; }
  : v=vreg { curr_vcmd->new_vop(antlr_srcinfo($v.start), "vor", d, d, $v.vreg, nullptr); }
  | v=vreg op=SHL w=vreg { curr_vcmd->new_vop(antlr_srcinfo($op), "vshfor", d, $v.vreg, $w.vreg, d); }
  | a=vsource op=ORB b=vsource { curr_vcmd->new_vop(antlr_srcinfo($op), "vor3", d, $a.vreg, $b.vreg, d); }
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
      curr_vcmd->new_vinit(antlr_srcinfo($v.start), new VPEXPR("0"));
    }
  | v=vreg STDOT 'print' '(' arg=print_argument ')'
    { curr_vcmd->new_vprint(antlr_srcinfo($v.start), $v.vreg, antlr_text($arg.text)); }
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
// Parameter expressions: the only rules that build trees.

pexpression
  : pexpression_body -> ^(PEXPR pexpression_body)
  ;

pexpression_body
  : conditional_pexpression
  ;

conditional_pexpression
  : logical_or_pexpression ( QUEST^ pexpression_body ':' conditional_pexpression )?
  ;

logical_or_pexpression
  : logical_and_pexpression ( OROR^ logical_and_pexpression )*
  ;

logical_and_pexpression
  : inclusive_or_pexpression ( ANDAND^ inclusive_or_pexpression )*
  ;

inclusive_or_pexpression
  : exclusive_or_pexpression ( ORB^ exclusive_or_pexpression )*
  ;

exclusive_or_pexpression
  : and_pexpression ( XORB^ and_pexpression )*
  ;

and_pexpression
  : equality_pexpression ( ANDB^ equality_pexpression )*
  ;

equality_pexpression
  : relational_pexpression ( ( EQ^ | NEQ^ ) relational_pexpression )*
  ;

relational_pexpression
  : shift_pexpression ( ( LESS^ | LE^ | GT^ | GE^ ) shift_pexpression )*
  ;

shift_pexpression
  : additive_pexpression ( ( SHL^ | SHR^ ) additive_pexpression )*
  ;

additive_pexpression
  : multiplicative_pexpression ( ( PLUS^ | MINUS^ ) multiplicative_pexpression )*
  ;

multiplicative_pexpression
  : cast_expression ( ( MULT^ | DIV^ | MOD^ ) cast_expression )*
  ;

cast_expression
  : '(' type_spec ')' unary_pexpression -> ^(type_spec unary_pexpression)
  | unary_pexpression
  ;

type_spec
  : INT_TYPE
  | UNS_TYPE
  ;

// An imaginary node made from a token names the token and its text: given
// the token alone, the C target would take the token itself for the text.
unary_pexpression
  : SIZEOF^ unary_pexpression
  | NOTB^ cast_expression
  | EXCLAIM^ cast_expression
  | op=MULT cast_expression -> ^(UMULT[$op, "*"] cast_expression)
  | PLUS! cast_expression
  | op=MINUS cast_expression -> ^(UMINUS[$op, "-"] cast_expression)
  | op=ANDB cast_expression -> ^(UAND[$op, "&"] cast_expression)
  | postfix_pexpression
  ;

postfix_pexpression
  : ( primary_pexpression -> primary_pexpression )
    ( { !is_agen(LT(2)) }? lb='[' e=pexpression_body ']'
        -> ^(SUBSCRIPT[$lb, "["] $postfix_pexpression $e)
    | lp='(' ')' -> ^(CALL[$lp, "("] $postfix_pexpression ARGS[$lp, "("])
    | lp='(' args=argument_pexpression_list ')'
        -> ^(CALL[$lp, "("] $postfix_pexpression ^(ARGS[$lp, "("] $args))
    | STDOT field=pid -> ^(STDOT $postfix_pexpression $field)
    | STREF field=pid -> ^(STREF $postfix_pexpression $field)
    )*
  ;

argument_pexpression_list
  : pexpression_body ( COMMA! pexpression_body )*
  ;

primary_pexpression
  : pid
  | integer_constant
  | '(' pexpression_body ')' -> pexpression_body
  ;

pid
  : { !is_vreg(LT(1)) && !is_agen(LT(1)) }? IDENTIFIER
  ;

vsource returns [VREG* vreg = NULL]
  : v=vreg { $vreg = $v.vreg; }
  | '(' v=vreg ')' { $vreg = $v.vreg; }
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

constant
  : integer_constant
  ;

integer_constant
  : INT_LITERAL
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
