#include <gmock/gmock.h>

#include "command_fixture.h"
#include "host/system/text.h"
#include "jobs/cube_map_command.h"
#include "jobs/cube_map_rib.h"
#include "support/scoped_environment.h"
#include "tools/tool_bench.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class CubeMap : public CommandTest {
 protected:
  CubeMap() {
    Set("RibName", folder_.File("a.rib"));
    Set("ImageName", "maps\\m.tif");
    Set("ImageHeight", "300");
    Set("ImageWidth", "1000");
  }

  void Set(std::string_view key, std::string_view value) {
    plugIn_.UserStrings().SetUserString(key, value);
  }
  CommandResult Render() { return Run<CCommandOrvRenderCubeMap>(Form::scripted, {"1,-2,0.5"}); }

  const ToolBench bench_;
};

TEST_F(CubeMap, AFaceIsAPowerOfTwoBelowTheHeight) {
  const std::pair<int, int> rows[] = {{-1, 128},  {0, 128},   {1, 64},     {64, 64},
                                      {100, 64},  {128, 64},  {129, 128},  {256, 128},
                                      {257, 256}, {512, 256}, {1000, 512}, {2147483647, 1 << 30}};
  for (const auto& [height, size] : rows) EXPECT_EQ(CubeFaceSize(height), size) << height;
}

TEST_F(CubeMap, TheControlFileHasSixFacesAndTheMap) {
  RenderSettings settings;
  settings.RibName = folder_.File("c.rib");
  settings.ImageName = "m.tif";
  ASSERT_TRUE(WriteCubeMapRib(settings, {1, -2, 0.5}, "C:\\t\\c_world.rib"));
  const auto face = [](const std::string& name, const std::string& transform) {
    return "Display \"" + name + "\" \"file\" \"rgb\"\n" +
           "Projection \"perspective\" \"fov\" 91\n" + "ConcatTransform [" + transform + "]\n" +
           "Translate -1 2 -0.5\nReadArchive \"C:/t/c_world.rib\"\n\n";
  };
  EXPECT_EQ(FileContent(folder_.File("c.rib")),
            face("m_px.tif", "0 0 1 0 0 1 0 0 -1 0 0 0 0 0 0 1") +
                face("m_nx.tif", "0 0 -1 0 -0 1 0 0 1 0 0 0 0 0 0 1") +
                face("m_py.tif", "1 0 0 0 -0 0 1 0 0 -1 0 0 0 0 0 1") +
                face("m_ny.tif", "1 0 0 0 0 0 -1 0 -0 1 0 0 0 0 0 1") +
                face("m_pz.tif", "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1") +
                face("m_nz.tif", "-1 0 0 0 0 1 0 0 0 0 -1 0 0 0 0 1") +
                "MakeCubeFaceEnvironment \"m_px.tif\" \"m_nx.tif\" \"m_py.tif\" \"m_ny.tif\" "
                "\"m_pz.tif\" \"m_nz.tif\" \"m.tif\" 91 \"box\" 1 1\n");
}

TEST_F(CubeMap, NamesHaveForwardSlashesAndNoQuoteEndsThem) {
  RenderSettings settings;
  settings.RibName = folder_.File("c.rib");
  settings.ImageName = "C:\\maps\\the \"best\".tif";
  ASSERT_TRUE(WriteCubeMapRib(settings, {0, 0, 0}, "w.rib"));
  const std::string rib = FileContent(folder_.File("c.rib"));
  EXPECT_THAT(rib, HasSubstr("Display \"C:/maps/the \\\"best\\\"_px.tif\" \"file\""));
  EXPECT_THAT(rib, HasSubstr("\"C:/maps/the \\\"best\\\".tif\" 91 \"box\" 1 1\n"));
}

TEST_F(CubeMap, WithoutAMapOrAFileThereIsNone) {
  RenderSettings settings;
  settings.RibName = folder_.File("c.rib");
  settings.ImageName.clear();
  EXPECT_FALSE(WriteCubeMapRib(settings, {0, 0, 0}, "w.rib"));
  EXPECT_FALSE(std::filesystem::exists(folder_.File("c.rib")));
  settings.ImageName = "m.tif";
  settings.RibName = folder_.File("none/c.rib");
  EXPECT_FALSE(WriteCubeMapRib(settings, {0, 0, 0}, "w.rib"));
  settings.RibName = "/dev/full";
  EXPECT_FALSE(WriteCubeMapRib(settings, {0, 0, 0}, "w.rib"));
}

TEST_F(CubeMap, OfLongNamesTheFirstCharactersCount) {
  RenderSettings settings;
  settings.RibName = folder_.File("c.rib");
  settings.ImageName = std::string(600, 'm') + ".tif";
  ASSERT_TRUE(WriteCubeMapRib(settings, {0, 0, 0}, "w.rib"));
  EXPECT_THAT(FileContent(folder_.File("c.rib")),
              HasSubstr(" \"" + std::string(512, 'm') + "\" 91 \"box\" 1 1\n"));
}

