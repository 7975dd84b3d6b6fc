#include "host/geometry/on_nurbs_curve.h"

#include <gtest/gtest.h>

#include <limits>

#include "curve_samples.h"

namespace {

double LengthOf(const ON_Curve& curve, double tolerance = 1e-8) {
  double length = -1;
  EXPECT_TRUE(curve.GetLength(&length, tolerance));
  return length;
}

void ExpectPoint(ON_3dPoint expected, ON_3dPoint found, double tolerance = 1e-14) {
  EXPECT_NEAR(expected.x, found.x, tolerance);
  EXPECT_NEAR(expected.y, found.y, tolerance);
  EXPECT_NEAR(expected.z, found.z, tolerance);
}

// The same points at the same parameters.
void ExpectSameCurve(const ON_Curve& expected, const ON_Curve& found, double tolerance = 1e-12) {
  EXPECT_EQ(expected.Domain(), found.Domain());
  for (int i = 0; i <= 100; ++i) {
    const double t = expected.Domain().ParameterAt(i / 100.0);
    ExpectPoint(expected.PointAt(t), found.PointAt(t), tolerance);
  }
}

TEST(NurbsCurve, GoesThroughItsPoints) {
  const ON_NurbsCurve curve = ClampedCubic();
  EXPECT_TRUE(curve.IsValid());
  EXPECT_EQ(curve.Domain(), (ON_Interval{0, 2}));
  EXPECT_EQ(curve.PointAtStart(), (ON_3dPoint{0, 0, 0}));
  ExpectPoint({11.875, 6.875, 1.25}, curve.PointAt(0.5));
  ExpectPoint({20, -5, 2.5}, curve.PointAt(1));
  ExpectPoint({28.125, -3.125, 2.5}, curve.PointAt(1.5));
  EXPECT_EQ(curve.PointAtEnd(), (ON_3dPoint{40, 10, 10}));
  EXPECT_FALSE(curve.IsClosed());
  EXPECT_EQ(curve.IsPolyline(), 0);
}

TEST(NurbsCurve, WeightsPullTowardsTheirPoint) {
  ON_NurbsCurve curve = Nurbs(3, {0, 0, 1, 1}, {{0, 0, 0}, {1, 2, 0}, {2, 0, 0}});
  curve.m_is_rat = true;
  curve.m_cv[1] = curve.m_cv[1] * 0.5;
  ExpectPoint({1, 2.0 / 3, 0}, curve.PointAt(0.5));
  ExpectPoint({5.0 / 13, 6.0 / 13, 0}, curve.PointAt(0.25));
  EXPECT_NEAR(LengthOf(curve), 2.5322140652786387, 1e-8);
  EXPECT_EQ(curve.BoundingBox().m_max, (ON_3dPoint{2, 2, 0}));
}

// Half a circle in one span: its middle control point is infinitely far away.
TEST(NurbsCurve, AnInnerWeightMayBeZero) {
  ON_NurbsCurve curve;
  curve.Create(3, {0, 0, 1, 1}, {{1, 0, 0, 1}, {0, 1, 0, 0}, {-1, 0, 0, 1}}, true);
  EXPECT_TRUE(curve.IsValid());
  for (int i = 0; i <= 100; ++i) {
    const ON_3dPoint p = curve.PointAt(i / 100.0);
    EXPECT_NEAR(std::hypot(p.x, p.y), 1, 1e-14);
  }
  EXPECT_NEAR(LengthOf(curve), std::numbers::pi, 1e-8);
}

TEST(NurbsCurve, AnUnclampedOneClosesSmoothly) {
  const ON_NurbsCurve curve = PeriodicCubic();
  EXPECT_TRUE(curve.IsValid());
  EXPECT_EQ(curve.Domain(), (ON_Interval{0, 5}));
  EXPECT_TRUE(curve.IsClosed());
  ExpectPoint({25.0 / 3, 5.0 / 3, 0}, curve.PointAtStart());
  ExpectPoint(curve.PointAtStart(), curve.PointAtEnd());
}

TEST(NurbsCurve, ADegenerateOneIsNotClosed) {
  EXPECT_FALSE(Nurbs(3, {0, 0, 1, 1}, {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}}).IsClosed());
}

