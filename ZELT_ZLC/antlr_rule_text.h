// The source text of a parsed rule, as the grammar's actions ask for it.
#ifndef ZLC_ZELT_ZLC_ANTLR_RULE_TEXT_H
#define ZLC_ZELT_ZLC_ANTLR_RULE_TEXT_H

#include <antlr3.h>

// Makes `stream` build the text of a run of tokens in time linear in its
// length; the runtime's own way grows the text one token at a time, which
// is quadratic for long expressions.  The text is the same: every token from
// the first to the last, hidden ones included.
void use_linear_rule_text(pANTLR3_TOKEN_STREAM stream);

#endif
