#include "host/archive/read_surface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/archive/model_reader.h"
#include "host/archive/read_surface_classes.h"
#include "host/geometry/on_line_curve.h"
#include "support/model_writer.h"
#include "surface_records.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST(ReadSurface, APlaneSurfaceIsReadInEachForm) {
  for (const int minor : {0, 1}) {
    const auto [reading, surface] =
        ReadSurfaceRecord(kPlaneSurface, Writer(PlaneSurfaceRecord{.minor = minor}));
    ASSERT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems, IsEmpty());
    const ON_PlaneSurface* plane = ON_PlaneSurface::Cast(surface.get());
    ASSERT_NE(nullptr, plane);
    EXPECT_EQ((ON_3dPoint{1, 2, 3}), plane->m_plane.origin);
    EXPECT_EQ((ON_Interval{0, 1}), plane->Domain(0));
    EXPECT_EQ((ON_Interval{2, 5}), plane->Domain(1));
    // Where the sides aren't stored they are the domain.
    EXPECT_EQ(minor < 1 ? (ON_Interval{0, 1}) : (ON_Interval{-4, 4}), plane->m_extents[0]);
    EXPECT_EQ(minor < 1 ? (ON_Interval{2, 5}) : (ON_Interval{0, 8}), plane->m_extents[1]);
  }
}

TEST(ReadSurface, APlaneSurfaceThatIsNotValidIsTold) {
  ExpectSurfaceFailure(kPlaneSurface, Writer(PlaneSurfaceRecord{.major = 2}),
                       "a plane surface of an unknown version");
  for (const PlaneSurfaceRecord& record :
       {PlaneSurfaceRecord{.plane = {{kNaN, 0, 0}}},
        PlaneSurfaceRecord{.plane = {{0, 0, 0}, {0, kInfinity, 0}}},
        PlaneSurfaceRecord{.plane = {{0, 0, 0}, {0, 0, 0}}},
        PlaneSurfaceRecord{.domain = {{1, 1}, {0, 1}}},
        PlaneSurfaceRecord{.extents = {{0, 1}, {1, 0}}}}) {
    ExpectSurfaceFailure(kPlaneSurface, Writer(record), "a plane surface that isn't valid");
  }
}

TEST(ReadSurface, ASurfaceOfRevolutionIsReadInEachForm) {
  for (const int major : {1, 2}) {
    const auto [reading, surface] =
        ReadSurfaceRecord(kRevSurface, Writer(RevSurfaceRecord{.major = major, .transposed = 1}));
    ASSERT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems, IsEmpty());
    const ON_RevSurface* rev = ON_RevSurface::Cast(surface.get());
    ASSERT_NE(nullptr, rev);
    EXPECT_EQ((ON_3dPoint{0, 0, 1}), rev->m_axis.to);
    EXPECT_EQ((ON_Interval{0, 3}), rev->m_angle);
    // Where the domain isn't stored it is the angle.
    EXPECT_EQ(major == 1 ? (ON_Interval{0, 3}) : (ON_Interval{10, 20}), rev->m_t);
    EXPECT_TRUE(rev->m_bTransposed);
    EXPECT_NE(nullptr, ON_LineCurve::Cast(rev->m_curve.get()));
  }
}

TEST(ReadSurface, ASurfaceOfRevolutionThatIsNotValidIsTold) {
  for (const int major : {0, 3}) {
    ExpectSurfaceFailure(kRevSurface, Writer(RevSurfaceRecord{.major = major}),
                         "a surface of revolution of an unknown version");
  }
  ExpectSurfaceFailure(kRevSurface, Writer(RevSurfaceRecord{.has_curve = false}),
                       "a surface of revolution without a curve");
  for (const RevSurfaceRecord& record :
       {RevSurfaceRecord{.axis = {{1, 1, 1}, {1, 1, 1}}},
        RevSurfaceRecord{.axis = {{1, kNaN, 1}, {1, 2, 1}}}, RevSurfaceRecord{.angle = {3, 0}},
        RevSurfaceRecord{.angle = {0, 7}}, RevSurfaceRecord{.domain = {0, kInfinity}}}) {
    ExpectSurfaceFailure(kRevSurface, Writer(record), "a surface of revolution that isn't valid");
  }
}

TEST(ReadSurface, ASumSurfaceIsRead) {
  const auto [reading, surface] = ReadSurfaceRecord(kSumSurface, Writer(SumSurfaceRecord{}));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  const ON_SumSurface* sum = ON_SumSurface::Cast(surface.get());
  ASSERT_NE(nullptr, sum);
  EXPECT_EQ((ON_3dVector{10, 20, 30}), sum->m_basepoint);
  EXPECT_NE(nullptr, ON_LineCurve::Cast(sum->m_curve[0].get()));
  EXPECT_NE(nullptr, ON_NurbsCurve::Cast(sum->m_curve[1].get()));
}