TEST(NurbsCurve, TheDerivativeIsThatOfItsPoints) {
  ON_NurbsCurve curve = ClampedCubic();
  curve.m_is_rat = true;
  curve.m_cv[2] = curve.m_cv[2] * 3;
  for (const double t : {0.1, 0.7, 1.3, 1.9}) {
    constexpr double kStep = 1e-6;
    ON_3dPoint point;
    ON_3dVector derivative;
    curve.Ev1Der(t, &point, &derivative);
    EXPECT_EQ(point, curve.PointAt(t));
    const ON_3dVector slope = (curve.PointAt(t + kStep) - curve.PointAt(t - kStep)) * (0.5 / kStep);
    EXPECT_NEAR((slope - derivative).Length(), 0, 1e-7 * slope.Length());
  }
}

TEST(NurbsCurve, OfOrderTwoIsAPolyline) {
  const ON_NurbsCurve curve = Nurbs(2, {0, 1, 2}, {{0, 0, 0}, {1, 1, 1}, {2, 0, 0}});
  std::vector<ON_3dPoint> points;
  EXPECT_EQ(curve.IsPolyline(&points), 3);
  EXPECT_EQ(points, (std::vector<ON_3dPoint>{{0, 0, 0}, {1, 1, 1}, {2, 0, 0}}));
  ExpectPoint({1.5, 0.5, 0.5}, curve.PointAt(1.5));
  EXPECT_NEAR(LengthOf(curve), 2 * std::sqrt(3), 1e-12);
  EXPECT_EQ(ClampedCubic().IsPolyline(&points), 0);
  EXPECT_TRUE(points.empty());
}

// A parabola's length in closed form.
TEST(NurbsCurve, ALengthIsAsExactAsAsked) {
  const ON_NurbsCurve parabola = Nurbs(3, {0, 0, 1, 1}, {{0, 0, 0}, {5, 0, 0}, {10, 100, 0}});
  const double k = 20;
  const double exact = 10 * (std::sqrt(1 + k * k) / 2 + std::asinh(k) / (2 * k));
  for (const double tolerance : {1e-4, 1e-8, 1e-12}) {
    EXPECT_NEAR(LengthOf(parabola, tolerance), exact, tolerance * exact);
  }
}

TEST(NurbsCurve, ALengthGoesThroughACusp) {
  // Out and back on the same line: twice the way to where it turns.
  const ON_NurbsCurve curve = Nurbs(3, {0, 0, 1, 1}, {{0, 0, 0}, {1, 0, 0}, {0, 0, 0}});
  EXPECT_NEAR(LengthOf(curve), 1, 1e-8);
}

TEST(NurbsCurve, IsValidOnlyWithKnotsThatFit) {
  const ON_NurbsCurve good = ClampedCubic();
  EXPECT_FALSE(ON_NurbsCurve().IsValid());
  for (const ON_SimpleArray<double>& knots : std::vector<ON_SimpleArray<double>>{
           {},
           {0, 0, 0, 1, 2, 2},
           {0, 0, 0, 1, 2, 2, 2, 2},
           {0, 0, 0, 3, 2, 2, 2},
           {0, 0, 0, 0, 2, 2, 2},
           {0, 0, 0, 2, 2, 2, 2},
           {0, 0, 0, std::numeric_limits<double>::quiet_NaN(), 2, 2, 2},
           {0, 0, 0, 1, 2, 2, std::numeric_limits<double>::infinity()}}) {
    ON_NurbsCurve curve = good;
    curve.m_knot = knots;
    EXPECT_FALSE(curve.IsValid());
    EXPECT_EQ(curve.NurbsCurve(), nullptr);
  }
}

TEST(NurbsCurve, IsValidOnlyWithPointsThatAreNumbers) {
  for (const double bad : {std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity(), ON_UNSET_VALUE}) {
    ON_NurbsCurve curve = ClampedCubic();
    curve.m_cv[2].y = bad;
    EXPECT_FALSE(curve.IsValid());
    curve = ClampedCubic();
    curve.m_cv[1].w = bad;
    EXPECT_FALSE(curve.IsValid());
  }
  ON_NurbsCurve curve = ClampedCubic();
  curve.m_cv.back().w = 0;
  EXPECT_FALSE(curve.IsValid());
  curve = ClampedCubic();
  curve.m_order = 6;
  EXPECT_FALSE(curve.IsValid());
  curve.m_order = 1;
  EXPECT_FALSE(curve.IsValid());
}

