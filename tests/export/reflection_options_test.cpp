#include "export/reflection_options.h"

#include <gtest/gtest.h>

#include "rib_fragment.h"

namespace {

constexpr const char* kHead =
    "Option \"trace\" \"integer maxdepth\" 6\n"
    "TransformBegin\n"
    "  Rotate 0 1 0 0\n"
    "  Rotate 0 0 1 0\n"
    "  Rotate 0 0 0 1\n"
    "  CoordinateSystem \"reflectionspace\"\n"
    "TransformEnd\n";
constexpr const char* kBias = "Attribute \"trace\" \"float bias\" [0.01]\n";

std::string Rib(const orv::RenderSettings& settings) {
  return WrittenRib([&](orv::RibWriter& writer) { orv::WriteReflectionOptions(writer, settings); });
}

TEST(ReflectionOptions, WithoutAnEnvironment) {
  orv::RenderSettings settings;
  settings.ReflectionBgMode = 0;
  settings.ReflectionBgMap = "sky.tif";
  settings.ReflectionMaxDepth = 0;
  settings.ReflectionRotateX = 10;
  settings.ReflectionRotateY = -20.5;
  settings.ReflectionRotateZ = 30;
  settings.TraceBias = 0.5;
  EXPECT_EQ(Rib(settings),
            "Option \"trace\" \"integer maxdepth\" 0\n"
            "TransformBegin\n"
            "  Rotate 10 1 0 0\n"
            "  Rotate -20.5 0 1 0\n"
            "  Rotate 30 0 0 1\n"
            "  CoordinateSystem \"reflectionspace\"\n"
            "TransformEnd\n"
            "Attribute \"trace\" \"float bias\" [0.5]\n");
}

TEST(ReflectionOptions, AColorGoesOutAsItIsTimesItsIntensity) {
  orv::RenderSettings settings;
  settings.ReflectionBgMode = 1;
  settings.RhinoGamma = 2;
  settings.ReflectionBgColor = {51, 102, 255};
  settings.ReflectionColorIntensity = 0.5;
  settings.ReflectionBgMap = "sky.tif";
  EXPECT_EQ(
      Rib(settings),
      std::string(kHead) + "Option \"reflection\" \"color background\" [0.1 0.2 0.5]\n" + kBias);
}

TEST(ReflectionOptions, AMapGoesOutAsItIs) {
  orv::RenderSettings settings;
  settings.ReflectionBgMode = 2;
  settings.ReflectionBgMap = "C:\\maps\\a \"sky\".tif";
  settings.ReflectionMapIntensity = 1.5;
  settings.ReflectionBlur = 0.125;
  EXPECT_EQ(Rib(settings), std::string(kHead) +
                               "Option \"reflection\" \"string envname\" "
                               "\"C:/maps/a \\\"sky\\\".tif\"\n"
                               "Option \"reflection\" \"float envstrength\" [1.5]\n"
                               "Option \"reflection\" \"float envblur\" [0.125]\n"
                               "Option \"reflection\" \"string envspace\" \"reflectionspace\"\n" +
                               kBias);
}

TEST(ReflectionOptions, AMapWithoutANameIsNoEnvironment) {
  orv::RenderSettings settings;
  settings.ReflectionBgMode = 2;
  EXPECT_EQ(Rib(settings), std::string(kHead) + kBias);
}

}  // namespace
