#include "page_fixture.h"

// What a page shows and enables in its modes.
namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PageModes : public PageTest {
 protected:
  // Those of the ids that a user can change in a mode of the page.
  template <class Page>
  std::vector<std::string> UsableOf(const std::vector<std::string>& ids, const std::string& key,
                                    int mode) {
    SetSetting(key, std::to_string(mode));
    const auto page = Opened<Page>();
    std::vector<std::string> usable;
    for (const std::string& id : ids) {
      const CRhinoControl control = Control(*page, id);
      if (control.IsShown && control.IsEnabled) usable.push_back(id);
    }
    return usable;
  }
};

TEST_F(PageModes, TheImagesBackground) {
  const auto usable = [this](int mode) {
    return UsableOf<CDocPageDlg>({"ImageBgColor", "ImageBgBottom", "ImageBgMap", "ImageBgIntensity",
                                  "ImageBgBlur", "ImageBgRotateZ"},
                                 "ImageBgMode", mode);
  };
  EXPECT_THAT(usable(0), IsEmpty());
  EXPECT_THAT(usable(1), ElementsAre("ImageBgColor"));
  EXPECT_THAT(usable(2), ElementsAre("ImageBgColor", "ImageBgBottom"));
  EXPECT_THAT(usable(3), ElementsAre("ImageBgMap", "ImageBgIntensity", "ImageBgBlur"));
  EXPECT_THAT(usable(4),
              ElementsAre("ImageBgMap", "ImageBgIntensity", "ImageBgBlur", "ImageBgRotateZ"));
}

TEST_F(PageModes, WhatReflectionsSee) {
  const auto usable = [this](int mode) {
    return UsableOf<CTraceDlg>(
        {"ReflectionBgMode", "ReflectionBgColor", "ReflectionBgMap", "ReflectionColorIntensity",
         "ReflectionMapIntensity", "ReflectionBlur", "ReflectionRotateZ"},
        "ReflectionBgMode", mode);
  };
  EXPECT_THAT(usable(0), ElementsAre("ReflectionBgMode"));
  EXPECT_THAT(usable(1),
              ElementsAre("ReflectionBgMode", "ReflectionBgColor", "ReflectionColorIntensity"));
  EXPECT_THAT(usable(2),
              ElementsAre("ReflectionBgMode", "ReflectionBgMap", "ReflectionMapIntensity",
                          "ReflectionBlur", "ReflectionRotateZ"));
}

TEST_F(PageModes, GroupsOfGlobalIllumination) {
  const auto usable = [this](int mode) {
    return UsableOf<CGiDlg>(
        {"GiMode", "GiSamples", "GiAdaptive", "GiHitDist", "GiMaxError", "GiPixelDist",
         "GiReadCache", "GiWriteCache", "GiCacheName", "GiBgMode", "GiMaxBounce", "GiShadeMode",
         "GiIndirectIntensity", "GiOccShadow"},
        "GiMode", mode);
  };
  EXPECT_THAT(usable(0), ElementsAre("GiMode"));
  EXPECT_THAT(usable(1), ElementsAre("GiMode", "GiBgMode"));
  EXPECT_THAT(usable(2), ElementsAre("GiMode", "GiSamples", "GiAdaptive", "GiHitDist", "GiBgMode",
                                     "GiMaxBounce", "GiShadeMode", "GiIndirectIntensity"));
  EXPECT_THAT(usable(3),
              ElementsAre("GiMode", "GiSamples", "GiAdaptive", "GiHitDist", "GiMaxError",
                          "GiPixelDist", "GiReadCache", "GiWriteCache", "GiCacheName", "GiBgMode",
                          "GiMaxBounce", "GiShadeMode", "GiIndirectIntensity"));
  EXPECT_THAT(usable(4), ElementsAre("GiMode", "GiSamples", "GiAdaptive", "GiHitDist", "GiBgMode",
                                     "GiOccShadow"));
  EXPECT_THAT(usable(5), ElementsAre("GiMode", "GiSamples", "GiAdaptive", "GiHitDist", "GiMaxError",
                                     "GiPixelDist", "GiReadCache", "GiWriteCache", "GiCacheName",
                                     "GiBgMode", "GiOccShadow"));
}

TEST_F(PageModes, GroupsAreHiddenOrDisabled) {
  const auto page = Opened<CGiDlg>();
  EXPECT_TRUE(Control(*page, "GiSamples").IsShown);
  EXPECT_FALSE(Control(*page, "GiSamples").IsEnabled);
  EXPECT_FALSE(Control(*page, "GiMaxBounce").IsShown);
  EXPECT_FALSE(Control(*page, "GiOccShadow").IsShown);
}

TEST_F(PageModes, TheSurroundings) {
  SetSetting("GiMode", "1");
  const auto usable = [this](int mode) {
    return UsableOf<CGiDlg>({"GiBgColor", "GiBgMap", "GiBgColorIntensity", "GiBgMapIntensity",
                             "GiBgBlur", "GiBgRotateZ"},
                            "GiBgMode", mode);
  };
  EXPECT_THAT(usable(0), ElementsAre("GiBgColor", "GiBgColorIntensity"));
  EXPECT_THAT(usable(1), ElementsAre("GiBgMap", "GiBgMapIntensity", "GiBgBlur", "GiBgRotateZ"));
}

TEST_F(PageModes, Sequences) {
  const auto usable = [this](int mode) {
    return UsableOf<CAnimDlg>({"AnimMode", "AnimFrames", "TurntableMaxAngle", "AnimCameraLens",
                               "CameraPath", "TargetPath"},
                              "AnimMode", mode);
  };
  EXPECT_THAT(usable(0), ElementsAre("AnimMode", "AnimFrames"));
  EXPECT_THAT(usable(1), ElementsAre("AnimMode", "AnimFrames", "TurntableMaxAngle"));
  EXPECT_THAT(usable(2), ElementsAre("AnimMode", "AnimFrames", "AnimCameraLens", "CameraPath"));
  EXPECT_THAT(usable(3),
              ElementsAre("AnimMode", "AnimFrames", "AnimCameraLens", "CameraPath", "TargetPath"));
}

TEST_F(PageModes, SomeControlsAreNeverShown) {
  for (const char* id : {"EdgeMask", "LoadSettings", "SaveSettings"}) {
    EXPECT_FALSE(Control(*Opened<CDocPageDlg>(), id).IsShown) << id;
  }
  for (int mode = 0; mode <= 2; ++mode) {
    EXPECT_THAT(
        (UsableOf<CTraceDlg>({"ReflectionRotateX", "ReflectionRotateY"}, "ReflectionBgMode", mode)),
        IsEmpty());
  }
  SetSetting("GiBgMode", "1");
  for (int mode = 0; mode <= 5; ++mode) {
    EXPECT_THAT((UsableOf<CGiDlg>({"GiBgRotateX", "GiBgRotateY"}, "GiMode", mode)), IsEmpty());
  }
}

TEST_F(PageModes, ChangesAtOnceWithTheList) {
  const auto page = Opened<CAnimDlg>();
  EXPECT_FALSE(Control(*page, "TargetPath").IsShown);
  EXPECT_EQ(Change(*page, "Mode:", "Paths"), "");
  EXPECT_TRUE(Control(*page, "TargetPath").IsShown);
}

}  // namespace
}  // namespace orv
