#include "jobs/environment_map_command.h"

#include <gmock/gmock.h>

#include "command_fixture.h"

namespace orv {
namespace {

using testing::ElementsAre;

using EnvironmentMapCommand = CommandTest;

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
