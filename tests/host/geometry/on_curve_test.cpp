#include "host/geometry/on_curve.h"

#include <gtest/gtest.h>

#include <limits>

#include "curve_samples.h"
#include "host/geometry/on_parameters.h"
#include "host/geometry/on_point_cloud.h"

namespace {

constexpr double kPi = std::numbers::pi;

double LengthOf(const ON_Curve& curve) {
  double length = -1;
  EXPECT_TRUE(curve.GetLength(&length));
  return length;
}

void ExpectPoint(ON_3dPoint expected, ON_3dPoint found, double tolerance = 0) {
  EXPECT_NEAR(expected.x, found.x, tolerance);
  EXPECT_NEAR(expected.y, found.y, tolerance);
  EXPECT_NEAR(expected.z, found.z, tolerance);
}

TEST(LineCurve, RunsEvenlyFromEndToEnd) {
  const ON_LineCurve line({1, 2, 3}, {4, 6, 3});
  EXPECT_TRUE(line.IsValid());
  EXPECT_EQ(line.Domain(), (ON_Interval{0, 5}));
  EXPECT_EQ(line.PointAtStart(), (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(line.PointAtEnd(), (ON_3dPoint{4, 6, 3}));
  ExpectPoint({2.5, 4, 3}, line.PointAt(2.5));
  EXPECT_EQ(LengthOf(line), 5);
  EXPECT_FALSE(line.IsClosed());
  EXPECT_EQ(line.BoundingBox().m_min, (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(line.BoundingBox().m_max, (ON_3dPoint{4, 6, 3}));
}

TEST(LineCurve, IsAPolylineAndANurbsCurveOfTwoPoints) {
  ON_LineCurve line({1, 2, 3}, {4, 6, 3});
  line.m_t = {-1, 1};
  std::vector<ON_3dPoint> points;
  EXPECT_EQ(line.IsPolyline(&points), 2);
  EXPECT_EQ(points, (std::vector<ON_3dPoint>{{1, 2, 3}, {4, 6, 3}}));
  EXPECT_EQ(line.IsPolyline(), 2);
  const auto form = line.NurbsCurve();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->Order(), 2);
  EXPECT_FALSE(form->IsRational());
  EXPECT_EQ(form->m_knot, (ON_SimpleArray<double>{-1, 1}));
  EXPECT_EQ(form->PointAt(0), line.PointAt(0));
}

TEST(PolylineCurve, GoesFromPointToPoint) {
  ON_PolylineCurve curve = Polyline({{0, 0, 0}, {3, 4, 0}, {3, 4, 2}});
  curve.m_t = {0, 1, 3};
  EXPECT_TRUE(curve.IsValid());
  EXPECT_EQ(curve.Domain(), (ON_Interval{0, 3}));
  ExpectPoint({1.5, 2, 0}, curve.PointAt(0.5));
  EXPECT_EQ(curve.PointAt(1), (ON_3dPoint{3, 4, 0}));
  ExpectPoint({3, 4, 1}, curve.PointAt(2));
  EXPECT_EQ(curve.PointAtEnd(), (ON_3dPoint{3, 4, 2}));
  EXPECT_EQ(LengthOf(curve), 7);
  EXPECT_EQ(curve.IsPolyline(), 3);
  EXPECT_EQ(curve.NurbsCurve()->m_knot, curve.m_t);
  EXPECT_EQ(curve.NurbsCurve()->CVCount(), 3);
}

TEST(PolylineCurve, IsClosedWithFourPointsOrMore) {
  EXPECT_TRUE(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}}).IsClosed());
  EXPECT_FALSE(Polyline({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 0, 1e-6}}).IsClosed());
  EXPECT_FALSE(Polyline({{0, 0, 0}, {1, 0, 0}, {0, 0, 0}}).IsClosed());
}

TEST(PolylineCurve, IsValidWithTwoPointsAndParametersThatIncrease) {
  EXPECT_FALSE(Polyline({}).IsValid());
  EXPECT_FALSE(Polyline({{0, 0, 0}}).IsValid());
  ON_PolylineCurve curve = Polyline({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}});
  EXPECT_TRUE(curve.IsValid());
  curve.m_t[1] = 0;
  EXPECT_FALSE(curve.IsValid());
  curve.m_t[1] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(curve.IsValid());
  curve.m_t = {0, 1};
  EXPECT_FALSE(curve.IsValid());
}

