#include "program_fixture.h"
#include "support/model_corpus.h"
#include "support/pty.h"
#include "support/shader_writer.h"

// Shaders and attributes edited by scripts and at the prompt: the real program, real documents, and
// what the next export writes.

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr char kStillLife[] = ORV_TEST_FOLDER "/../../examples/still_life.3dm";

class ShaderCommandsTest : public ProgramTest {
 protected:
  ShaderCommandsTest() {
    options_.environment.push_back({"ORVHOME", folder_.File("orv")});
    std::filesystem::create_directories(folder_.File("orv/shaders"));
    WriteShader("VPlastic", 0);
    WriteShader("VBump", 1);
    WriteShader("null", 0);
  }

  void WriteShader(const std::string& name, std::int8_t kind) const {
    ShaderFile shader;
    shader.Kind = kind;
    shader.Name = name;
    shader.Params = {{1, "Diffuse", FloatBytes({0.5F})},
                     {2, "SpecularColor", FloatBytes({1, 1, 1})},
                     {0, "ColorMapName", StringBytes("")},
                     {1, "TextureSizeXY", FloatBytes({1, 1}), 2},
                     {1, "TextureOriginXY", FloatBytes({0, 0}), 2}};
    WriteFileContent(folder_.File("orv/shaders/" + name + ".slb"), shader.Bytes());
  }

  // The archive of the objects that the script has selected in the end.
  std::string Archive(const std::string& model, const std::string& script, int status = 0) {
    const ProcessResult result =
        Run({model, "-c", script, "-c", "OrvWriteArchive Archive=out.rib Enter"});
    EXPECT_EQ(result.status, status) << result.out << result.err;
    out_ = result.out;
    return FileContent(folder_.File("out.rib"));
  }
  // The same of a document of the corpus; nothing without one.
  std::optional<std::string> ArchiveOf(const std::string& model, const std::string& script) {
    const auto corpus = ModelCorpus();
    if (!corpus) return std::nullopt;
    return Archive((*corpus / model).string(), script);
  }

  std::string out_;
};

TEST_F(ShaderCommandsTest, OrvSurfaceGivesObjectsAShader) {
  const std::string rib =
      Archive(kStillLife,
              "SelName \"Plum *\" OrvSurface Shader=VPlastic Diffuse=0.25 SpecularColor=255,0,51 "
              "ColorMapName=$ORVHOME\\maps\\plum.tx TextureSizeXY=2,0.5 Enter");
  EXPECT_THAT(rib, HasSubstr("Surface \"VPlastic\" \"float Diffuse\" [0.25] "
                             "\"color SpecularColor\" [1 0 0.2] \"string ColorMapName\" [\"" +
                             folder_.File("orv/maps/plum.tx") +
                             "\"] \"float[2] TextureSizeXY\" [2 0.5] "
                             "\"float[2] TextureOriginXY\" [0 0]"));
  EXPECT_EQ(rib.find("Surface \"VRubber\""), std::string::npos);
}

TEST_F(ShaderCommandsTest, OrvSurfaceIsUndoneInOneStep) {
  const std::string plain = Archive(kStillLife, "SelName Plum* SelName Ring");
  EXPECT_EQ(Archive(kStillLife, "SelName Plum* SelName Ring OrvSurface Shader=VPlastic Enter Undo"),
            plain);
  EXPECT_THAT(
      Archive(kStillLife, "SelName Plum* SelName Ring OrvSurface Shader=VPlastic Enter Undo Redo"),
      AllOf(HasSubstr("Surface \"VPlastic\""), Not(HasSubstr("Surface \"VRubber\""))));
}

TEST_F(ShaderCommandsTest, AMissingShaderIsTold) {
  const std::string rib = Archive(kStillLife, "SelName Ring OrvSurface Shader=VWood Enter");
  EXPECT_THAT(out_, HasSubstr("Shader file not found: "));
  EXPECT_THAT(out_, HasSubstr("\\shaders\\VWood.slb.\n"));
  EXPECT_THAT(rib, HasSubstr("Surface \"VRubber\""));
}

TEST_F(ShaderCommandsTest, AValueThatDoesNotFitStopsTheScript) {
  const ProcessResult result =
      Run({kStillLife, "-c", "SelName Ring OrvSurface Shader=VPlastic Diffuse=much Enter"});
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.err, HasSubstr("orvhost: -c, line 1: Diffuse takes a number from -1e+30 to "
                                    "1e+30, not 'much'."));
}

