#include "host/geometry/on_viewport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

ON_Viewport WithFrustum(ON_Viewport::Frustum frustum) {
  ON_Viewport viewport;
  viewport.m_projection = ON_Viewport::View::perspective;
  viewport.m_frustum = frustum;
  return viewport;
}

void ExpectNear(ON_3dVector a, ON_3dVector b) {
  EXPECT_NEAR(a.x, b.x, 1e-14);
  EXPECT_NEAR(a.y, b.y, 1e-14);
  EXPECT_NEAR(a.z, b.z, 1e-14);
}

TEST(Viewport, APortraitPerspectiveMeasuresItsWidth) {
  const ON_Viewport viewport =
      WithFrustum({-42.11478031959246, 42.11478031959246, -56.6929735071437, 56.6929735071437,
                   175.47825133163525, 336.0133270957613});
  const ON_Viewport::Angles angles = viewport.GetHalfAngles();
  EXPECT_NEAR(angles.diagonal, 0.3826302342244159, 1e-14);
  EXPECT_NEAR(angles.vertical, 0.31249155973451914, 1e-14);
  EXPECT_NEAR(angles.horizontal, 0.23554498072086336, 1e-14);
  EXPECT_NEAR(viewport.GetCameraAngle(), 0.23554498072086336, 1e-14);
  EXPECT_NEAR(viewport.Camera35mmLensLength(), 50, 1e-12);
}

TEST(Viewport, ALandscapePerspectiveMeasuresItsHeight) {
  const ON_Viewport viewport =
      WithFrustum({-86.01373548912471, 86.01373548912471, -57.2376594479733, 57.2376594479733,
                   238.490247699889, 414.0954021408882});
  const ON_Viewport::Angles angles = viewport.GetHalfAngles();
  EXPECT_NEAR(angles.diagonal, 0.40880812476218886, 1e-14);
  EXPECT_NEAR(angles.vertical, 0.2355449807208631, 1e-14);
  EXPECT_NEAR(angles.horizontal, 0.3461391518162072, 1e-14);
  EXPECT_NEAR(viewport.GetCameraAngle(), 0.2355449807208631, 1e-14);
  EXPECT_NEAR(viewport.Camera35mmLensLength(), 50.00000000000006, 1e-12);
}

TEST(Viewport, OfAnOffCentreFrustumTheLargerSidesCount) {
  const ON_Viewport viewport = WithFrustum({-1, 3, -0.5, 2, 4, 400});
  const ON_Viewport::Angles angles = viewport.GetHalfAngles();
  EXPECT_NEAR(angles.diagonal, 0.7335813236400831, 1e-15);
  EXPECT_NEAR(angles.vertical, 0.4636476090008061, 1e-15);
  EXPECT_NEAR(angles.horizontal, 0.6435011087932844, 1e-15);
  EXPECT_NEAR(viewport.GetCameraAngle(), 0.4636476090008061, 1e-15);
  EXPECT_EQ(viewport.Camera35mmLensLength(), 24);
}

TEST(Viewport, AParallelViewHasTheAnglesOfItsFrustum) {
  ON_Viewport viewport = WithFrustum({-26.666666666666664, 26.666666666666664, -20, 20, 0.1, 500});
  viewport.m_projection = ON_Viewport::View::parallel;
  const ON_Viewport::Angles angles = viewport.GetHalfAngles();
  EXPECT_NEAR(angles.diagonal, 1.5677963357948481, 1e-15);
  EXPECT_NEAR(angles.vertical, 1.5657963684609384, 1e-15);
  EXPECT_NEAR(angles.horizontal, 1.5670463443728733, 1e-15);
  EXPECT_NEAR(viewport.Camera35mmLensLength(), 0.06, 1e-15);
}

TEST(Viewport, AnAngleNeedsANearDistance) {
  EXPECT_EQ(WithFrustum({-1, 1, -1, 1, 0, 10}).GetCameraAngle(), 0);
  EXPECT_EQ(WithFrustum({-1, 1, -1, 1, -5, 10}).GetHalfAngles().diagonal, 0);
  EXPECT_EQ(WithFrustum({0, 0, 0, 0, 1, 10}).Camera35mmLensLength(), 0);
}

TEST(Viewport, TheFrameFollowsDirectionAndUp) {
  ON_Viewport viewport;
  ASSERT_TRUE(viewport.SetCameraFrame({1, 2, 3}, {0, 5, 0}, {0, 1, 2}));
  EXPECT_EQ(viewport.CameraLocation(), (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(viewport.CameraDirection(), (ON_3dVector{0, 5, 0}));
  EXPECT_EQ(viewport.CameraUp(), (ON_3dVector{0, 1, 2}));
  ExpectNear(viewport.CameraX(), {1, 0, 0});
  ExpectNear(viewport.CameraY(), {0, 0, 1});
  ExpectNear(viewport.CameraZ(), {0, -1, 0});
}

TEST(Viewport, TheFrameIsThatOfASavedDocument) {
  ON_Viewport viewport;
  ASSERT_TRUE(
      viewport.SetCameraFrame({124.43110056644387, -174.49737526136653, 186.8362129093207},
                              {-0.45245434570849274, 0.6888149789859053, -0.5664088538980887},
                              {-0.3109653718508861, 0.473412639547981, 0.8241243900200099}));
  ExpectNear(viewport.CameraX(), {0.8358143349806461, 0.5490122015409676, 0});
  ExpectNear(viewport.CameraY(), {-0.3109653718508861, 0.473412639547981, 0.8241243900200099});
  ExpectNear(viewport.CameraZ(), {0.45245434570849274, -0.6888149789859053, 0.5664088538980887});
}

TEST(Viewport, RefusesAFrameWithoutSides) {
  ON_Viewport viewport;
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(viewport.SetCameraFrame({9, 9, 9}, {0, 0, -2}, {0, 0, 1}));
  EXPECT_FALSE(viewport.SetCameraFrame({9, 9, 9}, {0, 0, 0}, {0, 0, 1}));
  EXPECT_FALSE(viewport.SetCameraFrame({9, 9, 9}, {1, 0, 0}, {0, 0, 0}));
  EXPECT_FALSE(viewport.SetCameraFrame({9, 9, 9}, {kInfinity, 0, 0}, {0, 0, 1}));
  EXPECT_EQ(viewport.CameraLocation(), (ON_3dPoint{0, 0, 100}));
  EXPECT_EQ(viewport.CameraZ(), (ON_3dVector{0, 0, 1}));
}

TEST(Viewport, ItsPlanesAreNearAndFarDistanceAway) {
  ON_Viewport viewport = WithFrustum({-1, 3, -0.5, 2, 4, 400});
  ASSERT_TRUE(viewport.SetCameraFrame({1, 2, 3}, {0, 5, 0}, {0, 0, 1}));
  EXPECT_EQ(viewport.GetNearPlane().origin, (ON_3dPoint{1, 6, 3}));
  EXPECT_EQ(viewport.GetFarPlane().origin, (ON_3dPoint{1, 402, 3}));
  EXPECT_EQ(viewport.GetNearPlane().zaxis, viewport.CameraZ());
  EXPECT_EQ(viewport.GetNearPlane().DistanceTo(viewport.CameraLocation()), 4);
  EXPECT_EQ(viewport.GetFarPlane().DistanceTo(viewport.CameraLocation()), 400);
}

}  // namespace
