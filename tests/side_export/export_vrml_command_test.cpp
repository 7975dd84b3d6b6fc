#include "side_export/export_vrml_command.h"

#include <gmock/gmock.h>

#include "command_fixture.h"
#include "vrml_checker.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using ExportVrmlCommand = CommandTest;

TEST_F(ExportVrmlCommand, AScriptIsAskedForTheFile) {
  const std::string file = folder_.File("a ö.wrl");
  EXPECT_EQ(Run<CCommandOrvExportVrml>(Form::scripted, {file}), CommandResult::success);
  EXPECT_THAT(prompts_, ElementsAre("Export model to VRML file: "));
  const VrmlReport report = CheckVrml(FileContent(file));
  EXPECT_THAT(report.complaints, IsEmpty());
  EXPECT_EQ(report.shapes.size(), 2U);
  EXPECT_EQ(messages_, "");
}

TEST_F(ExportVrmlCommand, TakesTheDocumentsSkyAndNamesOfMaps) {
  plugIn_.UserStrings().SetUserString("ImageBgColor", "0.2,0.4,0.6");
  plugIn_.UserStrings().SetUserString("ImageBgMode", "0");
  plugIn_.UserStrings().SetUserString("BakeImageName", "C:\\maps\\hall.tif");
  const std::string file = folder_.File("a.wrl");
  EXPECT_EQ(Run<CCommandOrvExportVrml>(Form::scripted, {file}), CommandResult::success);
  const VrmlReport report = CheckVrml(FileContent(file));
  EXPECT_THAT(report.sky, ElementsAre(0.2, 0.4, 0.6));
  EXPECT_EQ(report.shapes.at(0).map,
            "hall_" + doc_.Objects()[0]->Attributes().m_uuid.ToString() + ".tif");
}

TEST_F(ExportVrmlCommand, APersonIsShownADialog) {
  EXPECT_EQ(kVrmlPicker.Title, "Export Vrml");
  EXPECT_THAT(Rows(kVrmlPicker), ElementsAre("VRML Files (*.wrl)|*.wrl", "All Files|*.*"));
  EXPECT_EQ(Run<CCommandOrvExportVrml>(Form::interactive, {folder_.File("room")}),
            CommandResult::success);
  EXPECT_THAT(CheckVrml(FileContent(folder_.File("room.wrl"))).complaints, IsEmpty());
}

TEST_F(ExportVrmlCommand, MayBeCancelled) {
  EXPECT_EQ(Run<CCommandOrvExportVrml>(Form::interactive, {"!"}), CommandResult::failure);
  EXPECT_EQ(Run<CCommandOrvExportVrml>(Form::scripted, {"!"}), CommandResult::cancel);
  EXPECT_EQ(Run<CCommandOrvExportVrml>(Form::scripted, {"Enter"}), CommandResult::nothing);
  EXPECT_EQ(messages_, "");
}

TEST_F(ExportVrmlCommand, AFileThatCannotBeOpenedIsToldAndFails) {
  EXPECT_EQ(Run<CCommandOrvExportVrml>(Form::scripted, {folder_.File("none/a.wrl")}),
            CommandResult::failure);
  EXPECT_EQ(messages_, "Unable to open file for export.\n");
}

}  // namespace
}  // namespace orv
