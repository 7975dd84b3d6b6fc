#include "host/geometry/on_surface_point.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/geometry/on_plane_surface.h"
#include "surface_checks.h"
#include "surface_samples.h"

namespace {

ON_SurfacePoint Closest(const ON_Surface& surface, ON_3dPoint p) {
  const ON_SurfacePoint found =
      ON_ClosestSurfacePoints(surface, {surface.Domain(0), surface.Domain(1)}, p).front();
  EXPECT_EQ(found.point, surface.PointAt(found.u, found.v));
  EXPECT_TRUE(surface.Domain(0).Min <= found.u && found.u <= surface.Domain(0).Max);
  EXPECT_TRUE(surface.Domain(1).Min <= found.v && found.v <= surface.Domain(1).Max);
  return found;
}

// Points all around, near and far.
std::vector<ON_3dPoint> Around() {
  std::vector<ON_3dPoint> points;
  for (const double distance : {0.3, 1.9, 2.0, 7.0, 500.0}) {
    for (const ON_3dVector v : {ON_3dVector{1, 0, 0},
                                {0, -1, 0},
                                {0.2, 0.3, 0.9},
                                {-0.5, 0.1, -0.7},
                                {-0.9, -0.01, 0},
                                {0.4, 0.4, -0.4}}) {
      points.push_back(ON_3dPoint{0, 0, 0} + v * (distance / v.Length()));
    }
  }
  return points;
}

TEST(ClosestSurfacePoint, OfASphereLiesTowardsThePoint) {
  for (const ON_3dPoint& p : Around()) {
    const ON_3dVector v = ON_FromOrigin(p);
    const ON_SurfacePoint found = Closest(Sphere(), p);
    ExpectPointsAgree(ON_3dPoint{0, 0, 0} + v * (2 / v.Length()), found.point, 1e-7);
  }
}

TEST(ClosestSurfacePoint, OfASphereToItsPolesAndItsCentre) {
  ExpectPointsAgree({0, 0, 2}, Closest(Sphere(), {0, 0, 9}).point, 1e-7);
  ExpectPointsAgree({0, 0, -2}, Closest(Sphere(), {0, 0, -1}).point, 1e-7);
  const ON_SurfacePoint found = Closest(Sphere(), {0, 0, 0});
  EXPECT_NEAR(found.point.DistanceTo({0, 0, 0}), 2, 1e-12);
}

TEST(ClosestSurfacePoint, HasTheParametersOfTheSurface) {
  // A quarter around and 30 degrees up.
  const double height = std::sqrt(3) / 2;
  const ON_SurfacePoint found = Closest(Sphere(), {0, 5 * height, 2.5});
  EXPECT_NEAR(found.u, kPi / 2, 1e-8);
  EXPECT_NEAR(Sphere().Domain(1).NormalizedParameterAt(found.v), 2.0 / 3, 1e-8);
}

TEST(ClosestSurfacePoint, OfATorusLiesTowardsTheNearestPieceOfItsRing) {
  for (const ON_3dPoint& p : Around()) {
    const double radius = std::hypot(p.x, p.y);
    const ON_3dPoint ring{5 * p.x / radius, 5 * p.y / radius, 0};
    const double expected = std::abs(p.DistanceTo(ring) - 1);
    EXPECT_NEAR(Closest(Torus(), p).point.DistanceTo(p), expected, 1e-9 * (1 + expected));
  }
}

TEST(ClosestSurfacePoint, StopsAtTheSidesOfTheDomain) {
  ExpectPointsAgree({2, 0, 3}, Closest(Cylinder(), {4, 0, 8}).point, 1e-9);
  ExpectPointsAgree({0, -2, 0}, Closest(Cylinder(), {0, -9, -1}).point, 1e-9);
  // Beside the seam, from both sides.
  for (const double angle : {-0.01, 0.0, 0.01}) {
    const ON_3dPoint foot{2 * std::cos(angle), 2 * std::sin(angle), 1};
    ExpectPointsAgree(foot, Closest(Cylinder(), {3 * foot.x, 3 * foot.y, 1}).point, 1e-8);
  }
}

TEST(ClosestSurfacePoint, OfAConeMayBeItsApex) {
  ExpectPointsAgree({0, 0, 0}, Closest(Cone(), {0, 0, -3}).point, 1e-7);
  ExpectPointsAgree({0, 0, 0}, Closest(Cone(), {0.1, 0, -3}).point, 1e-7);
  ExpectPointsAgree({0.5, 0, 0.5}, Closest(Cone(), {1, 0, 0}).point, 1e-8);
}

TEST(ClosestSurfacePoint, OfAPlaneWhoseDomainIsNotItsSize) {
  ON_PlaneSurface plane;
  plane.m_domain[0] = {1e6, 1e6 + 1e-3};
  plane.m_domain[1] = {-4e5, 4e5};
  plane.m_extents[0] = {0, 10};
  plane.m_extents[1] = {0, 1};
  const ON_SurfacePoint found = Closest(plane, {2.5, 0.75, 40});
  ExpectPointsAgree({2.5, 0.75, 0}, found.point, 1e-5);
  EXPECT_NEAR(plane.Domain(0).NormalizedParameterAt(found.u), 0.25, 1e-6);
  EXPECT_NEAR(found.v, 2e5, 1e-3);
  ExpectPointsAgree({10, 0, 0}, Closest(plane, {99, -7, 0}).point);
}

// No point of a fine grid is closer.
TEST(ClosestSurfacePoint, OfARationalPatchIsClosestOfAll) {
  const ON_NurbsSurface patch = RationalPatch();
  for (const ON_3dPoint& p : Around()) {
    const double distance = Closest(patch, p).point.DistanceTo(p);
    constexpr int kSteps = 80;
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i <= kSteps; ++i) {
      for (int j = 0; j <= kSteps; ++j) {
        const ON_3dPoint q = patch.PointAt(patch.Domain(0).ParameterAt(1.0 * i / kSteps),
                                           patch.Domain(1).ParameterAt(1.0 * j / kSteps));
        least = std::min(least, q.DistanceTo(p));
      }
    }
    EXPECT_LE(distance, least + 1e-12);
    EXPECT_GE(distance, least - 0.1);
  }
}

