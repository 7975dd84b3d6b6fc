#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "host/archive/binary_archive.h"
#include "record_bytes.h"

// Broken content: nothing is read outside its chunk, the first failure is told, and what stands
// behind the broken chunk can be read.

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kVersion = 50;
constexpr std::uint32_t kPlain = 0x10000011;
constexpr std::uint32_t kSummed = 0x20008050;

std::string Write(const WriteContent& write) {
  return RecordBytes(kVersion, 0, write);
}
Reading Read(const std::string& bytes, const std::function<bool(ON_BinaryArchive&)>& read) {
  return ReadBytes(bytes, kVersion, 0, read);
}
bool Open(ON_BinaryArchive& archive) {
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  return archive.BeginRead3dmChunk(&typecode, &value);
}

// A chunk with one integer, and another one behind it.
std::string TwoChunks() {
  return Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) { b.WriteInt(1); });
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) { b.WriteInt(2); });
  });
}

TEST(ArchiveBounds, NoReadLeavesItsChunk) {
  const Reading reading = Read(TwoChunks(), [](ON_BinaryArchive& a) {
    double number = 5;
    std::int32_t rest = 7;
    EXPECT_TRUE(Open(a));
    EXPECT_FALSE(a.ReadDouble(&number));
    EXPECT_EQ(number, 0) << "a failed read must leave its result initialised";
    EXPECT_FALSE(a.ReadInt(&rest)) << "a failed chunk must stay failed";
    EXPECT_EQ(rest, 0);
    EXPECT_FALSE(a.EndRead3dmChunk());
    EXPECT_TRUE(Open(a));
    EXPECT_TRUE(a.ReadInt(&rest));
    EXPECT_EQ(rest, 2);
    return a.EndRead3dmChunk();
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems,
              ElementsAre("a value leads outside its chunk (offset 12 of chunk 20008050)"));
}

TEST(ArchiveBounds, FailedReadsOfEveryKindGiveNothing) {
  Read(TwoChunks(), [](ON_BinaryArchive& a) {
    EXPECT_TRUE(Open(a));
    EXPECT_FALSE(a.Fail("broken"));
    std::string text = "before";
    ON_UUID id = "2d4cfedb-3e2a-11d4-800e-0010830122f0"_uuid;
    ON_3dPoint point{1, 2, 3};
    bool flag = true;
    std::size_t count = 9;
    EXPECT_FALSE(a.ReadString(&text));
    EXPECT_FALSE(a.ReadUuid(&id));
    EXPECT_FALSE(a.ReadPoint(&point));
    EXPECT_FALSE(a.ReadBool(&flag));
    EXPECT_FALSE(a.ReadCount(1, &count));
    EXPECT_FALSE(a.Skip(1));
    EXPECT_EQ(text, "");
    EXPECT_TRUE(id.IsNil());
    EXPECT_EQ(point, (ON_3dPoint{0, 0, 0}));
    EXPECT_FALSE(flag);
    EXPECT_EQ(count, 0u);
    EXPECT_FALSE(Open(a));
    EXPECT_EQ(a.PeekAt3dmChunkType(), 0u);
    return a.EndRead3dmChunk();
  });
}

TEST(ArchiveBounds, ChunkMustNotLeaveTheOneAroundIt) {
  std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kPlain, [](ON_BinaryArchive& b) {
      WriteChunk(b, kPlain, [](ON_BinaryArchive& c) { c.WriteInt(1); });
    });
    WriteChunk(a, kPlain, [](ON_BinaryArchive& b) { b.WriteInt(2); });
  });
  for (const char length : {'\x05', '\x7f', '\xff'}) {
    bytes[12 + 4] = length;
    if (length == '\xff') bytes[12 + 11] = length;
    const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
      EXPECT_TRUE(Open(a));
      EXPECT_FALSE(Open(a));
      EXPECT_FALSE(a.EndRead3dmChunk());
      return Open(a) && a.EndRead3dmChunk();
    });
    EXPECT_TRUE(reading.ok);
    EXPECT_THAT(
        reading.problems,
        ElementsAre("a chunk leads outside the one around it (offset 24 of chunk 10000011)"));
  }
}

TEST(ArchiveBounds, ChunkMustNotHoldItsParentsSum) {
  std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) {
      WriteChunk(b, kPlain, [](ON_BinaryArchive& c) { c.WriteInt(1); });
    });
  });
  bytes[12 + 4] = 8;
  EXPECT_FALSE(Read(bytes, [](ON_BinaryArchive& a) {
                 const bool inner = Open(a) && Open(a);
                 a.EndRead3dmChunksTo(0);
                 return inner;
               }).ok);
}

