#include "jobs/write_archive_command.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "command_fixture.h"
#include "support/scoped_environment.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class WriteArchiveCommand : public CommandTest {
 protected:
  WriteArchiveCommand() { EXPECT_TRUE(doc_.Objects()[0]->Select()); }

  static std::string WithBackslashes(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
  }
};

TEST_F(WriteArchiveCommand, WritesTheSelectedObjectsAlone) {
  const std::string name = folder_.File("ein ä.rib");
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", name, "Enter"}),
            CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Write Archive ( Archive ): ", "Archive: ",
                                    "Write Archive ( Archive=" + WithBackslashes(name) +
                                        "  Materials=Yes ): "));
  const std::string rib = FileContent(name);
  EXPECT_THAT(rib, HasSubstr("PointsPolygons"));
  EXPECT_THAT(rib, HasSubstr("0 0 3"));
  EXPECT_THAT(rib, Not(HasSubstr("0 0 7")));
  EXPECT_THAT(rib, Not(HasSubstr("##RenderMan")));
  EXPECT_THAT(rib, Not(HasSubstr("WorldBegin")));
  EXPECT_THAT(rib, Not(HasSubstr("Projection")));
  EXPECT_EQ(rib.find('\n'), 0u);
  EXPECT_EQ(messages_, "Writing " + WithBackslashes(name) + "\n");
}

TEST_F(WriteArchiveCommand, NameMayFollowItsOption) {
  const std::string name = folder_.File("a.rib");
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"arch=" + name, "Enter"}),
            CommandResult::success);
  EXPECT_THAT(FileContent(name), HasSubstr("PointsPolygons"));
}

TEST_F(WriteArchiveCommand, EnterAtFirstHasNoName) {
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Enter"}), CommandResult::success);
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::interactive, {"Enter"}), CommandResult::success);
  EXPECT_EQ(messages_, "Missing rib file nameMissing rib file name");
}

TEST_F(WriteArchiveCommand, NameOfTheDocumentIsNotTaken) {
  plugIn_.UserStrings().SetUserString("RibName", folder_.File("scene.rib"));
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Enter"}), CommandResult::success);
  EXPECT_EQ(messages_, "Missing rib file name");
}

TEST_F(WriteArchiveCommand, FailureOfTheExportIsToldByTheExport) {
  const std::string name = folder_.File("none/a.rib");
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", name, "Enter"}),
            CommandResult::success);
  EXPECT_EQ(messages_, "Unable to save " + WithBackslashes(name) + ".\n");
}

TEST_F(WriteArchiveCommand, MaterialsIsAToggle) {
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", "a.rib", "Materials",
                                                          "Materials=Yes", "Materials=No", "!"}),
            CommandResult::cancel);
  EXPECT_THAT(prompts_, ElementsAre("Write Archive ( Archive ): ", "Archive: ",
                                    "Write Archive ( Archive=a.rib  Materials=Yes ): ",
                                    "Write Archive ( Archive=a.rib  Materials=No ): ",
                                    "Write Archive ( Archive=a.rib  Materials=Yes ): ",
                                    "Write Archive ( Archive=a.rib  Materials=No ): "));
}

TEST_F(WriteArchiveCommand, MaterialsNeedsAName) {
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Materials"}), CommandResult::failure);
  EXPECT_EQ(messages_, "");
}

TEST_F(WriteArchiveCommand, NameMayBeginWithTheHomeVariable) {
  const ScopedEnvironment home("ORVHOME", folder_.Path().string());
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", "$orvhome/b.rib", "Enter"}),
            CommandResult::success);
  EXPECT_EQ(messages_, "Writing " + WithBackslashes(folder_.File("b.rib")) + "\n");
  EXPECT_THAT(FileContent(folder_.File("b.rib")), HasSubstr("PointsPolygons"));
}

TEST_F(WriteArchiveCommand, HomeVariableMayHaveBackslashes) {
  const ScopedEnvironment home("ORVHOME", WithBackslashes(folder_.Path().string()));
  std::filesystem::create_directory(folder_.File("sub"));
  EXPECT_EQ(
      Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", "$ORVHOME\\sub/b.rib", "Enter"}),
      CommandResult::success);
  EXPECT_EQ(messages_, "Writing " + WithBackslashes(folder_.File("sub/b.rib")) + "\n");
  EXPECT_THAT(FileContent(folder_.File("sub/b.rib")), HasSubstr("PointsPolygons"));
}

TEST_F(WriteArchiveCommand, NameMayMixSeparators) {
  std::filesystem::create_directory(folder_.File("sub"));
  const std::string name = folder_.Path().string() + "\\sub/b.rib";
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", name, "Enter"}),
            CommandResult::success);
  EXPECT_EQ(messages_, "Writing " + WithBackslashes(folder_.File("sub/b.rib")) + "\n");
  EXPECT_THAT(FileContent(folder_.File("sub/b.rib")), HasSubstr("PointsPolygons"));
}

TEST_F(WriteArchiveCommand, DialogsTitleAndFilters) {
  EXPECT_EQ(kArchiveQuestion.Picker.Title, "Write Archive");
  EXPECT_THAT(Rows(kArchiveQuestion.Picker),
              ElementsAre("RIB Files (*.rib)|*.rib", "All Files|*.*"));
}

TEST_F(WriteArchiveCommand, CancelledAndEmptyPromptsEndTheCommand) {
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", "!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", "Enter"}),
            CommandResult::nothing);
  EXPECT_EQ(messages_, "");
}

TEST_F(WriteArchiveCommand, InteractiveFormShowsADialog) {
  plugIn_.User().RibDir = folder_.Path().string();
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::interactive, {"Archive", "c", "Enter"}),
            CommandResult::success);
  const std::string name = folder_.File("c.rib");
  EXPECT_THAT(prompts_, ElementsAre("Write Archive ( Archive ): ",
                                    "Write Archive (in " + folder_.Path().string() + "): ",
                                    "Write Archive ( Archive=" + name + "  Materials=Yes ): "));
  EXPECT_THAT(FileContent(name), HasSubstr("PointsPolygons"));
  EXPECT_EQ(plugIn_.User().RibDir, folder_.Path().string() + "/");
}

TEST_F(WriteArchiveCommand, RefusedDialogKeepsTheName) {
  plugIn_.User().RibDir = folder_.Path().string();
  EXPECT_EQ(
      Run<CCommandOrvWriteArchive>(Form::interactive, {"Archive", "c", "Archive", "!", "Enter"}),
      CommandResult::success);
  EXPECT_THAT(FileContent(folder_.File("c.rib")), HasSubstr("PointsPolygons"));
}

TEST_F(WriteArchiveCommand, DocumentsSettingsStay) {
  plugIn_.UserStrings().SetUserString("Selected", "0");
  const std::string name = folder_.File("a.rib");
  EXPECT_EQ(Run<CCommandOrvWriteArchive>(Form::scripted, {"Archive", name, "Enter"}),
            CommandResult::success);
  EXPECT_EQ(plugIn_.UserStrings().m_e, (std::vector<ON_UserString>{{"Selected", "0"}}));
}

}  // namespace
}  // namespace orv
