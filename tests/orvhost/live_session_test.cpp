#include "program_fixture.h"
#include "support/model_corpus.h"
#include "tools/renderer_bench.h"

// A live session as a user drives it: the real program with a script, and what the renderer is
// sent.

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

constexpr const char* kExample = ORV_TEST_FOLDER "/../../examples/still_life.3dm";

class LiveSession : public ProgramTest {
 protected:
  ProcessResult RunScript(const std::string& model, const std::string& script) const {
    return Run({model, "-c", "OrvOptions RibName=scene.rib GiMode=Ambient Enter " + script});
  }
  // The number in "serial number 17" of the first object of the model that is called so.
  std::string SerialOf(const std::string& model, const std::string& selection) const {
    const std::string text = Run({model, "-c", selection + " What"}).out;
    const std::string mark = "serial number ";
    const std::size_t begin = text.find(mark);
    EXPECT_NE(begin, std::string::npos) << text;
    return text.substr(begin + mark.size(), text.find('\n', begin) - begin - mark.size());
  }
};

TEST_F(LiveSession, EachChangeIsAFrameInOrderAndNothingElseIs) {
  const RendererBench bench;
  const ProcessResult result = RunScript(kExample,
                                         "OrvIprStart Enter "
                                         "SelType Light SetLight Color=255,0,0 Enter "
                                         "SelNone SelName Vase OrvMaterial Color=0,255,0 Enter "
                                         "SetObjectName Vessel "
                                         "ViewCamera Location=10,-300,50 Enter "
                                         "OrvTrace BgMode=Color BgColor=255,0,0 Enter "
                                         "OrvGI BgColor=0,0,255 Enter "
                                         "Undo Undo Redo "
                                         "OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out, HasSubstr("Started IPR 400x300 with 1 thread\n"));
  EXPECT_THAT(result.out, EndsWith("Stopping IPR session.\n"));
  const std::string vase =
      "IrSelect \"name\" \"Object_" + SerialOf(kExample, "SelName Vase") + "\"  IrColor ";
  const std::string light = SerialOf(kExample, "SelType Light");
  ASSERT_TRUE(bench.Wait("end"));
  EXPECT_THAT(
      bench.Frames(),
      ElementsAre(
          AllOf(StartsWith("IrTweakLight " + light + " \"color lightcolor\" [1 0 0]"),
                EndsWith("IrIlluminateAll " + light + " 1")),
          StartsWith(vase + "0 1 0 "),
          MatchesRegex("IrTweakCamera \"default\" \"fov\" \\[[0-9.]+\\] \"transform\" \\[.*\\]\n"),
          "IrTweakOption \"reflection\" \"color background\" [0.2 0 0] \"string envname\" [\"\"]",
          StartsWith("IrTweakLight 0 \"float intensity\" [0.5] \"color lightcolor\" [0 0 1] "),
          // The name of an object is nothing that is seen, its material is.
          StartsWith(vase), StartsWith(vase + "0 1 0 "), "IrEnd"));
}

TEST_F(LiveSession, TheSceneIsAFileOfItsOwnWithSerialNumbers) {
  const RendererBench bench;
  const ProcessResult result = RunScript(kExample, "OrvIprStart Enter OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  const std::string scene = FileContent(folder_.File("scene_ipr.rib"));
  EXPECT_THAT(scene, HasSubstr("\"Object_" + SerialOf(kExample, "SelName Vase") + "\""));
  EXPECT_THAT(scene, HasSubstr("Format 400 300 1\n"));
  ASSERT_FALSE(bench.Events().empty());
  EXPECT_THAT(bench.Events()[0].command, ElementsAre("tweakorv", "-ihost", EndsWith(":47849"), "-p",
                                                     "1", "-pri", "0", "scene_ipr.rib"));
}

TEST_F(LiveSession, LightsComeAndGo) {
  const RendererBench bench;
  const ProcessResult result = RunScript(kExample,
                                         "OrvIprStart Enter "
                                         "AddLight Name=Lamp Point 1,2,3 "
                                         "AddLight Linear 0,0,0 1,0,0 "
                                         "SelNone SelName Lamp MoveObject 0,0,0 1,1,1 "
                                         "DeleteLight Undo Redo "
                                         "OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  ASSERT_TRUE(bench.Wait("end"));
  const std::vector<std::string> frames = bench.Frames();
  ASSERT_EQ(frames.size(), 6u) << testing::PrintToString(frames);
  EXPECT_THAT(frames[0], MatchesRegex("IrNewLight \"pointlight\" [0-9]+ .* \"point from\" "
                                      "\\[1 2 3\\] "));
  EXPECT_THAT(frames[1], HasSubstr("\"point from\" [2 3 4] IrIlluminateAll "));
  const std::string lamp = frames[0].substr(24, frames[0].find(" [") - 24);
  EXPECT_EQ(frames[2], "IrIlluminateAll " + lamp + " 0");
  EXPECT_EQ(frames[3], "IrIlluminateAll " + lamp + " 1");
  EXPECT_EQ(frames[4], "IrIlluminateAll " + lamp + " 0");
  EXPECT_EQ(frames[5], "IrEnd");
}

TEST_F(LiveSession, AnEnvironmentMapGoesToAllThatAreSeen) {
  const RendererBench bench;
  const ProcessResult result = RunScript(
      kExample,
      "OrvOptions BgMode=Environment Enter OrvTrace BgMode=Environment Enter "
      "OrvGI BgMode=Map Enter OrvIprStart Enter OrvEnvironmentMap maps\\sky.tx OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  ASSERT_TRUE(bench.Wait("end"));
  EXPECT_THAT(
      bench.Frames(),
      ElementsAre(AllOf(StartsWith("IrTweakLight 0 "), HasSubstr("[\"maps/sky.tx\"]")),
                  StartsWith("IrNewImager \"VBgEnvironment\" "),
                  StartsWith("IrTweakOption \"reflection\" \"float envstrength\" "), "IrEnd"));
}

TEST_F(LiveSession, ObjectsAndTheViewCanBeSentAnew) {
  const RendererBench bench;
  const ProcessResult result =
      RunScript(kExample,
                "OrvIprStart Enter OrvIprUpdateView "
                "SelType Light OrvIprUpdateSelected OrvIprUpdateView OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  ASSERT_TRUE(bench.Wait("end"));
  // The camera is where the scene has it.
  EXPECT_THAT(bench.Frames(), ElementsAre(StartsWith("IrTweakLight "), "IrEnd"));
}

TEST_F(LiveSession, WithoutOneTheCommandsTellSo) {
  const ProcessResult result =
      Run({kExample, "-c", "OrvIprEnd OrvIprUpdateSelected OrvIprUpdateView"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "No IPR session active.\nNo IPR session active.\nNo IPR session active.\n");
}

TEST_F(LiveSession, ARendererThatIsMissingOrLeavesIsTold) {
  const std::string problem = "Error - failed to start TweakOrv IPR process.\n";
  {
    const ScopedEnvironment path("PATH", "/nowhere");
    const ProcessResult result = RunScript(kExample, "OrvIprStart Enter");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.out, EndsWith(problem));
  }
  const RendererBench bench("leave");
  const ProcessResult result = RunScript(kExample, "OrvIprStart Enter OrvIprEnd");
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(result.out, EndsWith(problem + "No IPR session active.\n"));
}

TEST_F(LiveSession, ARendererThatGoesEndsTheSessionWithTheNextObject) {
  const RendererBench bench("close 1");
  std::string edits;
  // The first bytes after the end are still taken by the system.
  for (int i = 0; i < 600; ++i)
    edits += "OrvMaterial Color=0," + std::to_string(i % 256) + ",0 Enter ";
  const ProcessResult result =
      RunScript(kExample, "OrvIprStart Enter SelName Vase " + edits + "OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, HasSubstr("Error when sending IPR information.\n"));
  EXPECT_THAT(result.out, EndsWith("No IPR session active.\n"));
}

TEST_F(LiveSession, AStalledRendererIsWaitedForNoLongerThanTheSystemTakesBytes) {
  const RendererBench bench("stall");
  const ProcessResult result =
      RunScript(kExample, "OrvIprStart Enter SelName Vase OrvMaterial Color=0,1,0 Enter OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_THAT(result.out, EndsWith("Stopping IPR session.\n"));
}

TEST_F(LiveSession, AFailedExportStartsNothing) {
  const RendererBench bench;
  const ProcessResult result =
      Run({kExample, "-c", "OrvOptions RibName=missing/scene.rib Enter OrvIprStart Enter"});
  EXPECT_EQ(result.status, 2);
  EXPECT_THAT(bench.Events(), IsEmpty());
}

TEST_F(LiveSession, OfARealDocument) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS isn't set";
  const std::string model = *corpus / "made/lights_all.3dm";
  const RendererBench bench;
  const ProcessResult result = RunScript(model,
                                         "OrvIprStart Enter SelType Light SetLight On=No Enter "
                                         "Undo ViewCamera Location=500,-500,300 Enter OrvIprEnd");
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  ASSERT_TRUE(bench.Wait("end"));
  const std::vector<std::string> frames = bench.Frames();
  // Eleven lights twice, the camera, the end.
  ASSERT_EQ(frames.size(), 24u);
  for (std::size_t i = 0; i < 11; ++i) EXPECT_THAT(frames[i], EndsWith(" 0"));
  for (std::size_t i = 11; i < 22; ++i) EXPECT_THAT(frames[i], StartsWith("IrTweakLight "));
  EXPECT_THAT(frames[22], StartsWith("IrTweakCamera "));
  EXPECT_EQ(frames[23], "IrEnd");
}

}  // namespace
