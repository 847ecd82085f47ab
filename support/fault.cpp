// The handler of fatal signals and the internal-error exit.
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "support/identity.h"

namespace {

const char* program_name = "";

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

void fault_handler(int sig) {
  if (sig == SIGHUP || sig == SIGINT) {
    std::fprintf(stderr, "[%s forced exit]\n", program_name);
    std::exit(2);
  }
  if (sig == SIGTERM) {
    std::fprintf(stderr, "[%s received a terminate signal]\n", program_name);
    std::exit(2);
  }
  internal_error(fault_text(sig));
}

}  // namespace

void internal_error(const std::string& text) {
  std::fprintf(stderr, "\nINTERNAL ERROR: %s %s\n\n", program_name, text.c_str());
  std::fflush(nullptr);
  print_support_message();
  std::exit(2);
}

void install_fault_handler(const char* program) {
  program_name = program ? program : "";
  for (int sig : {SIGINT, SIGTERM, SIGHUP, SIGILL, SIGABRT, SIGFPE, SIGSEGV, SIGTRAP, SIGBUS,
                  SIGSYS, SIGXCPU, SIGXFSZ})
    std::signal(sig, fault_handler);
}
