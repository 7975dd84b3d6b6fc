#include "host/archive/read_curve.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "curve_records.h"
#include "host/archive/model_reader.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "support/model_writer.h"
#include "wrong_bytes.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

WriteContent PolylineWriter(const std::vector<ON_3dPoint>& points, const std::vector<double>& t) {
  return [=](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(1, 0);
    a.WriteInt(static_cast<int>(points.size()));
    for (const ON_3dPoint& p : points) a.WritePoint(p);
    a.WriteInt(static_cast<int>(t.size()));
    for (const double parameter : t) a.WriteDouble(parameter);
    a.WriteInt(3);
  };
}

// A polycurve of one polycurve of one ... of a line.
WriteContent NestedWriter(int depth) {
  if (depth == 0) return Writer(LineRecord{});
  PolyCurveRecord curve;
  curve.count = 1;
  curve.parameters = {0, 1};
  curve.segments = [depth](ON_BinaryArchive& a) {
    WriteClass(a, depth == 1 ? kLine : kPolyCurve, NestedWriter(depth - 1));
  };
  return Writer(curve);
}

}  // namespace

TEST(ReadCurve, ALineIsRead) {
  const auto [reading, curve] = ReadCurveRecord(kLine, Writer(LineRecord{}));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  const ON_LineCurve* line = ON_LineCurve::Cast(curve.get());
  ASSERT_NE(nullptr, line);
  EXPECT_EQ((ON_3dPoint{1, 2, 3}), line->m_line.from);
  EXPECT_EQ((ON_3dPoint{4, 5, 6}), line->m_line.to);
  EXPECT_EQ((ON_Interval{0, 2}), line->m_t);
}

TEST(ReadCurve, ALineThatIsNotValidIsTold) {
  ExpectCurveFailure(kLine, Writer(LineRecord{.major = 2}), "a line of an unknown version");
  for (const LineRecord& line :
       {LineRecord{.from = {kNaN, 0, 0}}, LineRecord{.to = {0, 0, kInfinity}},
        LineRecord{.to = {0, ON_UNSET_VALUE, 0}}, LineRecord{.domain = {1, 1}},
        LineRecord{.domain = {1, 0}}, LineRecord{.domain = {0, kNaN}}, LineRecord{.domain = {}}}) {
    ExpectCurveFailure(kLine, Writer(line), "a line that isn't valid");
  }
}

TEST(ReadCurve, AnArcIsRead) {
  const auto [reading, curve] = ReadCurveRecord(kArc, Writer(ArcRecord{}));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  const ON_ArcCurve* arc = ON_ArcCurve::Cast(curve.get());
  ASSERT_NE(nullptr, arc);
  EXPECT_EQ((ON_3dPoint{1, 2, 3}), arc->m_arc.plane.origin);
  EXPECT_EQ(4, arc->m_arc.radius);
  EXPECT_EQ((ON_Interval{0.5, 2}), arc->m_arc.m_angle);
  EXPECT_EQ((ON_Interval{0, 6}), arc->m_t);
}

TEST(ReadCurve, AnArcThatIsNotValidIsTold) {
  ExpectCurveFailure(kArc, Writer(ArcRecord{.major = 0}), "an arc of an unknown version");
  ArcRecord no_place;
  no_place.plane.origin.y = kNaN;
  ArcRecord no_axis;
  no_axis.plane.xaxis.z = kInfinity;
  for (const ArcRecord& arc : {no_place, no_axis, ArcRecord{.radius = 0}, ArcRecord{.radius = -1},
                               ArcRecord{.radius = kNaN}, ArcRecord{.angle = {0, 0}},
                               ArcRecord{.angle = {0, 1e300}}, ArcRecord{.angle = {0, kInfinity}},
                               ArcRecord{.angle = {-1e308, 1e308}}, ArcRecord{.domain = {2, 2}}}) {
    ExpectCurveFailure(kArc, Writer(arc), "an arc that isn't valid");
  }
}

TEST(ReadCurve, APolylineIsRead) {
  const auto [reading, curve] =
      ReadCurveRecord(kPolyline, PolylineWriter({{0, 0, 0}, {1, 2, 3}, {4, 5, 6}}, {0, 1, 3}));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  const ON_PolylineCurve* polyline = ON_PolylineCurve::Cast(curve.get());
  ASSERT_NE(nullptr, polyline);
  ASSERT_THAT(polyline->m_pline, SizeIs(3));
  EXPECT_EQ((ON_3dPoint{4, 5, 6}), polyline->m_pline[2]);
  EXPECT_THAT(polyline->m_t, ElementsAre(0, 1, 3));
}

TEST(ReadCurve, APolylineThatIsNotValidIsTold) {
  for (const WriteContent& write :
       {PolylineWriter({}, {}), PolylineWriter({{1, 2, 3}}, {0}),
        PolylineWriter({{0, 0, 0}, {1, 2, 3}}, {0}), PolylineWriter({{0, 0, 0}, {1, 2, 3}}, {1, 1}),
        PolylineWriter({{0, 0, 0}, {1, kNaN, 3}}, {0, 1})}) {
    ExpectCurveFailure(kPolyline, write, "a polyline that isn't valid");
  }
  ExpectCurveFailure(
      kPolyline,
      [](ON_BinaryArchive& a) {
        a.Write3dmChunkVersion(1, 0);
        a.WriteInt(0x7fffffff);
      },
      "a count exceeds what its chunk can hold");
}

