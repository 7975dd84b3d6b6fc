#include "export/gi_options.h"

#include <gtest/gtest.h>

#include "rib_fragment.h"

namespace {

constexpr const char* kSpace =
    "TransformBegin\n"
    "  Rotate 0 1 0 0\n"
    "  Rotate 0 0 1 0\n"
    "  Rotate 0 0 0 1\n"
    "  CoordinateSystem \"gispace\"\n"
    "TransformEnd\n";
constexpr const char* kColor =
    "Option \"indirect\" \"integer maxbounce\" [1]\n"
    "Option \"indirect\" \"color background\" [0.5 0.5 0.5]\n";

class GiOptions : public testing::Test {
 protected:
  // Behind the space.
  std::string Rest() {
    const std::string rib =
        WrittenRib([this](orv::RibWriter& writer) { orv::WriteGiOptions(writer, settings_); });
    EXPECT_TRUE(rib.starts_with(kSpace)) << rib;
    return rib.substr(std::string_view(kSpace).size());
  }

  orv::RenderSettings settings_;
};

TEST_F(GiOptions, TheSpaceIsTurnedAboutThreeAxes) {
  settings_.GiBgRotateX = 10;
  settings_.GiBgRotateY = -20.5;
  settings_.GiBgRotateZ = 30;
  EXPECT_EQ(WrittenRib([this](orv::RibWriter& writer) { orv::WriteGiOptions(writer, settings_); }),
            "TransformBegin\n"
            "  Rotate 10 1 0 0\n"
            "  Rotate -20.5 0 1 0\n"
            "  Rotate 30 0 0 1\n"
            "  CoordinateSystem \"gispace\"\n"
            "TransformEnd\n");
}

TEST_F(GiOptions, OffAmbientAndPlainOcclusionHaveOnlyTheSpace) {
  settings_.GiReadCache = true;
  settings_.GiWriteCache = true;
  for (const int mode : {0, 1, 4}) {
    settings_.GiMode = mode;
    EXPECT_EQ(Rest(), "") << mode;
  }
}

TEST_F(GiOptions, IndirectLightTakesTheColorAsItIsTimesItsIntensity) {
  settings_.GiMode = 2;
  settings_.GiMaxBounce = 3;
  settings_.RhinoGamma = 2;
  settings_.GiBgColor = {51, 102, 255};
  settings_.GiBgColorIntensity = 2;
  settings_.GiReadCache = true;
  settings_.GiWriteCache = true;
  EXPECT_EQ(Rest(),
            "Option \"indirect\" \"integer maxbounce\" [3]\n"
            "Option \"indirect\" \"color background\" [0.4 0.8 2]\n");
}

TEST_F(GiOptions, IndirectLightTakesTheMapAsItIs) {
  settings_.GiMode = 2;
  settings_.GiBgMode = 1;
  settings_.GiBgMap = "C:\\maps\\a \"sky\".tif";
  settings_.GiBgMapIntensity = 0.75;
  settings_.GiBgBlur = 0.125;
  EXPECT_EQ(Rest(),
            "Option \"indirect\" \"integer maxbounce\" [1]\n"
            "Option \"indirect\" \"float envstrength\" [0.75]\n"
            "Option \"indirect\" \"float envblur\" [0.125]\n"
            "Option \"indirect\" \"string envspace\" [\"gispace\"]\n"
            "Option \"indirect\" \"string envname\" \"C:/maps/a \\\"sky\\\".tif\"\n");
}

TEST_F(GiOptions, AMapWithoutANameIsNoSurrounding) {
  settings_.GiMode = 2;
  settings_.GiBgMode = 1;
  EXPECT_EQ(Rest(), "Option \"indirect\" \"integer maxbounce\" [1]\n");
}

TEST_F(GiOptions, ACacheOfIndirectLight) {
  settings_.GiMode = 3;
  EXPECT_EQ(Rest(), std::string(kColor) + "Option \"indirect\" \"integer prepass\" [1]\n");
  settings_.GiReadCache = true;
  EXPECT_EQ(Rest(), std::string(kColor) +
                        "Option \"indirect\" \"integer prepass\" [1]\n"
                        "Option \"indirect\" \"string seedfile\" \"OrvGiCache.opc\"\n");
  settings_.GiWriteCache = true;
  settings_.GiCacheName = "C:\\gi\\it.opc";
  EXPECT_EQ(Rest(), std::string(kColor) +
                        "Option \"indirect\" \"integer prepass\" [1]\n"
                        "Option \"indirect\" \"string seedfile\" \"C:/gi/it.opc\"\n"
                        "Option \"indirect\" \"string savefile\" \"C:/gi/it.opc\"\n");
}

TEST_F(GiOptions, ACacheHasTheLightChannelsWhenTheyBounce) {
  settings_.GiMode = 3;
  settings_.BounceChannels = true;
  settings_.UseExtraChannels = true;
  settings_.ExtraChannels = "Diffuse Lights";
  EXPECT_EQ(Rest(), std::string(kColor) +
                        "Option \"indirect\" \"integer prepass\" [1]\n"
                        "Option \"indirect\" \"string prepasschannels\" \"__lights\"\n");
}

TEST_F(GiOptions, ACacheHasNoLightChannelsOtherwise) {
  const std::string without = std::string(kColor) + "Option \"indirect\" \"integer prepass\" [1]\n";
  settings_.GiMode = 3;
  settings_.UseExtraChannels = true;
  settings_.ExtraChannels = "Lights";
  EXPECT_EQ(Rest(), without);
  settings_.BounceChannels = true;
  settings_.UseExtraChannels = false;
  EXPECT_EQ(Rest(), without);
  settings_.UseExtraChannels = true;
  settings_.ExtraChannels = "lights";
  EXPECT_EQ(Rest(), without);
}

TEST_F(GiOptions, ACacheOfOcclusion) {
  settings_.GiMode = 5;
  EXPECT_EQ(Rest(), "Option \"occlusion\" \"integer prepass\" [1]\n");
  settings_.GiReadCache = true;
  settings_.GiWriteCache = true;
  settings_.GiCacheName = "gi\\it.opc";
  EXPECT_EQ(Rest(),
            "Option \"occlusion\" \"integer prepass\" [1]\n"
            "Option \"occlusion\" \"string seedfile\" \"gi/it.opc\"\n"
            "Option \"occlusion\" \"string savefile\" \"gi/it.opc\"\n");
}

}  // namespace