TEST(ArchiveBounds, ChunkIsCutAtTheEndOfTheFile) {
  std::string bytes = TwoChunks();
  bytes.resize(bytes.size() - 6);
  const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
    EXPECT_TRUE(Open(a) && a.EndRead3dmChunk());
    EXPECT_TRUE(Open(a));
    EXPECT_EQ(a.BytesLeft(), 2u);
    std::int32_t value = 1;
    EXPECT_FALSE(a.ReadInt(&value));
    return a.EndRead3dmChunk();
  });
  EXPECT_FALSE(reading.ok);
  EXPECT_THAT(reading.problems, ElementsAre("the file ends inside chunk 20008050 (offset 20)"));
}

TEST(ArchiveBounds, ChunkTooShortForItsSum) {
  std::string bytes = TwoChunks();
  bytes[4] = 3;
  const Reading reading = Read(bytes, Open);
  EXPECT_FALSE(reading.ok);
  EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("too short for its check sum")));
}

TEST(ArchiveBounds, ChunkTooShortForItsVersion) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, TCODE_ANONYMOUS_CHUNK, [](ON_BinaryArchive& b) { b.WriteInt(1); });
  });
  EXPECT_FALSE(Read(bytes, [](ON_BinaryArchive& a) {
                 int major = 0, minor = 0;
                 return a.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor);
               }).ok);
}

TEST(ArchiveBounds, NoRoomForAChunk) {
  for (std::size_t size = 1; size < 12; ++size) {
    EXPECT_FALSE(Read(TwoChunks().substr(0, size), Open).ok) << size;
  }
}

TEST(ArchiveBounds, NestingTenThousandDeepIsRefused) {
  constexpr int kDepth = 10000;
  constexpr std::size_t kHead = 12;
  std::string bytes;
  for (int i = kDepth; i > 0; --i) {
    const std::uint64_t length = kHead * static_cast<std::uint64_t>(i - 1);
    bytes.append(reinterpret_cast<const char*>(&kPlain), 4);
    bytes.append(reinterpret_cast<const char*>(&length), 8);
  }
  const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
    int depth = 0;
    while (Open(a)) ++depth;
    EXPECT_EQ(depth, ON_BinaryArchive::kMaxChunkDepth);
    a.EndRead3dmChunksTo(0);
    return a.BytesLeft() == 0;
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("chunks are nested too deep")));
}

TEST(ArchiveBounds, CountsAreHeldAgainstTheBytesLeft) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    for (const std::int32_t count : {2, 3, -1, std::numeric_limits<std::int32_t>::max()}) {
      WriteChunk(a, kPlain, [count](ON_BinaryArchive& b) {
        b.WriteInt(count);
        b.WriteBigInt(0);
        b.WriteBigInt(0);
      });
    }
  });
  const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
    std::size_t count = 0;
    EXPECT_TRUE(Open(a) && a.ReadCount(8, &count));
    EXPECT_EQ(count, 2u);
    EXPECT_TRUE(a.EndRead3dmChunk());
    for (int i = 0; i < 3; ++i) {
      EXPECT_TRUE(Open(a));
      EXPECT_FALSE(a.ReadCount(8, &count));
      EXPECT_EQ(count, 0u);
      EXPECT_FALSE(a.EndRead3dmChunk());
      const auto problems = a.TakeProblems();
      EXPECT_THAT(problems, ElementsAre(HasSubstr(i == 1 ? "a count is negative"
                                                         : "a count exceeds what its chunk can")));
    }
    return true;
  });
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST(ArchiveBounds, TextMustNotLeaveItsChunk) {
  for (const std::uint32_t count : {9u, 0x7fffffffu, 0x80000001u, 0xffffffffu}) {
    const std::string bytes = Write([count](ON_BinaryArchive& a) {
      WriteChunk(a, kPlain, [count](ON_BinaryArchive& b) {
        b.WriteInt(static_cast<std::int32_t>(count));
        b.WriteBigInt(0);
        b.WriteBigInt(0);
      });
      a.WriteBigInt(0);
    });
    const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
      std::string text = "before";
      EXPECT_TRUE(Open(a));
      EXPECT_FALSE(a.ReadString(&text));
      EXPECT_EQ(text, "");
      return a.EndRead3dmChunk();
    });
    EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("a text leads outside its chunk")));
  }
}

TEST(ArchiveBounds, OnlyTheFirstFailureIsTold) {
  const Reading reading = Read(TwoChunks(), [](ON_BinaryArchive& a) {
    EXPECT_TRUE(Open(a));
    EXPECT_FALSE(a.Fail("the first"));
    EXPECT_FALSE(a.Fail("the second"));
    EXPECT_FALSE(a.EndRead3dmChunk());
    EXPECT_FALSE(a.Fail("the third"));
    return true;
  });
  EXPECT_THAT(reading.problems, ElementsAre("the first (offset 12 of chunk 20008050)"));
}

TEST(ArchiveBounds, EndingMoreChunksThanWereOpenedFails) {
  EXPECT_FALSE(Read(TwoChunks(), [](ON_BinaryArchive& a) { return a.EndRead3dmChunk(); }).ok);
}

}  // namespace
