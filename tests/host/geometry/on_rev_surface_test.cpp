#include "host/geometry/on_rev_surface.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_polyline_curve.h"
#include "surface_checks.h"
#include "surface_samples.h"

namespace {

using Side = ON_Surface::Side;

// About a slanted axis that isn't of unit length, with an angle that doesn't begin at 0.
ON_RevSurface Slanted() {
  ON_RevSurface surface = Turned(ArcOverX({5, 1, 0}, 1, {0, 1}), {0.5, 2.5});
  surface.m_axis = {{1, 1, 1}, {1, 4, 5}};
  surface.m_t = {10, 30};
  return surface;
}

std::array<bool, 4> SingularSides(const ON_Surface& surface) {
  return {surface.IsSingular(Side::south), surface.IsSingular(Side::east),
          surface.IsSingular(Side::north), surface.IsSingular(Side::west)};
}

TEST(RevSurface, TurnsItsCurveByTheRightHand) {
  const ON_RevSurface surface = Cylinder();
  EXPECT_EQ((ON_Interval{0, 2 * kPi}), surface.Domain(0));
  EXPECT_EQ((ON_Interval{0, 3}), surface.Domain(1));
  ExpectPointsAgree({2, 0, 0}, surface.PointAt(0, 0));
  ExpectPointsAgree({0, 2, 1}, surface.PointAt(kPi / 2, 1));
  ExpectPointsAgree({0, -2, 3}, surface.PointAt(1.5 * kPi, 3));
  const ON_3dVector normal = surface.NormalAt(kPi / 2, 1);
  ExpectPointsAgree({0, 1, 0}, ON_3dPoint{0, 0, 0} + normal);
}

TEST(RevSurface, ItsDomainIsStretchedOverTheAngle) {
  const ON_RevSurface surface = Slanted();
  EXPECT_EQ((ON_Interval{10, 30}), surface.Domain(0));
  // All points of a circle are as far from each point of the axis.
  const ON_3dPoint start = surface.m_curve->PointAt(0.25);
  for (const double u : {10.0, 17.0, 30.0}) {
    const ON_3dPoint p = surface.PointAt(u, 0.25);
    EXPECT_NEAR(start.DistanceTo(surface.m_axis.from), p.DistanceTo(surface.m_axis.from), 1e-12);
    EXPECT_NEAR(start.DistanceTo(surface.m_axis.to), p.DistanceTo(surface.m_axis.to), 1e-12);
  }
}

TEST(RevSurface, TransposedItSwapsItsDirections) {
  const ON_RevSurface surface = Slanted();
  ON_RevSurface transposed = surface;
  transposed.m_bTransposed = true;
  EXPECT_EQ(surface.Domain(0), transposed.Domain(1));
  EXPECT_EQ(surface.Domain(1), transposed.Domain(0));
  EXPECT_EQ(surface.PointAt(12, 0.5), transposed.PointAt(0.5, 12));
  EXPECT_EQ(surface.NormalAt(12, 0.5), -transposed.NormalAt(0.5, 12));
}

TEST(RevSurface, ItsDerivativesAreTheLimitsOfDifferences) {
  for (ON_RevSurface surface : {Slanted(), Sphere(), Torus(), Cone()}) {
    ExpectDerivativesAreLimits(surface);
    surface.m_bTransposed = true;
    ExpectDerivativesAreLimits(surface);
  }
}

TEST(RevSurface, ItsNurbsFormIsExact) {
  for (ON_RevSurface surface : {Slanted(), Sphere(), Torus(), Cone()}) {
    ExpectFormAgrees(surface);
    surface.m_bTransposed = true;
    ExpectFormAgrees(surface);
  }
  ON_NurbsSurface form;
  ASSERT_TRUE(Sphere().GetNurbForm(form));
  for (double u = 0; u <= 2 * kPi; u += 0.37) {
    for (const double v : {0.0, 0.3, 2.2, 5.1}) {
      EXPECT_NEAR(2, form.PointAt(u, v).DistanceTo({0, 0, 0}), 1e-14);
    }
  }
}

TEST(RevSurface, ItsNurbsFormHasTheSpansOfAnArc) {
  const std::pair<double, int> cases[] = {{1, 3}, {kPi / 2, 3}, {2, 5}, {kPi, 5}, {4, 9}, {6, 9}};
  for (const auto& [angle, cv_count] : cases) {
    ON_NurbsSurface form;
    ASSERT_TRUE(Turned(ON_LineCurve({2, 0, 0}, {2, 0, 3}), {0, angle}).GetNurbForm(form));
    EXPECT_EQ(cv_count, form.CVCount(0)) << angle;
    EXPECT_EQ(3, form.Order(0));
    EXPECT_EQ(2, form.Order(1));
    EXPECT_TRUE(form.IsRational());
  }
}

TEST(RevSurface, TheFormOfACurveOfEndlesslyManyPointsIsRefused) {
  const auto curve = std::make_shared<ON_PolylineCurve>();
  for (int i = 0; i < 400'000; ++i) {
    curve->m_pline.push_back({1, 0, i * 0.001});
    curve->m_t.push_back(i);
  }
  ON_RevSurface surface;
  surface.m_axis = {{0, 0, 0}, {0, 0, 1}};
  surface.m_angle = surface.m_t = {0, 1};
  surface.m_curve = curve;
  ASSERT_TRUE(surface.IsValid());
  ON_NurbsSurface form;
  EXPECT_FALSE(surface.GetNurbForm(form));
}

TEST(RevSurface, AWholeTurnIsClosedAndPolesAreSingular) {
  EXPECT_EQ((std::array{true, false, true, false}), SingularSides(Sphere()));
  EXPECT_EQ((std::array{true, false, false, false}), SingularSides(Cone()));
  EXPECT_EQ((std::array{false, false, false, false}), SingularSides(Torus()));
  ON_RevSurface cone = Cone();
  cone.m_bTransposed = true;
  EXPECT_EQ((std::array{false, false, false, true}), SingularSides(cone));
  EXPECT_TRUE(cone.IsClosed(1));
  EXPECT_FALSE(cone.IsClosed(0));
  EXPECT_TRUE(Torus().IsClosed(0));
  EXPECT_TRUE(Torus().IsClosed(1));
  EXPECT_FALSE(Slanted().IsClosed(0));
}

TEST(RevSurface, ThereIsANormalAtAPole) {
  const ON_RevSurface sphere = Sphere();
  for (const double u : {0.0, 1.0, 5.0}) {
    ExpectPointsAgree({0, 0, -1}, ON_3dPoint{0, 0, 0} + sphere.NormalAt(u, sphere.Domain(1).Min),
                      1e-5);
    ExpectPointsAgree({0, 0, 1}, ON_3dPoint{0, 0, 0} + sphere.NormalAt(u, sphere.Domain(1).Max),
                      1e-5);
  }
  const double slope = std::sqrt(0.5);
  ExpectPointsAgree({0, slope, -slope}, ON_3dPoint{0, 0, 0} + Cone().NormalAt(kPi / 2, 0), 1e-9);
}

TEST(RevSurface, IsNotValidWithoutAxisAngleOrCurve) {
  EXPECT_TRUE(Slanted().IsValid());
  const auto is_valid = [](const std::function<void(ON_RevSurface&)>& change) {
    ON_RevSurface surface = Slanted();
    change(surface);
    return surface.IsValid();
  };
  EXPECT_FALSE(is_valid([](auto& s) { s.m_axis.to = s.m_axis.from; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_axis.to.x = std::numeric_limits<double>::infinity(); }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_axis = {{-1e308, -1e308, 0}, {1e308, 1e308, 0}}; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_angle = {1, 1}; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_angle = {0, 7}; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_t = {1, 0}; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_curve = nullptr; }));
  EXPECT_FALSE(is_valid([](auto& s) { s.m_curve = std::make_shared<ON_NurbsCurve>(); }));
}

TEST(RevSurface, ItsBoxHoldsIt) {
  const ON_BoundingBox box = Torus().BoundingBox();
  ExpectPointsAgree({-6, -6, -1}, box.m_min);
  ExpectPointsAgree({6, 6, 1}, box.m_max);
}

TEST(RevSurface, ItsBoxIsSweptByTheBoxOfTheCurve) {
  // A line that isn't in a plane with the axis: the corners of its box are farther from the axis
  // than its points, and the control points of their arcs farther still.
  const ON_BoundingBox box = Turned(ON_LineCurve({1, 0, 0}, {0, 2, 1})).BoundingBox();
  ExpectPointsAgree({-3, -3, 0}, box.m_min);
  ExpectPointsAgree({3, 3, 1}, box.m_max);
}

}  // namespace
