#include <filesystem>

#include "program_fixture.h"
#include "support/model_corpus.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kExample = ORV_TEST_FOLDER "/../../examples/still_life.3dm";

// The host's commands that scripts prepare jobs with, and what a script does behind an error.
class ScriptCommandsTest : public ProgramTest {
 protected:
  // The serial number behind "serial number " in a text.
  static std::string SerialNumberIn(const std::string& text) {
    constexpr std::string_view kBefore = "serial number ";
    const std::size_t begin = text.find(kBefore) + kBefore.size();
    return text.substr(begin, text.find_first_not_of("0123456789", begin) - begin);
  }
};

TEST_F(ScriptCommandsTest, AddedLightsAreExported) {
  WriteMeshes("model.3dm");
  WriteFileContent(folder_.File("job.txt"),
                   "AddLight Name=Key Color=255,0,0 SpotAngle=60 Spot 0,0,10 0,0,0\n"
                   "AddLight Point 1,2,3\n"
                   "AddLight Directional 0,0,5 0,1,4\n"
                   "AddLight Rectangular 0,0,4 2,0,4 0,3,4\n"
                   "AddLight Linear 0,0,1 0,0,3\n"
                   "AddLight Ambient\n"
                   "SelName Key SetUserText OrvLightIntensity 2.5\n");
  const ProcessResult result = Run({"model.3dm", "--script", "job.txt", "--export", "out.rib"});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string rib = FileContent(folder_.File("out.rib"));
  EXPECT_THAT(rib, HasSubstr("LightSource \"spotlight\" 1 \"intensity\" [ 2.5 ] \"lightcolor\" "
                             "[ 1 0 0 ]"));
  EXPECT_THAT(rib, HasSubstr("\"from\" [ 0 0 10 ] \"to\" [ 0 0 0 ] \"coneangle\" [ 1.0472 ]"));
  EXPECT_THAT(rib, HasSubstr("LightSource \"pointlight\" 2 "));
  EXPECT_THAT(rib, HasSubstr("LightSource \"distantlight\" 3 "));
  EXPECT_THAT(rib, HasSubstr("AreaLightSource \"arealight\" 4 "));
  EXPECT_THAT(rib, HasSubstr("AreaLightSource \"arealight\" 5 "));
}

TEST_F(ScriptCommandsTest, DeletedLightsAreNotExportedUnlessUndone) {
  const std::string job = "AddLight Name=Key Point 0,0,1 AddLight Name=Fill Point 0,0,2 ";
  WriteMeshes("model.3dm");
  EXPECT_EQ(Run({"model.3dm", "-c", job + "DeleteLight Key Enter", "--export", "one.rib"}).status,
            0);
  EXPECT_THAT(FileContent(folder_.File("one.rib")),
              AllOf(HasSubstr("\"from\" [ 0 0 2 ]"), Not(HasSubstr("\"from\" [ 0 0 1 ]"))));
  EXPECT_EQ(
      Run({"model.3dm", "-c", job + "DeleteLight Key Enter Undo", "--export", "both.rib"}).status,
      0);
  EXPECT_THAT(FileContent(folder_.File("both.rib")),
              AllOf(HasSubstr("\"from\" [ 0 0 2 ]"), HasSubstr("\"from\" [ 0 0 1 ]")));
}

TEST_F(ScriptCommandsTest, ObjectsAreFoundByWhatTheyWereGiven) {
  WriteMeshes("model.3dm", 3);
  const std::string number = SerialNumberIn(Run({"model.3dm", "-c", "What Mesh2 Enter"}).out);
  const ProcessResult result =
      Run({"model.3dm", "-c",
           "SelId " + number +
               " SetObjectName \"Zweites Ö\" AddMaterial Color=0,0,255 Blue SetObjectMaterial Blue "
               "SelNone SelMaterial blue SelName \"Zweites Ö\"",
           "--export", "out.rib"});
  EXPECT_EQ(result.status, 2) << result.err;
  EXPECT_EQ(result.out.substr(0, result.out.find("Writing")),
            "1 object added to the selection.\nName set on 1 object.\nMaterial 'Blue' added.\n"
            "Material set on 1 object.\n1 object removed from the selection.\n"
            "1 object added to the selection.\n0 objects added to the selection.\n");
  const std::string rib = FileContent(folder_.File("out.rib"));
  EXPECT_THAT(rib, HasSubstr("Attribute \"identifier\" \"name\" [\"Zweites Ö\"]"));
  EXPECT_THAT(rib, HasSubstr("Color [ 0 0 1 ]"));
}

