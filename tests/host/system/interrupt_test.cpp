#include "host/system/interrupt.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace {

TEST(Interrupt, CtrlCSetsTheMarkUntilItIsCleared) {
  struct sigaction before = {};
  sigaction(SIGINT, nullptr, &before);
  host::CatchInterrupts();
  EXPECT_FALSE(host::InterruptRequested());
  raise(SIGINT);
  EXPECT_TRUE(host::InterruptRequested());
  host::ClearInterrupt();
  EXPECT_FALSE(host::InterruptRequested());
  sigaction(SIGINT, &before, nullptr);
}

TEST(Interrupt, BlockingReadReturns) {
  struct sigaction before = {};
  sigaction(SIGINT, nullptr, &before);
  host::CatchInterrupts();
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t self = getpid();
  const pid_t child = fork();
  if (child == 0) {
    // Again and again, as the first one may come before the read.
    while (getppid() == self) {
      usleep(50000);
      kill(self, SIGINT);
    }
    _exit(0);
  }
  char byte = 0;
  EXPECT_EQ(read(ends[0], &byte, 1), -1);
  EXPECT_EQ(errno, EINTR);
  kill(child, SIGKILL);
  EXPECT_EQ(waitpid(child, nullptr, 0), child);
  host::ClearInterrupt();
  close(ends[0]);
  close(ends[1]);
  sigaction(SIGINT, &before, nullptr);
}

}  // namespace
