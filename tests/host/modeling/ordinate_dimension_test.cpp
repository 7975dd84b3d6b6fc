#include <gtest/gtest.h>

#include "annotation_samples.h"

namespace {

using Type = ON_Annotation::Type;
using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;

TEST(OrdinateDimension, ALeaderAcrossTheMeasuredAxisIsStraight) {
  const Drawing drawing = Draw(MakeAnnotation(Type::ordinate, {{7, 2}, {7, 9}}), SampleStyle());
  ASSERT_EQ(drawing.lines.size(), 1u);
  EXPECT_TRUE(HasLine(drawing, {7, 2.25, 0}, {7, 9, 0})) << ToText(drawing);
  EXPECT_TRUE(drawing.areas.empty());
  const ON_TextEntity2& text = drawing.texts.at(0);
  EXPECT_EQ(text.m_text, "7.0");
  ExpectPoint({7, 9.5, 0}, text.m_plane.origin);
  // Read from the right, on behind the leader.
  EXPECT_NEAR(text.m_plane.xaxis.y, 1, 1e-12);
  EXPECT_EQ(text.m_halign, H::left);
  EXPECT_EQ(text.m_valign, V::middle);
}

TEST(OrdinateDimension, ALeaderMayGoDown) {
  const Drawing drawing = Draw(MakeAnnotation(Type::ordinate, {{7, 2}, {7, -9}}), SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {7, 1.75, 0}, {7, -9, 0})) << ToText(drawing);
  ExpectPoint({7, -9.5, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_NEAR(drawing.texts.at(0).m_plane.xaxis.y, 1, 1e-12);
  EXPECT_EQ(drawing.texts.at(0).m_halign, H::right);
}

TEST(OrdinateDimension, TheOtherAxisIsMeasuredSideways) {
  ON_Annotation ordinate = MakeAnnotation(Type::ordinate, {{7, 2}, {-3, 2}});
  ordinate.m_measures_x = false;
  const Drawing drawing = Draw(ordinate, SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {6.75, 2, 0}, {-3, 2, 0})) << ToText(drawing);
  EXPECT_EQ(drawing.texts.at(0).m_text, "2.0");
  ExpectPoint({-3.5, 2, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_EQ(drawing.texts.at(0).m_halign, H::right);
}

TEST(OrdinateDimension, ALeaderToTheSideBends) {
  const Drawing drawing =
      Draw(MakeAnnotation(Type::ordinate, {{7, 2}, {9, 12}, {7, 8}, {9, 10}}), SampleStyle());
  ASSERT_EQ(drawing.lines.size(), 3u);
  EXPECT_TRUE(HasLine(drawing, {7, 2.25, 0}, {7, 8, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {7, 8, 0}, {9, 10, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {9, 10, 0}, {9, 12, 0})) << ToText(drawing);
}

TEST(OrdinateDimension, BendsThatAreNotGivenFollowFromTheText) {
  const Drawing drawing = Draw(MakeAnnotation(Type::ordinate, {{7, 2}, {9, 12}}), SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {7, 2.25, 0}, {7, 9, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {7, 9, 0}, {9, 10, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {9, 10, 0}, {9, 12, 0})) << ToText(drawing);
  ON_Annotation sideways = MakeAnnotation(Type::ordinate, {{0, 0}, {-12, 3}});
  sideways.m_measures_x = false;
  const Drawing turned = Draw(sideways, SampleStyle());
  EXPECT_TRUE(HasLine(turned, {-9, 0, 0}, {-10, 3, 0})) << ToText(turned);
}

TEST(OrdinateDimension, OneWithoutALeaderDrawsNothing) {
  EXPECT_TRUE(Draw(MakeAnnotation(Type::ordinate, {}), SampleStyle()).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::ordinate, {{7, 2}}), SampleStyle()).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::ordinate, {{7, 2}, {7, 2}}), SampleStyle()).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::ordinate, {{7, 2}, {9, 2}}), SampleStyle()).IsEmpty());
}

}  // namespace
