#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "annotation_samples.h"

namespace {

using Type = ON_Annotation::Type;
using V = ON_Annotation::VerticalAlignment;
constexpr double kPi = std::numbers::pi;

// A right angle around (1, 1) that is told on an arc of radius 20, with sides from 5 on.
ON_Annotation Sample() {
  return MakeAnnotation(Type::angular,
                        {{1, 1}, {6, 1}, {1, 6}, {1 + std::sqrt(200.0), 1 + std::sqrt(200.0)}});
}

ON_3dPoint Polar(double radius, double degrees) {
  const double angle = degrees * kPi / 180;
  return {1 + radius * std::cos(angle), 1 + radius * std::sin(angle), 0};
}

TEST(AngularDimension, ExtensionLinesGoFromBesideThePointsToBeyondTheArc) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {6.25, 1, 0}, {21.75, 1, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {1, 6.25, 0}, {1, 21.75, 0})) << ToText(drawing);
  EXPECT_EQ(drawing.lines.size(), 2u);
}

TEST(AngularDimension, ExtensionLinesComeInwardsToANearerArc) {
  ON_Annotation near = Sample();
  near.m_points[1] = {31, 1};
  const Drawing drawing = Draw(near, SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {30.75, 1, 0}, {20.25, 1, 0})) << ToText(drawing);
}

TEST(AngularDimension, EachExtensionLineMayBeSuppressed) {
  ON_DimStyle style = SampleStyle();
  style.m_suppress_extension1 = true;
  EXPECT_FALSE(HasLine(Draw(Sample(), style), {6.25, 1, 0}, {21.75, 1, 0}));
  EXPECT_TRUE(HasLine(Draw(Sample(), style), {1, 6.25, 0}, {1, 21.75, 0}));
  style.m_suppress_extension2 = true;
  EXPECT_TRUE(Draw(Sample(), style).lines.empty());
}

TEST(AngularDimension, ItsArcRunsFromSideToSide) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  ASSERT_EQ(drawing.arcs.size(), 1u);
  ExpectPoint(Polar(20, 0), drawing.arcs[0]->PointAtStart());
  ExpectPoint(Polar(20, 90), drawing.arcs[0]->PointAtEnd());
  EXPECT_FALSE(drawing.arcs[0]->IsClosed());
}

TEST(AngularDimension, ArrowheadsStandOnTheArc) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  ASSERT_EQ(drawing.areas.size(), 2u);
  const auto first = CornersOf(*drawing.areas[0]);
  ExpectPoint(Polar(20, 0), first[0]);
  // The middle of the base is on the arc, an arrowhead's length away from the tip.
  const ON_3dPoint base = first[1] + (first[2] - first[1]) * 0.5;
  EXPECT_NEAR(base.DistanceTo({1, 1, 0}), 20, 1e-9);
  EXPECT_NEAR(base.DistanceTo(first[0]), 1, 1e-9);
  EXPECT_GT(base.y, 1);
  const auto second = CornersOf(*drawing.areas[1]);
  ExpectPoint(Polar(20, 90), second[0]);
  EXPECT_GT(second[1].x, 1);
}

TEST(AngularDimension, ItsTextStandsOverTheMiddleOfTheArc) {
  const ON_TextEntity2 text = Draw(Sample(), SampleStyle()).texts.at(0);
  EXPECT_EQ(text.m_text, "90°");
  ExpectPoint(Polar(20.5, 45), text.m_plane.origin);
  EXPECT_EQ(text.m_valign, V::bottom);
  // Along the arc, falling to the right.
  EXPECT_NEAR(text.m_plane.xaxis.x, std::sqrt(0.5), 1e-12);
  EXPECT_NEAR(text.m_plane.xaxis.y, -std::sqrt(0.5), 1e-12);
}

TEST(AngularDimension, ATextInTheArcBreaksIt) {
  ON_DimStyle style = SampleStyle();
  style.m_textlocation = 1;
  const Drawing drawing = Draw(Sample(), style);
  // Three letters of 1, half of them and a gap to each side.
  const double gap = 2.0 / 20 * 180 / kPi;
  ASSERT_EQ(drawing.arcs.size(), 2u);
  ExpectPoint(Polar(20, 45 - gap), drawing.arcs[0]->PointAtEnd());
  ExpectPoint(Polar(20, 45 + gap), drawing.arcs[1]->PointAtStart());
  ExpectPoint(Polar(20, 45), drawing.texts.at(0).m_plane.origin);
}

TEST(AngularDimension, AHorizontalTextStandsInTheArc) {
  ON_DimStyle style = SampleStyle();
  style.m_texthorizontal = true;
  const Drawing drawing = Draw(Sample(), style);
  EXPECT_EQ(drawing.arcs.size(), 2u);
  EXPECT_EQ(drawing.texts.at(0).m_plane.xaxis, (ON_3dVector{1, 0, 0}));
}

