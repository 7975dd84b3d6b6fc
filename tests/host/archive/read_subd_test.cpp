#include "host/archive/read_subd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "host/archive/model_reader.h"
#include "record_bytes.h"
#include "support/model_writer.h"
#include "support/record_writers.h"
#include "support/solid_shapes.h"
#include "wrong_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr unsigned kLibrary = 0x90000000;

struct ReadResult {
  Reading reading;
  ON_SubD subd;
};

ReadResult Read(int version, const WriteContent& write) {
  ReadResult result;
  result.reading =
      ReadBytes(RecordBytes(version, kLibrary, write), version, kLibrary,
                [&](ON_BinaryArchive& archive) { return host::ReadSubD(archive, result.subd); });
  return result;
}

// A triangle whose parts are written one by one, with everything that may be wrong about them.
struct TriangleRecord {
  int version = 70;
  int major = 1;
  int level_major = 1;
  int levels = 1;
  std::array<std::uint32_t, 4> numbers{1, 4, 7, 8};
  int first_vertex_number = 1;
  int vertex_tag = 2;
  double x = 0;
  // Points on the surface of the first vertex, claimed and written.
  int limit_points = 0;
  int stored_limit_points = 0;
  int edge_tag = 2;
  int edge_vertices = 2;
  int first_edge_start = 1;
  double sharpness = 0;
  std::vector<std::pair<int, int>> face_edges{{4, 0}, {5, 0}, {6, 0}};
  // Behind each part; nothing follows the last of them.
  WriteContent additions = [](ON_BinaryArchive& a) { a.WriteChar(255); };
};

void WriteEnd(ON_BinaryArchive& a, const TriangleRecord& record) {
  if (record.version >= 70) {
    record.additions(a);
  } else {
    a.WriteChar(0);
  }
}

void WriteBase(ON_BinaryArchive& a, const TriangleRecord& record, int number) {
  a.WriteInt(number);
  a.WriteInt(100 + number);
  a.WriteShort(0);
  if (record.version < 70) {
    // A saved point, and none.
    a.WriteChar(4);
    a.WritePoint({9, 9, 9});
  }
  WriteEnd(a, record);
}

void WriteVertex(ON_BinaryArchive& a, const TriangleRecord& record, int i) {
  WriteBase(a, record, record.first_vertex_number + i);
  a.WriteChar(static_cast<std::uint8_t>(record.vertex_tag));
  a.WritePoint({i == 1 ? 1.0 : record.x, i == 2 ? 1.0 : 0.0, 0.5});
  a.WriteShort(2);
  a.WriteShort(1);
  if (i == 0 && record.limit_points != 0) {
    a.WriteChar(4);
    a.WriteInt(record.limit_points);
    for (int k = 0; k < record.stored_limit_points; ++k) {
      for (int value = 0; value < 12; ++value) a.WriteDouble(1);
      a.WriteInt(7);
      a.WriteChar(0);
    }
  } else {
    a.WriteChar(0);
  }
  a.WriteShort(2);
  for (const int edge : {4 + i, 4 + (i + 2) % 3}) {
    a.WriteInt(edge);
    a.WriteChar(0);
  }
  a.WriteShort(1);
  a.WriteInt(7);
  a.WriteChar(0);
  WriteEnd(a, record);
}

void WriteEdge(ON_BinaryArchive& a, const TriangleRecord& record, int i) {
  WriteBase(a, record, 4 + i);
  a.WriteChar(static_cast<std::uint8_t>(record.edge_tag));
  a.WriteShort(1);
  a.WriteDouble(0.5);
  a.WriteDouble(0.5);
  a.WriteDouble(record.sharpness);
  a.WriteShort(static_cast<std::int16_t>(record.edge_vertices));
  for (const int vertex : {i == 0 ? record.first_edge_start : 1 + i, 1 + (i + 1) % 3}) {
    a.WriteInt(vertex);
    a.WriteChar(0);
  }
  a.WriteShort(1);
  a.WriteInt(7);
  a.WriteChar(0);
  if (record.version >= 80) {
    a.WriteChar(8);
    a.WriteDouble(record.sharpness + 1);
  }
  WriteEnd(a, record);
}

void WriteFace(ON_BinaryArchive& a, const TriangleRecord& record) {
  WriteBase(a, record, 7);
  a.WriteInt(1);
  a.WriteInt(0);
  for (int i = 0; i < 2; ++i) a.WriteShort(static_cast<std::int16_t>(record.face_edges.size()));
  for (const auto& [edge, flags] : record.face_edges) {
    a.WriteInt(edge);
    a.WriteChar(static_cast<std::uint8_t>(flags));
  }
  WriteEnd(a, record);
}

