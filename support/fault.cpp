// The handler of fatal signals and the internal-error exit.
#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "support/identity.h"

namespace {

// Big enough for the handler's own output even in an instrumented build.
constexpr size_t FAULT_STACK_BYTES = 1 << 20;

const char* program_name = "";
void (*flush_outputs)() = nullptr;

const char* fault_text(int sig) {
  switch (sig) {
    case SIGILL: return "executed an illegal instruction";
    case SIGTRAP: return "received a TRAP signal";
    case SIGABRT: return "aborted";
    case SIGBUS: return "experienced a bus alignment fault";
    case SIGFPE: return "received a floating point exception";
    case SIGSEGV: return "experienced a segmentation fault";
    case SIGXCPU: return "exceeded the CPU time limit";
    case SIGXFSZ: return "exceeded the file size limit";
    case SIGSYS: return "experienced a bad system call";
    default: return "experienced a fatal internal fault";
  }
}

// The signal may have struck inside the allocator or a destructor, so the
// handler allocates nothing and ends with _exit: the streams it flushes
// itself are all that the run leaves.  It runs on the alternate stack, where
// AddressSanitizer's cleanup of the stack before a call that does not
// return would only warn.
__attribute__((no_sanitize("address"))) void fault_handler(int sig) {
  const bool internal = sig != SIGHUP && sig != SIGINT && sig != SIGTERM;
  if (sig == SIGHUP || sig == SIGINT)
    std::fprintf(stderr, "[%s forced exit]\n", program_name);
  else if (sig == SIGTERM)
    std::fprintf(stderr, "[%s received a terminate signal]\n", program_name);
  else
    std::fprintf(stderr, "\nINTERNAL ERROR: %s %s\n\n", program_name, fault_text(sig));
  std::fflush(nullptr);
  if (flush_outputs) flush_outputs();
  if (internal) print_support_message();
  _exit(2);
}

}  // namespace

void internal_error(const std::string& text) {
  std::fprintf(stderr, "\nINTERNAL ERROR: %s %s\n\n", program_name, text.c_str());
  std::fflush(nullptr);
  print_support_message();
  std::exit(2);
}

// The stack is mapped rather than allocated: an instrumented runtime may
// unmap a thread's alternate stack when the thread ends.
void use_fault_stack() {
  void* stack = mmap(nullptr, FAULT_STACK_BYTES, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
  if (stack == MAP_FAILED) return;  // faults are still caught, overflows are not
  stack_t alternate{};
  alternate.ss_sp = stack;
  alternate.ss_size = FAULT_STACK_BYTES;
  if (sigaltstack(&alternate, nullptr) != 0) munmap(stack, FAULT_STACK_BYTES);
}

void install_fault_handler(const char* program, void (*flush)()) {
  program_name = program ? program : "";
  flush_outputs = flush;
  use_fault_stack();
  struct sigaction action{};
  action.sa_handler = fault_handler;
  action.sa_flags = SA_ONSTACK | SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (int sig : {SIGINT, SIGTERM, SIGHUP, SIGILL, SIGABRT, SIGFPE, SIGSEGV, SIGTRAP, SIGBUS,
                  SIGSYS, SIGXCPU, SIGXFSZ})
    sigaction(sig, &action, nullptr);
}
