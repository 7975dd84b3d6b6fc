#include "jobs/environment_map_command.h"

#include <gmock/gmock.h>

#include "command_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;

using EnvironmentMapCommand = CommandTest;

TEST_F(EnvironmentMapCommand, DialogsTitleAndFilters) {
  EXPECT_EQ(kEnvironmentMapPicker.Title, "Choose Environment Map");
  EXPECT_THAT(
      Rows(kEnvironmentMapPicker),
      ElementsAre("All files|*.*", "Orv Texture Maps (*.tx)|*.tx",
                  "Portable Network Graphics (*.png)|*.png",
                  "JPEG Interchange Format (*.jpg)|*.jpg", "Tagged Image File Format (*.tif)|*.tif",
                  "Radiance HDR (*.hdr)|*.hdr", " Photoshop File Format (*.psd)|*.psd",
                  "SGI Image Format (*.sgi)|*.sgi", "IES Light Profiles (*.ies)|*.ies"));
}

TEST_F(EnvironmentMapCommand, DialogBeginsWithTheRowOfAllFiles) {
  const auto filters = FileFiltersFromText(kEnvironmentMapPicker.Filter);
  EXPECT_EQ(FileFilterIndex(filters, ""), 1);
  EXPECT_EQ(FileFilterIndex(filters, "C:\\maps\\sky.psd"), 7);
}

TEST_F(EnvironmentMapCommand, ScriptedFormSetsAllThreeMaps) {
  plugIn_.UserStrings().SetUserString("GiMode", "3");
  EXPECT_EQ(Run<CCommandOrvEnvironmentMap>(Form::scripted, {"C:\\mäps\\sky one.hdr"}),
            CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Environment map file name: "));
  EXPECT_EQ(Setting("GiBgMap"), "C:\\mäps\\sky one.hdr");
  EXPECT_EQ(Setting("ReflectionBgMap"), "C:\\mäps\\sky one.hdr");
  EXPECT_EQ(Setting("ImageBgMap"), "C:\\mäps\\sky one.hdr");
  EXPECT_EQ(Setting("GiMode"), "3");
  EXPECT_EQ(messages_, "");
}

TEST_F(EnvironmentMapCommand, InteractiveFormShowsADialog) {
  WriteFileContent(folder_.File("sky.hdr"), "");
  plugIn_.User().EnvironmentDir = folder_.Path().string();
  EXPECT_EQ(Run<CCommandOrvEnvironmentMap>(Form::interactive, {"sky.hdr"}), CommandResult::success);
  EXPECT_THAT(prompts_,
              ElementsAre("Choose Environment Map (in " + folder_.Path().string() + "): "));
  EXPECT_EQ(Setting("ImageBgMap"), folder_.File("sky.hdr"));
  EXPECT_EQ(plugIn_.User().EnvironmentDir, folder_.Path().string() + "/");
}

TEST_F(EnvironmentMapCommand, NothingIsStoredWhenNoNameIsGiven) {
  EXPECT_EQ(Run<CCommandOrvEnvironmentMap>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvEnvironmentMap>(Form::scripted, {"Enter"}), CommandResult::nothing);
  EXPECT_EQ(Run<CCommandOrvEnvironmentMap>(Form::interactive, {"!"}), CommandResult::failure);
  EXPECT_TRUE(plugIn_.UserStrings().IsEmpty());
}

}  // namespace
}  // namespace orv
