#include "jobs/scene_commands.h"

#include <gmock/gmock.h>

#include "host/system/text.h"
#include "jobs/version_increment_command.h"
#include "sequence_fixture.h"
#include "support/scoped_environment.h"
#include "tools/tool_bench.h"

// OrvExport and OrvRender: the files, the programs that are started, the messages.

namespace orv {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class SceneCommands : public SequenceTest {
 protected:
  SceneCommands() {
    Set("RibName", folder_.File("a.rib"));
    Set("ImageWidth", "640");
    Set("ImageHeight", "480");
  }

  void Set(std::string_view key, std::string_view value) {
    plugIn_.UserStrings().SetUserString(key, value);
  }
  void SetSequence(int mode, int frames) {
    Set("AnimMode", std::to_string(mode));
    Set("AnimFrames", std::to_string(frames));
  }

  CommandResult Export() { return Run<CCommandSceneOut>(Form::scripted, {"Enter"}); }
  CommandResult Render() { return Run<CCommandOrvRender>(Form::scripted, {"Enter"}); }

  bool Exists(const std::string& name) const { return std::filesystem::exists(folder_.File(name)); }

  // The one program that was started.
  ToolRun OnlyRun() const {
    const std::vector<ToolRun> runs = bench_.WaitForRuns(1);
    EXPECT_EQ(runs.size(), 1U);
    return runs.empty() ? ToolRun() : runs[0];
  }

