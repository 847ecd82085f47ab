// Writes legal kernel sources for the whole-translation benchmark and for the
// large-input tests.  Every source translates without a message.
//   gen_kernels mix BYTES FILE          a realistic file of about BYTES bytes
//   gen_kernels kernels N FILE          N small kernels
//   gen_kernels loops N FILE [K]        K kernels (default 1) of N vector loops
//   gen_kernels terms N FILE [K]        K kernels (default 1) with a generator
//                                       formula of N terms
//   gen_kernels transposes N FILE [K]   K kernels (default 1) of N buffers
//                                       written in one loop, read in the next
//   gen_kernels macros N FILE           N macros, each used once
//   gen_kernels nesting N FILE          64 kernels with addresses and bounds in
//                                       N parentheses
// The mix also writes FILE's directory/bench_defs.h, which it includes.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

namespace {

using std::string;
using std::to_string;

// A small deterministic generator, so that every run writes the same file.
class DRAW {
 public:
  unsigned next(unsigned bound) {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<unsigned>(state >> 33) % bound;
  }

 private:
  unsigned long long state = 12345;
};

const char* const defs_header =
    "/* Shapes shared by the benchmark kernels. */\n"
    "#ifndef BENCH_DEFS_H\n"
    "#define BENCH_DEFS_H\n"
    "#define LANES ZELT_SIMD_WIDTH\n"
    "#define ROW(y, w) ((y) * (w))\n"
    "#define VSTEP(x) ((x) * LANES)\n"
    "#define LO_CLAMP (-128)\n"
    "#define HI_CLAMP 127\n"
    "#define SHIFT 15\n"
    "#endif\n";

// Loop heads for a nest of `depth` levels, outermost first, with the
// generator formula that walks the whole nest.
string nest_open(int depth, string& formula, string& indent) {
  static const char* const vars[] = {"l", "k", "y", "x"};
  static const char* const counts[] = {"d3", "d2", "h", "w / LANES"};
  string text;
  formula.clear();
  for (int level = 4 - depth; level < 4; ++level) {
    text += indent + "for (int " + vars[level] + " = 0; " + vars[level] + " < " + counts[level] +
            "; " + vars[level] + "++) {\n";
    indent += "   ";
  }
  static const char* const terms[] = {"l * (w * h * d2)", "k * (w * h)", "ROW(y, w)",
                                      "VSTEP(x)"};
  for (int level = 4 - depth; level < 4; ++level) {
    if (!formula.empty()) formula += " + ";
    formula += terms[level];
  }
  return text;
}

string nest_close(int depth, string& indent) {
  string text;
  for (int level = 0; level < depth; ++level) {
    indent.resize(indent.size() - 3);
    text += indent + "}\n";
  }
  return text;
}

string compute_kernel(const string& name, int depth, DRAW& draw) {
  string indent = "   ", formula;
  string text = "/* " + name + ": a nest of " + to_string(depth) +
                " levels with loads, operations with rounding and saturating stores. */\n"
                "void " + name +
                "(__vptr_int16 a, __vptr_int16 b, __vptr_int16 out, int w, int h, int d2, "
                "int d3)\n{\n";
  text += nest_open(depth, formula, indent);
  const string i = indent;
  static const char* const ops[] = {"vs = va + vb;", "vs = va - vb;", "vs = max(vs, va);",
                                    "vs = min(va, vb);", "vs = va & vb;", "vs = abs(va - vb);",
                                    "vs += vb;", "vk = select(va, vb, vk);"};
  text += i + "__agen A = " + formula + ";\n";
  text += i + "__vector va, vb, vk, vs, vm;\n";
  text += i + "va = a[A].npt();   // the first operand\n";
  text += i + "vb = b[A].npt();\n";
  text += i + "vk = " + to_string(1 + draw.next(9)) + ";\n";
  text += i + "vs = (va * vk).round(SHIFT);\n";
  for (unsigned n = 1 + draw.next(4); n > 0; --n) text += i + ops[draw.next(8)] + "\n";
  text += i + "vm = max(vs, va);\n";
  text += i + "out[A].npt() = vm.saturate(LO_CLAMP, HI_CLAMP);\n";
  text += nest_close(depth, indent);
  return text + "}\n\n";
}

string memory_kernel(const string& name) {
  return "/* " + name + ": loads and stores in their distributions. */\n"
         "void " + name +
         "(__vptr_int16 src, __vptr_uint8 bytes, __vptr_int32 words, __vptr_int16 dst, int n)\n"
         "{\n"
         "   for (int i = 0; i < n; ++i) {\n"
         "      __vector a, b, c, d, e, f, g, h;\n"
         "      __agen A = i * 16, B = i * 2, C = i * 4;\n"
         "      a = src[A];\n"
         "      b = src[A].npt();\n"
         "      c = src + 4 [C].onept();\n"
         "      d = bytes[B].circ2();\n"
         "      e = src[B].ds2() % CIRC_1K;\n"
         "      f = words[C].us2() % CIRC_32K;\n"
         "      (g, h) = src[A].deinterleave();\n"
         "      c = a + b + c;\n"
         "      f = d + e + f;\n"
         "      g = g + h;\n"
         "      dst[A] = c;\n"
         "      dst + 16 [A] = f;\n"
         "      dst + 32 [A] = g;\n"
         "   }\n"
         "   for (int j = 0; j < n; ++j) {\n"
         "      __vector k, m;\n"
         "      __agen D = j * 4, E = j;\n"
         "      k = words[D].dist(1, 2, 3, 4, 5, 6, 7, 8);\n"
         "      m = bytes[E].nbits();\n"
         "      k = k + m;\n"
         "      dst[D] = k;\n"
         "   }\n"
         "}\n\n";
}

string store_kernel(const string& name) {
  return "/* " + name + ": stores with roundings, saturations, scatters and predicates. */\n"
         "void " + name +
         "(__update __vptr_int16 dst, __output_only __vptr_uint8 out, __vptr_int16 src, "
         "unsigned int n, int lo)\n"
         "{\n"
         "   for (int i = 0; i < n; i += 1) {\n"
         "      __vector a, b, c, d, p;\n"
         "      __agen A = i * 16, B = i * 2;\n"
         "      a = src[A];\n"
         "      b = src + 8 [A];\n"
         "      p = a > b;\n"
         "      dst[A] = a;\n"
         "      out[B].onept() = a.round(4);\n"
         "      out[B].ds2() = a.truncate(2).saturate(0, 255);\n"
         "      dst[A].offset_np1() = a.saturate(-128, 127, 0, 255);\n"
         "      dst[A].s_scatter(p) = a;\n"
         "      dst[A].p_scatter(p) = b.saturate(1);\n"
         "      dst[A].skip() = a.predicate(p);\n"
         "      (c, d) = (a, b).interleave();\n"
         "      dst[A].interleave() = (c, d);\n"
         "   }\n"
         "   for (int j = 0; j < n; j += 1) {\n"
         "      __vector a, b, p;\n"
         "      __agen A = j * 16, B = j * 2;\n"
         "      a = src[A];\n"
         "      b = src + 8 [A];\n"
         "      p = a > b;\n"
         "      dst[A] % CIRC_4K = a.saturate(-128, 127);\n"
         "      dst + 2 [B] % CIRC_16K = b.saturate(lo, 100);\n"
         "      dst[collate(p)] = a;\n"
         "   }\n"
         "}\n\n";
}

string repeat_kernel(const string& name) {
  return "/* " + name + ": a repeat loop over a nest, with conditional moves. */\n"
         "void " + name +
         "(__update __vptr_int16 x, __vptr_int16 y, __update int n, int m, int w)\n"
         "{\n"
         "   foreach (r, m + 1, 8) {\n"
         "      for (int j = 0; j < w; j++) {\n"
         "         for (int i = 0; i < n; i++) {\n"
         "            __vector a, b, c;\n"
         "            __agen A = i * 16 + j * (n * 16), B = i * 16 + j * (n * 16);\n"
         "            a = x[A];\n"
         "            c = a;\n"
         "            if (i == 0) b = a;\n"
         "            if (last(i, n)) c = b;\n"
         "            if (last(i, n) && last(j, w)) b = c;\n"
         "            y[B] = c;\n"
         "         }\n"
         "      }\n"
         "   }\n"
         "}\n\n";
}

string histogram_kernel(const string& name) {
  return "/* " + name + ": a weighted histogram. */\n"
         "void " + name + "(__vptr_uint16 data, __vptr_uint8 weights, __vptr_uint16 bins, int n)\n"
         "{\n"
         "   _HISTOGRAM(1, 256);\n"
         "   for (int i = 0; i < n / LANES; i++) {\n"
         "      __agen D = i * LANES;\n"
         "      __agen W = i * LANES;\n"
         "      __agen H = 0;\n"
         "      __vector d, w, h;\n"
         "      d = data[D].npt();\n"
         "      w = weights[W].weight_load();\n"
         "      h = bins[H].hist_update(d, w);\n"
         "   }\n"
         "}\n\n";
}

string lookup_kernel(const string& name) {
  return "/* " + name + ": a table lookup stored under the index's predicate. */\n"
         "void " + name + "(__vptr_uint16 idx, __vptr_uint16 table, __vptr_uint16 out, int n)\n"
         "{\n"
         "   _LOOKUP(1, 8, 1, 1024);\n"
         "   for (int i = 0; i < n / LANES; i++) {\n"
         "      __agen I = i * LANES;\n"
         "      __agen T = 0;\n"
         "      __agen O = i * LANES;\n"
         "      __vector x, y;\n"
         "      x = idx[I].npt();\n"
         "      y = table[T].lookup(x);\n"
         "      out[O].table_npt() = y.predicate(x);\n"
         "   }\n"
         "}\n\n";
}

string exit_kernel(const string& name) {
  return "/* " + name + ": leaves a repeat loop early. */\n"
         "void " + name + "(__vptr_int16 src, __vptr_int16 dst, int rows, int n)\n"
         "{\n"
         "   foreach (r, rows, 16) {\n"
         "      __vector v, z, t;\n"
         "      for (int i = 0; i < n / LANES; i++) {\n"
         "         __agen A = r * 256 + i * LANES;\n"
         "         v = src[A].npt();\n"
         "         z = 0;\n"
         "         t = v == z;\n"
         "         dst[A].npt() = t;\n"
         "      }\n"
         "      if (t[0] != 0) goto done;\n"
         "   } done: ;\n"
         "}\n\n";
}

// A realistic file: mostly nests, with memory, repeat, histogram, lookup
// and exit kernels among them.
void write_mix(long bytes, std::ostream& out) {
  DRAW draw;
  out << "/* Generated benchmark source. */\n#include \"bench_defs.h\"\n\n";
  long written = 0;
  for (int k = 0; written < bytes; ++k) {
    string name = "k";
    name += to_string(k);
    string text;
    const unsigned kind = draw.next(20);
    if (kind < 10)
      text = compute_kernel(name + "_nest", 1 + static_cast<int>(draw.next(4)), draw);
    else if (kind < 12)
      text = memory_kernel(name + "_mem");
    else if (kind < 14)
      text = store_kernel(name + "_store");
    else if (kind < 16)
      text = repeat_kernel(name + "_rpt");
    else if (kind < 17)
      text = histogram_kernel(name + "_hist");
    else if (kind < 18)
      text = lookup_kernel(name + "_lut");
    else
      text = exit_kernel(name + "_exit");
    written += static_cast<long>(text.size());
    out << text;
  }
}

string small_kernel(int number) {
  const string n = to_string(number);
  return "void v" + n +
         "(__vptr_int16 a, __vptr_int16 b, __vptr_int16 sum, int n)\n"
         "{\n"
         "   for (int i = 0; i < n / ZELT_SIMD_WIDTH; i++) {\n"
         "      __vector va, vb, vs;\n"
         "      __agen A = i * ZELT_SIMD_WIDTH * sizeof(*a);\n"
         "      va = a[A].npt();\n"
         "      vb = b[A].npt();\n"
         "      vs = va + vb;\n"
         "      sum[A].npt() = vs;\n"
         "   }\n"
         "}\n";
}

void write_kernels(int count, std::ostream& out) {
  for (int k = 0; k < count; ++k) out << small_kernel(k);
}

// One kernel whose loops all read a register that its first statement
// loads, before the first loop.
void write_loops(int count, int number, std::ostream& out) {
  out << "void many_loops" << number << "(__vptr_int16 a, __vptr_int16 b, int n)\n{\n"
         "   __agen Z = 0;\n"
         "   __vector k;\n   k = a[Z].onept();\n";
  for (int l = 0; l < count; ++l)
    out << "   for (int i = 0; i < n; i++) {\n"
           "      __vector v;\n"
           "      __agen A = i * 16;\n"
           "      v = a[A].npt();\n"
           "      v = v + k;\n"
           "      b[A].npt() = v;\n"
           "   }\n";
  out << "}\n";
}

// Scratch buffers, each written in one vector loop and read back in the
// next, so that every pair becomes a transpose.
void write_transposes(int count, int number, std::ostream& out) {
  out << "void transposes" << number << "(__vptr_int32 src";
  for (int t = 0; t < count; ++t) out << ",\n   __tscratch __vptr_int32 t" << t;
  out << ")\n{\n";
  for (int l = 0; l <= count; ++l) {
    const string i = "i" + to_string(l);
    const string v = "v" + to_string(l);
    out << "   for (int " << i << " = 0; " << i << " < 8; " << i << "++) {\n"
        << "      __agen A" << l << " = " << i << " * 36;\n      __vector " << v << ";\n"
        << "      " << v << " = " << (l == 0 ? string("src") : "t" + to_string(l - 1)) << "[A" << l
        << "].npt();\n";
    if (l < count)
      out << "      __agen S" << l << " = " << i << " * 4;\n      t" << l << "[S" << l
          << "].offset_np1() = " << v << ";\n";
    else
      out << "      src[A" << l << "].npt() = " << v << ";\n";
    out << "   }\n";
  }
  out << "}\n";
}

// A generator formula whose terms all step the one loop variable.
void write_terms(int count, int number, std::ostream& out) {
  out << "void long_formula" << number << "(__vptr_int16 a, __vptr_int16 b, int n)\n{\n"
         "   for (int i = 0; i < n; i++) {\n      __vector v;\n      __agen A = i * 16";
  for (int t = 1; t < count; ++t) out << (t % 8 ? " + " : "\n         + ") << "i * " << t % 97;
  out << ";\n      v = a[A].npt();\n      b[A].npt() = v;\n   }\n}\n";
}

void write_macros(int count, std::ostream& out) {
  for (int m = 0; m < count; ++m) out << "#define STEP" << m << "(v) ((v) * " << m % 50 + 1 << ")\n";
  for (int k = 0; k < count; k += 8) {
    out << "void m" << k << "(__vptr_int16 a, __vptr_int16 b, int n)\n{\n"
        << "   for (int i = 0; i < n; i++) {\n      __vector v;\n";
    for (int m = k; m < k + 8 && m < count; ++m)
      out << "      __agen A" << m << " = STEP" << m << "(i);\n";
    out << "      v = a[A" << k << "].npt();\n      b[A" << k << "].npt() = v;\n   }\n}\n";
  }
}

// Parentheses around a word, broken into lines that stay within the
// preprocessor's limit of tokens per line.
constexpr int nesting_kernels = 64;

string nested(int depth, const string& word) {
  string text;
  for (int d = 0; d < depth; ++d) text += d % 64 == 63 ? "(\n" : "(";
  text += word;
  for (int d = 0; d < depth; ++d) text += d % 64 == 63 ? ")\n" : ")";
  return text;
}

// Kernels whose bounds and addresses stand in `depth` parentheses.
void write_nesting(int depth, std::ostream& out) {
  for (int k = 0; k < nesting_kernels; ++k)
    out << "void deep" << k << "(__vptr_int16 a, __vptr_int16 b, int n)\n{\n"
        << "   for (int i = 0; i < " << nested(depth, "n") << "; i++) {\n"
        << "      __vector v;\n      __agen A = " << nested(depth, "i * 16") << ";\n"
        << "      v = a + " << nested(depth, "4") << " [A].npt();\n"
        << "      b + " << nested(depth, "n") << " [A].npt() = v;\n   }\n}\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4 && argc != 5) {
    std::fprintf(stderr,
                 "usage: gen_kernels mix|kernels|loops|terms|transposes|macros|nesting N FILE [K]\n");
    return 2;
  }
  const string mode = argv[1];
  const long n = std::atol(argv[2]);
  const string file = argv[3];
  const int copies = argc == 5 ? std::atoi(argv[4]) : 1;
  std::ofstream out(file);
  if (!out || n <= 0 || copies <= 0) {
    std::fprintf(stderr, "gen_kernels: cannot write %s\n", file.c_str());
    return 2;
  }
  if (mode == "mix") {
    const size_t slash = file.rfind('/');
    const string dir = slash == string::npos ? "." : file.substr(0, slash);
    std::ofstream(dir + "/bench_defs.h") << defs_header;
    write_mix(n, out);
  } else if (mode == "kernels") {
    write_kernels(static_cast<int>(n), out);
  } else if (mode == "loops") {
    for (int k = 0; k < copies; ++k) write_loops(static_cast<int>(n), k, out);
  } else if (mode == "terms") {
    for (int k = 0; k < copies; ++k) write_terms(static_cast<int>(n), k, out);
  } else if (mode == "transposes") {
    for (int k = 0; k < copies; ++k) write_transposes(static_cast<int>(n), k, out);
  } else if (mode == "macros") {
    write_macros(static_cast<int>(n), out);
  } else if (mode == "nesting") {
    write_nesting(static_cast<int>(n), out);
  } else {
    std::fprintf(stderr, "gen_kernels: unknown mode %s\n", mode.c_str());
    return 2;
  }
  return out.good() ? 0 : 1;
}
