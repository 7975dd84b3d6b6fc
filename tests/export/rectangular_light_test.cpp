#include "export/rectangular_light.h"

#include "light_fixture.h"

namespace {

constexpr const char* kBegin = "AttributeBegin\n";
constexpr const char* kSamples = "  Attribute \"light\" \"nsamples\" [8]\n";
constexpr const char* kTransform =
    "  ConcatTransform [ 4 0 0 0.0 0 2 0 0.0 0 0 -2 0.0 1 2 3 1.0 ]\n";
constexpr const char* kShadow =
    "   \"string shadowname\" \"raytrace\" \"color shadowcolor\" [0 0 0]\n";
constexpr const char* kComponents =
    "   \"float __nonspecular\" [0] \"float __nondiffuse\" [0]\n"
    "   \"float __channel\" [1]\n";
constexpr const char* kColor = "  Color 1 0.4 0.2\n";
constexpr const char* kUnseen =
    "  Attribute \"visibility\" \"integer camera\" 0\n"
    "  Attribute \"visibility\" \"integer trace\" 0\n";
constexpr const char* kUngathered =
    "  Attribute \"visibility\" \"integer indirect\" 0\n"
    "  Attribute \"visibility\" \"integer transmission\" 0\n"
    "  Attribute \"indirect\" \"integer prepass\" 0\n";
constexpr const char* kSquare =
    "  Polygon \"P\" [0 0 0  1 0 0  1 1 0  0 1 0] \"st\" [0 0  1 0  1 1  0 1]\n";
constexpr const char* kEnd = "AttributeEnd\n";

std::string Source(const std::string& shader, const std::string& number = "1") {
  return "  AreaLightSource \"" + shader + "\" " + number +
         " \"color lightcolor\" [ 1 0.4 0.2 ] \"float intensity\" [1] \"float falloff\" [0]\n";
}

// The block's end for a light without a texture or an archive.
std::string PlainShape() {
  return std::string("  Surface \"constant\"\n") + kColor + kUnseen + kUngathered + kSquare + kEnd;
}
std::string TexturedSurface(const std::string& name) {
  return "  Surface \"VTexturedConstant\" \"string ColorMapName\" \"" + name + "\"\n";
}
std::string TexturedShape(const std::string& name) {
  return TexturedSurface(name) + kColor + kUnseen + kUngathered + kSquare + kEnd;
}

class RectangularLight : public LightTest {
 protected:
  std::string RibWith(UserStrings strings) { return RibOf(WithStrings(light_, strings)); }
  std::string InteractiveRibWith(UserStrings strings) {
    return InteractiveRibOf(WithStrings(light_, strings));
  }