void WriteLevel(ON_BinaryArchive& a, const TriangleRecord& record) {
  a.WriteShort(0);
  for (int i = 0; i < 3; ++i) a.WriteChar(4);
  a.WriteBoundingBox({});
  for (const std::uint32_t number : record.numbers) a.WriteInt(static_cast<std::int32_t>(number));
  for (int i = 0; i < 3; ++i) WriteVertex(a, record, i);
  for (int i = 0; i < 3; ++i) WriteEdge(a, record, i);
  WriteFace(a, record);
  a.WriteChar(0);
}

ReadResult Read(const TriangleRecord& record) {
  return Read(record.version, [&](ON_BinaryArchive& a) {
    a.WriteChar(1);
    WriteVersioned(a, record.major, 4, [&](ON_BinaryArchive& b) {
      for (const int value : {record.levels, 3, 3, 1}) b.WriteInt(value);
      b.WriteBoundingBox({});
      WriteVersioned(b, record.level_major, 1, [&](ON_BinaryArchive& c) { WriteLevel(c, record); });
      // What belongs to no level.
      b.WriteDouble(1);
    });
  });
}

void ExpectFailure(const TriangleRecord& record, const char* problem) {
  const Reading reading = Read(record).reading;
  EXPECT_FALSE(reading.ok) << problem;
  ASSERT_THAT(reading.problems, SizeIs(1)) << problem;
  EXPECT_THAT(reading.problems[0], HasSubstr(problem));
}

}  // namespace

TEST(ReadSubD, ATriangleIsReadInEveryVersion) {
  for (const int version : {60, 70, 80}) {
    SCOPED_TRACE(version);
    const auto [reading, subd] = Read({.version = version});
    ASSERT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems, IsEmpty());
    ASSERT_THAT(subd.m_vertex, SizeIs(3));
    EXPECT_EQ(subd.m_vertex[2].m_P, (ON_3dPoint{0, 1, 0.5}));
    EXPECT_EQ(subd.m_vertex[2].m_tag, ON_SubDVertex::Tag::crease);
    ASSERT_THAT(subd.m_edge, SizeIs(3));
    EXPECT_THAT(subd.m_edge[2].m_vi, ElementsAre(2, 0));
    EXPECT_TRUE(subd.m_edge[2].m_is_crease);
    EXPECT_EQ(subd.m_edge[2].m_face_count, 1);
    ASSERT_THAT(subd.m_face, SizeIs(1));
    EXPECT_THAT(subd.m_face[0].m_vi, ElementsAre(0, 1, 2));
  }
}

TEST(ReadSubD, EdgesOfAFaceMayRunTheOtherWay) {
  const auto [reading, subd] = Read({.face_edges = {{6, 1}, {5, 1}, {4, 9}}});
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(subd.m_face[0].m_vi, ElementsAre(0, 2, 1));
}

TEST(ReadSubD, TagsTellCornersAndSmoothEdges) {
  auto [reading, subd] = Read({.vertex_tag = 3, .edge_tag = 4});
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ(subd.m_vertex[0].m_tag, ON_SubDVertex::Tag::corner);
  EXPECT_FALSE(subd.m_edge[0].m_is_crease);
  EXPECT_EQ(Read({.vertex_tag = 200}).subd.m_vertex[0].m_tag, ON_SubDVertex::Tag::unset);
}

TEST(ReadSubD, SharpnessCountsFromVersionEightOn) {
  EXPECT_THAT(Read({.version = 70, .edge_tag = 1, .sharpness = 2}).subd.m_edge[0].m_sharpness,
              ElementsAre(0, 0));
  EXPECT_THAT(Read({.version = 80, .edge_tag = 1, .sharpness = 2}).subd.m_edge[0].m_sharpness,
              ElementsAre(2, 3));
  for (const double wrong : {-1.0, 4.5, std::numeric_limits<double>::quiet_NaN()}) {
    const auto [reading, subd] = Read({.version = 80, .edge_tag = 1, .sharpness = wrong});
    EXPECT_TRUE(reading.ok);
    EXPECT_THAT(subd.m_edge[0].m_sharpness, ElementsAre(0, 0));
  }
}

TEST(ReadSubD, AdditionsAreSkipped) {
  const auto [reading, subd] = Read({.additions = [](ON_BinaryArchive& a) {
    a.WriteChar(0);
    a.WriteChar(4);
    a.WriteInt(17);
    a.WriteChar(254);
    WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) { b.WriteDouble(1); });
    a.WriteChar(255);
  }});
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_THAT(subd.m_face[0].m_vi, ElementsAre(0, 1, 2));
}

