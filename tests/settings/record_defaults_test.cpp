#include <gtest/gtest.h>

#include "settings/bake_settings.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"
#include "support/scoped_environment.h"

namespace orv {
namespace {

TEST(RecordDefaults, GammaIsASinglePrecisionValue) {
  const RenderSettings settings;
  EXPECT_EQ(settings.RibGamma, 1.7999999523162842);
  EXPECT_EQ(settings.RhinoGamma, 1.7999999523162842);
  EXPECT_EQ(settings.TextureGamma, 1.7999999523162842);
  EXPECT_EQ(BakeSettings{}.BakeGamma, 1.8);
}

TEST(RecordDefaults, SceneFileLiesInTheTempFolder) {
  const ScopedEnvironment temp("TEMP", "/tmp/mein Ordner/ä");
  EXPECT_EQ(RenderSettings{}.RibName, "/tmp/mein Ordner/ä\\RhinoOrv.rib");
  EXPECT_EQ(BakeSettings{}.BakeImageName, "/tmp/mein Ordner/ä\\baked.png");
}

TEST(RecordDefaults, SceneFileLiesInTheRootWithoutTemp) {
  const ScopedEnvironment temp("TEMP", std::nullopt);
  EXPECT_EQ(RenderSettings{}.RibName, "\\RhinoOrv.rib");
  EXPECT_EQ(BakeSettings{}.BakeImageName, "baked.png");
}

TEST(RecordDefaults, FieldsThatAreNotKeptInTheDocument) {
  const RenderSettings settings;
  EXPECT_EQ(settings.Threads, 1);
  EXPECT_FALSE(settings.Gyre);
  EXPECT_TRUE(settings.ConvertTextures);
  EXPECT_EQ(settings.IlluminanceUnity, 500);
  EXPECT_TRUE(settings.WriteCamera);
  EXPECT_TRUE(settings.WriteDisplay);
  EXPECT_FALSE(settings.ArchiveOnly);
  EXPECT_TRUE(settings.WriteMaterials);
  EXPECT_EQ(settings.FrameNumber, -1);
  EXPECT_FALSE(settings.CausticPhotonPass);
  EXPECT_EQ(settings.FormatWidth, 1);
  EXPECT_EQ(settings.FormatHeight, 1);
  EXPECT_TRUE(settings.ViewportId.IsNil());
  EXPECT_EQ(settings.CameraMatrix, (std::array<double, 16>{}));
  EXPECT_EQ(settings.CameraFov, 0);
  EXPECT_EQ(IprSettings{}.IprThreads, 1);
}

TEST(RecordDefaults, BakePassOfTheRenderRecord) {
  const RenderSettings settings;
  EXPECT_FALSE(settings.BakeEnable);
  EXPECT_FALSE(settings.BakeBorderWrap);
  EXPECT_EQ(settings.BakeTexelSize, 0.1);
  EXPECT_EQ(settings.BakeBorder, 1);
  for (const std::string* text :
       {&settings.BakeDisplayChannels2, &settings.BakeDisplayChannels3,
        &settings.BakeDisplayChannels4, &settings.BakeDisplayChannels5, &settings.BakeSuffix2,
        &settings.BakeSuffix3, &settings.BakeSuffix4, &settings.BakeSuffix5}) {
    EXPECT_EQ(*text, "");
  }
  EXPECT_FALSE(settings.BakeUseMap1 || settings.BakeUseMap2 || settings.BakeUseMap3 ||
               settings.BakeUseMap4 || settings.BakeUseMap5);
  EXPECT_FALSE(settings.BakeMesh);
  EXPECT_EQ(settings.BakeMeshMode, 0);
  EXPECT_TRUE(settings.BakeNormals);
  EXPECT_TRUE(settings.BakeTexCoords);
  EXPECT_EQ(settings.BakeEdgeLength, 0);
}

}  // namespace
}  // namespace orv