TEST(NurbsCurve, AnotherDomainStretchesTheKnots) {
  ON_NurbsCurve curve = PeriodicCubic();
  curve.SetDomain({10, 20});
  EXPECT_EQ(curve.m_knot, (ON_SimpleArray<double>{6, 8, 10, 12, 14, 16, 18, 20, 22, 24}));
  ExpectPoint(PeriodicCubic().PointAt(1.3), curve.PointAt(12.6));
}

TEST(NurbsCurve, ClampingLeavesTheCurveAsItIs) {
  const ON_NurbsCurve before = PeriodicCubic();
  ON_NurbsCurve after = before;
  after.ClampAndRaise(4);
  EXPECT_TRUE(after.IsValid());
  EXPECT_EQ(after.m_knot, (ON_SimpleArray<double>{0, 0, 0, 1, 2, 3, 4, 5, 5, 5}));
  EXPECT_EQ(after.CVCount(), before.CVCount());
  ExpectPoint(before.PointAtStart(), after.m_cv.front().Euclidean());
  ExpectPoint(before.PointAtEnd(), after.m_cv.back().Euclidean());
  ExpectSameCurve(before, after);
}

TEST(NurbsCurve, AHigherOrderLeavesTheCurveAsItIs) {
  ON_NurbsCurve weighted = ClampedCubic();
  weighted.m_is_rat = true;
  weighted.m_cv[1] = weighted.m_cv[1] * 0.25;
  const ON_NurbsCurve line = Nurbs(2, {0, 1, 3}, {{0, 0, 0}, {1, 1, 1}, {2, 0, 0}});
  const ON_NurbsCurve uneven =
      Nurbs(4, {0, 0, 0, 1, 1, 4, 5, 5, 5},
            {{0, 0, 0}, {1, 1, 0}, {2, -1, 1}, {3, 4, 2}, {5, 5, 5}, {6, 0, 0}, {7, 1, 0}});
  for (const ON_NurbsCurve& before : {line, ClampedCubic(), weighted, uneven, PeriodicCubic()}) {
    for (int order = before.Order(); order <= 8; ++order) {
      ON_NurbsCurve after = before;
      after.ClampAndRaise(order);
      EXPECT_TRUE(after.IsValid());
      EXPECT_EQ(after.Order(), order);
      EXPECT_EQ(after.PointAtStart(), after.m_cv.front().Euclidean());
      ExpectSameCurve(before, after, 1e-11);
    }
  }
}

TEST(NurbsCurve, AHigherOrderKeepsAsManyKnotsAsItNeeds) {
  ON_NurbsCurve curve = ClampedCubic();
  curve.ClampAndRaise(6);
  EXPECT_EQ(curve.m_knot, (ON_SimpleArray<double>{0, 0, 0, 0, 0, 1, 1, 1, 2, 2, 2, 2, 2}));
  EXPECT_EQ(curve.CVCount(), 9);
}

TEST(NurbsCurve, AppendedCurvesMeetInOnePoint) {
  ON_NurbsCurve first = Nurbs(2, {0, 1}, {{0, 0, 0}, {1, 0, 0}});
  ON_NurbsCurve second = Nurbs(2, {1, 3}, {{1, 0, 0}, {1, 4, 0}});
  second.m_is_rat = true;
  for (ON_4dPoint& cv : second.m_cv) cv = cv * 2;
  first.Append(second);
  EXPECT_TRUE(first.IsValid());
  EXPECT_TRUE(first.IsRational());
  EXPECT_EQ(first.m_knot, (ON_SimpleArray<double>{0, 1, 3}));
  ExpectPoint({0.5, 0, 0}, first.PointAt(0.5));
  ExpectPoint({1, 2, 0}, first.PointAt(2));
}

}  // namespace
