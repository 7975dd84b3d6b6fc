#include "host/archive/read_curve.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "host/archive/model_reader.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "record_bytes.h"
#include "support/model_writer.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr int kVersion = 80;
constexpr unsigned kLibrary = 0x90000000;
constexpr ON_UUID kLine = "4ed7d4db-e947-11d3-bfe5-0010830122f0"_uuid;
constexpr ON_UUID kArc = "cf33be2a-09b4-11d4-bffb-0010830122f0"_uuid;
constexpr ON_UUID kPolyline = "4ed7d4e6-e947-11d3-bfe5-0010830122f0"_uuid;
constexpr ON_UUID kPolyCurve = "4ed7d4e0-e947-11d3-bfe5-0010830122f0"_uuid;
constexpr ON_UUID kOldPolyCurve = "ef638317-154b-11d4-8000-0010830122f0"_uuid;
constexpr ON_UUID kNurbs = "5eaf1119-0b51-11d4-bffe-0010830122f0"_uuid;
constexpr ON_UUID kPoint = "c3101a1d-f157-11d3-bfe7-0010830122f0"_uuid;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Read {
  Reading reading;
  std::unique_ptr<ON_Curve> curve;
};

Read ReadData(const ON_UUID& class_id, const WriteContent& write) {
  Read result;
  result.reading = ReadBytes(RecordBytes(kVersion, kLibrary, write), kVersion, kLibrary,
                             [&](ON_BinaryArchive& archive) {
                               result.curve = host::ReadCurveData(archive, class_id);
                               return result.curve != nullptr;
                             });
  return result;
}

void ExpectFailure(const ON_UUID& class_id, const WriteContent& write, const char* problem) {
  const Reading reading = ReadData(class_id, write).reading;
  EXPECT_FALSE(reading.ok);
  ASSERT_THAT(reading.problems, SizeIs(1)) << problem;
  EXPECT_THAT(reading.problems[0], HasSubstr(problem));
}

struct Line {
  int major = 1;
  ON_3dPoint from{1, 2, 3};
  ON_3dPoint to{4, 5, 6};
  ON_Interval domain{0, 2};
};

WriteContent Writer(const Line& line) {
  return [line](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(line.major, 0);
    a.WritePoint(line.from);
    a.WritePoint(line.to);
    a.WriteInterval(line.domain);
    a.WriteInt(3);
  };
}

struct Arc {
  int major = 1;
  ON_Plane plane{{1, 2, 3}};
  double radius = 4;
  ON_Interval angle{0.5, 2};
  ON_Interval domain{0, 6};
};

WriteContent Writer(const Arc& arc) {
  return [arc](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(arc.major, 0);
    a.WritePlane(arc.plane);
    a.WriteDouble(arc.radius);
    for (int i = 0; i < 3; ++i) a.WritePoint({9, 9, 9});
    a.WriteInterval(arc.angle);
    a.WriteInterval(arc.domain);
    a.WriteInt(3);
  };
}

struct Nurbs {
  int major = 1;
  int minor = 0;
  int dimension = 3;
  int rational = 0;
  int order = 3;
  int cv_count = 3;
  int stored_knots = 4;
  std::vector<double> knots{0, 0, 1, 1};
  int stored_cvs = 3;
  std::vector<double> cvs{0, 0, 0, 1, 2, 3, 4, 5, 6};
};

WriteContent Writer(const Nurbs& nurbs) {
  return [nurbs](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(nurbs.major, nurbs.minor);
    for (const int value : {nurbs.dimension, nurbs.rational, nurbs.order, nurbs.cv_count, 0, 0}) {
      a.WriteInt(value);
    }
    a.WriteBoundingBox({});
    a.WriteInt(nurbs.stored_knots);
    for (const double knot : nurbs.knots) a.WriteDouble(knot);
    a.WriteInt(nurbs.stored_cvs);
    for (const double value : nurbs.cvs) a.WriteDouble(value);
    if (nurbs.minor >= 1) a.WriteBool(false);
  };
}

struct PolyCurve {
  int major = 1;
  int count = 2;
  std::vector<double> parameters{0, 1, 2};
  // The wrappers.
  WriteContent segments = [](ON_BinaryArchive& a) {
    WriteClass(a, kLine, Writer(Line{}));
    WriteClass(a, kNurbs, Writer(Nurbs{}));
  };
};

WriteContent Writer(const PolyCurve& curve) {
  return [curve](ON_BinaryArchive& a) {
    a.Write3dmChunkVersion(curve.major, 0);
    a.WriteInt(curve.count);
    a.WriteBigInt(0);
    a.WriteBoundingBox({});
    a.WriteInt(static_cast<int>(curve.parameters.size()));
    for (const double t : curve.parameters) a.WriteDouble(t);
    curve.segments(a);
  };
}

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
  if (depth == 0) return Writer(Line{});
  PolyCurve curve;
  curve.count = 1;
  curve.parameters = {0, 1};
  curve.segments = [depth](ON_BinaryArchive& a) {
    WriteClass(a, depth == 1 ? kLine : kPolyCurve, NestedWriter(depth - 1));
  };
  return Writer(curve);
}

}  // namespace

