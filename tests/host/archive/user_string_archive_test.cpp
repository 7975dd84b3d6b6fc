#include <gtest/gtest.h>

#include "host/archive/binary_archive.h"
#include "record_bytes.h"

// The serial form of user strings.

namespace {

const std::vector<ON_UserString> kEntries = {
    {"colour", "rot"}, {"Größe", "名前 \U0001F600"}, {"empty", ""}, {"colour", "a key twice"}};

std::string Written(int version, const std::vector<ON_UserString>& entries) {
  return RecordBytes(version, 0, [&](ON_BinaryArchive& archive) {
    ON_UserStringList list;
    list.m_e = entries;
    EXPECT_TRUE(ON_WriteUserStringList(archive, list));
  });
}

TEST(UserStringArchive, ComesBackInItsOrder) {
  for (const int version : {4, 50}) {
    for (const auto& entries : {kEntries, {}}) {
      ON_UserStringList list;
      list.m_e = {{"before", "gone"}};
      const Reading reading = ReadBytes(
          Written(version, entries), version, 0,
          [&](ON_BinaryArchive& archive) { return ON_ReadUserStringList(archive, list); });
      EXPECT_TRUE(reading.ok);
      EXPECT_TRUE(reading.problems.empty());
      EXPECT_EQ(list.m_e, entries);
    }
  }
}

TEST(UserStringArchive, BrokenListLeavesTheOldOne) {
  const std::string whole = Written(50, kEntries);
  for (std::size_t size = 0; size < whole.size(); size += 3) {
    ON_UserStringList list;
    list.m_e = {{"before", "stays"}};
    const Reading reading = ReadBytes(whole.substr(0, size), 50, 0, [&](ON_BinaryArchive& archive) {
      return ON_ReadUserStringList(archive, list);
    });
    // A file may end inside the last sum alone: the list is whole then.
    if (size + 4 > whole.size()) continue;
    EXPECT_FALSE(reading.ok) << size;
    EXPECT_EQ(list.m_e.size(), 1u);
  }
}

TEST(UserStringArchive, UnknownVersionIsRefused) {
  const std::string bytes = RecordBytes(50, 0, [](ON_BinaryArchive& archive) {
    WriteVersioned(archive, 2, 0, [](ON_BinaryArchive& a) { a.WriteInt(0); });
  });
  ON_UserStringList list;
  EXPECT_FALSE(ReadBytes(bytes, 50, 0, [&](ON_BinaryArchive& archive) {
                 return ON_ReadUserStringList(archive, list);
               }).ok);
}

TEST(UserStringArchive, CountBeyondTheBytesIsRefused) {
  const std::string bytes = RecordBytes(50, 0, [](ON_BinaryArchive& archive) {
    WriteVersioned(archive, 1, 0, [](ON_BinaryArchive& a) { a.WriteInt(0x7fffffff); });
  });
  ON_UserStringList list;
  EXPECT_FALSE(ReadBytes(bytes, 50, 0, [&](ON_BinaryArchive& archive) {
                 return ON_ReadUserStringList(archive, list);
               }).ok);
}

}  // namespace
