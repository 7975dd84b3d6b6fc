#include "jobs/plugin.h"

#include <gmock/gmock.h>

#include <climits>

#include "command_fixture.h"
#include "host/archive/binary_archive.h"
#include "host/document/app.h"
#include "jobs/version_increment_command.h"
#include "support/model_writer.h"

namespace orv {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

constexpr std::string_view kSection = "Plug-Ins\\7D1F42A6-35C8-4B9E-9C07-5E2A1D60B3F4\\Settings";

class PlugIn : public CommandTest {
 protected:
  ~PlugIn() override { RhinoApp().SetProfile(host::Profile("")); }

  bool Read(const std::string& bytes, const CRhinoFileReadOptions& options) {
    ByteSource source(std::as_bytes(std::span(bytes)));
    ON_BinaryArchive archive(source, 50, 201008125);
    return plugIn_.ReadDocument(doc_, archive, options);
  }

  std::string Written() {
    ON_BinaryArchive archive(50);
    EXPECT_TRUE(plugIn_.WriteDocument(doc_, archive, {}));
    return archive.TakeBytes();
  }
};

TEST_F(PlugIn, TellsWhatItIs) {
  EXPECT_EQ(plugIn_.PlugInID().ToString(), "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4");
  EXPECT_EQ(plugIn_.PlugInName(), "RhinoOrv");
  EXPECT_THAT(std::string(plugIn_.PlugInVersion()),
              MatchesRegex("[A-Z][a-z][a-z] [ 123][0-9] [0-9]{4}  [0-9]{2}:[0-9]{2}:[0-9]{2}"));
  EXPECT_TRUE(plugIn_.AddToPlugInHelpMenu());
}

TEST_F(PlugIn, HelpOpensNothing) {
  EXPECT_EQ(plugIn_.OnDisplayPlugInHelp(), 0);
  EXPECT_EQ(messages_, "");
}

TEST_F(PlugIn, AddsOneFileType) {
  std::vector<CRhinoFileType> types;
  plugIn_.AddFileType(types);
  ASSERT_EQ(types.size(), 1u);
  EXPECT_EQ(types[0].PlugInId, plugIn_.PlugInID());
  EXPECT_EQ(types[0].Description, "Orv RIB Files (*.orib)");
  EXPECT_EQ(types[0].Extension, "orib");
}

TEST_F(PlugIn, LoadsTheUsersValues) {
  host::Profile profile("");
  profile.SaveProfileInt(kSection, "Threads", 12);
  profile.SaveProfileBool(kSection, "UseVersion", true);
  profile.SaveProfileDouble(kSection, "RhinoGamma", 2.2);
  RhinoApp().SetProfile(std::move(profile));
  EXPECT_TRUE(plugIn_.OnLoadPlugIn());
  EXPECT_EQ(plugIn_.User().Threads, 8);
  EXPECT_TRUE(plugIn_.User().UseVersion);
  EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"RhinoGamma", "2.2"}}));
}

TEST_F(PlugIn, VersionReachesTheProfileOnUnloading) {
  RhinoApp().SetProfile(host::Profile(""));
  ASSERT_TRUE(plugIn_.OnLoadPlugIn());
  EXPECT_EQ(Run<CCommandOrvVersionIncrement>(Form::scripted, {}), CommandResult::success);
  EXPECT_EQ(plugIn_.User().Version, 2);
  EXPECT_EQ(messages_, "");
  EXPECT_EQ(RhinoApp().ProfileContext().LoadProfileInt(kSection, "Version"), std::nullopt);
  plugIn_.OnUnloadPlugIn();
  EXPECT_EQ(RhinoApp().ProfileContext().LoadProfileInt(kSection, "Version"), 2);
  EXPECT_EQ(RhinoApp().ProfileContext().LoadProfileBool(kSection, "RIB reparameterize"), true);
}

TEST_F(PlugIn, LastVersionStays) {
  plugIn_.User().Version = INT_MAX;
  EXPECT_EQ(Run<CCommandOrvVersionIncrement>(Form::interactive, {}), CommandResult::success);
  EXPECT_EQ(plugIn_.User().Version, INT_MAX);
}

TEST_F(PlugIn, WritesItsDataOnlyWhenThereIsSome) {
  CRhinoFileWriteOptions whole;
  CRhinoFileWriteOptions selected;
  selected.SetMode(0, true);
  EXPECT_FALSE(plugIn_.CallWriteDocument(whole));
  plugIn_.UserStrings().SetUserString("GiMode", "3");
  EXPECT_TRUE(plugIn_.CallWriteDocument(whole));
  EXPECT_FALSE(plugIn_.CallWriteDocument(selected));
}

