#include "host/geometry/on_curve_lengths.h"

#include <gtest/gtest.h>

#include <limits>

#include "curve_samples.h"

// Points along curves by the way that leads to them.

namespace {

constexpr double kHuge = 1e308;

ON_3dPoint PointAfter(const ON_Curve& curve, double fraction) {
  return curve.PointAt(ON_CurveLengths(curve).NormalizedArcLengthPoint(fraction));
}

void ExpectPoint(ON_3dPoint expected, ON_3dPoint found, double tolerance = 1e-8) {
  EXPECT_NEAR(expected.x, found.x, tolerance);
  EXPECT_NEAR(expected.y, found.y, tolerance);
  EXPECT_NEAR(expected.z, found.z, tolerance);
}

TEST(CurveLengths, ALineIsPassedEvenly) {
  const ON_LineCurve line({1, 2, 3}, {5, 2, 3});
  EXPECT_DOUBLE_EQ(ON_CurveLengths(line).Total(), 4);
  ExpectPoint({2, 2, 3}, PointAfter(line, 0.25));
  ON_LineCurve long_domain = line;
  long_domain.m_t = {-1000, 1000};
  EXPECT_NEAR(ON_CurveLengths(long_domain).NormalizedArcLengthPoint(0.25), -500, 1e-9);
}

TEST(CurveLengths, AnArcIsPassedEvenly) {
  const ON_ArcCurve arc = UprightArc({0, 0, 0}, 2, {0, std::numbers::pi});
  EXPECT_NEAR(ON_CurveLengths(arc).Total(), 2 * std::numbers::pi, 1e-12);
  ExpectPoint({std::numbers::sqrt2, 0, std::numbers::sqrt2}, PointAfter(arc, 0.25));
  ExpectPoint({0, 0, 2}, PointAfter(arc, 0.5));
}

TEST(CurveLengths, AClosedCurveIsPassedFromItsStart) {
  const ON_ArcCurve circle = UprightArc({0, 0, 0}, 1, {0, 2 * std::numbers::pi});
  ExpectPoint({0, 0, 1}, PointAfter(circle, 0.25));
  ExpectPoint({-1, 0, 0}, PointAfter(circle, 0.5));
  const ON_CurveLengths lengths(circle);
  EXPECT_EQ(lengths.NormalizedArcLengthPoint(0), circle.Domain().Min);
  EXPECT_EQ(lengths.NormalizedArcLengthPoint(1), circle.Domain().Max);
}

TEST(CurveLengths, ASegmentOfAPolylineCountsByItsLength) {
  ON_PolylineCurve curve = Polyline({{0, 0, 0}, {1, 0, 0}, {1, 9, 0}});
  curve.m_t = {0, 90, 100};
  const ON_CurveLengths lengths(curve);
  EXPECT_NEAR(lengths.Total(), 10, 1e-12);
  ExpectPoint({0.5, 0, 0}, PointAfter(curve, 0.05));
  ExpectPoint({1, 0, 0}, PointAfter(curve, 0.1));
  ExpectPoint({1, 4, 0}, PointAfter(curve, 0.5));
  EXPECT_NEAR(lengths.NormalizedArcLengthPoint(0.55), 95, 1e-9);
}

// The form of an arc goes round with uneven speed; the arc itself tells where it should be.
TEST(CurveLengths, ARationalCurveWithUnevenSpeed) {
  const ON_ArcCurve arc = UprightArc({3, 0, 0}, 5, {0.2, 5.5});
  const auto form = arc.NurbsCurve();
  ASSERT_NE(form, nullptr);
  const ON_CurveLengths lengths(*form);
  EXPECT_NEAR(lengths.Total(), 5 * 5.3, 1e-7);
  double farthest = 0;
  for (int i = 0; i <= 100; ++i) {
    const double s = i / 100.0;
    const double t = lengths.NormalizedArcLengthPoint(s);
    ExpectPoint(PointAfter(arc, s), form->PointAt(t), 1e-6);
    farthest = std::max(farthest, std::abs(t - form->Domain().ParameterAt(s)));
  }
  EXPECT_GT(farthest, 0.04) << "the parameter alone would have done";
}

// x = t^3 on a straight line: the point after a fraction of the way is known.
TEST(CurveLengths, UnevenControlPointsGiveEvenSteps) {
  const ON_NurbsCurve curve =
      Nurbs(4, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {8, 0, 0}});
  const ON_CurveLengths lengths(curve);
  EXPECT_NEAR(lengths.Total(), 8, 1e-7);
  for (int i = 0; i <= 20; ++i) {
    const double s = i / 20.0;
    EXPECT_NEAR(curve.PointAt(lengths.NormalizedArcLengthPoint(s)).x, 8 * s, 1e-6) << s;
  }
  EXPECT_NEAR(lengths.NormalizedArcLengthPoint(0.125), 0.5, 1e-6);
}

