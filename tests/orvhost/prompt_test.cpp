#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "program_fixture.h"
#include "support/pty.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr const char* kTab = "\t";
constexpr const char* kCtrlC = "\x03";
constexpr const char* kCtrlD = "\x04";
constexpr const char* kArrowUp = "\x1b[A";

class PromptTest : public ProgramTest {
 protected:
  void Start(std::vector<std::string> arguments = {}) {
    if (arguments.empty()) {
      WriteMeshes("model.3dm");
      arguments = {"model.3dm"};
    }
    terminal_ = std::make_unique<Pty>(Command(std::move(arguments)), options_);
    terminal_->WaitFor("Command: ");
  }
  // Types a line at the prompt and gives what is shown up to the next prompt of a command.
  std::string Enter(std::string_view line) {
    terminal_->Type(line);
    terminal_->Type("\r");
    return terminal_->WaitFor("Command: ");
  }
  void Exit() {
    terminal_->Type("Exit\r");
    EXPECT_EQ(terminal_->Wait(), 0);
  }
  using ProgramTest::Command;

  std::unique_ptr<Pty> terminal_;
};

TEST_F(PromptTest, CommandsRunAndExitEnds) {
  Start();
  EXPECT_THAT(Enter("SelAll"), HasSubstr("2 objects added to the selection.\n"));
  EXPECT_THAT(Enter("SelNone SelName Mesh1"), HasSubstr("1 object added to the selection.\n"));
  Exit();
}

TEST_F(PromptTest, UnknownCommandIsToldAndTheProgramGoesOn) {
  Start();
  EXPECT_THAT(Enter("Nonsense SelAll"),
              AllOf(HasSubstr("Unknown command 'Nonsense'; Help lists the commands.\n"),
                    Not(HasSubstr("selection"))));
  EXPECT_THAT(Enter("\"x"), HasSubstr("A double quote is not closed.\n"));
  EXPECT_THAT(Enter(""), Not(HasSubstr("Unknown")));
  Exit();
}

// The prompt is longer than the terminal's line.
TEST_F(PromptTest, OptionsOfRendersAreEditedUntilEnter) {
  Start();
  terminal_->Type("OrvOptions\r");
  terminal_->WaitFor("Orv Options ( OrvShow=Yes  Animate=Off  ");
  terminal_->WaitFor("ImageName=orv.tif ): ");
  terminal_->Type("CropRegion\r");
  terminal_->WaitFor("Set render region rectangle in viewport (first corner): ");
  terminal_->Type("0,0 10,10\r");
  terminal_->WaitFor("ImageName=orv.tif ): ");
  terminal_->Type("PixelSamples=99\r");
  terminal_->WaitFor("PixelSamples takes a whole number from 1 to 32, not '99'.");
  terminal_->Type("pix\r");
  terminal_->WaitFor("Pixel samples (1-32) <4>: ");
  terminal_->Type("8\r");
  terminal_->WaitFor("PixelSamples=8");
  terminal_->Type("\r");
  terminal_->WaitFor("Command: ");
  Enter("-OrvSaveSettings out.ors");
  const std::string settings = FileContent(folder_.File("out.ors"));
  EXPECT_THAT(settings, AllOf(HasSubstr("PixelSamples=8\n"), HasSubstr("\nCropWindow=0 ")));
  Exit();
}

TEST_F(PromptTest, OptionsAndTheirValuesAreShown) {
  Start();
  Enter("SelAll");
  terminal_->Type("-OrvWriteArchive\r");
  terminal_->WaitFor("Write Archive ( Archive ): ");
  terminal_->Type("Archive\r");
  terminal_->WaitFor("Archive: ");
  terminal_->Type("a mesh.rib\r");
  terminal_->WaitFor("Write Archive ( Archive=a mesh.rib  Materials=Yes ): ");
  terminal_->Type("mat\r");
  terminal_->WaitFor("Write Archive ( Archive=a mesh.rib  Materials=No ): ");
  terminal_->Type("Materials=maybe\r");
  terminal_->WaitFor("Materials takes No or Yes, not 'maybe'.");
  terminal_->WaitFor("Materials=No ): ");
  terminal_->Type("\r");
  terminal_->WaitFor("Command: ");
  EXPECT_THAT(FileContent(folder_.File("a mesh.rib")), HasSubstr("PointsPolygons"));
  Exit();
}