TEST(ReadCurve, ALineIsRead) {
  const auto [reading, curve] = ReadData(kLine, Writer(Line{}));
  ASSERT_TRUE(reading.ok);
  EXPECT_THAT(reading.problems, IsEmpty());
  const ON_LineCurve* line = ON_LineCurve::Cast(curve.get());
  ASSERT_NE(nullptr, line);
  EXPECT_EQ((ON_3dPoint{1, 2, 3}), line->m_line.from);
  EXPECT_EQ((ON_3dPoint{4, 5, 6}), line->m_line.to);
  EXPECT_EQ((ON_Interval{0, 2}), line->m_t);
}

TEST(ReadCurve, ALineThatIsNotValidIsTold) {
  ExpectFailure(kLine, Writer(Line{.major = 2}), "a line of an unknown version");
  for (const Line& line : {Line{.from = {kNaN, 0, 0}}, Line{.to = {0, 0, kInfinity}},
                           Line{.to = {0, ON_UNSET_VALUE, 0}}, Line{.domain = {1, 1}},
                           Line{.domain = {1, 0}}, Line{.domain = {0, kNaN}}, Line{.domain = {}}}) {
    ExpectFailure(kLine, Writer(line), "a line that isn't valid");
  }
}

TEST(ReadCurve, AnArcIsRead) {
  const auto [reading, curve] = ReadData(kArc, Writer(Arc{}));
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
  ExpectFailure(kArc, Writer(Arc{.major = 0}), "an arc of an unknown version");
  Arc no_place;
  no_place.plane.origin.y = kNaN;
  Arc no_axis;
  no_axis.plane.xaxis.z = kInfinity;
  for (const Arc& arc :
       {no_place, no_axis, Arc{.radius = 0}, Arc{.radius = -1}, Arc{.radius = kNaN},
        Arc{.angle = {0, 0}}, Arc{.angle = {0, 1e300}}, Arc{.angle = {0, kInfinity}},
        Arc{.angle = {-1e308, 1e308}}, Arc{.domain = {2, 2}}}) {
    ExpectFailure(kArc, Writer(arc), "an arc that isn't valid");
  }
}

TEST(ReadCurve, APolylineIsRead) {
  const auto [reading, curve] =
      ReadData(kPolyline, PolylineWriter({{0, 0, 0}, {1, 2, 3}, {4, 5, 6}}, {0, 1, 3}));
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
    ExpectFailure(kPolyline, write, "a polyline that isn't valid");
  }
  ExpectFailure(
      kPolyline,
      [](ON_BinaryArchive& a) {
        a.Write3dmChunkVersion(1, 0);
        a.WriteInt(0x7fffffff);
      },
      "a count exceeds what its chunk can hold");
}

TEST(ReadCurve, ANurbsCurveIsReadInEachForm) {
  for (const int minor : {0, 1}) {
    const auto [reading, curve] = ReadData(kNurbs, Writer(Nurbs{.minor = minor}));
    ASSERT_TRUE(reading.ok);
    EXPECT_THAT(reading.problems, IsEmpty());
    const ON_NurbsCurve* nurbs = ON_NurbsCurve::Cast(curve.get());
    ASSERT_NE(nullptr, nurbs);
    EXPECT_EQ(3, nurbs->Order());
    EXPECT_FALSE(nurbs->IsRational());
    EXPECT_THAT(nurbs->m_knot, ElementsAre(0, 0, 1, 1));
    EXPECT_THAT(nurbs->m_cv, ElementsAre(ON_4dPoint{0, 0, 0, 1}, ON_4dPoint{1, 2, 3, 1},
                                         ON_4dPoint{4, 5, 6, 1}));
  }
}

TEST(ReadCurve, APlaneNurbsCurveHasWeightsBehindItsTwoCoordinates) {
  const auto [reading, curve] = ReadData(
      kNurbs, Writer(Nurbs{.dimension = 2, .rational = 1, .cvs = {0, 0, 1, 1, 2, 0.5, 4, 5, 1}}));
  ASSERT_TRUE(reading.ok);
  const ON_NurbsCurve* nurbs = ON_NurbsCurve::Cast(curve.get());
  ASSERT_NE(nullptr, nurbs);
  EXPECT_EQ(2, nurbs->m_dim);
  EXPECT_TRUE(nurbs->IsRational());
  EXPECT_EQ((ON_4dPoint{1, 2, 0, 0.5}), nurbs->m_cv[1]);
}

