#include "host/archive/byte_source.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "check_sum.h"
#include "host/system/file.h"
#include "support/temp_folder.h"

namespace {

// Larger than several windows.
std::string Content() {
  std::string content(300000, '\0');
  for (std::size_t i = 0; i < content.size(); ++i) {
    content[i] = static_cast<char>(i * 31 + i / 251);
  }
  return content;
}

std::string ReadString(ByteSource& source, std::size_t size) {
  std::string out(size, '\0');
  EXPECT_TRUE(source.Read(std::as_writable_bytes(std::span(out))));
  return out;
}

class ByteSourceOfAFile : public testing::Test {
 protected:
  ByteSourceOfAFile() { WriteFileContent(folder_.File("content"), content_); }

  TempFolder folder_;
  std::string content_ = Content();
};

TEST_F(ByteSourceOfAFile, GivesTheSameBytesInStepsOfAnySize) {
  const host::FileReader file(folder_.File("content"));
  for (const std::size_t step : {1, 3, 4096, 40000, 65535, 65536, 65537, 200000}) {
    ByteSource source(file);
    source.StartSum(0);
    std::string read;
    while (read.size() < content_.size()) {
      read += ReadString(source, std::min(step, content_.size() - read.size()));
    }
    EXPECT_TRUE(read == content_) << step;
    EXPECT_EQ(source.Sum(), SlowCrc32(content_)) << step;
    EXPECT_EQ(source.Position(), content_.size());
  }
}

TEST_F(ByteSourceOfAFile, JumpsToAnyPlace) {
  const host::FileReader file(folder_.File("content"));
  ByteSource source(file);
  for (const std::uint64_t place : {299990, 0, 65530, 65536, 131080, 70000, 10}) {
    source.Seek(place);
    EXPECT_EQ(source.Position(), place);
    EXPECT_EQ(ReadString(source, 10), content_.substr(static_cast<std::size_t>(place), 10));
  }
}

TEST_F(ByteSourceOfAFile, BytesThatAreJumpedOverDoNotCountInTheSum) {
  const host::FileReader file(folder_.File("content"));
  ByteSource source(file);
  source.StartSum(0);
  ReadString(source, 100);
  source.Seek(200000);
  ReadString(source, 100);
  EXPECT_EQ(source.Sum(), SlowCrc32(content_.substr(0, 100) + content_.substr(200000, 100)));
}

TEST_F(ByteSourceOfAFile, BytesThatAreReadOverCountInTheSum) {
  const host::FileReader file(folder_.File("content"));
  ByteSource source(file);
  source.StartSum(0);
  ReadString(source, 100);
  EXPECT_TRUE(source.ReadOver(200000));
  EXPECT_EQ(source.Position(), 200100u);
  EXPECT_EQ(source.Sum(), SlowCrc32(content_.substr(0, 200100)));
  EXPECT_FALSE(source.ReadOver(100000));
}

TEST_F(ByteSourceOfAFile, ReadsNothingPastTheEnd) {
  const host::FileReader file(folder_.File("content"));
  ByteSource source(file);
  source.Seek(content_.size() - 5);
  std::string out(6, '\0');
  EXPECT_FALSE(source.Read(std::as_writable_bytes(std::span(out))));
  EXPECT_EQ(source.Position(), content_.size() - 5);
  EXPECT_EQ(ReadString(source, 5), content_.substr(content_.size() - 5));
  source.Seek(content_.size() + 100);
  EXPECT_EQ(source.Position(), content_.size());
}

TEST_F(ByteSourceOfAFile, FileThatIsCutMeanwhileGivesAShortRead) {
  const host::FileReader file(folder_.File("content"));
  ByteSource source(file);
  ReadString(source, 10);
  std::filesystem::resize_file(folder_.Path() / "content", 100000);
  std::string small(100, '\0');
  std::string large(150000, '\0');
  EXPECT_FALSE(source.Read(std::as_writable_bytes(std::span(large))));
  EXPECT_EQ(source.Position(), 10u);
  source.Seek(150000);
  EXPECT_FALSE(source.Read(std::as_writable_bytes(std::span(small))));
  EXPECT_FALSE(source.ReadOver(1));
  EXPECT_EQ(source.Position(), 150000u);
}

TEST(ByteSource, ReadsMemory) {
  const std::string content = "some bytes";
  ByteSource source(std::as_bytes(std::span(content)));
  source.StartSum(0);
  EXPECT_EQ(ReadString(source, 4), "some");
  EXPECT_EQ(ReadString(source, 6), " bytes");
  EXPECT_EQ(source.Sum(), SlowCrc32(content));
  std::byte more{};
  EXPECT_FALSE(source.Read(std::span(&more, 1)));
  EXPECT_TRUE(source.Read({}));
}

}  // namespace
