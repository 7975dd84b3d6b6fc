#include "host/system/interrupt.h"

#include <signal.h>

namespace host {
namespace {

// A signal's handler can reach nothing else.
volatile sig_atomic_t interrupted = 0;

extern "C" void MarkInterrupt(int) {
  interrupted = 1;
}

}  // namespace

void CatchInterrupts() {
  struct sigaction action = {};
  action.sa_handler = MarkInterrupt;
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, nullptr);
}

bool InterruptRequested() {
  return interrupted != 0;
}

void RequestInterrupt() {
  interrupted = 1;
}

void ClearInterrupt() {
  interrupted = 0;
}

}  // namespace host
