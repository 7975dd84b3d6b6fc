#include "jobs/process_launch.h"

#include <gmock/gmock.h>
#include <signal.h>

#include "support/temp_folder.h"
#include "tools/tool_bench.h"

namespace orv {
namespace {

using testing::ElementsAre;

TEST(ProcessLaunch, ACommandLineIsTakenApartWithoutAShell) {
  const ToolBench bench;
  const TempFolder folder;
  ASSERT_TRUE(RunDetachedProcess("orv.exe -p 1 \"a b $HOME `x`.rib\" \"\"", folder.Path().string(),
                                 false, false));
  const auto runs = bench.Runs();
  ASSERT_EQ(runs.size(), 1U) << "it was not waited for";
  EXPECT_THAT(runs[0].command, ElementsAre("orv.exe", "-p", "1", "a b $HOME `x`.rib", ""));
  EXPECT_EQ(runs[0].folder, folder.Path().string());
}

TEST(ProcessLaunch, ADetachedProcessIsNotWaitedFor) {
  const ToolBench bench("hang");
  ASSERT_TRUE(RunDetachedProcess("orvq", "", true, true));
  const auto runs = bench.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(runs[0].folder, std::filesystem::current_path().string());
  EXPECT_EQ(runs[0].session, runs[0].process);
  EXPECT_EQ(kill(runs[0].process, SIGKILL), 0);
}

TEST(ProcessLaunch, AProcessThatIsNotShownIsCutOff) {
  const ToolBench bench;
  ASSERT_TRUE(RunDetachedProcess("orv.exe", "", false, false));
  EXPECT_THAT(bench.Runs().at(0).streams, ElementsAre("/dev/null", "/dev/null", "/dev/null"));
}

TEST(ProcessLaunch, OfALongCommandLineTheFirst2048CharactersCount) {
  const ToolBench bench;
  std::string line = "orv.exe ";
  for (int i = 0; i < 3000; ++i) line += "ä";
  ASSERT_TRUE(RunDetachedProcess(line, "", false, false));
  EXPECT_EQ(bench.Runs().at(0).command.at(1).size(), 2 * 2040U);
}

TEST(ProcessLaunch, WhatIsNotThereIsNotStarted) {
  const ToolBench bench;
  for (const bool detached : {false, true}) {
    EXPECT_FALSE(RunDetachedProcess("no-such-program.exe -p 1", "", detached, false));
    EXPECT_FALSE(RunDetachedProcess("", "", detached, false));
    EXPECT_FALSE(RunDetachedProcess("\"\"", "", detached, false));
    EXPECT_FALSE(RunDetachedProcess("orv.exe", "/no/such/folder", detached, false));
  }
  EXPECT_TRUE(bench.Runs().empty());
}

TEST(ProcessLaunch, TheWorkingFolderIsThatOfThePath) {
  EXPECT_EQ(WorkingFolderOf("C:\\t\\a.rib"), "C:\\t\\");
  EXPECT_EQ(WorkingFolderOf("/tmp/x y/a.rib"), "/tmp/x y/");
  EXPECT_EQ(WorkingFolderOf("/tmp\\a.rib"), "/tmp\\");
  EXPECT_EQ(WorkingFolderOf("a.rib"), "");
  EXPECT_EQ(WorkingFolderOf(""), "");
  EXPECT_EQ(WorkingFolderOf("c:a.rib"), "");
  EXPECT_EQ(WorkingFolderOf("c:\\a.rib"), "c:\\");
}

}  // namespace
}  // namespace orv
