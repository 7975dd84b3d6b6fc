#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

#include "host/system/interrupt.h"
#include "host/system/process.h"
#include "process_fixture.h"
#include "support/process.h"

// Programs that go on by themselves.

namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

bool BecomesTrue(const std::function<bool()>& condition) {
  for (int i = 0; i < 4000; ++i) {
    if (condition()) return true;
    std::this_thread::sleep_for(milliseconds(5));
  }
  return false;
}

// Neither running nor waiting to be reaped.
bool IsGone(pid_t process) {
  return kill(process, 0) != 0 && errno == ESRCH;
}

// The commands of runs.
std::vector<std::vector<std::string>> CommandsOf(const std::vector<ToolRun>& runs) {
  std::vector<std::vector<std::string>> commands;
  for (const ToolRun& run : runs) commands.push_back(run.command);
  return commands;
}

TEST_F(ProcessTest, AStartedProgramIsNotWaitedFor) {
  const ToolBench bench("hang");
  const auto begin = std::chrono::steady_clock::now();
  ASSERT_TRUE(host::StartProcess({{"orv.exe", "-p", "2"}, folder_.Path().string(), false}));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
  const auto runs = bench.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].command, ElementsAre("orv.exe", "-p", "2"));
  EXPECT_EQ(runs[0].folder, folder_.Path().string());
  EXPECT_FALSE(IsGone(runs[0].process));
  kill(runs[0].process, SIGKILL);
  EXPECT_TRUE(BecomesTrue([&] { return IsGone(runs[0].process); })) << "a zombie is left";
}

TEST_F(ProcessTest, AStartedProgramStandsApart) {
  const ToolBench bench;
  ASSERT_TRUE(host::StartProcess({{"orvq"}, "", true}));
  ASSERT_TRUE(host::StartProcess({{"orv"}, "", false}));
  const auto runs = bench.WaitForRuns(2);
  ASSERT_EQ(runs.size(), 2U);
  for (const ToolRun& run : runs) {
    EXPECT_EQ(run.session, run.process);
    EXPECT_EQ(run.group, run.process);
    EXPECT_EQ(run.streams.at(0), "/dev/null");
    EXPECT_THAT(run.descriptors, ElementsAre(0, 1, 2));
    EXPECT_THAT(run.ignored_signals, IsEmpty());
  }
}

// Runs `act` in a process of its own whose output goes to `stream`, and waits for its end.
void RunWithOutput(int stream, const std::function<bool()>& act) {
  const pid_t starter = fork();
  if (starter == 0) {
    for (const int output : {STDOUT_FILENO, STDERR_FILENO}) dup2(stream, output);
    _exit(act() ? 0 : 1);
  }
  EXPECT_EQ(WaitForChild(starter), 0);
}

TEST_F(ProcessTest, AStartedProgramOutlivesItsStarterAndKeepsNoPipeOpen) {
  const ToolBench bench("hang");
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  RunWithOutput(ends[1], [] { return host::StartProcess({{"orv.exe"}, "", false}); });
  close(ends[1]);
  const auto runs = bench.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  char letter = 0;
  EXPECT_EQ(read(ends[0], &letter, 1), 0) << "the pipe ends with the starter";
  close(ends[0]);
  EXPECT_EQ(kill(runs[0].process, 0), 0) << "it has ended with its starter";
  EXPECT_THAT(runs[0].streams, ElementsAre("/dev/null", "/dev/null", "/dev/null"));
  kill(runs[0].process, SIGKILL);
}

TEST_F(ProcessTest, WhatAStartedProgramPrintsIsShownUnlessItIsHidden) {
  const ToolBench bench("print");
  const std::string shown = folder_.File("shown");
  const std::string hidden = folder_.File("hidden");
  for (const std::string& file : {hidden, shown}) {
    const int fd = open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    RunWithOutput(fd, [&] { return host::StartProcess({{"orv"}, "", file == hidden}); });
    close(fd);
  }
  EXPECT_TRUE(BecomesTrue([&] { return FileContent(shown) == "orv complains\norv prints\n"; }))
      << FileContent(shown);
  EXPECT_EQ(bench.WaitForRuns(2).size(), 2U);
  EXPECT_EQ(FileContent(hidden), "");
}

TEST_F(ProcessTest, ManyThatEndLeaveNothingBehind) {
  const ToolBench bench;
  constexpr std::size_t kCount = 20;
  for (std::size_t i = 0; i < kCount; ++i) {
    ASSERT_TRUE(host::StartProcess({{"orv"}, "", true}));
  }
  EXPECT_EQ(bench.WaitForRuns(kCount).size(), kCount);
  EXPECT_TRUE(BecomesTrue([] { return waitpid(-1, nullptr, WNOHANG) == -1; }));
  ExpectNoChild();
}

TEST_F(ProcessTest, WhatCannotBeStartedIsToldAtOnce) {
  const ToolBench bench;
  EXPECT_FALSE(host::StartProcess({{"no-such-program"}, "", false}));
  EXPECT_FALSE(host::StartProcess({{"orv"}, folder_.File("no folder"), false}));
  EXPECT_FALSE(host::StartProcess({{std::string("orv\0", 4)}, "", false}));
  EXPECT_FALSE(host::StartProcess({}));
  host::RequestInterrupt();
  EXPECT_FALSE(host::StartProcess({{"orv"}, "", false}));
  host::ClearInterrupt();
  EXPECT_THAT(bench.Runs(), IsEmpty());
  ExpectNoChild();
}

