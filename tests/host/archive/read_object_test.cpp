#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/archive/class_wrapper.h"
#include "host/archive/record_readers.h"
#include "host/geometry/on_point_cloud.h"
#include "record_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr unsigned kNewLibrary = 0x90000000;
constexpr ON_UUID kPointClass = "c3101a1d-f157-11d3-bfe7-0010830122f0"_uuid;
constexpr ON_UUID kCloudClass = "2488f347-f8fa-11d3-bfec-0010830122f0"_uuid;
constexpr ON_UUID kDetailClass = "c8c66efa-b3cb-4e00-9440-2ad66203379e"_uuid;
constexpr ON_UUID kForeignId = "5d0a7a10-0002-4b6e-9c11-2f3a4b5c6d7e"_uuid;
constexpr ON_UUID kObjectId = "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4"_uuid;

struct ReadObject {
  Reading reading;
  ONX_ModelObject object;
  std::vector<ONX_UnreadKind> unread;
};

ReadObject ReadRecord(int version, unsigned library, const WriteContent& write) {
  ReadObject result;
  host::UnreadCounter unread;
  result.reading = ReadBytes(RecordBytes(version, library, write), version, library,
                             [&](ON_BinaryArchive& archive) {
                               return host::ReadObjectRecord(archive, result.object, unread);
                             });
  result.unread = unread.Take();
  return result;
}

void WritePointData(ON_BinaryArchive& archive) {
  archive.Write3dmChunkVersion(1, 0);
  archive.WritePoint({1, 2, 3});
}

void WriteStrings(ON_BinaryArchive& archive) {
  ON_UserStringList list;
  list.SetUserString("material", "oak");
  ASSERT_TRUE(ON_WriteUserStringList(archive, list));
}

// A point with these attributes.
ReadObject ReadWithAttributes(int version, unsigned library, const WriteContent& attributes) {
  return ReadRecord(version, library, [&](ON_BinaryArchive& archive) {
    archive.WriteShortChunk(TCODE_OBJECT_RECORD_TYPE, 1);
    WriteClass(archive, kPointClass, WritePointData);
    WriteChunk(archive, TCODE_OBJECT_RECORD_ATTRIBUTES, attributes);
    archive.WriteShortChunk(TCODE_OBJECT_RECORD_END, 0);
  });
}

// A point with this user data.
ReadObject ReadWithUserData(int version, unsigned library, const WriteContent& user_data) {
  return ReadRecord(version, library, [&](ON_BinaryArchive& archive) {
    WriteClass(archive, kPointClass, WritePointData, user_data);
    archive.WriteShortChunk(TCODE_OBJECT_RECORD_END, 0);
  });
}

// The fields of attributes of version 1.0, up to minor version `minor`.
void WriteFixedAttributes(ON_BinaryArchive& a, int minor) {
  a.Write3dmChunkVersion(1, minor);
  a.WriteUuid(kObjectId);
  a.WriteInt(2);
  a.WriteInt(5);
  a.WriteColor(ON_Color(1, 2, 3));
  for (int i = 0; i < 5; ++i) a.WriteInt(0);
  a.WriteInt(4);
  a.WriteChar(0x12);
  for (int i = 0; i < 3; ++i) a.WriteChar(1);
  a.WriteString("name");
  a.WriteString("url");
  if (minor >= 1) {
    for (const int value : {2, 7, 9}) a.WriteInt(value);
  }
  if (minor >= 2) a.WriteBool(false);
  if (minor >= 3) a.WriteInt(0);
  if (minor >= 4) {
    a.WriteInt(8);
    a.WriteChar(1);
    a.WriteColor(ON_Color(9, 8, 7));
    a.WriteChar(3);
    a.WriteDouble(0.25);
  }
  if (minor >= 5) a.WriteInt(6);
  if (minor >= 6) {
    a.WriteChar(2);
    a.WriteInt(0);
  }
  if (minor >= 7) {
    WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) {
      b.WriteInt(0);
      b.WriteInt(0);
    });
  }
}

}  // namespace

TEST(ReadObject, EachFormOfFixedAttributesIsRead) {
  for (int minor = 0; minor <= 7; ++minor) {
    const auto [reading, object, unread] = ReadWithAttributes(
        4, 200710174, [&](ON_BinaryArchive& a) { WriteFixedAttributes(a, minor); });
    ASSERT_TRUE(reading.ok) << minor;
    EXPECT_THAT(reading.problems, IsEmpty());
    const ON_3dmObjectAttributes& a = object.m_attributes;
    EXPECT_EQ(kObjectId, a.m_uuid);
    EXPECT_EQ("name", a.m_name);
    EXPECT_EQ("url", a.m_url);
    EXPECT_EQ(2, a.m_layer_index);
    EXPECT_EQ(5, a.m_material_index);
    EXPECT_EQ(4, a.m_wire_density);
    EXPECT_EQ(ON_ObjectMode::locked, a.m_mode);
    EXPECT_EQ(ON_AttributeSource::object, a.m_material_source);
    EXPECT_EQ(minor < 2, a.m_visible) << minor;
    EXPECT_THAT(a.m_group, minor >= 1 ? SizeIs(2) : SizeIs(0));
    EXPECT_EQ(minor >= 4 ? 0.25 : 0, a.m_plot_weight_mm);
    EXPECT_EQ(minor >= 5 ? 6 : -1, a.m_linetype_index);
    EXPECT_EQ(minor >= 6 ? 2 : 1, a.m_space);
  }
}

