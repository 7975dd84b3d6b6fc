#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "document_bytes.h"
#include "host/archive/model_reader.h"
#include "host/archive/typecodes.h"
#include "support/model_writer.h"
#include "support/temp_folder.h"

// Documents that were cut or damaged: what can be read is read, the rest is told.

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

ON_ReadResult Read(std::string_view bytes, ONX_Model& model) {
  return ON_ReadModel(std::as_bytes(std::span(bytes)), model);
}

TEST(BrokenDocument, CutAnywhereItKeepsWhatStandsBeforeTheCut) {
  const std::string whole = WriteModel(SmallModel());
  std::size_t objects = 0;
  std::size_t layers = 0;
  bool couldBeRead = false;
  for (std::size_t size = 32; size < whole.size(); size += 97) {
    SCOPED_TRACE(size);
    ONX_Model model;
    const ON_ReadResult result = Read(std::string_view(whole).substr(0, size), model);
    ASSERT_FALSE(model.m_problems.empty());
    EXPECT_TRUE(result.ok || !couldBeRead) << "a longer piece must not give less";
    EXPECT_EQ(result.error.empty(), result.ok);
    EXPECT_GE(model.m_object_table.size(), objects);
    EXPECT_GE(model.m_layer_table.size(), layers);
    objects = model.m_object_table.size();
    layers = model.m_layer_table.size();
    couldBeRead = result.ok;
  }
  EXPECT_TRUE(couldBeRead);
  EXPECT_EQ(objects, 3u);
  EXPECT_EQ(layers, 3u);
}

TEST(BrokenDocument, CutInItsObjectsItKeepsTheFirstOnes) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  const std::size_t third = RecordOffsets(ChunkOf(document, TCODE_OBJECT_TABLE))[2];
  std::string bytes = document.start;
  for (const TopChunk& chunk : document.chunks) {
    if (chunk.typecode == TCODE_OBJECT_TABLE) {
      bytes += chunk.bytes.substr(0, third + 20);
      break;
    }
    bytes += chunk.bytes;
  }
  ONX_Model model;
  EXPECT_TRUE(Read(bytes, model).ok);
  ASSERT_EQ(model.m_object_table.size(), 2u);
  EXPECT_EQ(model.m_object_table[1].m_attributes.m_name, "sphere 1");
  EXPECT_THAT(model.m_problems, ElementsAre(MatchesRegex("object table at offset .*: the file ends "
                                                         "inside chunk 10000013 .*")));
}

TEST(BrokenDocument, CutBeforeAnyTableItIsAnError) {
  const std::string whole = WriteModel(SmallModel());
  ONX_Model model;
  const ON_ReadResult result = Read(std::string_view(whole).substr(0, 40), model);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error,
            "it holds nothing that can be read: comment block at offset 32: the file ends "
            "inside chunk 00000001 (offset 32)");
}

TEST(BrokenDocument, BrokenObjectIsLeftOut) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  TopChunk& objects = ChunkOf(document, TCODE_OBJECT_TABLE);
  const std::size_t second = RecordOffsets(objects)[1];
  // The length of the record's first nested chunk with a body: the class wrapper.
  const std::size_t wrapper = second + 8 + 8;
  objects.bytes[wrapper + 7] = 0x7f;
  const std::string bytes = PutTogether(document);
  ONX_Model model;
  EXPECT_TRUE(Read(bytes, model).ok);
  ASSERT_EQ(model.m_object_table.size(), 2u);
  EXPECT_EQ(model.m_object_table[0].m_attributes.m_name, "sphere 0");
  EXPECT_EQ(model.m_object_table[1].m_attributes.m_name, "sphere 2");
  const std::size_t offset = bytes.find(objects.bytes) + second;
  EXPECT_THAT(model.m_problems,
              ElementsAre(testing::StartsWith("object at offset " + std::to_string(offset) +
                                              ": a chunk leads outside the one around it")));
}

TEST(BrokenDocument, BrokenLayerKeepsItsPlace) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  TopChunk& layers = ChunkOf(document, TCODE_LAYER_TABLE);
  const std::size_t second = RecordOffsets(layers)[1];
  layers.bytes[second + 8 + 7] = 0x7f;
  ONX_Model model;
  EXPECT_TRUE(Read(PutTogether(document), model).ok);
  ASSERT_EQ(model.m_layer_table.size(), 3u);
  EXPECT_EQ(model.m_layer_table[0].m_name, "first");
  EXPECT_EQ(model.m_layer_table[2].m_name, "third");
  EXPECT_THAT(model.m_problems, ElementsAre(HasSubstr("layer at offset ")));
  EXPECT_EQ(model.m_object_table.size(), 3u);
}

