// Pushing and popping the parser's follow stack in place.
#include "ZELT_ZLC/follow_stack.h"

namespace {

ANTLR3_BOOLEAN (*runtime_push)(pANTLR3_STACK, void*, void(ANTLR3_CDECL*)(void*)) = nullptr;

// The vector grows, and an element with a function to free it is stored,
// the runtime's way.
ANTLR3_BOOLEAN push(pANTLR3_STACK stack, void* element, void(ANTLR3_CDECL* freeptr)(void*)) {
  pANTLR3_VECTOR vector = stack->vector;
  if (freeptr || vector->count >= vector->elementsSize) return runtime_push(stack, element, freeptr);
  vector->elements[vector->count] = {element, nullptr};
  ++vector->count;
  stack->top = element;
  return ANTLR3_TRUE;
}

void* pop(pANTLR3_STACK stack) {
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

}  // namespace

void use_fast_follow_stack(pANTLR3_STACK stack) {
  runtime_push = stack->push;
  stack->push = push;
  stack->pop = pop;
}