  const ToolBench bench_;
};

TEST_F(SceneCommands, ExportWritesTheSceneAndStartsNothing) {
  EXPECT_EQ(Export(), CommandResult::success);
  const std::string name = folder_.File("a.rib");
  EXPECT_EQ(messages_, "Writing " + name + "\nWrote " + name + "\n");
  EXPECT_THAT(FileContent(name), HasSubstr("WorldBegin"));
  EXPECT_THAT(FileContent(name), HasSubstr("PointsPolygons"));
  EXPECT_THAT(FileContent(name), HasSubstr("Format 640 480 1"));
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SceneCommands, ExportTakesTheSelectedObjectsWhenAskedTo) {
  ASSERT_TRUE(doc_.Objects()[0]->Select());
  Set("Selected", "1");
  EXPECT_EQ(Export(), CommandResult::success);
  EXPECT_THAT(FileContent(folder_.File("a.rib")), HasSubstr("0 0 3"));
  EXPECT_THAT(FileContent(folder_.File("a.rib")), Not(HasSubstr("0 0 7")));
}

TEST_F(SceneCommands, AnExportThatFailsIsToldByTheExportAlone) {
  Set("RibName", folder_.File("none/a.rib"));
  EXPECT_EQ(Export(), CommandResult::success);
  EXPECT_EQ(messages_, "Unable to save " + folder_.File("none/a.rib") + ".\n");
}

TEST_F(SceneCommands, CancelledOptionsEndTheCommand) {
  EXPECT_EQ(Run<CCommandSceneOut>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvRender>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(messages_, "");
  EXPECT_FALSE(Exists("a.rib"));
}

TEST_F(SceneCommands, RenderStartsTheRendererInTheScenesFolder) {
  EXPECT_EQ(Render(), CommandResult::success);
  const std::string name = folder_.File("a.rib");
  EXPECT_EQ(messages_, "Writing " + name + "\nRendering  640x480 with 1 thread at low priority\n");
  const ToolRun run = OnlyRun();
  EXPECT_THAT(run.command, ElementsAre("orv.exe", "-p", "1", "-pri", "-1", name));
  EXPECT_EQ(run.folder, folder_.Path().string());
}

TEST_F(SceneCommands, ThreadsAndPriorityAreTheUsersAndTheDocuments) {
  plugIn_.User().Threads = 2;
  Set("LowPriority", "0");
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_THAT(messages_, EndsWith("Rendering  640x480 with 2 threads at normal priority\n"));
  EXPECT_THAT(OnlyRun().command,
              ElementsAre("orv.exe", "-p", "2", "-pri", "0", folder_.File("a.rib")));
}

TEST_F(SceneCommands, TheSizeIsThatOfTheViewWithoutOneOfItsOwn) {
  Set("ImageWidth", "0");
  EXPECT_EQ(Render(), CommandResult::success);
  const std::string rib = FileContent(folder_.File("a.rib"));
  const std::size_t at = rib.find("Format ") + 7;
  std::string size = rib.substr(at, rib.find(" 1\n", at) - at);
  size[size.find(' ')] = 'x';
  EXPECT_THAT(messages_, EndsWith("Rendering  " + size + " with 1 thread at low priority\n"));
}

TEST_F(SceneCommands, TheRenderersWindowIsHiddenWhenItShowsTheImage) {
  const struct {
    const char* show;
    int mode;
    bool hidden;
  } rows[] = {{"1", 0, true}, {"0", 0, false}, {"1", 1, false}, {"0", 1, false}};
  for (const auto& row : rows) {
    const ToolBench bench;
    Set("OrvShow", row.show);
    SetSequence(row.mode, 2);
    EXPECT_EQ(Render(), CommandResult::success);
    const auto runs = bench.WaitForRuns(1);
    ASSERT_EQ(runs.size(), 1U);
    const std::string own = std::filesystem::read_symlink("/proc/self/fd/1").string();
    const bool isPipe = own.starts_with("pipe:");
    EXPECT_EQ(runs[0].streams.at(1), row.hidden || isPipe ? "/dev/null" : own);
  }
}

TEST_F(SceneCommands, TheControlFrontEndGoesBeforeTheQueue) {
  plugIn_.User().UseOrvControl = true;
  plugIn_.User().Gyre = true;
  plugIn_.User().Threads = 3;
  EXPECT_EQ(Render(), CommandResult::success);
  const ToolRun run = OnlyRun();
  EXPECT_THAT(run.command, ElementsAre("orvq", "-p", "3", folder_.File("a.rib")));
  EXPECT_EQ(run.folder, folder_.Path().string());
  EXPECT_THAT(run.streams, ElementsAre("/dev/null", "/dev/null", "/dev/null"));
}

TEST_F(SceneCommands, TheQueueTakesTheScene) {
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Render(), CommandResult::success);
  const ToolRun run = OnlyRun();
  EXPECT_THAT(run.command, ElementsAre("gyre.exe", "-local", "0", folder_.File("a.rib")));
  EXPECT_EQ(run.folder, folder_.Path().string());
  EXPECT_THAT(messages_, EndsWith("Rendering  640x480 with 1 thread at low priority\n"));
}

TEST_F(SceneCommands, AMissingProgramIsSilent) {
  const ScopedEnvironment path("PATH", folder_.Path().string());
  for (const bool control : {false, true}) {
    for (const bool gyre : {false, true}) {
      plugIn_.User().UseOrvControl = control;
      plugIn_.User().Gyre = gyre;
      messages_.clear();
      EXPECT_EQ(Render(), CommandResult::nothing);
      EXPECT_EQ(messages_, "Writing " + folder_.File("a.rib") + "\n");
    }
  }
}

TEST_F(SceneCommands, ASceneThatCannotBeWrittenStartsNothing) {
  Set("RibName", folder_.File("none/a.rib"));
  EXPECT_EQ(Render(), CommandResult::nothing);
  EXPECT_EQ(messages_, "Unable to save " + folder_.File("none/a.rib") + ".\n");
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SceneCommands, ANameWithAQuoteDoesNotBecomeAnArgument) {
  for (const char* name : {"a\" -x \"b.rib", "a\nb.rib"}) {
    Set("RibName", folder_.File(name));
    EXPECT_EQ(Render(), CommandResult::nothing);
    EXPECT_TRUE(Exists(name));
  }
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SceneCommands, ANameWithBackslashesIsPassedAsTheSystemSpellsIt) {
  std::filesystem::create_directory(folder_.File("sub"));
  const std::string name = folder_.Path().string() + "\\sub\\a.rib";
  Set("RibName", name);
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_TRUE(Exists("sub/a.rib"));
  const ToolRun run = OnlyRun();
  EXPECT_EQ(run.command.back(), folder_.File("sub/a.rib"));
  EXPECT_EQ(run.folder, folder_.File("sub"));
}

TEST_F(SceneCommands, OfALongNameTheFirst512CharactersArePassed) {
  const std::string folder = std::string(200, 'x');
  std::string path = folder_.Path().string();
  for (int i = 0; i < 3; ++i) {
    path += "/" + folder;
    std::filesystem::create_directory(path);
  }
  Set("RibName", path + "/a.rib");
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_EQ(OnlyRun().command.back(), host::FirstCodePoints(path, 512));
}

TEST_F(SceneCommands, TheControlFrontEndIsGivenTheFirstFrameOfALongName) {
  SetSequence(1, 2);
  plugIn_.User().UseOrvControl = true;
  const std::size_t left = 256 - 1 - host::CodePointCount(folder_.Path().string());
  const std::string base(left, 'x');
  Set("RibName", folder_.File(base + "yyy.rib"));
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_TRUE(Exists(base + "_0000.rib"));
  EXPECT_EQ(OnlyRun().command.back(), folder_.File(base + "_0000.rib"));
}

TEST_F(SceneCommands, ASequenceWhoseFolderIsTooLongIsAFailure) {
  SetSequence(1, 2);
  const std::string folder = folder_.File(std::string(250, 'x'));
  std::filesystem::create_directory(folder);
  const std::string name = folder + "/a.rib";
  Set("RibName", name);
  const std::string message = "Unable to name the files of a job after " + name +
                              ": its first 256 characters count, and its folder is longer.\n";
  EXPECT_EQ(Export(), CommandResult::failure);
  EXPECT_EQ(Render(), CommandResult::failure);
  plugIn_.User().UseOrvControl = true;
  EXPECT_EQ(Render(), CommandResult::failure);
  EXPECT_EQ(messages_, message + message + message);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
  std::filesystem::remove(folder);
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path())) << "a file in another folder";
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SceneCommands, ASequenceIsRenderedFromTheFileOfAllFrames) {
  SetSequence(1, 30);
  plugIn_.User().Threads = 2;
  Set("LowPriority", "0");
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_THAT(messages_, StartsWith("Writing " + folder_.File("a_world.rib") + "\n"));
  EXPECT_THAT(messages_,
              EndsWith("Rendering 30 frames at 640x480 with 2 threads at normal priority\n"));
  EXPECT_THAT(OnlyRun().command,
              ElementsAre("orv.exe", "-p", "2", "-pri", "0", folder_.File("a_all.rib")));
  EXPECT_TRUE(Exists("a_0029.rib"));
  EXPECT_FALSE(Exists("a_0030.rib"));
  EXPECT_FALSE(Exists("a.rib"));
  EXPECT_THAT(FileContent(folder_.File("a_world.rib")), HasSubstr("MotionBegin [0 1]"));
}

