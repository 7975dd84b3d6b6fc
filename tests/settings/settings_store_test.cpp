#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include "settings/settings_file.h"
#include "support/scoped_environment.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

ON_UserStringList List(std::initializer_list<ON_UserString> entries) {
  ON_UserStringList list;
  list.m_e = entries;
  return list;
}

RenderSettings Load(std::initializer_list<ON_UserString> entries) {
  return LoadRenderSettings(List(entries), UserValues{});
}

TEST(RenderSettingsStore, BackgroundModeIsHeldToItsChoices) {
  EXPECT_EQ(Load({{"GiBgMode", "7"}}).GiBgMode, 1);
  EXPECT_EQ(Load({{"GiBgMode", "-1"}}).GiBgMode, 0);
}

TEST(RenderSettingsStore, ImageWidthOfZeroStays) {
  EXPECT_EQ(Load({{"ImageWidth", "40000"}}).ImageWidth, 32000);
  EXPECT_EQ(Load({{"ImageWidth", "0"}}).ImageWidth, 0);
}

TEST(RenderSettingsStore, FlagIsFalseOnlyForZero) {
  EXPECT_TRUE(Load({{"GiReadCache", "no"}}).GiReadCache);
  EXPECT_TRUE(Load({{"GiReadCache", ""}}).GiReadCache);
  EXPECT_FALSE(Load({{"OrvShow", "0"}}).OrvShow);
}

TEST(RenderSettingsStore, GammaOfZeroIsHeld) {
  EXPECT_EQ(Load({{"RhinoGamma", "0"}}).RhinoGamma, 0.1);
}

TEST(RenderSettingsStore, DefaultGammaIsRoundedByStoring) {
  ON_UserStringList list;
  UserValues user;
  StoreRenderSettings(RenderSettings{}, list, user);
  EXPECT_EQ(list.GetUserString("RibGamma"), "1.8");
  EXPECT_EQ(LoadRenderSettings(list, user).RibGamma, 1.8);
}

TEST(RenderSettingsStore, ColourWithAMissingCommaKeepsTheDefault) {
  EXPECT_EQ(Load({{"GiOccShadow", "0.5,0.5"}}).GiOccShadow, ON_Color(0, 0, 0));
  EXPECT_EQ(Load({{"ImageBgColor", "1"}}).ImageBgColor, ON_Color(160, 160, 160));
}

TEST(RenderSettingsStore, NonNumericSampleCountIsTheLowerBound) {
  EXPECT_EQ(Load({{"PixelSamples", "x"}}).PixelSamples, 1);
}

TEST(RenderSettingsStore, PhotonPassFollowsCaustics) {
  EXPECT_FALSE(Load({}).CausticPhotonPass);
  EXPECT_TRUE(Load({{"CausticsEnable", "1"}}).CausticPhotonPass);
  EXPECT_FALSE(Load({{"CausticsEnable", "1"}, {"CausticCacheMode", "1"}}).CausticPhotonPass);
  EXPECT_TRUE(Load({{"CausticsEnable", "1"}, {"CausticCacheMode", "2"}}).CausticPhotonPass);
  EXPECT_FALSE(Load({{"CausticsEnable", "0"}, {"CausticCacheMode", "2"}}).CausticPhotonPass);
}

TEST(RenderSettingsStore, LoadingTakesTheUsersValues) {
  UserValues user;
  user.Threads = 6;
  user.Gyre = true;
  user.ConvertTextures = false;
  user.IlluminanceUnity = 250;
  const RenderSettings settings = LoadRenderSettings({}, user);
  EXPECT_EQ(settings.Threads, 6);
  EXPECT_TRUE(settings.Gyre);
  EXPECT_FALSE(settings.ConvertTextures);
  EXPECT_EQ(settings.IlluminanceUnity, 250);
}

TEST(RenderSettingsStore, UsersValuesAreNoDocumentKeys) {
  const RenderSettings settings =
      Load({{"Threads", "5"}, {"Gyre", "1"}, {"ConvertTextures", "0"}, {"IlluminanceUnity", "2"}});
  EXPECT_EQ(settings.Threads, 1);
  EXPECT_FALSE(settings.Gyre);
  EXPECT_TRUE(settings.ConvertTextures);
  EXPECT_EQ(settings.IlluminanceUnity, 500);
}

TEST(RenderSettingsStore, StoringSetsTheUsersValuesButNotTheIlluminanceUnity) {
  RenderSettings settings;
  settings.Threads = 3;
  settings.Gyre = true;
  settings.ConvertTextures = false;
  settings.IlluminanceUnity = 1;
  ON_UserStringList list;
  UserValues user;
  StoreRenderSettings(settings, list, user);
  EXPECT_EQ(user.Threads, 3);
  EXPECT_TRUE(user.Gyre);
  EXPECT_FALSE(user.ConvertTextures);
  EXPECT_EQ(user.IlluminanceUnity, 500);
  for (const char* key : {"Threads", "Gyre", "ConvertTextures", "IlluminanceUnity"}) {
    EXPECT_EQ(list.GetUserString(key), std::nullopt) << key;
  }
}

TEST(RenderSettingsStore, StoringKeepsOtherKeysAndTheirPlaces) {
  ON_UserStringList list = List({{"IprShadeMode", "2"}, {"TraceBias", "3"}, {"Mine", "x"}});
  UserValues user;
  StoreRenderSettings(RenderSettings{}, list, user);
  ASSERT_EQ(list.m_e.size(), RenderSettingFields().size() + 2);
  EXPECT_EQ(list.m_e[0], (ON_UserString{"IprShadeMode", "2"}));
  EXPECT_EQ(list.m_e[1], (ON_UserString{"TraceBias", "0.01"}));
  EXPECT_EQ(list.m_e[2], (ON_UserString{"Mine", "x"}));
  EXPECT_EQ(list.m_e[3], (ON_UserString{"PixelSamples", "4"}));
}

