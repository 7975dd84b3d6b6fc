#include <gtest/gtest.h>

#include <limits>

#include "host/geometry/on_bounding_box.h"
#include "host/geometry/on_color.h"
#include "host/geometry/on_line.h"
#include "host/geometry/on_xform.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

ON_Xform Translation(double x, double y, double z) {
  ON_Xform xform;
  xform.m_xform[0][3] = x;
  xform.m_xform[1][3] = y;
  xform.m_xform[2][3] = z;
  return xform;
}

// A quarter turn about the z axis.
ON_Xform QuarterTurn() {
  ON_Xform xform;
  xform.m_xform[0] = {0, -1, 0, 0};
  xform.m_xform[1] = {1, 0, 0, 0};
  return xform;
}

TEST(BoundingBox, ADefaultOneIsEmpty) {
  EXPECT_FALSE(ON_BoundingBox().IsValid());
  EXPECT_FALSE(ON_BoundingBox().Transformed(Translation(1, 2, 3)).IsValid());
}

TEST(BoundingBox, OnePointIsAValidBox) {
  ON_BoundingBox box;
  box.Include(ON_3dPoint{1, 2, 3});
  EXPECT_TRUE(box.IsValid());
  EXPECT_EQ(box.m_min, (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(box.m_max, (ON_3dPoint{1, 2, 3}));
}

TEST(BoundingBox, GrowsByPointsAndBoxes) {
  ON_BoundingBox box;
  box.Include(ON_3dPoint{1, 2, 3});
  box.Include(ON_3dPoint{-1, 5, 3});
  box.Include(ON_BoundingBox{{0, 0, 0}, {0, 0, 9}});
  box.Include(ON_BoundingBox());
  box.Include(ON_3dPoint{kNan, 0, 0});
  box.Include(ON_3dPoint{0, kInfinity, 0});
  EXPECT_EQ(box.m_min, (ON_3dPoint{-1, 0, 0}));
  EXPECT_EQ(box.m_max, (ON_3dPoint{1, 5, 9}));
}

TEST(BoundingBox, UnlimitedOrUndefinedOnesAreNotValid) {
  EXPECT_FALSE((ON_BoundingBox{{0, 0, 0}, {1, 1, kInfinity}}).IsValid());
  EXPECT_FALSE((ON_BoundingBox{{0, -kInfinity, 0}, {1, 1, 1}}).IsValid());
  EXPECT_FALSE((ON_BoundingBox{{kNan, 0, 0}, {1, 1, 1}}).IsValid());
  EXPECT_FALSE((ON_BoundingBox{{0, 2, 0}, {1, 1, 1}}).IsValid());
}

TEST(BoundingBox, CornersRunThroughXFirst) {
  const auto corners = ON_BoundingBox{{0, 0, 0}, {1, 2, 3}}.GetCorners();
  EXPECT_EQ(corners[0], (ON_3dPoint{0, 0, 0}));
  EXPECT_EQ(corners[1], (ON_3dPoint{1, 0, 0}));
  EXPECT_EQ(corners[2], (ON_3dPoint{0, 2, 0}));
  EXPECT_EQ(corners[4], (ON_3dPoint{0, 0, 3}));
  EXPECT_EQ(corners[7], (ON_3dPoint{1, 2, 3}));
}

TEST(BoundingBox, ATransformedOneHoldsAllCorners) {
  const ON_BoundingBox box = ON_BoundingBox{{1, 2, 3}, {2, 4, 6}}.Transformed(QuarterTurn());
  EXPECT_EQ(box.m_min, (ON_3dPoint{-4, 1, 3}));
  EXPECT_EQ(box.m_max, (ON_3dPoint{-2, 2, 6}));
}

TEST(Xform, TheRightOneOfAProductActsFirst) {
  const ON_3dPoint p{1, 0, 0};
  EXPECT_EQ(Translation(5, 0, 0) * QuarterTurn() * p, (ON_3dPoint{5, 1, 0}));
  EXPECT_EQ(QuarterTurn() * Translation(5, 0, 0) * p, (ON_3dPoint{0, 6, 0}));
  EXPECT_EQ(ON_Xform() * p, p);
}

TEST(Xform, APointIsDividedByItsFourthCoordinate) {
  ON_Xform xform;
  xform.m_xform[3] = {0, 0, 0, 2};
  EXPECT_EQ((xform * ON_3dPoint{2, 4, 6}), (ON_3dPoint{1, 2, 3}));
  xform.m_xform[3] = {0, 0, 0, 0};
  EXPECT_EQ((xform * ON_3dPoint{2, 4, 6}), (ON_3dPoint{2, 4, 6}));
}

TEST(Line, TheClosestPointMayLieBeyondTheEnds) {
  const ON_Line line{{0, 0, 0}, {10, 0, 0}};
  EXPECT_EQ(line.ClosestPointTo({5, 3, -2}), 0.5);
  EXPECT_EQ(line.ClosestPointTo({-10, 1, 1}), -1);
  EXPECT_EQ(line.ClosestPointTo({25, 0, 0}), 2.5);
}

TEST(Line, AllPointsAreNearestToTheStartOfALineWithoutLength) {
  EXPECT_EQ((ON_Line{{1, 1, 1}, {1, 1, 1}}.ClosestPointTo({5, 3, -2})), 0);
}

TEST(Color, FractionsAreRoundedAndHeld) {
  ON_Color color(1, 2, 3, 200);
  color.SetFractionalRGB(0.5, -1, 2);
  EXPECT_EQ(color, ON_Color(128, 0, 255));
  color.SetFractionalRGB(kNan, kInfinity, 1.0 / 255);
  EXPECT_EQ(color, ON_Color(0, 255, 1));
}

TEST(Color, EveryStepComesBackFromItsFraction) {
  for (int step = 0; step < 256; ++step) {
    const ON_Color from(step, 0, 255 - step);
    ON_Color to;
    to.SetFractionalRGB(from.FractionRed(), from.FractionGreen(), from.FractionBlue());
    EXPECT_EQ(to, from);
  }
}

}  // namespace
