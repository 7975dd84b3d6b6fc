#include "jobs/submit_job_command.h"

#include <gmock/gmock.h>

#include "command_fixture.h"
#include "support/scoped_environment.h"
#include "tools/tool_bench.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SubmitJob : public CommandTest {
 protected:
  SubmitJob() { Set("RibName", folder_.File("a b.rib")); }

  void Set(std::string_view key, std::string_view value) {
    plugIn_.UserStrings().SetUserString(key, value);
  }
  CommandResult Submit(const std::string& first, const std::string& last) {
    return Run<CCommandOrvSubmitJob>(Form::scripted,
                                     {"FirstFrame=" + first, "LastFrame=" + last, "Enter"});
  }
  // The lines of a file that reads frames 3 to 5.
  std::string Frames3To5(const std::string& before, const std::string& after) const {
    std::string text;
    for (const char* name : {"a b_0003.rib", "a b_0004.rib", "a b_0005.rib"}) {
      text += before + folder_.File(name) + after;
    }
    return text;
  }

  const ToolBench bench_;
};

TEST_F(SubmitJob, TheRendererReadsAFileOfTheFrames) {
  EXPECT_EQ(Submit("3", "5"), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Orv Submit Job ( FirstFrame=0  LastFrame=99 ): ",
                                    "Orv Submit Job ( FirstFrame=3  LastFrame=99 ): ",
                                    "Orv Submit Job ( FirstFrame=3  LastFrame=5 ): "));
  EXPECT_EQ(FileContent(folder_.File("a b_all.rib")), Frames3To5("ReadArchive \"", "\"\n"));
  const auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].command,
              ElementsAre("orv.exe", "-p", "1", "-pri", "-1", folder_.File("a b_all.rib")));
  EXPECT_EQ(runs[0].folder, folder_.Path().string());
  EXPECT_EQ(messages_, "");
}

TEST_F(SubmitJob, FramesInTheWrongOrderAreExchanged) {
  EXPECT_EQ(Submit("5", "3"), CommandResult::success);
  EXPECT_EQ(FileContent(folder_.File("a b_all.rib")), Frames3To5("ReadArchive \"", "\"\n"));
}

TEST_F(SubmitJob, EnterAtOnceTakesAHundredFrames) {
  EXPECT_EQ(Run<CCommandOrvSubmitJob>(Form::scripted, {"Enter"}), CommandResult::success);
  const std::string text = FileContent(folder_.File("a b_all.rib"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 100);
  EXPECT_THAT(text, HasSubstr("a b_0099.rib"));
}

TEST_F(SubmitJob, TheControlFrontEndCountsOnFromTheFirstFrame) {
  plugIn_.User().UseOrvControl = true;
  plugIn_.User().Gyre = true;
  plugIn_.User().Threads = 2;
  EXPECT_EQ(Submit("5", "5"), CommandResult::success);
  const auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].command,
              ElementsAre("orvq", "-p", "2", "-frames", "5", "5", folder_.File("a b_0005.rib")));
  EXPECT_EQ(runs[0].folder, folder_.Path().string());
  EXPECT_THAT(runs[0].streams, ElementsAre("/dev/null", "/dev/null", "/dev/null"));
  EXPECT_FALSE(std::filesystem::exists(folder_.File("a b_all.rib")));
}

TEST_F(SubmitJob, TheControlFrontEndKeepsTheExtension) {
  plugIn_.User().UseOrvControl = true;
  Set("RibName", folder_.File("a.orib"));
  EXPECT_EQ(Submit("0", "1"), CommandResult::success);
  const auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(runs[0].command.back(), folder_.File("a_0000.orib"));
}

TEST_F(SubmitJob, TheQueueIsGivenFrameByFrame) {
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Submit("3", "5"), CommandResult::success);
  EXPECT_EQ(FileContent(folder_.File("a b_all.bat")), Frames3To5("gyre.exe -local 0 \"", "\"\n"));
  const auto runs = bench_.WaitForRuns(3);
  ASSERT_EQ(runs.size(), 3U);
  EXPECT_THAT(runs[0].command,
              ElementsAre("gyre.exe", "-local", "0", folder_.File("a b_0003.rib")));
  EXPECT_THAT(runs[2].command,
              ElementsAre("gyre.exe", "-local", "0", folder_.File("a b_0005.rib")));
  EXPECT_EQ(runs[0].folder, folder_.Path().string());
  EXPECT_EQ(messages_, "");
}

