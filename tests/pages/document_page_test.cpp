#include "page_fixture.h"

// What a page does from opening to accepting.
namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using DocumentPageLife = PageTest;

TEST_F(DocumentPageLife, NothingIsStoredBeforeItIsAccepted) {
  const auto page = Opened<CDocPageDlg>();
  EXPECT_EQ(Change(*page, "PixelSamples", "8"), "");
  EXPECT_EQ(Value(*page, "PixelSamples"), "8");
  EXPECT_THAT(Keys(), ElementsAre("RibName"));
  page->Accept(doc_);
  EXPECT_EQ(Setting("PixelSamples"), "8");
}

TEST_F(DocumentPageLife, AcceptingLaysTheControlsOverAFreshRecord) {
  const auto page = Opened<CDocPageDlg>();
  SetSetting("GiMode", "3");
  SetSetting("PixelSamples", "9");
  page->Accept(doc_);
  EXPECT_EQ(Setting("GiMode"), "3");
  EXPECT_EQ(Setting("PixelSamples"), "4");
}

TEST_F(DocumentPageLife, ControlsAreFoundByIdAndLabelInAnyCase) {
  const auto page = Opened<CTraceDlg>();
  EXPECT_EQ(Change(*page, "max BOUNCES:", "3"), "");
  EXPECT_EQ(Change(*page, "dofsamples", "32"), "");
  EXPECT_EQ(Value(*page, "ReflectionMaxDepth"), "3");
  EXPECT_EQ(Value(*page, "DofSamples"), "32");
  EXPECT_EQ(Change(*page, "Rays", "1"), "Orv Trace has no control 'Rays'.");
}

TEST_F(DocumentPageLife, OfEqualLabelsTheShownOneIsMeant) {
  const auto page = Opened<CTraceDlg>();
  EXPECT_EQ(Change(*page, "Environment:", "Map"), "");
  EXPECT_EQ(Change(*page, "Intensity:", "0.7"), "");
  EXPECT_EQ(Value(*page, "ReflectionMapIntensity"), "0.7");
  EXPECT_EQ(Value(*page, "ReflectionColorIntensity"), "0.2");
}

TEST_F(DocumentPageLife, WhatDoesNotFitChangesNothing) {
  const auto page = Opened<CDocPageDlg>();
  EXPECT_EQ(Change(*page, "Mode:", "Starry"),
            "ImageBgMode takes Transparent, Color, Gradient, Wallpaper or Environment, not "
            "'Starry'.");
  EXPECT_EQ(Change(*page, "SharpFilter", "perhaps"), "SharpFilter takes Yes or No, not 'perhaps'.");
  EXPECT_EQ(Value(*page, "ImageBgMode"), "Color");
}

TEST_F(DocumentPageLife, AnIntegerIsTheDigitsAtTheStart) {
  Store<CDocPageDlg>("PixelSamples", " 7.9 samples");
  EXPECT_EQ(Setting("PixelSamples"), "7");
}

TEST_F(DocumentPageLife, AnEmptyOrOverflowingNumberLeavesTheStoredOne) {
  SetSetting("PixelSamples", "7");
  Store<CDocPageDlg>("PixelSamples", "");
  EXPECT_EQ(Setting("PixelSamples"), "7");
  Store<CDocPageDlg>("PixelSamples", "99999999999");
  EXPECT_EQ(Setting("PixelSamples"), "7");
  SetSetting("Flatness", "0.7");
  Store<CDocPageDlg>("Flatness", "1e999");
  EXPECT_EQ(Setting("Flatness"), "0.7");
  Store<CDocPageDlg>("Flatness", "");
  EXPECT_EQ(Setting("Flatness"), "0.1");
}

