#include "page_fixture.h"
#include "support/listener.h"
#include "tools/renderer_bench.h"

// What pages send to a live session.
namespace orv {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class PageLive : public PageTest {
 protected:
  PageLive() { SetSetting("RhinoGamma", "1"); }

  // Starts the session of a scene with this GI mode.
  void Start(int giMode = 1) {
    ASSERT_TRUE(plugIn_.Live().StartIprSession("scene.rib", {Listener::FreePort(), 50, 100ms}));
    plugIn_.Live().SetScene({giMode, {}, {}, 0});
  }
  // The frames of the session, which ends.
  std::vector<std::string> Frames() {
    plugIn_.Live().EndIprSession();
    EXPECT_TRUE(bench_.Wait("end"));
    std::vector<std::string> frames = bench_.Frames();
    EXPECT_FALSE(frames.empty());
    if (!frames.empty()) frames.pop_back();
    return frames;
  }

  const RendererBench bench_;
};

TEST_F(PageLive, EachChangeOfTheBackgroundIsSentAtOnce) {
  Start();
  const auto page = Opened<CDocPageDlg>();
  for (const auto& [id, value] :
       std::vector<std::pair<std::string, std::string>>{{"ImageBgColor", "255,0,0"},
                                                        {"ImageBgMode", "Gradient"},
                                                        {"ImageBgBottom", "0,0,255"},
                                                        {"ImageBgMode", "Wallpaper"},
                                                        {"ImageBgMap", "maps\\sky.tx"},
                                                        {"ImageBgIntensity", "500"},
                                                        {"ImageBgBlur", "0.1"},
                                                        {"ImageBgMode", "Environment"},
                                                        {"ImageBgRotateZ", "0.0"},
                                                        {"ImageBgMode", "Transparent"}}) {
    EXPECT_EQ(Change(*page, id, value), "") << id;
  }
  EXPECT_THAT(Frames(),
              ElementsAre("IrNewImager \"background\" \"color background\" [1 0 0]",
                          AllOf(StartsWith("IrNewImager \"VBgGradient\" "), HasSubstr("[0 0 0]")),
                          AllOf(StartsWith("IrNewImager \"VBgGradient\" "), HasSubstr("[0 0 1]")),
                          HasSubstr("\"string TextureName\" [\"\"]"),
                          HasSubstr("\"string TextureName\" [\"maps/sky.tx\"]"),
                          HasSubstr("\"float Intensity\" [100] \"float TextureBlur\" [0]"),
                          HasSubstr("\"float Intensity\" [100] \"float TextureBlur\" [0.1]"),
                          StartsWith("IrNewImager \"VBgEnvironment\" "),
                          StartsWith("IrNewImager \"VBgEnvironment\" "), "IrNewImager \"null\""));
  // Nothing of it was stored.
  EXPECT_EQ(Setting("ImageBgMode"), "");
}

TEST_F(PageLive, WhatStaysAsItIsSendsNothing) {
  Start();
  const auto page = Opened<CDocPageDlg>();
  EXPECT_EQ(Change(*page, "ImageBgMode", "Color"), "");
  EXPECT_NE(Change(*page, "ImageBgMode", "Sky"), "");
  EXPECT_EQ(Change(*page, "PixelSamples", "8"), "");
  EXPECT_EQ(Change(*page, "ImageBgMap", "...", {"!"}), "");
  page->Accept(doc_);
  EXPECT_THAT(Frames(), IsEmpty());
}

TEST_F(PageLive, AMapThatIsChosenIsSent) {
  WriteFileContent(folder_.File("sky.tx"), "");
  SetSetting("ImageBgMode", "3");
  plugIn_.User().EnvironmentDir = folder_.Path().string();
  Start();
  const auto page = Opened<CDocPageDlg>();
  EXPECT_EQ(Change(*page, "ImageBgMap", "...", {"sky.tx"}), "");
  EXPECT_THAT(Frames(), ElementsAre(HasSubstr(folder_.File("sky.tx"))));
}

TEST_F(PageLive, WhatReflectionsSeeIsSentAtOnce) {
  Start();
  const auto page = Opened<CTraceDlg>();
  for (const auto& [id, value] :
       std::vector<std::pair<std::string, std::string>>{{"ReflectionBgColor", "255,0,0"},
                                                        {"ReflectionColorIntensity", "0.5"},
                                                        {"ReflectionBgMode", "Map"},
                                                        {"ReflectionBgMap", "sky.tx"},
                                                        {"ReflectionMapIntensity", "0.25"},
                                                        {"ReflectionBlur", "0.5"},
                                                        {"ReflectionRotateZ", "360"},
                                                        {"ReflectionRotateX", "45"},
                                                        {"ReflectionMaxDepth", "3"},
                                                        {"ReflectionBgMode", "None"}}) {
    EXPECT_EQ(Change(*page, id, value), "") << id;
  }
  EXPECT_THAT(
      Frames(),
      ElementsAre(
          "IrTweakOption \"reflection\" \"color background\" [0.2 0 0] \"string envname\" [\"\"]",
          "IrTweakOption \"reflection\" \"color background\" [0.5 0 0] \"string envname\" [\"\"]",
          HasSubstr("\"float envstrength\" [1] "), HasSubstr("[\"sky.tx\"]"),
          HasSubstr("\"float envstrength\" [0.25] "), HasSubstr("\"float envblur\" [0.5]"),
          HasSubstr("IrTweakCoordinateSystem \"reflectionspace\" "),
          HasSubstr("\"float envstrength\" [0] ")));
}

TEST_F(PageLive, TheSurroundingsAreSentInTheModeOfTheScene) {
  SetSetting("GiMode", "1");
  Start(1);
  const auto page = Opened<CGiDlg>();
  for (const auto& [id, value] :
       std::vector<std::pair<std::string, std::string>>{{"GiBgColor", "255,0,0"},
                                                        {"GiBgColorIntensity", "0.75"},
                                                        {"GiBgMode", "Map"},
                                                        {"GiBgMap", "sky.tx"},
                                                        {"GiBgMapIntensity", "0.25"},
                                                        {"GiBgBlur", "0.5"},
                                                        {"GiBgBlur", "1"},
                                                        {"GiBgRotateZ", "45"},
                                                        {"GiSamples", "16"},
                                                        {"GiMode", "Occlusion"},
                                                        {"GiBgBlur", "0"}}) {
    EXPECT_EQ(Change(*page, id, value), "") << id;
  }
  const std::string light = "IrTweakLight 0 \"float intensity\" ";
  EXPECT_THAT(Frames(),
              ElementsAre(light + "[0.5] \"color lightcolor\" [1 0 0] \"string envname\" [\"\"]",
                          light + "[0.75] \"color lightcolor\" [1 0 0] \"string envname\" [\"\"]",
                          // There is no map yet: black.
                          light + "[1] \"color lightcolor\" [0 0 0] \"string envname\" [\"\"]",
                          light + "[1] \"string envname\" [\"sky.tx\"] \"float envblur\" [0.5] "
                                  "\"color lightcolor\" [1 1 1]",
                          light + "[0.25] \"string envname\" [\"sky.tx\"] \"float envblur\" [0.5] "
                                  "\"color lightcolor\" [1 1 1]",
                          light + "[0.25] \"string envname\" [\"sky.tx\"] \"float envblur\" [1] "
                                  "\"color lightcolor\" [1 1 1]"));
}

TEST_F(PageLive, InteractiveOptionsAreSentWhenThePageIsAccepted) {
  Start();
  const auto page = Opened<CTweakDlg>();
  EXPECT_EQ(Change(*page, "IprMaxReflectionRays", "5000"), "");
  EXPECT_EQ(Change(*page, "IprSmoothEdges", "Yes"), "");
  EXPECT_EQ(Change(*page, "IprMaxShadowRays", "8"), "");
  EXPECT_THAT(bench_.Frames(), IsEmpty());
  page->Accept(doc_);
  EXPECT_EQ(Setting("IprMaxReflectionRays"), "1024");
  const std::vector<std::string> frames = Frames();
  ASSERT_FALSE(frames.empty());
  EXPECT_EQ(frames[0], "IrTweakOption \"ipr\" \"pixelsamples\" [4 4]");
  EXPECT_THAT(frames.back(), HasSubstr("IrTweakOption \"trace\" \"maxtracesamples\" [1024]"));
  EXPECT_EQ(frames.size(), 3u);
}

TEST_F(PageLive, AcceptingTheInteractivePageUnchangedSendsNothing) {
  Start();
  Opened<CTweakDlg>()->Accept(doc_);
  EXPECT_THAT(Frames(), IsEmpty());
}

TEST_F(PageLive, WithoutASessionAChangeIsJustAChange) {
  const auto page = Opened<CDocPageDlg>();
  EXPECT_EQ(Change(*page, "ImageBgMode", "Transparent"), "");
  EXPECT_FALSE(plugIn_.Live().IsRunning());
}

}  // namespace
}  // namespace orv