TEST_F(ScriptCommandsTest, WrongTextsStopTheScriptWithItsLine) {
  WriteMeshes("model.3dm");
  const std::pair<std::string, std::string> rows[] = {
      {"SelId 0", "There is no object with the id or serial number '0'."},
      {"SelMaterial Blue", "There is no material 'Blue'."},
      {"SelAll SetObjectLayer Attic", "There is no layer 'Attic'."},
      {"AddLight Sun",
       "Unknown option 'Sun'; expected Point, Spot, Directional, Rectangular, "
       "Linear, Ambient, Name, Color or SpotAngle."},
      {"AddLight Point 1", "A point is typed as x,y,z or x,y, not '1'."},
      {"OrvOptions PixelSamples=33", "PixelSamples takes a whole number from 1 to 32, not '33'."},
      {"OrvGI NoSuch=1",
       "Unknown option 'NoSuch=1'; expected Adaptive, MaxTraceDistance, "
       "MaxError, MaxPixelDistance, Rays, ReadCache, WriteCache, CacheFile, "
       "BgMode, BgColor or BgColorIntensity."}};
  for (const auto& [script, message] : rows) {
    WriteFileContent(folder_.File("job.txt"), "SelNone\n" + script + "\nDocumentInfo\n");
    const ProcessResult result = Run({"model.3dm", "--script", "job.txt"});
    EXPECT_EQ(result.status, 3) << script;
    EXPECT_EQ(result.err, "orvhost: job.txt, line 2: " + message + "\n");
    EXPECT_THAT(result.out, Not(HasSubstr("Units: "))) << script;
  }
}

TEST_F(ScriptCommandsTest, KeepGoingRunsTheRest) {
  WriteMeshes("model.3dm");
  WriteFileContent(folder_.File("job.txt"),
                   "SelEverything\n"
                   "OrvOptions\n"
                   "  PixelSamples=99\n"
                   "  ShadingSamples=2\n"
                   "  Enter\n"
                   "SelName Mesh1\n"
                   "OrvOptions ImageWidth=64\n"
                   "SelNone\n"
                   "SelName\n");
  const ProcessResult result =
      Run({"model.3dm", "--keep-going", "--script", "job.txt", "-c", "SelAll Nonsense SelNone",
           "-c", "SelNone", "--export", "out.rib"});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(
      result.err,
      testing::MatchesRegex(
          "orvhost: job.txt, line 1: Unknown command 'SelEverything'; Help lists the commands.\n"
          "orvhost: job.txt, line 3: PixelSamples takes a whole number from 1 "
          "to 32, not '99'.\n"
          "orvhost: job.txt, line 8: Unknown option 'SelNone'; [^\n]*\n"
          "orvhost: job.txt, line 9: The script ends where the command still "
          "asks: Name of the objects to select\n"
          "orvhost: -c, line 1: Unknown command 'Nonsense'; Help lists the commands.\n"));
  EXPECT_THAT(result.out, StartsWith("1 object added to the selection.\n"
                                     "1 object removed from the selection.\n"
                                     "2 objects added to the selection.\n"
                                     "2 objects removed from the selection.\n"));
  EXPECT_THAT(result.out, EndsWith("Exported 'out.rib'.\n"));
}