TEST_F(DocumentPageLife, AKeyThatIsWrittenByItselfStaysUnwrittenThen) {
  const auto page = Opened<COutlineDlg>();
  EXPECT_EQ(Change(*page, "InkWidth", "1e999"), "");
  page->Accept(doc_);
  EXPECT_THAT(Keys(), testing::Not(testing::Contains("InkWidth")));
  EXPECT_EQ(Setting("Silhouette"), "0.5");
}

TEST_F(DocumentPageLife, TheOutlinePageWritesItsOwnKeysOnly) {
  Opened<COutlineDlg>()->Accept(doc_);
  EXPECT_THAT(Keys(),
              ElementsAre("RibName", "Outline", "InkColor", "InkWidth", "ToonId", "Silhouette",
                          "UseMinEdgeAngle", "MinEdgeAngle", "FrontBack", "IncludeNakedEdges",
                          "ExportVectors", "VectorExportName", "FadeThreshold", "MinInkWidth"));
}

TEST_F(DocumentPageLife, ThePlugInPageWritesItsOwnKeysAndTheUsersValues) {
  const auto page = Opened<CGenDlg>();
  for (const auto& [id, value] : std::vector<std::pair<std::string, std::string>>{
           {"Threads", "4"},
           {"LowPriority", "No"},
           {"Gyre", "Yes"},
           {"UseOrvControl", "Yes"},
           {"UseVersion", "Yes"},
           {"Version", "12"},
           {"RhinoGamma", "2.2"},
           {"ConvertTextures", "No"},
           {"IlluminanceUnity", "750"},
           {"TextureCacheDir", std::string(999, 'a') + "äb"}}) {
    EXPECT_EQ(Change(*page, id, value), "") << id;
  }
  page->Accept(doc_);
  EXPECT_THAT(Keys(), ElementsAre("RibName", "LowPriority", "TileSize", "TileOrder", "RhinoGamma",
                                  "TextureGamma"));
  EXPECT_EQ(Setting("LowPriority"), "0");
  EXPECT_EQ(Setting("RhinoGamma"), "2.2");
  EXPECT_EQ(Setting("TextureGamma"), "1.8");
  const UserValues& user = plugIn_.User();
  EXPECT_EQ(user.Threads, 4);
  EXPECT_TRUE(user.Gyre);
  EXPECT_TRUE(user.UseOrvControl);
  EXPECT_TRUE(user.UseVersion);
  EXPECT_EQ(user.Version, 12);
  EXPECT_FALSE(user.ConvertTextures);
  EXPECT_EQ(user.IlluminanceUnity, 750);
  // At most 1,000 bytes, and no half character.
  EXPECT_EQ(user.TextureCacheDir, std::string(999, 'a'));
}

TEST_F(DocumentPageLife, GroupsOfSettingsAreStoredAlone) {
  Store<CTweakDlg>("IprThreads", "3");
  EXPECT_THAT(Keys(), SizeIs(11));
  EXPECT_EQ(plugIn_.User().IprThreads, 3);
  Store<CTweakDlg>("IprUpdateView", "No");
  EXPECT_FALSE(plugIn_.User().IprUpdateView);
  EXPECT_EQ(plugIn_.User().IprThreads, 3);
  SetSetting("BakeUseMap5", "1");
  Store<CBakeDlg>("BakeUseMap2", "Yes");
  EXPECT_EQ(Setting("BakeUseMap2"), "1");
  EXPECT_EQ(Setting("BakeUseMap5"), "1");
  EXPECT_EQ(Setting("PixelSamples"), "");
}

TEST_F(DocumentPageLife, TheViewportsSizeIsZero) {
  Store<CDocPageDlg>("Image size:", "640 x 480");
  EXPECT_EQ(Setting("ImageWidth"), "640");
  Store<CDocPageDlg>("Image size:", "Viewport");
  EXPECT_EQ(Setting("ImageWidth"), "0");
  EXPECT_EQ(Setting("ImageHeight"), "0");
  EXPECT_EQ(Value(*Opened<CDocPageDlg>(), "ImageSize"), "Viewport");
}