TEST(AngularDimension, AMovedTextStandsWhereTheUserPutIt) {
  ON_Annotation moved = Sample();
  moved.m_text_point = ON_2dPoint{40, 1};
  const Drawing drawing = Draw(moved, SampleStyle());
  // Its foot is a gap away, upright along the direction around the centre.
  ExpectPoint({39.5, 1, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_NEAR(drawing.texts.at(0).m_plane.xaxis.y, 1, 1e-12);
  EXPECT_EQ(drawing.arcs.size(), 1u);
}

ON_Annotation OfAngle(double radians) {
  ON_Annotation narrow = Sample();
  narrow.m_points[2] = {1 + 5 * std::cos(radians), 1 + 5 * std::sin(radians)};
  narrow.m_points[3] = {1 + 20 * std::cos(radians / 2), 1 + 20 * std::sin(radians / 2)};
  return narrow;
}

TEST(AngularDimension, ArrowsGoOutsideWhereTheTextLeavesNoRoom) {
  // An arc of 4, and a text of 3 with a gap of 0.5.
  const double angle = 0.2;
  const Drawing drawing = Draw(OfAngle(angle), SampleStyle());
  ASSERT_EQ(drawing.areas.size(), 2u);
  const auto first = CornersOf(*drawing.areas[0]);
  ExpectPoint(Polar(20, 0), first[0]);
  EXPECT_LT(first[1].y, 1);
  // Two arrowheads longer at both ends.
  const double beyond = 2.0 / 20;
  ASSERT_EQ(drawing.arcs.size(), 1u);
  ExpectPoint(Polar(20, -beyond * 180 / kPi), drawing.arcs[0]->PointAtStart());
  ExpectPoint(Polar(20, (angle + beyond) * 180 / kPi), drawing.arcs[0]->PointAtEnd());
  const ON_3dPoint middle = Polar(20, angle / 2 * 180 / kPi);
  EXPECT_NEAR(drawing.texts.at(0).m_plane.origin.DistanceTo(middle), 0.5, 1e-9);
}

TEST(AngularDimension, ATextWithoutRoomStandsBesideTheArrow) {
  const Drawing drawing = Draw(OfAngle(0.05), SampleStyle());
  // Half the text, three gaps and the line behind the arrowhead away from the side.
  const double away = (1.0 + 1.5 + 2.0) / 20 * 180 / kPi;
  EXPECT_EQ(drawing.texts.at(0).m_text, "3°");
  EXPECT_NEAR(drawing.texts[0].m_plane.origin.DistanceTo(Polar(20, -away)), 0.5, 1e-9);
  ON_DimStyle style = SampleStyle();
  style.m_textfit = 3;
  const ON_3dPoint left = Polar(20, 0.05 * 180 / kPi + away);
  EXPECT_NEAR(Draw(OfAngle(0.05), style).texts.at(0).m_plane.origin.DistanceTo(left), 0.5, 1e-9);
}

TEST(AngularDimension, AReflexAngleIsDrawnAroundTheBack) {
  ON_Annotation reflex = Sample();
  reflex.m_points[3] = {1 - 20, 1};
  const Drawing drawing = Draw(reflex, SampleStyle());
  EXPECT_EQ(drawing.texts.at(0).m_text, "270°");
  ASSERT_EQ(drawing.arcs.size(), 1u);
  ExpectPoint(Polar(20, 90), drawing.arcs[0]->PointAtStart());
  ExpectPoint(Polar(20, 360), drawing.arcs[0]->PointAtEnd());
  // The first arrow is at the first side, where the arc ends.
  const auto first = CornersOf(*drawing.areas.at(0));
  ExpectPoint(Polar(20, 0), first[0]);
  EXPECT_LT(first[1].y, 1);
}

TEST(AngularDimension, AWholeTurnIsNoDisc) {
  ON_Annotation whole = Sample();
  whole.m_points[2] = {9, 1};
  whole.m_points[3] = {1, 21};
  const Drawing drawing = Draw(whole, SampleStyle());
  EXPECT_EQ(drawing.texts.at(0).m_text, "360°");
  EXPECT_EQ(drawing.arcs.size(), 2u);
  for (const ON_Curve* arc : drawing.arcs) EXPECT_FALSE(arc->IsClosed());
}

TEST(AngularDimension, OneWithoutAnAngleDrawsNothing) {
  const ON_DimStyle style = SampleStyle();
  for (const auto& points :
       std::vector<std::vector<ON_2dPoint>>{{},
                                            {{1, 1}, {6, 1}, {1, 6}},
                                            {{1, 1}, {1, 1}, {1, 6}, {5, 5}},
                                            {{1, 1}, {6, 1}, {1, 6}, {1, 1}},
                                            {{1, 1}, {6, 1}, {8, 1}, {9, 1}}}) {
    EXPECT_TRUE(Draw(MakeAnnotation(Type::angular, points), style).IsEmpty());
  }
}

TEST(AngularDimension, ArrowsLargerThanTheCircleDoNoHarm) {
  ON_DimStyle style = SampleStyle();
  style.m_arrowsize = 1e6;
  style.m_textheight = 1e6;
  Draw(Sample(), style);
  style.m_textlocation = 1;
  Draw(Sample(), style);
  ON_Annotation small = Sample();
  small.m_points = {{0, 0}, {1e-300, 0}, {0, 1e-300}, {1e-300, 1e-300}};
  Draw(small, SampleStyle());
  small.m_points = {{0, 0}, {1e300, 0}, {0, 1e300}, {1e300, 1e300}};
  Draw(small, SampleStyle());
}

}  // namespace