TEST(BrokenDocument, RecordThatLeadsOutsideItsTableEndsTheTable) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  TopChunk& layers = ChunkOf(document, TCODE_LAYER_TABLE);
  layers.bytes[RecordOffsets(layers)[1] + 7] = 0x7f;
  ONX_Model model;
  EXPECT_TRUE(Read(PutTogether(document), model).ok);
  EXPECT_EQ(model.m_layer_table.size(), 1u);
  EXPECT_EQ(model.m_object_table.size(), 3u);
  EXPECT_THAT(model.m_problems, ElementsAre(MatchesRegex("layer table at offset .*: a chunk leads "
                                                         "outside the one around it .*")));
}

TEST(BrokenDocument, WrongSumIsToldAndTheValuesStay) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  TopChunk& layers = ChunkOf(document, TCODE_LAYER_TABLE);
  const std::size_t name = layers.bytes.find(std::string("s\0e\0c\0o\0n\0d\0", 12));
  ASSERT_NE(name, std::string::npos);
  layers.bytes[name] = 'S';
  ONX_Model model;
  EXPECT_TRUE(Read(PutTogether(document), model).ok);
  ASSERT_EQ(model.m_layer_table.size(), 3u);
  EXPECT_EQ(model.m_layer_table[1].m_name, "Second");
  EXPECT_THAT(model.m_problems, ElementsAre(MatchesRegex("layer at offset .*: the check sum of "
                                                         "chunk 0002fffc is wrong .*")));
}

TEST(BrokenDocument, OnlyTheFirstHundredProblemsAreKept) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  TopChunk& objects = ChunkOf(document, TCODE_OBJECT_TABLE);
  const auto offsets = RecordOffsets(objects);
  std::string record = objects.bytes.substr(offsets[0], offsets[1] - offsets[0]);
  record[8 + 8 + 7] = 0x7f;
  std::string records;
  for (int i = 0; i < 150; ++i) records += record;
  objects.bytes.insert(offsets[0], records);
  const auto length = static_cast<std::uint32_t>(objects.bytes.size() - 8);
  std::memcpy(objects.bytes.data() + 4, &length, 4);
  ONX_Model model;
  EXPECT_TRUE(Read(PutTogether(document), model).ok);
  EXPECT_EQ(model.m_object_table.size(), 3u);
  ASSERT_EQ(model.m_problems.size(), 101u);
  EXPECT_EQ(model.m_problems.back(), "50 more problems");
}

TEST(BrokenDocument, OnlyTheFirstHundredUnreadKindsAreKeptApart) {
  ONX_Model model = SmallModel();
  model.m_object_table.resize(1);
  for (int i = 0; i < 150; ++i) {
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_class_id.bytes[0] = 0x77;
    object.m_class_id.bytes[1] = static_cast<std::uint8_t>(i);
  }
  ONX_Model read;
  EXPECT_TRUE(Read(WriteModel(model), read).ok);
  EXPECT_EQ(read.m_object_table.size(), 151u);
  ASSERT_EQ(read.m_unread.size(), 101u);
  EXPECT_EQ(read.m_unread.back().m_name, "other kinds");
  EXPECT_EQ(read.m_unread.back().m_count, 50);
}

TEST(BrokenDocument, AnyByteMayBeWrong) {
  const std::string whole = WriteModel(SmallModel());
  constexpr std::array kFlips{'\x01', '\x80', '\xff'};
  for (std::size_t i = 0; i < whole.size(); i += 2) {
    std::string bytes = whole;
    bytes[i] = static_cast<char>(bytes[i] ^ kFlips[i % kFlips.size()]);
    ONX_Model model;
    const ON_ReadResult result = Read(bytes, model);
    EXPECT_EQ(result.error.empty(), result.ok) << i;
  }
}

TEST(BrokenDocument, FileAndBytesGiveTheSame) {
  const TempFolder folder;
  std::string bytes = WriteModel(SmallModel());
  bytes.resize(bytes.size() / 2);
  WriteFileContent(folder.File("cut.3dm"), bytes);
  ONX_Model fromFile, fromBytes;
  EXPECT_EQ(ON_ReadModel(folder.File("cut.3dm"), fromFile).ok, Read(bytes, fromBytes).ok);
  EXPECT_EQ(fromFile.m_problems, fromBytes.m_problems);
  EXPECT_EQ(fromFile.m_layer_table.size(), fromBytes.m_layer_table.size());
}

}  // namespace
