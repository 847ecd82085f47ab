// Running deeply recursive work on a thread with a large stack.
#include "support/large_stack.h"

#include <pthread.h>

#include "support/identity.h"

namespace {

struct JOB {
  int (*body)();
  int result = 0;
};

void* run_job(void* arg) {
  auto* job = static_cast<JOB*>(arg);
  use_fault_stack();
  job->result = job->body();
  return nullptr;
}

}  // namespace

int run_on_large_stack(size_t bytes, int (*body)()) {
  pthread_attr_t attr;
  if (pthread_attr_init(&attr) != 0) return body();
  JOB job{body};
  pthread_t thread;
  const bool started = pthread_attr_setstacksize(&attr, bytes) == 0 &&
                       pthread_create(&thread, &attr, run_job, &job) == 0;
  pthread_attr_destroy(&attr);
  if (!started) return body();
  pthread_join(thread, nullptr);
  return job.result;
}
