#include "jobs/edit_options.h"

#include <gmock/gmock.h>

#include "jobs/option_commands.h"
#include "option_rows.h"
#include "support/scoped_environment.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class EditOptions : public OptionsTest {
 protected:
  // The prompt of a document without settings.
  static constexpr const char* kPrompt =
      "Orv Options ( OrvShow=Yes  Animate=Off  BgMode=Color  BgColor=160,160,160  Colors=Yes  "
      "ConvertTexture=Yes  Crop=No  CropRegion=0.25,0.75,0.25,0.75  Curves=No  Dimensions=No  "
      "Displacable=Yes  DisplayGamma=1.8  Draft=No  Enlarge=No  Frame=-1  GiMode=Off  "
      "ImageHeight=0  ImageWidth=0  Lights=Yes  LowPriority=Yes  Outline=No  PixelSamples=4  "
      "ShadingSamples=1  SharpFilter=No  Sel=No  Surface  Threads=1  TraceDepth=6  "
      "WriteImage=No  RibName=/t/RhinoOrv.rib  ImageName=orv.tif ): ";

  // What the editor gives, with a record of the test's own.
  CommandResult EditRecord(RenderSettings& settings, std::vector<std::string> answers) {
    TypedInput input(std::move(answers));
    CRhinoCommandContext context(doc_, input, false);
    const CommandResult result = orv::EditOptions(context, plugIn_, settings);
    prompts_ = input.Prompts();
    return result;
  }

  ScopedEnvironment temp_{"TEMP", "/t"};
};

TEST_F(EditOptions, ShowsItsOptionsInTheirOrder) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Enter"}), CommandResult::success);
  ASSERT_EQ(prompts_.size(), 1u);
  std::string prompt = prompts_.front();
  const std::size_t name = prompt.find("RibName=");
  ASSERT_NE(name, std::string::npos);
  EXPECT_EQ(prompt.substr(0, name),
            std::string_view(kPrompt).substr(0, std::string_view(kPrompt).find("RibName=")));
  EXPECT_THAT(prompt.substr(name),
              testing::MatchesRegex(R"(RibName=/t.RhinoOrv\.rib  ImageName=orv\.tif \): )"));
}

TEST_F(EditOptions, Toggles) {
  const ToggleRow rows[] = {{"OrvShow", "OrvShow"},         {"Colors", "Colors"},
                            {"ConvertTexture", ""},         {"Crop", "UseCropWindow"},
                            {"Curves", "RenderCurves"},     {"Dimensions", "RenderDimensions"},
                            {"Displacable", "Displacable"}, {"Draft", "Draft"},
                            {"Enlarge", "Enlarge"},         {"Lights", "UseLights"},
                            {"LowPriority", "LowPriority"}, {"Outline", "Outline"},
                            {"SharpFilter", "SharpFilter"}, {"Sel", "Selected"},
                            {"WriteImage", "RenderToFile"}};
  for (const ToggleRow& row : rows) Check<CCommandOrvOptions>(row);
}

TEST_F(EditOptions, Lists) {
  const ListRow rows[] = {
      {"Animate", "AnimMode", {"Off", "Turntable", "FlyThrough", "Paths"}},
      {"BgMode", "ImageBgMode", {"Transparent", "Color", "Gradient", "Wallpaper", "Environment"}},
      {"GiMode",
       "GiMode",
       {"Off", "Ambient", "Indirect", "IndirectCache", "Occlusion", "OcclusionCache"}}};
  for (const ListRow& row : rows) Check<CCommandOrvOptions>(row);
}

TEST_F(EditOptions, Color) {
  Check<CCommandOrvOptions>(ColorRow{"BgColor", "ImageBgColor", "Image background color"});
}

