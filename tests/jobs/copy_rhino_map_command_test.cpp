#include "jobs/copy_rhino_map_command.h"

#include <gmock/gmock.h>

#include "host/document/object.h"
#include "shader_fixture.h"

namespace orv {
namespace {

using testing::Optional;

class CopyRhinoMapCommandTest : public ShaderCommandTest {
 protected:
  CopyRhinoMapCommandTest() { MakeMaterials(); }

  // The first object's surface after the command.
  std::string Copied(const std::string& surface) {
    SetMaterialText(0, "OrvSurface", surface);
    Select({0});
    EXPECT_EQ(Run<CCommandOrvCopyRhinoMap>(Form::scripted, {}), CommandResult::success);
    return MaterialText(0, "OrvSurface").value_or("");
  }
  void SetMap(const std::string& file) {
    ON_Material material = Object(0).ObjectMaterial();
    material.m_textures[0].m_image_file = file;
    EXPECT_TRUE(doc_.m_material_table.ModifyMaterial(material, 0));
  }
};

TEST_F(CopyRhinoMapCommandTest, PutsMapSizeAndOriginIntoTheShader) {
  EXPECT_EQ(Copied("\"VPlastic\" \"float Kd\" [0.5] \"string ColorMapName\" [\"\"] "
                   "\"float[2] TextureSizeXY\" [1 1] \"float[2] TextureOriginXY\" [0 0]"),
            "\"VPlastic\" \"float Kd\" [0.5] \"string ColorMapName\" [\"C:/maps/oak.jpg\"] "
            "\"float[2] TextureSizeXY\" [0.5 0.25] \"float[2] TextureOriginXY\" [-0.125 0.75]");
}

TEST_F(CopyRhinoMapCommandTest, TheMapAloneWillDo) {
  EXPECT_EQ(Copied("\"X\" \"string ColorMapName\" [\"old.tx\"]"),
            "\"X\" \"string ColorMapName\" [\"C:/maps/oak.jpg\"]");
}

TEST_F(CopyRhinoMapCommandTest, ParametersOfOtherKindsAndNamesStay) {
  const std::string others =
      " \"float[3] TextureSizeXY\" [1 1 1] \"float TextureOriginXY\" [0] \"string TextureSizeXY\" "
      "[\"a\"] \"string colormapname\" [\"b\"] \"float[2] ColorMapName\" [7 8]";
  EXPECT_EQ(Copied("\"X\" \"string ColorMapName\" [\"\"]" + others),
            "\"X\" \"string ColorMapName\" [\"C:/maps/oak.jpg\"]" + others);
  EXPECT_EQ(Copied("\"X\" \"float[2] ColorMapName\" [7 8] \"float[2] TextureSizeXY\" [1 1]"),
            "\"X\" \"float[2] ColorMapName\" [7 8] \"float[2] TextureSizeXY\" [1 1]");
}

TEST_F(CopyRhinoMapCommandTest, AShaderWithoutAMapIsNotEvenPrintedBack) {
  const std::string surface = "\"X\" \"float A\" [1 2] \"float[2] TextureSizeXY\" [1 1]";
  EXPECT_EQ(Copied(surface), surface);
}

TEST_F(CopyRhinoMapCommandTest, APairThatCannotBeReadIsLost) {
  EXPECT_EQ(Copied("\"X\" \"float A\" [1 2] \"string ColorMapName\" [\"\"]"),
            "\"X\" \"string ColorMapName\" [\"C:/maps/oak.jpg\"]");
}

TEST_F(CopyRhinoMapCommandTest, TheHostsMaterialHasNoPlaceForAMap) {
  EXPECT_EQ(Copied("\"Rhino\""), "\"Rhino\"");
  Select({0});
  EXPECT_EQ(Run<CCommandOrvCopyRhinoMap>(Form::scripted, {}), CommandResult::success);
}

TEST_F(CopyRhinoMapCommandTest, WithoutAMapTheShaderStays) {
  SetMap("");
  const std::string surface = "\"X\" \"float A\" [1 2] \"string ColorMapName\" [\"old.tx\"]";
  EXPECT_EQ(Copied(surface), surface);
}

TEST_F(CopyRhinoMapCommandTest, ANameCannotEndTheCall) {
  SetMap("maps\\a\"b].jpg");
  EXPECT_EQ(Copied("\"X\" \"string ColorMapName\" [\"\"] \"float K\" [1]"),
            "\"X\" \"string ColorMapName\" [\"maps/a\\042b\\135.jpg\"] \"float K\" [1]");
}

TEST_F(CopyRhinoMapCommandTest, ColorsKeepTheDocumentsGamma) {
  plugIn_.UserStrings().SetUserString("RhinoGamma", "2");
  EXPECT_EQ(Copied("\"X\" \"color C\" [0.04 0 1] \"string ColorMapName\" [\"\"]"),
            "\"X\" \"color C\" [0.04 0 1] \"string ColorMapName\" [\"C:/maps/oak.jpg\"]");
}

TEST_F(CopyRhinoMapCommandTest, EachObjectHasItsOwnMaterial) {
  SetMaterialText(0, "OrvSurface", "\"X\" \"string ColorMapName\" [\"\"]");
  Select({0, 1, 2, 3});
  EXPECT_EQ(Run<CCommandOrvCopyRhinoMap>(Form::scripted, {}), CommandResult::success);
  EXPECT_THAT(MaterialText(1, "OrvSurface"),
              Optional(std::string("\"X\" \"string ColorMapName\" [\"C:/maps/oak.jpg\"]")));
  EXPECT_EQ(MaterialText(2, "OrvSurface"), std::nullopt);
  EXPECT_EQ(doc_.m_material_table.Count(), 1);
}

TEST_F(CopyRhinoMapCommandTest, WithoutObjectsNothingHappens) {
  EXPECT_EQ(Run<CCommandOrvCopyRhinoMap>(Form::scripted, {"Enter"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvCopyRhinoMap>(Form::scripted, {"nobody"}), CommandResult::failure);
}

}  // namespace
}  // namespace orv
