#include "host/system/number_text.h"
#include "page_fixture.h"
#include "pages/page_records.h"

// What each page holds its numbers to, which can differ from what loading does.
namespace orv {
namespace {

class PageBounds : public PageTest {
 protected:
  struct Row {
    std::string Id, Least, Greatest;
  };

  // The stored text of a number of the document or of the user.
  std::string Stored(const std::string& id) const {
    if (plugIn_.UserStrings().GetUserString(id)) return Setting(id);
    const UserValues& user = plugIn_.User();
    if (id == "Threads") return SettingText(user.Threads);
    if (id == "IprThreads") return SettingText(user.IprThreads);
    if (id == "Version") return SettingText(user.Version);
    return id == "IlluminanceUnity" ? SettingText(user.IlluminanceUnity) : "";
  }
  template <class Page>
  void Expect(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      Store<Page>(row.Id, "-2000000000");
      EXPECT_EQ(Stored(row.Id), row.Least) << row.Id;
      Store<Page>(row.Id, "2000000000");
      EXPECT_EQ(Stored(row.Id), row.Greatest) << row.Id;
      // No number is 0.
      Store<Page>(row.Id, "many");
      const double least = host::ParseReal(row.Least);
      EXPECT_EQ(Stored(row.Id), least > 0 ? row.Least : "0") << row.Id;
    }
    ExpectAllNumbersIn<Page>(rows);
  }
  // Each edit and combo that takes numbers has a row.
  template <class Page>
  void ExpectAllNumbersIn(const std::vector<Row>& rows) {
    const auto page = Opened<Page>();
    std::size_t numbers = 0;
    for (const CRhinoControl& control : page->Controls()) {
      const bool isNumber = !control.Value.empty() &&
                            control.Value.find_first_not_of("0123456789.e+-") == std::string::npos;
      numbers += isNumber ? 1 : 0;
    }
    EXPECT_EQ(numbers, rows.size());
  }
};

TEST_F(PageBounds, Main) {
  Expect<CDocPageDlg>({{"PixelSamples", "1", "32"},
                       {"ShadingSamples", "1", "32"},
                       {"Flatness", "0.1", "100"},
                       {"CurveWidth", "0.001", "1000"},
                       {"ImageBgIntensity", "0", "100"},
                       {"ImageBgBlur", "0", "1"},
                       {"ImageBgRotateZ", "-1000", "1000"}});
}

TEST_F(PageBounds, Display) {
  Expect<CDisplayDlg>({{"RibGamma", "0.1", "10"},
                       {"InterocularDistance", "0.001", "1000"},
                       {"Zmin", "-1e+09", "1e+09"},
                       {"Zmax", "-1e+09", "1e+09"}});
}

TEST_F(PageBounds, Trace) {
  Expect<CTraceDlg>({{"TraceBias", "0.0001", "10000"},
                     {"ReflectionMaxDepth", "0", "32"},
                     {"ReflectionColorIntensity", "0", "100"},
                     {"ReflectionMapIntensity", "0", "100"},
                     {"ReflectionBlur", "0", "1"},
                     {"ReflectionRotateX", "-360", "360"},
                     {"ReflectionRotateY", "-360", "360"},
                     {"ReflectionRotateZ", "-360", "360"},
                     {"DofCameraLens", "1", "1000"},
                     {"DofFstop", "0.01", "100"},
                     {"DofFocusDistance", "0.1", "1e+06"},
                     {"DofSamples", "16", "1024"}});
}

TEST_F(PageBounds, Gi) {
  Expect<CGiDlg>({{"GiSamples", "1", "1024"},
                  {"GiHitDist", "1", "1e+09"},
                  {"GiMaxError", "0", "1"},
                  {"GiPixelDist", "0", "1000"},
                  {"GiBgColorIntensity", "0", "1000"},
                  {"GiBgMapIntensity", "0", "1000"},
                  {"GiBgBlur", "0", "1"},
                  {"GiBgRotateX", "-360", "360"},
                  {"GiBgRotateY", "-360", "360"},
                  {"GiBgRotateZ", "-360", "360"},
                  {"GiMaxBounce", "1", "5"},
                  {"GiIndirectIntensity", "0", "1000"}});
}

TEST_F(PageBounds, Outline) {
  Expect<COutlineDlg>({{"InkWidth", "0", "100"},
                       {"Silhouette", "0", "1"},
                       {"MinEdgeAngle", "0", "180"},
                       {"FadeThreshold", "0", "1e+09"},
                       {"MinInkWidth", "0", "100"}});
}

TEST_F(PageBounds, Animation) {
  Expect<CAnimDlg>({{"AnimFrames", "1", "10000"},
                    {"TurntableMaxAngle", "-400", "400"},
                    {"AnimCameraLens", "1", "1000"}});
}

TEST_F(PageBounds, AdvancedLighting) {
  Expect<AdvancedDlg>(
      {{"CausticMinPhotons", "1", "10000"}, {"CausticSearchDistance", "1", "1000"}});
}

TEST_F(PageBounds, Interactive) {
  Expect<CTweakDlg>({{"IprMaxShadowRays", "1", "1024"},
                     {"IprMaxReflectionRays", "1", "1024"},
                     {"IprThreads", "1", "8"}});
}

TEST_F(PageBounds, Bake) {
  Expect<CBakeDlg>({{"BakeGamma", "0.1", "10"},
                    {"BakeTexelSize", "0", "10000"},
                    {"BakeBorder", "0", "100"},
                    {"BakePixelSamples", "1", "16"},
                    {"BakeShadingSamples", "0.01", "100"}});
}

TEST_F(PageBounds, PlugIn) {
  Expect<CGenDlg>({{"Threads", "1", "8"},
                   {"TileSize", "8", "256"},
                   {"Version", "0", "999999"},
                   {"RhinoGamma", "0.1", "10"},
                   {"TextureGamma", "0.1", "10"},
                   {"IlluminanceUnity", "0.1", "1e+08"}});
}

// The loader takes what the page doesn't: accepting the page cuts it.
TEST_F(PageBounds, AcceptingCutsWhatLoadingTakes) {
  SetSetting("AnimFrames", "50000");
  SetSetting("TurntableMaxAngle", "450");
  const auto page = Opened<CAnimDlg>();
  EXPECT_EQ(Value(*page, "AnimFrames"), "50000");
  EXPECT_EQ(Value(*page, "TurntableMaxAngle"), "450");
  page->Accept(doc_);
  EXPECT_EQ(Setting("AnimFrames"), "10000");
  EXPECT_EQ(Setting("TurntableMaxAngle"), "400");
}

// Numbers stored by the page beyond what loading takes are held when they are read next.
TEST_F(PageBounds, LoadingCutsWhatThePageStores) {
  Store<CGiDlg>("GiBgColorIntensity", "1000");
  EXPECT_EQ(Setting("GiBgColorIntensity"), "1000");
  EXPECT_EQ(Value(*Opened<CGiDlg>(), "GiBgColorIntensity"), "100");
}

TEST_F(PageBounds, SizesAreStoredAsTyped) {
  Store<CDocPageDlg>("ImageSize", "99999 x 3");
  EXPECT_EQ(Setting("ImageWidth"), "99999");
  EXPECT_EQ(Setting("ImageHeight"), "3");
  Store<CTweakDlg>("IprImageSize", "5000 x 5000");
  EXPECT_EQ(Setting("IprImageWidth"), "5000");
  EXPECT_EQ(Value(*Opened<CTweakDlg>(), "IprImageSize"), "2048 x 2048");
  Store<CBakeDlg>("BakeImageSize", "4 x 512");
  EXPECT_EQ(Setting("BakeImageWidth"), "4");
  EXPECT_EQ(Value(*Opened<CBakeDlg>(), "BakeImageSize"), "8 x 512");
}

}  // namespace
}  // namespace orv