// The golden file is a settings file of a fresh record: all keys with their defaults in the order
// in which they are stored.
TEST(RenderSettingsStore, FreshListHoldsAllKeysInTheirOrder) {
  const ScopedEnvironment temp("TEMP", "C:\\Temp");
  ON_UserStringList list;
  UserValues user;
  StoreRenderSettings(RenderSettings{}, list, user);
  EXPECT_EQ(TextFromSettings(list), FileContent(ORV_TEST_FOLDER "/golden/default.ors"));
}

TEST(RenderSettingsStore, EveryRowIsFoundByItsField) {
  for (const auto& field : RenderSettingFields()) {
    EXPECT_EQ(&RenderSettingFieldOf(field.Field), &field);
  }
}

TEST(StoredRhinoGamma, IsOneWithoutTheKey) {
  EXPECT_EQ(StoredRhinoGamma({}), 1.0F);
}

TEST(StoredRhinoGamma, IsHeldAndOfSinglePrecision) {
  EXPECT_EQ(StoredRhinoGamma(List({{"RhinoGamma", "2.2"}})), 2.2F);
  EXPECT_EQ(StoredRhinoGamma(List({{"RhinoGamma", "0"}})), 0.1F);
  EXPECT_EQ(StoredRhinoGamma(List({{"RhinoGamma", "99"}})), 10.0F);
  EXPECT_EQ(StoredRhinoGamma(List({{"RhinoGamma", "x"}})), 0.1F);
}

TEST(IprSettingsStore, ImageWidthIsHeld) {
  EXPECT_EQ(LoadIprSettings(List({{"IprImageWidth", "5000"}}), {}).IprImageWidth, 2048);
  EXPECT_EQ(LoadIprSettings(List({{"IprImageHeight", "0"}}), {}).IprImageHeight, 0);
}

TEST(IprSettingsStore, ThreadsAreTheUsers) {
  UserValues user;
  user.IprThreads = 5;
  IprSettings settings = LoadIprSettings(List({{"IprThreads", "3"}}), user);
  EXPECT_EQ(settings.IprThreads, 5);
  settings.IprThreads = 2;
  ON_UserStringList list;
  StoreIprSettings(settings, list, user);
  EXPECT_EQ(user.IprThreads, 2);
  EXPECT_EQ(list.GetUserString("IprThreads"), std::nullopt);
}

TEST(IprSettingsStore, FreshListHoldsAllKeysInTheirOrder) {
  ON_UserStringList list;
  UserValues user;
  StoreIprSettings(IprSettings{}, list, user);
  EXPECT_EQ(TextFromSettings(list),
            "IprImageWidth=400\nIprImageHeight=300\nIprMaxShadowRays=1\nIprMaxReflectionRays=1\n"
            "IprViewName=Current\nIprAutoReflect=1\nIprSmoothEdges=0\nIprShadeMode=1\n"
            "IprLowPriority=0\nIprForceMesh=1\n");
}

TEST(BakeSettingsStore, ImageWidthIsHeld) {
  EXPECT_EQ(LoadBakeSettings(List({{"BakeImageWidth", "4"}})).BakeImageWidth, 8);
}

TEST(BakeSettingsStore, ShadingSamplesOfZeroAreHeld) {
  EXPECT_EQ(LoadBakeSettings(List({{"BakeShadingSamples", "0"}})).BakeShadingSamples, 0.01);
}

TEST(BakeSettingsStore, NoMapWithTheFirstOneOff) {
  const BakeSettings settings = LoadBakeSettings(List({{"BakeUseMap1", "0"}}));
  EXPECT_FALSE(settings.BakeUseMap1 || settings.BakeUseMap2 || settings.BakeUseMap3 ||
               settings.BakeUseMap4 || settings.BakeUseMap5);
}

TEST(BakeSettingsStore, FreshListHoldsAllKeysInTheirOrder) {
  const ScopedEnvironment temp("TEMP", "C:\\Temp");
  ON_UserStringList list;
  StoreBakeSettings(BakeSettings{}, list);
  EXPECT_EQ(TextFromSettings(list),
            "BakeImageWidth=256\nBakeImageHeight=256\nBakeImageName=C:\\Temp\\baked.png\n"
            "BakeDisplayChannels=rgb\nBakeDisplayChannels2=\nBakeDisplayChannels3=\n"
            "BakeDisplayChannels4=\nBakeDisplayChannels5=\nBakeSuffix2=_2\nBakeSuffix3=_3\n"
            "BakeSuffix4=_4\nBakeSuffix5=_5\nBakeUseMap1=1\nBakeUseMap2=0\nBakeUseMap3=0\n"
            "BakeUseMap4=0\nBakeUseMap5=0\nBakeTexelSize=0.1\nBakeEdgeLength=0\n"
            "BakeBorderWrap=1\nBakeSharpFilter=0\nBakeBorder=1\nBakeShadingSamples=1\n"
            "BakePixelSamples=4\nBakeGamma=1.8\nBakePrecision=0\nBakeMeshMode=0\n"
            "BakeNormals=1\nBakeTexCoords=1\n");
}

}  // namespace
}  // namespace orv