TEST(ReadObject, TaggedAttributesEndAtATagThatIsNotKnown) {
  const auto [reading, object, unread] =
      ReadWithAttributes(80, kNewLibrary, [](ON_BinaryArchive& a) {
        a.Write3dmChunkVersion(2, 13);
        a.WriteUuid(kObjectId);
        a.WriteInt(3);
        a.WriteChar(1);
        a.WriteString("Łódź");
        a.WriteChar(18);
        for (const int value : {1, 4}) a.WriteInt(value);
        a.WriteChar(99);
        a.WriteDouble(1);
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ("Łódź", object.m_attributes.m_name);
  EXPECT_THAT(object.m_attributes.m_group, ElementsAre(4));
  EXPECT_EQ(-1, object.m_attributes.m_material_index);
  EXPECT_TRUE(object.m_attributes.m_visible);
}

TEST(ReadObject, TaggedAttributesOutOfOrderFail) {
  const auto reading = ReadWithAttributes(80, kNewLibrary, [](ON_BinaryArchive& a) {
                         a.Write3dmChunkVersion(2, 13);
                         a.WriteUuid(kObjectId);
                         a.WriteInt(3);
                         for (int i = 0; i < 4; ++i) a.WriteChar(11);
                       }).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("the items of attributes are out of order"));
}

TEST(ReadObject, AttributesOfAnUnknownVersionFail) {
  const auto reading = ReadWithAttributes(80, kNewLibrary, [](ON_BinaryArchive& a) {
                         a.Write3dmChunkVersion(3, 0);
                       }).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("attributes of an unknown version"));
}

TEST(ReadObject, AnObjectOfAnotherClassIsCountedAndKeepsItsAttributes) {
  for (const auto& [id, name] : {std::pair{kDetailClass, std::string("detail view")},
                                 std::pair{kForeignId, "class " + kForeignId.ToString()}}) {
    const auto [reading, object, unread] =
        ReadRecord(80, kNewLibrary, [&, class_id = id](ON_BinaryArchive& archive) {
          archive.WriteShortChunk(TCODE_OBJECT_RECORD_TYPE, 16);
          WriteClass(archive, class_id, WritePointData);
          WriteChunk(archive, TCODE_OBJECT_RECORD_ATTRIBUTES,
                     [](ON_BinaryArchive& a) { WriteFixedAttributes(a, 2); });
          // A history record may come in between.
          WriteChunk(archive, 0x02008074, [](ON_BinaryArchive& a) { a.WriteInt(1); });
          archive.WriteShortChunk(TCODE_OBJECT_RECORD_END, 0);
        });
    ASSERT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems, IsEmpty());
    EXPECT_EQ(nullptr, object.m_geometry);
    EXPECT_EQ(id, object.m_class_id);
    EXPECT_EQ(16u, object.m_object_type);
    EXPECT_EQ("name", object.m_attributes.m_name);
    ASSERT_THAT(unread, SizeIs(1));
    EXPECT_EQ(name, unread[0].m_name);
    EXPECT_EQ(1, unread[0].m_count);
  }
}

TEST(ReadObject, ARecordWithoutAnObjectFails) {
  const auto reading = ReadRecord(80, kNewLibrary, [](ON_BinaryArchive& archive) {
                         archive.WriteShortChunk(TCODE_OBJECT_RECORD_TYPE, 16);
                       }).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("an object record without an object"));
}

TEST(ReadObject, CountsOfAKindAddUpInTheOrderOfMeeting) {
  host::UnreadCounter unread;
  for (const char* kind : {"brep", "text", "brep"}) unread.Add(kind);
  const auto kinds = unread.Take();
  ASSERT_THAT(kinds, SizeIs(2));
  EXPECT_EQ("brep", kinds[0].m_name);
  EXPECT_EQ(2, kinds[0].m_count);
  EXPECT_EQ("text", kinds[1].m_name);
}

TEST(ReadUserData, StringsAreReadBehindUserDataThatIsNotKnown) {
  const auto [reading, object, unread] = ReadWithUserData(80, kNewLibrary, [](ON_BinaryArchive& a) {
    WriteUserData(a, kForeignId, {}, [](ON_BinaryArchive& b) { b.WriteDouble(1); });
    WriteUserData(a, host::kUserStringListId, {}, WriteStrings);
  });
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ("oak", object.m_geometry->GetUserString("material"));
}

