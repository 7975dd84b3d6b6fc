#include <signal.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "host/system/interrupt.h"
#include "host/system/process.h"
#include "process_fixture.h"

// How a program that was started ends, or is ended.

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// Long enough for the stand-in to begin, also on a busy machine.
constexpr milliseconds kShort{1000};
// What ending a process may take, on such a machine, too.
constexpr milliseconds kEnding{5000};

milliseconds TimeOf(const std::function<void()>& act) {
  const auto begin = std::chrono::steady_clock::now();
  act();
  return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begin);
}

// Neither running nor waiting to be reaped.
bool IsGone(pid_t process) {
  return kill(process, 0) != 0 && errno == ESRCH;
}

// A process that lost its parent is reaped by another one, some time after its end.
bool HasEndedSoon(pid_t process) {
  const std::string file = "/proc/" + std::to_string(process) + "/stat";
  for (int i = 0; i < 1000; ++i) {
    std::ifstream stat(file);
    std::string line;
    if (!std::getline(stat, line) || line.find(") Z") != std::string::npos) return true;
    std::this_thread::sleep_for(milliseconds(2));
  }
  return false;
}

TEST_F(ProcessTest, AProgramThatHangsIsEndedAfterTheLimit) {
  // The second one ignores being told to end.
  for (const char* act : {"hang", "hang-on"}) {
    const ToolBench bench(act);
    const milliseconds time = TimeOf([&] {
      EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kShort));
    });
    EXPECT_GE(time, kShort) << act;
    EXPECT_LT(time, kShort + kEnding) << act;
    EXPECT_TRUE(IsGone(bench.Runs().at(0).process)) << act;
    EXPECT_FALSE(std::filesystem::exists(Target())) << act;
    ExpectNoChild();
  }
}

TEST_F(ProcessTest, AProgramThatIsToldToEndMayCleanUp) {
  const std::string script = folder_.File("cleaner");
  WriteScript(script,
              "#!/bin/sh\ntrap 'echo cleaned > \"$1\"; exit' TERM\nwhile :; do sleep 0.01; done\n");
  EXPECT_TRUE(host::RunProcess({{script, Target()}, "", true}, kShort));
  EXPECT_EQ(FileContent(Target()), "cleaned\n");
  ExpectNoChild();
}

TEST_F(ProcessTest, AStoppedProgramIsEnded) {
  const ToolBench bench("hang");
  std::thread stopper([&] {
    while (bench.Runs().empty()) std::this_thread::sleep_for(milliseconds(2));
    kill(bench.Runs()[0].process, SIGSTOP);
  });
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kShort));
  stopper.join();
  EXPECT_TRUE(IsGone(bench.Runs().at(0).process));
  ExpectNoChild();
}

TEST_F(ProcessTest, WhatTheProgramHasStartedEndsWithIt) {
  for (const bool hidden : {true, false}) {
    const ToolBench bench("grandchild");
    EXPECT_TRUE(host::RunProcess({Conversion(), "", hidden}, kShort));
    const ToolRun run = bench.Runs().at(0);
    ASSERT_GT(run.grandchild, 0);
    EXPECT_TRUE(IsGone(run.process));
    EXPECT_TRUE(HasEndedSoon(run.grandchild));
    ExpectNoChild();
  }
}

TEST_F(ProcessTest, AProcessThatTheProgramLeavesBehindIsNotWaitedFor) {
  const ToolBench bench("leave-grandchild");
  const milliseconds time = TimeOf([&] {
    EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kLong));
  });
  EXPECT_LT(time, seconds(10));
  EXPECT_TRUE(std::filesystem::exists(Target()));
  const pid_t grandchild = bench.Runs().at(0).grandchild;
  EXPECT_FALSE(IsGone(grandchild));
  kill(grandchild, SIGKILL);
  EXPECT_TRUE(HasEndedSoon(grandchild));
}

TEST_F(ProcessTest, AnyLimitIsAllowed) {
  const ToolBench bench("hang");
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, milliseconds(0)));
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, milliseconds::min()));
  bench.SetAct("");
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, milliseconds::max()));
  EXPECT_TRUE(std::filesystem::exists(Target()));
  ExpectNoChild();
}

TEST_F(ProcessTest, TheUsersInterruptEndsTheWaiting) {
  const ToolBench bench("hang");
  std::thread user([&] {
    while (bench.Runs().empty()) std::this_thread::sleep_for(milliseconds(2));
    host::RequestInterrupt();
  });
  const milliseconds time = TimeOf([&] {
    EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kLong));
  });
  user.join();
  EXPECT_LT(time, seconds(10));
  EXPECT_TRUE(host::InterruptRequested()) << "clearing it is the command's";
  EXPECT_FALSE(host::RunProcess({Conversion(), "", true}, kLong));
  host::ClearInterrupt();
  EXPECT_EQ(bench.Runs().size(), 1u);
  EXPECT_TRUE(IsGone(bench.Runs()[0].process));
  ExpectNoChild();
}

TEST_F(ProcessTest, AProgramThatIsQuickIsNoticedSoon) {
  const ScopedEnvironment path("PATH", "/bin:/usr/bin");
  const milliseconds time = TimeOf([] {
    for (int i = 0; i < 20; ++i) ASSERT_TRUE(host::RunProcess({{"true"}, "", true}, kLong));
  });
  EXPECT_LT(time, 20 * milliseconds(200));
  ExpectNoChild();
}

TEST_F(ProcessTest, OtherChildrenAreLeftAlone) {
  const pid_t other = fork();
  if (other == 0) _exit(7);
  const ToolBench bench;
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kLong));
  int status = 0;
  EXPECT_EQ(waitpid(other, &status, 0), other);
  EXPECT_EQ(WEXITSTATUS(status), 7);
}

// Traces the first process of the bench and doesn't look at it any more, so that its parent doesn't
// learn of its end before that of the tracer.
[[noreturn]] void TraceFirstRun(const ToolBench& bench) {
  while (bench.Runs().empty()) std::this_thread::sleep_for(milliseconds(2));
  if (ptrace(PTRACE_SEIZE, bench.Runs()[0].process, nullptr, nullptr) != 0) _exit(1);
  for (;;) pause();
}

TEST_F(ProcessTest, AProcessThatOutlivesItsEndIsReapedLater) {
  const ToolBench bench("hang");
  const pid_t tracer = fork();
  if (tracer == 0) TraceFirstRun(bench);
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kShort));
  if (waitpid(tracer, nullptr, WNOHANG) != 0) GTEST_SKIP() << "no process may be traced here";
  EXPECT_FALSE(IsGone(bench.Runs().at(0).process));
  kill(tracer, SIGKILL);
  ASSERT_EQ(waitpid(tracer, nullptr, 0), tracer);
  EXPECT_FALSE(host::RunProcess({{"no such program"}, "", true}, kLong));
  EXPECT_TRUE(IsGone(bench.Runs().at(0).process));
  ExpectNoChild();
}

TEST_F(ProcessTest, AHostThatReapsItsChildrenItselfIsNoObstacle) {
  const auto before = signal(SIGCHLD, SIG_IGN);
  const ToolBench bench;
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kLong));
  EXPECT_TRUE(std::filesystem::exists(Target()));
  bench.SetAct("hang");
  EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kShort));
  signal(SIGCHLD, before);
  EXPECT_TRUE(IsGone(bench.Runs().at(1).process));
}

}  // namespace
