#include "host/archive/binary_archive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "check_sum.h"
#include "record_bytes.h"

// Values and chunks, written and read again, in files with lengths of 4 and of 8 bytes.

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint32_t kSummed = 0x20008050;
constexpr std::uint32_t kPlain = 0x10000011;
constexpr unsigned kLibrary = 201209145;

class BinaryArchive : public testing::TestWithParam<int> {
 protected:
  std::string Write(const WriteContent& write) { return RecordBytes(GetParam(), kLibrary, write); }
  Reading Read(const std::string& bytes, const std::function<bool(ON_BinaryArchive&)>& read) {
    return ReadBytes(bytes, GetParam(), kLibrary, read);
  }
  std::size_t Width() const { return GetParam() < 50 ? 4 : 8; }
  std::size_t Head() const { return 4 + Width(); }
};

std::string Bytes32(std::uint32_t value) {
  std::string bytes(4, '\0');
  std::memcpy(bytes.data(), &value, 4);
  return bytes;
}

TEST_P(BinaryArchive, NumbersComeBack) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    a.WriteBool(true);
    a.WriteChar(200);
    a.WriteShort(-3);
    a.WriteInt(std::numeric_limits<std::int32_t>::min());
    a.WriteBigInt(std::int64_t{-1} << 40);
    a.WriteFloat(0.1f);
    a.WriteDouble(ON_UNSET_VALUE);
  });
  EXPECT_EQ(bytes.size(), 1u + 1 + 2 + 4 + 8 + 4 + 8);
  const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
    bool flag = false;
    std::uint8_t byte = 0;
    std::int16_t small = 0;
    std::int32_t number = 0;
    std::int64_t big = 0;
    float single = 0;
    double full = 0;
    EXPECT_TRUE(a.ReadBool(&flag) && a.ReadChar(&byte) && a.ReadShort(&small) &&
                a.ReadInt(&number) && a.ReadBigInt(&big) && a.ReadFloat(&single) &&
                a.ReadDouble(&full));
    EXPECT_TRUE(flag);
    EXPECT_EQ(byte, 200);
    EXPECT_EQ(small, -3);
    EXPECT_EQ(number, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(big, std::int64_t{-1} << 40);
    EXPECT_EQ(single, 0.1f);
    EXPECT_EQ(full, ON_UNSET_VALUE);
    return a.BytesLeft() == 0;
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST_P(BinaryArchive, CompoundValuesComeBack) {
  ON_Plane plane;
  plane.origin = {1, 2, 3};
  plane.xaxis = {0, 1, 0};
  plane.yaxis = {0, 0, 1};
  plane.zaxis = {1, 0, 0};
  ON_Xform xform;
  xform.m_xform[0][3] = 7;
  const ON_UUID id = "2d4cfedb-3e2a-11d4-800e-0010830122f0"_uuid;
  const std::string bytes = Write([&](ON_BinaryArchive& a) {
    a.WritePlane(plane);
    a.WriteXform(xform);
    a.WriteColor(ON_Color(1, 2, 3, 4));
    a.WriteUuid(id);
    a.WriteInterval({-1, 5});
    a.WriteBoundingBox({{1, 2, 3}, {4, 5, 6}});
    a.WritePoint({1, 2, 3});
    a.WriteVector({4, 5, 6});
  });
  EXPECT_EQ(bytes.size(), 128u + 128 + 4 + 16 + 16 + 48 + 24 + 24);
  Read(bytes, [&](ON_BinaryArchive& a) {
    ON_Plane readPlane;
    ON_Xform readXform;
    ON_Color color;
    ON_UUID readId;
    ON_Interval interval;
    ON_BoundingBox box;
    ON_3dPoint point{};
    ON_3dVector vector{};
    EXPECT_TRUE(a.ReadPlane(&readPlane) && a.ReadXform(&readXform) && a.ReadColor(&color) &&
                a.ReadUuid(&readId) && a.ReadInterval(&interval) && a.ReadBoundingBox(&box) &&
                a.ReadPoint(&point) && a.ReadVector(&vector));
    EXPECT_EQ(readPlane.origin, plane.origin);
    EXPECT_EQ(readPlane.zaxis, plane.zaxis);
    EXPECT_EQ(readXform, xform);
    EXPECT_EQ(color, ON_Color(1, 2, 3, 4));
    EXPECT_EQ(readId, id);
    EXPECT_EQ(interval, (ON_Interval{-1, 5}));
    EXPECT_EQ(box.m_max, (ON_3dPoint{4, 5, 6}));
    EXPECT_EQ(point, (ON_3dPoint{1, 2, 3}));
    EXPECT_EQ(vector, (ON_3dVector{4, 5, 6}));
    return true;
  });
}

TEST_P(BinaryArchive, IdsAreStoredAsNumbersAndBytes) {
  const std::string bytes =
      Write([](ON_BinaryArchive& a) { a.WriteUuid("00112233-4455-6677-8899-aabbccddeeff"_uuid); });
  EXPECT_EQ(bytes, "\x33\x22\x11" + std::string(1, '\0') +
                       "\x55\x44\x77\x66\x88\x99\xaa\xbb\xcc\xdd\xee\xff");
}

TEST_P(BinaryArchive, TextsComeBack) {
  for (const std::string text : {"", "a", "Größe 名前", "\U0001F600 pair"}) {
    const std::string bytes = Write([&](ON_BinaryArchive& a) { a.WriteString(text); });
    Read(bytes, [&](ON_BinaryArchive& a) {
      std::string read = "before";
      EXPECT_TRUE(a.ReadString(&read));
      EXPECT_EQ(read, text);
      EXPECT_EQ(a.BytesLeft(), 0u);
      return true;
    });
  }
  EXPECT_EQ(Write([](ON_BinaryArchive& a) { a.WriteString(""); }), Bytes32(0));
  EXPECT_EQ(Write([](ON_BinaryArchive& a) { a.WriteString("a"); }),
            Bytes32(2) + std::string("a\0\0\0", 4));
}

TEST_P(BinaryArchive, TextEndsAtItsFirstZero) {
  const std::string bytes = Bytes32(4) + std::string("a\0\0\0b\0\0\0", 8);
  Read(bytes, [](ON_BinaryArchive& a) {
    std::string read;
    EXPECT_TRUE(a.ReadString(&read));
    EXPECT_EQ(read, "a");
    return true;
  });
}

TEST_P(BinaryArchive, AnyByteButZeroIsTrue) {
  Read(std::string("\x02\x00\xff", 3), [](ON_BinaryArchive& a) {
    bool first = false, second = true, third = false;
    EXPECT_TRUE(a.ReadBool(&first) && a.ReadBool(&second) && a.ReadBool(&third));
    EXPECT_TRUE(first);
    EXPECT_FALSE(second);
    EXPECT_TRUE(third);
    return true;
  });
}

TEST_P(BinaryArchive, ChunkHasTypecodeLengthBodyAndSum) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) { b.WriteInt(0x01020304); });
  });
  const std::string body = Bytes32(0x01020304);
  std::string length = Bytes32(8);
  length.resize(Width(), '\0');
  EXPECT_EQ(bytes, Bytes32(kSummed) + length + body + Bytes32(SlowCrc32(body)));
}

