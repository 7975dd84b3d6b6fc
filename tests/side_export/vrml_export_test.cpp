#include "side_export/vrml_export.h"

#include <gmock/gmock.h>

#include "host/system/interrupt.h"
#include "vrml_checker.h"
#include "vrml_fixture.h"

namespace {

using testing::ElementsAre;

using VrmlExport = VrmlTest;

std::vector<std::string> FilesOf(const TempFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

TEST_F(VrmlExport, OfAnEmptyDocumentIsBackgroundAndViews) {
  model_.m_settings.m_views.push_back(PerspectiveView("Camera", {0, -10, 0}, {0, 0, 0}));
  Open();
  EXPECT_EQ(Vrml(), R"(#VRML V2.0 utf8
Background {
skyColor [0.2 0.4 1]
}
Viewpoint {
  position 0 0 10
  fieldOfView 0.392699
  orientation 0 1 0 0
  description "Camera"
}
)");
  EXPECT_EQ(messages_, "");
}

TEST_F(VrmlExport, ReplacesAnOlderFile) {
  Open();
  WriteFileContent(folder_.File("scene.wrl"), std::string(10000, 'x'));
  EXPECT_LT(Vrml().size(), 100U);
  EXPECT_THAT(FilesOf(folder_), ElementsAre("scene.wrl"));
}

TEST_F(VrmlExport, AFileThatCannotBeOpenedIsAFailure) {
  Open();
  std::filesystem::create_directory(folder_.File("folder.wrl"));
  for (const std::string& path :
       {folder_.File("none/a.wrl"), folder_.File("folder.wrl"), std::string()}) {
    messages_.clear();
    EXPECT_EQ(ExportTo(path), CommandResult::failure) << path;
    EXPECT_EQ(messages_, "Unable to open file for export.\n");
  }
}

TEST_F(VrmlExport, AFullDiskIsToldButIsNoFailure) {
  Open();
  EXPECT_EQ(ExportTo("/dev/full"), CommandResult::success);
  EXPECT_EQ(messages_, "Unable to write /dev/full: No space left on device.\n");
}

TEST_F(VrmlExport, IsCancelledByCtrlCAndPutsTheOlderFileBack) {
  model_.m_object_table = {NamedObject(TexturedRectangle(1, 1), 1)};
  Open();
  WriteFileContent(folder_.File("scene.wrl"), "older");
  host::RequestInterrupt();
  EXPECT_EQ(ExportTo(folder_.File("scene.wrl")), CommandResult::cancel);
  host::ClearInterrupt();
  EXPECT_EQ(messages_, "Export cancelled.\n");
  EXPECT_EQ(FileContent(folder_.File("scene.wrl")), "older");
  EXPECT_THAT(FilesOf(folder_), ElementsAre("scene.wrl"));
}

}  // namespace