TEST_F(ProcessTest, ABatchFileRunsItsLinesOneAfterTheOther) {
  const ToolBench bench;
  const std::string batch = folder_.File("all frames.bat");
  WriteFileContent(batch,
                   "gyre.exe -local 0 \"a 1.rib\"\n"
                   "no-such-program x\n"
                   "gyre.exe -local 0 \"$(touch ran).rib\"\n"
                   "gyre.exe -local 0 \"c:\\t\\3.rib\"\n");
  ASSERT_TRUE(host::StartProcess({{batch}, folder_.Path().string(), false}));
  const auto runs = bench.WaitForRuns(3);
  EXPECT_THAT(CommandsOf(runs),
              ElementsAre(ElementsAre("gyre.exe", "-local", "0", "a 1.rib"),
                          ElementsAre("gyre.exe", "-local", "0", "$(touch ran).rib"),
                          ElementsAre("gyre.exe", "-local", "0", "c:\\t\\3.rib")));
  for (const ToolRun& run : runs) {
    EXPECT_EQ(run.folder, folder_.Path().string());
    EXPECT_EQ(run.streams.at(0), "/dev/null");
    EXPECT_THAT(run.descriptors, ElementsAre(0, 1, 2));
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.File("ran")));
  EXPECT_TRUE(BecomesTrue([] { return waitpid(-1, nullptr, WNOHANG) == -1; }));
}

TEST_F(ProcessTest, ALineOfABatchFileWaitsForTheOneBefore) {
  const ToolBench bench("hang");
  const std::string batch = folder_.File("all.bat");
  WriteFileContent(batch, "gyre.exe 1\ngyre.exe 2\n");
  ASSERT_TRUE(host::StartProcess({{batch}, "", false}));
  ASSERT_EQ(bench.WaitForRuns(1).size(), 1U);
  std::this_thread::sleep_for(milliseconds(100));
  ASSERT_EQ(bench.Runs().size(), 1U);
  kill(bench.Runs()[0].process, SIGKILL);
  const auto runs = bench.WaitForRuns(2);
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_THAT(runs[1].command, ElementsAre("gyre.exe", "2"));
  kill(runs[1].process, SIGKILL);
  EXPECT_TRUE(BecomesTrue([] { return waitpid(-1, nullptr, WNOHANG) == -1; }));
}

// The process that has started another one.
pid_t ParentOf(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  const std::string stat{std::istreambuf_iterator<char>(file), {}};
  char state = 0;
  pid_t parent = 0;
  std::istringstream(stat.substr(stat.rfind(')') + 1)) >> state >> parent;
  return parent;
}

TEST_F(ProcessTest, ABatchFileThatIsInterruptedStartsNoMoreLines) {
  const ToolBench bench("hang");
  const std::string batch = folder_.File("all.bat");
  WriteFileContent(batch, "gyre.exe 1\ngyre.exe 2\ngyre.exe 3\n");
  struct sigaction before = {};
  sigaction(SIGINT, nullptr, &before);
  host::CatchInterrupts();
  EXPECT_TRUE(host::StartProcess({{batch}, "", false}));
  sigaction(SIGINT, &before, nullptr);
  ASSERT_EQ(bench.WaitForRuns(1).size(), 1U);
  const pid_t line = bench.Runs()[0].process;
  const pid_t file = ParentOf(line);
  ASSERT_NE(file, getpid());
  ASSERT_GT(file, 1);
  EXPECT_EQ(kill(file, SIGINT), 0);
  EXPECT_TRUE(BecomesTrue([&] { return IsGone(file); }));
  EXPECT_FALSE(IsGone(line)) << "the frame that is being rendered goes on";
  kill(line, SIGKILL);
  std::this_thread::sleep_for(milliseconds(100));
  for (const ToolRun& run : bench.Runs()) kill(run.process, SIGKILL);
  EXPECT_EQ(bench.Runs().size(), 1U);
}

TEST_F(ProcessTest, ABatchFileOfMissingProgramsIsNotStarted) {
  const std::string batch = folder_.File("all.bat");
  WriteFileContent(batch, "no-such-program 1\nnone-like-this 2\n");
  EXPECT_FALSE(host::StartProcess({{batch}, "", false}));
  ExpectNoChild();
  WriteFileContent(batch, "");
  EXPECT_TRUE(host::StartProcess({{batch}, "", false})) << "nothing is missing";
  EXPECT_TRUE(BecomesTrue([] { return waitpid(-1, nullptr, WNOHANG) == -1; }));
}

TEST_F(ProcessTest, ABatchFileThatIsNotThereIsNoProgram) {
  EXPECT_FALSE(host::StartProcess({{folder_.File("none.bat")}, "", false}));
  std::filesystem::create_directory(folder_.File("folder.bat"));
  EXPECT_FALSE(host::StartProcess({{folder_.File("folder.bat")}, "", false}));
  ExpectNoChild();
}

}  // namespace