TEST_P(BinaryArchive, SumLeavesNestedChunksOut) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) {
      b.WriteString("own");
      WriteChunk(b, kSummed, [](ON_BinaryArchive& c) { c.WriteString("nested"); });
      b.WriteShortChunk(0x82000071, 5);
      b.WriteInt(17);
    });
  });
  const std::string own = Write([](ON_BinaryArchive& a) {
    a.WriteString("own");
    a.WriteInt(17);
  });
  EXPECT_EQ(bytes.substr(bytes.size() - 4), Bytes32(SlowCrc32(own)));
}

TEST_P(BinaryArchive, ChunkWithNothingButNestedChunksHasSumZero) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) {
      WriteChunk(b, kSummed, [](ON_BinaryArchive& c) { c.WriteInt(1); });
    });
  });
  EXPECT_EQ(bytes.substr(bytes.size() - 4), Bytes32(0));
}

// Reads what the test above this one's kind writes: own bytes around nested chunks.
bool ReadOwnAndNested(ON_BinaryArchive& a, std::string* own, std::int32_t* last) {
  std::uint32_t typecode = 0;
  std::int64_t value = 0;
  if (!a.BeginRead3dmChunk(&typecode, &value)) return false;
  bool ok = a.ReadString(own) && a.PeekAt3dmChunkType() == kSummed;
  ok = ok && a.BeginRead3dmChunk(&typecode, &value) && a.EndRead3dmChunk();
  ok = ok && a.BeginRead3dmChunk(&typecode, &value) && a.EndRead3dmChunk() && value == -5;
  ok = ok && a.ReadInt(last);
  return a.EndRead3dmChunk() && ok;
}

