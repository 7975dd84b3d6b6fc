#include "host/command/completion.h"

#include <gmock/gmock.h>

#include "support/temp_folder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Prompt OptionPrompt() {
  Prompt prompt;
  prompt.Options = {{"Archive", "a.rib", {}},
                    {"Materials", "Yes", {"No", "Yes"}},
                    {"Mode", "Color", {"Transparent", "Color", "Camera"}}};
  return prompt;
}

TEST(Completion, CommandNamesByTheirBeginningInAnyCase) {
  Prompt prompt;
  prompt.AsksForCommand = true;
  prompt.Words = {"SelAll", "SelNone", "Show"};
  EXPECT_THAT(Complete(prompt, "sel").candidates, ElementsAre("SelAll", "SelNone"));
  EXPECT_THAT(Complete(prompt, "x").candidates, IsEmpty());
  EXPECT_EQ(Complete(prompt, "").candidates.size(), 3U);
}

TEST(Completion, MarksBeforeANameStayInPlace) {
  Prompt prompt;
  prompt.Words = {"OrvExport"};
  const Completion completion = Complete(prompt, "_-orv");
  EXPECT_EQ(completion.start, 2U);
  EXPECT_THAT(completion.candidates, ElementsAre("OrvExport"));
}

TEST(Completion, OptionsWithWordsEndInAnEqualsSign) {
  EXPECT_THAT(Complete(OptionPrompt(), "").candidates,
              ElementsAre("Archive", "Materials=", "Mode="));
  EXPECT_THAT(Complete(OptionPrompt(), "Archive mat").candidates, ElementsAre("Materials="));
  EXPECT_EQ(Complete(OptionPrompt(), "Archive mat").start, 8U);
}

TEST(Completion, ValuesFollowTheEqualsSign) {
  EXPECT_THAT(Complete(OptionPrompt(), "mode=c").candidates,
              ElementsAre("Mode=Camera", "Mode=Color"));
  EXPECT_THAT(Complete(OptionPrompt(), "Archive=x").candidates, IsEmpty());
}

TEST(Completion, TextIsCompletedAsAWhole) {
  Prompt prompt;
  prompt.TakesText = true;
  prompt.Words = {"Left wall", "Left window"};
  const Completion completion = Complete(prompt, "left w");
  EXPECT_EQ(completion.start, 0U);
  EXPECT_THAT(completion.candidates, ElementsAre("Left wall", "Left window"));
  EXPECT_EQ(completion.CommonPrefix(), "Left w");
}

TEST(Completion, FileNamesOfTheTypedFolder) {
  const TempFolder folder;
  WriteFileContent(folder.File("scene one.3dm"), "");
  WriteFileContent(folder.File("scene.ors"), "");
  WriteFileContent(folder.File(".hidden"), "");
  std::filesystem::create_directory(folder.File("schön"));
  Prompt prompt;
  prompt.TakesText = prompt.TakesPath = true;
  const std::string line = folder.File("sc");
  const Completion completion = Complete(prompt, line);
  EXPECT_EQ(completion.start, line.size() - 2);
  EXPECT_THAT(completion.candidates, ElementsAre("scene one.3dm", "scene.ors", "schön/"));
  EXPECT_THAT(Complete(prompt, folder.File(".")).candidates, ElementsAre(".hidden"));
}

TEST(Completion, RelativeNamesStandInThePromptsFolder) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.File("maps"));
  WriteFileContent(folder.File("maps/sky.tx"), "");
  Prompt prompt;
  prompt.TakesText = prompt.TakesPath = true;
  prompt.Folder = folder.Path().string();
  EXPECT_THAT(Complete(prompt, "").candidates, ElementsAre("maps/"));
  EXPECT_THAT(Complete(prompt, "maps\\s").candidates, ElementsAre("sky.tx"));
}

TEST(Completion, FolderThatIsNotThereGivesNothing) {
  Prompt prompt;
  prompt.TakesText = prompt.TakesPath = true;
  EXPECT_THAT(Complete(prompt, "/no/such/folder/x").candidates, IsEmpty());
}

TEST(Completion, CommonPrefixCutsNoLetterInHalf) {
  Completion completion;
  completion.candidates = {"aä", "aö"};
  EXPECT_EQ(completion.CommonPrefix(), "a");
  completion.candidates = {"ab", "abc"};
  EXPECT_EQ(completion.CommonPrefix(), "ab");
  completion.candidates.clear();
  EXPECT_EQ(completion.CommonPrefix(), "");
}

}  // namespace
