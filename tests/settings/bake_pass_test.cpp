#include "settings/bake_pass.h"

#include <gtest/gtest.h>

#include <limits>

#include "settings/settings_store.h"

namespace orv {
namespace {

// What a bake pass gets from a document with these settings.
RenderSettings PassWith(std::vector<ON_UserString> entries) {
  ON_UserStringList list;
  list.m_e = std::move(entries);
  RenderSettings settings;
  CopyBakeSettings(LoadBakeSettings(list), settings);
  return settings;
}

int ShadingSamplesOf(double samples) {
  BakeSettings bake;
  bake.BakeShadingSamples = samples;
  RenderSettings settings;
  CopyBakeSettings(bake, settings);
  return settings.ShadingSamples;
}

TEST(BakePass, ImageComesFromTheBakeSettings) {
  const RenderSettings settings = PassWith({{"BakePixelSamples", "7"},
                                            {"BakeShadingSamples", "2.9"},
                                            {"BakeGamma", "2.2"},
                                            {"BakePrecision", "2"},
                                            {"BakeImageName", "C:\\ä\\map.png"},
                                            {"BakeImageWidth", "512"},
                                            {"BakeImageHeight", "64"},
                                            {"BakeSharpFilter", "1"}});
  EXPECT_EQ(settings.PixelSamples, 7);
  EXPECT_EQ(settings.ShadingSamples, 2);
  EXPECT_EQ(settings.RibGamma, 2.2);
  EXPECT_EQ(settings.ImagePrecision, 2);
  EXPECT_EQ(settings.ImageName, "C:\\ä\\map.png");
  EXPECT_EQ(settings.ImageWidth, 512);
  EXPECT_EQ(settings.ImageHeight, 64);
  EXPECT_TRUE(settings.SharpFilter);
}

TEST(BakePass, MapsComeFromTheBakeSettings) {
  const RenderSettings settings = PassWith({{"BakeDisplayChannels", "r"},
                                            {"BakeDisplayChannels2", "c2"},
                                            {"BakeDisplayChannels3", "c3"},
                                            {"BakeDisplayChannels4", "c4"},
                                            {"BakeDisplayChannels5", "c5"},
                                            {"BakeSuffix2", "s2"},
                                            {"BakeSuffix3", "s3"},
                                            {"BakeSuffix4", "s4"},
                                            {"BakeSuffix5", "s5"},
                                            {"BakeBorder", "3"},
                                            {"BakeBorderWrap", "0"},
                                            {"BakeTexelSize", "0.25"}});
  EXPECT_EQ(settings.DisplayMode, "r");
  EXPECT_EQ(settings.BakeDisplayChannels2, "c2");
  EXPECT_EQ(settings.BakeDisplayChannels3, "c3");
  EXPECT_EQ(settings.BakeDisplayChannels4, "c4");
  EXPECT_EQ(settings.BakeDisplayChannels5, "c5");
  EXPECT_EQ(settings.BakeSuffix2, "s2");
  EXPECT_EQ(settings.BakeSuffix3, "s3");
  EXPECT_EQ(settings.BakeSuffix4, "s4");
  EXPECT_EQ(settings.BakeSuffix5, "s5");
  EXPECT_EQ(settings.BakeBorder, 3);
  EXPECT_FALSE(settings.BakeBorderWrap);
  EXPECT_EQ(settings.BakeTexelSize, 0.25);
}

TEST(BakePass, EachMapIsSwitchedByItsOwnKey) {
  constexpr bool RenderSettings::*kSwitches[] = {
      &RenderSettings::BakeUseMap1, &RenderSettings::BakeUseMap2, &RenderSettings::BakeUseMap3,
      &RenderSettings::BakeUseMap4, &RenderSettings::BakeUseMap5};
  for (int wanted = 1; wanted <= 5; ++wanted) {
    std::vector<ON_UserString> entries;
    for (int map = 1; map <= 5; ++map) {
      entries.push_back({"BakeUseMap" + std::to_string(map), map == wanted ? "1" : "0"});
    }
    const RenderSettings settings = PassWith(entries);
    for (int map = 1; map <= 5; ++map) {
      EXPECT_EQ(settings.*kSwitches[map - 1], map == wanted) << wanted << ' ' << map;
    }
  }
}

TEST(BakePass, NoMapIsMadeWhenTheFirstIsOff) {
  const RenderSettings settings = PassWith({{"BakeUseMap1", "0"}});
  EXPECT_FALSE(settings.BakeUseMap1 || settings.BakeUseMap2 || settings.BakeUseMap3 ||
               settings.BakeUseMap4 || settings.BakeUseMap5);
}

TEST(BakePass, MeshComesFromTheBakeSettings) {
  const RenderSettings settings = PassWith({{"BakeEdgeLength", "1.5"},
                                            {"BakeMeshMode", "4"},
                                            {"BakeNormals", "0"},
                                            {"BakeTexCoords", "0"}});
  EXPECT_EQ(settings.BakeEdgeLength, 1.5);
  EXPECT_EQ(settings.BakeMeshMode, 4);
  EXPECT_FALSE(settings.BakeNormals);
  EXPECT_FALSE(settings.BakeTexCoords);
}

TEST(BakePass, DefaultsAreThoseOfBaking) {
  const RenderSettings settings = PassWith({});
  EXPECT_EQ(settings.RibGamma, 1.8);
  EXPECT_EQ(settings.DisplayMode, "rgb");
  EXPECT_EQ(settings.BakeSuffix2, "_2");
  EXPECT_EQ(settings.BakeSuffix5, "_5");
  EXPECT_TRUE(settings.BakeBorderWrap);
  EXPECT_EQ(settings.ImageWidth, 256);
}

TEST(BakePass, ShadingSamplesAreCutToAWholeNumber) {
  EXPECT_EQ(PassWith({{"BakeShadingSamples", "0"}}).ShadingSamples, 0);
  EXPECT_EQ(ShadingSamplesOf(0.01), 0);
  EXPECT_EQ(ShadingSamplesOf(0.99), 0);
  EXPECT_EQ(ShadingSamplesOf(1), 1);
  EXPECT_EQ(ShadingSamplesOf(255.9), 255);
}

// A record may hold any number until it is stored and loaded again.
TEST(BakePass, ShadingSamplesOutOfRangeAreHeld) {
  EXPECT_EQ(ShadingSamplesOf(-3), 0);
  EXPECT_EQ(ShadingSamplesOf(1e300), std::numeric_limits<int>::max());
  EXPECT_EQ(ShadingSamplesOf(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(BakePass, OtherFieldsStay) {
  RenderSettings settings;
  settings.GiMode = 3;
  settings.BakeMesh = true;
  settings.ViewName = "Front";
  CopyBakeSettings({}, settings);
  EXPECT_EQ(settings.GiMode, 3);
  EXPECT_TRUE(settings.BakeMesh);
  EXPECT_FALSE(settings.BakeEnable);
  EXPECT_EQ(settings.ViewName, "Front");
}

}  // namespace
}  // namespace orv
