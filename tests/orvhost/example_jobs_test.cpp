#include "program_fixture.h"
#include "tools/tool_bench.h"

// The scripts that the README shows, run as it shows them.

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ExampleJobs : public ProgramTest {
 protected:
  ExampleJobs() {
    std::filesystem::create_directory_symlink(ORV_TEST_FOLDER "/../../examples",
                                              folder_.File("examples"));
  }

  // Runs a script of the examples, which the README holds word for word.
  ProcessResult RunJob(const std::string& name,
                       const std::string& model = "examples/still_life.3dm") const {
    const std::string script = "examples/jobs/" + name + ".txt";
    const std::string readme = FileContent(ORV_TEST_FOLDER "/../../README.md");
    EXPECT_THAT(readme, HasSubstr(FileContent(folder_.File(script))));
    EXPECT_THAT(readme, HasSubstr(model + " --script " + script));
    ProcessResult result = Run({model, "--script", script});
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    return result;
  }
  std::string Content(const std::string& name) const { return FileContent(folder_.File(name)); }
  // What the only process was started as.
  std::vector<std::string> Started() const {
    const std::vector<ToolRun> runs = bench_.WaitForRuns(1);
    EXPECT_EQ(runs.size(), 1u);
    return runs.empty() ? std::vector<std::string>() : runs[0].command;
  }

  const ToolBench bench_;
};

TEST_F(ExampleJobs, Still) {
  const ProcessResult result = RunJob("still");
  EXPECT_THAT(result.out, HasSubstr("Rendering  1200x800 with 1 thread at low priority\n"));
  EXPECT_THAT(Started(), ElementsAre("orv.exe", "-p", "1", "-pri", "-1", "still.rib"));
  EXPECT_THAT(Content("still.rib"), HasSubstr("Display \"+still.png\" \"file\""));
}

TEST_F(ExampleJobs, Turntable) {
  const ProcessResult result = RunJob("turntable");
  EXPECT_THAT(result.out, HasSubstr("Rendering 48 frames at 640x480 "));
  EXPECT_THAT(Started(), ElementsAre("orv.exe", "-p", "1", "-pri", "-1", "turn_all.rib"));
  EXPECT_THAT(Content("turn_0012.rib"), HasSubstr("Shutter 0.25 0.25\n"));
  EXPECT_THAT(Content("turn_world.rib"), HasSubstr("MotionBegin [0 1]\n"));
}

TEST_F(ExampleJobs, FlyThrough) {
  RunJob("fly_through");
  EXPECT_THAT(Started(), ElementsAre("orv.exe", "-p", "1", "-pri", "-1", "flight_all.rib"));
  EXPECT_THAT(Content("flight_0000.rib"), HasSubstr("Projection \"perspective\" \"fov\" ["));
  EXPECT_THAT(Content("flight_0047.rib"), HasSubstr("ReadArchive \"flight_world.rib\"\n"));
}

TEST_F(ExampleJobs, CubeMap) {
  const ProcessResult result = RunJob("cube_map");
  EXPECT_THAT(result.out, HasSubstr("Rendering 6 maps at 256x256 "));
  EXPECT_THAT(Started(), ElementsAre("orv.exe", "-p", "1", "-pri", "-1", "room.rib"));
  EXPECT_THAT(Content("room.rib"), HasSubstr("MakeCubeFaceEnvironment \"room_px.tif\" "));
}

TEST_F(ExampleJobs, BakeAndWhatComesAfter) {
  const ProcessResult result = RunJob("bake");
  EXPECT_THAT(result.out, HasSubstr("Baking "));
  EXPECT_THAT(Started(),
              ElementsAre("bakeorv.exe", "-p", "1", "-pri", "-1", "still_life_bake.rib"));
  RunJob("load_maps", "still_life_baked.3dm");
  EXPECT_THAT(Content("still_life.wrl"), HasSubstr("ImageTexture"));
  // The maps are kept with the document.
  const ProcessResult again = Run({"still_life_baked.3dm", "-c",
                                   "OrvOptions ConvertTexture=No Enter SelName Vase "
                                   "OrvWriteArchive Archive=vase.rib Enter"});
  EXPECT_EQ(again.status, 0) << again.err;
  EXPECT_THAT(Content("vase.rib"), HasSubstr("b7e0d5a4-4f00-4c11-9f3a-000000000003"));
}

}  // namespace