// A roof along y: two planes that meet at x = 1, z = 1.
ON_NurbsSurface Roof() {
  ON_NurbsSurface roof;
  roof.Create({2, 2}, {{{0, 1, 2}, {0, 3}}},
              {{0, 0, 0, 1}, {0, 3, 0, 1}, {1, 0, 1, 1}, {1, 3, 1, 1}, {2, 0, 0, 1}, {2, 3, 0, 1}},
              false);
  return roof;
}

TEST(ClosestSurfacePoint, MayLieOnACrease) {
  const ON_SurfacePoint ridge = Closest(Roof(), {1.2, 2.1, 5});
  ExpectPointsAgree({1, 2.1, 1}, ridge.point, 1e-9);
  EXPECT_NEAR(ridge.u, 1, 1e-9);
  ExpectPointsAgree({1.5, 1, 0.5}, Closest(Roof(), {2, 1, 1}).point, 1e-9);
  ExpectPointsAgree({0.5, 1, 0.5}, Closest(Roof(), {0.9, 1, 0.1}).point, 1e-9);
  // From the ridge it goes down on either side.
  ExpectPointsAgree({0.8, 1, 0.8}, Closest(Roof(), {0.9, 1, 0.7}).point, 1e-9);
  ExpectPointsAgree({1.2, 1, 0.8}, Closest(Roof(), {1.1, 1, 0.7}).point, 1e-9);
}

