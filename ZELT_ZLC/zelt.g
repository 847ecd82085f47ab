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

parameter_qualifiers returns [uint32_t flags]
@init { $flags = 0; }
  : ( q=parameter_qualifier { $flags |= $q.flag; } )*
  ;

parameter_qualifier returns [uint32_t flag]
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

agen_name returns [AGEN* agen]
  : name=IDENTIFIER
    { $agen = curr_vcmd->new_agen(antlr_srcinfo($name), antlr_text($name)); }
  ;

agen_declarator
  : agen_name ( ASG agen_expression )?
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
    | 'foreach' '(' IDENTIFIER ',' pexpression ',' pexpression ')'
    )
    compound_statement
    ( exit_label )?
    { curr_vcmd->pop_block(); }
  ;

exit_label
  : IDENTIFIER ':' ';'
  ;

loop_init returns [pANTLR3_COMMON_TOKEN name]
  : INT_TYPE id=IDENTIFIER ASG constant { $name = $id; }
  ;

loop_condition returns [VPEXPR* tripcount]
@init { $tripcount = nullptr; }
  : IDENTIFIER LESS pexpression
  ;

loop_increment
  : '++' IDENTIFIER
  | IDENTIFIER '++'
  | IDENTIFIER '+=' integer_constant
  ;

special_loop_statement
  : '_HISTOGRAM' '(' pexpression ( ',' pexpression )? ')' ';'
  | '_LOOKUP' '(' pexpression ',' pexpression ( ',' pexpression ( ',' pexpression )? )? ')' ';'
  | '_EXPAND' '(' pexpression ')' ';'
  | '_COLLATE' '(' pexpression ')' ';'
  ;

agen_assignment
  : agen ASG agen_expression ';'
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
  | pexpression
  ;

load_expression
  : pexpression
    ( '[' agen ']'
    | '[' 'expand' '(' vreg ')' ']'
    )
    ( load_distribution )?
    ( circular_suffix )?
  ;

load_distribution
  : STDOT
    ( 'npt' '(' ')'
    | 'onept' '(' ')'
    | 'circ2' '(' ')'
    | 'ds2' '(' ')'
    | 'us2' '(' ')'
    | 'deinterleave' '(' ')'
    | 'dist' '(' ')'
    | 'dist' '(' custom_dist_list ')'
    | 'nbits' '(' ')'
    | 'weight_load' '(' ')'
    | 'hist_update' '(' vreg ( memory_rounding )* COMMA vreg ')'
    | 'lookup' '(' vreg ( memory_rounding )* ')'
    | word=IDENTIFIER '(' ( pid | agen | vreg )? ')'
      { DIAG::zlc_illegal_dist message; antlr_report(message, $word); }
    )
  ;

custom_dist_list
  : custom_dist_value ( COMMA custom_dist_value )*
  ;

custom_dist_value
  : pexpression
  ;

store_statement
  : store_target ASG store_source ';'
  ;

store_target
  : pexpression
    ( '[' agen ']'
    | '[' 'collate' '(' vreg ')' ']'
    )
    ( store_distribution )?
    ( circular_suffix )?
  ;

store_distribution
  : STDOT
    ( 'npt' '(' ')'
    | 'table_npt' '(' ')'
    | 'onept' '(' ')'
    | 'ds2' '(' ')'
    | 'interleave' '(' ')'
    | 'offset_np1' '(' ')'
    | 's_scatter' '(' vreg ')'
    | 'p_scatter' '(' vreg ')'
    | 'skip' '(' ')'
    | 'table_skip' '(' ')'
    | word=IDENTIFIER '(' ( pid | agen | vreg )? ')'
      { DIAG::zlc_illegal_dist message; antlr_report(message, $word); }
    )
  ;

store_source
  : vreg_target ( memory_rounding )* ( store_predicate )?
  ;

store_predicate
  : STDOT 'predicate' '(' vreg ')'
  ;

circular_suffix
  : MOD circular_size
  ;

circular_size returns [uint32_t code]
  : 'CIRC_1K' { $code = 1; }
  | 'CIRC_2K' { $code = 2; }
  | 'CIRC_4K' { $code = 3; }
  | 'CIRC_8K' { $code = 4; }
  | 'CIRC_16K' { $code = 5; }
  | 'CIRC_32K' { $code = 6; }
  | IDENTIFIER { $code = 0; }
  ;

memory_rounding
options { backtrack = true; }
  : STDOT 'round' '(' pexpression ')'
  | STDOT 'truncate' '(' pexpression ')'
  | STDOT 'saturate' '(' pexpression COMMA pexpression COMMA pexpression COMMA pexpression ')'
  | STDOT 'saturate' '(' pexpression COMMA pexpression ')'
  | STDOT 'saturate' '(' pexpression ')'
  | STDOT 'saturate' '(' ')'
  ;

if_statement
options { backtrack = true; }
  : 'if' '(' move_condition ')' vreg ASG vreg ';'
  | 'if' '(' vreg '[' pexpression ']' ')' 'goto' IDENTIFIER ';'
  | 'if' '(' vreg '[' pexpression ']' NEQ pexpression ')' 'goto' IDENTIFIER ';'
  ;

move_condition
  : IDENTIFIER EQ pexpression
  | ( move_condition_term ( ANDAND move_condition_term )* )=>
    move_condition_term ( ANDAND move_condition_term )*
  | '(' move_condition ')'
  ;