TEST(ReadSurface, ASumSurfaceThatIsNotValidIsTold) {
  ExpectSurfaceFailure(kSumSurface, Writer(SumSurfaceRecord{.major = 2}),
                       "a sum surface of an unknown version");
  ExpectSurfaceFailure(kSumSurface, Writer(SumSurfaceRecord{.base = {0, 0, kNaN}}),
                       "a sum surface that isn't valid");
}

TEST(ReadSurface, ABrokenCurveBreaksItsSurface) {
  const WriteContent broken = [](ON_BinaryArchive& a) {
    WriteClass(a, kLine, Writer(LineRecord{.domain = {1, 0}}));
  };
  ExpectSurfaceFailure(kRevSurface, Writer(RevSurfaceRecord{.curve = broken}),
                       "a line that isn't valid");
  ExpectSurfaceFailure(kSumSurface, Writer(SumSurfaceRecord{.curves = broken}),
                       "a line that isn't valid");
}

TEST(ReadSurface, ACurveThatIsNoneBreaksItsSurface) {
  const WriteContent point = [](ON_BinaryArchive& a) {
    WriteClass(a, kPoint, [](ON_BinaryArchive& b) { b.Write3dmChunkVersion(1, 0); });
  };
  ExpectSurfaceFailure(kRevSurface, Writer(RevSurfaceRecord{.curve = point}),
                       "a part that should be a curve is of another class");
}

TEST(ReadSurface, EveryIdOfAClassIsKnown) {
  struct Ids {
    std::vector<ON_UUID> ids;
    WriteContent write;
  };
  const Ids classes[] = {
      {{kPlaneSurface}, Writer(PlaneSurfaceRecord{})},
      {{"4ed7d4de-e947-11d3-bfe5-0010830122f0"_uuid, kNurbsSurface,
        "fa4fd4b5-1613-11d4-8000-0010830122f0"_uuid},
       Writer(NurbsSurfaceRecord{})},
      {{"a16220d3-163b-11d4-8000-0010830122f0"_uuid, kRevSurface}, Writer(RevSurfaceRecord{})},
      {{"c4cd5359-446d-4690-9ff5-29059732472b"_uuid, kSumSurface}, Writer(SumSurfaceRecord{})},
  };
  for (const auto& [ids, write] : classes) {
    for (const ON_UUID& id : ids) {
      EXPECT_TRUE(host::IsSurfaceClass(id));
      EXPECT_TRUE(ReadSurfaceRecord(id, write).reading.ok) << id.ToString();
    }
  }
  EXPECT_FALSE(host::IsSurfaceClass(kLine));
}

TEST(ReadSurface, AnotherClassIsToldByItsName) {
  const std::pair<ON_UUID, const char*> classes[] = {
      {kPoint, "a part that should be a surface is of another class: point"},
      {"4ed7d4e2-e947-11d3-bfe5-0010830122f0"_uuid, "of another class: surface proxy"},
      {"00c61749-d430-4ecc-83a8-29130a20cf9c"_uuid, "of another class: offset surface"},
  };
  for (const auto& [id, problem] : classes) {
    EXPECT_FALSE(host::IsSurfaceClass(id));
    ExpectSurfaceFailure(id, Writer(PlaneSurfaceRecord{}), problem);
  }
}

TEST(ReadSurface, APartOfSomethingElseStandsInAWrapper) {
  const std::string bytes = RecordBytes(80, 0x90000000, [](ON_BinaryArchive& a) {
    WriteClass(a, kPlaneSurface, Writer(PlaneSurfaceRecord{}));
  });
  const auto read = [](const std::string& all, std::unique_ptr<ON_Surface>& surface) {
    return ReadBytes(all, 80, 0x90000000, [&](ON_BinaryArchive& archive) {
      surface = host::ReadSurface(archive);
      return surface != nullptr;
    });
  };
  std::unique_ptr<ON_Surface> surface;
  ASSERT_TRUE(read(bytes, surface).ok);
  EXPECT_NE(nullptr, ON_PlaneSurface::Cast(surface.get()));
  for (std::size_t size = 0; size < bytes.size(); size += 7) {
    const Reading cut = read(bytes.substr(0, size), surface);
    EXPECT_FALSE(cut.ok && cut.problems.empty()) << size;
  }
}

TEST(ReadSurface, ABrokenSurfaceTakesNothingFromItsNeighbours) {
  ONX_Model model;
  model.m_3dm_file_version = 50;
  for (int i = 0; i < 3; ++i) {
    auto surface = std::make_shared<ON_PlaneSurface>();
    surface->m_domain[0] = {0, i == 1 ? -1.0 : 1.0};
    model.m_object_table.emplace_back().m_geometry = std::move(surface);
  }
  const std::string bytes = WriteModel(model);
  ONX_Model read;
  const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(bytes)), read);
  ASSERT_TRUE(result.ok);
  EXPECT_THAT(read.m_object_table, SizeIs(2));
  ASSERT_THAT(read.m_problems, SizeIs(1));
  EXPECT_THAT(read.m_problems[0], HasSubstr("a plane surface that isn't valid"));
}
