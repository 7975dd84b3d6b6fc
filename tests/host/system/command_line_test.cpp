#include "host/system/command_line.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "support/temp_folder.h"

namespace {

using host::ProgramWords;
using host::SplitCommandLine;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

TEST(CommandLine, BlanksAndTabsSeparateWords) {
  EXPECT_THAT(SplitCommandLine("orv.exe -p 2 -pri -1"),
              ElementsAre("orv.exe", "-p", "2", "-pri", "-1"));
  EXPECT_THAT(SplitCommandLine("  a \t\t b\t"), ElementsAre("a", "b"));
  EXPECT_THAT(SplitCommandLine("a\nb"), ElementsAre("a\nb"));
}

TEST(CommandLine, QuotesHoldBlanks) {
  EXPECT_THAT(SplitCommandLine("orvq -p 1 \"/t/my ä scene.rib\""),
              ElementsAre("orvq", "-p", "1", "/t/my ä scene.rib"));
  EXPECT_THAT(SplitCommandLine("\"/t/all frames.bat\""), ElementsAre("/t/all frames.bat"));
  EXPECT_THAT(SplitCommandLine("a\"b c\"d\te"), ElementsAre("ab cd", "e"));
}

TEST(CommandLine, EmptyQuotesAreAWord) {
  EXPECT_THAT(SplitCommandLine("a \"\" b"), ElementsAre("a", "", "b"));
  EXPECT_THAT(SplitCommandLine("\"\""), ElementsAre(""));
  EXPECT_THAT(SplitCommandLine("a\"\""), ElementsAre("a"));
}

TEST(CommandLine, ABackslashIsALetter) {
  EXPECT_THAT(SplitCommandLine(R"(orv.exe "C:\t\a.rib")"), ElementsAre("orv.exe", R"(C:\t\a.rib)"));
  EXPECT_THAT(SplitCommandLine(R"("C:\my folder\" x)"), ElementsAre(R"(C:\my folder\)", "x"));
}

TEST(CommandLine, AQuoteThatIsNotClosedGoesToTheEnd) {
  EXPECT_THAT(SplitCommandLine("a \"b c"), ElementsAre("a", "b c"));
  EXPECT_THAT(SplitCommandLine("a \""), ElementsAre("a", ""));
}

TEST(CommandLine, NothingHasNoWords) {
  EXPECT_THAT(SplitCommandLine(""), IsEmpty());
  EXPECT_THAT(SplitCommandLine(" \t "), IsEmpty());
}

TEST(CommandLine, WhatAShellWouldReadIsText) {
  EXPECT_THAT(SplitCommandLine("a $HOME `b` 'c d' ; > *"),
              ElementsAre("a", "$HOME", "`b`", "'c", "d'", ";", ">", "*"));
}

TEST(CommandLine, ABatchFileIsARowOfThem) {
  const TempFolder folder;
  const std::string path = folder.File("all.bat");
  WriteFileContent(path, "gyre.exe \"a b\"\r\n\n  \nlast line");
  EXPECT_TRUE(host::IsBatchFile(path));
  EXPECT_THAT(host::ReadBatchFile(path),
              Optional(ElementsAre(ElementsAre("gyre.exe", "a b"), ElementsAre("last", "line"))));
  WriteFileContent(path, "");
  EXPECT_THAT(host::ReadBatchFile(path), Optional(IsEmpty()));
}

TEST(CommandLine, OnlyAFileWithTheExtensionIsABatchFile) {
  const TempFolder folder;
  WriteFileContent(folder.File("ALL.BAT"), "");
  WriteFileContent(folder.File("all.sh"), "");
  EXPECT_TRUE(host::IsBatchFile(folder.File("ALL.BAT")));
  EXPECT_FALSE(host::IsBatchFile(folder.File("all.sh")));
  EXPECT_FALSE(host::IsBatchFile(folder.File("none.bat")));
  EXPECT_FALSE(host::IsBatchFile(folder.Path().string()));
  EXPECT_EQ(host::ReadBatchFile(folder.File("none.bat")), std::nullopt);
}

TEST(CommandLine, ExistingFilesHaveTheSystemsSeparators) {
  const TempFolder folder;
  WriteFileContent(folder.File("a.rib"), "");
  const std::string name = folder.Path().string() + "\\a.rib";
  const std::string missing = folder.Path().string() + "\\b.rib";
  EXPECT_THAT(ProgramWords("orv.exe \"" + name + "\" \"" + missing + "\" C:\\t\\a.rib -p"),
              ElementsAre("orv.exe", folder.File("a.rib"), missing, "C:\\t\\a.rib", "-p"));
}

// The test's folder is the current one as long as it lives.
class CurrentFolder {
 public:
  CurrentFolder() { std::filesystem::current_path(folder_.Path()); }
  ~CurrentFolder() { std::filesystem::current_path(before_); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

  std::string File(const std::string& name) const { return folder_.File(name); }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  TempFolder folder_;
};

TEST(CommandLine, ExistingFilesInFoldersHaveTheirFullPath) {
  const CurrentFolder folder;
  std::filesystem::create_directories("out");
  std::filesystem::create_directories("c:/out");
  WriteFileContent("out/a b.rib", "");
  WriteFileContent("c:/out/a.rib", "");
  WriteFileContent("a.rib", "");
  EXPECT_THAT(ProgramWords("orv.exe \"out/a b.rib\" \"out\\a b.rib\" c:\\out\\a.rib"),
              ElementsAre("orv.exe", folder.File("out/a b.rib"), folder.File("out/a b.rib"),
                          folder.File("c:/out/a.rib")));
  EXPECT_THAT(ProgramWords("orv.exe a.rib out out/none.rib \"\""),
              ElementsAre("orv.exe", "a.rib", "out", "out/none.rib", ""));
  WriteFileContent("all.bat", "gyre.exe \"out/a b.rib\"\n");
  EXPECT_THAT(host::ReadBatchFile("all.bat"),
              Optional(ElementsAre(ElementsAre("gyre.exe", folder.File("out/a b.rib")))));
}

TEST(CommandLine, AFileIsNoOptionOfTheProgram) {
  const CurrentFolder folder;
  WriteFileContent("-a.rib", "");
  WriteFileContent("-p", "");
  EXPECT_THAT(ProgramWords("orv.exe -p 1 \"-a.rib\" \"-b.rib\""),
              ElementsAre("orv.exe", "-p", "1", "./-a.rib", "-b.rib"));
  EXPECT_THAT(ProgramWords("orv.exe -p 1 \"-p\""), ElementsAre("orv.exe", "-p", "1", "./-p"));
}

}  // namespace