// A folded strip that runs askew: the closest point of the coarse grid stands on another fold.
TEST(ClosestSurfacePoint, IsReachedAcrossCreases) {
  ON_NurbsSurface strip;
  ON_SimpleArray<ON_4dPoint> cvs;
  constexpr int kFolds = 12;
  std::vector<double> knots;
  for (int i = 0; i <= kFolds; ++i) {
    knots.push_back(i);
    const double x = i, z = i % 2 == 0 ? 0 : 0.1;
    cvs.push_back({x, 0, z, 1});
    cvs.push_back({x + 40, 30, z, 1});
  }
  strip.Create({2, 2}, {{{knots.begin(), knots.end()}, {0, 1}}}, std::move(cvs), false);
  ASSERT_TRUE(strip.IsValid());
  for (double u = 0.125; u < kFolds; u += 0.5) {
    for (double v = 0.0625; v < 1; v += 0.125) {
      const ON_3dPoint p = strip.PointAt(u, v);
      EXPECT_NEAR(Closest(strip, p).point.DistanceTo(p), 0, 1e-9) << u << ' ' << v;
    }
  }
}

// Those at the two ends are skewed.
TEST(ClosestSurfacePoint, IsFoundAmongManyBumps) {
  constexpr int kBumps = 40;
  std::vector<double> knots{0, 0};
  ON_SimpleArray<ON_4dPoint> cvs;
  for (int i = 0; i <= 2 * kBumps; ++i) {
    knots.push_back(i < 2 * kBumps - 1 ? i + 1 : 2 * kBumps - 1);
    const double x = i, z = i % 2 == 0 ? 0 : 3;
    cvs.push_back({x, 0, z, 1});
    cvs.push_back({x, 1, z, 1});
  }
  knots.resize(static_cast<std::size_t>(2 * kBumps + 2), knots.back());
  ON_NurbsSurface surface;
  surface.Create({3, 2}, {{{knots.begin(), knots.end()}, {0, 1}}}, std::move(cvs), false);
  ASSERT_TRUE(surface.IsValid());
  for (int i = 3; i < 2 * kBumps - 1; i += 6) {
    const ON_SurfacePoint found = Closest(surface, {static_cast<double>(i), 0.5, 9});
    EXPECT_NEAR(found.point.x, i, 1e-6);
    EXPECT_NEAR(found.point.y, 0.5, 1e-9);
  }
}

TEST(ClosestSurfacePoint, IsLookedForInThePartThatIsAskedFor) {
  const ON_RevSurface cylinder = Cylinder();
  const auto found = ON_ClosestSurfacePoints(cylinder, {{{0, kPi / 2}, {1, 2}}}, {-5, 1, 9});
  ExpectPointsAgree({0, 2, 2}, found.front().point, 1e-8);
}

// On the axis, points of both sides and of all around are as far.
TEST(ClosestSurfacePoint, SeveralAreGivenTheClosestFirst) {
  const auto found = ON_ClosestSurfacePoints(Roof(), {{{0, 2}, {0, 3}}}, {1, 1, -1});
  ASSERT_GE(found.size(), 2U);
  for (std::size_t i = 1; i < found.size(); ++i) {
    EXPECT_LE(found[i - 1].point.DistanceTo({1, 1, -1}), found[i].point.DistanceTo({1, 1, -1}));
  }
  EXPECT_NEAR(found[0].point.DistanceTo({1, 1, -1}), std::sqrt(2), 1e-9);
}

TEST(ClosestSurfacePoint, ThereIsOneForEveryPoint) {
  constexpr double kFar = std::numeric_limits<double>::max();
  for (const ON_3dPoint& p :
       {ON_3dPoint{kFar, 0, 0}, {1e200, -1e200, 1}, {kFar, kFar, -kFar}, {1e-320, 0, 0}}) {
    const ON_SurfacePoint found = Closest(Sphere(), p);
    EXPECT_NEAR(found.point.DistanceTo({0, 0, 0}), 2, 1e-9);
  }
}

}  // namespace
