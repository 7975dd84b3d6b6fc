#include "host/geometry/on_annotation.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "host/geometry/on_point_cloud.h"

namespace {

using Type = ON_Annotation::Type;
constexpr double kPi = std::numbers::pi;

ON_Annotation Make(Type type, std::vector<ON_2dPoint> points) {
  ON_Annotation annotation;
  annotation.m_type = type;
  annotation.m_points = std::move(points);
  return annotation;
}

TEST(Annotation, MeasuresALengthAlongThePlanesXAxis) {
  EXPECT_EQ(Make(Type::linear, {{1, 2}, {-9, 30}, {0, 5}}).Measurement(), 10);
  EXPECT_EQ(Make(Type::aligned, {{0, 0}, {7, 0}, {0, 5}}).Measurement(), 7);
}

TEST(Annotation, MeasuresRadiusAndDiameterOfTheSameCircle) {
  const std::vector<ON_2dPoint> points{{1, 1}, {4, 5}, {8, 9}, {9, 9}};
  EXPECT_EQ(Make(Type::radius, points).Measurement(), 5);
  EXPECT_EQ(Make(Type::diameter, points).Measurement(), 10);
}

TEST(Annotation, MeasuresFromThePlanesOriginToAPoint) {
  ON_Annotation ordinate = Make(Type::ordinate, {{-3, 4}, {-3, 9}});
  EXPECT_EQ(ordinate.Measurement(), 3);
  ordinate.m_measures_x = false;
  EXPECT_EQ(ordinate.Measurement(), 4);
}

TEST(Annotation, AScaledDetailCountsByItsScale) {
  ON_Annotation linear = Make(Type::linear, {{0, 0}, {5, 0}, {0, 1}});
  linear.m_distance_scale = 4;
  EXPECT_EQ(linear.Measurement(), 20);
}

TEST(Annotation, TextsAndLeadersMeasureNothing) {
  EXPECT_EQ(Make(Type::text, {}).Measurement(), 0);
  EXPECT_EQ(Make(Type::leader, {{0, 0}, {5, 5}}).Measurement(), 0);
}

TEST(Annotation, MissingPointsMeasureNothing) {
  for (const Type type :
       {Type::linear, Type::aligned, Type::angular, Type::diameter, Type::radius, Type::ordinate}) {
    EXPECT_EQ(Make(type, {}).Measurement(), 0);
    EXPECT_FALSE(Make(type, {}).MeasuredAngle());
  }
  EXPECT_EQ(Make(Type::linear, {{1, 0}}).Measurement(), 0);
  EXPECT_EQ(Make(Type::angular, {{0, 0}, {1, 0}, {0, 1}}).Measurement(), 0);
}

TEST(Annotation, TheArcTellsWhichAngleIsMeasured) {
  const auto angle = [](ON_2dPoint on_arc) {
    return Make(Type::angular, {{1, 1}, {3, 1}, {1, 4}, {1 + on_arc.x, 1 + on_arc.y}});
  };
  EXPECT_DOUBLE_EQ(angle({1, 1}).Measurement(), kPi / 2);
  EXPECT_EQ(angle({1, 1}).MeasuredAngle()->Min, 0);
  // From the second side on around the back.
  EXPECT_DOUBLE_EQ(angle({-1, -1}).Measurement(), 3 * kPi / 2);
  EXPECT_DOUBLE_EQ(angle({-1, -1}).MeasuredAngle()->Min, kPi / 2);
  // Sides in the other order.
  const ON_Annotation turned = Make(Type::angular, {{0, 0}, {0, 1}, {1, 0}, {1, 1}});
  EXPECT_DOUBLE_EQ(turned.Measurement(), kPi / 2);
  EXPECT_EQ(turned.MeasuredAngle()->Min, 0);
}

TEST(Annotation, AnAngleWithoutDirectionsIsNone) {
  EXPECT_FALSE(Make(Type::angular, {{1, 1}, {1, 1}, {1, 4}, {2, 2}}).MeasuredAngle());
  EXPECT_FALSE(Make(Type::angular, {{1, 1}, {3, 1}, {1, 1}, {2, 2}}).MeasuredAngle());
  EXPECT_FALSE(Make(Type::angular, {{1, 1}, {3, 1}, {1, 4}, {1, 1}}).MeasuredAngle());
}

TEST(Annotation, SidesInOneDirectionMeasureNothingOrTheWhole) {
  EXPECT_EQ(Make(Type::angular, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}).Measurement(), 0);
  EXPECT_DOUBLE_EQ(Make(Type::angular, {{0, 0}, {1, 0}, {2, 0}, {0, 3}}).Measurement(), 2 * kPi);
}

