#include <gtest/gtest.h>

#include <limits>

#include "annotation_samples.h"

namespace {

using Type = ON_Annotation::Type;
using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;

// From (0, 0) to (20, 1), with the dimension line at height 5. Its text "20.0" is 4 wide.
ON_Annotation Sample() {
  return MakeAnnotation(Type::linear, {{0, 0}, {20, 1}, {12, 5}});
}

// Too short for a text and two arrowheads, or for a text.
ON_Annotation OfLength(double length) {
  return MakeAnnotation(Type::linear, {{0, 0}, {length, 0}, {0, 5}});
}

TEST(LinearDimension, ExtensionLinesRunFromBesideThePointsToBeyondTheLine) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {0, 0.25, 0}, {0, 5.75, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {20, 1.25, 0}, {20, 5.75, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {0, 5, 0}, {20, 5, 0})) << ToText(drawing);
  EXPECT_EQ(drawing.lines.size(), 3u);
}

TEST(LinearDimension, ALineBelowThePointsIsReachedDownwards) {
  const Drawing drawing =
      Draw(MakeAnnotation(Type::linear, {{0, 0}, {20, 0}, {12, -5}}), SampleStyle());
  EXPECT_TRUE(HasLine(drawing, {0, -0.25, 0}, {0, -5.75, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {0, -5, 0}, {20, -5, 0})) << ToText(drawing);
}

TEST(LinearDimension, EachExtensionLineMayBeSuppressed) {
  ON_DimStyle style = SampleStyle();
  style.m_suppress_extension1 = true;
  EXPECT_FALSE(HasLine(Draw(Sample(), style), {0, 0.25, 0}, {0, 5.75, 0}));
  EXPECT_TRUE(HasLine(Draw(Sample(), style), {20, 1.25, 0}, {20, 5.75, 0}));
  style.m_suppress_extension1 = false;
  style.m_suppress_extension2 = true;
  EXPECT_TRUE(HasLine(Draw(Sample(), style), {0, 0.25, 0}, {0, 5.75, 0}));
  EXPECT_FALSE(HasLine(Draw(Sample(), style), {20, 1.25, 0}, {20, 5.75, 0}));
}

TEST(LinearDimension, ExtensionLinesMayHaveALengthOfTheirOwn) {
  ON_DimStyle style = SampleStyle();
  style.m_fixedextension = true;
  style.m_fixedextensionlength = 2;
  const Drawing drawing = Draw(Sample(), style);
  EXPECT_TRUE(HasLine(drawing, {0, 3, 0}, {0, 5.75, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {20, 3, 0}, {20, 5.75, 0})) << ToText(drawing);
}

TEST(LinearDimension, ArrowheadsFillTheEndsFromInside) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  ASSERT_EQ(drawing.areas.size(), 2u);
  const auto left = CornersOf(*drawing.areas[0]);
  ASSERT_EQ(left.size(), 3u);
  ExpectPoint({0, 5, 0}, left[0]);
  ExpectPoint({1, 4.75, 0}, left[1]);
  ExpectPoint({1, 5.25, 0}, left[2]);
  const auto right = CornersOf(*drawing.areas[1]);
  ExpectPoint({20, 5, 0}, right[0]);
  ExpectPoint({19, 5.25, 0}, right[1]);
}

TEST(LinearDimension, ItsTextStandsOverTheMiddleOfTheLine) {
  const Drawing drawing = Draw(Sample(), SampleStyle());
  ASSERT_EQ(drawing.texts.size(), 1u);
  const ON_TextEntity2& text = drawing.texts[0];
  EXPECT_EQ(text.m_text, "20.0");
  EXPECT_EQ(text.m_height, 2);
  ExpectPoint({10, 5.5, 0}, text.m_plane.origin);
  EXPECT_EQ(text.m_plane.xaxis, (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(text.m_halign, H::center);
  EXPECT_EQ(text.m_valign, V::bottom);
}

TEST(LinearDimension, ATextBelowTheLineHangsFromIt) {
  ON_DimStyle style = SampleStyle();
  style.m_textlocation = 2;
  const ON_TextEntity2 text = Draw(Sample(), style).texts.at(0);
  ExpectPoint({10, 4.5, 0}, text.m_plane.origin);
  EXPECT_EQ(text.m_valign, V::top);
}

TEST(LinearDimension, ATextInTheLineBreaksIt) {
  ON_DimStyle style = SampleStyle();
  style.m_textlocation = 1;
  const Drawing drawing = Draw(Sample(), style);
  EXPECT_TRUE(HasLine(drawing, {0, 5, 0}, {7.5, 5, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {12.5, 5, 0}, {20, 5, 0})) << ToText(drawing);
  EXPECT_EQ(drawing.lines.size(), 4u);
  ExpectPoint({10, 5, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_EQ(drawing.texts.at(0).m_valign, V::middle);
}

TEST(LinearDimension, ItsOwnTextReplacesTheNumber) {
  ON_Annotation own = Sample();
  own.m_text = "wide";
  EXPECT_EQ(Draw(own, SampleStyle()).texts.at(0).m_text, "wide");
  own.m_text.clear();
  const Drawing drawing = Draw(own, SampleStyle());
  EXPECT_TRUE(drawing.texts.empty());
  EXPECT_EQ(drawing.lines.size(), 3u);
}

TEST(LinearDimension, AMovedTextStandsWhereTheUserPutIt) {
  ON_Annotation moved = Sample();
  moved.m_text_point = ON_2dPoint{4, 5};
  ON_DimStyle style = SampleStyle();
  ExpectPoint({4, 5.5, 0}, Draw(moved, style).texts.at(0).m_plane.origin);
  style.m_textlocation = 1;
  Drawing drawing = Draw(moved, style);
  ExpectPoint({4, 5, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_TRUE(HasLine(drawing, {0, 5, 0}, {1.5, 5, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {6.5, 5, 0}, {20, 5, 0})) << ToText(drawing);
  // Far from the line it breaks nothing.
  moved.m_text_point = ON_2dPoint{4, 50};
  drawing = Draw(moved, style);
  ExpectPoint({4, 50, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_TRUE(HasLine(drawing, {0, 5, 0}, {20, 5, 0})) << ToText(drawing);
}

TEST(LinearDimension, TheLineReachesATextThatWasMovedBesideIt) {
  ON_Annotation moved = Sample();
  moved.m_text_point = ON_2dPoint{30, 5};
  EXPECT_TRUE(HasLine(Draw(moved, SampleStyle()), {0, 5, 0}, {32, 5, 0}));
  ON_DimStyle style = SampleStyle();
  style.m_textlocation = 1;
  EXPECT_TRUE(HasLine(Draw(moved, style), {0, 5, 0}, {27.5, 5, 0}));
  moved.m_text_point = ON_2dPoint{-10, 5};
  EXPECT_TRUE(HasLine(Draw(moved, style), {-7.5, 5, 0}, {20, 5, 0}));
}

TEST(LinearDimension, ArrowsGoOutsideWhereTheTextLeavesNoRoom) {
  // The text is 3 wide with a gap of 0.5; two arrowheads need 2.2.
  const Drawing drawing = Draw(OfLength(5), SampleStyle());
  ASSERT_EQ(drawing.areas.size(), 2u);
  const auto left = CornersOf(*drawing.areas[0]);
  ExpectPoint({0, 5, 0}, left[0]);
  ExpectPoint({-1, 5.25, 0}, left[1]);
  const auto right = CornersOf(*drawing.areas[1]);
  ExpectPoint({5, 5, 0}, right[0]);
  ExpectPoint({6, 4.75, 0}, right[1]);
  EXPECT_TRUE(HasLine(drawing, {-2, 5, 0}, {7, 5, 0})) << ToText(drawing);
  ExpectPoint({2.5, 5.5, 0}, drawing.texts.at(0).m_plane.origin);
}

TEST(LinearDimension, TextAndArrowsGoOutsideWhereNeitherHasRoom) {
  const Drawing drawing = Draw(OfLength(1), SampleStyle());
  ExpectPoint({-1, 5.25, 0}, CornersOf(*drawing.areas.at(0))[1]);
  // Half the text, three gaps and an arrowhead away.
  ExpectPoint({1 + 1.5 + 1.5 + 1.1, 5.5, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_TRUE(HasLine(drawing, {-2, 5, 0}, {6.6, 5, 0})) << ToText(drawing);
}

TEST(LinearDimension, OnlyTheTextGoesOutsideWhereTheArrowsHaveRoom) {
  ON_Annotation wide = OfLength(5);
  wide.m_text = "a long text";
  const Drawing drawing = Draw(wide, SampleStyle());
  ExpectPoint({1, 4.75, 0}, CornersOf(*drawing.areas.at(0))[1]);
  ExpectPoint({5 + 5.5 + 1.5, 5.5, 0}, drawing.texts.at(0).m_plane.origin);
}

TEST(LinearDimension, TheStyleMaySayWhatStandsOutside) {
  ON_DimStyle style = SampleStyle();
  style.m_arrowfit = 2;
  ExpectPoint({-1, 5.25, 0}, CornersOf(*Draw(Sample(), style).areas.at(0))[1]);
  style.m_arrowfit = 1;
  ExpectPoint({1, 4.75, 0}, CornersOf(*Draw(OfLength(1), style).areas.at(0))[1]);
  style = SampleStyle();
  style.m_textfit = 1;
  ExpectPoint({0.5, 5.5, 0}, Draw(OfLength(1), style).texts.at(0).m_plane.origin);
  style.m_textfit = 2;
  ExpectPoint({20 + 2 + 1.5, 5.5, 0}, Draw(Sample(), style).texts.at(0).m_plane.origin);
  style.m_textfit = 3;
  ExpectPoint({-2 - 1.5, 5.5, 0}, Draw(Sample(), style).texts.at(0).m_plane.origin);
  style.m_textfit = 5;
  ExpectPoint({10, 5.5, 0}, Draw(Sample(), style).texts.at(0).m_plane.origin);
  ExpectPoint({-1.5 - 1.5 - 1.1, 5.5, 0}, Draw(OfLength(1), style).texts.at(0).m_plane.origin);
}

TEST(LinearDimension, DotsAndTicksNeedNoRoom) {
  ON_DimStyle style = SampleStyle();
  style.m_arrowtype1 = 4;
  style.m_arrowtype2 = 3;
  style.m_dimextension = 0.5;
  const Drawing drawing = Draw(OfLength(4), style);
  EXPECT_TRUE(HasLine(drawing, {-0.5, 5, 0}, {4.5, 5, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {-0.5, 4.5, 0}, {0.5, 5.5, 0})) << ToText(drawing);
  ASSERT_EQ(drawing.areas.size(), 1u);
  ExpectPoint({4, 5, 0}, CenterOf(*drawing.areas[0]));
}

TEST(LinearDimension, ArrowheadsMayBeSuppressed) {
  ON_DimStyle style = SampleStyle();
  style.m_suppress_arrow1 = true;
  const Drawing drawing = Draw(Sample(), style);
  ASSERT_EQ(drawing.areas.size(), 1u);
  ExpectPoint({20, 5, 0}, CornersOf(*drawing.areas[0])[0]);
  style.m_suppress_arrow2 = true;
  EXPECT_TRUE(Draw(Sample(), style).areas.empty());
}

TEST(LinearDimension, ArrowheadsBelongToTheirPointsWhicheverIsLeft) {
  ON_DimStyle style = SampleStyle();
  style.m_arrowtype2 = 3;
  const Drawing drawing = Draw(MakeAnnotation(Type::linear, {{0, 0}, {-20, 0}, {0, 5}}), style);
  ASSERT_EQ(drawing.areas.size(), 2u);
  ExpectPoint({0, 5, 0}, CornersOf(*drawing.areas[0])[0]);
  ExpectPoint({-1, 5.25, 0}, CornersOf(*drawing.areas[0])[1]);
  ExpectPoint({-20, 5, 0}, CenterOf(*drawing.areas[1]));
}

TEST(LinearDimension, TheScaleOfTheStyleMultipliesItsSizes) {
  ON_DimStyle style = SampleStyle();
  style.m_dimscale = 2;
  const Drawing drawing = Draw(MakeAnnotation(Type::linear, {{0, 0}, {40, 0}, {0, 10}}), style);
  EXPECT_TRUE(HasLine(drawing, {0, 0.5, 0}, {0, 11.5, 0})) << ToText(drawing);
  ExpectPoint({2, 9.5, 0}, CornersOf(*drawing.areas.at(0))[1]);
  EXPECT_EQ(drawing.texts.at(0).m_height, 4);
  ExpectPoint({20, 11, 0}, drawing.texts.at(0).m_plane.origin);
  EXPECT_EQ(drawing.texts.at(0).m_text, "40.0");
}

// The same dimension in a plane with these axes.
ON_TextEntity2 TextIn(ON_3dVector xaxis, ON_3dVector yaxis) {
  ON_Annotation annotation = Sample();
  annotation.m_plane = {{0, 0, 0}, xaxis, yaxis, ON_CrossProduct(xaxis, yaxis)};
  return Draw(annotation, SampleStyle()).texts.at(0);
}

TEST(LinearDimension, ItsTextIsReadFromBelowOrFromTheRight) {
  // Upwards, downwards, on its head.
  EXPECT_EQ(TextIn({0, 1, 0}, {-1, 0, 0}).m_plane.xaxis, (ON_3dVector{0, 1, 0}));
  EXPECT_EQ(TextIn({0, -1, 0}, {1, 0, 0}).m_plane.xaxis, (ON_3dVector{0, 1, 0}));
  EXPECT_EQ(TextIn({-1, 0, 0}, {0, -1, 0}).m_plane.xaxis, (ON_3dVector{1, 0, 0}));
  // In a plane that faces the front: along the model's x axis, and up.
  EXPECT_EQ(TextIn({1, 0, 0}, {0, 0, 1}).m_plane.xaxis, (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(TextIn({0, 0, 1}, {-1, 0, 0}).m_plane.xaxis, (ON_3dVector{0, 0, 1}));
  EXPECT_EQ(TextIn({0, 0, -1}, {1, 0, 0}).m_plane.xaxis, (ON_3dVector{0, 0, 1}));
  // Of the right side.
  EXPECT_EQ(TextIn({0, -1, 0}, {0, 0, -1}).m_plane.xaxis, (ON_3dVector{0, 1, 0}));
}

TEST(LinearDimension, ATextOnItsHeadTurnsToTheOtherSideOfTheLine) {
  const ON_Plane plane = TextIn({-1, 0, 0}, {0, -1, 0}).m_plane;
  EXPECT_EQ(plane.yaxis, (ON_3dVector{0, 1, 0}));
  ExpectPoint({-10, -4.5, 0}, plane.origin);
}

TEST(LinearDimension, APlaneThatIsSeenFromBehindHasNoMirroredText) {
  const ON_Plane plane = TextIn({1, 0, 0}, {0, -1, 0}).m_plane;
  EXPECT_EQ(plane.xaxis, (ON_3dVector{1, 0, 0}));
  EXPECT_EQ(plane.yaxis, (ON_3dVector{0, 1, 0}));
  EXPECT_EQ(plane.zaxis, (ON_3dVector{0, 0, 1}));
  ExpectPoint({10, -4.5, 0}, plane.origin);
}

TEST(LinearDimension, AHorizontalTextStaysSoInAnUprightDimension) {
  ON_Annotation upright = Sample();
  upright.m_plane = {{0, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}};
  ON_DimStyle style = SampleStyle();
  style.m_texthorizontal = true;
  const Drawing drawing = Draw(upright, style);
  EXPECT_EQ(drawing.texts.at(0).m_plane.xaxis, (ON_3dVector{1, 0, 0}));
  ExpectPoint({-5, 10, 0}, drawing.texts.at(0).m_plane.origin);
  // The line makes room for its height.
  EXPECT_TRUE(HasLine(drawing, {-5, 0, 0}, {-5, 8.5, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {-5, 11.5, 0}, {-5, 20, 0})) << ToText(drawing);
}

TEST(LinearDimension, OneOfNoLengthDrawsNothing) {
  EXPECT_TRUE(Draw(OfLength(0), SampleStyle()).IsEmpty());
  EXPECT_TRUE(
      Draw(MakeAnnotation(Type::linear, {{3, 0}, {3, 9}, {0, 5}}), SampleStyle()).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::linear, {{3, 0}, {5, 9}}), SampleStyle()).IsEmpty());
  EXPECT_TRUE(Draw(MakeAnnotation(Type::aligned, {}), SampleStyle()).IsEmpty());
}

TEST(LinearDimension, PointsOnTheLineHaveShortExtensionLines) {
  const Drawing drawing =
      Draw(MakeAnnotation(Type::linear, {{0, 5}, {20, 4.9}, {0, 5}}), SampleStyle());
  // The first has no way to go; the second's offset ends at the line.
  EXPECT_FALSE(HasLine(drawing, {0, 5, 0}, {0, 5.75, 0})) << ToText(drawing);
  EXPECT_TRUE(HasLine(drawing, {20, 5, 0}, {20, 5.75, 0})) << ToText(drawing);
}

TEST(LinearDimension, SizesOfNoSenseLeaveASensibleDrawing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const double wrong : {nan, -1.0, 0.0, std::numeric_limits<double>::infinity(), 1e308}) {
    ON_DimStyle style = SampleStyle();
    for (double ON_DimStyle::*size :
         {&ON_DimStyle::m_extextension, &ON_DimStyle::m_extoffset, &ON_DimStyle::m_arrowsize,
          &ON_DimStyle::m_textgap, &ON_DimStyle::m_textheight, &ON_DimStyle::m_dimscale,
          &ON_DimStyle::m_dimextension, &ON_DimStyle::m_lengthfactor, &ON_DimStyle::m_round}) {
      style.*size = wrong;
      Draw(Sample(), style);
    }
  }
  ON_Annotation far = Sample();
  far.m_points = {{-1e308, 0}, {1e308, 0}, {0, 1e308}};
  Draw(far, SampleStyle());
  far.m_points[0].x = nan;
  EXPECT_TRUE(Draw(far, SampleStyle()).IsEmpty());
}

}  // namespace
