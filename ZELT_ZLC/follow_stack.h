// The parser's follow stack, pushed and popped in place.  Every rule call
// pushes its follow set and pops it again; the runtime's own stack does each
// through a further call to its vector.  The stack keeps the runtime's
// layout, so that everything else reads it as before.
#ifndef ZLC_ZELT_ZLC_FOLLOW_STACK_H
#define ZLC_ZELT_ZLC_FOLLOW_STACK_H

#include <antlr3.h>

// Replaces the push and pop of `stack`, a stack made by antlr3StackNew, by
// follow_push and follow_pop.
void use_fast_follow_stack(pANTLR3_STACK stack);

// Pushes `element`, without a function to free it, the runtime's way; a
// full vector is grown by the runtime's own push.
ANTLR3_BOOLEAN follow_push_grown(pANTLR3_STACK stack, void* element);

// The pushes and pops of the parser's rules, called directly.
inline void follow_push(pANTLR3_STACK stack, void* element) {
  pANTLR3_VECTOR vector = stack->vector;
  if (vector->count >= vector->elementsSize) {
    follow_push_grown(stack, element);
    return;
  }
  vector->elements[vector->count] = {element, nullptr};
  ++vector->count;
  stack->top = element;
}

inline void* follow_pop(pANTLR3_STACK stack) {
  pANTLR3_VECTOR vector = stack->vector;
  if (vector->count > 0) {
    ANTLR3_VECTOR_ELEMENT& last = vector->elements[vector->count - 1];
    if (last.freeptr) last.freeptr(last.element);
    last = {nullptr, nullptr};
    --vector->count;
  }
  stack->top = vector->count > 0 ? vector->elements[vector->count - 1].element : nullptr;
  return stack->top;
}

#endif
