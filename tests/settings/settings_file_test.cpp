#include "settings/settings_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "support/temp_folder.h"

namespace orv {
namespace {

using Entries = std::vector<ON_UserString>;

Entries Parsed(std::string_view text) {
  const auto list = SettingsFromText(text);
  EXPECT_TRUE(list);
  return list ? list->m_e : Entries{};
}

ON_UserStringList List(Entries entries) {
  ON_UserStringList list;
  list.m_e = std::move(entries);
  return list;
}

TEST(SettingsText, LineIsKeyAndValue) {
  EXPECT_EQ(Parsed("GiMode=3\nSurface=\"VPlastic\" \"float Diffuse\" [0.5]\n"),
            (Entries{{"GiMode", "3"}, {"Surface", "\"VPlastic\" \"float Diffuse\" [0.5]"}}));
}

TEST(SettingsText, KeyOfOneLetterIsSkipped) {
  EXPECT_EQ(Parsed("A=1\n"), Entries{});
  EXPECT_EQ(Parsed("AB=1\n"), (Entries{{"AB", "1"}}));
  EXPECT_EQ(Parsed("=1\n"), Entries{});
  // The place of the "=" counts, blanks included.
  EXPECT_EQ(Parsed("A =1\n"), (Entries{{"A", "1"}}));
}

TEST(SettingsText, ValueMayHoldAnEqualsSign) {
  EXPECT_EQ(Parsed("Surface=\"x=y\"\n"), (Entries{{"Surface", "\"x=y\""}}));
}

TEST(SettingsText, KeyAndValueAreTrimmed) {
  EXPECT_EQ(Parsed("  Key = value  \n"), (Entries{{"Key", "value"}}));
}

TEST(SettingsText, LinesMayEndInCarriageReturns) {
  EXPECT_EQ(Parsed("Key=value\r\nKex=\r\n"), (Entries{{"Key", "value"}, {"Kex", ""}}));
}

TEST(SettingsText, LastLineNeedsNoEnd) {
  EXPECT_EQ(Parsed("Key=value"), (Entries{{"Key", "value"}}));
}

TEST(SettingsText, OtherLinesAreSkipped) {
  EXPECT_EQ(Parsed("\n# a remark\n[section]\n   \nKey=1\nnot a setting\n"),
            (Entries{{"Key", "1"}}));
}

TEST(SettingsText, BlankKeyIsSkipped) {
  EXPECT_EQ(Parsed("   =1\n \t =2\n"), Entries{});
}

TEST(SettingsText, LaterLineOverwritesInPlace) {
  EXPECT_EQ(Parsed("Key=1\nOther=2\nkey=3\n"), (Entries{{"Key", "3"}, {"Other", "2"}}));
}

TEST(SettingsText, EmptyTextIsAnEmptyList) {
  EXPECT_EQ(Parsed(""), Entries{});
  EXPECT_EQ(TextFromSettings({}), "");
}

TEST(SettingsText, LongLineGoesOnAsANextOne) {
  const std::string value(1995, 'v');
  EXPECT_EQ(Parsed("Key=" + value + "\nOther=1\n"), (Entries{{"Key", value}, {"Other", "1"}}));
  EXPECT_EQ(Parsed("Key=" + value + "More=2\nOther=1\n"),
            (Entries{{"Key", value}, {"More", "2"}, {"Other", "1"}}));
}

TEST(SettingsText, LongLineIsCutBetweenCharacters) {
  const std::string value(1994, 'v');
  EXPECT_EQ(Parsed("Key=" + value + "\u00e9xy=2\n"), (Entries{{"Key", value}, {"\u00e9xy", "2"}}));
}

TEST(SettingsText, ZeroByteEndsItsLine) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Parsed("Key=a\0b\nNext=1\n"sv), (Entries{{"Key", "a"}, {"Next", "1"}}));
  EXPECT_EQ(Parsed("Ke\0y=a\n"sv), Entries{});
}

TEST(SettingsText, TooManyKeysAreRefused) {
  std::string text;
  for (int i = 0; i < 5000; ++i) text += "Key" + std::to_string(i) + "=1\n";
  EXPECT_FALSE(SettingsFromText(text));
  for (int i = 0; i < 5000; ++i) text = "Key=1\n" + text.substr(0, 20000);
  EXPECT_TRUE(SettingsFromText(text));
}

TEST(SettingsText, NothingIsEscaped) {
  EXPECT_EQ(TextFromSettings(List({{"A", "1"}, {"Key", "a\nb"}, {"Name", "C:\\t\\%s \u00e9"}})),
            "A=1\nKey=a\nb\nName=C:\\t\\%s \u00e9\n");
}

