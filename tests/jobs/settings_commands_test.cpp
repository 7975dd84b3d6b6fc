#include "jobs/settings_commands.h"

#include <gmock/gmock.h>

#include "command_fixture.h"
#include "settings/settings_store.h"

namespace orv {
namespace {

using testing::ElementsAre;

using LoadSettingsCommand = CommandTest;
using SaveSettingsCommand = CommandTest;
using ResetSettingsCommand = CommandTest;

TEST_F(SaveSettingsCommand, DialogsTitleAndFilters) {
  EXPECT_EQ(kSaveSettingsPicker.Title, "Save Orv Settings");
  EXPECT_THAT(Rows(kSaveSettingsPicker),
              ElementsAre("Orv Rhino Settings (*.ors)|*.ors", "All Files|*.*"));
}

TEST_F(SaveSettingsCommand, DialogBeginsWithTheRowOfSettingsFiles) {
  plugIn_.UserStrings().SetUserString("GiMode", "3");
  plugIn_.User().SettingsDir = folder_.Path().string();
  EXPECT_EQ(Run<CCommandOrvSaveSettings>(Form::interactive, {"set v1.2"}), CommandResult::success);
  EXPECT_EQ(FileContent(folder_.File("set v1.ors")), "GiMode=3\n");
  EXPECT_EQ(Run<CCommandOrvSaveSettings>(Form::interactive, {"a.txt"}), CommandResult::success);
  EXPECT_EQ(FileContent(folder_.File("a.ors")), "GiMode=3\n");
}

TEST_F(SaveSettingsCommand, ScriptedFormAsksForAName) {
  plugIn_.UserStrings().SetUserString("GiMode", "3");
  EXPECT_EQ(Run<CCommandOrvSaveSettings>(Form::scripted, {folder_.File("mein ä.ors")}),
            CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Save Orv settings to file name: "));
  EXPECT_EQ(FileContent(folder_.File("mein ä.ors")), "GiMode=3\n");
  EXPECT_EQ(messages_, "");
}

TEST_F(SaveSettingsCommand, InteractiveFormShowsADialog) {
  plugIn_.UserStrings().SetUserString("GiMode", "3");
  plugIn_.User().SettingsDir = folder_.Path().string();
  EXPECT_EQ(Run<CCommandOrvSaveSettings>(Form::interactive, {"new"}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Save Orv Settings (in " + folder_.Path().string() + "): "));
  EXPECT_EQ(FileContent(folder_.File("new.ors")), "GiMode=3\n");
  EXPECT_EQ(plugIn_.User().SettingsDir, folder_.Path().string() + "/");
}

TEST_F(SaveSettingsCommand, FailureIsTold) {
  EXPECT_EQ(Run<CCommandOrvSaveSettings>(Form::scripted, {folder_.File("none/a.ors")}),
            CommandResult::failure);
  EXPECT_EQ(messages_, "Unable to save settings.\n");
}

TEST_F(SaveSettingsCommand, CancelledPromptAndDialog) {
  EXPECT_EQ(Run<CCommandOrvSaveSettings>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvSaveSettings>(Form::interactive, {"!"}), CommandResult::failure);
  EXPECT_EQ(messages_, "");
}

TEST_F(LoadSettingsCommand, DialogsTitleAndFilters) {
  EXPECT_EQ(kLoadSettingsPicker.Title, "Load Orv Settings");
  EXPECT_THAT(Rows(kLoadSettingsPicker),
              ElementsAre("Orv Rhino Settings (*.ors)|*.ors", "All Files|*.*"));
}

TEST_F(LoadSettingsCommand, ScriptedFormAsksForAName) {
  WriteFileContent(folder_.File("mein ä.ors"), "GiMode=3\nA=1\n  Key = value \n");
  plugIn_.UserStrings().SetUserString("Old", "1");
  EXPECT_EQ(Run<CCommandOrvLoadSettings>(Form::scripted, {folder_.File("mein ä.ors")}),
            CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Load Orv settings from file name: "));
  EXPECT_EQ(plugIn_.UserStrings().m_e,
            (std::vector<ON_UserString>{{"GiMode", "3"}, {"Key", "value"}}));
  EXPECT_EQ(messages_, "");
}

TEST_F(LoadSettingsCommand, InteractiveFormShowsADialog) {
  WriteFileContent(folder_.File("a.ors"), "GiMode=3\n");
  plugIn_.User().SettingsDir = folder_.Path().string();
  EXPECT_EQ(Run<CCommandOrvLoadSettings>(Form::interactive, {"a.ors"}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Load Orv Settings (in " + folder_.Path().string() + "): "));
  EXPECT_EQ(Setting("GiMode"), "3");
}

TEST_F(LoadSettingsCommand, FailureIsToldAndTheSettingsStay) {
  plugIn_.UserStrings().SetUserString("Old", "1");
  for (const std::string& name : {folder_.File("none.ors"), folder_.Path().string()}) {
    messages_.clear();
    EXPECT_EQ(Run<CCommandOrvLoadSettings>(Form::scripted, {name}), CommandResult::failure);
    EXPECT_EQ(messages_, "Unable to load settings.\n");
  }
  EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"Old", "1"}}));
}

TEST_F(LoadSettingsCommand, CancelledPromptAndDialog) {
  EXPECT_EQ(Run<CCommandOrvLoadSettings>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvLoadSettings>(Form::interactive, {"!"}), CommandResult::failure);
  EXPECT_EQ(messages_, "");
}

TEST_F(LoadSettingsCommand, TakesBackWhatWasSaved) {
  plugIn_.StoreSettings(RenderSettings{});
  const auto saved = plugIn_.UserStrings().m_e;
  const std::string name = folder_.File("a.ors");
  ASSERT_EQ(Run<CCommandOrvSaveSettings>(Form::scripted, {name}), CommandResult::success);
  plugIn_.UserStrings().SetUserString("GiMode", "4");
  ASSERT_EQ(Run<CCommandOrvLoadSettings>(Form::scripted, {name}), CommandResult::success);
  EXPECT_EQ(plugIn_.UserStrings().m_e, saved);
}

TEST_F(ResetSettingsCommand, OverwritesTheRenderSettingsOnly) {
  plugIn_.UserStrings().m_e = {
      {"IprShadeMode", "2"}, {"GiMode", "3"}, {"BakeGamma", "1"}, {"Mine", "x"}};
  EXPECT_EQ(Run<CCommandOrvResetSettings>(Form::scripted, {}), CommandResult::success);
  EXPECT_EQ(Setting("GiMode"), "0");
  EXPECT_EQ(Setting("PixelSamples"), "4");
  EXPECT_EQ(Setting("IprShadeMode"), "2");
  EXPECT_EQ(Setting("BakeGamma"), "1");
  EXPECT_EQ(Setting("Mine"), "x");
  EXPECT_EQ(plugIn_.UserStrings().m_e.size(), RenderSettingFields().size() + 3);
  EXPECT_EQ(messages_, "");
}

TEST_F(ResetSettingsCommand, ResetsSomeOfTheUsersValues) {
  UserValues& user = plugIn_.User();
  user.Threads = 8;
  user.Gyre = true;
  user.ConvertTextures = false;
  user.IlluminanceUnity = 3;
  user.IprThreads = 4;
  EXPECT_EQ(Run<CCommandOrvResetSettings>(Form::interactive, {}), CommandResult::success);
  EXPECT_EQ(user.Threads, 1);
  EXPECT_FALSE(user.Gyre);
  EXPECT_TRUE(user.ConvertTextures);
  EXPECT_EQ(user.IlluminanceUnity, 3);
  EXPECT_EQ(user.IprThreads, 4);
}

}  // namespace
}  // namespace orv
