#include "host/system/path.h"

#include <gtest/gtest.h>

namespace host {
namespace {

void ExpectParts(std::string_view path, std::string_view drive, std::string_view folder,
                 std::string_view base, std::string_view extension) {
  const PathParts parts = SplitPath(path);
  EXPECT_EQ(parts.Drive, drive) << path;
  EXPECT_EQ(parts.Folder, folder) << path;
  EXPECT_EQ(parts.Base, base) << path;
  EXPECT_EQ(parts.Extension, extension) << path;
  EXPECT_EQ(JoinPath(parts), path);
}

TEST(Path, SplitsAtEitherSeparator) {
  ExpectParts("C:\\t\\a.rib", "C:", "\\t\\", "a", ".rib");
  ExpectParts("/home/me/a b/scéne.v2.rib", "", "/home/me/a b/", "scéne.v2", ".rib");
  ExpectParts("mixed\\folder/name", "", "mixed\\folder/", "name", "");
  ExpectParts("//server\\share/x.3dm", "", "//server\\share/", "x", ".3dm");
}

TEST(Path, SplitsWhatHasNotAllParts) {
  ExpectParts("", "", "", "", "");
  ExpectParts("a.rib", "", "", "a", ".rib");
  ExpectParts("/", "", "/", "", "");
  ExpectParts("folder.d/name", "", "folder.d/", "name", "");
  ExpectParts(".hidden", "", "", "", ".hidden");
  ExpectParts("name.", "", "", "name", ".");
  ExpectParts("C:", "C:", "", "", "");
  ExpectParts("C:name", "C:", "", "name", "");
  ExpectParts("1:name", "", "", "1:name", "");
}

TEST(Path, AFrameNumberGoesBetweenBaseAndExtension) {
  PathParts parts = SplitPath("C:\\t\\a.rib");
  parts.Base += "_0012";
  EXPECT_EQ(JoinPath(parts), "C:\\t\\a_0012.rib");
}

TEST(Path, AppendsWithOneSeparator) {
  EXPECT_EQ(AppendPath("", "a.rib"), "a.rib");
  EXPECT_EQ(AppendPath("/tmp", "a.rib"), "/tmp/a.rib");
  EXPECT_EQ(AppendPath("/tmp/", "a.rib"), "/tmp/a.rib");
  EXPECT_EQ(AppendPath("C:\\t\\", "a.rib"), "C:\\t\\a.rib");
}

TEST(Path, TheNativePathHasTheSystemsSeparators) {
  EXPECT_EQ(NativePath("/ein Ordner\\übung\\東京.rib").string(), "/ein Ordner/übung/東京.rib");
}

TEST(Path, ADriveIsPlainTextInANativePath) {
  EXPECT_EQ(NativePath("C:\\t\\a.rib").string(), "C:/t/a.rib");
  EXPECT_TRUE(NativePath("C:\\t\\a.rib").is_relative());
}

}  // namespace
}  // namespace host