// An item keeps the form of the file that it was copied from.
TEST(ReadUserData, APayloadOfAnOlderFileHasShorterLengths) {
  const auto [reading, object, unread] =
      ReadWithUserData(80, kNewLibrary, [](ON_BinaryArchive& archive) {
        WriteUserData(archive, host::kUserStringListId, {2, 4, 200710174}, [](ON_BinaryArchive& a) {
          a.SetArchive3dmVersion(4);
          WriteStrings(a);
          a.SetArchive3dmVersion(80);
        });
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ("oak", object.m_geometry->GetUserString("material"));
}

TEST(ReadUserData, HeadersOfOlderFilesAreRead) {
  for (const int minor : {0, 1}) {
    const auto [reading, object, unread] = ReadWithUserData(4, 200710174, [&](ON_BinaryArchive& a) {
      WriteUserData(a, host::kUserStringListId, {minor, 0, 0}, WriteStrings);
    });
    ASSERT_TRUE(reading.ok) << minor;
    EXPECT_THAT(reading.problems, IsEmpty());
    EXPECT_EQ("oak", object.m_geometry->GetUserString("material"));
  }
}

TEST(ReadUserData, TheOldestHeaderHasNoChunkOfItsOwn) {
  const auto [reading, object, unread] =
      ReadWithUserData(2, 200012210, [](ON_BinaryArchive& archive) {
        WriteChunk(archive, TCODE_OPENNURBS_CLASS_USERDATA, [](ON_BinaryArchive& a) {
          a.Write3dmChunkVersion(1, 0);
          a.WriteUuid(host::kUserStringListId);
          a.WriteUuid(host::kUserStringListId);
          a.WriteInt(1);
          a.WriteXform({});
          WriteChunk(a, TCODE_ANONYMOUS_CHUNK, WriteStrings);
        });
      });
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ("oak", object.m_geometry->GetUserString("material"));
}

TEST(ReadUserData, ABrokenItemTakesNothingFromItsObject) {
  const auto [reading, object, unread] = ReadWithUserData(80, kNewLibrary, [](ON_BinaryArchive& a) {
    WriteUserData(a, host::kUserStringListId, {}, [](ON_BinaryArchive& b) { b.WriteDouble(1); });
    WriteUserData(a, host::kUserStringListId, {}, WriteStrings);
  });
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, SizeIs(1));
  EXPECT_EQ("oak", object.m_geometry->GetUserString("material"));
}

TEST(ReadUserData, StringsOfTheDocumentStandInATableOfTheirOwn) {
  ONX_PlugInData table;
  table.m_plugin_id = host::kDocumentUserStringsId;
  table.m_archive_version = 4;
  table.m_opennurbs_version = 200710174;
  table.m_bytes = RecordBytes(4, 200710174, [](ON_BinaryArchive& archive) {
    WriteClass(
        archive, host::kDocumentUserStringsId, [](ON_BinaryArchive& a) { a.WriteInt(0); },
        [](ON_BinaryArchive& a) {
          WriteUserData(a, host::kUserStringListId, {1, 0, 0}, WriteStrings);
        });
  });
  ON_UserStringList strings;
  ASSERT_TRUE(host::ReadDocumentUserStrings(table, strings));
  EXPECT_EQ("oak", strings.GetUserString("material"));
  table.m_bytes.resize(20);
  ON_UserStringList none;
  EXPECT_FALSE(host::ReadDocumentUserStrings(table, none));
  EXPECT_TRUE(none.IsEmpty());
}

TEST(ReadPointCloud, AChannelOfAnotherLengthIsLeftOut) {
  const auto [reading, object, unread] = ReadRecord(80, kNewLibrary, [](ON_BinaryArchive& a) {
    WriteClass(a, kCloudClass, [](ON_BinaryArchive& b) {
      b.Write3dmChunkVersion(1, 2);
      b.WriteInt(2);
      b.WritePoint({1, 2, 3});
      b.WritePoint({4, 5, 6});
      b.WritePlane({});
      b.WriteBoundingBox({});
      b.WriteInt(1);
      b.WriteInt(0);
      b.WriteInt(2);
      b.WriteColor(ON_Color(1, 2, 3));
      b.WriteColor(ON_Color(4, 5, 6));
      b.WriteInt(1);
      b.WriteDouble(7);
    });
  });
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  const auto* cloud = dynamic_cast<const ON_PointCloud*>(object.m_geometry.get());
  ASSERT_NE(nullptr, cloud);
  EXPECT_EQ(2, cloud->PointCount());
  EXPECT_TRUE(cloud->HasPointColors());
  EXPECT_FALSE(cloud->HasPointNormals());
  EXPECT_THAT(cloud->m_V, IsEmpty());
}

TEST(ReadPointCloud, ACountThatLeadsOutsideTheFileIsTold) {
  const auto reading = ReadRecord(80, kNewLibrary, [](ON_BinaryArchive& a) {
                         WriteClass(a, kCloudClass, [](ON_BinaryArchive& b) {
                           b.Write3dmChunkVersion(1, 2);
                           b.WriteInt(0x7fffffff);
                         });
                       }).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1));
  EXPECT_THAT(reading.problems[0], HasSubstr("a count exceeds what its chunk can hold"));
}
