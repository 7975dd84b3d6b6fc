#include "host/geometry/on_plane_surface.h"

#include <gtest/gtest.h>

#include <limits>

#include "host/geometry/on_point_cloud.h"
#include "surface_checks.h"

namespace {

// In the plane x = 1, its axes along y and z.
ON_Plane UprightPlane() {
  return {{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};
}

TEST(Plane, HasAnOriginANormalAndPoints) {
  const ON_Plane plane = UprightPlane();
  EXPECT_EQ(plane.Origin(), (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(plane.Normal(), (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(plane.PointAt(4, -5), (ON_3dPoint{1, 6, -2}));
}

TEST(PlaneSurface, ItsBoxHoldsTheRectangle) {
  ON_PlaneSurface surface;
  surface.m_plane = UprightPlane();
  surface.m_extents[0] = {-1, 4};
  surface.m_extents[1] = {10, 20};
  EXPECT_EQ(surface.BoundingBox().m_min, (ON_3dPoint{1, 1, 13}));
  EXPECT_EQ(surface.BoundingBox().m_max, (ON_3dPoint{1, 6, 23}));
}

TEST(PlaneSurface, ItsDomainIsStretchedOverTheRectangle) {
  ON_PlaneSurface surface;
  surface.m_plane = UprightPlane();
  surface.m_domain[0] = {0, 10};
  surface.m_domain[1] = {-3, 3};
  surface.m_extents[0] = {-1, 4};
  surface.m_extents[1] = {10, 20};
  ASSERT_TRUE(surface.IsValid());
  EXPECT_EQ(surface.Domain(1), (ON_Interval{-3, 3}));
  EXPECT_EQ(surface.PointAt(0, -3), (ON_3dPoint{1, 1, 13}));
  EXPECT_EQ(surface.PointAt(10, 3), (ON_3dPoint{1, 6, 23}));
  EXPECT_EQ(surface.PointAt(4, 0), (ON_3dPoint{1, 3, 18}));
  EXPECT_EQ(surface.NormalAt(4, 0), (ON_3dVector{1, 0, 0}));
  ExpectDerivativesAreLimits(surface);
  ExpectFormAgrees(surface);
}

TEST(PlaneSurface, WithoutExtentItIsNotValid) {
  EXPECT_TRUE(ON_PlaneSurface().IsValid());
  const ON_Interval bad[] = {{1, 1}, {2, 1}, {0, std::numeric_limits<double>::infinity()}, {}};
  for (const ON_Interval& interval : bad) {
    for (const int direction : {0, 1}) {
      ON_PlaneSurface surface;
      surface.m_domain[direction] = interval;
      EXPECT_FALSE(surface.IsValid());
      surface = {};
      surface.m_extents[direction] = interval;
      EXPECT_FALSE(surface.IsValid());
    }
  }
  ON_PlaneSurface surface;
  surface.m_plane.xaxis = surface.m_plane.yaxis;
  EXPECT_FALSE(surface.IsValid());
}

TEST(PlaneSurface, SidesThatAreNoNumbersGiveNoBox) {
  ON_PlaneSurface surface;
  for (ON_Interval& side : surface.m_extents) {
    side = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()};
  }
  EXPECT_FALSE(surface.BoundingBox().IsValid());
}

TEST(PlaneSurface, ACastFindsTheKind) {
  const ON_PlaneSurface surface;
  const ON_ClippingPlaneSurface clippingPlane;
  EXPECT_EQ(ON_ClippingPlaneSurface::Cast(&clippingPlane), &clippingPlane);
  EXPECT_EQ(ON_ClippingPlaneSurface::Cast(&surface), nullptr);
  EXPECT_EQ(ON_ClippingPlaneSurface::Cast(nullptr), nullptr);
}

TEST(PlaneSurface, AClippingPlaneIsNoSurfaceThatIsShown) {
  EXPECT_EQ(ON_PlaneSurface().ObjectType(), ON_ObjectType::surface);
  EXPECT_TRUE(ON_PlaneSurface().HasBrepForm());
  EXPECT_EQ(ON_ClippingPlaneSurface().ObjectType(), ON_ObjectType::clipping_plane);
  EXPECT_FALSE(ON_ClippingPlaneSurface().HasBrepForm());
}

}  // namespace