std::string OwnAndNested(int version) {
  return RecordBytes(version, kLibrary, [](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) {
      b.WriteString("own");
      WriteChunk(b, kSummed, [](ON_BinaryArchive& c) { c.WriteString("nested"); });
      b.WriteShortChunk(0x82000071, -5);
      b.WriteInt(17);
    });
  });
}

TEST_P(BinaryArchive, RightSumIsNotTold) {
  std::string own;
  std::int32_t last = 0;
  const Reading reading = Read(OwnAndNested(GetParam()), [&](ON_BinaryArchive& a) {
    return ReadOwnAndNested(a, &own, &last);
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ(own, "own");
  EXPECT_EQ(last, 17);
}

TEST_P(BinaryArchive, WrongSumIsToldAndValuesStay) {
  std::string bytes = OwnAndNested(GetParam());
  bytes[Head() + 4] = 'O';
  std::string own;
  std::int32_t last = 0;
  const Reading reading =
      Read(bytes, [&](ON_BinaryArchive& a) { return ReadOwnAndNested(a, &own, &last); });
  EXPECT_TRUE(reading.ok);
  EXPECT_EQ(own, "Own");
  EXPECT_EQ(last, 17);
  ASSERT_EQ(reading.problems.size(), 1u);
  EXPECT_THAT(reading.problems[0],
              testing::StartsWith("the check sum of chunk 20008050 is wrong (offset 0): "));
}

TEST_P(BinaryArchive, SumOfAChunkThatIsNotReadToItsEndIsNotCompared) {
  std::string bytes = OwnAndNested(GetParam());
  bytes[Head() + 4] = 'O';
  const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    std::string own;
    return a.BeginRead3dmChunk(&typecode, &value) && a.ReadString(&own) && a.EndRead3dmChunk();
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST_P(BinaryArchive, SkippedBytesCountInTheSum) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) {
      b.WriteString("skipped");
      b.WriteInt(17);
    });
  });
  const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    return a.BeginRead3dmChunk(&typecode, &value) && a.Skip(a.BytesLeft()) && a.EndRead3dmChunk();
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST_P(BinaryArchive, ShortChunkHoldsASignedValue) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    a.WriteShortChunk(0xa0000038, -1);
    a.WriteShortChunk(TCODE_ENDOFTABLE, 0);
  });
  EXPECT_EQ(bytes.size(), 2 * Head());
  Read(bytes, [](ON_BinaryArchive& a) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    EXPECT_TRUE(a.BeginRead3dmChunk(&typecode, &value));
    EXPECT_EQ(typecode, 0xa0000038);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(a.BytesLeft(), 0u);
    EXPECT_TRUE(a.EndRead3dmChunk());
    EXPECT_EQ(a.PeekAt3dmChunkType(), TCODE_ENDOFTABLE);
    return true;
  });
}

