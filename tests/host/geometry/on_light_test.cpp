#include "host/geometry/on_light.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

ON_Light Spot(double angle, double hotspot, double exponent = 7) {
  ON_Light light;
  light.m_style = ON_LightStyle::world_spot;
  light.m_spot_angle = angle;
  light.m_hotspot = hotspot;
  light.m_spot_exponent = exponent;
  return light;
}

TEST(Light, ASpotsAngleIsTakenInRadians) {
  EXPECT_DOUBLE_EQ(Spot(30, 1).SpotAngleRadians(), std::numbers::pi / 6);
  EXPECT_DOUBLE_EQ(Spot(180, 1).SpotAngleRadians(), std::numbers::pi);
  EXPECT_EQ(Spot(0, 1).SpotAngleRadians(), 0);
}

TEST(Light, AHotSpotGivesTheExponentThatLeavesHalfOfThePowerAtItsRim) {
  for (const double angle : {10.0, 30.0, 45.0, 90.0}) {
    for (const double hotspot : {0.015, 0.2, 0.5, 0.99}) {
      const ON_Light light = Spot(angle, hotspot);
      const double rim = std::cos(hotspot * light.SpotAngleRadians());
      EXPECT_NEAR(std::pow(rim, light.SpotExponent()), std::sqrt(0.5), 1e-9)
          << angle << " " << hotspot;
    }
  }
}

TEST(Light, AHotSpotOfAPointCountsAsASmallOne) {
  EXPECT_EQ(Spot(30, 0).SpotExponent(), Spot(30, 0.015).SpotExponent());
  EXPECT_GT(Spot(30, 0).SpotExponent(), 10000);
}

// cos(x)^e is exp(-e x^2 / 2) for a small x, and the square root of a half is exp(-log(2) / 2).
TEST(Light, ANarrowHotSpotFadesFast) {
  for (const double angle : {1e-3, 1e-6, 1e-9, 1e-12}) {
    const double rim = 0.5 * Spot(angle, 0.5).SpotAngleRadians();
    const double expected = std::numbers::ln2 / (rim * rim);
    EXPECT_NEAR(Spot(angle, 0.5).SpotExponent() / expected, 1, 1e-9) << angle;
  }
  for (const double angle : {1e-20, 1e-200, std::numeric_limits<double>::denorm_min()}) {
    EXPECT_EQ(Spot(angle, 0.5).SpotExponent(), 1e30) << angle;
  }
}

TEST(Light, AHotSpotAsWideAsTheSpotGivesNoFading) {
  EXPECT_EQ(Spot(30, 1).SpotExponent(), 0);
  for (const double angle : {0.0, -30.0, 90.5, 180.0}) {
    EXPECT_EQ(Spot(angle, 0.5).SpotExponent(), 0) << angle;
  }
}

TEST(Light, WithoutAHotSpotTheExponentIsTheStoredOne) {
  for (const double hotspot : {ON_UNSET_VALUE, -0.5, 1.5, std::nan("")}) {
    EXPECT_EQ(Spot(30, hotspot, 16).SpotExponent(), 16) << hotspot;
  }
}

TEST(Light, IsASpotOrNot) {
  using enum ON_LightStyle;
  ON_Light light;
  for (const ON_LightStyle style :
       {unknown, camera_directional, camera_point, camera_spot, world_directional, world_point,
        world_spot, ambient, world_linear, world_rectangular}) {
    light.m_style = style;
    EXPECT_EQ(light.Style(), style);
    EXPECT_EQ(light.IsSpotLight(), style == camera_spot || style == world_spot);
  }
}

}  // namespace