TEST(ReadCurve, ANurbsCurveOfAnotherShapeIsTold) {
  ExpectFailure(kNurbs, Writer(Nurbs{.major = 2}), "a NURBS curve of an unknown version");
  for (const int dimension : {-1, 0, 4}) {
    ExpectFailure(kNurbs, Writer(Nurbs{.dimension = dimension}), "of an unknown dimension");
  }
  for (const int order : {-1, 0, 1, 33, 0x7fffffff}) {
    ExpectFailure(kNurbs, Writer(Nurbs{.order = order}), "of an order outside 2 to 32");
  }
  for (const int count : {-0x7fffffff, 0, 2}) {
    ExpectFailure(kNurbs, Writer(Nurbs{.cv_count = count}), "fewer control points than its order");
  }
  ExpectFailure(kNurbs, Writer(Nurbs{.stored_knots = 3}), "another number of knots");
  ExpectFailure(kNurbs, Writer(Nurbs{.cv_count = 0x7fffffff}), "another number of knots");
  ExpectFailure(kNurbs, Writer(Nurbs{.stored_knots = 0x7fffffff}),
                "a count exceeds what its chunk can hold");
  ExpectFailure(kNurbs, Writer(Nurbs{.stored_cvs = 2}), "another number of control points");
  ExpectFailure(kNurbs, Writer(Nurbs{.stored_cvs = 0x7fffffff}),
                "a count exceeds what its chunk can hold");
}

TEST(ReadCurve, ANurbsCurveThatIsNotValidIsTold) {
  for (const std::vector<double>& knots :
       {std::vector<double>{0, 1, 0, 1}, {0, 0, 0, 0}, {0, 0, kNaN, 1}, {0, 0, 1, kInfinity}}) {
    ExpectFailure(kNurbs, Writer(Nurbs{.knots = knots}), "a NURBS curve that isn't valid");
  }
  for (const double bad : {kNaN, kInfinity, ON_UNSET_VALUE}) {
    ExpectFailure(kNurbs, Writer(Nurbs{.cvs = {0, 0, 0, 1, bad, 3, 4, 5, 6}}),
                  "a NURBS curve that isn't valid");
  }
}

TEST(ReadCurve, APolycurveIsReadUnderBothOfItsIds) {
  for (const ON_UUID& id : {kPolyCurve, kOldPolyCurve}) {
    const auto [reading, curve] = ReadData(id, Writer(PolyCurve{}));
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
  ExpectFailure(kPolyCurve, Writer(PolyCurve{.major = 3}), "a polycurve of an unknown version");
  ExpectFailure(kPolyCurve, Writer(PolyCurve{.count = 0, .parameters = {0}}),
                "a polycurve without segments");
  ExpectFailure(kPolyCurve, Writer(PolyCurve{.count = -1}), "count");
  ExpectFailure(kPolyCurve, Writer(PolyCurve{.count = 0x7fffffff}),
                "a count exceeds what its chunk can hold");
  for (const std::vector<double>& parameters :
       {std::vector<double>{0, 1}, {0, 1, 1}, {0, 2, 1}, {0, kNaN, 2}, {0, 1, 2, 3}}) {
    ExpectFailure(kPolyCurve, Writer(PolyCurve{.parameters = parameters}),
                  "the parameters of a polycurve don't increase");
  }
  ExpectFailure(kPolyCurve, Writer(PolyCurve{.count = 3, .parameters = {0, 1, 2, 3}}),
                "a record without an object");
}

TEST(ReadCurve, ABrokenSegmentBreaksItsPolycurve) {
  PolyCurve curve;
  curve.segments = [](ON_BinaryArchive& a) {
    WriteClass(a, kLine, Writer(Line{}));
    WriteClass(a, kNurbs, Writer(Nurbs{.order = 1}));
  };
  ExpectFailure(kPolyCurve, Writer(curve), "of an order outside 2 to 32");
  curve.segments = [](ON_BinaryArchive& a) {
    WriteClass(a, kPoint, [](ON_BinaryArchive& b) {
      b.Write3dmChunkVersion(1, 0);
      b.WritePoint({1, 2, 3});
    });
  };
  ExpectFailure(kPolyCurve, Writer(curve), "a part that should be a curve is of another class");
}

TEST(ReadCurve, PolycurvesStandInEachOtherToALimit) {
  const auto [reading, curve] = ReadData(kPolyCurve, NestedWriter(host::kMaxCurveDepth));
  ASSERT_TRUE(reading.ok);
  EXPECT_EQ((ON_3dPoint{1, 2, 3}), curve->PointAtStart());
  ExpectFailure(kPolyCurve, NestedWriter(host::kMaxCurveDepth + 1),
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
    for (std::size_t i = whole.size() / 3; i < whole.size(); ++i) {
      for (const int flip : {0x01, 0x80, 0xff}) {
        std::string bytes = whole;
        bytes[i] = static_cast<char>(bytes[i] ^ flip);
        ONX_Model model;
        const ON_ReadResult result = ON_ReadModel(std::as_bytes(std::span(bytes)), model);
        EXPECT_EQ(result.error.empty(), result.ok) << i;
        for (const ONX_ModelObject& object : model.m_object_table) {
          const ON_Curve* curve = ON_Curve::Cast(object.m_geometry.get());
          double length = 0;
          if (curve == nullptr) continue;
          EXPECT_TRUE(curve->IsValid()) << i;
          // Whatever it is, it can be asked.
          static_cast<void>(curve->GetLength(&length));
          static_cast<void>(curve->NurbsCurve());
          static_cast<void>(curve->IsClosed());
        }
      }
    }
  }
}