TEST_P(BinaryArchive, VersionOfAChunkComesBack) {
  const std::string bytes =
      Write([](ON_BinaryArchive& a) { WriteVersioned(a, 1, 7, [](ON_BinaryArchive&) {}); });
  Read(bytes, [](ON_BinaryArchive& a) {
    int major = 0, minor = 0;
    EXPECT_TRUE(a.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor));
    EXPECT_EQ(major, 1);
    EXPECT_EQ(minor, 7);
    return a.EndRead3dmChunk();
  });
}

TEST_P(BinaryArchive, AnotherTypecodeThanTheExpectedFails) {
  const std::string bytes = Write([](ON_BinaryArchive& a) {
    WriteChunk(a, kPlain, [](ON_BinaryArchive& b) { b.WriteBigInt(1); });
  });
  const Reading reading = Read(bytes, [](ON_BinaryArchive& a) {
    int major = 0, minor = 0;
    return a.BeginRead3dmChunk(TCODE_ANONYMOUS_CHUNK, &major, &minor);
  });
  EXPECT_FALSE(reading.ok);
  EXPECT_THAT(reading.problems,
              ElementsAre(HasSubstr("chunk 40008000 was expected and 10000011 found")));
}

TEST_P(BinaryArchive, PayloadOfAnotherWidthIsRead) {
  const int other = GetParam() < 50 ? 50 : 4;
  const std::string payload = RecordBytes(other, 7, [](ON_BinaryArchive& a) {
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) { b.WriteString("inside"); });
  });
  const std::string bytes = Write([&](ON_BinaryArchive& a) {
    WriteChunk(a, kPlain,
               [&](ON_BinaryArchive& b) { b.WriteByte(std::as_bytes(std::span(payload))); });
    WriteChunk(a, kSummed, [](ON_BinaryArchive& b) { b.WriteString("behind"); });
  });
  const Reading reading = Read(bytes, [other](ON_BinaryArchive& a) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    std::string inside, behind;
    bool ok = a.BeginRead3dmChunk(&typecode, &value);
    a.SetArchive3dmVersion(other);
    a.SetArchiveOpenNURBSVersion(7);
    ok = ok && a.BeginRead3dmChunk(&typecode, &value) && a.ReadString(&inside) &&
         a.EndRead3dmChunk() && a.EndRead3dmChunk();
    EXPECT_EQ(a.ArchiveOpenNURBSVersion(), kLibrary);
    ok = ok && a.BeginRead3dmChunk(&typecode, &value) && a.ReadString(&behind) &&
         a.EndRead3dmChunk();
    EXPECT_EQ(inside, "inside");
    EXPECT_EQ(behind, "behind");
    return ok;
  });
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Widths, BinaryArchive, testing::Values(2, 4, 5, 50, 80));

TEST(BinaryArchiveWrite, TooDeepNestingFails) {
  ON_BinaryArchive archive(50);
  for (int i = 0; i < ON_BinaryArchive::kMaxChunkDepth; ++i) {
    ASSERT_TRUE(archive.BeginWrite3dmChunk(kPlain));
  }
  EXPECT_FALSE(archive.BeginWrite3dmChunk(kPlain));
  EXPECT_FALSE(archive.EndWrite3dmChunk()) << "the archive must stay failed";
}

TEST(BinaryArchiveWrite, EndingMoreChunksThanWereBegunFails) {
  ON_BinaryArchive archive(50);
  EXPECT_FALSE(archive.EndWrite3dmChunk());
}

TEST(BinaryArchiveWrite, ShortTypecodeIsNoChunkWithABody) {
  ON_BinaryArchive archive(50);
  EXPECT_FALSE(archive.BeginWrite3dmChunk(TCODE_ENDOFTABLE));
}

}  // namespace
