#include "host/archive/file_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "document_bytes.h"
#include "host/archive/model_reader.h"
#include "support/model_corpus.h"
#include "support/model_writer.h"
#include "support/temp_folder.h"

// What is said of files that are no documents, or of versions that can't be read, and of documents
// whose tables don't stand as usual.

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char kMagic[] = "3D Geometry File Format ";

ON_ReadResult Read(std::string_view bytes, ONX_Model& model) {
  return ON_ReadModel(std::as_bytes(std::span(bytes)), model);
}

std::string ErrorOf(std::string_view bytes) {
  ONX_Model model;
  const ON_ReadResult result = Read(bytes, model);
  EXPECT_FALSE(result.ok);
  return result.error;
}

TEST(FileLayout, MissingFile) {
  const TempFolder folder;
  ONX_Model model;
  const ON_ReadResult result = ON_ReadModel(folder.File("100%.3dm"), model);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "No such file or directory");
}

TEST(FileLayout, FolderGivenAsAFile) {
  const TempFolder folder;
  ONX_Model model;
  const ON_ReadResult result = ON_ReadModel(folder.Path().string(), model);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "it is a folder");
}

TEST(FileLayout, EmptyFile) {
  const TempFolder folder;
  WriteFileContent(folder.File("empty.3dm"), "");
  ONX_Model model;
  const ON_ReadResult result = ON_ReadModel(folder.File("empty.3dm"), model);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "it is empty");
  EXPECT_EQ(ErrorOf(""), "it is empty");
}

TEST(FileLayout, ForeignFile) {
  for (const char* content : {"P", "PK\x03\x04 some archive", "3d geometry file format        4"}) {
    EXPECT_EQ(ErrorOf(content), "it is no 3dm document: it doesn't begin as one");
  }
}

TEST(FileLayout, FileThatEndsInItsHeader) {
  const std::string start = std::string(kMagic) + "      50";
  for (std::size_t size = 1; size < start.size(); ++size) {
    EXPECT_EQ(ErrorOf(start.substr(0, size)),
              "it ends inside its header (offset " + std::to_string(size) + ")");
  }
}

TEST(FileLayout, VersionsThatCannotBeRead) {
  const std::string magic = kMagic;
  EXPECT_EQ(ErrorOf(magic + "       1"), "it is a version 1 document; versions 2 to 8 can be read");
  EXPECT_EQ(ErrorOf(magic + "      90"), "it is a version 9 document; versions 2 to 8 can be read");
  EXPECT_EQ(ErrorOf(magic + "99999999"),
            "it is a version 9999999 document; versions 2 to 8 can be read");
  for (const char* field : {"        ", "      4x", "     4 0", "      -4"}) {
    EXPECT_EQ(ErrorOf(magic + field),
              "it has no version in its header (offset 24); versions 2 to 8 can be read");
  }
}

TEST(FileLayout, DocumentOfVersionOne) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS names no folder of documents";
  ONX_Model model;
  const std::string path = (*corpus / "real" / "v1_three_points.3dm").string();
  const ON_ReadResult result = ON_ReadModel(path, model);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "it is a version 1 document; versions 2 to 8 can be read");
}

TEST(FileLayout, HeaderWithoutAnythingBehindIt) {
  EXPECT_EQ(ErrorOf(std::string(kMagic) + "      50"),
            "it holds nothing that can be read: the file has no end mark (offset 32)");
}

TEST(FileLayout, TablesInAnyOrder) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  std::reverse(document.chunks.begin(), document.chunks.end());
  ONX_Model model;
  EXPECT_TRUE(Read(PutTogether(document), model).ok);
  EXPECT_THAT(model.m_problems, IsEmpty());
  EXPECT_EQ(model.m_3dm_opennurbs_version, 201008125u);
  EXPECT_EQ(model.m_start_section_comments, "a small document");
  EXPECT_EQ(model.m_layer_table.size(), 3u);
  EXPECT_EQ(model.m_object_table.size(), 3u);
  EXPECT_EQ(model.m_document_user_strings.GetUserString("document"), "string");
}

TEST(FileLayout, RecordsKnowTheirPlaceInTheFile) {
  const std::string bytes = WriteModel(SmallModel());
  ONX_Model model;
  ASSERT_TRUE(Read(bytes, model).ok);
  for (const ONX_ModelObject& object : model.m_object_table) {
    std::uint32_t head[2] = {};
    std::memcpy(head, bytes.data() + object.m_span.offset, sizeof head);
    EXPECT_EQ(head[0], TCODE_OBJECT_RECORD);
    EXPECT_EQ(object.m_span.length, sizeof head + head[1]);
  }
  ASSERT_EQ(model.m_userdata_table.size(), 1u);
  const ONX_PlugInData& data = model.m_userdata_table[0];
  EXPECT_EQ(data.m_bytes, "bytes of a plug-in");
  EXPECT_EQ(data.m_archive_version, 4);
  std::uint32_t typecode = 0;
  std::memcpy(&typecode, bytes.data() + data.m_span.offset, sizeof typecode);
  EXPECT_EQ(typecode, TCODE_USER_TABLE);
}

TEST(FileLayout, EndMarkWithAnotherSize) {
  std::string bytes = WriteModel(SmallModel());
  bytes[bytes.size() - 4] = static_cast<char>(bytes[bytes.size() - 4] + 1);
  ONX_Model model;
  EXPECT_TRUE(Read(bytes, model).ok);
  const std::string size = std::to_string(bytes.size());
  EXPECT_THAT(model.m_problems,
              ElementsAre(testing::MatchesRegex("end mark at offset .*: it tells of .* bytes, the "
                                                "file has " +
                                                size + " .*")));
}

TEST(FileLayout, NoEndMark) {
  std::string bytes = WriteModel(SmallModel());
  bytes.resize(bytes.size() - 12);
  ONX_Model model;
  EXPECT_TRUE(Read(bytes, model).ok);
  EXPECT_THAT(model.m_problems, ElementsAre("the file has no end mark (offset " +
                                            std::to_string(bytes.size()) + ")"));
}

TEST(FileLayout, BytesBehindTheEndMarkAreNotRead) {
  ONX_Model model;
  EXPECT_TRUE(Read(WriteModel(SmallModel()) + "more", model).ok);
  EXPECT_EQ(model.m_object_table.size(), 3u);
  EXPECT_THAT(model.m_problems, ElementsAre(HasSubstr("end mark at offset ")));
}

TEST(FileLayout, TableThatIsNotKnownIsCounted) {
  DocumentBytes document = TakeApart(WriteModel(SmallModel()));
  TopChunk table = ChunkOf(document, TCODE_GROUP_TABLE);
  table.bytes[0] = static_cast<char>(0x99);
  document.chunks.insert(document.chunks.begin() + 3, {table, table});
  ONX_Model model;
  EXPECT_TRUE(Read(PutTogether(document), model).ok);
  EXPECT_THAT(model.m_problems, IsEmpty());
  ASSERT_EQ(model.m_unread.size(), 1u);
  EXPECT_EQ(model.m_unread[0].m_name, "unknown table");
  EXPECT_EQ(model.m_unread[0].m_count, 2);
  EXPECT_EQ(model.m_object_table.size(), 3u);
}

}  // namespace
