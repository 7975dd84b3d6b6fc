#include <signal.h>

#include "host/geometry/on_line_curve.h"
#include "program_fixture.h"
#include "support/model_corpus.h"
#include "tools/tool_bench.h"

// Render jobs as a user starts them: the real program with a script, the files, the programs that
// it starts, what it tells.

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kExample = ORV_TEST_FOLDER "/../../examples/still_life.3dm";

class RenderJobs : public ProgramTest {
 protected:
  // Values of the user's profile, as "Key=value" lines.
  void WriteProfile(const std::string& values) const {
    std::filesystem::create_directory(folder_.File("profile"));
    WriteFileContent(folder_.File("profile/profile.ini"),
                     "[Plug-Ins\\\\7D1F42A6-35C8-4B9E-9C07-5E2A1D60B3F4\\\\Settings]\n" + values);
  }
  std::string Profile() const { return FileContent(folder_.File("profile/profile.ini")); }

  // Runs a script on a document in which these settings, "Key=value" lines, were loaded before.
  ProcessResult RunScript(const std::string& model, const std::string& settings,
                          const std::string& script) const {
    WriteFileContent(folder_.File("job.ors"), settings);
    return Run({model, "-c", "OrvLoadSettings job.ors", "-c", script});
  }

  // A document with a mesh and two straight paths.
  void WritePaths(const std::string& name) const {
    ONX_Model model;
    model.m_3dm_file_version = 50;
    model.m_layer_table.emplace_back().m_name = "Default";
    const auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    mesh->m_F = {{{0, 1, 2, 2}}};
    model.m_object_table.emplace_back().m_geometry = mesh;
    AddPath(model, "Flight", {0, -10, 0}, {0, -6, 0});
    AddPath(model, "Aim", {0, 0, 0}, {4, 0, 0});
    WriteFileContent(folder_.File(name), WriteModel(model));
  }

  ToolRun OnlyRun() const {
    const std::vector<ToolRun> runs = bench_.WaitForRuns(1);
    EXPECT_EQ(runs.size(), 1U);
    return runs.empty() ? ToolRun() : runs[0];
  }
  std::string Content(const std::string& name) const { return FileContent(folder_.File(name)); }
  bool Exists(const std::string& name) const { return std::filesystem::exists(folder_.File(name)); }

  const ToolBench bench_;

 private:
  static void AddPath(ONX_Model& model, const std::string& name, ON_3dPoint from, ON_3dPoint to) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_attributes.m_name = name;
    object.m_geometry = std::make_shared<ON_LineCurve>(from, to);
  }
};

constexpr const char* kSize = "ImageWidth=640\nImageHeight=480\n";