TEST_F(DocumentPageLife, ASizeThatCantBeReadLeavesTheStoredOne) {
  SetSetting("ImageWidth", "640");
  SetSetting("ImageHeight", "480");
  Store<CDocPageDlg>("Image size:", "800");
  EXPECT_EQ(Setting("ImageWidth"), "640");
  EXPECT_EQ(Setting("ImageHeight"), "480");
}

TEST_F(DocumentPageLife, APairOfSamplesOpensWithItsPreset) {
  struct Row {
    const char *Name, *Pixel, *Shading;
  };
  for (const Row& row :
       {Row{"Normal", "4", "1"}, Row{"Smoother edges", "8", "1"}, Row{"Finer shading", "4", "4"},
        Row{"High quality", "8", "4"}, Row{"Higher quality", "12", "8"},
        Row{"Extreme quality", "16", "16"}, Row{"Custom", "2", "2"}}) {
    SetSetting("PixelSamples", row.Pixel);
    SetSetting("ShadingSamples", row.Shading);
    EXPECT_EQ(Value(*Opened<CDocPageDlg>(), "Presets"), row.Name);
  }
}

TEST_F(DocumentPageLife, APresetSetsBothSamples) {
  const auto page = Opened<CDocPageDlg>();
  EXPECT_EQ(Change(*page, "Presets:", "higher quality"), "");
  EXPECT_EQ(Value(*page, "PixelSamples"), "12");
  EXPECT_EQ(Value(*page, "ShadingSamples"), "8");
  page->Accept(doc_);
  EXPECT_EQ(Setting("PixelSamples"), "12");
  EXPECT_EQ(Setting("ShadingSamples"), "8");
  EXPECT_EQ(Setting("Presets"), "");
  EXPECT_NE(Change(*page, "Presets:", "Custom"), "");
}

TEST_F(DocumentPageLife, TheRenderMeshHasThreeStates) {
  EXPECT_EQ(Value(*Opened<CDocPageDlg>(), "RenderMesh"), "Mixed");
  Store<CDocPageDlg>("Use Rhino mesh", "Yes");
  EXPECT_EQ(Setting("RenderMesh"), "2");
  EXPECT_EQ(Value(*Opened<CDocPageDlg>(), "RenderMesh"), "Yes");
  Store<CDocPageDlg>("Use Rhino mesh", "No");
  EXPECT_EQ(Setting("RenderMesh"), "0");
  EXPECT_EQ(Value(*Opened<CDocPageDlg>(), "RenderMesh"), "No");
  Store<CDocPageDlg>("Use Rhino mesh", "Mixed");
  EXPECT_EQ(Setting("RenderMesh"), "1");
}

TEST_F(DocumentPageLife, TheToleranceIsInPixelsOrUnits) {
  Store<CDocPageDlg>("AbsoluteTolerance", "units");
  EXPECT_EQ(Setting("AbsoluteTolerance"), "1");
  EXPECT_EQ(Value(*Opened<CDocPageDlg>(), "AbsoluteTolerance"), "units");
}

TEST_F(DocumentPageLife, ChannelsAreJoinedInTheirOrder) {
  SetSetting("ExtraChannels", "Depth,Fog,Outline");
  const auto page = Opened<CDisplayDlg>();
  EXPECT_EQ(Value(*page, "ExtraChannels.Depth"), "Yes");
  EXPECT_EQ(Value(*page, "ExtraChannels.Outline"), "Yes");
  EXPECT_EQ(Value(*page, "ExtraChannels.Diffuse"), "No");
  EXPECT_EQ(Change(*page, "Outline", "No"), "");
  EXPECT_EQ(Change(*page, "Diffuse", "Yes"), "");
  page->Accept(doc_);
  EXPECT_EQ(Setting("ExtraChannels"), "Diffuse,Depth,");
}

