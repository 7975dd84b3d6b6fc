#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "host/archive/binary_archive.h"
#include "record_bytes.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint32_t kPlain = 0x10000011;
constexpr int kVersion = 50;
// A chunk's head, the size, the sum, the method, the head of the chunk with the data.
constexpr std::size_t kSizeAt = 12;
constexpr std::size_t kMethodAt = kSizeAt + 8;
constexpr std::size_t kDataAt = kMethodAt + 1 + 12;

std::string Write(std::string_view content) {
  return RecordBytes(kVersion, 0, [content](ON_BinaryArchive& a) {
    WriteChunk(a, kPlain, [content](ON_BinaryArchive& b) {
      b.WriteCompressedBuffer(std::as_bytes(std::span(content)));
    });
  });
}

Reading Read(const std::string& bytes, std::string* content) {
  return ReadBytes(bytes, kVersion, 0, [content](ON_BinaryArchive& a) {
    std::uint32_t typecode = 0;
    std::int64_t value = 0;
    std::size_t size = 0;
    EXPECT_TRUE(a.BeginRead3dmChunk(&typecode, &value));
    bool ok = a.ReadCompressedBufferSize(&size);
    if (ok) content->resize(size);
    ok = ok && (size == 0 || a.ReadCompressedBuffer(std::as_writable_bytes(std::span(*content))));
    return a.EndRead3dmChunk() && ok;
  });
}

std::string Repeating(std::size_t size) {
  std::string content(size, '\0');
  for (std::size_t i = 0; i < size; ++i) content[i] = static_cast<char>(i / 7);
  return content;
}

void ExpectProblem(const std::string& bytes, const char* problem) {
  std::string content;
  const Reading reading = Read(bytes, &content);
  EXPECT_FALSE(reading.ok);
  EXPECT_THAT(reading.problems, ElementsAre(HasSubstr(problem)));
}

TEST(CompressedBuffer, ComesBack) {
  for (const std::size_t size : {0, 1, 128, 129, 1000, 1000000}) {
    const std::string content = Repeating(size);
    std::string read;
    const Reading reading = Read(Write(content), &read);
    EXPECT_TRUE(reading.ok) << size;
    EXPECT_THAT(reading.problems, IsEmpty());
    EXPECT_EQ(read, content);
  }
}

TEST(CompressedBuffer, ShortOnesAreStoredAsTheyAre) {
  const std::string content = Repeating(128);
  EXPECT_EQ(Write(content).substr(kMethodAt), std::string(1, '\0') + content);
  EXPECT_LT(Write(Repeating(100000)).size(), 5000u);
}

TEST(CompressedBuffer, AbsentOneIsItsSizeAlone) {
  EXPECT_EQ(Write("").size(), kSizeAt + 4);
}

TEST(CompressedBuffer, MoreThanIsHeldAtOnceComesBack) {
  // Random bytes don't pack, and so their data exceeds the 32 MB that are inflated in one go.
  std::string content(std::size_t{34} << 20, '\0');
  std::mt19937_64 random(1);
  for (std::size_t i = 0; i + 8 <= content.size(); i += 8) {
    const std::uint64_t value = random();
    std::memcpy(content.data() + i, &value, 8);
  }
  const std::string bytes = Write(content);
  ASSERT_GT(bytes.size(), std::size_t{32} << 20);
  std::string read;
  EXPECT_TRUE(Read(bytes, &read).ok);
  EXPECT_TRUE(read == content);
}

// A small buffer with so many bytes behind its packed data that it takes the way of huge ones.
std::string PaddedToHuge(std::string bytes) {
  bytes.insert(bytes.size() - 4, std::string(std::size_t{33} << 20, 'x'));
  const std::uint64_t outer = bytes.size() - kSizeAt;
  const std::uint64_t inner = bytes.size() - kDataAt;
  std::memcpy(bytes.data() + 4, &outer, 8);
  std::memcpy(bytes.data() + kDataAt - 8, &inner, 8);
  return bytes;
}

TEST(CompressedBuffer, DamagedDataInAHugeOneIsTold) {
  std::string bytes = PaddedToHuge(Write(Repeating(1000)));
  bytes[kDataAt + 10] = static_cast<char>(bytes[kDataAt + 10] ^ 0x55);
  ExpectProblem(bytes, "a compressed buffer is damaged");
}

TEST(CompressedBuffer, WrongSizeOfAHugeOneIsTold) {
  for (const std::uint32_t size : {999u, 1001u, 100000u}) {
    std::string bytes = PaddedToHuge(Write(Repeating(1000)));
    std::memcpy(bytes.data() + kSizeAt, &size, 4);
    ExpectProblem(bytes, "a compressed buffer is damaged");
  }
}