TEST(SettingsFile, ComesBackFromAFile) {
  const TempFolder folder;
  const auto list =
      List({{"PixelSamples", "8"}, {"Surface", "\"x=y\""}, {"RibName", "C:\\ä b.rib"}});
  ASSERT_TRUE(SaveSettingsFile(folder.File("mine.ors"), list));
  EXPECT_EQ(FileContent(folder.File("mine.ors")),
            "PixelSamples=8\nSurface=\"x=y\"\nRibName=C:\\ä b.rib\n");
  ON_UserStringList loaded = List({{"Old", "1"}});
  ASSERT_TRUE(LoadSettingsFile(folder.File("mine.ors"), loaded));
  EXPECT_EQ(loaded.m_e, list.m_e);
}

TEST(SettingsFile, EmptyListIsAnEmptyFile) {
  const TempFolder folder;
  ASSERT_TRUE(SaveSettingsFile(folder.File("empty.ors"), {}));
  EXPECT_EQ(FileContent(folder.File("empty.ors")), "");
  ON_UserStringList loaded = List({{"Old", "1"}});
  ASSERT_TRUE(LoadSettingsFile(folder.File("empty.ors"), loaded));
  EXPECT_TRUE(loaded.IsEmpty());
}

TEST(SettingsFile, WhatCannotBeReadLeavesTheListAlone) {
  const TempFolder folder;
  ON_UserStringList list = List({{"Old", "1"}});
  EXPECT_FALSE(LoadSettingsFile(folder.File("missing.ors"), list));
  EXPECT_FALSE(LoadSettingsFile(folder.Path().string(), list));
  EXPECT_FALSE(LoadSettingsFile("", list));
  EXPECT_EQ(list.m_e, (Entries{{"Old", "1"}}));
}

TEST(SettingsFile, WhatCannotBeWrittenIsTold) {
  const TempFolder folder;
  const auto list = List({{"Key", "1"}});
  EXPECT_FALSE(SaveSettingsFile(folder.File("no such folder/a.ors"), list));
  EXPECT_FALSE(SaveSettingsFile(folder.Path().string(), list));
  EXPECT_FALSE(SaveSettingsFile("", list));
}

TEST(SettingsFile, WhatCouldNotBeLoadedAgainIsNotWritten) {
  const TempFolder folder;
  ASSERT_TRUE(SaveSettingsFile(folder.File("a.ors"), List({{"Old", "1"}})));
  Entries entries;
  for (int i = 0; i < 4096; ++i) entries.push_back({"Key" + std::to_string(i), "1"});
  EXPECT_TRUE(SaveSettingsFile(folder.File("many.ors"), List(entries)));
  ON_UserStringList loaded;
  EXPECT_TRUE(LoadSettingsFile(folder.File("many.ors"), loaded));
  EXPECT_EQ(loaded.m_e, entries);
  entries.push_back({"OneMore", "1"});
  EXPECT_FALSE(SaveSettingsFile(folder.File("a.ors"), List(entries)));

  constexpr std::size_t kMostBytes = 16 << 20;
  const std::string value(kMostBytes - 5, 'v');
  EXPECT_TRUE(SaveSettingsFile(folder.File("long.ors"), List({{"Key", value}})));
  EXPECT_TRUE(LoadSettingsFile(folder.File("long.ors"), loaded));
  EXPECT_FALSE(SaveSettingsFile(folder.File("a.ors"), List({{"Key", value + 'v'}})));
  EXPECT_EQ(FileContent(folder.File("a.ors")), "Old=1\n");
}

TEST(SettingsFile, EitherSeparatorNamesAFolder) {
  const TempFolder folder;
  ASSERT_TRUE(SaveSettingsFile(folder.Path().string() + "\\a.ors", List({{"Key", "1"}})));
  EXPECT_EQ(FileContent(folder.File("a.ors")), "Key=1\n");
}

// A limit on the size of files stands for a full disk.
TEST(SettingsFile, OlderFileOutlivesAFullDisk) {
  const TempFolder folder;
  ASSERT_TRUE(SaveSettingsFile(folder.File("a.ors"), List({{"Old", "1"}})));
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit oldLimit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &oldLimit), 0);
  const rlimit small{4096, oldLimit.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const bool saved =
      SaveSettingsFile(folder.File("a.ors"), List({{"New", std::string(10000, 'x')}}));
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &oldLimit), 0);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(saved);
  EXPECT_EQ(FileContent(folder.File("a.ors")), "Old=1\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace orv