  ONX_ModelLight light_ = LightOf(ON_LightStyle::world_rectangular);
};

TEST_F(RectangularLight, Normal) {
  EXPECT_EQ(RibWith({{"OrvLightIntensity", "2.5"},
                     {"OrvLightFalloff", "2"},
                     {"OrvShadowColor", "0.2,0.4,1"},
                     {"OrvShadowSamples", "16"},
                     {"OrvLightChannel", "7"},
                     {"OrvLightEmitSpecular", "No"},
                     {"OrvLightEmitDiffuse", "No"}}),
            "AttributeBegin\n"
            "  Attribute \"light\" \"nsamples\" [16]\n"
            "  ConcatTransform [ 4 0 0 0.0 0 2 0 0.0 0 0 -2 0.0 1 2 3 1.0 ]\n"
            "  AreaLightSource \"arealight\" 1 \"color lightcolor\" [ 1 0.4 0.2 ] "
            "\"float intensity\" [2.5] \"float falloff\" [2]\n"
            "   \"string shadowname\" \"raytrace\" \"color shadowcolor\" [0.2 0.4 1]\n"
            "   \"float __nonspecular\" [1] \"float __nondiffuse\" [1]\n"
            "   \"float __channel\" [7]\n"
            "  Surface \"constant\"\n"
            "  Color 1 0.4 0.2\n"
            "  Attribute \"visibility\" \"integer camera\" 0\n"
            "  Attribute \"visibility\" \"integer trace\" 0\n"
            "  Attribute \"visibility\" \"integer indirect\" 0\n"
            "  Attribute \"visibility\" \"integer transmission\" 0\n"
            "  Attribute \"indirect\" \"integer prepass\" 0\n"
            "  Polygon \"P\" [0 0 0  1 0 0  1 1 0  0 1 0] \"st\" [0 0  1 0  1 1  0 1]\n"
            "AttributeEnd\n");
}

TEST_F(RectangularLight, WithoutAShadowItSaysSo) {
  EXPECT_EQ(RibWith({{"OrvShadowSamples", "0"}}),
            std::string(kBegin) + "  Attribute \"light\" \"nsamples\" [0]\n" + kTransform +
                Source("arealight") + "   \"string shadowname\" \"\"\n" + kComponents +
                PlainShape());
  light_.m_light->m_shadow_intensity = 0;
  EXPECT_EQ(RibWith({{"OrvAreaLightType", "fast"}}),
            std::string(kBegin) + kTransform + "  Sides 1\n" + Source("arealight2") +
                "   \"string shadowname\" \"\"\n" + kComponents + PlainShape());
}

TEST_F(RectangularLight, SeenByTheCameraAndReflected) {
  EXPECT_EQ(RibWith({{"OrvRectangleLightInCamera", "Yes"}, {"OrvRectangleLightReflected", "Yes"}}),
            std::string(kBegin) + kSamples + kTransform + Source("arealight") + kShadow +
                kComponents + "  Surface \"constant\"\n" + kColor +
                "  Attribute \"visibility\" \"integer trace\" 1\n" + kUngathered + kSquare + kEnd);
}

TEST_F(RectangularLight, TheSquareFacesTheDirection) {
  light_.m_light->m_direction = {0, 0, 2};
  EXPECT_EQ(RibWith({}), std::string(kBegin) + kSamples +
                             "  ConcatTransform [ 4 0 0 0.0 0 2 0 0.0 0 0 2 0.0 1 2 3 1.0 ]\n" +
                             Source("arealight") + kShadow + kComponents +
                             "  Surface \"constant\"\n" + kColor + kUnseen + kUngathered +
                             "  ReverseOrientation\n" + kSquare + kEnd);
}

// The samples stand in front of the next parameter, on its line.
constexpr const char* kFastComponents =
    "   \"float samples\" [8]  \"float __nonspecular\" [0] \"float __nondiffuse\" [0]\n"
    "   \"float __channel\" [1]\n";

TEST_F(RectangularLight, Fast) {
  const std::string expected = std::string(kBegin) + kTransform + "  Sides 1\n" +
                               Source("arealight2") + kShadow + kFastComponents + PlainShape();
  EXPECT_EQ(RibWith({{"OrvAreaLightType", "fast"}}), expected);
  EXPECT_EQ(RibWith({{"OrvRectangleLightFast", "Yes"}}), expected);
}

TEST_F(RectangularLight, Portal) {
  const std::string source =
      "  AreaLightSource \"portallight\" 1 \"color lightcolor\" [ 1 0.4 0.2 ] "
      "\"float intensity\" [1]\n";
  EXPECT_EQ(
      RibWith({{"OrvAreaLightType", "portal"}}),
      std::string(kBegin) + kSamples + kTransform + source + kShadow + kComponents + PlainShape());
  EXPECT_EQ(RibWith({{"OrvAreaLightType", "portal"},
                     {"OrvLightUseTexture", "Yes"},
                     {"OrvLightTexture", "C:\\maps\\a \"sky\".tif"}}),
            std::string(kBegin) + kSamples + kTransform + source +
                "   \"string environmentmap\" \"C:/maps/a \\\"sky\\\".tif\" "
                "\"string environmentspace\" \"reflectionspace\"\n" +
                kShadow + kComponents + TexturedShape("C:/maps/a \\\"sky\\\".tif"));
}

TEST_F(RectangularLight, TexturedWhetherFastOrNot) {
  const std::string expected = std::string(kBegin) + kSamples + kTransform +
                               Source("texturedarealight") +
                               "   \"string texturename\" \"maps/a \\\"tv\\\".tif\"\n" + kShadow +
                               kComponents + TexturedShape("maps/a \\\"tv\\\".tif");
  EXPECT_EQ(RibWith({{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", "maps\\a \"tv\".tif"}}),
            expected);
  EXPECT_EQ(RibWith({{"OrvLightUseTexture", "Yes"},
                     {"OrvLightTexture", "maps\\a \"tv\".tif"},
                     {"OrvAreaLightType", "fast"}}),
            expected);
}

TEST_F(RectangularLight, ATextureThatIsOffOrHasNoNameIsNone) {
  const std::string plain = std::string(kBegin) + kSamples + kTransform + Source("arealight") +
                            kShadow + kComponents + PlainShape();
  EXPECT_EQ(RibWith({{"OrvLightTexture", "tv.tif"}}), plain);
  EXPECT_EQ(RibWith({{"OrvLightTexture", "lamp.ies"}}), plain);
  EXPECT_EQ(RibWith({{"OrvLightUseTexture", "Yes"}}), plain);
}

TEST_F(RectangularLight, AnArchiveIsTheShape) {
  EXPECT_EQ(RibWith({{"OrvLightUseArchive", "Yes"}, {"OrvLightArchive", "C:\\ar\\a \"tube\".rib"}}),
            std::string(kBegin) + kSamples + Source("arealight") + kShadow + kComponents +
                "  Surface \"constant\"\n" + kColor + kUnseen + kUngathered +
                "  ReadArchive \"C:/ar/a \\\"tube\\\".rib\"\n" + kEnd);
}

TEST_F(RectangularLight, AnArchiveWithoutANameIsNoShape) {
  const std::string expected = std::string(kBegin) + kSamples + Source("arealight") + kShadow +
                               kComponents + "  Surface \"constant\"\n" + kColor + kUnseen +
                               kUngathered + kEnd;
  EXPECT_EQ(RibWith({{"OrvLightUseArchive", "Yes"}}), expected);
  // It has only normal lights, whatever its type.
  EXPECT_EQ(RibWith({{"OrvLightUseArchive", "Yes"}, {"OrvAreaLightType", "fast"}}), expected);
  EXPECT_EQ(RibWith({{"OrvLightUseArchive", "Yes"}, {"OrvAreaLightType", "portal"}}), expected);
}

TEST_F(RectangularLight, ATexturedArchive) {
  EXPECT_EQ(RibWith({{"OrvLightUseArchive", "Yes"},
                     {"OrvLightArchive", "tube.rib"},
                     {"OrvLightUseTexture", "Yes"},
                     {"OrvLightTexture", "tv.tif"}}),
            std::string(kBegin) + kSamples + Source("texturedarealight") +
                "   \"string texturename\" \"tv.tif\"\n" + kShadow + kComponents +
                TexturedSurface("tv.tif") + kColor + kUnseen + kUngathered +
                "  ReadArchive \"tube.rib\"\n" + kEnd);
}

std::string Photometric(const std::string& name, const std::string& number = "1") {
  return std::string(kBegin) +
         "  ConcatTransform [ 1 0 0 0.0 0 1 0 0.0 -0 -0 1 0.0 3 3 3 1.0 ]\n"
         "  LightSource \"photometric_pointlight\" " +
         number + " \"color lightcolor\" [ 1 0.4 0.2 ] \"float intensity\" [1]\n" +
         "   \"string iesname\" \"" + name + "\"\n";
}

TEST_F(RectangularLight, AMeasuredLampStandsAtTheCenterAndHasNoShape) {
  EXPECT_EQ(
      RibWith({{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", "C:\\lamps\\a \"spot\".IES"}}),
      Photometric("C:/lamps/a \\\"spot\\\".IES") + kShadow +
          "   \"float shadowsamples\" [8] \"float shadowblur\" [0.01]\n" + kComponents + kEnd);
}

TEST_F(RectangularLight, AMeasuredLampIsOneWhateverTheType) {
  const std::string expected =
      Photometric("a.ies") + "   \"string shadowname\" \"\"\n" + kComponents + kEnd;
  for (const char* type : {"normal", "fast", "portal"}) {
    EXPECT_EQ(RibWith({{"OrvLightUseTexture", "Yes"},
                       {"OrvLightTexture", "a.ies"},
                       {"OrvShadowSamples", "0"},
                       {"OrvAreaLightType", type}}),
              expected);
  }
  EXPECT_EQ(RibWith({{"OrvLightUseTexture", "Yes"},
                     {"OrvLightTexture", "a.ies"},
                     {"OrvShadowSamples", "0"},
                     {"OrvLightUseArchive", "Yes"},
                     {"OrvLightArchive", "tube.rib"}}),
            expected);
}

TEST_F(RectangularLight, AMeasuredLampWithoutEdgesKeepsThem) {
  light_.m_light->m_length = {0, 0, 0};
  EXPECT_TRUE(RibWith({{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", "a.ies"}})
                  .starts_with("AttributeBegin\n  ConcatTransform [ 0 0 0 0.0 0 1 0 0.0 "
                               "-0 -0 1 0.0 1 3 3 1.0 ]\n"));
}

TEST_F(RectangularLight, InASessionANormalOneIsFast) {
  for (const char* type : {"normal", "fast"}) {
    const std::string rib = InteractiveRibWith({{"OrvAreaLightType", type}});
    EXPECT_EQ(rib, std::string(kBegin) + kTransform + "  Sides 1\n" +
                       Source("arealight2", Serial()) + kShadow + kFastComponents + PlainShape());
  }
}

TEST_F(RectangularLight, InASessionThereAreNoTextures) {
  std::string rib =
      InteractiveRibWith({{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", "tv.tif"}});
  EXPECT_EQ(rib, std::string(kBegin) + kTransform + "  Sides 1\n" + Source("arealight2", Serial()) +
                     kShadow + kFastComponents + PlainShape());
  rib = InteractiveRibWith({{"OrvLightUseTexture", "Yes"},
                            {"OrvLightTexture", "tv.tif"},
                            {"OrvAreaLightType", "portal"}});
  EXPECT_EQ(rib, std::string(kBegin) + kSamples + kTransform +
                     "  AreaLightSource \"portallight\" " + Serial() +
                     " \"color lightcolor\" [ 1 0.4 0.2 ] \"float intensity\" [1]\n" + kShadow +
                     kComponents + PlainShape());
}

TEST_F(RectangularLight, InASessionAnArchiveStaysNormal) {
  const std::string rib =
      InteractiveRibWith({{"OrvLightUseArchive", "Yes"}, {"OrvLightArchive", "tube.rib"}});
  EXPECT_EQ(rib, std::string(kBegin) + kSamples + Source("arealight", Serial()) + kShadow +
                     kComponents + "  Surface \"constant\"\n" + kColor + kUnseen + kUngathered +
                     "  ReadArchive \"tube.rib\"\n" + kEnd);
}

TEST_F(RectangularLight, InASessionAMeasuredLampIsOneToo) {
  const std::string rib =
      InteractiveRibWith({{"OrvLightUseTexture", "Yes"}, {"OrvLightTexture", "a.ies"}});
  EXPECT_EQ(rib, Photometric("a.ies", Serial()) + kShadow +
                     "   \"float shadowsamples\" [8] \"float shadowblur\" [0.01]\n" + kComponents +
                     kEnd);
}

}  // namespace
