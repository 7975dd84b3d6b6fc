#include <gtest/gtest.h>

#include "annotation_samples.h"

namespace {

using Type = ON_Annotation::Type;
using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;

ON_Annotation Sample() {
  return MakeAnnotation(Type::leader, {{0, 0}, {3, 4}, {9, 4}}, "see here");
}

TEST(Leader, ItsLinesGoFromPointToPoint) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {0, 0, 0}, {3, 4, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {3, 4, 0}, {9, 4, 0})) << ToText(drawing);
  EXPECT_EQ(drawing.lines.size(), 2u);
}

TEST(Leader, ItsArrowIsAtTheFirstPoint) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  ASSERT_EQ(drawing.areas.size(), 1u);
  const auto corners = CornersOf(*drawing.areas[0]);
  ExpectPoint({0, 0, 0}, corners.at(0));
  const ON_3dPoint base = corners.at(1) + (corners.at(2) - corners.at(1)) * 0.5;
  ExpectPoint({0.9, 1.2, 0}, base);
}

TEST(Leader, ItsTextBeginsBehindTheLastPoint) {
  const ON_TextEntity2 text = Draw(Sample(), SampleStyle()).texts.at(0);
  EXPECT_EQ(text.m_text, "see here");
  ExpectPoint({9.5, 4, 0}, text.m_plane.origin);
  EXPECT_EQ(text.m_halign, H::left);
  EXPECT_EQ(text.m_valign, V::middle_of_top);
}

TEST(Leader, ATextOnTheLeftEndsAtTheLastPoint) {
  const ON_TextEntity2 text =
      Draw(MakeAnnotation(Type::leader, {{0, 0}, {-3, 4}}, "left"), SampleStyle()).texts.at(0);
  ExpectPoint({-3.5, 4, 0}, text.m_plane.origin);
  EXPECT_EQ(text.m_halign, H::right);
}

TEST(Leader, TheStyleSaysAtWhichHeightOfTheTextItEnds) {
  ON_DimStyle style = SampleStyle();
  style.m_leadertextvalign = 3;
  EXPECT_EQ(Draw(Sample(), style).texts.at(0).m_valign, V::middle);
  style.m_leadertextvalign = 99;
  EXPECT_EQ(Draw(Sample(), style).texts.at(0).m_valign, V::bottom_of_bounding_box);
}

TEST(Leader, ALandingGoesOnHorizontally) {
  ON_DimStyle style = SampleStyle();
  style.m_leaderlanding = true;
  style.m_leaderlandinglength = 2;
  style.m_dimscale = 2;
  const Drawing drawing = Draw(MakeAnnotation(Type::leader, {{0, 0}, {-3, 4}}, "left"), style);
  EXPECT_TRUE(HasLine(drawing, {-3, 4, 0}, {-7, 4, 0})) << ToText(drawing);
  ExpectPoint({-8, 4, 0}, drawing.texts.at(0).m_plane.origin);
}

TEST(Leader, ATextMayFollowTheLastLine) {
  ON_DimStyle style = SampleStyle();
  style.m_leadertexthorizontal = false;
  const ON_TextEntity2 text =
      Draw(MakeAnnotation(Type::leader, {{0, 0}, {-3, 4}}, "up"), style).texts.at(0);
  // Readable, so that it ends at the line.
  EXPECT_NEAR(text.m_plane.xaxis.x, 0.6, 1e-12);
  EXPECT_NEAR(text.m_plane.xaxis.y, -0.8, 1e-12);
  EXPECT_EQ(text.m_halign, H::right);
  ExpectPoint({-3.3, 4.4, 0}, text.m_plane.origin);
}

TEST(Leader, OneWithoutATextIsItsLines) {
  ON_Annotation bare = Sample();
  bare.m_text.clear();
  const Drawing drawing = Draw(bare, SampleStyle());
  EXPECT_TRUE(drawing.texts.empty());
  EXPECT_EQ(drawing.lines.size(), 2u);
}

TEST(Leader, ASmoothOneRunsThroughItsPoints) {
  ON_DimStyle style = SampleStyle();
  style.m_leadercurve = 2;
  const Drawing drawing = Draw(Sample(), style);
  EXPECT_TRUE(drawing.lines.empty());
  ASSERT_EQ(drawing.arcs.size(), 1u);
  const ON_Curve& curve = *drawing.arcs[0];
  ExpectPoint({0, 0, 0}, curve.PointAt(0));
  ExpectPoint({3, 4, 0}, curve.PointAt(1));
  ExpectPoint({9, 4, 0}, curve.PointAt(2));
  style.m_leadercurve = 0;
  EXPECT_TRUE(Draw(Sample(), style).arcs.empty());
  EXPECT_TRUE(Draw(Sample(), style).lines.empty());
}

TEST(Leader, PointsThatCoincideAreOne) {
  const Drawing drawing =
      Draw(MakeAnnotation(Type::leader, {{0, 0}, {0, 0}, {3, 4}, {3, 4}}, "twice"), SampleStyle());
  EXPECT_EQ(drawing.lines.size(), 1u);
  EXPECT_EQ(drawing.areas.size(), 1u);
  ExpectPoint({3.5, 4, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_TRUE(Draw(MakeAnnotation(Type::leader, {{1, 1}, {1, 1}}, "x"), SampleStyle()).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::leader, {{1, 1}}, "x"), SampleStyle()).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::leader, {}, "x"), SampleStyle()).IsEmpty());
}

TEST(Leader, AClosedOneIsNotFilled) {
  const Drawing drawing =
      Draw(MakeAnnotation(Type::leader, {{0, 0}, {9, 0}, {9, 9}, {0, 0}}, ""), SampleStyle());
  EXPECT_EQ(drawing.lines.size(), 3u);
  EXPECT_EQ(drawing.areas.size(), 1u);
}

}  // namespace
