#include "interactive/light_statements.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "live_document.h"

namespace orv {
namespace {

// The statements of lights of a document.
class LightStatements : public LiveDocument {
 protected:
  static const ON_Light& LightOf(const CRhinoObject& object) {
    return *ON_Light::Cast(object.Geometry());
  }
  std::string Tweak(const ON_Light& light, bool withTransform = false) {
    const CRhinoObject& object = Open(light);
    serial_ = std::to_string(object.RuntimeSerialNumber());
    return LightTweakStatements(object, LightOf(object), withTransform, 1);
  }
  std::string New(const ON_Light& light) {
    const CRhinoObject& object = Open(light);
    serial_ = std::to_string(object.RuntimeSerialNumber());
    return NewLightStatement(object, LightOf(object), 1);
  }
  // What every light without strings says: it is orange, and its shadow black.
  static std::string Plain() {
    return "\"color lightcolor\" [1 0.4 0.2] \"color shadowcolor\" [0 0 0] "
           "\"string shadowname\" \"raytrace\" ";
  }

  std::string serial_;
};

TEST_F(LightStatements, ATweakNamesTheLightAndSwitchesIt) {
  ON_Light light = Orange(ON_LightStyle::world_point);
  for (const bool on : {true, false}) {
    light.Enable(on);
    const std::string text = Tweak(light);
    EXPECT_EQ(text, "IrTweakLight " + serial_ + " " + Plain() + "IrIlluminateAll " + serial_ +
                        (on ? " 1" : " 0"));
  }
}

TEST_F(LightStatements, TheValuesThatTheLightHasAreTold) {
  ON_Light light = Orange(ON_LightStyle::world_point);
  light.SetUserString("OrvLightIntensity", "2.5");
  light.SetUserString("OrvLightFalloff", "1");
  light.SetUserString("OrvShadowBlur", "0.5");
  light.SetUserString("OrvShadowSamples", "12");
  light.SetUserString("OrvLightEmitDiffuse", "No");
  const std::string text = Tweak(light);
  EXPECT_NE(text.find("\"color lightcolor\" [1 0.4 0.2] \"float intensity\" [2.5] "
                      "\"float falloff\" [1] \"float shadowblur\" [0.5] "
                      "\"float shadowsamples\" [12] \"color shadowcolor\" [0 0 0] "
                      "\"string shadowname\" \"raytrace\"  \"float __nonspecular\" [0] "
                      "\"float __nondiffuse\" [1]IrIlluminateAll"),
            std::string::npos)
      << text;
}

TEST_F(LightStatements, LightsWithAShapeHaveOtherSamples) {
  for (const auto style : {ON_LightStyle::world_rectangular, ON_LightStyle::world_linear}) {
    ON_Light light = Orange(style);
    light.SetUserString("OrvShadowSamples", "12");
    EXPECT_NE(Tweak(light).find("] \"float samples\" [12] "), std::string::npos);
  }
}

TEST_F(LightStatements, ADirectionalLightHasNoFalloff) {
  ON_Light light = Orange(ON_LightStyle::world_directional);
  light.SetUserString("OrvLightFalloff", "1");
  EXPECT_EQ(Tweak(light).find("falloff"), std::string::npos);
  EXPECT_EQ(New(light).find("falloff"), std::string::npos);
  light.m_style = ON_LightStyle::world_point;
  EXPECT_NE(Tweak(light).find("\"float falloff\" [1]"), std::string::npos);
}

TEST_F(LightStatements, WithoutAShadowItsColorIsTheLightsWithItsGreenForBlue) {
  ON_Light light = Orange(ON_LightStyle::world_point);
  light.SetShadowIntensity(0);
  EXPECT_NE(Tweak(light).find("\"color shadowcolor\" [1 0.4 0.4] \"string shadowname\" \"\" "),
            std::string::npos);
  light.SetShadowIntensity(0.5);
  light.SetUserString("OrvShadowColor", "0,0,255");
  const std::string text = Tweak(light);
  EXPECT_NE(text.find("\"string shadowname\" \"raytrace\" "), std::string::npos) << text;
}

TEST_F(LightStatements, PlacesOfEachKind) {
  using enum ON_LightStyle;
  const auto place = [this](ON_LightStyle style) {
    const std::string text = Tweak(Orange(style), true);
    const std::size_t begin = text.find(Plain()) + Plain().size();
    return text.substr(begin, text.find("IrIlluminateAll") - begin);
  };
  EXPECT_EQ(place(world_directional), "\"point from\" [1 2 3] \"point to\" [1 2 1] ");
  EXPECT_EQ(place(world_point), "\"point from\" [1 2 3] ");
  EXPECT_EQ(place(world_spot),
            " \"from\" [ 1 2 3 ] \"to\" [ 1 2 1 ] \"coneangle\" [ 0.523599 ] "
            "\"conedeltaangle\" [ 0.1309 ] \"beamdistribution\" [ 5 ]");
  const std::string rectangle = place(world_rectangular);
  EXPECT_EQ(rectangle,
            " IrLightTransform " + serial_ + " [ 4 0 0 0.0 0 2 0 0.0 0 0 -2 0.0 1 2 3 1 ]");
  EXPECT_EQ(place(world_linear), " IrLightTransform [ 4 0 0 0.0 1 1 1 0.0 1 1 1 0.0 1 2 3 1]");
  EXPECT_EQ(place(ambient), "");
}

TEST_F(LightStatements, AMeasuredLampStandsInTheMiddleOfItsRectangle) {
  ON_Light light = Orange(ON_LightStyle::world_rectangular);
  light.SetUserString("OrvLightUseTexture", "1");
  light.SetUserString("OrvLightTexture", "lamp.IES");
  ASSERT_TRUE(ReadLightAttributes(&light).UseTexture);
  ASSERT_EQ(ReadLightAttributes(&light).Texture, "lamp.IES");
  const std::string text = Tweak(light, true);
  EXPECT_NE(text.find(" IrLightTransform " + serial_ +
                      " [ 1 0 0 0.0 0 1 0 0.0 -0 -0 1 0.0 3 3 3 1 ]\nIrIlluminateAll"),
            std::string::npos)
      << text;
}

TEST_F(LightStatements, NewLightsOfThreeKinds) {
  using enum ON_LightStyle;
  const auto begin = [this](const char* shader) {
    return "IrNewLight \"" + std::string(shader) + "\" " + serial_ +
           " [1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1] \"color lightcolor\" [1 0.4 0.2]";
  };
  const std::string shadow = " \"color shadowcolor\" [0 0 0] \"string shadowname\" \"raytrace\" ";
  std::string text = New(Orange(world_directional));
  EXPECT_EQ(text, begin("distantlight") + shadow + " \"point from\" [1 2 3] \"point to\" [1 2 1] ");
  text = New(Orange(world_point));
  EXPECT_EQ(text,
            begin("pointlight") + " \"float falloff\" [0]" + shadow + " \"point from\" [1 2 3] ");
  text = New(Orange(world_spot));
  EXPECT_EQ(text, begin("spotlight") + " \"float falloff\" [0]" + shadow +
                      " \"point from\" [ 1 2 3 ] \"point to\" [ 1 2 1 ] "
                      "\"float coneangle\" [ 0.523599 ] \"float conedeltaangle\" [ 0.1309 ] "
                      "\"float beamdistribution\" [ 5 ]");
  for (const auto style : {world_rectangular, world_linear, ambient}) {
    EXPECT_EQ(New(Orange(style)), "");
  }
}

TEST_F(LightStatements, ALightWithoutUsableNumbersSaysNothing) {
  ON_Light light = Orange(ON_LightStyle::world_point);
  light.m_location.x = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Tweak(light, true), "");
  EXPECT_EQ(New(light), "");
}

}  // namespace
}  // namespace orv
