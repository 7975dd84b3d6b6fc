#include "export/output_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "host/system/text.h"
#include "support/temp_folder.h"

namespace {

using orv::OlderFile;
using orv::OutputFileName;

std::string Repeated(std::string_view text, std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

std::size_t FileCount(const TempFolder& folder) {
  const std::filesystem::directory_iterator files(folder.Path());
  return static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

TEST(OutputFileName, AFrameNumberStandsBehindTheBaseName) {
  EXPECT_EQ(OutputFileName("C:\\t\\a.rib", 12), "C:\\t\\a_0012.rib");
  EXPECT_EQ(OutputFileName("/t/a.b.rib", 0), "/t/a.b_0000.rib");
  EXPECT_EQ(OutputFileName("a", 12345), "a_12345");
}

TEST(OutputFileName, ANegativeFrameNumberIsNone) {
  EXPECT_EQ(OutputFileName("C:\\t\\a.rib", -1), "C:\\t\\a.rib");
}

TEST(OutputFileName, AnEmptyNameStaysEmpty) {
  EXPECT_EQ(OutputFileName("", -1), "");
  EXPECT_EQ(OutputFileName("", 12), "");
}

TEST(OutputFileName, ALongNameIsCutAtACharacter) {
  EXPECT_EQ(OutputFileName(Repeated("é", 999), -1), Repeated("é", 999));
  EXPECT_EQ(OutputFileName(Repeated("é", 1000), -1), Repeated("é", 999));
  EXPECT_EQ(OutputFileName(Repeated("😀", 5000), -1), Repeated("😀", 999));
  EXPECT_EQ(OutputFileName(Repeated("a", 1000), 3), Repeated("a", 999) + "_0003");
}

TEST(OlderFile, IsMovedAsideAndDeletedAtTheEnd) {
  const TempFolder folder;
  const std::string path = folder.File("a.rib");
  WriteFileContent(path, "old");
  OlderFile older(path);
  EXPECT_TRUE(older.IsOutOfTheWay());
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_EQ(FileContent(older.BackupPath()), "old");
  WriteFileContent(path, "new");
  older.Discard();
  EXPECT_EQ(FileContent(path), "new");
  EXPECT_EQ(FileCount(folder), 1U);
}

TEST(OlderFile, ComesBackInPlaceOfAHalfWrittenOne) {
  const TempFolder folder;
  const std::string path = folder.File("a.rib");
  WriteFileContent(path, "old");
  OlderFile older(path);
  WriteFileContent(path, "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_EQ(FileContent(path), "old");
  EXPECT_EQ(FileCount(folder), 1U);
}

TEST(OlderFile, WithoutOneAHalfWrittenFileIsDeleted) {
  const TempFolder folder;
  const std::string path = folder.File("a.rib");
  OlderFile older(path);
  EXPECT_TRUE(older.IsOutOfTheWay());
  WriteFileContent(path, "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_EQ(FileCount(folder), 0U);
}

TEST(OlderFile, TellsWhenItCouldNotBePutBack) {
  const TempFolder folder;
  const std::string path = folder.File("a.rib");
  WriteFileContent(path, "old");
  OlderFile older(path);
  std::filesystem::create_directory(path);
  EXPECT_FALSE(older.Restore());
  EXPECT_EQ(FileContent(older.BackupPath()), "old");
}

TEST(OlderFile, AFolderStays) {
  const TempFolder folder;
  OlderFile older(folder.Path().string());
  EXPECT_TRUE(older.BackupPath().empty());
  EXPECT_TRUE(older.Restore());
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path()));
}

TEST(OlderFile, ADeviceStays) {
  OlderFile older("/dev/full");
  EXPECT_TRUE(older.IsOutOfTheWay());
  EXPECT_TRUE(older.BackupPath().empty());
  EXPECT_TRUE(older.Restore());
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(OlderFile, AFileThatIsOpenAsAStreamStays) {
  const TempFolder folder;
  const std::string path = folder.File("stdout.txt");
  std::FILE* stream = std::fopen(path.c_str(), "w");
  ASSERT_NE(stream, nullptr);
  OlderFile older(host::Format("/dev/fd/%d", fileno(stream)));
  EXPECT_TRUE(older.IsOutOfTheWay());
  EXPECT_TRUE(older.BackupPath().empty());
  EXPECT_TRUE(older.Restore());
  EXPECT_TRUE(std::filesystem::exists(path));
  std::fclose(stream);
}

TEST(OlderFile, OfALinkIsTheFileToWhichItLeads) {
  const TempFolder folder;
  const std::string path = folder.File("link.rib");
  WriteFileContent(folder.File("a.rib"), "old");
  std::filesystem::create_symlink("a.rib", path);
  OlderFile older(path);
  WriteFileContent(path, "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_TRUE(std::filesystem::is_symlink(path));
  EXPECT_EQ(FileContent(folder.File("a.rib")), "old");
  EXPECT_EQ(FileCount(folder), 2U);
}

TEST(OlderFile, ALinkToNothingStays) {
  const TempFolder folder;
  const std::string path = folder.File("link.rib");
  std::filesystem::create_symlink("a.rib", path);
  OlderFile older(path);
  WriteFileContent(path, "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_TRUE(std::filesystem::is_symlink(path));
  EXPECT_EQ(FileCount(folder), 1U);
}

// A folder whose own name is a\b, which is the working folder, beside a folder a with a folder b.
class BackslashTest : public testing::Test {
 protected:
  BackslashTest() {
    std::filesystem::create_directory(folder_.Path() / R"(a\b)");
    std::filesystem::create_directories(folder_.Path() / "a/b");
    WriteFileContent(folder_.Path() / "a/b/out.rib", "unrelated");
    std::filesystem::current_path(folder_.Path() / R"(a\b)");
  }
  ~BackslashTest() override {
    std::filesystem::current_path(before_);
    EXPECT_EQ(FileContent(folder_.Path() / "a/b/out.rib"), "unrelated");
    const std::filesystem::directory_iterator files(folder_.Path() / "a/b");
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
  }

  static std::vector<std::string> NamesInWorkingFolder() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  TempFolder folder_;
  std::filesystem::path before_ = std::filesystem::current_path();
};

using Names = std::vector<std::string>;

TEST_F(BackslashTest, InTheWorkingFoldersNameTheOlderFileIsDeletedAtTheEnd) {
  WriteFileContent("out.rib", "old");
  OlderFile older("out.rib");
  EXPECT_TRUE(older.IsOutOfTheWay());
  EXPECT_EQ(FileContent(older.BackupPath()), "old");
  WriteFileContent("out.rib", "new");
  older.Discard();
  EXPECT_EQ(FileContent("out.rib"), "new");
  EXPECT_EQ(NamesInWorkingFolder(), Names{"out.rib"});
}

TEST_F(BackslashTest, InTheWorkingFoldersNameTheOlderFileComesBack) {
  WriteFileContent("out.rib", "old");
  OlderFile older("out.rib");
  WriteFileContent("out.rib", "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_EQ(FileContent("out.rib"), "old");
  EXPECT_EQ(NamesInWorkingFolder(), Names{"out.rib"});
}

TEST_F(BackslashTest, InTheWorkingFoldersNameAHalfWrittenFileIsDeleted) {
  OlderFile older("out.rib");
  WriteFileContent("out.rib", "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_EQ(NamesInWorkingFolder(), Names{});
}

// Links in the folder that holds them both, to a file in the folder a\b.
class LinkToBackslashTest : public BackslashTest {
 protected:
  LinkToBackslashTest() { std::filesystem::create_symlink(R"(a\b/out.rib)", link_); }

  std::string link_ = folder_.File("link.rib");
};

TEST_F(LinkToBackslashTest, TheLinkBecomesTheNewFile) {
  WriteFileContent("out.rib", "old");
  OlderFile older(link_);
  EXPECT_TRUE(older.IsOutOfTheWay());
  EXPECT_EQ(FileContent(older.BackupPath()), "old");
  WriteFileContent(link_, "new");
  older.Discard();
  EXPECT_EQ(FileContent(link_), "new");
  EXPECT_EQ(FileContent("out.rib"), "old");
  EXPECT_FALSE(std::filesystem::is_symlink(older.BackupPath()));
}

TEST_F(LinkToBackslashTest, TheLinkComesBack) {
  WriteFileContent("out.rib", "old");
  OlderFile older(link_);
  WriteFileContent(link_, "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_TRUE(std::filesystem::is_symlink(link_));
  EXPECT_EQ(FileContent(link_), "old");
}

TEST_F(LinkToBackslashTest, ALinkToNothingStays) {
  OlderFile older(link_);
  EXPECT_TRUE(older.IsOutOfTheWay());
  WriteFileContent(link_, "ne");
  EXPECT_TRUE(older.Restore());
  EXPECT_TRUE(std::filesystem::is_symlink(link_));
}

TEST(OlderFile, ALoopOfLinksIsLeftAlone) {
  const TempFolder folder;
  std::filesystem::create_symlink("b", folder.File("a"));
  std::filesystem::create_symlink("a", folder.File("b"));
  OlderFile older(folder.File("a"));
  EXPECT_TRUE(older.Restore());
  EXPECT_EQ(FileCount(folder), 2U);
}

}  // namespace