TEST_F(PromptTest, TypedFileNameMayHoldANumberSign) {
  Start();
  Enter("OrvResetSettings");
  terminal_->Type("-OrvSaveSettings\r");
  terminal_->WaitFor("Save Orv settings to file name: ");
  Enter("two #2.ors");
  EXPECT_THAT(FileContent(folder_.File("two #2.ors")), StartsWith("PixelSamples=4\n"));
  Exit();
}

TEST_F(PromptTest, DialogsAreAskedForAsPaths) {
  Start();
  Enter("OrvResetSettings");
  terminal_->Type("OrvSaveSettings\r");
  terminal_->WaitFor("Save Orv Settings: ");
  terminal_->Type("my set\r");
  terminal_->WaitFor("Command: ");
  std::string settings = FileContent(folder_.File("my set.ors"));
  ASSERT_THAT(settings, StartsWith("PixelSamples=4\n"));
  settings.replace(0, 14, "PixelSamples=7");
  WriteFileContent(folder_.File("my set.ors"), settings);
  terminal_->Type("OrvLoadSettings\r");
  terminal_->WaitFor("Load Orv Settings");
  terminal_->Type("none.ors\r");
  terminal_->WaitFor("There is no file 'none.ors'.");
  terminal_->Type("my set.ors\r");
  terminal_->WaitFor("Command: ");
  terminal_->Type("SelAll OrvWriteArchive Archive\r");
  terminal_->WaitFor("Write Archive: ");
  terminal_->Type("archive\r");
  terminal_->WaitFor("Write Archive ( Archive=archive.rib  Materials=Yes ): ");
  terminal_->Type("\r");
  terminal_->WaitFor("Command: ");
  EXPECT_THAT(FileContent(folder_.File("archive.rib")), HasSubstr("PointsPolygons"));
  EXPECT_THAT(Enter("-OrvSaveSettings again.ors"), Not(HasSubstr("Unable")));
  EXPECT_EQ(FileContent(folder_.File("again.ors")), settings);
  Exit();
}

TEST_F(PromptTest, TabCompletesCommandsOptionsAndFiles) {
  Start();
  terminal_->Type("docu");
  terminal_->Type(kTab);
  terminal_->WaitFor("DocumentInfo ");
  terminal_->Type("\r");
  terminal_->WaitFor("Objects: 2 meshes");
  terminal_->WaitFor("Command: ");
  terminal_->Type("sel");
  terminal_->Type(kTab);
  terminal_->Type(kTab);
  EXPECT_THAT(terminal_->WaitFor("SelType"), HasSubstr("SelAll"));
  terminal_->WaitFor("Command: ");
  terminal_->Type("t");
  terminal_->Type(kTab);
  terminal_->Type("\r");
  terminal_->WaitFor("Kind of the objects to select ( Point  PointCloud");
  terminal_->Type("mes");
  terminal_->Type(kTab);
  terminal_->Type("\r");
  terminal_->WaitFor("2 objects added to the selection.");
  WriteFileContent(folder_.File("Ein schönes Modell.3dm"), FileContent(folder_.File("model.3dm")));
  terminal_->WaitFor("Command: ");
  terminal_->Type("Open\r");
  terminal_->WaitFor("File to open: ");
  terminal_->Type("Ein");
  terminal_->Type(kTab);
  terminal_->WaitFor("schönes Modell.3dm");
  terminal_->Type("\r");
  terminal_->WaitFor("Command: ");
  EXPECT_THAT(Enter("DocumentInfo"), HasSubstr("Document: Ein schönes Modell.3dm\n"));
  Exit();
}

