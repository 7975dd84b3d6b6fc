#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "host/archive/model_reader.h"
#include "host/archive/read_geometry.h"
#include "record_bytes.h"
#include "support/model_writer.h"
#include "wrong_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr int kVersion = 80;
constexpr unsigned kLibrary = 0x90000000;
constexpr ON_UUID kFirst = "11111111-2222-4333-8444-555555555551"_uuid;
constexpr ON_UUID kSecond = "11111111-2222-4333-8444-555555555552"_uuid;
constexpr ON_Plane kPlane{{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};

// A record with what differs between the forms of it, or is broken in one.
struct Record {
  int major = 1;
  int surface_major = 1;
  int surface_minor = 1;
  int clipping_major = 1;
  int clipping_minor = 1;
  int list_major = 1;
  ON_Plane plane = kPlane;
  bool enabled = true;
  int list_count = 2;
  // What newer forms have behind the list.
  WriteContent more = [](ON_BinaryArchive&) {};
};

void WriteSurface(ON_BinaryArchive& a, const Record& record) {
  WriteChunk(a, TCODE_ANONYMOUS_CHUNK, [&](ON_BinaryArchive& b) {
    b.Write3dmChunkVersion(record.surface_major, record.surface_minor);
    b.WritePlane(record.plane);
    b.WriteInterval({0, 1});
    b.WriteInterval({0, 2});
    if (record.surface_minor < 1) return;
    b.WriteInterval({-10, 10});
    b.WriteInterval({-20, 20});
  });
}

void WriteClipping(ON_BinaryArchive& a, const Record& record) {
  WriteVersioned(a, record.clipping_major, record.clipping_minor, [&](ON_BinaryArchive& b) {
    b.WriteUuid(kFirst);
    b.WriteUuid(kSecond);
    b.WritePlane(record.plane);
    b.WriteBool(record.enabled);
    if (record.clipping_minor < 1) return;
    WriteVersioned(b, record.list_major, 0, [&](ON_BinaryArchive& list) {
      list.WriteInt(record.list_count);
      list.WriteUuid(kFirst);
      list.WriteUuid(kSecond);
    });
    record.more(b);
  });
}

struct ReadPlane {
  Reading reading;
  ON_ClippingPlaneSurface surface;
};

ReadPlane ReadContent(const WriteContent& write) {
  ReadPlane result;
  result.reading = ReadBytes(
      RecordBytes(kVersion, kLibrary, write), kVersion, kLibrary,
      [&](ON_BinaryArchive& archive) { return host::ReadClippingPlane(archive, result.surface); });
  return result;
}

ReadPlane Read(const Record& record) {
  return ReadContent([&](ON_BinaryArchive& archive) {
    WriteVersioned(archive, record.major, 0, [&](ON_BinaryArchive& a) {
      WriteSurface(a, record);
      WriteClipping(a, record);
    });
  });
}

void ExpectFailure(const Record& record, const char* problem) {
  const Reading reading = Read(record).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1)) << problem;
  EXPECT_THAT(reading.problems[0], HasSubstr(problem));
}

TEST(ReadClippingPlane, ReadsPlaneSidesAndViewports) {
  const auto [reading, surface] = Read({});
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ(surface.m_plane.Origin(), kPlane.Origin());
  EXPECT_EQ(surface.m_plane.Normal(), kPlane.Normal());
  EXPECT_EQ(surface.m_extents[0], (ON_Interval{-10, 10}));
  EXPECT_EQ(surface.m_extents[1], (ON_Interval{-20, 20}));
  EXPECT_THAT(surface.m_viewport_ids, ElementsAre(kFirst, kSecond));
  EXPECT_TRUE(surface.m_bEnabled);
}

TEST(ReadClippingPlane, TheOldestFormHasOneViewportAndNoSidesOfItsOwn) {
  Record record;
  record.surface_minor = 0;
  record.clipping_minor = 0;
  const auto [reading, surface] = Read(record);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ(surface.m_extents[0], (ON_Interval{0, 1}));
  EXPECT_EQ(surface.m_extents[1], (ON_Interval{0, 2}));
  EXPECT_THAT(surface.m_viewport_ids, ElementsAre(kFirst));
}

TEST(ReadClippingPlane, WhatNewerFormsAddIsPassedOver) {
  Record record;
  record.clipping_minor = 5;
  record.enabled = false;
  record.more = [](ON_BinaryArchive& a) {
    // How deep it cuts, and whether that counts.
    a.WriteDouble(2.5);
    a.WriteBool(true);
    // Objects and layers that take part, and whether they do.
    a.WriteChar(10);
    a.WriteInt(1);
    a.WriteUuid(kFirst);
    a.WriteChar(11);
    a.WriteInt(1);
    a.WriteInt(3);
    a.WriteChar(13);
    a.WriteBool(true);
    a.WriteChar(0);
  };
  const auto [reading, surface] = Read(record);
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_FALSE(surface.m_bEnabled);
  EXPECT_THAT(surface.m_viewport_ids, ElementsAre(kFirst, kSecond));
}

