#include "host/system/process.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <filesystem>

#include "process_fixture.h"

// How a program is found and started.

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ProcessTest, AProgramIsStartedAndWaitedFor) {
  const ToolBench bench;
  const std::vector<std::string> command = Conversion();
  ASSERT_TRUE(host::RunProcess({command, "", true}, kLong));
  EXPECT_EQ(FileContent(Target()), "clamp 0.5 " + folder_.File("wood.png") + "\n");
  ASSERT_EQ(bench.Runs().size(), 1u);
  EXPECT_EQ(bench.Runs()[0].command, command);
  ExpectNoChild();
}

TEST_F(ProcessTest, AProgramThatFailsWasStartedAllTheSame) {
  for (const char* act : {"fail", "no-target"}) {
    const ToolBench bench(act);
    EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kLong));
    EXPECT_FALSE(std::filesystem::exists(Target()));
    EXPECT_EQ(bench.Runs().size(), 1u);
  }
}

TEST_F(ProcessTest, AProgramIsFoundWithItsExtensionAndWithout) {
  const ToolBench bench;
  for (const char* name : {"mapforge", "mapforge.exe", "mapforge.EXE"}) {
    EXPECT_TRUE(host::RunProcess({Conversion(name), "", true}, kLong)) << name;
    EXPECT_EQ(bench.Runs().back().command[0], name);
  }
  for (const char* name : {"mapforge.com", "mapforge.exe.exe", ".exe", "map"}) {
    EXPECT_FALSE(host::RunProcess({Conversion(name), "", true}, kLong)) << name;
  }
  EXPECT_EQ(bench.Runs().size(), 3u);
}

TEST_F(ProcessTest, AFileThatHasTheExtensionGoesBeforeOneThatLacksIt) {
  const ToolBench bench;
  const std::string folder = folder_.File("last");
  std::filesystem::create_directory(folder);
  WriteScript(folder + "/mapforge.exe", "#!/bin/sh\necho script > \"$6\"\n");
  const ScopedEnvironment path("PATH", ToolBench::Folder() + "::" + folder);
  ASSERT_TRUE(host::RunProcess({Conversion(), "", true}, kLong));
  EXPECT_EQ(FileContent(Target()), "script\n");
  EXPECT_THAT(bench.Runs(), IsEmpty());
}

TEST_F(ProcessTest, AFileThatTheSystemRefusesToRunIsPassedOver) {
  const ToolBench bench;
  const ScopedEnvironment path("PATH", folder_.Path().string() + ":" + ToolBench::Folder());
  for (const char* name : {"mapforge", "mapforge.exe"}) {
    for (const char* text : {"no program", "", "#!/no/such/interpreter\n"}) {
      WriteScript(folder_.File(name), text);
      EXPECT_TRUE(host::RunProcess({Conversion(), "", true}, kLong)) << name << text;
      EXPECT_EQ(bench.Runs().back().command[0], "mapforge.exe");
    }
  }
  EXPECT_EQ(bench.Runs().size(), 6u);
}

TEST_F(ProcessTest, AFolderInTheNameNeedsNoSearchPath) {
  const ToolBench bench;
  const ScopedEnvironment path("PATH", std::nullopt);
  EXPECT_TRUE(host::RunProcess({Conversion(ToolBench::Folder() + "/mapforge"), "", true}, kLong));
  EXPECT_TRUE(
      host::RunProcess({Conversion(ToolBench::Folder() + "\\mapforge.exe"), "", true}, kLong));
  EXPECT_FALSE(host::RunProcess({Conversion("mapforge"), "", true}, kLong));
  EXPECT_EQ(bench.Runs().size(), 2u);
}

TEST_F(ProcessTest, ARelativeEntryOfTheSearchPathCountsFromHere) {
  const ToolBench bench;
  const std::string here = std::filesystem::current_path().string();
  const auto relative = std::filesystem::relative(ToolBench::Folder(), here);
  const ScopedEnvironment path("PATH", relative.string());
  EXPECT_TRUE(host::RunProcess({Conversion(), folder_.Path().string(), true}, kLong));
  ASSERT_EQ(bench.Runs().size(), 1u);
  EXPECT_EQ(bench.Runs()[0].folder, folder_.Path().string());
}

TEST_F(ProcessTest, NoProgramIsToldAsSuch) {
  const ToolBench bench;
  std::filesystem::create_directory(folder_.File("mapforge"));
  const ScopedEnvironment path("PATH", folder_.Path().string());
  EXPECT_FALSE(host::RunProcess({Conversion(), "", true}, kLong)) << "a folder";
  std::filesystem::remove(folder_.File("mapforge"));
  WriteFileContent(folder_.File("mapforge"), "#!/bin/sh\n");
  EXPECT_FALSE(host::RunProcess({Conversion(), "", true}, kLong)) << "no executable";
  WriteScript(folder_.File("mapforge"), "no program");
  EXPECT_FALSE(host::RunProcess({Conversion(), "", true}, kLong)) << "no shell for what isn't one";
  WriteScript(folder_.File("mapforge"), "#!/no/such/interpreter\n");
  EXPECT_FALSE(host::RunProcess({Conversion(), "", true}, kLong)) << "no interpreter";
  EXPECT_FALSE(host::RunProcess({}, kLong)) << "no arguments";
  EXPECT_FALSE(host::RunProcess({{""}, "", true}, kLong)) << "an empty name";
  EXPECT_FALSE(host::RunProcess({{"."}, "", true}, kLong));
  EXPECT_FALSE(host::RunProcess({{"/"}, "", true}, kLong));
  ExpectNoChild();
}