TEST(CompressedBuffer, DamagedDataIsTold) {
  std::string bytes = Write(Repeating(1000));
  bytes[kDataAt + 10] = static_cast<char>(bytes[kDataAt + 10] ^ 0x55);
  ExpectProblem(bytes, "a compressed buffer is damaged");
}

TEST(CompressedBuffer, WrongSumOfTheContentIsToldAndTheContentStays) {
  for (const std::size_t size : {100, 1000}) {
    std::string bytes = Write(Repeating(size));
    bytes[kSizeAt + 4] = static_cast<char>(bytes[kSizeAt + 4] ^ 1);
    std::string content;
    const Reading reading = Read(bytes, &content);
    EXPECT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems,
                ElementsAre(HasSubstr("the check sum of a compressed buffer's content is wrong")));
    EXPECT_EQ(content, Repeating(size));
  }
}

TEST(CompressedBuffer, WrongSizeIsTold) {
  for (const std::uint32_t size : {999u, 1001u, 100000u}) {
    std::string bytes = Write(Repeating(1000));
    std::memcpy(bytes.data() + kSizeAt, &size, 4);
    ExpectProblem(bytes, "a compressed buffer is damaged");
  }
}

TEST(CompressedBuffer, UnknownMethodIsTold) {
  std::string bytes = Write(Repeating(1000));
  bytes[kMethodAt] = 2;
  ExpectProblem(bytes, "a compressed buffer has an unknown method");
}

TEST(CompressedBuffer, SizeThatTheDataCannotHoldIsRefusedBeforeAllocation) {
  for (const std::uint32_t size : {10000000u, 0xffffffffu}) {
    std::string bytes = Write(Repeating(1000));
    std::memcpy(bytes.data() + kSizeAt, &size, 4);
    ExpectProblem(bytes, "a compressed buffer claims more bytes than its data can hold");
  }
  std::string stored = Write(Repeating(100));
  const std::uint32_t size = 101;
  std::memcpy(stored.data() + kSizeAt, &size, 4);
  ExpectProblem(stored, "a buffer leads outside its chunk");
}

TEST(CompressedBuffer, BuffersThatUnpackOutOfProportionAreRefused) {
  const std::string zeros(std::size_t{60} << 20, '\0');
  const std::string bytes = RecordBytes(kVersion, 0, [&zeros](ON_BinaryArchive& a) {
    for (int i = 0; i < 2; ++i) a.WriteCompressedBuffer(std::as_bytes(std::span(zeros)));
  });
  ASSERT_LT(bytes.size(), zeros.size() / 400);
  const Reading reading = ReadBytes(bytes, kVersion, 0, [](ON_BinaryArchive& a) {
    std::size_t size = 0;
    EXPECT_TRUE(a.ReadCompressedBufferSize(&size));
    std::string content(size, 'x');
    EXPECT_TRUE(a.ReadCompressedBuffer(std::as_writable_bytes(std::span(content))));
    return a.ReadCompressedBufferSize(&size);
  });
  EXPECT_FALSE(reading.ok);
  EXPECT_THAT(reading.problems,
              ElementsAre(HasSubstr("unpack to more than 50 times the size of the file")));
}

TEST(CompressedBuffer, ArrayOfAnotherCountIsRefused) {
  const std::string bytes = Write(Repeating(1000));
  const auto read = [&bytes](std::size_t count, ON_SimpleArray<double>* out) {
    return ReadBytes(bytes, kVersion, 0, [&](ON_BinaryArchive& a) {
      std::uint32_t typecode = 0;
      std::int64_t value = 0;
      EXPECT_TRUE(a.BeginRead3dmChunk(&typecode, &value));
      const bool ok = a.ReadCompressedArray(count, out);
      return a.EndRead3dmChunk() && ok;
    });
  };
  ON_SimpleArray<double> out;
  EXPECT_TRUE(read(125, &out).ok);
  EXPECT_EQ(out.size(), 125u);
  ON_SimpleArray<double> none;
  for (const std::size_t count : {124, 126, 0}) {
    EXPECT_THAT(read(count, &none).problems,
                ElementsAre(HasSubstr("a compressed buffer has the wrong size")));
  }
  EXPECT_TRUE(none.empty());
}

TEST(CompressedBuffer, TruncatedAnywhereIsTold) {
  const std::string bytes = Write(Repeating(1000));
  for (std::size_t size = kSizeAt; size < bytes.size(); ++size) {
    std::string content;
    EXPECT_FALSE(Read(bytes.substr(0, size), &content).ok) << size;
  }
}

}  // namespace