TEST_F(RenderJobs, AStillIsWrittenAndRendered) {
  const std::string name = folder_.File("still life.rib");
  const ProcessResult result = RunScript(
      kExample, kSize, "OrvRender RibName=\"" + name + "\" LowPriority=No Threads=2 Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out, HasSubstr("Writing " + name + "\n"));
  EXPECT_THAT(result.out, EndsWith("Rendering  640x480 with 2 threads at normal priority\n"));
  EXPECT_THAT(Content("still life.rib"), HasSubstr("WorldBegin"));
  const ToolRun run = OnlyRun();
  EXPECT_THAT(run.command, ElementsAre("orv.exe", "-p", "2", "-pri", "0", name));
  EXPECT_EQ(run.folder, folder_.Path().string());
  EXPECT_EQ(run.session, run.process);
  EXPECT_EQ(run.group, run.process);
  EXPECT_EQ(run.streams.at(0), "/dev/null");
  EXPECT_THAT(run.descriptors, ElementsAre(0, 1, 2));
}

TEST_F(RenderJobs, AnExportStartsNothing) {
  const ProcessResult result = RunScript(kExample, kSize, "OrvExport RibName=a.rib Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out, EndsWith("Wrote a.rib\n"));
  EXPECT_THAT(Content("a.rib"), HasSubstr("Format 640 480 1"));
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(RenderJobs, ARendererOutlivesTheProgram) {
  const ToolBench bench("hang");
  const ProcessResult result = RunScript(kExample, kSize, "OrvRender RibName=a.rib Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  const auto runs = bench.WaitForRuns(1);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(kill(runs[0].process, 0), 0) << "the renderer has ended with the program";
  EXPECT_EQ(kill(runs[0].process, SIGKILL), 0);
}

TEST_F(RenderJobs, ARendererThatShowsTheImageHasNoWindow) {
  const std::string script = "OrvRender RibName=a.rib Enter";
  EXPECT_EQ(RunScript(kExample, "OrvShow=1\n", script).status, 0);
  EXPECT_THAT(OnlyRun().streams, ElementsAre("/dev/null", "/dev/null", "/dev/null"));
  EXPECT_EQ(RunScript(kExample, "OrvShow=0\n", script).status, 0);
  const auto runs = bench_.WaitForRuns(2);
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_THAT(runs[1].streams, ElementsAre("/dev/null", Not("/dev/null"), Not("/dev/null")));
}

TEST_F(RenderJobs, ARendererFindsASceneOfAnyName) {
  std::filesystem::create_directories(folder_.File("out"));
  // The name, what the renderer is told, and the folder in which it runs.
  const struct {
    const char* name;
    std::string told;
    std::string folder;
  } rows[] = {
      {"out/still.rib", folder_.File("out/still.rib"), folder_.File("out")},
      {"out\\still.rib", folder_.File("out/still.rib"), folder_.File("out")},
      {"-g.rib", "./-g.rib", folder_.Path().string()},
      {"c:d.rib", "c:d.rib", folder_.Path().string()},
  };
  for (const auto& row : rows) {
    const ToolBench bench;
    const ProcessResult result =
        RunScript(kExample, kSize, "OrvRender RibName=" + std::string(row.name) + " Enter");
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    const auto runs = bench.WaitForRuns(1);
    ASSERT_EQ(runs.size(), 1U) << row.name;
    EXPECT_EQ(runs[0].command.back(), row.told);
    EXPECT_EQ(runs[0].folder, row.folder);
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(runs[0].folder) / row.told));
  }
}

TEST_F(RenderJobs, ATurntableIsAFileForEachFrame) {
  const ProcessResult result =
      RunScript(kExample, std::string(kSize) + "AnimFrames=4\nRibName=turn.rib\n",
                "OrvRender Animate=Turntable Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out,
              EndsWith("Rendering 4 frames at 640x480 with 1 thread at low priority\n"));
  EXPECT_EQ(Content("turn_0001.rib"),
            "FrameBegin 1\n  Shutter 0.25 0.25\n  ReadArchive \"turn_world.rib\"\nFrameEnd\n");
  EXPECT_TRUE(Exists("turn_0003.rib"));
  EXPECT_FALSE(Exists("turn_0004.rib"));
  EXPECT_THAT(Content("turn_world.rib"), HasSubstr("  Rotate 360  0 0 1\n"));
  EXPECT_EQ(Content("turn_all.rib"),
            "ReadArchive \"turn_0000.rib\"\nReadArchive \"turn_0001.rib\"\n"
            "ReadArchive \"turn_0002.rib\"\nReadArchive \"turn_0003.rib\"\n");
  EXPECT_THAT(OnlyRun().command, ElementsAre("orv.exe", "-p", "1", "-pri", "-1", "turn_all.rib"));
}

TEST_F(RenderJobs, AFlyThroughFollowsItsPath) {
  WritePaths("paths.3dm");
  const ProcessResult result =
      RunScript("paths.3dm", "AnimFrames=2\nCameraPath=FLIGHT\nDofEnable=1\n",
                "OrvExport RibName=fly.rib Animate=FlyThrough Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out, EndsWith("Wrote fly_world.rib\n"));
  EXPECT_EQ(Content("fly_0001.rib"),
            "FrameBegin 1\n  Shutter 0.5 0.5\n"
            "  Projection \"perspective\" \"fov\" [26.9915]\n"
            "  Transform [ 1 0 0 0.0 0 0 1 0.0 0 1 0 0.0 -0 -0 8 1.0 ]\n"
            "DepthOfField 8 50 100\n"
            "  ReadArchive \"fly_world.rib\"\nFrameEnd\n");
  EXPECT_THAT(Content("fly_world.rib"), Not(HasSubstr("Projection")));
}

TEST_F(RenderJobs, TwoPathsLookFromOneToTheOther) {
  WritePaths("paths.3dm");
  const ProcessResult result =
      RunScript("paths.3dm",
                "AnimFrames=2\nAnimMode=3\nCameraPath=flight\nTargetPath=aim\nDofEnable=1\n"
                "AnimCameraLens=12\n",
                "OrvExport RibName=two.rib Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_EQ(Content("two_0001.rib"),
            "FrameBegin 1\n  Shutter 0.5 0.5\n"
            "  Projection \"perspective\" \"fov\" [90.0001]\n"
            "  Transform [ 0.970143 0 0.242536 0.0 -0.242536 0 0.970143 0.0 0 1 0 0.0 "
            "-1.94029 -0 7.76114 1.0 ]\n"
            "DepthOfField 8 50 8.24621\n"
            "  ReadArchive \"two_world.rib\"\nFrameEnd\n");
}

TEST_F(RenderJobs, PathsOfARealDocument) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  const ProcessResult result =
      RunScript((*corpus / "made" / "geometry_zoo.3dm").string(),
                "AnimFrames=10\nAnimMode=3\nCameraPath=Polycurve\nTargetPath=rational quadratic\n",
                "OrvRender RibName=zoo.rib Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(Content("zoo_0009.rib"), HasSubstr("  Shutter 0.9 0.9\n  Projection \"persp"));
  EXPECT_THAT(Content("zoo_0009.rib"), Not(HasSubstr("nan")));
  EXPECT_NE(Content("zoo_0009.rib"), Content("zoo_0008.rib"));
  EXPECT_EQ(OnlyRun().command.back(), "zoo_all.rib");
}

TEST_F(RenderJobs, AMissingPathIsAFailure) {
  const ProcessResult result =
      RunScript(kExample, "AnimMode=2\nCameraPath=nowhere\n", "OrvRender RibName=a.rib Enter");
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.out, EndsWith("Unable to find named camera path.\n"));
  EXPECT_FALSE(Exists("a_world.rib"));
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(RenderJobs, ACubeMapHasAControlFileAndAWorld) {
  const ProcessResult result =
      RunScript(kExample, "ImageHeight=512\nRibName=cube.rib\nImageName=around.tif\n",
                "OrvRenderCubeMap 0,0,2.5");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out, EndsWith("Rendering 6 maps at 256x256 with 1 thread at low priority\n"));
  EXPECT_THAT(Content("cube.rib"),
              StartsWith("Display \"around_px.tif\" \"file\" \"rgb\"\n"
                         "Projection \"perspective\" \"fov\" 91\n"
                         "ConcatTransform [0 0 1 0 0 1 0 0 -1 0 0 0 0 0 0 1]\n"
                         "Translate -0 -0 -2.5\nReadArchive \"cube_world.rib\"\n\n"));
  EXPECT_THAT(Content("cube.rib"), EndsWith("\"around_nz.tif\" \"around.tif\" 91 \"box\" 1 1\n"));
  EXPECT_THAT(Content("cube_world.rib"), HasSubstr("Format 256 256 1"));
  EXPECT_THAT(OnlyRun().command, ElementsAre("orv.exe", "-p", "1", "-pri", "-1", "cube.rib"));
}

