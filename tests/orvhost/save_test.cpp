#include <gmock/gmock.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include "program_fixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SaveTest : public ProgramTest {
 protected:
  std::string Content(const std::string& name) const { return FileContent(folder_.File(name)); }
};

TEST_F(SaveTest, SaveWithoutAChangeGivesTheSameBytes) {
  WriteMeshes("modell.3dm");
  const std::string before = Content("modell.3dm");
  const ProcessResult result = Run({"modell.3dm", "-c", "Save"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out, "Saved modell.3dm.\n");
  EXPECT_EQ(Content("modell.3dm"), before);
}

TEST_F(SaveTest, TextsAreThereWhenTheDocumentIsOpenedAgain) {
  WriteMeshes("modell.3dm");
  EXPECT_EQ(
      Run({"modell.3dm", "-c", "SelName Mesh1 SetUserText Größe \"12 \"\"m\"\"\" Save"}).status, 0);
  EXPECT_THAT(Run({"modell.3dm", "-c", "SelName Mesh1 What"}).out, HasSubstr("Größe"));
}

TEST_F(SaveTest, SaveAsMakesTheOtherFileTheDocument) {
  WriteMeshes("modell.3dm");
  const std::string before = Content("modell.3dm");
  const ProcessResult result =
      Run({"modell.3dm", "-c",
           "SelAll SetUserText A 1 SaveAs kopie SetUserText A 2 Save DocumentInfo"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, HasSubstr("Saved kopie.3dm.\n"));
  EXPECT_THAT(result.out, HasSubstr("Document: kopie.3dm\n"));
  EXPECT_EQ(Content("modell.3dm"), before);
  EXPECT_THAT(Files(), ElementsAre("kopie.3dm", "modell.3dm", "profile"));
}

TEST_F(SaveTest, AScriptReplacesAnotherFile) {
  WriteMeshes("modell.3dm");
  WriteMeshes("alt.3dm", 1);
  EXPECT_EQ(Run({"modell.3dm", "-c", "SaveAs alt.3dm"}).status, 0);
  EXPECT_EQ(Content("alt.3dm"), Content("modell.3dm"));
}

TEST_F(SaveTest, SaveAsOverTheOpenFileIsSave) {
  WriteMeshes("modell.3dm");
  EXPECT_EQ(Run({"modell.3dm", "-c", "SelAll SetUserText A 1 SaveAs modell.3dm Undo Save"}).status,
            0);
  EXPECT_EQ(Run({"modell.3dm", "-c", "SelAll"}).status, 0);
}

TEST_F(SaveTest, ANewDocumentHasNoFileYet) {
  const ProcessResult result = Run({"-c", "Save"});
  EXPECT_EQ(result.status, 3);
  EXPECT_EQ(result.out, "The document has no file yet; SaveAs gives it one.\n");
  EXPECT_EQ(Run({"-c", "SaveAs neu.3dm Save"}).status, 0);
  EXPECT_EQ(Run({"neu.3dm", "-c", "DocumentInfo"}).status, 0);
}

TEST_F(SaveTest, ReasonsWhyAFileCanNotBeWritten) {
  WriteMeshes("modell.3dm");
  std::filesystem::create_directory(folder_.File("ordner.3dm"));
  const ProcessResult folder = Run({"modell.3dm", "-c", "SaveAs ordner.3dm"});
  EXPECT_EQ(folder.status, 3);
  EXPECT_EQ(folder.out, "Unable to save ordner.3dm: Is a directory.\n");
  const ProcessResult missing = Run({"modell.3dm", "-c", "SaveAs weg/modell.3dm"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_EQ(missing.out, "Unable to save weg/modell.3dm: No such file or directory.\n");
}

TEST_F(SaveTest, SettingsOfTheDocumentAreSavedAndComeBack) {
  WriteMeshes("modell.3dm");
  const std::string before = Content("modell.3dm");
  const std::string settings = "PixelSamples=7\nOrvNote=größer = als\n";
  WriteFileContent(folder_.File("a.ors"), settings);
  EXPECT_EQ(Run({"modell.3dm", "-c", "OrvLoadSettings a.ors Save"}).status, 0);
  const std::string after = Content("modell.3dm");
  EXPECT_NE(after, before);
  EXPECT_EQ(Run({"modell.3dm", "-c", "OrvSaveSettings b.ors"}).status, 0);
  EXPECT_EQ(Content("b.ors"), settings);
  // The user's profile has gamma values by now; they are no change of the document.
  EXPECT_EQ(Run({"modell.3dm", "-c", "Save"}).status, 0);
  EXPECT_EQ(Content("modell.3dm"), after);
}

TEST_F(SaveTest, WithoutSettingsThereIsNoDataOfThePlugIn) {
  WriteMeshes("modell.3dm");
  const std::string before = Content("modell.3dm");
  WriteFileContent(folder_.File("a.ors"), "PixelSamples=7\n");
  WriteFileContent(folder_.File("leer.ors"), "");
  EXPECT_EQ(
      Run({"modell.3dm", "-c", "OrvLoadSettings a.ors Save OrvLoadSettings leer.ors Save"}).status,
      0);
  EXPECT_EQ(Content("modell.3dm"), before);
}

TEST_F(SaveTest, AFullDiskLeavesTheFileAsItWas) {
  WriteMeshes("modell.3dm", 50, 20);
  const std::string before = Content("modell.3dm");
  std::vector<std::string> command = {"/bin/sh", "-c", "ulimit -f 8; exec \"$0\" \"$@\""};
  for (std::string& word : Command({"modell.3dm", "-c", "SelAll SetUserText A 1 Save"})) {
    command.push_back(std::move(word));
  }
  const ProcessResult result = RunProcess(command, options_);
  EXPECT_EQ(result.status, 3);
  EXPECT_THAT(result.out, HasSubstr("Unable to save modell.3dm: File too large.\n"));
  EXPECT_EQ(Content("modell.3dm"), before);
}

// Killed at any moment, the file is the old or the new one, whole.
TEST_F(SaveTest, AKilledProgramLeavesAWholeFile) {
  WriteMeshes("modell.3dm", 200, 50);
  const std::string before = Content("modell.3dm");
  EXPECT_EQ(Run({"modell.3dm", "-c", "SelAll SetUserText A 1 SaveAs neu.3dm"}).status, 0);
  const std::string after = Content("neu.3dm");
  int replaced = 0;
  for (int wait = 0; wait < 40 && replaced == 0; ++wait) {
    WriteFileContent(folder_.File("modell.3dm"), before);
    Process program(Command({"modell.3dm", "-c", "SelAll SetUserText A 1 Save"}), options_);
    std::this_thread::sleep_for(std::chrono::milliseconds(5 * wait));
    program.Signal(SIGKILL);
    program.Wait();
    const std::string now = Content("modell.3dm");
    ASSERT_TRUE(now == before || now == after) << wait;
    if (now == after) ++replaced;
  }
}

}  // namespace