TEST_F(ShaderCommandsTest, OrvMaterialEditsTheMaterial) {
  const std::string rib = Archive(
      kStillLife,
      "SelName Ring OrvMaterial Color=0,255,0 Transparency=0.5 ShadingSamples=4 Surface "
      "Shader=VPlastic Enter Displacement Shader=VBump Enter DisplacementMode=Regular Enter");
  EXPECT_THAT(rib, HasSubstr("Color [ 0 1 0 ]\n"));
  EXPECT_THAT(rib, HasSubstr("Opacity [ 0.5 0.5 0.5 ]\n"));
  EXPECT_THAT(rib, HasSubstr("ShadingRate 0.25\n"));
  EXPECT_THAT(rib, HasSubstr("Surface \"VPlastic\" "));
  EXPECT_THAT(rib, HasSubstr("Displacement \"VBump\" "));
}

TEST_F(ShaderCommandsTest, OrvMaterialTakesTheHostsMaterialForNull) {
  const std::string rib = Archive(kStillLife,
                                  "SelName Ring OrvMaterial Surface Shader=VPlastic Enter Enter "
                                  "OrvMaterial Surface Shader=null Enter Enter");
  EXPECT_THAT(rib, HasSubstr("Surface \"VRubber\""));
  EXPECT_EQ(rib, Archive(kStillLife, "SelName Ring"));
}

TEST_F(ShaderCommandsTest, OrvObjectEditsTheObjects) {
  const std::string plain = Archive(kStillLife, "SelName Ring SelName Knot");
  const std::string rib =
      Archive(kStillLife,
              "SelName Ring SelName Knot OrvObject CastShadow=No BackFaces=No Subdivide=Yes Enter");
  EXPECT_THAT(plain, Not(HasSubstr("integer transmission")));
  const std::string_view kShadow = "Attribute \"visibility\" \"integer transmission\" [0]";
  const std::size_t first = rib.find(kShadow);
  ASSERT_NE(first, std::string::npos);
  EXPECT_NE(rib.find(kShadow, first + 1), std::string::npos);
  EXPECT_THAT(rib, HasSubstr("Sides 1\n"));
  EXPECT_THAT(plain, HasSubstr("PointsPolygons"));
  EXPECT_THAT(rib, AllOf(HasSubstr("SubdivisionMesh"), Not(HasSubstr("PointsPolygons"))));
}

TEST_F(ShaderCommandsTest, OrvCopyRhinoMapPutsTheMapIntoTheShader) {
  const auto rib = ArchiveOf("made/materials_textures_v4.3dm",
                             "SelName \"own over layer\" SelName \"by layer\" OrvSurface "
                             "Shader=VPlastic Enter OrvCopyRhinoMap");
  if (!rib) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  EXPECT_THAT(*rib, HasSubstr("\"string ColorMapName\" [\"textures/wood.png\"]"));
  EXPECT_THAT(*rib, HasSubstr("Surface \"VPlastic\""));
  EXPECT_THAT(*rib, Not(HasSubstr("\"float[2] TextureSizeXY\" [1 1] "
                                  "\"float[2] TextureOriginXY\" [0 0]")));
}

TEST_F(ShaderCommandsTest, OrvCopyRhinoMapLeavesWhatHasNoMap) {
  const std::string before = Archive(kStillLife, "SelName Ring OrvSurface Shader=VPlastic Enter");
  EXPECT_EQ(Archive(kStillLife, "SelName Ring OrvSurface Shader=VPlastic Enter OrvCopyRhinoMap"),
            before);
}

TEST_F(ShaderCommandsTest, APersonPicksOnASurface) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  Pty terminal(Command({(*corpus / "made" / "geometry_zoo.3dm").string()}), options_);
  const auto enter = [&terminal](const std::string& line, const std::string& next) {
    terminal.Type(line + '\r');
    return terminal.WaitFor(next);
  };
  terminal.WaitFor("Command: ");
  enter("SelName \"box brep\"", "Command: ");
  enter("-OrvSurface Shader=VPlastic Enter", "Command: ");
  enter("OrvSurface", "TextureOriginXY=0,0 ): ");
  enter("TextureOriginXY", "Pick point on surface: ");
  // A box has six faces, so that a face has to be named.
  enter("0,0", "The object has several faces: type face:u,v with a face from 0 to 5.");
  terminal.WaitFor("Pick point on surface: ");
  const std::string shown = enter("2:0,0", " ): ");
  EXPECT_THAT(shown, HasSubstr("TextureOriginXY=0,1 ): "));
  enter("", "Command: ");
  enter("-OrvWriteArchive Archive out.rib", "Materials=Yes ): ");
  enter("", "Command: ");
  EXPECT_THAT(FileContent(folder_.File("out.rib")),
              HasSubstr("\"float[2] TextureOriginXY\" [0 1]"));
  terminal.Type("Exit\r");
  EXPECT_EQ(terminal.Wait(), 0);
}

TEST_F(ShaderCommandsTest, HelpTellsWhatIsTypedInsteadOfPicked) {
  const ProcessResult result = Run({"-c", "Help OrvSurface"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, AllOf(HasSubstr("x,y,z"), HasSubstr("face:u,v")));
}

}  // namespace