TEST(ArcCurve, RunsEvenlyThroughItsAngle) {
  const ON_ArcCurve arc = UprightArc({1, 2, 3}, 2, {0, kPi});
  EXPECT_TRUE(arc.IsValid());
  EXPECT_DOUBLE_EQ(arc.Domain().Max, 2 * kPi);
  ExpectPoint({3, 2, 3}, arc.PointAtStart());
  ExpectPoint({1 + std::sqrt(2), 2, 3 + std::sqrt(2)}, arc.PointAt(kPi / 2), 1e-15);
  ExpectPoint({1, 2, 5}, arc.PointAt(kPi), 1e-15);
  ExpectPoint({-1, 2, 3}, arc.PointAtEnd(), 1e-15);
  EXPECT_DOUBLE_EQ(LengthOf(arc), 2 * kPi);
  EXPECT_FALSE(arc.IsClosed());
  EXPECT_EQ(arc.IsPolyline(), 0);
}

TEST(ArcCurve, AWholeTurnIsClosed) {
  EXPECT_TRUE(UprightArc({0, 0, 0}, 1, {0, 2 * kPi}).IsClosed());
  EXPECT_TRUE(UprightArc({0, 0, 0}, 1, {-1, -1 + 2 * kPi}).IsClosed());
  EXPECT_FALSE(UprightArc({0, 0, 0}, 1, {0, 6.28}).IsClosed());
}

TEST(ArcCurve, ItsBoxIsThatOfItsControlPoints) {
  const auto box = [](ON_Interval angle) { return UprightArc({0, 7, 0}, 1, angle).BoundingBox(); };
  ExpectPoint({0, 7, 0}, box({0, kPi / 2}).m_min, 1e-15);
  ExpectPoint({1, 7, 1}, box({0, kPi / 2}).m_max, 1e-15);
  ExpectPoint({-1, 7, -1}, box({0, 2 * kPi}).m_min, 1e-15);
  ExpectPoint({1, 7, 1}, box({0, 2 * kPi}).m_max, 1e-15);
  // Over the top, where the tangents of the ends meet.
  const double r = std::sqrt(0.5);
  ExpectPoint({-r, 7, r}, box({kPi / 4, 3 * kPi / 4}).m_min, 1e-15);
  ExpectPoint({r, 7, 2 * r}, box({kPi / 4, 3 * kPi / 4}).m_max, 1e-15);
  EXPECT_FALSE(UprightArc({0, 7, 0}, 0, {0, 1}).BoundingBox().IsValid());
}

TEST(ArcCurve, IsValidWithARadiusAndAtMostAWholeTurn) {
  EXPECT_TRUE(UprightArc({0, 0, 0}, 1, {0, 2 * kPi}).IsValid());
  EXPECT_FALSE(UprightArc({0, 0, 0}, 0, {0, 1}).IsValid());
  EXPECT_FALSE(UprightArc({0, 0, 0}, -1, {0, 1}).IsValid());
  EXPECT_FALSE(UprightArc({0, 0, 0}, 1, {1, 1}).IsValid());
  EXPECT_FALSE(UprightArc({0, 0, 0}, 1, {0, 7}).IsValid());
  EXPECT_FALSE(UprightArc({0, std::numeric_limits<double>::infinity(), 0}, 1, {0, 1}).IsValid());
}

// The rational form is exact: every point is on the circle, not only the ends of spans.
TEST(ArcCurve, ItsNurbsFormIsOnTheCircle) {
  for (const double angle : {0.1, 1.0, kPi / 2, 2.0, kPi, 4.0, 1.5 * kPi, 5.0, 2 * kPi}) {
    const ON_ArcCurve arc = UprightArc({0, 0, 0}, 1, {0.3, 0.3 + angle});
    const auto form = arc.NurbsCurve();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->IsRational());
    EXPECT_EQ(form->Order(), 3);
    EXPECT_EQ(form->Domain(), arc.Domain());
    const int spans = angle <= kPi / 2 ? 1 : angle <= kPi ? 2 : 4;
    EXPECT_EQ(form->CVCount(), 2 * spans + 1) << angle;
    for (int i = 0; i <= 1000; ++i) {
      const ON_3dPoint p = form->PointAt(arc.Domain().ParameterAt(i / 1000.0));
      EXPECT_NEAR(std::hypot(p.x, p.z), 1, 1e-14);
      EXPECT_EQ(p.y, 0);
    }
    ExpectPoint(arc.PointAtStart(), form->PointAtStart(), 1e-15);
    ExpectPoint(arc.PointAtEnd(), form->PointAtEnd(), 1e-15);
    for (int i = 0; i <= 2 * spans; ++i) {
      const double t = arc.Domain().ParameterAt(i / (2.0 * spans));
      ExpectPoint(arc.PointAt(t), form->PointAt(t), 1e-14);
    }
    EXPECT_NEAR(LengthOf(*form), angle, 1e-8 * angle);
    EXPECT_EQ(form->IsClosed(), arc.IsClosed());
  }
}

