// The fuzz target: one input is one kernel source, translated by the whole
// tool (preprocessor, parser, model, back end) as the command line
//   zlc9k --output_header=k.h [options] k.k k.c
// would.  When the first line of the input is "//zlc9k" followed by words,
// those of OPTIONS join the command line.
//
// A run ends through exit() on fatal messages and through the fault handler,
// so each input is translated in a child process.  The child's coverage
// counters are copied back to this process before it ends, so that libFuzzer
// sees what the child reached.  A run is fine when it ends with status 0 or
// 1, or with the fault report of a division by zero in a constant
// expression, which ends the run on purpose.  Anything else - another fault,
// a sanitizer report, a signal, a run past TIME_LIMIT seconds - is a finding:
// the child's messages are shown and this process aborts, which libFuzzer
// records as a crash.
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "ZELT_ZLC/run.h"
#include "fuzz/coverage_counters.h"

// A sanitizer report must end the child with a signal, not with the status
// 1 of an ordinary error; objects that live to the end of the run are not
// leaks.
extern "C" const char* __asan_default_options() { return "abort_on_error=1:detect_leaks=0"; }
extern "C" const char* __ubsan_default_options() {
  return "abort_on_error=1:halt_on_error=1:print_stacktrace=1";
}

namespace {

constexpr unsigned TIME_LIMIT = 10;

// Options that change the translation and touch no other file.
const std::set<std::string> OPTIONS = {
    "--zelt_simd=16", "--transpose",     "--profile",      "--cpp_out",
    "--zelt_unconditional_loads",        "--output_zelt_debug",
    "--debug:looptype",                  "--disable:se",
};

const char* const FPE_REPORT = "INTERNAL ERROR: zlc9k received a floating point exception";

std::string work_dir;
uint8_t* shared_counters = nullptr;

void setup() {
  char dir[] = "/tmp/zlc9k-fuzz-XXXXXX";
  if (!mkdtemp(dir)) {
    std::perror("mkdtemp");
    std::abort();
  }
  work_dir = dir;
  std::atexit([] { std::filesystem::remove_all(work_dir); });
  if (size_t n = coverage_counter_count()) {
    void* shared = mmap(nullptr, n, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) {
      std::perror("mmap");
      std::abort();
    }
    shared_counters = static_cast<uint8_t*>(shared);
  }
}

std::vector<std::string> command_line(const std::string& source) {
  std::vector<std::string> words = {"zlc9k", "--output_header=" + work_dir + "/k.h"};
  if (source.rfind("//zlc9k", 0) == 0) {
    std::istringstream first_line(source.substr(7, source.find('\n') - 7));
    for (std::string word; first_line >> word;)
      if (OPTIONS.count(word)) words.push_back(word);
  }
  words.push_back(work_dir + "/k.k");
  words.push_back(work_dir + "/k.c");
  return words;
}

// The end of the child, however the run ends but through _exit.
[[noreturn]] void end_child(int status, void*) {
  if (shared_counters) std::memcpy(shared_counters, coverage_counters(), coverage_counter_count());
  _exit(status);
}

[[noreturn]] void run_child(std::vector<std::string> words) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  signal(SIGALRM, SIG_DFL);
  alarm(TIME_LIMIT);
  const std::string err = work_dir + "/stderr";
  if (!std::freopen("/dev/null", "w", stdout) || !std::freopen(err.c_str(), "w", stderr))
    _exit(3);
  on_exit(end_child, nullptr);
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  end_child(run_zlc9k(static_cast<int>(words.size()), argv.data()), nullptr);
}

std::string child_messages() {
  std::ifstream in(work_dir + "/stderr");
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (work_dir.empty()) setup();
  const std::string source(reinterpret_cast<const char*>(data), size);
  std::ofstream(work_dir + "/k.k", std::ios::binary) << source;
  std::vector<std::string> words = command_line(source);

  // A child that ends through the fault handler copies nothing back: then
  // the counters stay as they were before the run.
  if (shared_counters) std::memcpy(shared_counters, coverage_counters(), coverage_counter_count());
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child < 0) {
    std::perror("fork");
    std::abort();
  }
  if (child == 0) run_child(std::move(words));
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (shared_counters) std::memcpy(coverage_counters(), shared_counters, coverage_counter_count());

  const std::string messages = child_messages();
  if (WIFEXITED(status)) {
    const int code = WEXITSTATUS(status);
    if (code == 0 || code == 1) return 0;
    if (code == 2 && messages.find(FPE_REPORT) != std::string::npos) return 0;
  }
  std::fprintf(stderr, "zlc9k-fuzz: the translation ended with %s %d; its messages:\n%s\n",
               WIFEXITED(status) ? "status" : "signal",
               WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status), messages.c_str());
  std::abort();
}
