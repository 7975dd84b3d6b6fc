#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "export/scene_export.h"
#include "export_fixture.h"
#include "host/document/app.h"
#include "host/system/interrupt.h"
#include "host/system/text.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// What stands in the way of an export, and what is left behind.
class SceneExportFailureTest : public ExportTest {
 protected:
  ~SceneExportFailureTest() override { host::ClearInterrupt(); }

  // A mesh whose statement takes about 3 MB.
  static std::shared_ptr<ON_Mesh> LargeMesh() {
    auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V.resize(200000, ON_3fPoint{0.123456F, 1.23456F, 12.3456F});
    mesh->m_F = {{{0, 1, 2, 3}}};
    return mesh;
  }

  std::size_t FileCount() const {
    const std::filesystem::directory_iterator files(folder_.Path());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }
};

// The greatest size of a file that this process may write, while the object lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &old_), 0);
    const rlimit limit{size, old_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FileSizeLimit() {
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &old_), 0);
    std::signal(SIGXFSZ, oldHandler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit old_{};
  void (*oldHandler_)(int);
};

// Gives up the rights of the system's administrator while it lives, if the test runs with them.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (wasAdministrator_) Become(65534);
  }
  ~OrdinaryUser() {
    if (wasAdministrator_) Become(0);
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  static void Become(uid_t user) { EXPECT_EQ(seteuid(user), 0); }

  bool wasAdministrator_ = geteuid() == 0;
};

TEST_F(SceneExportFailureTest, AMissingName) {
  Open();
  EXPECT_EQ(ExportTo(""), 0);
  EXPECT_EQ(messages_, "Missing rib file name");
}

TEST_F(SceneExportFailureTest, AMissingNameOfANumberedFrame) {
  Open();
  settings_.FrameNumber = 12;
  EXPECT_EQ(ExportTo(""), 0);
  EXPECT_EQ(messages_, "Missing rib file name");
}

TEST_F(SceneExportFailureTest, ADocumentWithoutAView) {
  Open();
  doc_.SetActiveView(nullptr);
  EXPECT_EQ(ExportTo(folder_.File("a.rib")), 0);
  EXPECT_EQ(messages_, "There is no view to export.\n");
  EXPECT_EQ(FileCount(), 0U);
}

TEST_F(SceneExportFailureTest, AMissingFolder) {
  Open();
  const std::string path = folder_.File("no such folder/50%s.rib");
  EXPECT_EQ(ExportTo(path), 0);
  EXPECT_EQ(messages_, "Unable to save " + path + ".\n");
  EXPECT_EQ(FileCount(), 0U);
}

TEST_F(SceneExportFailureTest, AFolderInPlaceOfAFile) {
  Open();
  EXPECT_EQ(ExportTo(folder_.Path().string()), 0);
  EXPECT_EQ(messages_, "Unable to save " + folder_.Path().string() + ".\n");
  EXPECT_TRUE(std::filesystem::is_directory(folder_.Path()));
}

TEST_F(SceneExportFailureTest, AReadOnlyFolder) {
  Open();
  const std::string path = folder_.File("a.rib");
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0555), 0);
  {
    const OrdinaryUser user;
    EXPECT_EQ(ExportTo(path), 0);
  }
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
  EXPECT_EQ(messages_, "Unable to save " + path + ".\n");
  EXPECT_EQ(FileCount(), 0U);
}