TEST_F(EditOptions, Numbers) {
  const std::string whole = "a whole number";
  const NumberRow rows[] = {
      {"DisplayGamma", "RibGamma", "Display gamma", "a number", "0.1", "10", "0.09", "10.01"},
      {"ImageHeight", "ImageHeight", "Image height (pixels)", whole, "0", "32000", "-1", "32001"},
      {"ImageWidth", "ImageWidth", "Image width (pixels)", whole, "0", "32000", "-1", "32001"},
      {"PixelSamples", "PixelSamples", "Pixel samples (1-32)", whole, "1", "32", "0", "33"},
      {"ShadingSamples", "ShadingSamples", "Shading samples per pixel (1-64)", whole, "1", "64",
       "0", "65"},
      {"Threads", "", "Number of rendering threads (1-24)", whole, "1", "24", "0", "25"},
      {"TraceDepth", "ReflectionMaxDepth", "Trace depth (0-31)", whole, "0", "31", "-1", "32"}};
  for (const NumberRow& row : rows) Check<CCommandOrvOptions>(row);
}

TEST_F(EditOptions, FrameHoldsForOneJobAlone) {
  RenderSettings settings;
  EXPECT_EQ(EditRecord(settings, {"Frame", "-2", "10000", "9999", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(settings.FrameNumber, 9999);
  EXPECT_EQ(prompts_[1], "Frame number (-1 for no frame) <-1>: ");
  EXPECT_EQ(EditRecord(settings, {"Frame=-1", "Enter"}), CommandResult::success);
  EXPECT_EQ(settings.FrameNumber, -1);
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Frame=7", "Enter"}), CommandResult::success);
  EXPECT_EQ(plugIn_.LoadSettings().FrameNumber, -1);
}

TEST_F(EditOptions, NamesAreAskedFor) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"RibName", "out/ein ä.rib", "ImageName", "a.tif", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_[1], "Rib file name: ");
  EXPECT_EQ(prompts_[3], "Rendered image file name: ");
  EXPECT_THAT(prompts_[4], HasSubstr("  RibName=out/ein ä.rib  ImageName=a.tif )"));
  EXPECT_EQ(Setting("RibName"), "out/ein ä.rib");
  EXPECT_EQ(Setting("ImageName"), "a.tif");
}

TEST_F(EditOptions, NameMayBecomeEmpty) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"ImageName", "\"\"", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("ImageName"), "");
  EXPECT_THAT(prompts_.back(), HasSubstr("  ImageName )"));
}

TEST_F(EditOptions, NameThatIsNotGivenEndsTheEditing) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Draft", "RibName", "Enter"}), CommandResult::nothing);
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Draft", "ImageName", "!"}), CommandResult::cancel);
  EXPECT_TRUE(plugIn_.UserStrings().IsEmpty());
}

TEST_F(EditOptions, CropRegionIsTypedAsFractions) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"CropRegion", "0,0.5 0.125", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_[1], "Crop region <0.25,0.75,0.25,0.75>: ");
  EXPECT_THAT(prompts_[2], HasSubstr("  CropRegion=0,0.5,0.125,0.75 "));
  EXPECT_EQ(Setting("CropWindow"), "0 0.5 0.125 0.75");
}