TEST_F(ProcessTest, AZeroByteIsRefused) {
  const ToolBench bench;
  std::vector<std::string> command = Conversion();
  command[5] += std::string("\0.tx", 4);
  EXPECT_FALSE(host::RunProcess({command, "", true}, kLong));
  EXPECT_FALSE(host::RunProcess({Conversion(), std::string("/\0tmp", 5), true}, kLong));
  EXPECT_FALSE(host::RunProcess({Conversion(std::string("mapforge\0", 9)), "", true}, kLong));
  EXPECT_THAT(bench.Runs(), IsEmpty());
}

TEST_F(ProcessTest, TheFolderIsTheProcesssCurrentOne) {
  const ToolBench bench;
  const std::string folder = folder_.Path().string();
  ASSERT_TRUE(host::RunProcess({{"mapforge"}, folder, true}, kLong));
  ASSERT_TRUE(host::RunProcess({{"mapforge"}, "", true}, kLong));
  ASSERT_EQ(bench.Runs().size(), 2u);
  EXPECT_EQ(bench.Runs()[0].folder, folder);
  EXPECT_EQ(bench.Runs()[1].folder, std::filesystem::current_path().string());
  EXPECT_FALSE(host::RunProcess({{"mapforge"}, folder_.File("none"), true}, kLong));
  WriteFileContent(folder_.File("file"), "");
  EXPECT_FALSE(host::RunProcess({{"mapforge"}, folder_.File("file"), true}, kLong));
  EXPECT_EQ(bench.Runs().size(), 2u);
}

TEST_F(ProcessTest, ArgumentsArriveAsTheyAre) {
  const ToolBench bench;
  const std::string mark = folder_.File("mark");
  const std::vector<std::string> command = {
      "mapforge.exe",
      "a b",
      "",
      "\"quoted\" 'text'",
      "$(touch '" + mark + "')",
      "`touch '" + mark + "'`",
      "; touch '" + mark + "' &",
      "| > < * ? ~ $HOME %PATH% !x",
      "\\back\\slash\\",
      "-mode",
      "tab\there\nline\r",
      "Łódź 日本 🎨",
      std::string(100000, 'x'),
  };
  ASSERT_TRUE(host::RunProcess({command, "", true}, kLong));
  ASSERT_EQ(bench.Runs().size(), 1u);
  EXPECT_EQ(bench.Runs()[0].command, command);
  EXPECT_FALSE(std::filesystem::exists(mark));
}

TEST_F(ProcessTest, WhatIsTooLongForTheSystemIsRefused) {
  const ToolBench bench;
  EXPECT_FALSE(host::RunProcess({{"mapforge", std::string(1'000'000, 'x')}, "", true}, kLong));
  EXPECT_THAT(bench.Runs(), IsEmpty());
}

TEST_F(ProcessTest, AHiddenProgramHasNoTerminalNoInputAndNoOutput) {
  const ToolBench bench;
  ASSERT_TRUE(host::RunProcess({{"mapforge"}, "", true}, kLong));
  const ToolRun run = bench.Runs().at(0);
  EXPECT_THAT(run.terminals, IsEmpty());
  EXPECT_THAT(run.streams, ElementsAre("/dev/null", "/dev/null", "/dev/null"));
  EXPECT_EQ(run.session, run.process);
  EXPECT_EQ(run.group, run.process);
}

TEST_F(ProcessTest, AShownProgramKeepsTheOutputButNotTheInput) {
  const ToolBench bench;
  const auto streamOf = [](int number) {
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(number)).string();
  };
  ASSERT_TRUE(host::RunProcess({Conversion(), "", false}, kLong));
  const ToolRun run = bench.Runs().at(0);
  EXPECT_THAT(run.streams, ElementsAre("/dev/null", streamOf(1), streamOf(2)));
  EXPECT_EQ(run.session, getsid(0));
  EXPECT_EQ(run.group, run.process);
}

TEST_F(ProcessTest, NoOpenFileIsInherited) {
  const ToolBench bench;
  const int fd = open("/dev/null", O_RDONLY);
  ASSERT_GT(fd, 2);
  const int high = fcntl(fd, F_DUPFD, 200);
  for (const bool hidden : {true, false}) {
    ASSERT_TRUE(host::RunProcess({Conversion(), "", hidden}, kLong));
    EXPECT_THAT(bench.Runs().back().descriptors, ElementsAre(0, 1, 2));
  }
  close(fd);
  close(high);
}

TEST_F(ProcessTest, SignalsAreAsAProgramExpectsThem) {
  const ToolBench bench;
  sigset_t blocked, before;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  sigaddset(&blocked, SIGUSR1);
  pthread_sigmask(SIG_BLOCK, &blocked, &before);
  const auto oldPipe = signal(SIGPIPE, SIG_IGN);
  const auto oldSize = signal(SIGXFSZ, SIG_IGN);
  ASSERT_TRUE(host::RunProcess({{"mapforge"}, "", true}, kLong));
  signal(SIGPIPE, oldPipe);
  signal(SIGXFSZ, oldSize);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  EXPECT_THAT(bench.Runs().at(0).ignored_signals, IsEmpty());
  EXPECT_THAT(bench.Runs().at(0).blocked_signals, IsEmpty());
}

}  // namespace