TEST_F(SceneExportFailureTest, AnOlderFileInAReadOnlyFolder) {
  Open();
  const std::string path = folder_.File("a.rib");
  WriteFileContent(path, "old");
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0555), 0);
  {
    const OrdinaryUser user;
    EXPECT_EQ(ExportTo(path), 0);
  }
  ASSERT_EQ(chmod(folder_.Path().c_str(), 0755), 0);
  EXPECT_EQ(messages_, "Unable to save " + path + ".\n");
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(SceneExportFailureTest, AFullDevice) {
  model_.m_object_table = {ObjectOf(LargeMesh())};
  Open();
  EXPECT_EQ(ExportTo("/dev/full"), 0);
  EXPECT_EQ(messages_,
            "Writing /dev/full\n"
            "Unable to write /dev/full: No space left on device.\n");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST_F(SceneExportFailureTest, AFullDeviceThatShowsOnlyAtTheEnd) {
  Open();
  EXPECT_EQ(ExportTo("/dev/full"), 0);
  EXPECT_THAT(messages_, HasSubstr("Unable to write /dev/full: No space left on device.\n"));
}

TEST_F(SceneExportFailureTest, AFullDiskLeavesTheOlderFile) {
  model_.m_object_table = {ObjectOf(LargeMesh()), ObjectOf(LargeMesh())};
  Open();
  const std::string path = folder_.File("a.rib");
  WriteFileContent(path, "old");
  {
    const FileSizeLimit limit(1000000);
    EXPECT_EQ(ExportTo(path), 0);
  }
  EXPECT_EQ(messages_, "Writing " + path + "\nUnable to write " + path + ": File too large.\n");
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(SceneExportFailureTest, AFullDiskLeavesNoHalfWrittenFile) {
  model_.m_object_table = {ObjectOf(LargeMesh())};
  Open();
  {
    const FileSizeLimit limit(1000000);
    EXPECT_EQ(ExportTo(folder_.File("a.rib")), 0);
  }
  EXPECT_EQ(FileCount(), 0U);
}

TEST_F(SceneExportFailureTest, ACancelledExportLeavesTheOlderFile) {
  model_.m_object_table = {ObjectOf(SquareMesh())};
  Open();
  const std::string path = folder_.File("a.rib");
  WriteFileContent(path, "old");
  host::RequestInterrupt();
  EXPECT_EQ(ExportTo(path), 0);
  EXPECT_EQ(messages_, "Writing " + path + "\nExport cancelled.\n");
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(FileCount(), 1U);
}

// The system follows 40 links in a path, and 44 lead to the file: 6 to its folder, 38 in it.
TEST_F(SceneExportFailureTest, AFileThatCannotBeOpenedLeavesTheOlderFile) {
  const auto link = [&](const std::string& target, const std::string& name) {
    std::filesystem::create_symlink(target, folder_.Path() / name);
  };
  Open();
  std::filesystem::create_directory(folder_.Path() / "d0");
  WriteFileContent(folder_.Path() / "d0/f0", "old");
  for (int i = 1; i <= 6; ++i) link(host::Format("d%d", i - 1), host::Format("d%d", i));
  for (int i = 1; i <= 38; ++i) link(host::Format("f%d", i - 1), host::Format("d0/f%d", i));
  const std::string path = folder_.File("d6/f38");
  EXPECT_EQ(ExportTo(path), 0);
  EXPECT_EQ(messages_, "Unable to save " + path + ".\n");
  EXPECT_EQ(FileContent(folder_.Path() / "d0/f0"), "old");
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "d0/f0.bak"));
}

// A folder takes the older file's place while the new one is being written.
TEST_F(SceneExportFailureTest, AnOlderFileThatCannotBePutBackIsNamed) {
  Open();
  const std::string path = folder_.File("a.rib");
  WriteFileContent(path, "old");
  RhinoApp().CommandWindow().SetSink([&](std::string_view text) {
    if (messages_.empty()) {
      std::filesystem::remove(path);
      std::filesystem::create_directory(path);
      host::RequestInterrupt();
    }
    messages_ += text;
  });
  EXPECT_EQ(ExportTo(path), 0);
  EXPECT_EQ(messages_, "Writing " + path +
                           "\nExport cancelled.\n"
                           "The older file is kept as " +
                           path + ".bak.\n");
  EXPECT_EQ(FileContent(path + ".bak"), "old");
}

TEST_F(SceneExportFailureTest, ASuccessLeavesNothingBesideTheFile) {
  Open();
  const std::string path = folder_.File("a.rib");
  WriteFileContent(path, "old");
  EXPECT_EQ(ExportTo(path), 1);
  EXPECT_THAT(FileContent(path), StartsWith("##RenderMan RIB-Structure 1.1\n"));
  EXPECT_EQ(FileCount(), 1U);
}

TEST_F(SceneExportFailureTest, ADeviceIsWrittenInPlace) {
  Open();
  EXPECT_EQ(ExportTo("/dev/null"), 1);
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

}  // namespace