TEST_F(EditOptions, CropRegionKeepsWhatIsNoNumber) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"CropRegion", "Enter", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("CropWindow"), "0.25 0.75 0.25 0.75");
  EXPECT_EQ(Edit<CCommandOrvOptions>({"CropRegion", "-2 3 0.5 7 9", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(Setting("CropWindow"), "-2 3 0.5 7");
  EXPECT_EQ(Edit<CCommandOrvOptions>({"CropRegion", "!"}), CommandResult::cancel);
}

TEST_F(EditOptions, CropRegionIsPickedInTheActiveView) {
  CRhinoView* view = doc_.ActiveView();
  ASSERT_NE(view, nullptr);
  const auto port = view->Viewport().VP().GetScreenPort();
  const int width = std::abs(port.right - port.left);
  const int height = std::abs(port.bottom - port.top);
  ASSERT_GT(width, 8);
  ASSERT_GT(height, 8);
  const auto corner = [](int x, int y) { return std::to_string(x) + "," + std::to_string(y); };
  RenderSettings picked;
  EXPECT_EQ(EditInteractively<CCommandOrvOptions>(
                {"CropRegion", corner(width, height / 2), corner(width / 2, 0), "Enter"}),
            CommandResult::success);
  EXPECT_EQ(prompts_[1], "Set render region rectangle in viewport (first corner): ");
  picked = plugIn_.LoadSettings();
  EXPECT_THAT(picked.CropWindow,
              ElementsAre(testing::DoubleNear(width / 2 / static_cast<double>(width), 1e-5), 1, 0,
                          testing::DoubleNear(height / 2 / static_cast<double>(height), 1e-5)));
  EXPECT_EQ(EditInteractively<CCommandOrvOptions>({"CropRegion", "!"}), CommandResult::cancel);
}

TEST_F(EditOptions, EnterAcceptsAndCancelDoesNot) {
  RenderSettings settings;
  EXPECT_EQ(EditRecord(settings, {"Enter"}), CommandResult::success);
  EXPECT_EQ(EditRecord(settings, {"PixelSamples=8", "!"}), CommandResult::cancel);
  EXPECT_EQ(EditRecord(settings, {"PixelSamples", "!"}), CommandResult::cancel);
  EXPECT_EQ(EditByScript<CCommandOrvOptions>({"PixelSamples=0"}), CommandResult::failure);
  EXPECT_EQ(EditByScript<CCommandOrvOptions>({"NoSuchOption"}), CommandResult::failure);
  EXPECT_TRUE(plugIn_.UserStrings().IsEmpty());
}

TEST_F(EditOptions, NothingIsStoredByTheEditorAlone) {
  RenderSettings settings;
  EXPECT_EQ(EditRecord(settings, {"PixelSamples=8", "Enter"}), CommandResult::success);
  EXPECT_EQ(settings.PixelSamples, 8);
  EXPECT_TRUE(plugIn_.UserStrings().IsEmpty());
}

TEST_F(EditOptions, BoundsAreNotThoseOfTheNextLoad) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"ShadingSamples=48", "Enter"}), CommandResult::success);
  EXPECT_EQ(Setting("ShadingSamples"), "48");
  EXPECT_EQ(plugIn_.LoadSettings().ShadingSamples, 32);
}

TEST_F(EditOptions, ThreadsAndTexturesAreTheUsers) {
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Threads=16", "ConvertTexture=No", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(plugIn_.User().Threads, 16);
  EXPECT_FALSE(plugIn_.User().ConvertTextures);
  EXPECT_EQ(plugIn_.LoadSettings().Threads, 16);
}

TEST_F(EditOptions, SurfaceShowsTheShadersName) {
  plugIn_.UserStrings().SetUserString("Surface", R"("VPlastic" "float Diffuse" [0.5])");
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Enter"}), CommandResult::success);
  EXPECT_THAT(prompts_[0], HasSubstr("  Surface=VPlastic  "));
  EXPECT_EQ(Setting("Surface"), R"("VPlastic" "float Diffuse" [0.5])");
}

TEST_F(EditOptions, SurfaceIsEditedAsAShader) {
  plugIn_.UserStrings().SetUserString("Surface", R"("VPlastic" "float Diffuse" [0.5])");
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Surface", "Diffuse=0.25", "Enter", "Draft", "Enter"}),
            CommandResult::success);
  EXPECT_THAT(prompts_[1], HasSubstr("Orv Surface ( Shader=VPlastic  Diffuse=0.5 ): "));
  EXPECT_THAT(prompts_[3], HasSubstr("Orv Options ( "));
  EXPECT_EQ(Setting("Surface"), R"("VPlastic" "float Diffuse" [0.25])");
  EXPECT_EQ(Setting("Draft"), "1");
}

TEST_F(EditOptions, SurfaceStaysWhenItsEditingIsGivenUp) {
  const std::string surface = R"("VPlastic" "float Diffuse" [0.5])";
  plugIn_.UserStrings().SetUserString("Surface", surface);
  EXPECT_EQ(Edit<CCommandOrvOptions>({"Surface", "Diffuse=0.25", "!", "Draft", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(Setting("Surface"), surface);
  EXPECT_EQ(Setting("Draft"), "1");
  EXPECT_EQ(EditByScript<CCommandOrvOptions>({"Surface", "Diffuse=much"}), CommandResult::cancel);
  EXPECT_EQ(Setting("Surface"), surface);
}

}  // namespace
}  // namespace orv
