#include "export/sampling.h"

#include <gtest/gtest.h>

#include "export_fixture.h"

namespace {

using orv::RenderSettings;
using orv::RibWriter;

std::string Sampling(const RenderSettings& settings) {
  return Written([&](RibWriter& writer) { orv::WriteSampling(writer, settings); });
}

std::string Tiles(const RenderSettings& settings) {
  return Written([&](RibWriter& writer) { orv::WriteTiles(writer, settings); });
}

std::string PixelSamples(bool dofEnable, int pixelSamples, int dofSamples) {
  RenderSettings settings;
  settings.DofEnable = dofEnable;
  settings.PixelSamples = pixelSamples;
  settings.DofSamples = dofSamples;
  const std::string text = Sampling(settings);
  return text.substr(0, text.find('\n'));
}

TEST(Sampling, OfAllSwitches) {
  RenderSettings settings;
  settings.PixelSamples = 6;
  settings.ShadingSamples = 3;
  settings.Flatness = 0.1;
  settings.AbsoluteTolerance = true;
  settings.SharpFilter = true;
  EXPECT_EQ(Sampling(settings),
            "PixelSamples 6 6\n"
            "ShadingRate 0.333333\n"
            "GeometricApproximation \"flatness\" [0.1]\n"
            "Attribute \"render\" \"string flatnessspace\" \"object\"\n"
            "PixelFilter \"mitchell\" 4 4\n");
}

TEST(Sampling, DepthOfFieldRaisesThePixelSamples) {
  EXPECT_EQ(PixelSamples(true, 4, 64), "PixelSamples 8 8");
  EXPECT_EQ(PixelSamples(true, 4, 1024), "PixelSamples 32 32");
  EXPECT_EQ(PixelSamples(true, 4, 2000), "PixelSamples 32 32");
  EXPECT_EQ(PixelSamples(true, 1, 2), "PixelSamples 2 2");
  // The root of 20 is 4.47, that of 21 is 4.58.
  EXPECT_EQ(PixelSamples(true, 4, 20), "PixelSamples 4 4");
  EXPECT_EQ(PixelSamples(true, 4, 21), "PixelSamples 5 5");
}

TEST(Sampling, DepthOfFieldLeavesEnoughPixelSamples) {
  EXPECT_EQ(PixelSamples(true, 8, 64), "PixelSamples 8 8");
  EXPECT_EQ(PixelSamples(true, 50, 1024), "PixelSamples 50 50");
  EXPECT_EQ(PixelSamples(true, 100000, 1024), "PixelSamples 100000 100000");
  EXPECT_EQ(PixelSamples(false, 4, 64), "PixelSamples 4 4");
}

TEST(Sampling, TheExposuresGammaIsTheImages) {
  RenderSettings settings;
  settings.RibGamma = 2.2;
  EXPECT_EQ(Written([&](RibWriter& writer) { orv::WriteExposure(writer, settings); }),
            "Exposure 1 2.2\n");
}

TEST(Tiles, AnOrderOfRowsIsTheRenderersOwn) {
  RenderSettings settings;
  settings.TileSize = 64;
  EXPECT_EQ(Tiles(settings), "Option \"limits\" \"bucketsize\" [64 64]\n");
  settings.TileOrder = "Rows, but not columns";
  EXPECT_EQ(Tiles(settings), "Option \"limits\" \"bucketsize\" [64 64]\n");
}

TEST(Tiles, ColumnsAndSpiralAreWrittenInAnyCase) {
  RenderSettings settings;
  settings.TileOrder = "Columns";
  EXPECT_EQ(Tiles(settings),
            "Option \"limits\" \"bucketsize\" [32 32]\n"
            "Option \"render\" \"bucketorder\" [\"horizontal\"]\n");
  settings.TileOrder = "SPIRAL";
  EXPECT_EQ(Tiles(settings),
            "Option \"limits\" \"bucketsize\" [32 32]\n"
            "Option \"render\" \"bucketorder\" [\"spiral\"]\n");
}

TEST(Tiles, AnImageThatIsNotShownHasNoOrder) {
  RenderSettings settings;
  settings.OrvShow = false;
  settings.TileOrder = "Columns";
  EXPECT_EQ(Tiles(settings), "Option \"limits\" \"bucketsize\" [32 32]\n");
}

}  // namespace