TEST(Annotation, ItsBoxIsThatOfItsPointsInSpace) {
  ON_Annotation leader = Make(Type::leader, {{0, 0}, {2, 3}});
  leader.m_plane = {{0, 0, 5}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}};
  EXPECT_EQ(leader.BoundingBox().m_min, (ON_3dPoint{0, 0, 5}));
  EXPECT_EQ(leader.BoundingBox().m_max, (ON_3dPoint{2, 0, 8}));
  ON_Annotation text;
  text.m_plane.origin = {1, 2, 3};
  EXPECT_EQ(text.BoundingBox().m_min, (ON_3dPoint{1, 2, 3}));
}

TEST(Annotation, ItsOwnStyleComesFirstAndADefaultOneLast) {
  ON_DimStyle of_table;
  of_table.m_textheight = 7;
  ON_Annotation annotation;
  EXPECT_EQ(annotation.DimStyle(nullptr).m_textheight, 1);
  EXPECT_EQ(annotation.DimStyle(&of_table).m_textheight, 7);
  annotation.m_override.emplace().m_textheight = 9;
  EXPECT_EQ(annotation.DimStyle(&of_table).m_textheight, 9);
}

TEST(Annotation, TheDefaultStyleHasTheUsualArrowheads) {
  constexpr int kSolidTriangle = 2;
  const ON_Annotation annotation;
  const ON_DimStyle& style = annotation.DimStyle(nullptr);
  EXPECT_EQ(style.m_arrowtype1, kSolidTriangle);
  EXPECT_EQ(style.m_arrowtype2, kSolidTriangle);
  EXPECT_EQ(style.m_leaderarrowtype, kSolidTriangle);
}

TEST(Annotation, IsValidWithAPlaneAndNumbersAlone) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(Make(Type::leader, {{0, 0}, {1, 1}}).IsValid());
  EXPECT_FALSE(Make(Type::leader, {{0, 0}, {nan, 1}}).IsValid());
  EXPECT_FALSE(Make(Type::leader, {{0, inf}}).IsValid());
  EXPECT_FALSE(Make(Type::leader, {{0, ON_UNSET_VALUE}}).IsValid());
  const auto with = [](auto change) {
    ON_Annotation annotation;
    change(annotation);
    return annotation.IsValid();
  };
  EXPECT_TRUE(with([](ON_Annotation&) {}));
  EXPECT_FALSE(with([&](ON_Annotation& a) { a.m_plane.origin.z = nan; }));
  EXPECT_FALSE(with([&](ON_Annotation& a) { a.m_plane.xaxis.x = inf; }));
  EXPECT_FALSE(with([](ON_Annotation& a) { a.m_plane.xaxis = {0, 0, 0}; }));
  EXPECT_FALSE(with([](ON_Annotation& a) { a.m_plane.xaxis = {2, 0, 0}; }));
  EXPECT_FALSE(with([](ON_Annotation& a) { a.m_plane.yaxis = a.m_plane.xaxis; }));
  EXPECT_FALSE(with([](ON_Annotation& a) { a.m_plane.zaxis = a.m_plane.xaxis; }));
  EXPECT_FALSE(with([&](ON_Annotation& a) { a.m_text_point = ON_2dPoint{nan, 0}; }));
  EXPECT_FALSE(with([&](ON_Annotation& a) { a.m_text_rotation = inf; }));
}

TEST(Annotation, IsCastFromItsOwnKindAlone) {
  const ON_Annotation annotation;
  const ON_Point point;
  EXPECT_EQ(ON_Annotation::Cast(&annotation), &annotation);
  EXPECT_EQ(ON_Annotation::Cast(&point), nullptr);
  EXPECT_EQ(ON_Annotation::Cast(nullptr), nullptr);
  EXPECT_EQ(annotation.ObjectType(), ON_ObjectType::annotation);
}

}  // namespace