TEST_F(DocumentPageLife, AllChannels) {
  const auto page = Opened<CDisplayDlg>();
  for (const char* label :
       {"Environment", "Light channels", "Depth", "Outline", "Incandescence", "Refraction",
        "Reflections", "Specular", "Ambient", "Indirect", "Shadows", "Unshadowed", "Diffuse"}) {
    EXPECT_EQ(Change(*page, label, "Yes"), "");
  }
  page->Accept(doc_);
  EXPECT_EQ(Setting("ExtraChannels"),
            "Diffuse,Unshadowed,Shadows,Indirect,Ambient,Specular,Reflect,Refract,Incandescence,"
            "Outline,Depth,Lights,Environment,");
}

TEST_F(DocumentPageLife, TheImagesGammaIsKeptInSinglePrecision) {
  // Six digits tell the two precisions apart where they round to different sides.
  Store<CDisplayDlg>("RibGamma", "2.000005");
  EXPECT_EQ(Setting("RibGamma"), "2.00001");
  Store<CBakeDlg>("BakeGamma", "2.000005");
  EXPECT_EQ(Setting("BakeGamma"), "2");
}

TEST_F(DocumentPageLife, InkIsShownByTheGammaOfTheScreen) {
  SetSetting("RhinoGamma", "2");
  SetSetting("InkColor", "0.25,0,1");
  const auto page = Opened<COutlineDlg>();
  // 0.25 is kept as 64/255, whose root is 0.50098.
  EXPECT_EQ(Value(*page, "InkColor"), "128,0,255");
  EXPECT_EQ(Change(*page, "Line color:", "51,0,255"), "");
  page->Accept(doc_);
  EXPECT_EQ(Setting("InkColor"), "0.04,0,1");
}

TEST_F(DocumentPageLife, TileOrdersAreWordsInAnyCase) {
  struct Row {
    const char *Stored, *Shown;
  };
  for (const Row& row : {Row{"COLUMNS", "Columns"}, Row{"spiral", "Spiral"}, Row{"rows", "Rows"},
                         Row{"zigzag", "Rows"}, Row{"", "Rows"}}) {
    SetSetting("TileOrder", row.Stored);
    EXPECT_EQ(Value(*Opened<CGenDlg>(), "TileOrder"), row.Shown) << row.Stored;
  }
  Store<CGenDlg>("Tile order:", "spiral");
  EXPECT_EQ(Setting("TileOrder"), "Spiral");
}

TEST_F(DocumentPageLife, AViewMayHaveAnyName) {
  Store<CDocPageDlg>("View:", "My view");
  EXPECT_EQ(Setting("ViewName"), "My view");
  Store<CTweakDlg>("View:", "Top");
  EXPECT_EQ(Setting("IprViewName"), "Top");
}

TEST_F(DocumentPageLife, ColoursAreStoredAsFractions) {
  Store<CDocPageDlg>("ImageBgColor", "255,0,51");
  EXPECT_EQ(Setting("ImageBgColor"), "1,0,0.2");
}

TEST_F(DocumentPageLife, EachControlOfARecordKeepsItsValueWhenNothingChanges) {
  plugIn_.StoreSettings(plugIn_.LoadSettings());
  const ON_UserStringList before = plugIn_.UserStrings();
  Opened<CDocPageDlg>()->Accept(doc_);
  Opened<CDisplayDlg>()->Accept(doc_);
  Opened<CTraceDlg>()->Accept(doc_);
  Opened<CGiDlg>()->Accept(doc_);
  Opened<COutlineDlg>()->Accept(doc_);
  Opened<CAnimDlg>()->Accept(doc_);
  Opened<AdvancedDlg>()->Accept(doc_);
  Opened<CGenDlg>()->Accept(doc_);
  for (const ON_UserString& entry : before.m_e) {
    EXPECT_EQ(Setting(entry.m_key), entry.m_string_value) << entry.m_key;
  }
}

}  // namespace
}  // namespace orv
