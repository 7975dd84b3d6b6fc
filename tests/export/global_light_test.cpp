#include "export/global_light.h"

#include <gtest/gtest.h>

#include "rib_fragment.h"

namespace {

class GlobalLight : public testing::Test {
 protected:
  GlobalLight() {
    settings_.RhinoGamma = 2;
    settings_.GiBgColor = {255, 128, 0};
    settings_.GiOccShadow = {0, 0, 128};
    settings_.GiBgMap = "C:\\maps\\a \"sky\".tif";
  }

  std::string Rib(const orv::IprSettings* iprSettings = nullptr) {
    lighting_ = {};
    return WrittenRib([&](orv::RibWriter& writer) {
      orv::WriteGlobalLight(writer, settings_, iprSettings, lighting_);
    });
  }
  std::string InteractiveRib() {
    const orv::IprSettings iprSettings;
    return Rib(&iprSettings);
  }

  orv::RenderSettings settings_;
  orv::Lighting lighting_;
};

TEST_F(GlobalLight, IsNoneWithoutGlobalIllumination) {
  settings_.GiMode = 0;
  EXPECT_EQ(Rib(), "");
  EXPECT_EQ(InteractiveRib(), "");
  EXPECT_EQ(lighting_.LightCount, 0);
  EXPECT_FALSE(lighting_.ShadowUsed);
}

TEST_F(GlobalLight, AmbientColorIsNoLightThatCounts) {
  settings_.GiMode = 1;
  EXPECT_EQ(Rib(),
            "LightSource \"ambientlight\" 0 \"intensity\" [ 0.5 ] "
            "\"lightcolor\" [ 1 0.25098 0 ]\n");
  EXPECT_EQ(lighting_.LightCount, 0);
  EXPECT_FALSE(lighting_.ShadowUsed);
}

TEST_F(GlobalLight, DarkAmbientColorIsNotWritten) {
  settings_.GiMode = 1;
  settings_.GiBgColorIntensity = 0;
  EXPECT_EQ(Rib(), "");
  settings_.GiBgColorIntensity = 1;
  settings_.GiBgColor = {0, 0, 0};
  EXPECT_EQ(Rib(), "");
  // (5 / 255) squared is nearer to 0 than to the first of 255 steps.
  settings_.GiBgColor = {5, 5, 5};
  EXPECT_EQ(Rib(), "");
  EXPECT_EQ(lighting_.LightCount, 0);
}

TEST_F(GlobalLight, AmbientLightOfAMap) {
  settings_.GiMode = 1;
  settings_.GiBgMode = 1;
  settings_.GiBgMapIntensity = 1.5;
  settings_.GiBgBlur = 0.25;
  const std::string start =
      "LightSource \"envlight\" 0 \"float __channel\" [0]"
      " \"float intensity\" [1.5] \"string mapname\" [\"\"]"
      " \"float envblur\" [0.25] \"string envspace\" \"gispace\"\n";
  EXPECT_EQ(Rib(), start + " \"string envname\" \"C:/maps/a \\\"sky\\\".tif\"\n");
  EXPECT_EQ(lighting_.LightCount, 1);
  EXPECT_FALSE(lighting_.ShadowUsed);
  settings_.GiBgMap = "";
  EXPECT_EQ(Rib(), start);
  EXPECT_EQ(lighting_.LightCount, 1);
}

TEST_F(GlobalLight, InASessionAmbientLightIsAlwaysThere) {
  settings_.GiMode = 1;
  for (const int bgMode : {0, 1}) {
    settings_.GiBgMode = bgMode;
    EXPECT_EQ(InteractiveRib(),
              "LightSource \"envlight\" 0 \"string mapname\" [\"\"] \"intensity\" [ 0.5 ] "
              "\"lightcolor\" [ 1 0.25098 0 ]\n");
    EXPECT_EQ(lighting_.LightCount, 1);
    EXPECT_FALSE(lighting_.ShadowUsed);
  }
  settings_.GiBgColor = {0, 0, 0};
  settings_.GiBgColorIntensity = 0;
  EXPECT_EQ(InteractiveRib(),
            "LightSource \"envlight\" 0 \"string mapname\" [\"\"] \"intensity\" [ 0 ] "
            "\"lightcolor\" [ 0 0 0 ]\n");
}

TEST_F(GlobalLight, IndirectLight) {
  settings_.GiMode = 2;
  settings_.GiSamples = 128;
  settings_.GiHitDist = 2500;
  settings_.GiPixelDist = 12.5;
  settings_.GiIndirectIntensity = 1.25;
  const std::string expected =
      "LightSource \"indirect\" 0\n"
      "Attribute \"visibility\" \"integer indirect\" 1\n"
      "Attribute \"indirect\" \"integer nsamples\" 128\n"
      "Attribute \"indirect\" \"float maxhitdist\" 2500\n"
      "Attribute \"indirect\" \"float maxpixeldist\" 12.5\n"
      "Attribute \"indirect\" \"float maxerror\" 0\n"
      "Attribute \"indirect\" \"string shading\" \"matte\"\n"
      "Attribute \"indirect\" \"float strength\" [1.25]\n";
  EXPECT_EQ(Rib(), expected);
  EXPECT_EQ(lighting_.LightCount, 1);
  EXPECT_FALSE(lighting_.ShadowUsed);
  EXPECT_EQ(InteractiveRib(), expected);
}

TEST_F(GlobalLight, IndirectLightWithACache) {
  settings_.GiMode = 3;
  settings_.GiAdaptive = true;
  settings_.GiMaxError = 0.35;
  settings_.GiShadeMode = 2;
  EXPECT_EQ(Rib(),
            "LightSource \"indirect\" 0\n"
            "Attribute \"visibility\" \"integer indirect\" 1\n"
            "Attribute \"indirect\" \"integer nsamples\" 256\n"
            "Attribute \"indirect\" \"float maxhitdist\" 100000\n"
            "Attribute \"indirect\" \"integer adaptivesampling\" 1\n"
            "Attribute \"indirect\" \"float maxpixeldist\" 20\n"
            "Attribute \"indirect\" \"float maxerror\" 0.35\n"
            "Attribute \"indirect\" \"string shading\" \"shader\"\n"
            "Attribute \"indirect\" \"float strength\" [1]\n");
  EXPECT_EQ(lighting_.LightCount, 1);
}

TEST_F(GlobalLight, EachWayOfIndirectShading) {
  settings_.GiMode = 2;
  const char* const words[] = {"constant", "matte", "shader"};
  for (int mode = 0; mode <= 2; ++mode) {
    settings_.GiShadeMode = mode;
    const std::string line =
        std::string("\nAttribute \"indirect\" \"string shading\" \"") + words[mode] + "\"\n";
    EXPECT_NE(Rib().find(line), std::string::npos) << line;
  }
}

TEST_F(GlobalLight, IndirectLightHasAChannelWhenLightChannelsBounce) {
  settings_.GiMode = 2;
  settings_.BounceChannels = true;
  settings_.UseExtraChannels = true;
  settings_.ExtraChannels = "Lights";
  EXPECT_TRUE(
      Rib().starts_with("LightSource \"indirectchannels\" 0 \"float __bgchannel\" [0]\nAttribute"));
  settings_.BounceChannels = false;
  EXPECT_TRUE(Rib().starts_with("LightSource \"indirect\" 0\n"));
  settings_.BounceChannels = true;
  settings_.UseExtraChannels = false;
  EXPECT_TRUE(Rib().starts_with("LightSource \"indirect\" 0\n"));
  settings_.UseExtraChannels = true;
  settings_.ExtraChannels = "Diffuse";
  EXPECT_TRUE(Rib().starts_with("LightSource \"indirect\" 0\n"));
}

TEST_F(GlobalLight, OcclusionUnderAColor) {
  settings_.GiMode = 4;
  const std::string expected =
      "LightSource \"envlight\" 0 \"float __channel\" [0]"
      " \"float intensity\" [0.5] \"color lightcolor\" [1 0.25098 0]"
      " \"color shadowcolor\" [0 0 0.25098]\n"
      "Attribute \"indirect\" \"integer nsamples\" 256\n"
      "Attribute \"indirect\" \"float maxhitdist\" 100000\n"
      "Attribute \"indirect\" \"float maxpixeldist\" 20\n"
      "Attribute \"indirect\" \"float maxerror\" 0\n";
  EXPECT_EQ(Rib(), expected);
  EXPECT_EQ(lighting_.LightCount, 1);
  EXPECT_TRUE(lighting_.ShadowUsed);
  EXPECT_EQ(InteractiveRib(), expected);
}

TEST_F(GlobalLight, OcclusionUnderAMapWithACache) {
  settings_.GiMode = 5;
  settings_.GiBgMode = 1;
  settings_.GiBgMapIntensity = 1.5;
  settings_.GiBgBlur = 0.25;
  settings_.GiAdaptive = true;
  const std::string start =
      "LightSource \"envlight\" 0 \"float __channel\" [0]"
      " \"float intensity\" [1.5] \"float envblur\" [0.25] \"string envspace\" \"gispace\"\n";
  const std::string end =
      " \"color shadowcolor\" [0 0 0.25098]\n"
      "Attribute \"indirect\" \"integer nsamples\" 256\n"
      "Attribute \"indirect\" \"float maxhitdist\" 100000\n"
      "Attribute \"indirect\" \"integer adaptivesampling\" 1\n"
      "Attribute \"indirect\" \"float maxpixeldist\" 20\n"
      "Attribute \"indirect\" \"float maxerror\" 0.2\n";
  EXPECT_EQ(Rib(), start + " \"string envname\" \"C:/maps/a \\\"sky\\\".tif\"\n" + end);
  EXPECT_EQ(lighting_.LightCount, 1);
  EXPECT_TRUE(lighting_.ShadowUsed);
  settings_.GiBgMap = "";
  EXPECT_EQ(Rib(), start + end);
}

}  // namespace