move_condition_term
  : 'last' '(' IDENTIFIER COMMA pexpression ')'
  | '(' IDENTIFIER EQ pexpression ')'
  | '(' move_condition_term ')'
  ;

// ---------------------------------------------------------------------------
// Vector operations and register methods.

vector_operation
  : NOTB vsource
  | vreg
  | vreg SHL vreg
  | 'round' '(' vsource COMMA vsource ')'
  | 'abs' '(' vsource ')'
  | 'abs' '(' vsource MINUS vsource ')'
  | 'min' '(' vsource COMMA vsource ')'
  | 'max' '(' vsource COMMA vsource ')'
  | 'minf' '(' vsource COMMA vsource ')'
  | 'maxf' '(' vsource COMMA vsource ')'
  | 'pack' '(' vsource GE vsource ')'
  | 'unpack' '(' vsource COMMA vsource ')'
  | 'apply_sign' '(' vsource COMMA vsource ')'
  | 'count_bits' '(' vsource ')'
  | 'reverse_bits' '(' vsource ')'
  | 'transpose_bits' '(' vsource ')'
  | 'binlog' '(' vsource ')'
  | 'leading_bit' '(' vsource COMMA vsource ')'
  | 'interleave_bits' '(' vsource COMMA vsource ')'
  | 'deinterleave_bits' '(' vsource ')'
  | 'jus16' '(' vsource ')'
  | 'select' '(' vsource COMMA vsource COMMA vsource ')'
  | vsource XORB vsource
  | vsource ORB vsource ORB vsource
  | vsource ORB vsource
  | vsource ANDB vsource ANDB vsource
  | vsource ANDB vsource
  | vsource ANDB NOTB vsource
  | vsource MINUS vsource PLUS vsource
  | vsource MINUS vsource
  | vsource PLUS vsource PLUS vsource
  | vsource PLUS vsource
  | vsource PLUS 'hi' '(' vsource ')'
  | vsource MULT vsource
  | vsource GE vsource
  | vsource GT vsource
  | vsource LE vsource
  | vsource LESS vsource
  | vsource EQ vsource
  | '(' vector_operation ')' ( operation_rounding )?
  ;

operation_rounding
  : STDOT 'round' '(' pexpression ')'
  | STDOT 'truncate' '(' pexpression ')'
  | SHL pexpression
  ;

vreg_opassign
scope { VREG* dst; }
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
  : vreg
  | 'hi' '(' vsource ')'
  | 'abs' '(' vsource MINUS vsource ')'
  | vsource MINUS vsource
  | vsource PLUS vsource
  | vsource MULT vsource
  | '(' add_assign_rhs ')' ( operation_rounding )?
  ;

sub_assign_rhs
  : vreg
  | vsource MULT vsource
  | '(' sub_assign_rhs ')' ( operation_rounding )?
  ;

mul_assign_rhs
  : vreg
  | '(' mul_assign_rhs ')' ( operation_rounding )?
  ;

and_assign_rhs
  : vreg
  | vsource ANDB vsource
  | NOTB vsource
  | '(' and_assign_rhs ')' ( operation_rounding )?
  ;

or_assign_rhs
  : vreg
  | vreg SHL vreg
  | vsource ORB vsource
  | '(' or_assign_rhs ')' ( operation_rounding )?
  ;

xor_assign_rhs
  : vreg
  | '(' xor_assign_rhs ')' ( operation_rounding )?
  ;

vreg_method
  : v=vreg STDOT 'clear' '(' ')' { curr_vcmd->set_curr_vreg($v.vreg); }
  | vreg STDOT 'print' '(' print_argument ')'
  | vreg_pair STDOT
    ( 'deinterleave' '(' ')'
    | 'interleave' '(' ')'
    | 'addsub' '(' ')'
    | 'minmax' '(' ')'
    | 'swap' '(' vreg ')'
    | 'interleave2' '(' ')'
    | 'deinterleave2' '(' ')'
    | 'interleave4' '(' ')'
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

unary_pexpression
  : SIZEOF^ unary_pexpression
  | NOTB^ cast_expression
  | EXCLAIM^ cast_expression
  | op=MULT cast_expression -> ^(UMULT[$op] cast_expression)
  | PLUS! cast_expression
  | op=MINUS cast_expression -> ^(UMINUS[$op] cast_expression)
  | op=ANDB cast_expression -> ^(UAND[$op] cast_expression)
  | postfix_pexpression
  ;

postfix_pexpression
  : ( primary_pexpression -> primary_pexpression )
    ( { !is_agen(LT(2)) }? lb='[' e=pexpression_body ']'
        -> ^(SUBSCRIPT[$lb] $postfix_pexpression $e)
    | lp='(' ')' -> ^(CALL[$lp] $postfix_pexpression ARGS[$lp])
    | lp='(' args=argument_pexpression_list ')'
        -> ^(CALL[$lp] $postfix_pexpression ^(ARGS[$lp] $args))
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

vsource returns [VREG* vreg]
  : v=vreg { $vreg = $v.vreg; }
  | '(' v=vreg ')' { $vreg = $v.vreg; }
  ;

vreg returns [VREG* vreg]
@init { $vreg = nullptr; }
  : { is_vreg(LT(1)) }? name=IDENTIFIER
    { $vreg = curr_vcmd->lookup_vreg(antlr_text($name), antlr_srcinfo($name), true); }
  ;

agen returns [AGEN* agen]
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
