#include "export/image_output.h"

#include <gtest/gtest.h>

#include "export_fixture.h"

namespace {

using orv::LightChannelCounts;
using orv::RenderSettings;
using orv::RibWriter;

std::string ImageOutput(const RenderSettings& settings, const LightChannelCounts& counts = {},
                        std::string_view ribName = "scene.rib") {
  return Written([&](RibWriter& writer) { orv::WriteImageOutput(writer, settings, counts); },
                 ribName);
}

constexpr std::string_view kDeclarations =
    "Declare \"__diffuse\" \"varying color\"\n"
    "Declare \"__diffuse_unshadowed\" \"varying color\"\n"
    "Declare \"__shadow\" \"varying color\"\n"
    "Declare \"__indirect\" \"varying color\"\n"
    "Declare \"__ambient\" \"varying color\"\n"
    "Declare \"__specular\" \"varying color\"\n"
    "Declare \"__reflect\" \"varying color\"\n"
    "Declare \"__refract\" \"varying color\"\n"
    "Declare \"__environment\" \"varying color\"\n"
    "Declare \"__incandescence\" \"varying color\"\n"
    "Declare \"__lights\" \"varying color[10]\"\n";

TEST(ImageOutput, IsOneImageInTheViewerByDefault) {
  EXPECT_EQ(ImageOutput({}),
            "Display \"orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n");
}

TEST(ImageOutput, ASecondDisplayHasAPlusSign) {
  RenderSettings settings;
  settings.RenderToFile = true;
  EXPECT_EQ(ImageOutput(settings),
            "Display \"orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n"
            "Display \"+orv.tif\" \"file\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n");
}

TEST(ImageOutput, TheFirstDisplayHasNone) {
  RenderSettings settings;
  settings.OrvShow = false;
  settings.RenderToFile = true;
  EXPECT_EQ(ImageOutput(settings),
            "Display \"orv.tif\" \"file\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n");
}

TEST(ImageOutput, WithoutViewerAndFileThereIsNoDisplay) {
  RenderSettings settings;
  settings.OrvShow = false;
  EXPECT_EQ(ImageOutput(settings), "");
  settings.UseExtraChannels = true;
  settings.ExtraChannels = "Diffuse Depth";
  EXPECT_EQ(ImageOutput(settings), kDeclarations);
}

TEST(ImageOutput, AStereoPairHasTheRightEyeUnderTheSameName) {
  RenderSettings settings;
  settings.RenderToFile = true;
  settings.StereoEnable = true;
  EXPECT_EQ(ImageOutput(settings),
            "Display \"orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n"
            "Display \"+orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\" [0 255 0 255]"
            " \"string camera\" \"right\"\n"
            "Display \"+orv.tif\" \"file\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n"
            "Display \"+orv.tif\" \"file\" \"rgba\" \"float[4] quantize\" [0 255 0 255]"
            " \"string camera\" \"right\"\n");
}

TEST(ImageOutput, AStereoPairInFilesOnlyBeginsWithoutAPlusSign) {
  RenderSettings settings;
  settings.OrvShow = false;
  settings.RenderToFile = true;
  settings.StereoEnable = true;
  EXPECT_EQ(ImageOutput(settings),
            "Display \"orv.tif\" \"file\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n"
            "Display \"+orv.tif\" \"file\" \"rgba\" \"float[4] quantize\" [0 255 0 255]"
            " \"string camera\" \"right\"\n");
}

TEST(ImageOutput, OfAStereoPairOnlyTheImageHasARightEyeAndNoChannel) {
  RenderSettings settings;
  settings.StereoEnable = true;
  settings.UseExtraChannels = true;
  settings.ExtraChannels = "Depth";
  EXPECT_EQ(ImageOutput(settings),
            std::string(kDeclarations) +
                "Display \"orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\""
                " [0 255 0 255]\n"
                "Display \"+orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\""
                " [0 255 0 255] \"string camera\" \"right\"\n"
                "Display \"+orv_z.tif\" \"framebuffer\" \"z\" \"float[4] quantize\""
                " [0 255 0 255]\n");
}

TEST(ImageOutput, AStereoPairInOneFileHasTheChannelsOfBothEyes) {
  RenderSettings settings;
  settings.StereoEnable = true;
  settings.UseExtraChannels = true;
  settings.SingleImageFile = true;
  settings.ExtraChannels = "Depth";
  EXPECT_EQ(ImageOutput(settings),
            std::string(kDeclarations) +
                "Display \"orv.tif\" \"framebuffer\" \"rgba,z\" \"float[4] quantize\""
                " [0 255 0 255]\n"
                "Display \"+orv.tif\" \"framebuffer\" \"rgba,z\" \"float[4] quantize\""
                " [0 255 0 255] \"string camera\" \"right\"\n");
}

TEST(ImageOutput, ThePrecisionIsTheQuantization) {
  RenderSettings settings;
  settings.DisplayMode = "rgb";
  settings.ImagePrecision = 1;
  EXPECT_EQ(
      ImageOutput(settings),
      "Display \"orv.tif\" \"framebuffer\" \"rgb\" \"float[4] quantize\" [0 65535 0 65535]\n");
  settings.ImagePrecision = 2;
  EXPECT_EQ(ImageOutput(settings),
            "Display \"orv.tif\" \"framebuffer\" \"rgb\" \"float[4] quantize\" [0 0 0 0]\n");
  settings.ImagePrecision = 3;
  EXPECT_EQ(ImageOutput(settings),
            "Display \"orv.tif\" \"framebuffer\" \"rgb\" \"float[4] quantize\" [0 255 0 255]\n");
}

TEST(ImageOutput, ARangeOfDepthThatIsOneStandsFirst) {
  RenderSettings settings;
  settings.OrvShow = false;
  settings.Zmin = -1.5;
  settings.Zmax = 200;
  EXPECT_EQ(ImageOutput(settings), "Option \"render\" \"zrange\" [-1.5 200]\n");
  settings.Zmin = 200;
  EXPECT_EQ(ImageOutput(settings), "");
}

std::string NameInDisplay(const RenderSettings& settings, std::string_view ribName) {
  const std::string text = ImageOutput(settings, {}, ribName);
  const std::size_t start = text.find('"') + 1;
  return text.substr(start, text.find('"', start) - start);
}

TEST(ImageOutput, WithoutAnImageNameTheSceneFilesNameHolds) {
  RenderSettings settings;
  settings.ImageName = "";
  EXPECT_EQ(NameInDisplay(settings, "scene.v2.rib"), "scene.v2.tif");
  settings.FrameNumber = 7;
  EXPECT_EQ(NameInDisplay(settings, "scene_0007.rib"), "scene_0007_#4f.tif");
}

TEST(ImageOutput, TheSceneFilesNameHoldsWithoutDriveAndFolder) {
  RenderSettings settings;
  settings.ImageName = "";
  settings.FrameNumber = 7;
  EXPECT_EQ(Written([&](RibWriter& writer) {
              writer.FileName = "C:\\t\\scene_0007.rib";
              orv::WriteImageOutput(writer, settings, {});
            }),
            "Display \"scene_0007_#4f.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\""
            " [0 255 0 255]\n");
}

TEST(ImageOutput, AnImageOfASequenceHasTheFrameToken) {
  RenderSettings settings;
  settings.ImageName = "C:\\out\\a.tif";
  settings.AnimMode = 1;
  EXPECT_EQ(NameInDisplay(settings, "s.rib"), "C:/out/a_#4f.tif");
  settings.AnimMode = 0;
  settings.FrameNumber = 0;
  EXPECT_EQ(NameInDisplay(settings, "s.rib"), "C:/out/a_#4f.tif");
  settings.FrameNumber = -1;
  EXPECT_EQ(NameInDisplay(settings, "s.rib"), "C:/out/a.tif");
}

TEST(ImageOutput, AnyLetterAndAPercentSignStayInAName) {
  RenderSettings settings;
  settings.ImageName = "größe 50% %s%n 日本.tif";
  EXPECT_EQ(NameInDisplay(settings, "s.rib"), "größe 50% %s%n 日本.tif");
}

TEST(ImageOutput, ExtraChannelsWithoutAWordAreDeclaredOnly) {
  RenderSettings settings;
  settings.UseExtraChannels = true;
  EXPECT_EQ(ImageOutput(settings),
            std::string(kDeclarations) +
                "Display \"orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\""
                " [0 255 0 255]\n");
}

TEST(ImageOutput, WithoutTheirSwitchChannelWordsCountForNothing) {
  RenderSettings settings;
  settings.ExtraChannels = "Diffuse Lights";
  settings.ReflectChannels = true;
  EXPECT_EQ(ImageOutput(settings, {1, 1}),
            "Display \"orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\" [0 255 0 255]\n");
}

TEST(ImageOutput, OneImageHoldsAllChannelsInTheirFixedOrder) {
  RenderSettings settings;
  settings.UseExtraChannels = true;
  settings.SingleImageFile = true;
  settings.ExtraChannels =
      "Lights Depth Outline Incandescence Environment Refract Reflect Specular Ambient Indirect "
      "Shadow Unshadowed Diffuse";
  EXPECT_EQ(
      ImageOutput(settings, {1, 0, 0, 2, 0, 0, 0, 0, 0, 1}),
      std::string(kDeclarations) +
          "Display \"orv.tif\" \"framebuffer\" \"rgba,__diffuse,__diffuse_unshadowed,__shadow,"
          "__indirect,__ambient,__specular,__reflect,__refract,__environment,__incandescence,"
          "__toonline,z,__lights[0],__lights[3],__lights[9]\""
          " \"float[4] quantize\" [0 255 0 255]\n");
}

TEST(ImageOutput, EachChannelCanHaveAFileOfItsOwn) {
  RenderSettings settings;
  settings.ImageName = "C:\\out\\a.tif";
  settings.UseExtraChannels = true;
  settings.RenderToFile = true;
  settings.ExtraChannels = "Unshadowed,Outline,Depth";
  settings.ImagePrecision = 2;
  EXPECT_EQ(
      ImageOutput(settings),
      std::string(kDeclarations) +
          "Display \"C:/out/a.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\" [0 0 0 0]\n"
          "Display \"+C:/out/a.tif\" \"file\" \"rgba\" \"float[4] quantize\" [0 0 0 0]\n"
          "Display \"+C:/out/a_unshadowed.tif\" \"framebuffer\" \"__diffuse_unshadowed\""
          " \"float[4] quantize\" [0 0 0 0]\n"
          "Display \"+C:/out/a_unshadowed.tif\" \"file\" \"__diffuse_unshadowed\""
          " \"float[4] quantize\" [0 0 0 0]\n"
          "Display \"+C:/out/a_outline.tif\" \"framebuffer\" \"__toonline\""
          " \"float[4] quantize\" [0 0 0 0]\n"
          "Display \"+C:/out/a_outline.tif\" \"file\" \"__toonline\""
          " \"float[4] quantize\" [0 0 0 0]\n"
          "Display \"+C:/out/a_z.tif\" \"framebuffer\" \"z\" \"float[4] quantize\" [0 0 0 0]\n"
          "Display \"+C:/out/a_z.tif\" \"file\" \"z\" \"float[4] quantize\" [0 0 0 0]\n");
}

TEST(ImageOutput, LightChannelsHaveBracketsInTheirFilesNames) {
  RenderSettings settings;
  settings.ImageName = "a.tif";
  settings.UseExtraChannels = true;
  settings.ExtraChannels = "Lights";
  settings.FrameNumber = 3;
  EXPECT_EQ(ImageOutput(settings, {0, 2, 0, 0, 0, 0, 0, 0, 0, 1}),
            std::string(kDeclarations) +
                "Display \"a_#4f.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\""
                " [0 255 0 255]\n"
                "Display \"+a_#4f_lights[1].tif\" \"framebuffer\" \"__lights[1]\""
                " \"float[4] quantize\" [0 255 0 255]\n"
                "Display \"+a_#4f_lights[9].tif\" \"framebuffer\" \"__lights[9]\""
                " \"float[4] quantize\" [0 255 0 255]\n");
}

TEST(ImageOutput, WithoutALightInAnySlotThereIsNoLightChannel) {
  RenderSettings settings;
  settings.UseExtraChannels = true;
  settings.SingleImageFile = true;
  settings.ExtraChannels = "Lights";
  EXPECT_EQ(ImageOutput(settings),
            std::string(kDeclarations) +
                "Display \"orv.tif\" \"framebuffer\" \"rgba\" \"float[4] quantize\""
                " [0 255 0 255]\n");
}

TEST(ImageOutput, LightsInReflectionsAreAskedForBehindTheDeclarations) {
  RenderSettings settings;
  settings.OrvShow = false;
  settings.UseExtraChannels = true;
  settings.ReflectChannels = true;
  settings.ExtraChannels = "Lights";
  EXPECT_EQ(ImageOutput(settings),
            std::string(kDeclarations) + "Option \"user\" \"float reflectlights\" [1]\n");
  settings.ExtraChannels = "lights";
  EXPECT_EQ(ImageOutput(settings), kDeclarations);
}

TEST(ImageOutput, AChannelWordCountsWithItsCaseAndAnywhereInTheText) {
  RenderSettings settings;
  settings.UseExtraChannels = true;
  settings.SingleImageFile = true;
  settings.ExtraChannels = "diffuse,xAmbienty";
  EXPECT_EQ(ImageOutput(settings),
            std::string(kDeclarations) +
                "Display \"orv.tif\" \"framebuffer\" \"rgba,__ambient\" \"float[4] quantize\""
                " [0 255 0 255]\n");
}

}  // namespace