TEST_F(PlugIn, OpeningADocumentReplacesTheSettings) {
  plugIn_.UserStrings().SetUserString("GiMode", "3");
  const std::string bytes = Written();
  plugIn_.UserStrings().m_e = {{"Old", "1"}};
  EXPECT_TRUE(Read(bytes, {}));
  EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"GiMode", "3"}}));
}

TEST_F(PlugIn, ImportingADocumentChangesNothing) {
  plugIn_.UserStrings().SetUserString("GiMode", "3");
  const std::string bytes = Written();
  for (const int mode : {0, 4}) {
    plugIn_.UserStrings().m_e = {{"Old", "1"}};
    CRhinoFileReadOptions options;
    options.SetMode(mode, true);
    EXPECT_TRUE(Read(bytes, options));
    EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"Old", "1"}})) << mode;
  }
}

// Documents as files, opened and imported by the application that the plug-in is known to.
class PlugInInApplication : public PlugIn {
 protected:
  PlugInInApplication() {
    ONX_Model model;
    model.m_3dm_file_version = 50;
    WriteFileContent(folder_.File("without.3dm"), WriteModel(model));
    plugIn_.UserStrings().SetUserString("Surface", "\"Vä\"");
    model.m_userdata_table = {{.m_plugin_id = plugIn_.PlugInID(),
                               .m_archive_version = 50,
                               .m_opennurbs_version = 201008125,
                               .m_saved_as_goo = false,
                               .m_bytes = Written(),
                               .m_span = {}}};
    WriteFileContent(folder_.File("with.3dm"), WriteModel(model));
    RhinoApp().AddPlugInData(plugIn_);
    plugIn_.UserStrings().m_e = {{"Old", "1"}};
  }
  ~PlugInInApplication() override { RhinoApp().RemovePlugInData(plugIn_); }
};

TEST_F(PlugInInApplication, OpeningTakesTheStoredSettings) {
  ASSERT_TRUE(RhinoApp().OpenDocument(folder_.File("with.3dm")));
  EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"Surface", "\"Vä\""}}));
}

TEST_F(PlugInInApplication, ImportingLeavesTheSettings) {
  ASSERT_TRUE(RhinoApp().ImportDocument(folder_.File("with.3dm")));
  EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"Old", "1"}}));
}

TEST_F(PlugInInApplication, DocumentWithoutItsDataLeavesTheSettings) {
  ASSERT_TRUE(RhinoApp().OpenDocument(folder_.File("without.3dm")));
  EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"Old", "1"}}));
}

TEST_F(PlugIn, FileExportTakesDefaultsAndNotTheDocumentsSettings) {
  plugIn_.UserStrings().m_e = {{"PixelSamples", "16"}, {"Selected", "1"}};
  EXPECT_EQ(plugIn_.WriteFile(folder_.File("a ä.orib"), doc_, {}), 1);
  const std::string rib = FileContent(folder_.File("a ä.orib"));
  EXPECT_THAT(rib, HasSubstr("PixelSamples 4 4\n"));
  EXPECT_THAT(rib, HasSubstr("0 0 3"));
  EXPECT_THAT(rib, HasSubstr("0 0 7"));
}

TEST_F(PlugIn, FileExportOfTheSelectedObjects) {
  ASSERT_TRUE(doc_.Objects()[1]->Select());
  CRhinoFileWriteOptions options;
  options.SetMode(0, true);
  EXPECT_EQ(plugIn_.WriteFile(folder_.File("a.orib"), doc_, options), 1);
  const std::string rib = FileContent(folder_.File("a.orib"));
  EXPECT_THAT(rib, Not(HasSubstr("0 0 3")));
  EXPECT_THAT(rib, HasSubstr("0 0 7"));
}

TEST_F(PlugIn, FailedFileExportGivesZero) {
  EXPECT_EQ(plugIn_.WriteFile(folder_.File("none/a.orib"), doc_, {}), 0);
  EXPECT_EQ(messages_, "Unable to save " + folder_.File("none/a.orib") + ".\n");
}

TEST_F(PlugIn, CommandsLiveWithIt) {
  EXPECT_TRUE(plugIn_.Commands().empty());
  plugIn_.AddCommand<CCommandOrvVersionIncrement>();
  ASSERT_EQ(plugIn_.Commands().size(), 1u);
  EXPECT_EQ(plugIn_.Commands()[0]->EnglishCommandName(), "OrvVersionIncrement");
}

}  // namespace
}  // namespace orv
