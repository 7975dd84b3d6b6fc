#include "shading/host_material.h"

#include "shading/shader_call.h"
#include "texture_fixture.h"

namespace orv {
namespace {

using testing::SizeIs;

constexpr double kGamma = 2.2;

class HostMaterialTest : public TextureFixture {
 protected:
  void Convert(bool convertTextures = false) {
    ConvertHostMaterial(material_, usesTexture_, hasOpacityMap_, textures_, convertTextures,
                        kGamma);
  }
  void ConvertSurface(const std::string& call, bool convertTextures = false) {
    material_.Surface = call;
    usesTexture_ = hasOpacityMap_ = false;
    Convert(convertTextures);
  }

  MaterialAttributes material_;
  bool usesTexture_ = false;
  bool hasOpacityMap_ = false;
};

TEST_F(HostMaterialTest, PlainMaterial) {
  material_.Diffuse = ON_Color(10, 20, 30);
  Convert();
  EXPECT_EQ(material_.Surface,
            "\"VRubber\" \"float Diffuse\" [1] \"float DiffuseRoughness\" [0] "
            "\"float SpecularRoughness\" [0.1] \"color SpecularColor\" [0 0 0] "
            "\"string ColorMapName\" [\"\"] \"string OpacityMapName\" [\"\"]");
  EXPECT_EQ(material_.Displacement, "\"null\"");
  EXPECT_EQ(material_.Diffuse, ON_Color(10, 20, 30));
  EXPECT_FALSE(usesTexture_);
  EXPECT_FALSE(hasOpacityMap_);
}

TEST_F(HostMaterialTest, ShiningMaterial) {
  material_.SpecularRoughness = 22.0 / 255;
  material_.Specular = ON_Color(255, 51, 128);
  Convert();
  EXPECT_THAT(material_.Surface, testing::HasSubstr(" \"float SpecularRoughness\" [0.0862745] "
                                                    "\"color SpecularColor\" [1 0.2 0.501961] "));
}

TEST_F(HostMaterialTest, ColorMapTakesThePlaceOfTheColor) {
  material_.Diffuse = ON_Color(10, 20, 30);
  material_.ColorMap = "C:\\maps\\wood.jpg";
  material_.OpacityMap = "C:\\maps\\holes.png";
  material_.MapSize = {0.5, 2};
  material_.MapOrigin = {-0.125, 0.625};
  Convert();
  EXPECT_THAT(material_.Surface,
              testing::EndsWith("[0 0 0] \"string ColorMapName\" [\"C:/maps/wood.jpg\"] "
                                "\"float[2] TextureSizeXY\" [0.5 2] "
                                "\"float[2] TextureOriginXY\" [-0.125 0.625] "
                                "\"string OpacityMapName\" [\"C:/maps/holes.png\"]"));
  EXPECT_EQ(material_.Diffuse, ON_Color(255, 255, 255));
  EXPECT_TRUE(usesTexture_);
  EXPECT_TRUE(hasOpacityMap_);
}

TEST_F(HostMaterialTest, OpacityMapAloneIsTiled) {
  material_.Diffuse = ON_Color(10, 20, 30);
  material_.OpacityMap = "holes.png";
  material_.MapSize = {0.5, 2};
  Convert();
  EXPECT_THAT(material_.Surface, testing::EndsWith(" \"string ColorMapName\" [\"\"] "
                                                   "\"string OpacityMapName\" [\"holes.png\"] "
                                                   "\"float[2] TextureSizeXY\" [0.5 2] "
                                                   "\"float[2] TextureOriginXY\" [0 0]"));
  EXPECT_EQ(material_.Diffuse, ON_Color(10, 20, 30));
  EXPECT_TRUE(hasOpacityMap_);
}

TEST_F(HostMaterialTest, BumpMapIsADisplacement) {
  material_.BumpMap = "C:\\maps\\bumps.png";
  material_.BumpHeight = 0.25;
  material_.BumpSize = {0.1, 0.2};
  material_.BumpOrigin = {3, 4};
  Convert();
  EXPECT_EQ(material_.Displacement,
            "\"VTexturedBump\" \"float BumpMax\" [0.25] "
            "\"string TextureName\" [\"C:/maps/bumps.png\"] "
            "\"float[2] TextureSizeXY\" [0.1 0.2] \"float[2] TextureOriginXY\" [3 4]");
  // Only what is converted counts here.
  EXPECT_FALSE(usesTexture_);
}

TEST_F(HostMaterialTest, WordIsKnownInAnyCase) {
  material_.Surface = "\"rhino\"";
  material_.Displacement = "\"RHINO\"";
  Convert();
  EXPECT_EQ(ShaderNameOf(material_.Surface), "VRubber");
  EXPECT_EQ(material_.Displacement, "\"null\"");
}

TEST_F(HostMaterialTest, OtherTextsStay) {
  for (const std::string call : {"", "Rhino", "\"Rhino\" ", "\"VPlastic\" \"float Diffuse\" [1]"}) {
    material_.Displacement = call;
    ConvertSurface(call, true);
    EXPECT_EQ(material_.Surface, call);
    EXPECT_EQ(material_.Displacement, call);
    EXPECT_FALSE(usesTexture_);
  }
}

TEST_F(HostMaterialTest, FlagsAreOnlyRaised) {
  usesTexture_ = hasOpacityMap_ = true;
  Convert();
  EXPECT_TRUE(usesTexture_);
  EXPECT_TRUE(hasOpacityMap_);
}

TEST_F(HostMaterialTest, ImagesAreConverted) {
  material_.ColorMap = Image("wood.jpg");
  material_.OpacityMap = Image("holes.png");
  material_.BumpMap = Image("bumps.png");
  Convert(true);
  std::string name;
  EXPECT_TRUE(GetStringParam(material_.Surface, "ColorMapName", name));
  EXPECT_EQ(name, folder_.File("wood_periodic_g22.tx"));
  EXPECT_TRUE(GetStringParam(material_.Surface, "OpacityMapName", name));
  EXPECT_EQ(name, folder_.File("holes_periodic.tx"));
  EXPECT_TRUE(GetStringParam(material_.Displacement, "TextureName", name));
  EXPECT_EQ(name, folder_.File("bumps_periodic.tx"));
}

TEST_F(HostMaterialTest, BumpMapThatIsConvertedIsATexture) {
  material_.BumpMap = Image("bumps.png");
  Convert(true);
  EXPECT_TRUE(usesTexture_);
  EXPECT_FALSE(hasOpacityMap_);
}

// A row for each parameter that names an image.
struct MapRow {
  std::string Param;
  std::string Ending;
  bool CountsWhenEmpty;
};

TEST_F(HostMaterialTest, EachMapHasItsModeAndGamma) {
  const std::string image = Image("a.jpg");
  for (const MapRow& row :
       {MapRow{"ColorMapName", "_periodic_g22.tx", false},
        MapRow{"OpacityMapName", "_periodic.tx", false},
        MapRow{"SpecularMapName", "_periodic.tx", false},
        MapRow{"BumpMapName", "_periodic.tx", false}, MapRow{"TopDecalName", "_clamp_g22.tx", true},
        MapRow{"SecondDecalName", "_clamp_g22.tx", true},
        MapRow{"ThirdDecalName", "_clamp_g22.tx", true}}) {
    const std::string start = "\"X\" \"float A\" [1] \"string " + row.Param + "\" [\"";
    const std::string end = "\"] \"float B\" [2]";
    ConvertSurface(start + image + end, true);
    EXPECT_EQ(material_.Surface, start + folder_.File("a" + row.Ending) + end);
    EXPECT_TRUE(usesTexture_);
    EXPECT_EQ(hasOpacityMap_, row.Param == "OpacityMapName");

    ConvertSurface(start + image + end, false);
    EXPECT_EQ(material_.Surface, start + image + end);
    EXPECT_TRUE(usesTexture_);

    ConvertSurface(start + end, true);
    EXPECT_EQ(material_.Surface, start + end);
    EXPECT_EQ(usesTexture_, row.CountsWhenEmpty);
    EXPECT_FALSE(hasOpacityMap_);
  }
}

TEST_F(HostMaterialTest, TextureIsATextureWithoutConversion) {
  ConvertSurface("\"X\" \"string ColorMapName\" [\"wood.tx\"]", true);
  EXPECT_EQ(material_.Surface, "\"X\" \"string ColorMapName\" [\"wood.tx\"]");
  EXPECT_TRUE(usesTexture_);
  EXPECT_EQ(Told(), "");
}

TEST_F(HostMaterialTest, OpacityMapHasMoreThanOneCharacter) {
  for (const std::string name : {"a", "\u00e4", "\\042"}) {
    ConvertSurface("\"X\" \"string OpacityMapName\" [\"" + name + "\"]");
    EXPECT_TRUE(usesTexture_) << name;
    EXPECT_FALSE(hasOpacityMap_) << name;
  }
  ConvertSurface("\"X\" \"string OpacityMapName\" [\"ab\"]");
  EXPECT_TRUE(hasOpacityMap_);
}

TEST_F(HostMaterialTest, ArraysAndOtherTypesAreNoMaps) {
  ConvertSurface("\"X\" \"string[2] TopDecalName\" [\"a\" \"b\"] \"float ColorMapName\" [1]", true);
  EXPECT_FALSE(usesTexture_);
}

TEST_F(HostMaterialTest, DisplacementOfAUser) {
  const std::string image = Image("bumps.png");
  material_.Displacement = "\"MyBump\" \"string TextureName\" [\"" + image + "\"]";
  Convert(false);
  EXPECT_FALSE(usesTexture_);
  Convert(true);
  EXPECT_EQ(material_.Displacement,
            "\"MyBump\" \"string TextureName\" [\"" + folder_.File("bumps_periodic.tx") + "\"]");
  EXPECT_TRUE(usesTexture_);
}

TEST_F(HostMaterialTest, ImageThatFailsKeepsItsNameAndIsToldOnce) {
  material_.ColorMap = "C:\\no\\wood.jpg";
  material_.BumpMap = "C:\\no\\wood.jpg";
  Convert(true);
  EXPECT_EQ(Told(), "Texture file not found: C:/no/wood.jpg\n");
  std::string name;
  EXPECT_TRUE(GetStringParam(material_.Surface, "ColorMapName", name));
  EXPECT_EQ(name, "C:/no/wood.jpg");
  // It was tried, so it counts.
  material_ = {};
  material_.BumpMap = "C:\\no\\wood.jpg";
  usesTexture_ = false;
  Convert(true);
  EXPECT_TRUE(usesTexture_);
  EXPECT_EQ(Told(), "");
}

TEST_F(HostMaterialTest, HostileNameStaysInsideItsString) {
  const std::string image = Image("a\"] \"float Diffuse\" [9] [\"\n.jpg");
  material_.ColorMap = image;
  Convert(true);
  EXPECT_EQ(bench_.Runs().at(0).command[5], image);
  double diffuse = 0;
  EXPECT_TRUE(GetFloatParam(material_.Surface, "Diffuse", diffuse));
  EXPECT_EQ(diffuse, 1);
  std::string name;
  EXPECT_TRUE(GetStringParam(material_.Surface, "ColorMapName", name));
  EXPECT_EQ(name, folder_.File("a\\042\\135 \\042float Diffuse\\042 [9\\135 [\\042\\012"
                               "_periodic_g22.tx"));
  EXPECT_THAT(material_.Surface, testing::EndsWith(" \"string OpacityMapName\" [\"\"]"));
}

TEST_F(HostMaterialTest, LongNameAndPercentSignsStay) {
  const std::string beginning = "100%d%s " + std::string(992, 'x');
  material_.ColorMap = beginning + std::string(4000, 'x') + ".jpg";
  Convert(true);
  std::string name;
  EXPECT_TRUE(GetStringParam(material_.Surface, "ColorMapName", name));
  EXPECT_EQ(name, material_.ColorMap);
  EXPECT_EQ(Told(), "Texture file not found: " + beginning + "...\n");
}

}  // namespace
}  // namespace orv
