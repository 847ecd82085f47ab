// Running deeply recursive work on a stack of its own size.
#ifndef ZLC_SUPPORT_LARGE_STACK_H
#define ZLC_SUPPORT_LARGE_STACK_H

#include <cstddef>

// The stack of the translation.  Nested expressions are parsed, evaluated
// and printed recursively; this holds nesting about a thousand times deeper
// than real kernels use (3,200 parentheses, 50,000 unary minuses, a sum of
// 200,000 terms), with room to spare in an instrumented build.  Pages are
// only taken as the nesting reaches them.
constexpr size_t TRANSLATION_STACK_BYTES = size_t{256} << 20;

// Runs `body` on a new thread with a stack of `bytes`, where the fault
// handler has a stack of its own too, and returns its result.  When no such
// thread can be made, `body` runs on the calling thread.  `body` must not
// throw.
int run_on_large_stack(size_t bytes, int (*body)());

#endif