TEST_F(SceneCommands, TheControlFrontEndIsGivenTheFirstFrame) {
  SetSequence(1, 30);
  plugIn_.User().UseOrvControl = true;
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_THAT(OnlyRun().command,
              ElementsAre("orvq", "-p", "1", "-frames", "0", "29", folder_.File("a_0000.rib")));
  EXPECT_TRUE(Exists("a_0029.rib"));
  EXPECT_FALSE(Exists("a_all.rib"));
}

TEST_F(SceneCommands, TheQueueIsGivenTheFileOfAllFrames) {
  SetSequence(1, 2);
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_THAT(OnlyRun().command, ElementsAre("gyre.exe", "-local", "0", folder_.File("a_all.rib")));
}

TEST_F(SceneCommands, ExportOfASequenceWritesItsFiles) {
  SetSequence(1, 2);
  plugIn_.User().UseOrvControl = true;
  EXPECT_EQ(Export(), CommandResult::success);
  EXPECT_THAT(messages_, EndsWith("Wrote " + folder_.File("a_world.rib") + "\n"));
  EXPECT_TRUE(Exists("a_0000.rib"));
  EXPECT_TRUE(Exists("a_0001.rib"));
  EXPECT_TRUE(Exists("a_all.rib"));
}

TEST_F(SceneCommands, ASequenceWithoutItsPathIsAFailure) {
  SetSequence(2, 2);
  EXPECT_EQ(Export(), CommandResult::failure);
  EXPECT_EQ(Render(), CommandResult::failure);
  EXPECT_EQ(messages_, "Unable to find named camera path.\nUnable to find named camera path.\n");
  EXPECT_FALSE(Exists("a_world.rib"));
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SceneCommands, AFileOfAllFramesThatCannotBeWrittenIsAFailure) {
  SetSequence(1, 2);
  std::filesystem::create_directory(folder_.File("a_all.rib"));
  EXPECT_EQ(Render(), CommandResult::failure);
  EXPECT_EQ(messages_, "Unable to write rib file for all frames.\n");
  EXPECT_FALSE(Exists("a_world.rib"));
  plugIn_.User().UseOrvControl = true;
  EXPECT_EQ(Render(), CommandResult::success) << "the control front end needs none";
  EXPECT_THAT(bench_.WaitForRuns(1).size(), 1U);
}