TEST(ReadCurve, APolycurveIsReadUnderBothOfItsIds) {
  for (const ON_UUID& id : {kPolyCurve, kOldPolyCurve}) {
    const auto [reading, curve] = ReadCurveRecord(id, Writer(PolyCurveRecord{}));
    ASSERT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems, IsEmpty());
    const ON_PolyCurve* poly = ON_PolyCurve::Cast(curve.get());
    ASSERT_NE(nullptr, poly);
    ASSERT_THAT(poly->m_segment, SizeIs(2));
    EXPECT_NE(nullptr, ON_LineCurve::Cast(poly->m_segment[0].get()));
    EXPECT_NE(nullptr, ON_NurbsCurve::Cast(poly->m_segment[1].get()));
    EXPECT_THAT(poly->m_t, ElementsAre(0, 1, 2));
  }
}

TEST(ReadCurve, APolycurveWithoutItsPartsIsTold) {
  ExpectCurveFailure(kPolyCurve, Writer(PolyCurveRecord{.major = 3}),
                     "a polycurve of an unknown version");
  ExpectCurveFailure(kPolyCurve, Writer(PolyCurveRecord{.count = 0, .parameters = {0}}),
                     "a polycurve without segments");
  ExpectCurveFailure(kPolyCurve, Writer(PolyCurveRecord{.count = -1}), "count");
  ExpectCurveFailure(kPolyCurve, Writer(PolyCurveRecord{.count = 0x7fffffff}),
                     "a count exceeds what its chunk can hold");
  for (const std::vector<double>& parameters :
       {std::vector<double>{0, 1}, {0, 1, 1}, {0, 2, 1}, {0, kNaN, 2}, {0, 1, 2, 3}}) {
    ExpectCurveFailure(kPolyCurve, Writer(PolyCurveRecord{.parameters = parameters}),
                       "the parameters of a polycurve don't increase");
  }
  ExpectCurveFailure(kPolyCurve, Writer(PolyCurveRecord{.count = 3, .parameters = {0, 1, 2, 3}}),
                     "a record without an object");
}

TEST(ReadCurve, ABrokenSegmentBreaksItsPolycurve) {
  PolyCurveRecord curve;
  curve.segments = [](ON_BinaryArchive& a) {
    WriteClass(a, kLine, Writer(LineRecord{}));
    WriteClass(a, kNurbs, Writer(NurbsRecord{.order = 1}));
  };
  ExpectCurveFailure(kPolyCurve, Writer(curve), "of an order outside 2 to 32");
  curve.segments = [](ON_BinaryArchive& a) {
    WriteClass(a, kPoint, [](ON_BinaryArchive& b) {
      b.Write3dmChunkVersion(1, 0);
      b.WritePoint({1, 2, 3});
    });
  };
  ExpectCurveFailure(kPolyCurve, Writer(curve),
                     "a part that should be a curve is of another class");
}

TEST(ReadCurve, PolycurvesStandInEachOtherToALimit) {
  const auto [reading, curve] = ReadCurveRecord(kPolyCurve, NestedWriter(host::kMaxCurveDepth));
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ((ON_3dPoint{1, 2, 3}), curve->PointAtStart());
  ExpectCurveFailure(kPolyCurve, NestedWriter(host::kMaxCurveDepth + 1),
                     "curves stand too deep in each other");
}

TEST(ReadCurve, OnlyCurvesAreCurves) {
  EXPECT_TRUE(host::IsCurveClass(kNurbs));
  EXPECT_FALSE(host::IsCurveClass(kPoint));
  EXPECT_FALSE(host::IsCurveClass({}));
}

static ONX_Model ModelOfCurves(int version) {
  ONX_Model model;
  model.m_3dm_file_version = version;
  auto nurbs = std::make_shared<ON_NurbsCurve>();
  nurbs->Create(3, {0, 0, 1, 1}, {{0, 0, 0, 1}, {1, 1, 0, 2}, {2, 0, 0, 1}}, true);
  auto poly = std::make_shared<ON_PolyCurve>();
  poly->m_t = {0, 1, 2};
  poly->m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{1, 0, 0}));
  poly->m_segment.push_back(std::make_unique<ON_ArcCurve>(ON_Arc{{}, 1, {0, 2}}));
  model.m_object_table.resize(2);
  model.m_object_table[0].m_geometry = nurbs;
  model.m_object_table[1].m_geometry = poly;
  return model;
}

TEST(ReadCurve, ABrokenOneIsLeftOutOfItsDocument) {
  ONX_Model model = ModelOfCurves(50);
  auto broken = std::make_shared<ON_LineCurve>(ON_3dPoint{0, 0, 0}, ON_3dPoint{kNaN, 0, 0});
  model.m_object_table[0].m_geometry = broken;
  const std::string bytes = WriteModel(model);
  ONX_Model read;
  EXPECT_TRUE(ON_ReadModel(std::as_bytes(std::span(bytes)), read).ok);
  EXPECT_THAT(read.m_object_table, SizeIs(1));
  ASSERT_THAT(read.m_problems, SizeIs(1));
  EXPECT_THAT(read.m_problems[0], testing::StartsWith("object at offset "));
  EXPECT_THAT(read.m_problems[0], HasSubstr(": a line that isn't valid"));
}

TEST(ReadCurve, AnyByteMayBeWrong) {
  for (const int version : {4, 50}) {
    const std::string whole = WriteModel(ModelOfCurves(version));
    // Behind the first records' tables; the objects stand near the end.
    ReadWithWrongBytes(whole, whole.size() / 3, [](const ONX_Model& model) {
      for (const ONX_ModelObject& object : model.m_object_table) {
        const ON_Curve* curve = ON_Curve::Cast(object.m_geometry.get());
        double length = 0;
        if (curve == nullptr) continue;
        EXPECT_TRUE(curve->IsValid());
        // Whatever it is, it can be asked.
        static_cast<void>(curve->GetLength(&length));
        static_cast<void>(curve->NurbsCurve());
        static_cast<void>(curve->IsClosed());
      }
    });
  }
}