TEST_F(ScriptCommandsTest, KeepGoingWithoutErrorsChangesNothing) {
  WriteMeshes("model.3dm");
  const ProcessResult result = Run({"model.3dm", "--keep-going", "-c", "SelAll"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "2 objects added to the selection.\n");
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(Run({"--keep-going=yes"}).status, 64);
}

TEST_F(ScriptCommandsTest, KeepGoingRunsNothingOfAScriptThatCannotBeRead) {
  WriteMeshes("model.3dm");
  const ProcessResult result = Run({"model.3dm", "--keep-going", "-c", "SelAll", "-c", "Open \"x"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "");
}

TEST_F(ScriptCommandsTest, EditedOptionsAreStoredAndUsed) {
  WriteMeshes("model.3dm");
  options_.environment.emplace_back("ORVHOME", "/opt/orv");
  WriteFileContent(folder_.File("job.txt"),
                   "OrvOptions ImageWidth=640 ShadingSamples=48 BgMode=Gradient\n"
                   "  CropRegion=0,0.5,0.25,1 ImageName \"still ä.tif\" Enter\n"
                   "OrvTrace BgMode=Environment BgMap=$orvhome/sky.tx BgMapBlur=3 Enter\n"
                   "OrvOutline InkColor=#ff0000 InkWidth=50 Enter\n"
                   "OrvGI Rays=64 BgMode=Map BgMap maps/in.tx CacheFile=gi.opc Enter\n"
                   "-OrvSaveSettings out.ors\n");
  const ProcessResult result = Run({"model.3dm", "--script", "job.txt"});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string settings = FileContent(folder_.File("out.ors"));
  for (const char* line :
       {"\nImageWidth=640\n", "\nShadingSamples=32\n", "\nImageBgMode=2\n",
        "\nCropWindow=0 0.5 0.25 1\n", "\nImageName=still ä.tif\n", "\nReflectionBgMode=2\n",
        "\nReflectionBgMap=\\opt\\orv\\sky.tx\n", "\nReflectionBlur=1\n", "\nInkColor=1,0,0\n",
        "\nInkWidth=20\n", "\nGiSamples=64\n", "\nGiBgMode=1\n", "\nGiBgMap=maps\\in.tx\n",
        "\nGiCacheName=gi.opc\n"}) {
    EXPECT_THAT(settings, HasSubstr(line));
  }
}

TEST_F(ScriptCommandsTest, CancelledOptionsLeaveTheSettings) {
  const ProcessResult result =
      Run({"-c", "OrvOutline InkWidth=5 Enter OrvOutline InkWidth=7 ! -OrvSaveSettings out.ors"});
  EXPECT_EQ(result.status, 1) << result.err;
  EXPECT_THAT(FileContent(folder_.File("out.ors")), HasSubstr("\nInkWidth=5\n"));
}

TEST_F(ScriptCommandsTest, ThreadsHoldAtOnceAndAreCutAtTheNextStart) {
  EXPECT_EQ(Run({"-c", "OrvOptions Threads=16 ConvertTexture=No Enter"}).status, 0);
  EXPECT_THAT(FileContent(folder_.File("profile/profile.ini")),
              AllOf(HasSubstr("\nThreads=16\n"), HasSubstr("\nConvertTextures=0\n")));
  EXPECT_EQ(Run({"-c", "OrvOptions Enter"}).status, 0);
  EXPECT_THAT(FileContent(folder_.File("profile/profile.ini")), HasSubstr("\nThreads=8\n"));
}

TEST_F(ScriptCommandsTest, LightsAreChangedAndMoved) {
  WriteMeshes("a.3dm");
  const ProcessResult result = Run(
      {"a.3dm", "-c",
       "AddLight Name=Lamp Spot 0,0,0 0,0,-1 AddLight Name=Lamp Point 1,1,1 SelName Lamp "
       "SetLight Color=255,0,0 Location=1,2,3 Target=1,2,0 ShadowIntensity=0.5 SpotAngle=30 Enter "
       "MoveObject 0,0,0 10,0,0 OrvExport RibName=a.rib Enter"});
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out, HasSubstr("2 lights changed.\n2 lights moved.\n"));
  const std::string rib = FileContent(folder_.File("a.rib"));
  EXPECT_THAT(rib, HasSubstr("\"lightcolor\" [ 1 0 0 ]"));
  EXPECT_THAT(rib, HasSubstr("\"from\" [ 11 2 3 ] \"to\" [ 11 2 0 ]"));
  EXPECT_THAT(rib, HasSubstr("\"coneangle\" [ 0.523599 ]"));
  EXPECT_THAT(rib, HasSubstr("\"pointlight\" 2 \"lightcolor\" [ 1 0 0 ] \"from\" [ 11 2 3 ]"));
}

TEST_F(ScriptCommandsTest, ALightWithoutAChangeStays) {
  WriteMeshes("a.3dm");
  EXPECT_EQ(
      Run({"a.3dm", "-c", "AddLight Name=Lamp Point 0,0,0 SelName Lamp SetLight Enter"}).status, 2);
  EXPECT_EQ(
      Run({"a.3dm", "-c", "AddLight Name=Lamp Point 0,0,0 SelName Lamp SetLight On=No !"}).status,
      1);
  const ProcessResult far = Run(
      {"a.3dm", "-c", "AddLight Name=Lamp Point 0,0,0 SelName Lamp SetLight ShadowIntensity=2"});
  EXPECT_EQ(far.status, 3);
  EXPECT_THAT(far.err, HasSubstr("ShadowIntensity takes a number from 0 to 1, not '2'."));
  EXPECT_EQ(Run({"a.3dm", "-c", "SelName Mesh1 MoveObject Mesh1 Enter 0,0,0 1,1,1"}).status, 3);
}

TEST_F(ScriptCommandsTest, TheCameraOfTheViewIsMoved) {
  WriteMeshes("a.3dm");
  const ProcessResult result =
      Run({"a.3dm", "-c",
           "SetView Perspective ViewCamera Projection=Perspective Lens=85 Location=0,-10,0 "
           "Target=0,0,0 Enter OrvExport RibName=a.rib Enter "
           "ViewCamera Projection=Parallel Enter OrvExport RibName=b.rib Enter"});
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  const std::string a = FileContent(folder_.File("a.rib"));
  // Twice the arc tangent of half the film, 12 mm, over the lens.
  EXPECT_THAT(a, HasSubstr("Projection \"perspective\" \"fov\" [ 16.0714 ]"));
  // Looks along y, with z up: the camera stands 10 before the origin.
  EXPECT_THAT(a, HasSubstr("0.0 -0 -0 10 1.0 ]"));
  EXPECT_THAT(FileContent(folder_.File("b.rib")), HasSubstr("Projection \"orthographic\""));
}

TEST_F(ScriptCommandsTest, ACameraStandsApartFromItsTarget) {
  WriteMeshes("a.3dm");
  const ProcessResult result = Run({"a.3dm", "-c", "ViewCamera Location=1,2,3 Target=1,2,3 Enter"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "The camera must stand apart from its target.\n");
  EXPECT_EQ(Run({"a.3dm", "-c", "ViewCamera Projection=Perspective Lens=0 Enter"}).status, 3);
  EXPECT_EQ(Run({"a.3dm", "-c", "ViewCamera Location=1,2,3 !"}).status, 1);
}

TEST_F(ScriptCommandsTest, SubDsCountAsMeshes) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS isn't set";
  const std::string model = *corpus / "real/v7_rhino_logo_subd.3dm";
  const ProcessResult result = Run({model, "-c", "SelAll OrvObject CastShadow=No Enter Undo"});
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_THAT(result.out, testing::EndsWith("Undo: OrvObject.\n"));
}

TEST_F(ScriptCommandsTest, RealDocumentsTakeLightsNamesAndMaterials) {
  std::vector<std::string> models = {kExample};
  if (const auto corpus = ModelCorpus()) {
    for (const char* name : {"real/v6_my_mesh.3dm", "real/v2_my_mesh_with_material.3dm"}) {
      models.push_back((*corpus / name).string());
    }
  }
  for (const std::string& model : models) {
    const ProcessResult result =
        Run({model, "-c",
             "SelAll SetObjectName Thing AddMaterial Color=1,2,3 \"New one\" "
             "SetObjectMaterial \"New one\" SelNone SelMaterial \"new one\" SelNone "
             "AddLight Name=Key Spot 0,0,500 0,0,0 SelType Light DeleteLight AddLight Name=Last "
             "Point 7,8,9",
             "--export", "out.rib"});
    EXPECT_EQ(result.status, 0) << model << ": " << result.err << result.out;
    const std::string rib = FileContent(folder_.File("out.rib"));
    EXPECT_THAT(rib, HasSubstr("\"pointlight\" 1 ")) << model;
    EXPECT_THAT(rib, HasSubstr("[ 7 8 9 ]")) << model;
    EXPECT_THAT(rib, Not(HasSubstr("\"spotlight\""))) << model;
    EXPECT_THAT(rib, HasSubstr("\"name\" [\"Thing\"]")) << model;
  }
}

}  // namespace