TEST(Curve, CoincidenceIsRelativeForLargeNumbers) {
  EXPECT_TRUE(ON_PointsAreCoincident({1, 2, 3}, {1, 2, 3 + 1e-10}));
  EXPECT_FALSE(ON_PointsAreCoincident({1, 2, 3}, {1, 2, 3 + 1e-9}));
  EXPECT_TRUE(ON_PointsAreCoincident({1e9, 0, 0}, {1e9 + 1e-4, 0, 0}));
  EXPECT_FALSE(ON_PointsAreCoincident({1e9, 0, 0}, {1e9 + 1e-2, 0, 0}));
}

TEST(Curve, ACastFindsTheKind) {
  const ON_LineCurve line({0, 0, 0}, {1, 0, 0});
  const ON_NurbsCurve nurbs = ClampedCubic();
  const ON_Point point;
  EXPECT_EQ(ON_Curve::Cast(&line), &line);
  EXPECT_EQ(ON_Curve::Cast(&nurbs), &nurbs);
  EXPECT_EQ(ON_Curve::Cast(&point), nullptr);
  EXPECT_EQ(ON_Curve::Cast(nullptr), nullptr);
  EXPECT_EQ(ON_LineCurve::Cast(&line), &line);
  EXPECT_EQ(ON_NurbsCurve::Cast(&line), nullptr);
  EXPECT_EQ(ON_NurbsCurve::Cast(&nurbs), &nurbs);
  EXPECT_EQ(ON_ArcCurve::Cast(&line), nullptr);
  EXPECT_EQ(ON_PolylineCurve::Cast(&line), nullptr);
  EXPECT_EQ(ON_PolyCurve::Cast(&line), nullptr);
  EXPECT_EQ(line.ObjectType(), ON_ObjectType::curve);
  EXPECT_FALSE(line.HasBrepForm());
}

// The derivative is what differences come near to.
void ExpectDerivativeIsLimit(const ON_Curve& curve) {
  constexpr double kStep = 1e-6;
  for (const double s : {0.07, 0.3, 0.55, 0.8}) {
    const double t = curve.Domain().ParameterAt(s);
    ON_3dPoint point;
    ON_3dVector derivative;
    curve.Ev1Der(t, &point, &derivative);
    ExpectPoint(curve.PointAt(t), point, 1e-13);
    const ON_3dVector slope = (curve.PointAt(t + kStep) - curve.PointAt(t - kStep)) * (0.5 / kStep);
    ExpectPoint(ON_3dPoint{0, 0, 0} + slope, ON_3dPoint{0, 0, 0} + derivative, 1e-7);
  }
}

TEST(Curve, EachKindHasItsDerivative) {
  ON_LineCurve line({1, 2, 3}, {4, 6, 3});
  line.m_t = {-1, 9};
  ExpectDerivativeIsLimit(line);
  ON_ArcCurve arc = UprightArc({1, 2, 3}, 4, {0.5, 3});
  arc.m_t = {0, 1};
  ExpectDerivativeIsLimit(arc);
  ON_PolylineCurve polyline = Polyline({{0, 0, 0}, {3, 4, 0}, {3, 4, 2}});
  polyline.m_t = {0, 1, 5};
  ExpectDerivativeIsLimit(polyline);
  ON_PolyCurve poly;
  AddSegment(poly, arc);
  AddSegment(poly, line);
  poly.m_t = {2, 7, 8};
  ExpectDerivativeIsLimit(poly);
  ExpectDerivativeIsLimit(ClampedCubic());
}

TEST(Curve, ALengthThatIsNotFiniteIsNone) {
  constexpr double kHuge = 1.5e308;
  double length = 7;
  EXPECT_FALSE(ON_LineCurve({-kHuge, 0, 0}, {kHuge, 0, 0}).GetLength(&length));
  EXPECT_FALSE(Polyline({{-kHuge, 0, 0}, {kHuge, 0, 0}}).GetLength(&length));
  const ON_NurbsCurve nurbs = Nurbs(2, {0, 1}, {{-kHuge, 0, 0}, {kHuge, 0, 0}});
  EXPECT_FALSE(nurbs.GetLength(&length));
  EXPECT_EQ(length, 7);
}

}  // namespace
