#include "host/geometry/on_closed_curve.h"

#include <gtest/gtest.h>

#include "curve_samples.h"

namespace {

constexpr double kPi = std::numbers::pi;

ON_NurbsCurve Form(const ON_Curve& curve) {
  ON_NurbsCurve form;
  EXPECT_TRUE(curve.GetNurbForm(form));
  return form;
}

void ExpectVector(ON_3dVector expected, ON_3dVector found, double tolerance) {
  EXPECT_NEAR(expected.x, found.x, tolerance);
  EXPECT_NEAR(expected.y, found.y, tolerance);
  EXPECT_NEAR(expected.z, found.z, tolerance);
}

TEST(SweptArea, OfAPolygonIsExactWhereverItIsSweptFrom) {
  const ON_NurbsCurve square =
      Form(Polyline({{1, 1, 5}, {4, 1, 5}, {4, 3, 5}, {1, 3, 5}, {1, 1, 5}}));
  ExpectVector({0, 0, 6}, ON_SweptArea(square, square.PointAtStart()), 1e-14);
  ExpectVector({0, 0, 6}, ON_SweptArea(square, {-100, 7, 33}), 1e-12);
}

TEST(SweptArea, PointsToWhereTheCurveRunsCounterclockwise) {
  // From the x axis towards the z axis is clockwise about y.
  const ON_NurbsCurve circle = Form(UprightArc({3, 4, 5}, 2, {0, 2 * kPi}));
  ExpectVector({0, -4 * kPi, 0}, ON_SweptArea(circle, {3, 4, 5}), 1e-6);
  ON_NurbsCurve backwards = circle;
  backwards.Reverse();
  ExpectVector({0, 4 * kPi, 0}, ON_SweptArea(backwards, {3, 4, 5}), 1e-6);
}

TEST(SweptArea, OfACubicIsExact) {
  // y = 3 t^2 (1 - t) over x = t, and back along the x axis.
  const ON_NurbsCurve hill =
      Nurbs(4, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {1.0 / 3, 0, 0}, {2.0 / 3, 1, 0}, {1, 0, 0}});
  ExpectVector({0, 0, -0.25}, ON_SweptArea(hill, {0, 0, 0}), 1e-15);
}

TEST(CurvePoints, OfAPolylineAreItsPoints) {
  const auto polyline = Polyline({{0, 0, 0}, {5, 0, 1}, {5, 2, 0}});
  const std::vector<ON_3dPoint> points = ON_CurvePoints(Form(polyline), 1e-9);
  ASSERT_EQ(points.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(points[i], polyline.m_pline[i]);
}

TEST(CurvePoints, StrayFromTheCurveByTheToleranceAtMost) {
  for (const double tolerance : {0.1, 1e-3, 1e-4}) {
    const ON_NurbsCurve circle = Form(UprightArc({0, 0, 0}, 1, {0, 2 * kPi}));
    const std::vector<ON_3dPoint> points = ON_CurvePoints(circle, tolerance);
    EXPECT_EQ(points.front(), circle.PointAtStart());
    EXPECT_EQ(points.back(), circle.PointAtEnd());
    double stray = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double x = (points[i].x + points[i - 1].x) / 2;
      const double z = (points[i].z + points[i - 1].z) / 2;
      stray = std::max(stray, 1 - std::hypot(x, z));
    }
    EXPECT_LT(stray, 1.2 * tolerance);
    EXPECT_GT(stray, 0.05 * tolerance);
  }
}

TEST(CurvePoints, AToleranceThatCannotBeMetCostsABoundedTime) {
  for (const double tolerance : {0.0, -1.0, 1e-300, std::nan("")}) {
    EXPECT_EQ(ON_CurvePoints(ClampedCubic(), tolerance).size(), 2 * 256 + 1U);
  }
  EXPECT_EQ(ON_CurvePoints(PeriodicCubic(), HUGE_VAL).size(), 5 + 1U);
}

}  // namespace
