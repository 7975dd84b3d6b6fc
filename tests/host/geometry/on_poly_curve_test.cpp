#include "host/geometry/on_poly_curve.h"

#include <gtest/gtest.h>

#include "curve_samples.h"

namespace {

constexpr double kPi = std::numbers::pi;

void ExpectPoint(ON_3dPoint expected, ON_3dPoint found, double tolerance = 1e-14) {
  EXPECT_NEAR(expected.x, found.x, tolerance);
  EXPECT_NEAR(expected.y, found.y, tolerance);
  EXPECT_NEAR(expected.z, found.z, tolerance);
}

// A line to the right, then half a circle over the top back towards where it began.
ON_PolyCurve LineAndArc() {
  ON_PolyCurve curve;
  AddSegment(curve, ON_LineCurve({0, 0, 0}, {5, 0, 0}));
  AddSegment(curve, UprightArc({4, 0, 0}, 1, {0, kPi}));
  return curve;
}

// A square of a line, a polyline and a NURBS curve of order 2.
ON_PolyCurve Square() {
  ON_PolyCurve curve;
  AddSegment(curve, ON_LineCurve({0, 0, 0}, {1, 0, 0}));
  AddSegment(curve, Polyline({{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}));
  AddSegment(curve, Nurbs(2, {0, 1}, {{0, 1, 0}, {0, 0, 1e-12}}));
  return curve;
}

TEST(PolyCurve, GoesThroughItsSegments) {
  const ON_PolyCurve curve = LineAndArc();
  EXPECT_TRUE(curve.IsValid());
  EXPECT_EQ(curve.Domain(), (ON_Interval{0, 5 + kPi}));
  ExpectPoint({2, 0, 0}, curve.PointAt(2));
  ExpectPoint({5, 0, 0}, curve.PointAt(5));
  ExpectPoint({4, 0, 1}, curve.PointAt(5 + kPi / 2));
  ExpectPoint({3, 0, 0}, curve.PointAtEnd());
  EXPECT_FALSE(curve.IsClosed());
  double length = 0;
  EXPECT_TRUE(curve.GetLength(&length));
  EXPECT_NEAR(length, 5 + kPi, 1e-14);
  ExpectPoint({0, 0, 0}, curve.BoundingBox().m_min);
  ExpectPoint({5, 0, 1}, curve.BoundingBox().m_max);
}

TEST(PolyCurve, ASegmentIsStretchedToItsShareOfTheDomain) {
  ON_PolyCurve curve = LineAndArc();
  curve.m_t = {-1, 0, 10};
  ExpectPoint({2.5, 0, 0}, curve.PointAt(-0.5));
  ExpectPoint({4, 0, 1}, curve.PointAt(5));
  const auto form = curve.NurbsCurve();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->Domain(), (ON_Interval{-1, 10}));
  ExpectPoint({4, 0, 1}, form->PointAt(5));
}

TEST(PolyCurve, OfStraightSegmentsIsAPolyline) {
  std::vector<ON_3dPoint> points;
  EXPECT_EQ(Square().IsPolyline(&points), 5);
  // It is closed but for rounding, and so are its points.
  EXPECT_EQ(points,
            (std::vector<ON_3dPoint>{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 0}}));
  EXPECT_TRUE(Square().IsClosed());
  EXPECT_EQ(LineAndArc().IsPolyline(&points), 0);
  EXPECT_TRUE(points.empty());
}

TEST(PolyCurve, MayStandInAnother) {
  ON_PolyCurve outer;
  AddSegment(outer, Square());
  AddSegment(outer, ON_LineCurve({0, 0, 0}, {0, 0, 3}));
  EXPECT_TRUE(outer.IsValid());
  EXPECT_EQ(outer.IsPolyline(), 6);
  EXPECT_FALSE(outer.IsClosed());
  ExpectPoint({1, 0.5, 0}, outer.PointAt(1.5));
  ExpectPoint({0, 0, 2}, outer.PointAt(6));
  EXPECT_EQ(outer.NurbsCurve()->CVCount(), 6);
}

TEST(PolyCurve, ItsNurbsFormHasTheHighestOrder) {
  ON_PolyCurve curve = LineAndArc();
  AddSegment(curve, Nurbs(4, {0, 0, 0, 1, 1, 1}, {{3, 0, 0}, {3, 0, 1}, {2, 0, 2}, {0, 0, 2}}));
  const auto form = curve.NurbsCurve();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->Order(), 4);
  EXPECT_TRUE(form->IsRational());
  // Four pieces: the arc has two.
  EXPECT_EQ(form->CVCount(), 3 * 4 + 1);
  EXPECT_EQ(form->Domain(), curve.Domain());
  for (const double t : {0.0, 2.5, 5.0, 5 + kPi / 4, 5 + kPi / 2, 5 + kPi, 5.3 + kPi, 6 + kPi}) {
    ExpectPoint(curve.PointAt(t), form->PointAt(t), 1e-13);
  }
  for (int i = 0; i <= 100; ++i) {
    const ON_3dPoint p = form->PointAt(5 + kPi * i / 100);
    EXPECT_NEAR(std::hypot(p.x - 4, p.z), 1, 1e-13);
  }
}

TEST(PolyCurve, OneSegmentKeepsItsForm) {
  ON_PolyCurve curve;
  AddSegment(curve, PeriodicCubic());
  const auto form = curve.NurbsCurve();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->m_knot, PeriodicCubic().m_knot);
  EXPECT_EQ(form->m_cv, PeriodicCubic().m_cv);
  EXPECT_TRUE(curve.IsClosed());
}

TEST(PolyCurve, AnUnclampedSegmentIsClampedWhereItMeetsAnother) {
  ON_PolyCurve curve;
  AddSegment(curve, PeriodicCubic());
  AddSegment(curve, ON_LineCurve(PeriodicCubic().PointAtEnd(), {20, 0, 0}));
  const auto form = curve.NurbsCurve();
  ASSERT_NE(form, nullptr);
  EXPECT_TRUE(form->IsValid());
  for (int i = 0; i <= 100; ++i) {
    const double t = curve.Domain().ParameterAt(i / 100.0);
    ExpectPoint(curve.PointAt(t), form->PointAt(t), 1e-12);
  }
}

TEST(PolyCurve, IsValidWithAsManyParametersAsItNeeds) {
  EXPECT_FALSE(ON_PolyCurve().IsValid());
  ON_PolyCurve curve = LineAndArc();
  curve.m_t.pop_back();
  EXPECT_FALSE(curve.IsValid());
  curve = LineAndArc();
  curve.m_t[1] = curve.m_t[0];
  EXPECT_FALSE(curve.IsValid());
  curve = LineAndArc();
  curve.m_segment[0] = std::make_unique<ON_PolyCurve>();
  EXPECT_FALSE(curve.IsValid());
  curve.m_segment[0] = nullptr;
  EXPECT_FALSE(curve.IsValid());
}

// So narrow a share of the domain that its knots fall together.
TEST(PolyCurve, WithoutRoomForItsKnotsItHasNoNurbsForm) {
  ON_PolyCurve curve;
  AddSegment(curve, ClampedCubic());
  curve.m_t = {1, std::nextafter(1, 2)};
  EXPECT_TRUE(curve.IsValid());
  EXPECT_EQ(curve.NurbsCurve(), nullptr);
}

}  // namespace