TEST(CurveLengths, KinksAndTurningPointsDontMatter) {
  // To (10, 0), then up to (10, 10), with a knot where it turns.
  const ON_NurbsCurve kink = Nurbs(2, {0, 0.9, 1}, {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}});
  ExpectPoint({10, 0, 0}, PointAfter(kink, 0.5));
  ExpectPoint({10, 5, 0}, PointAfter(kink, 0.75));
  // There and back: x goes from 0 to 2 and returns.
  const ON_NurbsCurve back = Nurbs(3, {0, 0, 1, 1}, {{0, 0, 0}, {4, 0, 0}, {0, 0, 0}});
  EXPECT_NEAR(ON_CurveLengths(back).Total(), 4, 1e-6);
  ExpectPoint({2, 0, 0}, PointAfter(back, 0.5), 1e-6);
  ExpectPoint({1, 0, 0}, PointAfter(back, 0.75), 1e-6);
}

TEST(CurveLengths, TheSegmentsOfAPolycurveCountByTheirLength) {
  ON_PolyCurve inner;
  AddSegment(inner, ON_LineCurve({0, 0, 0}, {2, 0, 0}));
  AddSegment(inner, Polyline({{2, 0, 0}, {2, 0, 1}, {2, 0, 4}}));
  ON_PolyCurve curve;
  curve.m_t = {7, 8, 20};
  curve.m_segment.push_back(
      std::make_unique<ON_LineCurve>(ON_3dPoint{-4, 0, 0}, ON_3dPoint{0, 0, 0}));
  curve.m_segment.push_back(std::make_unique<ON_PolyCurve>(std::move(inner)));
  ASSERT_TRUE(curve.IsValid());
  const ON_CurveLengths lengths(curve);
  EXPECT_NEAR(lengths.Total(), 10, 1e-12);
  EXPECT_NEAR(lengths.NormalizedArcLengthPoint(0.2), 7.5, 1e-12);
  ExpectPoint({0, 0, 0}, PointAfter(curve, 0.4));
  ExpectPoint({1, 0, 0}, PointAfter(curve, 0.5));
  ExpectPoint({2, 0, 1}, PointAfter(curve, 0.7));
  ExpectPoint({2, 0, 3}, PointAfter(curve, 0.9));
}

TEST(CurveLengths, WhatIsBesideTheWayIsItsEnd) {
  const ON_LineCurve line({0, 0, 0}, {4, 0, 0});
  const ON_CurveLengths lengths(line);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(lengths.NormalizedArcLengthPoint(-1), 0);
  EXPECT_EQ(lengths.NormalizedArcLengthPoint(2), 4);
  EXPECT_EQ(lengths.NormalizedArcLengthPoint(nan), 0);
}

TEST(CurveLengths, WhatCannotBeMeasuredIsPassedByItsParameter) {
  const ON_NurbsCurve point = Nurbs(3, {0, 0, 4, 4}, {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
  EXPECT_EQ(ON_CurveLengths(point).Total(), 0);
  EXPECT_EQ(ON_CurveLengths(point).NormalizedArcLengthPoint(0.25), 1);
  const ON_NurbsCurve huge = Nurbs(2, {0, 4}, {{-kHuge, 0, 0}, {kHuge, 0, 0}});
  EXPECT_FALSE(std::isfinite(ON_CurveLengths(huge).Total()));
  EXPECT_EQ(ON_CurveLengths(huge).NormalizedArcLengthPoint(0.25), 1);
}

TEST(CurveLengths, AStandstillInTheMiddleIsPassed) {
  const ON_NurbsCurve curve = Nurbs(2, {0, 1, 5, 6}, {{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {3, 0, 0}});
  ExpectPoint({1, 0, 0}, PointAfter(curve, 1.0 / 3));
  ExpectPoint({2, 0, 0}, PointAfter(curve, 2.0 / 3));
}

}  // namespace
