// Pushing and popping the parser's follow stack in place.
#include "ZELT_ZLC/follow_stack.h"

namespace {

ANTLR3_BOOLEAN (*runtime_push)(pANTLR3_STACK, void*, void(ANTLR3_CDECL*)(void*)) = nullptr;

// An element with a function to free it is stored the runtime's way.
ANTLR3_BOOLEAN push(pANTLR3_STACK stack, void* element, void(ANTLR3_CDECL* freeptr)(void*)) {
  if (freeptr) return runtime_push(stack, element, freeptr);
  follow_push(stack, element);
  return ANTLR3_TRUE;
}

void* pop(pANTLR3_STACK stack) { return follow_pop(stack); }

}  // namespace

ANTLR3_BOOLEAN follow_push_grown(pANTLR3_STACK stack, void* element) {
  return runtime_push(stack, element, nullptr);
}

void use_fast_follow_stack(pANTLR3_STACK stack) {
  runtime_push = stack->push;
  stack->push = push;
  stack->pop = pop;
}
