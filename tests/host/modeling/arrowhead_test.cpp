#include <gtest/gtest.h>

#include "annotation_samples.h"
#include "host/geometry/on_arc_curve.h"

namespace {

// An arrowhead of size 2 whose tip is at (10, 0) and looks to the right.
Drawing Arrowhead(int kind) {
  ON_DimStyle style = SampleStyle();
  style.m_leaderarrowtype = kind;
  style.m_leaderarrowsize = 2;
  style.m_leadercurve = 0;
  return Draw(MakeAnnotation(ON_Annotation::Type::leader, {{10, 0}, {0, 0}}, ""), style);
}

void ExpectCorners(const Drawing& drawing, std::vector<ON_3dPoint> expected) {
  ASSERT_EQ(drawing.areas.size(), 1u);
  EXPECT_TRUE(drawing.lines.empty());
  const std::vector<ON_3dPoint> found = CornersOf(*drawing.areas[0]);
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) ExpectPoint(expected[i], found[i]);
}

TEST(Arrowhead, TrianglesAreFilled) {
  ExpectCorners(Arrowhead(2), {{10, 0, 0}, {8, 0.5, 0}, {8, -0.5, 0}});
  ExpectCorners(Arrowhead(5), {{10, 0, 0}, {9, 1, 0}, {9, -1, 0}});
  ExpectCorners(Arrowhead(8), {{10, 0, 0}, {8, 0.25, 0}, {8, -0.25, 0}});
  ExpectCorners(Arrowhead(9), {{10, 0, 0}, {8, 2.0 / 12, 0}, {8, -2.0 / 12, 0}});
}

TEST(Arrowhead, ARectangleStandsOnOneSideOfTheLine) {
  ExpectCorners(Arrowhead(7), {{10, 0, 0}, {8, 0, 0}, {8, 0.4, 0}, {10, 0.4, 0}});
}

TEST(Arrowhead, ABlockOfTheUsersIsDrawnAsTheUsualTriangle) {
  ExpectCorners(Arrowhead(1), {{10, 0, 0}, {8, 0.5, 0}, {8, -0.5, 0}});
}

TEST(Arrowhead, ADotIsAFilledCircleAroundTheTip) {
  const Drawing drawing = Arrowhead(3);
  ASSERT_EQ(drawing.areas.size(), 1u);
  const ON_ArcCurve* circle = ON_ArcCurve::Cast(drawing.areas[0]);
  ASSERT_NE(circle, nullptr);
  EXPECT_EQ(circle->m_arc.radius, 1);
  ExpectPoint({10, 0, 0}, circle->m_arc.plane.origin);
}

TEST(Arrowhead, ATickIsALineAcross) {
  const Drawing drawing = Arrowhead(4);
  EXPECT_TRUE(drawing.areas.empty());
  ASSERT_EQ(drawing.lines.size(), 1u);
  EXPECT_TRUE(HasLine(drawing, {9, -1, 0}, {11, 1, 0})) << ToText(drawing);
}

TEST(Arrowhead, AnOpenArrowIsTwoLines) {
  const double leg = 2 * 0.7071067811865476;
  const Drawing drawing = Arrowhead(6);
  EXPECT_TRUE(drawing.areas.empty());
  ASSERT_EQ(drawing.lines.size(), 2u);
  EXPECT_TRUE(HasLine(drawing, {10 - leg, leg, 0}, {10, 0, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {10 - leg, -leg, 0}, {10, 0, 0})) << ToText(drawing);
}

TEST(Arrowhead, ThereMayBeNone) {
  for (const int kind : {0, -1, 10, 1000}) EXPECT_TRUE(Arrowhead(kind).IsEmpty()) << kind;
}

}  // namespace
