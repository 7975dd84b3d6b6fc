#include "settings/settings_chunk.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using Entries = std::vector<ON_UserString>;

constexpr int kVersion = 50;
constexpr unsigned kLibrary = 201008125;

ON_UserStringList List(Entries entries) {
  ON_UserStringList list;
  list.m_e = std::move(entries);
  return list;
}

std::string Written(const ON_UserStringList& list) {
  ON_BinaryArchive archive(kVersion);
  EXPECT_TRUE(WriteSettingsChunk(archive, list));
  return archive.TakeBytes();
}

// A chunk of that version, with the list in it.
std::string ChunkOfVersion(int major, int minor) {
  ON_BinaryArchive archive(kVersion);
  EXPECT_TRUE(archive.BeginWrite3dmChunk(0x40008000, major, minor));
  EXPECT_TRUE(ON_WriteUserStringList(archive, List({{"Stored", "1"}})));
  EXPECT_TRUE(archive.EndWrite3dmChunk());
  return archive.TakeBytes();
}

struct Outcome {
  bool read;
  Entries entries;
};

// What reading `bytes` makes of a list that holds "Old=1".
Outcome Read(const std::string& bytes, bool merging) {
  ByteSource source(std::as_bytes(std::span(bytes)));
  ON_BinaryArchive archive(source, kVersion, kLibrary);
  ON_UserStringList list = List({{"Old", "1"}});
  const bool read = ReadSettingsChunk(archive, merging, list);
  return {read, list.m_e};
}

TEST(SettingsChunk, HasItsTypecodeAndVersion) {
  const std::string bytes = Written(List({{"GiMode", "3"}}));
  ByteSource source(std::as_bytes(std::span(bytes)));
  ON_BinaryArchive archive(source, kVersion, kLibrary);
  EXPECT_EQ(archive.PeekAt3dmChunkType(), 0x40008000u);
  int major = 0;
  int minor = 0;
  ASSERT_TRUE(archive.BeginRead3dmChunk(0x40008000u, &major, &minor));
  EXPECT_EQ(major, 1);
  EXPECT_EQ(minor, 0);
  ON_UserStringList list;
  ASSERT_TRUE(ON_ReadUserStringList(archive, list));
  EXPECT_EQ(list.m_e, (Entries{{"GiMode", "3"}}));
  EXPECT_EQ(archive.BytesLeft(), 0u);
  EXPECT_TRUE(archive.EndRead3dmChunk());
}

TEST(SettingsChunk, OpeningReplacesTheList) {
  const Entries stored{{"GiMode", "3"}, {"Surface", "\"é\" [0.5]"}, {"Empty", ""}};
  const Outcome outcome = Read(Written(List(stored)), false);
  EXPECT_TRUE(outcome.read);
  EXPECT_EQ(outcome.entries, stored);
}

TEST(SettingsChunk, OfAKeyStoredTwiceTheFirstHolds) {
  const Entries stored{{"GiMode", "3"},  {"Surface", "a"}, {"GiMode", "4"},
                       {"SURFACE", "b"}, {"Größe", "1"},   {"GRÖßE", "2"}};
  const Outcome outcome = Read(Written(List(stored)), false);
  EXPECT_TRUE(outcome.read);
  EXPECT_EQ(outcome.entries, (Entries{{"GiMode", "3"}, {"Surface", "a"}, {"Größe", "1"}}));
}

TEST(SettingsChunk, MergingDropsTheStoredList) {
  const Outcome outcome = Read(Written(List({{"GiMode", "3"}})), true);
  EXPECT_TRUE(outcome.read);
  EXPECT_EQ(outcome.entries, (Entries{{"Old", "1"}}));
}

TEST(SettingsChunk, LaterMajorVersionIsNotRead) {
  const Outcome opened = Read(ChunkOfVersion(2, 0), false);
  EXPECT_FALSE(opened.read);
  EXPECT_EQ(opened.entries, Entries{});
  const Outcome merged = Read(ChunkOfVersion(2, 0), true);
  EXPECT_FALSE(merged.read);
  EXPECT_EQ(merged.entries, (Entries{{"Old", "1"}}));
}

TEST(SettingsChunk, LaterMinorVersionIsRead) {
  const Outcome outcome = Read(ChunkOfVersion(1, 7), false);
  EXPECT_TRUE(outcome.read);
  EXPECT_EQ(outcome.entries, (Entries{{"Stored", "1"}}));
}

TEST(SettingsChunk, AnotherChunkIsNotRead) {
  ON_BinaryArchive archive(kVersion);
  ASSERT_TRUE(archive.BeginWrite3dmChunk(0x40008001, 1, 0));
  ASSERT_TRUE(ON_WriteUserStringList(archive, List({{"Stored", "1"}})));
  ASSERT_TRUE(archive.EndWrite3dmChunk());
  const Outcome outcome = Read(archive.TakeBytes(), false);
  EXPECT_FALSE(outcome.read);
  EXPECT_EQ(outcome.entries, Entries{});
}

TEST(SettingsChunk, EveryCutBeforeTheCheckSumIsRefused) {
  const std::string bytes = Written(List({{"GiMode", "3"}, {"Surface", "x"}}));
  constexpr std::size_t kCheckSum = 4;
  for (std::size_t length = 0; length < bytes.size() - kCheckSum; ++length) {
    const Outcome outcome = Read(bytes.substr(0, length), false);
    EXPECT_FALSE(outcome.read) << length;
    EXPECT_EQ(outcome.entries, Entries{}) << length;
  }
}

TEST(SettingsChunk, WhatFollowsTheChunkCanBeRead) {
  for (const int major : {1, 2}) {
    const std::string bytes = ChunkOfVersion(major, 0) + Written(List({{"Second", "2"}}));
    ByteSource source(std::as_bytes(std::span(bytes)));
    ON_BinaryArchive archive(source, kVersion, kLibrary);
    ON_UserStringList list;
    EXPECT_EQ(ReadSettingsChunk(archive, false, list), major == 1);
    ASSERT_TRUE(ReadSettingsChunk(archive, false, list));
    EXPECT_EQ(list.m_e, (Entries{{"Second", "2"}}));
  }
}

}  // namespace
}  // namespace orv
