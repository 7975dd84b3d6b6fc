#include "export/point_lights.h"

#include "light_fixture.h"

namespace {

using Style = ON_LightStyle;

// The end of each statement.
constexpr const char* kShadow =
    " \"string shadowname\" \"raytrace\" \"color shadowcolor\" [0 0 0]"
    " \"float shadowsamples\" [8] \"float shadowblur\" [0.01]\n";
constexpr const char* kComponents =
    " \"float __nonspecular\" [0] \"float __nondiffuse\" [0]\n"
    " \"float __channel\" [1]\n";

class PointLights : public LightTest {};

TEST_F(PointLights, ASpotLight) {
  EXPECT_EQ(RibOf(WithStrings(LightOf(Style::world_spot), {{"OrvLightIntensity", "2.5"},
                                                           {"OrvLightFalloff", "2"},
                                                           {"OrvShadowColor", "0.2,0.4,1"},
                                                           {"OrvShadowSamples", "16"},
                                                           {"OrvShadowBlur", "0.25"},
                                                           {"OrvLightChannel", "7"},
                                                           {"OrvLightEmitDiffuse", "No"}})),
            "LightSource \"spotlight\" 1 \"intensity\" [ 2.5 ] \"lightcolor\" [ 1 0.4 0.2 ] "
            "\"float falloff\" [2]"
            " \"from\" [ 1 2 3 ] \"to\" [ 1 2 1 ]"
            " \"coneangle\" [ 0.523599 ] \"conedeltaangle\" [ 0.1309 ] "
            "\"beamdistribution\" [ 5 ]\n"
            " \"string shadowname\" \"raytrace\" \"color shadowcolor\" [0.2 0.4 1]"
            " \"float shadowsamples\" [16] \"float shadowblur\" [0.25]\n"
            " \"float __nonspecular\" [0] \"float __nondiffuse\" [1]\n"
            " \"float __channel\" [7]\n");
}

TEST_F(PointLights, APointLight) {
  EXPECT_EQ(RibOf(WithStrings(LightOf(Style::world_point), {{"OrvLightIntensity", "0.5"},
                                                            {"OrvLightFalloff", "1"},
                                                            {"OrvLightEmitSpecular", "No"}})),
            std::string("LightSource \"pointlight\" 1 \"lightcolor\" [ 1 0.4 0.2 ] "
                        "\"from\" [ 1 2 3 ] \"float falloff\" [1] \"float intensity\" [0.5]\n") +
                kShadow +
                " \"float __nonspecular\" [1] \"float __nondiffuse\" [0]\n"
                " \"float __channel\" [1]\n");
}

TEST_F(PointLights, ADirectionalLight) {
  EXPECT_EQ(RibOf(WithStrings(LightOf(Style::world_directional), {{"OrvLightIntensity", "3"}})),
            std::string("LightSource \"distantlight\" 1 \"lightcolor\" [ 1 0.4 0.2 ] "
                        "\"from\" [ 1 2 3 ] \"to\" [ 1 2 1 ] \"float intensity\" [3]\n") +
                kShadow + kComponents);
}

TEST_F(PointLights, WithoutShadowSamplesThereIsNoShadow) {
  const std::string heads[] = {
      "LightSource \"spotlight\" 1 \"intensity\" [ 1 ] \"lightcolor\" [ 1 0.4 0.2 ] "
      "\"float falloff\" [0] \"from\" [ 1 2 3 ] \"to\" [ 1 2 1 ] \"coneangle\" [ 0.523599 ] "
      "\"conedeltaangle\" [ 0.1309 ] \"beamdistribution\" [ 5 ]\n",
      "LightSource \"pointlight\" 1 \"lightcolor\" [ 1 0.4 0.2 ] \"from\" [ 1 2 3 ] "
      "\"float falloff\" [0] \"float intensity\" [1]\n",
      "LightSource \"distantlight\" 1 \"lightcolor\" [ 1 0.4 0.2 ] \"from\" [ 1 2 3 ] "
      "\"to\" [ 1 2 1 ] \"float intensity\" [1]\n"};
  const Style styles[] = {Style::world_spot, Style::world_point, Style::world_directional};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(RibOf(WithStrings(LightOf(styles[i]), {{"OrvShadowSamples", "0"}})),
              heads[i] + kComponents);
    EXPECT_FALSE(lighting_.ShadowUsed);
  }
}

TEST_F(PointLights, ASpotOfTheCameraIsASpot) {
  EXPECT_TRUE(RibOf(LightOf(Style::camera_spot)).starts_with("LightSource \"spotlight\" 1 "));
}

TEST_F(PointLights, InASessionTheyHaveTheirSerialNumbers) {
  const Style styles[] = {Style::world_spot, Style::world_point, Style::world_directional};
  const char* const shaders[] = {"spotlight", "pointlight", "distantlight"};
  for (int i = 0; i < 3; ++i) {
    const std::string rib = InteractiveRibOf(LightOf(styles[i]));
    EXPECT_TRUE(
        rib.starts_with(std::string("LightSource \"") + shaders[i] + "\" " + Serial() + " "))
        << rib;
  }
}

}  // namespace
