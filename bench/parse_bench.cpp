// Times the kernel-language parser, with the model built by its actions, over
// generated sources of N, 2N and 4N kernels.  A constant time per kernel
// shows that parsing grows linearly with the number of kernels.
//   parse_bench [kernels]     (default 500)
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "DIAG/diag.h"
#include "ZELT_ZLC/antlr_if.h"

namespace {

// One kernel of two loop levels with a load, operations and a store.
std::string kernel_text(int number) {
  const std::string n = std::to_string(number);
  return "void k" + n + "(__vptr_int16 src, __vptr_int16 dst, int n, int m)\n"
         "{\n"
         "   __vector a, b, c;\n"
         "   for (int j = 0; j < m; j++) {\n"
         "      for (int i = 0; i < n; i++) {\n"
         "         __agen A = i*2 + j*n, B = i*2 + j*n;\n"
         "         a = src[A];\n"
         "         b = a + a;\n"
         "         c = (a * b).round(8);\n"
         "         dst[B] = c.saturate(0, 255);\n"
         "      }\n"
         "   }\n"
         "}\n";
}

double parse_seconds(int kernels) {
  std::string text;
  for (int k = 0; k < kernels; ++k) text += kernel_text(k);
  const auto start = std::chrono::steady_clock::now();
  {
    ANTLR_INTERFACE ai(text, "bench.zc");
    ai.invoke();
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) {
  const int base = argc > 1 ? std::atoi(argv[1]) : 500;
  if (base <= 0) {
    std::fprintf(stderr, "usage: parse_bench [kernels]\n");
    return 2;
  }
  std::printf("%10s %12s %16s\n", "kernels", "seconds", "ms per kernel");
  for (int kernels = base; kernels <= 4 * base; kernels *= 2) {
    const double seconds = parse_seconds(kernels);
    std::printf("%10d %12.3f %16.4f\n", kernels, seconds, 1000.0 * seconds / kernels);
  }
  if (DIAGNOSTIC::error_count_m != 0) {
    std::fprintf(stderr, "the generated kernels had %d errors\n", DIAGNOSTIC::error_count_m);
    return 1;
  }
  return 0;
}
