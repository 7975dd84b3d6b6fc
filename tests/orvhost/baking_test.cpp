#include "program_fixture.h"
#include "support/model_corpus.h"
#include "support/rib_checker.h"
#include "tools/tool_bench.h"

// Baking as a user meets it: the real program, real documents, a bake front end that tells how it
// was started.

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* kExample = ORV_TEST_FOLDER "/../../examples/still_life.3dm";

class BakingTest : public ProgramTest {
 protected:
  // Scenes and maps go into the test's folder.
  BakingTest() { options_.environment.emplace_back("TEMP", folder_.Path().string()); }

  std::string BakeScene() const { return folder_.Path().string() + "\\RhinoOrv_bake.rib"; }
  // The scene, which must be sound.
  RibReport Scene() const {
    RibReport report = CheckRib(FileContent(folder_.File("RhinoOrv_bake.rib")));
    EXPECT_THAT(report.Complaints, IsEmpty());
    return report;
  }
  static std::size_t CountOf(std::string_view text, std::string_view word) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos;
         at = text.find(word, at + 1)) {
      ++count;
    }
    return count;
  }
  // A document of the corpus; empty without one.
  static std::string Model(const std::string& name) {
    const auto corpus = ModelCorpus();
    return corpus ? (*corpus / name).string() : std::string();
  }

  ToolBench bench_;
};