TEST_F(CubeMap, TheCommandWritesTheWorldAndStartsTheRenderer) {
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Pick center point for cube map: "));
  EXPECT_EQ(messages_, "Writing " + folder_.File("a_world.rib") +
                           "\nRendering 6 maps at 256x256 with 1 thread at low priority\n");
  const std::string world = FileContent(folder_.File("a_world.rib"));
  EXPECT_THAT(world, HasSubstr("Format 256 256 1"));
  EXPECT_THAT(world, HasSubstr("WorldBegin"));
  EXPECT_THAT(world, Not(HasSubstr("Projection")));
  EXPECT_THAT(world, Not(HasSubstr("Display \"")));
  const std::string control = FileContent(folder_.File("a.rib"));
  EXPECT_THAT(control, HasSubstr("ReadArchive \"" + folder_.File("a_world.rib") + "\"\n\n"));
  EXPECT_THAT(control, HasSubstr("Translate -1 2 -0.5\n"));
  EXPECT_THAT(control, HasSubstr("Display \"maps/m_px.tif\""));
  const auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].command,
              ElementsAre("orv.exe", "-p", "1", "-pri", "-1", folder_.File("a.rib")));
  EXPECT_EQ(runs[0].folder, folder_.Path().string());
}

TEST_F(CubeMap, TheUsersValuesChooseTheProgram) {
  plugIn_.User().Threads = 4;
  Set("LowPriority", "0");
  plugIn_.User().Gyre = true;
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_THAT(messages_, EndsWith("6 maps at 256x256 with 4 threads at normal priority\n"));
  auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_THAT(runs[0].command, ElementsAre("gyre.exe", "-local", "0", folder_.File("a.rib")));
  plugIn_.User().UseOrvControl = true;
  EXPECT_EQ(Render(), CommandResult::success);
  runs = bench_.WaitForRuns(2);
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_THAT(runs[1].command, ElementsAre("orvq", "-p", "4", folder_.File("a.rib")));
}

TEST_F(CubeMap, TheProgramsWindowIsHiddenForTheControlFrontEndAlone) {
  const std::string own = std::filesystem::read_symlink("/proc/self/fd/1").string();
  const std::string shown = own.starts_with("pipe:") ? "/dev/null" : own;
  const struct {
    const char* show;
    bool control;
    bool gyre;
    std::string output;
  } rows[] = {{"0", false, false, shown},
              {"1", false, false, shown},
              {"1", false, true, shown},
              {"0", true, false, "/dev/null"}};
  for (const auto& row : rows) {
    const ToolBench bench;
    Set("OrvShow", row.show);
    plugIn_.User().UseOrvControl = row.control;
    plugIn_.User().Gyre = row.gyre;
    EXPECT_EQ(Render(), CommandResult::success);
    const auto runs = bench.WaitForRuns(1);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].streams.at(1), row.output) << runs[0].command[0];
  }
}

TEST_F(CubeMap, OfALongNameTheControlFileIsRenderedThatWasWritten) {
  const std::size_t left = 256 - 1 - host::CodePointCount(folder_.Path().string());
  const std::string base(left, 'x');
  Set("RibName", folder_.File(base + "yyy.rib"));
  EXPECT_EQ(Render(), CommandResult::success);
  EXPECT_THAT(FileContent(folder_.File(base)), HasSubstr("MakeCubeFaceEnvironment"));
  const auto runs = bench_.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(runs[0].command.back(), folder_.File(base));
}

TEST_F(CubeMap, AFolderThatIsTooLongIsAFailure) {
  const std::string folder = folder_.File(std::string(250, 'x'));
  std::filesystem::create_directory(folder);
  Set("RibName", folder + "/a.rib");
  EXPECT_EQ(Render(), CommandResult::failure);
  EXPECT_EQ(messages_, "Unable to name the files of a job after " + folder +
                           "/a.rib: its first 256 characters count, and its folder is longer.\n");
  EXPECT_TRUE(std::filesystem::is_empty(folder));
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(CubeMap, AnythingButAPointEndsTheCommand) {
  for (const char* answer : {"Enter", "!", "nothing like a point"}) {
    EXPECT_EQ(Run<CCommandOrvRenderCubeMap>(Form::scripted, {answer}), CommandResult::nothing);
  }
  EXPECT_FALSE(std::filesystem::exists(folder_.File("a_world.rib")));
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(CubeMap, AnExportThatFailsIsToldByTheExport) {
  Set("RibName", folder_.File("none/a.rib"));
  EXPECT_EQ(Render(), CommandResult::nothing);
  EXPECT_EQ(messages_, "Unable to save " + folder_.File("none/a_world.rib") + ".\n");
}

TEST_F(CubeMap, AControlFileThatCannotBeWrittenIsAFailure) {
  std::filesystem::create_directory(folder_.File("a.rib"));
  EXPECT_EQ(Render(), CommandResult::failure);
  EXPECT_EQ(messages_, "Writing " + folder_.File("a_world.rib") + "\n");
  Set("RibName", folder_.File("b.rib"));
  Set("ImageName", "");
  EXPECT_EQ(Render(), CommandResult::failure);
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(CubeMap, AMissingProgramIsSilent) {
  const ScopedEnvironment path("PATH", folder_.Path().string());
  EXPECT_EQ(Render(), CommandResult::nothing);
  EXPECT_EQ(messages_, "Writing " + folder_.File("a_world.rib") + "\n");
}

}  // namespace
}  // namespace orv
