// The parser's follow stack, pushed and popped in place.  Every rule call
// pushes its follow set and pops it again; the runtime's own stack does each
// through a further call to its vector.  The stack keeps the runtime's
// layout, so that everything else reads it as before.
#ifndef ZLC_ZELT_ZLC_FOLLOW_STACK_H
#define ZLC_ZELT_ZLC_FOLLOW_STACK_H

#include <antlr3.h>

// Replaces the push and pop of `stack`, a stack made by antlr3StackNew.
void use_fast_follow_stack(pANTLR3_STACK stack);

#endif