TEST_F(BakingTest, BakesMapsOfTheExample) {
  const ProcessResult result = Run({kExample, "-c", "OrvBake Enter"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, "Writing " + BakeScene() + "\nBaking 14 maps with 1 thread(s)\n");
  const RibReport scene = Scene();
  EXPECT_THAT(scene.Named("Display"), SizeIs(14));
  EXPECT_THAT(scene.Named("Display")[0]->Arguments[0].Texts[0],
              testing::StartsWith(folder_.File("baked_")));
  const std::vector<ToolRun> runs = bench_.WaitForRuns(1);
  ASSERT_THAT(runs, SizeIs(1));
  EXPECT_THAT(runs[0].command, ElementsAre("bakeorv.exe", "-p", "1", "-pri", "-1",
                                           folder_.File("RhinoOrv_bake.rib")));
  EXPECT_EQ(runs[0].folder, folder_.Path().string());
}

TEST_F(BakingTest, BakesMeshesOfTheSelection) {
  WriteMeshes("room.3dm", 3);
  WriteFileContent(folder_.File("bake.txt"),
                   "SelName Mesh2\n"
                   "-OrvBake\n"
                   "  BakeMesh=Yes  MeshMode=Occlusion  # ambient shadows\n"
                   "  MeshTexCoords=No  EdgeLength 2.5  Selected=Yes\n"
                   "  Enter\n");
  const ProcessResult result = Run({"room.3dm", "--script", "bake.txt"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, EndsWith("Writing " + BakeScene() + "\nBaking meshes\n"));
  const RibReport scene = Scene();
  EXPECT_EQ(scene.Named("Exposure")[0]->Arguments[1].Numbers[0], 1);
  EXPECT_EQ(scene.Named("Surface")[0]->Arguments[0].Texts[0], "occlusionpass");
  EXPECT_THAT(scene.Named("PointsPolygons"), SizeIs(3));
  EXPECT_THAT(bench_.WaitForRuns(1), SizeIs(1));
}

TEST_F(BakingTest, BakesMapsOfARealDocument) {
  const std::string model = Model("real/v5_example_file.3dm");
  if (model.empty()) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  const ProcessResult result = Run({model, "-c", "OrvBake TexelSize=0.01 Gamma=2.2 Enter"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, EndsWith("Baking 11 maps with 1 thread(s)\n"));
  const RibReport scene = Scene();
  EXPECT_THAT(scene.Named("Display"), SizeIs(11));
  EXPECT_EQ(scene.Named("Exposure")[0]->Arguments[1].Numbers[0], 2.2);
  EXPECT_THAT(bench_.WaitForRuns(1), SizeIs(1));
}

TEST_F(BakingTest, WithoutAnythingToBakeDoesNothing) {
  WriteMeshes("room.3dm", 1);
  const ProcessResult result = Run({"room.3dm", "-c", "OrvBake Enter"});
  EXPECT_EQ(result.status, 2) << result.err;
  EXPECT_EQ(result.out, "Writing " + BakeScene() + "\n");
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(BakingTest, MissingFrontEndFails) {
  options_.environment.emplace_back("PATH", folder_.Path().string());
  const ProcessResult result = Run({kExample, "-c", "OrvBake Enter"});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.out, EndsWith("Error - failed to start BakeOrv render process.\n"));
}

TEST_F(BakingTest, WrongOptionsStopTheScript) {
  const std::pair<std::string, std::string> rows[] = {
      {"EdgeLength=-1", "EdgeLength takes a number from 0 to 10000, not '-1'."},
      {"Gamma=11", "Gamma takes a number from 0.1 to 10, not '11'."},
      {"TexelSize=0", "TexelSize takes a number from 1e-05 to 10000, not '0'."},
      {"MeshMode=Shadow",
       "MeshMode takes Color, Occlusion, Indirect, Diffuse, DiffuseLight or UnlitColor, not "
       "'Shadow'."},
  };
  for (const auto& [option, message] : rows) {
    const ProcessResult result = Run({kExample, "-c", "OrvBake " + option + " Enter"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, AllOf(HasSubstr("-c, line 1: "), HasSubstr(message)));
    EXPECT_EQ(result.out, "");
  }
  EXPECT_THAT(bench_.Runs(), IsEmpty());
}

TEST_F(BakingTest, HelpTellsTheOptions) {
  const ProcessResult result = Run({"-c", "Help OrvBake Help OrvLoadBakedMaps Help OrvExportVrml"});
  EXPECT_EQ(result.status, 0);
  for (const char* word : {"BakeMesh", "EdgeLength", "MeshMode", "MeshNormals", "MeshTexCoords",
                           "TexelSize", "Gamma", "Selected", ".wrl"}) {
    EXPECT_THAT(result.out, HasSubstr(word));
  }
}

TEST_F(BakingTest, BakedMapsReachTheMaterialsAndTheScene) {
  WriteMeshes("room.3dm", 1);
  // All on one layer without a material, which gets the map the second time.
  const std::string once = "OrvLoadBakedMaps Enter ";
  ProcessResult result = Run({"room.3dm", "-c", once, "--export", "scene.orib"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(FileContent(folder_.File("scene.orib")), Not(HasSubstr("baked_")));
  result = Run({"room.3dm", "-c", once + once, "--export", "scene.orib"});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string map = "baked_01020304-0000-0000-0000-000000000001.png";
  EXPECT_THAT(result.out, HasSubstr(map));
  // It isn't there yet. Once it is, it is converted as any image.
  WriteFileContent(folder_.File(map), "image");
  result = Run({"room.3dm", "-c", once + once, "--export", "scene.orib"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(FileContent(folder_.File("scene.orib")),
              HasSubstr("baked_01020304-0000-0000-0000-000000000001_periodic"));
  result = Run({"room.3dm", "-c", once + once + "Undo Undo", "--export", "scene.orib"});
  EXPECT_THAT(FileContent(folder_.File("scene.orib")), Not(HasSubstr("baked_")));
}

TEST_F(BakingTest, WritesTheExampleAsVrml) {
  const ProcessResult result = Run({kExample, "-c", "OrvExportVrml \"room ä.wrl\""});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "");
  const std::string vrml = FileContent(folder_.File("room ä.wrl"));
  EXPECT_THAT(vrml, testing::StartsWith("#VRML V2.0 utf8\nBackground {\nskyColor [0.627451 "));
  EXPECT_EQ(CountOf(vrml, "Shape {"), 14U);
  EXPECT_EQ(CountOf(vrml, "geometry IndexedFaceSet"), 14U);
  EXPECT_THAT(vrml, HasSubstr("      url \"baked_"));
}

TEST_F(BakingTest, WritesARealDocumentAsVrml) {
  const std::string model = Model("real/v5_example_file.3dm");
  if (model.empty()) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  const ProcessResult result = Run({model, "-c", "OrvExportVrml model.wrl"});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string vrml = FileContent(folder_.File("model.wrl"));
  EXPECT_GT(CountOf(vrml, "Shape {"), 0U);
  EXPECT_EQ(CountOf(vrml, "Shape {"), CountOf(vrml, "} # shape\n"));
}

TEST_F(BakingTest, VrmlThatCannotBeWrittenIsTold) {
  ProcessResult result = Run({kExample, "-c", "OrvExportVrml none/a.wrl"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "Unable to open file for export.\n");
  result = Run({kExample, "-c", "OrvExportVrml /dev/full"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "Unable to write /dev/full: No space left on device.\n");
}

}  // namespace