TEST_F(SceneCommands, FramesOfAnExportThatFailsStay) {
  SetSequence(1, 2);
  std::filesystem::create_directory(folder_.File("a_world.rib"));
  EXPECT_EQ(Render(), CommandResult::nothing);
  EXPECT_TRUE(Exists("a_0001.rib"));
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(SceneCommands, PathsHaveTheirCameraInTheFramesAlone) {
  SetCurves({{"Path", Line({0, -10, 0}, {0, -6, 0})}});
  SetSequence(2, 2);
  Set("CameraPath", "path");
  EXPECT_EQ(Export(), CommandResult::success);
  EXPECT_THAT(FileContent(folder_.File("a_0001.rib")), HasSubstr("Projection"));
  EXPECT_THAT(FileContent(folder_.File("a_world.rib")), Not(HasSubstr("Projection")));
}

TEST_F(SceneCommands, TheVersionIsInTheNamesAndIsCountedUp) {
  plugIn_.User().UseVersion = true;
  plugIn_.User().Version = 7;
  Set("ImageName", "x.tif");
  Set("RenderToFile", "1");
  EXPECT_EQ(Export(), CommandResult::success);
  EXPECT_EQ(plugIn_.User().Version, 8);
  EXPECT_THAT(messages_, EndsWith("Wrote " + folder_.File("a_v7.rib") + "\n"));
  EXPECT_THAT(FileContent(folder_.File("a_v7.rib")), HasSubstr("x_v7.tif"));
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_EQ(plugIn_.User().Version, 9);
  EXPECT_EQ(OnlyRun().command.back(), folder_.File("a_v8.rib"));
  EXPECT_EQ(Setting("RibName"), folder_.File("a.rib")) << "nothing is stored";
}

TEST_F(SceneCommands, TheVersionIsCountedAlsoWhenTheExportFails) {
  plugIn_.User().UseVersion = true;
  plugIn_.User().Version = 7;
  Set("RibName", folder_.File("none/a.rib"));
  EXPECT_EQ(Render(), CommandResult::nothing);
  EXPECT_EQ(plugIn_.User().Version, 8);
}

TEST_F(SceneCommands, WithoutVersionsNothingIsCounted) {
  plugIn_.User().Version = 7;
  EXPECT_EQ(Export(), CommandResult::success);
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_EQ(plugIn_.User().Version, 7);
  EXPECT_EQ(Run<CCommandOrvVersionIncrement>(Form::scripted, {}), CommandResult::success);
  EXPECT_EQ(plugIn_.User().Version, 8);
}

TEST_F(SceneCommands, FramesThatAreExportedOneByOneShareAVersion) {
  plugIn_.User().UseVersion = true;
  plugIn_.User().Version = 7;
  for (const char* frame : {"Frame=0", "Frame=12"}) {
    EXPECT_EQ(Run<CCommandSceneOut>(Form::scripted, {frame, "Enter"}), CommandResult::success);
  }
  EXPECT_TRUE(Exists("a_v7_0000.rib"));
  EXPECT_TRUE(Exists("a_v7_0012.rib"));
  EXPECT_EQ(plugIn_.User().Version, 7);
  EXPECT_EQ(Run<CCommandOrvRender>(Form::scripted, {"Frame=3", "Enter"}), CommandResult::success);
  EXPECT_TRUE(Exists("a_v7_0003.rib"));
  EXPECT_EQ(plugIn_.User().Version, 8) << "a render counts in any case";
  EXPECT_EQ(OnlyRun().command.back(), folder_.File("a_v7.rib"));
}

TEST_F(SceneCommands, OptionsHoldForTheJobAlone) {
  EXPECT_EQ(
      Run<CCommandOrvRender>(Form::scripted, {"ImageWidth=320", "ImageHeight=200", "LowPriority=No",
                                              "RibName=" + folder_.File("b.rib"), "Enter"}),
      CommandResult::success);
  EXPECT_THAT(messages_, EndsWith("Rendering  320x200 with 1 thread at normal priority\n"));
  EXPECT_EQ(OnlyRun().command.back(), folder_.File("b.rib"));
  EXPECT_EQ(Setting("ImageWidth"), "640");
  EXPECT_EQ(Setting("RibName"), folder_.File("a.rib"));
}

TEST_F(SceneCommands, ASequenceHasTheVersionInAllItsNames) {
  plugIn_.User().UseVersion = true;
  plugIn_.User().Version = 12;
  SetSequence(1, 2);
  EXPECT_EQ(Render(), CommandResult::success);
  for (const char* name : {"a_v12_0000.rib", "a_v12_0001.rib", "a_v12_world.rib"}) {
    EXPECT_TRUE(Exists(name)) << name;
  }
  EXPECT_EQ(OnlyRun().command.back(), folder_.File("a_v12_all.rib"));
}

}  // namespace
}  // namespace orv