TEST_F(PromptTest, ArrowUpBringsTheLastLineAlsoOfAnEarlierRun) {
  Start();
  Enter("SelName Mesh2");
  terminal_->Type(kArrowUp);
  terminal_->WaitFor("SelName Mesh2");
  terminal_->Type("\r");
  terminal_->WaitFor("0 objects added to the selection.");
  terminal_->WaitFor("Command: ");
  Exit();
  Start();
  terminal_->Type(kArrowUp);
  terminal_->WaitFor("Exit");
  terminal_->Type(kArrowUp);
  terminal_->WaitFor("SelName Mesh2");
  terminal_->Type("\r");
  terminal_->WaitFor("1 object added to the selection.");
  terminal_->WaitFor("Command: ");
  Exit();
}

TEST_F(PromptTest, CtrlCClearsTheLineAndEndsTheCommandButNotTheProgram) {
  Start();
  terminal_->Type("SelA");
  terminal_->WaitFor("SelA");
  terminal_->Type(kCtrlC);
  terminal_->WaitFor("Command: ");
  EXPECT_THAT(Enter("SelNone"), HasSubstr("0 objects removed"));
  terminal_->Type("-OrvWriteArchive\r");
  terminal_->WaitFor("( Archive ): ");
  terminal_->Type(kCtrlC);
  terminal_->WaitFor("Command: ");
  EXPECT_THAT(Enter("SelAll"), HasSubstr("2 objects added"));
  Exit();
}

TEST_F(PromptTest, ExclamationMarkEndsTheCommand) {
  Start();
  terminal_->Type("Open\r");
  terminal_->WaitFor("File to open: ");
  terminal_->Type("!\r");
  terminal_->WaitFor("Command: ");
  Exit();
}

TEST_F(PromptTest, CtrlCEndsAnExportThatRuns) {
  WriteMeshes("large.3dm", 5000, 400);
  WriteFileContent(folder_.File("out.orib"), "older\n");
  struct stat older = {};
  ASSERT_EQ(stat(folder_.File("out.orib").c_str(), &older), 0);
  Start({"large.3dm"});
  terminal_->Type("Export out.orib\r");
  const auto begun = [&] {
    struct stat now = {};
    return stat(folder_.File("out.orib").c_str(), &now) == 0 && now.st_ino != older.st_ino;
  };
  for (int i = 0; i < 30000 && !begun(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  terminal_->Type(kCtrlC);
  EXPECT_THAT(terminal_->WaitFor("Command: "), HasSubstr("Interrupted.\n"));
  EXPECT_EQ(FileContent(folder_.File("out.orib")), "older\n");
  EXPECT_THAT(Enter("SelNone"), HasSubstr("0 objects removed"));
  Exit();
}

TEST_F(PromptTest, CtrlDEndsTheProgram) {
  Start();
  terminal_->Type(kCtrlD);
  EXPECT_EQ(terminal_->Wait(), 0);
}

TEST_F(PromptTest, CtrlDInsideACommandEndsTheCommand) {
  Start();
  terminal_->Type("Open\r");
  terminal_->WaitFor("File to open: ");
  terminal_->Type(kCtrlD);
  terminal_->WaitFor("Command: ");
  Exit();
}

TEST_F(PromptTest, NoPromptBesideAScriptOrAnExport) {
  WriteMeshes("model.3dm");
  Pty terminal(Command({"model.3dm", "-c", "SelAll"}), options_);
  EXPECT_EQ(terminal.Wait(), 0);
}

TEST_F(PromptTest, ModelThatCannotBeOpenedIsStatus3) {
  Pty terminal(Command({"none.3dm"}), options_);
  EXPECT_EQ(terminal.Wait(), 3);
}

}  // namespace
