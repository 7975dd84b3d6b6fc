#include "host/command/file_dialog.h"

#include <gmock/gmock.h>

#include "host/command/command.h"
#include "host/document/doc.h"
#include "support/scoped_environment.h"
#include "support/temp_folder.h"
#include "support/typed_input.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileDialogTest : public testing::Test {
 protected:
  FileDialogTest() {
    dialog_.Title = "Write Archive";
    dialog_.Filters = {{"RIB Files (*.rib)", "*.rib"}, {"All Files", "*.*"}, {"Settings", "*.ors"}};
    dialog_.Folder = folder_.Path().string();
    WriteFileContent(folder_.File("old.rib"), "old");
  }
  std::optional<CRhinoFileChoice> Open(std::vector<std::string> answers) {
    input_ = std::make_unique<TypedInput>(std::move(answers));
    CRhinoCommandContext context(doc_, *input_, true);
    return GetOpenFileName(context, dialog_);
  }
  std::optional<CRhinoFileChoice> Save(std::vector<std::string> answers) {
    input_ = std::make_unique<TypedInput>(std::move(answers));
    CRhinoCommandContext context(doc_, *input_, true);
    return GetSaveFileName(context, dialog_);
  }

  TempFolder folder_;
  CRhinoDoc doc_;
  CRhinoFileDialog dialog_;
  std::unique_ptr<TypedInput> input_;
};

TEST_F(FileDialogTest, PromptTellsTitleFolderAndDefault) {
  dialog_.FileName = folder_.File("old.rib");
  Open({"!"});
  EXPECT_THAT(input_->Prompts(), ElementsAre("Write Archive (in " + dialog_.Folder + ") <" +
                                             dialog_.FileName + ">: "));
}

TEST_F(FileDialogTest, RelativeNameStandsInTheFolder) {
  const auto choice = Open({"old.rib"});
  ASSERT_TRUE(choice);
  EXPECT_EQ(FileContent(choice->Path), "old");
  EXPECT_EQ(choice->FilterIndex, 1);
}

TEST_F(FileDialogTest, AbsoluteNameStandsForItself) {
  dialog_.Folder = "/no/such/folder";
  const auto choice = Open({folder_.File("old.rib")});
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->Path, folder_.File("old.rib"));
}

TEST_F(FileDialogTest, TildeIsTheHomeFolder) {
  const ScopedEnvironment home("HOME", folder_.Path().string());
  dialog_.Folder = "/no/such/folder";
  const auto choice = Open({"~/old.rib"});
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->Path, folder_.File("old.rib"));
}

TEST_F(FileDialogTest, EnterTakesTheDefaultAsItStands) {
  const TempFolder other;
  WriteFileContent(other.File("a.rib"), "");
  dialog_.FileName = other.File("a.rib");
  const auto choice = Open({"Enter"});
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->Path, other.File("a.rib"));
}

TEST_F(FileDialogTest, CancelEnterAndTheEndGiveNothing) {
  EXPECT_FALSE(Open({"!"}));
  EXPECT_FALSE(Open({"Enter"}));
  EXPECT_FALSE(Save({}));
}

TEST_F(FileDialogTest, FileToOpenMustExist) {
  const auto choice = Open({"new.rib", "old.rib"});
  ASSERT_TRUE(choice);
  EXPECT_THAT(input_->Refusals(),
              ElementsAre("There is no file '" + folder_.File("new.rib") + "'."));
}

TEST_F(FileDialogTest, FolderIsNoFile) {
  std::filesystem::create_directory(folder_.File("sub"));
  EXPECT_FALSE(Open({"sub", "!"}));
  EXPECT_FALSE(Save({"sub", "!"}));
  EXPECT_THAT(input_->Refusals(), ElementsAre("'" + folder_.File("sub") + "' is a folder."));
}

TEST_F(FileDialogTest, NewFileIsTakenWithoutAQuestion) {
  const auto choice = Save({"new.rib"});
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->Path, folder_.File("new.rib"));
  EXPECT_THAT(input_->Refusals(), IsEmpty());
}

TEST_F(FileDialogTest, ExistingFileIsAskedAbout) {
  ASSERT_TRUE(Save({"old.rib", "Yes"}));
  EXPECT_EQ(input_->Prompts()[1],
            folder_.File("old.rib") + " exists. Replace it? <No> ( Yes  No ): ");
  const auto other = Save({"old.rib", "no", "old.rib", "Enter", "new.rib"});
  ASSERT_TRUE(other);
  EXPECT_EQ(other->Path, folder_.File("new.rib"));
  EXPECT_FALSE(Save({"old.rib", "!"}));
}

TEST_F(FileDialogTest, FileIsSavedInAFolderThatExists) {
  const std::string missing = folder_.File("newfolder/");
  const auto choice =
      Save({"newfolder/", "newfolder/a.rib", "newfolder\\a.rib", missing + "a.rib", "new.rib"});
  ASSERT_TRUE(choice);
  EXPECT_EQ(choice->Path, folder_.File("new.rib"));
  const std::string message = "There is no folder '" + missing + "'.";
  EXPECT_THAT(input_->Refusals(),
              ElementsAre(message, message,
                          "There is no folder '" + folder_.File("newfolder\\") + "'.", message));
}

TEST_F(FileDialogTest, SavedFileHasAName) {
  EXPECT_FALSE(Save({".rib", "!"}));
  EXPECT_THAT(input_->Refusals(),
              ElementsAre("'" + folder_.File(".rib") + "' has no name before its extension."));
}

TEST_F(FileDialogTest, ExtensionChoosesTheRow) {
  EXPECT_EQ(Save({"a.RIB"})->FilterIndex, 1);
  EXPECT_EQ(Save({"a.ors"})->FilterIndex, 3);
}

TEST_F(FileDialogTest, RowStaysWhenNoneHasTheExtension) {
  for (const int row : {1, 2, 3}) {
    dialog_.FilterIndex = row;
    for (const char* name : {"a", "a.", "a.txt", "a.*", "set v1.2"}) {
      EXPECT_EQ(Save({name})->FilterIndex, row) << name;
    }
  }
}

}  // namespace