TEST(ReadSubD, PointsOnTheSurfaceAreSkipped) {
  const auto [reading, subd] = Read({.limit_points = 2, .stored_limit_points = 2});
  EXPECT_TRUE(reading.ok);
  EXPECT_THAT(subd.m_face, SizeIs(1));
  ExpectFailure({.limit_points = 0x7fffffff}, "a count exceeds what its chunk can hold");
}

TEST(ReadSubD, OneWithoutANetIsEmpty) {
  const auto [reading, subd] = Read(70, [](ON_BinaryArchive& a) { a.WriteChar(0); });
  EXPECT_TRUE(reading.ok);
  EXPECT_EQ(subd.VertexCount(), 0);
  EXPECT_EQ(Read({.levels = 0}).subd.FaceCount(), 0);
}

TEST(ReadSubD, LaterLevelsAreSkipped) {
  EXPECT_THAT(Read({.levels = 5}).subd.m_face, SizeIs(1));
}

TEST(ReadSubD, WhatIsBrokenIsTold) {
  ExpectFailure({.major = 2}, "a SubD of an unknown version");
  ExpectFailure({.level_major = 2}, "a level of a SubD has an unknown version");
  ExpectFailure({.first_vertex_number = 2}, "the parts of a SubD are out of order");
  ExpectFailure({.x = std::numeric_limits<double>::quiet_NaN()}, "a SubD that isn't valid");
  ExpectFailure({.edge_vertices = 3}, "an edge of a SubD without its two vertices");
  for (const int vertex : {0, 4, -1}) {
    ExpectFailure({.first_edge_start = vertex}, "a part of a SubD names another that isn't there");
  }
  ExpectFailure({.first_edge_start = 2}, "a gap");
  for (const int edge : {3, 7, -1}) {
    ExpectFailure({.face_edges = {{edge, 0}, {5, 0}, {6, 0}}},
                  "a part of a SubD names another that isn't there");
  }
  ExpectFailure({.face_edges = {{4, 0}, {5, 1}, {6, 0}}},
                "the edges of a face of a SubD have a gap");
  ExpectFailure({.face_edges = {{4, 0}, {5, 0}}}, "the edges of a face of a SubD have a gap");
  ExpectFailure({.face_edges = {}}, "a SubD that isn't valid");
  ExpectFailure({.face_edges = {{4, 0}, {4, 1}}}, "a SubD that isn't valid");
}

TEST(ReadSubD, CountsAreBoundedByTheBytesLeft) {
  constexpr const char* kTooMany = "a SubD has more parts than its chunk can hold";
  ExpectFailure({.numbers = {1, 0xffffffff, 0xffffffff, 0xffffffff}}, kTooMany);
  ExpectFailure({.numbers = {1, 4, 0x40000000, 0x40000001}}, kTooMany);
  ExpectFailure({.numbers = {1, 4, 7, 0x7fffffff}}, kTooMany);
  ExpectFailure({.numbers = {4, 1, 7, 8}}, kTooMany);
}

static ONX_Model ModelOfBox(int version) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  auto subd = std::make_shared<ON_SubD>(MakeSubDBox({{0, 0, 0}, {1, 2, 3}}));
  subd->SetUserString("key", "value");
  model.m_object_table.emplace_back().m_geometry = std::move(subd);
  return model;
}

TEST(ReadSubD, IsAnObjectOfADocument) {
  for (const int version : {4, 50, 80}) {
    const std::string bytes = WriteModel(ModelOfBox(version));
    ONX_Model model;
    EXPECT_TRUE(ON_ReadModel(std::as_bytes(std::span(bytes)), model).ok);
    EXPECT_THAT(model.m_problems, IsEmpty());
    EXPECT_THAT(model.m_unread, IsEmpty());
    ASSERT_THAT(model.m_object_table, SizeIs(1));
    const ON_SubD* box = ON_SubD::Cast(model.m_object_table[0].m_geometry.get());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->GetUserString("key"), "value");
    const ON_SubD written = MakeSubDBox({{0, 0, 0}, {1, 2, 3}});
    ASSERT_THAT(box->m_face, SizeIs(6));
    EXPECT_THAT(box->m_edge, SizeIs(12));
    for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(box->m_face[i].m_vi, written.m_face[i].m_vi);
    EXPECT_EQ(box->m_vertex[7].m_P, (ON_3dPoint{1, 2, 3}));
  }
}

TEST(ReadSubD, AnyByteMayBeWrong) {
  for (const int version : {50, 80}) {
    const std::string whole = WriteModel(ModelOfBox(version));
    ReadWithWrongBytes(whole, whole.size() / 4, [](const ONX_Model& model) {
      for (const ONX_ModelObject& object : model.m_object_table) {
        const ON_SubD* subd = ON_SubD::Cast(object.m_geometry.get());
        EXPECT_TRUE(subd == nullptr || subd->IsValid());
      }
    });
  }
}