TEST(ReadClippingPlane, PartsOfAnUnknownVersionAreTold) {
  for (const auto& [part, problem] :
       {std::pair{&Record::major, "a clipping plane of an unknown version"},
        std::pair{&Record::surface_major, "a plane surface of an unknown version"},
        std::pair{&Record::clipping_major, "a clipping plane of an unknown version"},
        std::pair{&Record::list_major, "a list of viewports of an unknown version"}}) {
    Record record;
    record.*part = 2;
    ExpectFailure(record, problem);
  }
}

TEST(ReadClippingPlane, ACountThatLeadsOutsideTheListIsTold) {
  for (const int count : {3, 0x7fffffff, -1}) {
    Record record;
    record.list_count = count;
    ExpectFailure(record, count < 0 ? "count" : "a count exceeds what its chunk can hold");
  }
}

TEST(ReadClippingPlane, OneThatCutsNowhereIsTold) {
  const double inf = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::vector<ON_Plane> planes(6, kPlane);
  planes[0].origin.x = nan;
  planes[1].origin.z = inf;
  planes[2].zaxis.y = -inf;
  planes[3].zaxis = {0, 0, 0};
  planes[4].origin = {ON_UNSET_VALUE, ON_UNSET_VALUE, ON_UNSET_VALUE};
  planes[5].zaxis = {ON_UNSET_VALUE, ON_UNSET_VALUE, ON_UNSET_VALUE};
  for (const ON_Plane& plane : planes) {
    Record record;
    record.plane = plane;
    ExpectFailure(record, "a clipping plane without a plane");
  }
}

TEST(ReadClippingPlane, OneWithoutItsPartsIsTold) {
  EXPECT_FALSE(ReadContent([](ON_BinaryArchive&) {}).reading.ok);
  EXPECT_FALSE(ReadContent([](ON_BinaryArchive& a) { a.WriteDouble(1); }).reading.ok);
  const Reading empty = ReadContent([](ON_BinaryArchive& a) {
                          WriteVersioned(a, 1, 0, [](ON_BinaryArchive&) {});
                        }).reading;
  EXPECT_FALSE(empty.ok);
  ASSERT_THAT(empty.problems, SizeIs(1));
  EXPECT_THAT(empty.problems[0], HasSubstr("a clipping plane without a surface"));
  const Reading half = ReadContent([](ON_BinaryArchive& a) {
                         WriteVersioned(a, 1, 0, [](ON_BinaryArchive& b) { WriteSurface(b, {}); });
                       }).reading;
  EXPECT_FALSE(half.ok);
  EXPECT_THAT(half.problems, SizeIs(1));
}

ONX_Model ModelOfClippingPlanes(int version) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  for (int i = 0; i < 3; ++i) {
    auto surface = std::make_shared<ON_ClippingPlaneSurface>();
    surface->m_viewport_ids = {kFirst, kSecond};
    ONX_ModelObject& object = model.m_object_table.emplace_back();
    object.m_geometry = std::move(surface);
    object.m_attributes.m_name = "plane " + std::to_string(i);
  }
  return model;
}

TEST(ReadClippingPlane, ABrokenOneIsLeftOutOfItsDocument) {
  ONX_Model model = ModelOfClippingPlanes(50);
  auto broken = std::make_shared<ON_ClippingPlaneSurface>();
  broken->m_plane.zaxis = {0, 0, 0};
  model.m_object_table[1].m_geometry = broken;
  const std::string bytes = WriteModel(model);
  ONX_Model read;
  EXPECT_TRUE(ON_ReadModel(std::as_bytes(std::span(bytes)), read).ok);
  ASSERT_THAT(read.m_object_table, SizeIs(2));
  EXPECT_EQ(read.m_object_table[1].m_attributes.m_name, "plane 2");
  ASSERT_THAT(read.m_problems, SizeIs(1));
  EXPECT_THAT(read.m_problems[0], testing::StartsWith("object at offset "));
  EXPECT_THAT(read.m_problems[0], HasSubstr(": a clipping plane without a plane"));
}

TEST(ReadClippingPlane, AnyByteMayBeWrong) {
  for (const int version : {4, 50}) {
    const std::string whole = WriteModel(ModelOfClippingPlanes(version));
    // Behind the first records' tables; the objects stand near the end.
    ReadWithWrongBytes(whole, whole.size() / 3,
                       [](const ONX_Model& model) { EXPECT_LE(model.m_object_table.size(), 3u); });
  }
}

}  // namespace
