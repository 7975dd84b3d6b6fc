#include "export/background.h"

#include <gtest/gtest.h>

#include "host/system/path.h"
#include "rib_fragment.h"
#include "support/temp_folder.h"

namespace {

constexpr const char* kSpace =
    "TransformBegin\n"
    "  Rotate 0 0 0 1\n"
    "  CoordinateSystem \"bgspace\"\n"
    "TransformEnd\n";

class Background : public testing::Test {
 protected:
  Background() {
    settings_.RhinoGamma = 2;
    settings_.ConvertTextures = false;
    settings_.ImageBgIntensity = 1.5;
    settings_.ImageBgBlur = 0.25;
  }

  std::string Rib() {
    return WrittenRib(
        [this](orv::RibWriter& writer) { orv::WriteBackground(writer, settings_, textures_); });
  }

  orv::RenderSettings settings_;
  orv::TextureConverter textures_;
};

TEST_F(Background, ATransparentOneHasOnlyItsSpace) {
  settings_.ImageBgMode = 0;
  settings_.ImageBgMap = "sky.tif";
  settings_.ImageBgRotateZ = -12.5;
  EXPECT_EQ(Rib(),
            "TransformBegin\n"
            "  Rotate -12.5 0 0 1\n"
            "  CoordinateSystem \"bgspace\"\n"
            "TransformEnd\n");
}

TEST_F(Background, AColorIsAdjustedToTheGamma) {
  settings_.ImageBgMode = 1;
  settings_.ImageBgColor = {255, 128, 0};
  // (128 / 255) squared, as one of 255 steps: 64.
  EXPECT_EQ(Rib(),
            std::string(kSpace) + "Imager \"background\" \"color background\" [ 1 0.25098 0 ]\n");
}

TEST_F(Background, AGradientHasTwoAdjustedColors) {
  settings_.ImageBgMode = 2;
  settings_.ImageBgColor = {255, 255, 128};
  settings_.ImageBgBottom = {128, 0, 51};
  EXPECT_EQ(Rib(), std::string(kSpace) +
                       "Imager \"VBgGradient\" \"color TopColor\" [ 1 1 0.25098 ] "
                       "\"color BottomColor\" [ 0.25098 0 0.0392157 ]\n");
}

TEST_F(Background, AWallpaper) {
  settings_.ImageBgMode = 3;
  settings_.ImageBgMap = "C:\\maps\\my \"paper\".tif";
  EXPECT_EQ(Rib(), std::string(kSpace) +
                       "Imager \"VBackdrop\" \"float Intensity\" [1.5] \"string TextureName\" "
                       "\"C:/maps/my \\\"paper\\\".tif\" \"float TextureBlur\" [0.25]\n");
}

TEST_F(Background, AnEnvironment) {
  settings_.ImageBgMode = 4;
  settings_.ImageBgMap = "C:\\maps\\sky.tif";
  EXPECT_EQ(Rib(), std::string(kSpace) +
                       "Imager \"VBgEnvironment\" \"float Intensity\" [1.5] "
                       "\"string EnvironmentName\" \"C:/maps/sky.tif\" "
                       "\"string EnvironmentSpace\" \"bgspace\" "
                       "\"float EnvironmentBlur\" [0.25]\n");
}

TEST_F(Background, AMapWithoutANamePaintsNothing) {
  for (const int mode : {3, 4}) {
    settings_.ImageBgMode = mode;
    EXPECT_EQ(Rib(), kSpace);
  }
}

// The textures that conversion would make are there and no older than the image.
TEST_F(Background, MapsAreConverted) {
  const TempFolder folder;
  for (const char* name : {"sky.tif", "sky_clamp_g22.tx", "sky_periodic_g22.tx"}) {
    WriteFileContent(host::NativePath(folder.File(name)), "");
  }
  settings_.ConvertTextures = true;
  settings_.TextureGamma = 2.2;
  settings_.ImageBgMap = folder.File("sky.tif");
  settings_.ImageBgMode = 3;
  EXPECT_EQ(Rib(), std::string(kSpace) +
                       "Imager \"VBackdrop\" \"float Intensity\" [1.5] \"string TextureName\" \"" +
                       folder.File("sky_clamp_g22.tx") + "\" \"float TextureBlur\" [0.25]\n");
  settings_.ImageBgMode = 4;
  EXPECT_EQ(Rib(), std::string(kSpace) +
                       "Imager \"VBgEnvironment\" \"float Intensity\" [1.5] "
                       "\"string EnvironmentName\" \"" +
                       folder.File("sky_periodic_g22.tx") +
                       "\" \"string EnvironmentSpace\" \"bgspace\" "
                       "\"float EnvironmentBlur\" [0.25]\n");
}

}  // namespace
