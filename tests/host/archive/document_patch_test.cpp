#include "host/archive/document_patch.h"

#include <gtest/gtest.h>

#include <limits>

namespace host {
namespace {

// Chunks within chunks, of 4- or 8-byte lengths: a table with a record of some numbers and a chunk
// between them.
class DocumentPatchTest : public testing::TestWithParam<int> {
 protected:
  static std::string Bytes(std::int32_t first, std::int32_t inner, std::string_view text) {
    ON_BinaryArchive archive(GetParam());
    WriteTable(archive, TCODE_LAYER_TABLE, [&](ON_BinaryArchive& table) {
      const ChunkWriter record(table, TCODE_LAYER_RECORD);
      table.WriteInt(first);
      {
        const ChunkWriter child(table, TCODE_ANONYMOUS_CHUNK);
        table.WriteInt(inner);
      }
      table.WriteString(text);
      table.WriteDouble(0.5);
    });
    return archive.TakeBytes();
  }
  static DocumentPatch Open(const DocumentSource& source) {
    return DocumentPatch(source, GetParam(), 201008125);
  }
  static std::string Finished(DocumentPatch& patch) {
    std::string bytes;
    for (const DocumentPatch::Piece& piece : patch.Finish()) {
      bytes += piece.kept.length > 0 ? patch.Source().Bytes(piece.kept) : piece.bytes;
    }
    return bytes;
  }
};

INSTANTIATE_TEST_SUITE_P(Widths, DocumentPatchTest, testing::Values(4, 70));

TEST_P(DocumentPatchTest, WithoutChangesItIsOnePieceOfTheDocument) {
  const auto source = DocumentSource::FromBytes(Bytes(1, 2, "three"));
  DocumentPatch patch = Open(*source);
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_TABLE));
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_RECORD));
  EXPECT_TRUE(patch.Int(1, 1));
  patch.EndChunk();
  patch.EndChunk();
  EXPECT_EQ(patch.Growth(), 0);
  EXPECT_EQ(patch.Finish().size(), 1u);
}

TEST_P(DocumentPatchTest, FieldsThatDifferAreReplacedAndLengthsAndSumsMended) {
  const auto source = DocumentSource::FromBytes(Bytes(1, 2, "three"));
  DocumentPatch patch = Open(*source);
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_TABLE));
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_RECORD));
  EXPECT_TRUE(patch.Int(1, 100));
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_ANONYMOUS_CHUNK));
  EXPECT_TRUE(patch.Int(2, 200));
  patch.EndChunk();
  EXPECT_TRUE(patch.String("three", "a longer text: größer"));
  EXPECT_TRUE(patch.Double(0.5, 0.5));
  patch.EndChunk();
  patch.EndChunk();
  EXPECT_EQ(Finished(patch), Bytes(100, 200, "a longer text: größer"));
}

// A chunk that nobody opened stands between what was read and the end.
TEST_P(DocumentPatchTest, ChunksBehindWhatIsKnownAreLeftOutOfTheSum) {
  const auto source = DocumentSource::FromBytes(Bytes(1, 2, "three"));
  DocumentPatch patch = Open(*source);
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_TABLE));
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_RECORD));
  EXPECT_TRUE(patch.Int(1, 100));
  patch.EndChunk();
  patch.EndChunk();
  EXPECT_EQ(Finished(patch), Bytes(100, 2, "three"));
}

TEST_P(DocumentPatchTest, WholeChunksComeAndGo) {
  const std::string one = Bytes(1, 2, "three");
  ON_BinaryArchive archive(GetParam());
  const auto source = DocumentSource::FromBytes(one);
  DocumentPatch patch = Open(*source);
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_TABLE));
  const std::uint64_t start = patch.Archive().CurrentPosition();
  ASSERT_TRUE(patch.SkipChunk());
  const std::uint64_t end = patch.Archive().CurrentPosition();
  const std::string record = source->Bytes({start, end - start});
  const std::size_t first = patch.ReplaceChunks(end, 0, record);
  const std::size_t second = patch.ReplaceChunks(end, 0, record);
  patch.EndChunk();
  EXPECT_EQ(patch.Growth(), static_cast<std::int64_t>(2 * record.size()));
  const std::string bytes = Finished(patch);
  EXPECT_EQ(bytes.substr(start), record + record + record + one.substr(end));
  EXPECT_EQ(patch.PlaceOf(first).offset, end);
  EXPECT_EQ(patch.PlaceOf(second).offset, end + record.size());
  EXPECT_EQ(patch.Moved({start, record.size()}).offset, start);
  EXPECT_EQ(patch.Moved({start, record.size()}).length, record.size());

  // And away again.
  const auto grown = DocumentSource::FromBytes(bytes);
  DocumentPatch back = Open(*grown);
  ASSERT_TRUE(back.BeginChunkOf(TCODE_LAYER_TABLE));
  back.ReplaceChunks(start, 2 * record.size(), {});
  back.EndChunk();
  EXPECT_EQ(Finished(back), one);
  EXPECT_EQ(back.Moved({start + 2 * record.size(), record.size()}).offset, start);
}

TEST_P(DocumentPatchTest, WhatWasNotedInABrokenRecordIsTakenBack) {
  const auto source = DocumentSource::FromBytes(Bytes(1, 2, "three"));
  DocumentPatch patch = Open(*source);
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_TABLE));
  const DocumentPatch::Mark mark = patch.Here();
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_RECORD));
  EXPECT_TRUE(patch.Int(1, 100));
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_ANONYMOUS_CHUNK));
  EXPECT_FALSE(patch.Double(1, 2));
  patch.GoBack(mark);
  patch.EndChunk();
  EXPECT_EQ(Finished(patch), Bytes(1, 2, "three"));
}

TEST_P(DocumentPatchTest, AWrongLengthStaysWrongByAsMuch) {
  std::string bytes = Bytes(1, 2, "three");
  // The table claims to be longer than the file.
  bytes[5] = '\x7f';
  const auto source = DocumentSource::FromBytes(bytes);
  DocumentPatch patch = Open(*source);
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_TABLE));
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_RECORD));
  EXPECT_TRUE(patch.Archive().Skip(4) && patch.SkipChunk());
  EXPECT_TRUE(patch.String("three", "six"));
  patch.EndChunk();
  patch.EndChunk();
  std::string expected = Bytes(1, 2, "six");
  expected[5] = '\x7f';
  EXPECT_EQ(Finished(patch), expected);
}

TEST_P(DocumentPatchTest, NumbersThatAreNoneEqualThemselves) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  ON_BinaryArchive archive(GetParam());
  {
    const ChunkWriter record(archive, TCODE_LAYER_RECORD);
    archive.WriteDouble(none);
  }
  const auto source = DocumentSource::FromBytes(archive.TakeBytes());
  DocumentPatch patch = Open(*source);
  ASSERT_TRUE(patch.BeginChunkOf(TCODE_LAYER_RECORD));
  EXPECT_TRUE(patch.Double(none, none));
  patch.EndChunk();
  EXPECT_EQ(patch.Finish().size(), 1u);
}

}  // namespace
}  // namespace host