TEST_F(RenderJobs, FramesAreSubmittedToTheRenderer) {
  const ProcessResult result =
      RunScript(kExample, "RibName=a.rib\n", "OrvSubmitJob FirstFrame=5 LastFrame=3 Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_EQ(Content("a_all.rib"),
            "ReadArchive \"a_0003.rib\"\nReadArchive \"a_0004.rib\"\nReadArchive "
            "\"a_0005.rib\"\n");
  EXPECT_THAT(OnlyRun().command, ElementsAre("orv.exe", "-p", "1", "-pri", "-1", "a_all.rib"));
}

TEST_F(RenderJobs, FramesAreSubmittedToTheControlFrontEnd) {
  WriteProfile("UseOrvControl=1\nThreads=4\n");
  const ProcessResult result =
      RunScript(kExample, "RibName=a.rib\n", "OrvSubmitJob LastFrame=9 Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(OnlyRun().command, ElementsAre("orvq", "-p", "4", "-frames", "0", "9", "a_0000.rib"));
}

TEST_F(RenderJobs, FramesAreSubmittedToTheQueueOneByOne) {
  WriteProfile("Gyre=1\n");
  const ProcessResult result = RunScript(kExample, "RibName=" + folder_.File("a.rib") + "\n",
                                         "OrvSubmitJob FirstFrame=1 LastFrame=2 Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  const auto runs = bench_.WaitForRuns(2);
  ASSERT_EQ(runs.size(), 2U) << "the rest is run when the program has ended";
  EXPECT_THAT(runs[0].command, ElementsAre("gyre.exe", "-local", "0", folder_.File("a_0001.rib")));
  EXPECT_THAT(runs[1].command, ElementsAre("gyre.exe", "-local", "0", folder_.File("a_0002.rib")));
  EXPECT_EQ(runs[1].folder, folder_.Path().string());
}

TEST_F(RenderJobs, TheProfileChoosesTheProgram) {
  WriteProfile("Gyre=1\n");
  const std::string script = "OrvRender RibName=a.rib Enter";
  EXPECT_EQ(RunScript(kExample, kSize, script).status, 0);
  EXPECT_THAT(OnlyRun().command, ElementsAre("gyre.exe", "-local", "0", "a.rib"));
  WriteProfile("Gyre=1\nUseOrvControl=1\n");
  EXPECT_EQ(RunScript(kExample, kSize, script).status, 0);
  const auto runs = bench_.WaitForRuns(2);
  ASSERT_EQ(runs.size(), 2U);
  EXPECT_THAT(runs[1].command, ElementsAre("orvq", "-p", "1", "a.rib"));
}

TEST_F(RenderJobs, AVersionIsInTheNamesAndCountsOnInTheProfile) {
  WriteProfile("UseVersion=1\nVersion=7\n");
  ProcessResult result = RunScript(kExample, kSize, "OrvRender RibName=a.rib Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_TRUE(Exists("a_v7.rib"));
  EXPECT_EQ(OnlyRun().command.back(), "a_v7.rib");
  EXPECT_THAT(Profile(), HasSubstr("\nVersion=8\n"));
  result = RunScript(kExample, kSize, "OrvExport RibName=a.rib Frame=12 Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_TRUE(Exists("a_v8_0012.rib"));
  EXPECT_THAT(Profile(), HasSubstr("\nVersion=8\n")) << "frames share a version";
  EXPECT_EQ(RunScript(kExample, "RibName=a.rib\n", "OrvSubmitJob Enter").status, 0);
  EXPECT_THAT(Content("a_v8_all.rib"), HasSubstr("ReadArchive \"a_v8_0012.rib\"\n"));
}

TEST_F(RenderJobs, AMissingRendererIsSilent) {
  options_.environment.emplace_back("PATH", folder_.Path().string());
  const ProcessResult result = RunScript(kExample, kSize, "OrvRender RibName=a.rib Enter");
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.out, EndsWith("Writing a.rib\n"));
  EXPECT_EQ(result.err, "");
  EXPECT_TRUE(Exists("a.rib"));
}

TEST_F(RenderJobs, AFrameThatCannotBeWrittenIsAFailure) {
  std::filesystem::create_directory(folder_.File("a_0001.rib"));
  const ProcessResult result =
      RunScript(kExample, "AnimMode=1\nAnimFrames=3\n", "OrvRender RibName=a.rib Enter");
  EXPECT_EQ(result.status, 3);
  EXPECT_TRUE(Exists("a_0000.rib"));
  EXPECT_FALSE(Exists("a_0002.rib"));
  EXPECT_FALSE(Exists("a_world.rib"));
}

TEST_F(RenderJobs, NamesWithSeparatorsOfBothKindsAndOtherLetters) {
  std::filesystem::create_directory(folder_.File("Büro 2"));
  const std::string name = folder_.Path().string() + "\\Büro 2\\Bild ä.rib";
  const ProcessResult result =
      RunScript(kExample, kSize, "OrvRender RibName=\"" + name + "\" Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_TRUE(Exists("Büro 2/Bild ä.rib"));
  EXPECT_EQ(OnlyRun().command.back(), folder_.File("Büro 2/Bild ä.rib"));
  EXPECT_EQ(OnlyRun().folder, folder_.File("Büro 2"));
}

TEST_F(RenderJobs, ANameWithADriveIsAFolderHere) {
  std::filesystem::create_directories(folder_.File("C:/t"));
  const ProcessResult result = RunScript(kExample, kSize, "OrvRender RibName=C:\\t\\a.rib Enter");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_TRUE(Exists("C:/t/a.rib"));
  EXPECT_EQ(OnlyRun().command.back(), folder_.File("C:/t/a.rib"));
  EXPECT_EQ(OnlyRun().folder, folder_.File("C:/t"));
}

}  // namespace
