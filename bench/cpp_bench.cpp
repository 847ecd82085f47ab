// Times the preprocessor over a generated source of several megabytes with
// macros, includes and conditionals, next to the system's cpp on the same
// file, for reference.  Two sizes show whether the time grows linearly.
//   cpp_bench [megabytes]     (default 8)
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "CPP/cpp.h"

namespace {

constexpr int kHeaders = 8;

// Gathers the pieces the way the translator's client does.
class BENCH_CLIENT : public CPP_CLIENT_INTERFACE {
 public:
  explicit BENCH_CLIENT(std::string dir) : dir(std::move(dir)) {}
  std::string find_h_file(const char* name, bool) override { return dir + "/" + name; }
  void set_srcloc(const char* file, unsigned line) override {
    text += "#line " + std::to_string(line) + " \"" + file + "\"\n";
  }
  std::string dir;
  std::string text;
};

void write_headers(const std::string& dir) {
  for (int h = 0; h < kHeaders; ++h) {
    std::ofstream out(dir + "/h" + std::to_string(h) + ".h");
    out << "#ifndef H" << h << "_INCLUDED\n#define H" << h << "_INCLUDED\n"
        << "/* header " << h << ": helpers */\n"
        << "#define MAX" << h << "(a, b) ((a) > (b) ? (a) : (b))\n"
        << "#define SQ" << h << "(x) ((x) * (x))\n"
        << "#define LIMIT" << h << " (" << h * 16 + 15 << ")\n"
        << "typedef int word" << h << "_t;\n#endif\n";
  }
}

// A file of about `megabytes` megabytes that includes every header often.
std::string write_source(const std::string& dir, double megabytes) {
  const std::string path = dir + "/bench_" + std::to_string(static_cast<int>(megabytes * 10)) + ".k";
  std::ofstream out(path);
  out << "#define FEATURE_A 1\n#define LEVEL 3\n"
      << "#define CAT(a, b) a ## b\n#define STR(x) #x\n"
      << "#define CALL(f, x) f(x)\n#define MIN(a, b) ((a) < (b) ? (a) : (b))\n"
      << "#define TWICE(x) CALL(SQ0, x) + CALL(SQ1, x)\n";
  const size_t target = static_cast<size_t>(megabytes * 1024 * 1024);
  for (int i = 0; static_cast<size_t>(out.tellp()) < target; ++i) {
    const int h = i % kHeaders;
    if (i % 50 == 0) out << "#include \"h" << h << ".h\"\n";
    out << "/* kernel " << i << " */\n"
        << "#if defined(FEATURE_A) && LEVEL > 2\n"
        << "int CAT(kernel_, " << i << ")(int a, int b) {\n"
        << "  int v = MAX" << h << "(a, b) + MIN(a, LIMIT" << h << ");  // bounded\n"
        << "  return v + TWICE(a - b) + sizeof STR(kernel " << i << ");\n"
        << "}\n"
        << "#elif LEVEL > 1\n"
        << "int CAT(kernel_, " << i << ")(void) { return 0; }\n"
        << "#else\n#error unreachable\n#endif\n\n";
  }
  return path;
}

double seconds_since(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Returns the time of one run of CPP over `path` and the size of its output.
double time_cpp(const std::string& dir, const std::string& path, size_t& out_size) {
  const auto start = std::chrono::steady_clock::now();
  FILE* fp = std::fopen(path.c_str(), "r");
  BENCH_CLIENT client(dir);
  CPP* cpp = new_CPP(path.c_str(), fp, &client);
  cpp->predefine("ZELT_HOST_EMULATION", "0");
  client.text.reserve(2 * std::filesystem::file_size(path));
  while (const char* piece = cpp->fgets()) client.text += piece;
  delete cpp;
  std::fclose(fp);
  out_size = client.text.size();
  return seconds_since(start);
}

double time_system_cpp(const std::string& path) {
  const std::string command = "cpp -P \"" + path + "\" -o /dev/null";
  const auto start = std::chrono::steady_clock::now();
  if (std::system(command.c_str()) != 0) return -1;
  return seconds_since(start);
}

}  // namespace

int main(int argc, char** argv) {
  const double megabytes = argc > 1 ? std::atof(argv[1]) : 8;
  char pattern[] = "/tmp/cpp_bench_XXXXXX";
  const std::string dir = mkdtemp(pattern);
  write_headers(dir);
  for (const double size : {megabytes / 2, megabytes}) {
    const std::string path = write_source(dir, size);
    const double mb = std::filesystem::file_size(path) / (1024.0 * 1024.0);
    size_t out_size = 0;
    double ours = time_cpp(dir, path, out_size);
    ours = std::min(ours, time_cpp(dir, path, out_size));  // best of two
    const double theirs = time_system_cpp(path);
    std::printf("%6.2f MB: CPP %.3f s (%.1f MB/s, %.2f MB out)", mb, ours, mb / ours,
                out_size / (1024.0 * 1024.0));
    if (theirs > 0)
      std::printf(", system cpp %.3f s, ratio CPP/cpp %.2f\n", theirs, ours / theirs);
    else
      std::printf(", system cpp not available\n");
  }
  std::filesystem::remove_all(dir);
  return 0;
}
