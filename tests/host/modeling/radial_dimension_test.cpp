#include <gtest/gtest.h>

#include <cmath>

#include "annotation_samples.h"

namespace {

using Type = ON_Annotation::Type;
using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;

// A circle of radius 5 around the origin; its line bends at (8, 6) and ends at (10, 6).
ON_Annotation Sample() {
  return MakeAnnotation(Type::radius, {{0, 0}, {4, 3}, {8, 6}, {10, 6}}, "R<>");
}

TEST(RadialDimension, ItsLineGoesFromTheCurveOverTheBendToTheText) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {4, 3, 0}, {8, 6, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {8, 6, 0}, {10, 6, 0})) << ToText(drawing);
}

TEST(RadialDimension, ItsArrowLooksAtTheCurveFromTheLine) {
  const auto arrow = CornersOf(*Draw(Sample(), SampleStyle()).areas.at(0));
  ExpectPoint({4, 3, 0}, arrow.at(0));
  ExpectPoint({4 + 0.8 - 0.15 * -1, 3 + 0.6 - 0.2, 0}, arrow.at(1));
  ON_Annotation inside = Sample();
  inside.m_points[2] = {2, 1.5};
  inside.m_points[3] = {2, 1.5};
  EXPECT_LT(CornersOf(*Draw(inside, SampleStyle()).areas.at(0)).at(1).x, 4);
}

TEST(RadialDimension, ACrossMarksTheCenter) {
  ON_DimStyle style = SampleStyle();
  Drawing drawing = Draw(Sample(), style);
  EXPECT_TRUE(HasLine(drawing, {-0.5, 0, 0}, {0.5, 0, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {0, -0.5, 0}, {0, 0.5, 0})) << ToText(drawing);
  EXPECT_EQ(drawing.lines.size(), 4u);
  style.m_centermarkstyle = 2;
  drawing = Draw(Sample(), style);
  EXPECT_TRUE(HasLine(drawing, {1, 0, 0}, {5.5, 0, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {0, -1, 0}, {0, -5.5, 0})) << ToText(drawing);
  EXPECT_EQ(drawing.lines.size(), 8u);
  style.m_centermarkstyle = 0;
  EXPECT_EQ(Draw(Sample(), style).lines.size(), 2u);
  style.m_centermarkstyle = 1;
  style.m_centermark = 0;
  EXPECT_EQ(Draw(Sample(), style).lines.size(), 2u);
}

TEST(RadialDimension, ItsTextBeginsBehindTheLine) {
  const ON_TextEntity2 text = Draw(Sample(), SampleStyle()).texts.at(0);
  EXPECT_EQ(text.m_text, "R5.0");
  ExpectPoint({10.5, 6, 0}, text.m_plane.origin);
  EXPECT_EQ(text.m_halign, H::left);
  EXPECT_EQ(text.m_valign, V::middle);
}

TEST(RadialDimension, ADiameterHasTwiceTheLength) {
  ON_Annotation diameter = Sample();
  diameter.m_type = Type::diameter;
  diameter.m_text = "Ø<>";
  EXPECT_EQ(Draw(diameter, SampleStyle()).texts.at(0).m_text, "Ø10.0");
}

TEST(RadialDimension, ATextOnTheLeftEndsAtTheLine) {
  const ON_TextEntity2 text =
      Draw(MakeAnnotation(Type::radius, {{0, 0}, {-4, 3}, {-8, 6}, {-10, 6}}), SampleStyle())
          .texts.at(0);
  ExpectPoint({-10.5, 6, 0}, text.m_plane.origin);
  EXPECT_EQ(text.m_halign, H::right);
  EXPECT_EQ(text.m_plane.xaxis, (ON_3dVector{1, 0, 0}));
}

TEST(RadialDimension, ALineThatEndsInItsBendGoesOnToItsSide) {
  ON_Annotation bare = MakeAnnotation(Type::radius, {{0, 0}, {4, 3}, {8, 6}, {8, 6}});
  ExpectPoint({8.5, 6, 0}, Draw(bare, SampleStyle()).texts.at(0).m_plane.origin);
  bare.m_points = {{0, 0}, {-4, 3}, {-8, 6}, {-8, 6}};
  ExpectPoint({-8.5, 6, 0}, Draw(bare, SampleStyle()).texts.at(0).m_plane.origin);
}

TEST(RadialDimension, ATextAboveTheLineIsUnderlined) {
  ON_DimStyle style = SampleStyle();
  style.m_radialtextlocation = 0;
  const Drawing drawing = Draw(Sample(), style);
  EXPECT_TRUE(HasLine(drawing, {10, 6, 0}, {14.5, 6, 0})) << ToText(drawing);
  ExpectPoint({10.5, 6.5, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_EQ(drawing.texts.at(0).m_valign, V::bottom);
}

TEST(RadialDimension, ALandingMakesTheLineLonger) {
  ON_DimStyle style = SampleStyle();
  style.m_leaderlanding = true;
  style.m_leaderlandinglength = 3;
  const Drawing drawing = Draw(Sample(), style);
  EXPECT_TRUE(HasLine(drawing, {10, 6, 0}, {13, 6, 0})) << ToText(drawing);
  ExpectPoint({13.5, 6, 0}, drawing.texts.at(0).m_plane.origin);
}

TEST(RadialDimension, ATextThatFollowsTheLineKeepsItStraight) {
  ON_DimStyle style = SampleStyle();
  style.m_radialtexthorizontal = false;
  ON_Annotation straight = Sample();
  straight.m_points[3] = {8, 6};
  const Drawing drawing = Draw(straight, style);
  EXPECT_TRUE(HasLine(drawing, {4, 3, 0}, {8, 6, 0})) << ToText(drawing);
  ExpectPoint({8.4, 6.3, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_NEAR(drawing.texts.at(0).m_plane.xaxis.x, 0.8, 1e-12);
}

TEST(RadialDimension, OneWithoutARadiusDrawsNothing) {
  const ON_DimStyle style = SampleStyle();
  EXPECT_TRUE(Draw(MakeAnnotation(Type::radius, {}), style).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::radius, {{0, 0}, {4, 3}}), style).IsEmpty());
  EXPECT_TRUE(
      Draw(MakeAnnotation(Type::diameter, {{1, 1}, {1, 1}, {8, 6}, {8, 6}}), style).IsEmpty());
}

TEST(RadialDimension, PointsThatCoincideLeaveWhatCanBeDrawn) {
  const Drawing drawing =
      Draw(MakeAnnotation(Type::radius, {{0, 0}, {4, 3}, {4, 3}, {4, 3}}, "R<>"), SampleStyle());
  EXPECT_EQ(drawing.lines.size(), 2u);
  EXPECT_TRUE(drawing.areas.empty());
  EXPECT_EQ(drawing.texts.size(), 1u);
}

}  // namespace
