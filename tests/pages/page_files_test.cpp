#include "host/document/app.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_mesh.h"
#include "page_fixture.h"

// The names that pages ask for or suggest: files, views, curves.
namespace orv {
namespace {

using testing::ElementsAre;

class PageFiles : public PageTest {
 protected:
  // The first prompt of the control's dialog, which is given up.
  template <class Page>
  std::string DialogOf(const std::string& control) {
    const auto page = Opened<Page>();
    EXPECT_EQ(Change(*page, control, "...", {"!"}), "");
    return prompts_.empty() ? "" : prompts_[0];
  }
  std::string Folder() const { return folder_.Path().string(); }
};

TEST_F(PageFiles, DialogsHaveTheirTitlesAndFolders) {
  UserValues& user = plugIn_.User();
  user.EnvironmentDir = "env";
  user.RibDir = "rib";
  user.ArchiveDir = "arc";
  user.ImageDir = "img";
  user.GiCacheDir = "opc";
  EXPECT_EQ(DialogOf<CDocPageDlg>("ImageBgMap"), "Choose background map (in env): ");
  EXPECT_EQ(DialogOf<CDocPageDlg>("RibName"), "Exported Rib File (in rib): ");
  EXPECT_EQ(DialogOf<CDocPageDlg>("OptionsArchive"), "Choose Options File (in arc): ");
  EXPECT_EQ(DialogOf<CDisplayDlg>("ImageName"), "Rendered Image File (in img): ");
  EXPECT_EQ(DialogOf<CTraceDlg>("ReflectionBgMap"), "Choose Environment Map (in env): ");
  EXPECT_EQ(DialogOf<CGiDlg>("GiBgMap"), "Choose Environment Map (in env): ");
  EXPECT_EQ(DialogOf<CGiDlg>("GiCacheName"), "Choose GI Cache File (in opc): ");
  EXPECT_EQ(DialogOf<COutlineDlg>("VectorExportName"), "Export Vector File (in img): ");
  EXPECT_EQ(DialogOf<AdvancedDlg>("CausticCacheName"), "Choose Caustic Cache File (in opc): ");
  EXPECT_EQ(DialogOf<CBakeDlg>("BakeImageName"), "Baked Image File (in img): ");
}

TEST_F(PageFiles, AnImageGetsTheExtensionOfItsRow) {
  plugIn_.User().ImageDir = Folder();
  const auto page = Opened<CDisplayDlg>();
  for (const std::string extension :
       {".tif", ".png", ".jpg", ".bmp", ".sgi", ".tga", ".rpf", ".hdr", ".psd", ".exr"}) {
    EXPECT_EQ(Change(*page, "ImageName", "old" + extension), "");
    EXPECT_EQ(Change(*page, "ImageName", "...", {"new"}), "");
    EXPECT_EQ(Value(*page, "ImageName"), folder_.File("new" + extension));
  }
  EXPECT_EQ(Change(*page, "ImageName", "old.gif"), "");
  EXPECT_EQ(Change(*page, "ImageName", "...", {"new"}), "");
  EXPECT_EQ(Value(*page, "ImageName"), folder_.File("new.tif"));
}

TEST_F(PageFiles, OtherFilesGetTheExtensionOfTheirFirstRow) {
  plugIn_.User().RibDir = plugIn_.User().GiCacheDir = plugIn_.User().ImageDir = Folder();
  const auto chosen = [this](CRhinoDialogPage& page, const std::string& id) {
    EXPECT_EQ(Change(page, id, "...", {"new"}), "");
    return Value(page, id);
  };
  EXPECT_EQ(chosen(*Opened<CDocPageDlg>(), "RibName"), folder_.File("new.rib"));
  EXPECT_EQ(chosen(*Opened<CGiDlg>(), "GiCacheName"), folder_.File("new.opc"));
  EXPECT_EQ(chosen(*Opened<AdvancedDlg>(), "CausticCacheName"), folder_.File("new.opc"));
  EXPECT_EQ(chosen(*Opened<COutlineDlg>(), "VectorExportName"), folder_.File("new.svg"));
  SetSetting("BakeImageName", "baked.png");
  EXPECT_EQ(chosen(*Opened<CBakeDlg>(), "BakeImageName"), folder_.File("new.png"));
}

TEST_F(PageFiles, ADialogThatIsGivenUpKeepsTheName) {
  const auto page = Opened<CGiDlg>();
  EXPECT_EQ(Change(*page, "GiCacheName", "...", {"!"}), "");
  EXPECT_EQ(Value(*page, "GiCacheName"), "OrvGiCache.opc");
}

TEST_F(PageFiles, TheFolderOfTheLastFileIsKept) {
  plugIn_.User().ImageDir = Folder();
  const auto page = Opened<CDisplayDlg>();
  EXPECT_EQ(Change(*page, "ImageName", "...", {"new"}), "");
  EXPECT_EQ(plugIn_.User().ImageDir, Folder() + "/");
}

TEST_F(PageFiles, AScriptIsAskedForTheName) {
  const auto page = Opened<CGiDlg>();
  TypedInput input({"maps/sky.tx"}, TypedInput::By::script);
  CRhinoCommandContext context(doc_, input, false);
  EXPECT_EQ(page->Change(context, "GiBgMap", "..."), "");
  EXPECT_THAT(input.Prompts(), ElementsAre("Environment map file name: "));
  EXPECT_EQ(Value(*page, "GiBgMap"), "maps\\sky.tx");
  TypedInput none({"!"}, TypedInput::By::script);
  CRhinoCommandContext cancelled(doc_, none, false);
  EXPECT_EQ(page->Change(cancelled, "GiBgMap", "..."), "GiBgMap has got no file's name.");
}

TEST_F(PageFiles, ATypedNameStaysAsItIs) {
  Store<CDocPageDlg>("ImageBgMap", "$ORVHOME/maps/sky one.tx");
  EXPECT_EQ(Setting("ImageBgMap"), "$ORVHOME/maps/sky one.tx");
  Store<CDocPageDlg>("ImageBgMap", "");
  EXPECT_EQ(Setting("ImageBgMap"), "");
}

TEST_F(PageFiles, TheButtonsOfSettingsActAsTheCommands) {
  plugIn_.User().SettingsDir = Folder();
  std::string messages;
  RhinoApp().CommandWindow().SetSink([&](std::string_view text) { messages += text; });
  const auto page = Opened<CDocPageDlg>();
  SetSetting("PixelSamples", "8");
  EXPECT_EQ(Change(*page, "Save Settings..", "", {"mine"}), "");
  EXPECT_THAT(prompts_, ElementsAre("Save Orv Settings (in " + Folder() + "): "));
  SetSetting("PixelSamples", "2");
  // A value answers the dialog. The page reads its controls again.
  EXPECT_EQ(Change(*page, "Load Settings..", "mine.ors"), "");
  EXPECT_EQ(Value(*page, "PixelSamples"), "8");
  EXPECT_EQ(Change(*page, "Load Settings..", "", {"!"}), "It was not done.");
  EXPECT_EQ(messages, "");
  EXPECT_EQ(Change(*page, "Save Settings..", "missing/mine.ors", {"!"}), "It was not done.");
  RhinoApp().CommandWindow().SetSink({});
}

TEST_F(PageFiles, TheButtonsTellWhatTheCommandsTell) {
  std::string messages;
  RhinoApp().CommandWindow().SetSink([&](std::string_view text) { messages += text; });
  const auto page = Opened<CDocPageDlg>();
  TypedInput input({}, TypedInput::By::script);
  CRhinoCommandContext context(doc_, input, false);
  EXPECT_EQ(page->Change(context, "LoadSettings", folder_.File("none.ors")), "It was not done.");
  EXPECT_EQ(page->Change(context, "SaveSettings", folder_.File("no/such.ors")), "It was not done.");
  RhinoApp().CommandWindow().SetSink({});
  EXPECT_EQ(messages, "Unable to load settings.\nUnable to save settings.\n");
}

TEST_F(PageFiles, CurvesWithNamesAreSuggested) {
  ONX_Model model;
  const auto add = [&model](const std::string& name, std::shared_ptr<ON_Geometry> geometry) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_attributes.m_name = name;
    object.m_geometry = std::move(geometry);
  };
  const auto line = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0});
  const auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
  mesh->m_F = {{{0, 1, 2, 2}}};
  add("Wall", mesh);
  add("Flug", line);
  add("", line);
  add("Blick", line);
  add("FLUG", line);
  doc_.SetModel(std::move(model), "");
  const auto page = Opened<CAnimDlg>();
  EXPECT_THAT(Control(*page, "CameraPath").Choices, testing::UnorderedElementsAre("Flug", "Blick"));
  EXPECT_EQ(Control(*page, "TargetPath").Choices, Control(*page, "CameraPath").Choices);
}

}  // namespace
}  // namespace orv
