#include "export/linear_light.h"

#include "light_fixture.h"

namespace {

constexpr const char* kEnd =
    "  Surface \"constant\"\n"
    "  Attribute \"visibility\" \"integer indirect\" 0\n"
    "  Attribute \"visibility\" \"integer transmission\" 0\n"
    "  Attribute \"visibility\" \"integer camera\" 0\n"
    "  Curves \"linear\" [2] \"nonperiodic\" \"P\" [0 0 0  1 0 0]\n"
    "AttributeEnd\n";

class LinearLight : public LightTest {
 protected:
  ONX_ModelLight light_ = LightOf(ON_LightStyle::world_linear);
};

TEST_F(LinearLight, WithAShadow) {
  EXPECT_EQ(RibOf(WithStrings(light_, {{"OrvLightIntensity", "2.5"},
                                       {"OrvLightFalloff", "2"},
                                       {"OrvShadowColor", "0.2,0.4,1"},
                                       {"OrvShadowSamples", "16"},
                                       {"OrvLightChannel", "7"},
                                       {"OrvLightEmitSpecular", "No"},
                                       {"OrvLightEmitDiffuse", "No"}})),
            std::string("AttributeBegin\n"
                        "  ConcatTransform [ 4 0 0 0.0 1 1 1 0.0 1 1 1 0.0 1 2 3 1.0 ]\n"
                        "  Attribute \"light\" \"nsamples\" [16]\n"
                        "  AreaLightSource \"arealight\" 1 \"color lightcolor\" [ 1 0.4 0.2 ] "
                        "\"float intensity\" [2.5] \"float falloff\" [2]\n"
                        "   \"string shadowname\" \"raytrace\" "
                        "\"color shadowcolor\" [0.2 0.4 1]\n"
                        "   \"float __nonspecular\" [1] \"float __nondiffuse\" [1]\n"
                        "   \"float __channel\" [7]\n") +
                kEnd);
}

TEST_F(LinearLight, WithoutAShadow) {
  EXPECT_EQ(RibOf(WithStrings(light_, {{"OrvShadowSamples", "0"}})),
            std::string("AttributeBegin\n"
                        "  ConcatTransform [ 4 0 0 0.0 1 1 1 0.0 1 1 1 0.0 1 2 3 1.0 ]\n"
                        "  Attribute \"light\" \"nsamples\" [0]\n"
                        "  AreaLightSource \"arealight\" 1 \"color lightcolor\" [ 1 0.4 0.2 ] "
                        "\"float intensity\" [1] \"float falloff\" [0]\n"
                        "   \"string shadowname\" \"\"\n"
                        "   \"float __nonspecular\" [0] \"float __nondiffuse\" [0]\n"
                        "   \"float __channel\" [1]\n") +
                kEnd);
}

TEST_F(LinearLight, InASessionItIsTheSame) {
  const std::string rib = InteractiveRibOf(light_);
  EXPECT_NE(rib.find("  AreaLightSource \"arealight\" " + Serial() + " "), std::string::npos)
      << rib;
  EXPECT_TRUE(rib.ends_with(kEnd)) << rib;
}

}  // namespace