TEST_F(SubmitJob, TheVersionIsThePresentOne) {
  plugIn_.User().UseVersion = true;
  plugIn_.User().Version = 7;
  EXPECT_EQ(Submit("1", "1"), CommandResult::success);
  EXPECT_EQ(FileContent(folder_.File("a b_v7_all.rib")),
            "ReadArchive \"" + folder_.File("a b_v7_0001.rib") + "\"\n");
  EXPECT_EQ(plugIn_.User().Version, 7);
}

TEST_F(SubmitJob, BackslashesStayInTheBatchFileOnly) {
  std::filesystem::create_directory(folder_.File("sub"));
  const std::string base = folder_.Path().string() + "\\sub\\a";
  Set("RibName", base + ".rib");
  EXPECT_EQ(Submit("1", "1"), CommandResult::success);
  EXPECT_EQ(FileContent(folder_.File("sub/a_all.rib")),
            "ReadArchive \"" + folder_.File("sub/a_0001.rib") + "\"\n");
  EXPECT_EQ(bench_.WaitForRuns(1).at(0).command.back(), folder_.File("sub/a_all.rib"));
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Submit("1", "1"), CommandResult::success);
  EXPECT_EQ(FileContent(folder_.File("sub/a_all.bat")),
            "gyre.exe -local 0 \"" + base + "_0001.rib\"\n");
  EXPECT_EQ(bench_.WaitForRuns(2).size(), 2U);
}

TEST_F(SubmitJob, AFileThatCannotBeWrittenIsAFailure) {
  std::filesystem::create_directory(folder_.File("a b_all.rib"));
  EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
  EXPECT_EQ(messages_, "Unable to write rib file for all frames.\n");
  messages_.clear();
  plugIn_.User().Gyre = true;
  std::filesystem::create_directory(folder_.File("a b_all.bat"));
  EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
  EXPECT_EQ(messages_, "");
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SubmitJob, AFolderThatIsTooLongIsAFailure) {
  const std::string folder = folder_.File(std::string(250, 'x'));
  std::filesystem::create_directory(folder);
  Set("RibName", folder + "/a.rib");
  const std::string message = "Unable to name the files of a job after " + folder +
                              "/a.rib: its first 256 characters count, and its folder is longer.\n";
  EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
  EXPECT_EQ(messages_, message + message);
  std::filesystem::remove(folder);
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path())) << "a file in another folder";
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SubmitJob, TheProgramsHaveAWindow) {
  const std::string own = std::filesystem::read_symlink("/proc/self/fd/1").string();
  const std::string shown = own.starts_with("pipe:") ? "/dev/null" : own;
  EXPECT_EQ(Submit("1", "1"), CommandResult::success);
  ASSERT_EQ(bench_.WaitForRuns(1).size(), 1U);
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Submit("1", "1"), CommandResult::success);
  const auto runs = bench_.WaitForRuns(2);
  ASSERT_EQ(runs.size(), 2U);
  for (const ToolRun& run : runs) EXPECT_EQ(run.streams.at(1), shown) << run.command[0];
}

TEST_F(SubmitJob, ANameWithAQuoteOrALineEndRunsNothing) {
  for (const char* name : {"a\" \"b.rib", "a\ngyre.exe b.rib"}) {
    Set("RibName", folder_.File(name));
    for (const bool control : {false, true}) {
      for (const bool gyre : {false, true}) {
        plugIn_.User().UseOrvControl = control;
        plugIn_.User().Gyre = gyre;
        EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
      }
    }
  }
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SubmitJob, AMissingProgramIsAFailureInSilence) {
  const ScopedEnvironment path("PATH", folder_.Path().string());
  EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
  plugIn_.User().UseOrvControl = true;
  EXPECT_EQ(Submit("1", "2"), CommandResult::failure);
  EXPECT_EQ(messages_, "");
}

TEST_F(SubmitJob, CancelEndsTheCommand) {
  EXPECT_EQ(Run<CCommandOrvSubmitJob>(Form::scripted, {"FirstFrame=3", "!"}),
            CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvSubmitJob>(Form::scripted, {"nonsense"}), CommandResult::failure);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("a b_all.rib")));
}

TEST_F(SubmitJob, NumbersHaveBounds) {
  for (const char* number : {"-1", "100000", "x"}) {
    EXPECT_EQ(Run<CCommandOrvSubmitJob>(Form::scripted, {"FirstFrame=" + std::string(number)}),
              CommandResult::failure);
    EXPECT_EQ(Run<CCommandOrvSubmitJob>(Form::scripted, {"LastFrame=" + std::string(number)}),
              CommandResult::failure);
  }
  EXPECT_EQ(Submit("99999", "99999"), CommandResult::success);
  EXPECT_THAT(FileContent(folder_.File("a b_all.rib")), HasSubstr("_99999.rib"));
}

}  // namespace
}  // namespace orv
