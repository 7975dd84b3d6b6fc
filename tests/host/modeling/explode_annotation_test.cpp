#include "host/modeling/explode_annotation.h"

#include <gtest/gtest.h>

#include <limits>

#include "annotation_samples.h"
#include "host/modeling/text_outlines.h"

namespace {

using Type = ON_Annotation::Type;
using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;

ON_Annotation Text(std::string words) {
  return MakeAnnotation(Type::text, {}, std::move(words));
}

TEST(ExplodeAnnotation, ATextIsItsOwnEntity) {
  ON_Annotation annotation = Text("two\nlines");
  annotation.m_plane = {{1, 2, 3}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}};
  annotation.m_halign = H::center;
  annotation.m_valign = V::middle;
  ON_DimStyle style = SampleStyle();
  style.m_font = "Liberation Serif";
  style.m_bold = true;
  style.m_italic = true;
  style.m_dimscale = 3;
  const Drawing drawing = Draw(annotation, style);
  EXPECT_TRUE(drawing.parts.curves.empty());
  ASSERT_EQ(drawing.texts.size(), 1u);
  const ON_TextEntity2& text = drawing.texts[0];
  EXPECT_EQ(text.m_text, "two\nlines");
  EXPECT_EQ(text.m_height, 6);
  EXPECT_EQ(text.m_font, "Liberation Serif");
  EXPECT_TRUE(text.m_bold);
  EXPECT_TRUE(text.m_italic);
  EXPECT_EQ(text.m_halign, H::center);
  EXPECT_EQ(text.m_valign, V::middle);
  EXPECT_EQ(text.m_plane.origin, (ON_3dPoint{1, 2, 3}));
  EXPECT_EQ(text.m_plane.xaxis, (ON_3dVector{0, 1, 0}));
  EXPECT_EQ(text.m_plane.yaxis, (ON_3dVector{0, 0, 1}));
}

TEST(ExplodeAnnotation, ATextKeepsItsPlaneEvenOnItsHead) {
  ON_Annotation annotation = Text("down");
  annotation.m_plane = {{0, 0, 0}, {-1, 0, 0}, {0, -1, 0}, {0, 0, 1}};
  EXPECT_EQ(Draw(annotation, {}).texts.at(0).m_plane.xaxis, (ON_3dVector{-1, 0, 0}));
}

TEST(ExplodeAnnotation, ATurnedTextIsTurnedInItsPlane) {
  ON_Annotation annotation = Text("up");
  annotation.m_text_rotation = 1.5707963267948966;
  const ON_Plane plane = Draw(annotation, {}).texts.at(0).m_plane;
  EXPECT_NEAR(plane.xaxis.y, 1, 1e-12);
  EXPECT_NEAR(plane.yaxis.x, -1, 1e-12);
}

TEST(ExplodeAnnotation, LongLinesAreBrokenAtBlanks) {
  ON_Annotation annotation = Text("one two three\nfour five");
  // Eight letters of 0.5.
  annotation.m_wrap_width = 4;
  EXPECT_EQ(Draw(annotation, {}).texts.at(0).m_text, "one two\nthree\nfour\nfive");
  annotation.m_wrap_width = 6.5;
  EXPECT_EQ(Draw(annotation, {}).texts.at(0).m_text, "one two three\nfour five");
  annotation.m_wrap_width = 0.1;
  EXPECT_EQ(Draw(annotation, {}).texts.at(0).m_text, "one\ntwo\nthree\nfour\nfive");
  annotation.m_text = "";
  EXPECT_TRUE(Draw(annotation, {}).IsEmpty());
}

// Each of its words is measured.
TEST(ExplodeAnnotation, AnEndlessTextIsBrokenInMoments) {
  ON_Annotation annotation = Text("");
  for (int i = 0; i < 1000000; ++i) annotation.m_text += "a ";
  annotation.m_wrap_width = 4;
  const std::string text = Draw(annotation, {}).texts.at(0).m_text;
  EXPECT_TRUE(text.starts_with("a a a a\na a a a\n")) << text.substr(0, 20);
  EXPECT_EQ(text.size(), 65536u);
}

TEST(ExplodeAnnotation, AnAnnotationThatIsNotValidDrawsNothing) {
  ON_Annotation annotation = Text("lost");
  annotation.m_plane.origin.x = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(Draw(annotation, {}).IsEmpty());
  annotation = Text("flat");
  annotation.m_plane.yaxis = {0, 0, 0};
  EXPECT_TRUE(Draw(annotation, {}).IsEmpty());
}

TEST(ExplodeAnnotation, RoomForTextsIsMeasuredInTheirFont) {
  const ON_Annotation annotation = MakeAnnotation(Type::linear, {{0, 0}, {20, 0}, {0, 5}});
  ON_DimStyle style = SampleStyle();
  style.m_textlocation = 1;
  style.m_font = "Liberation Sans";
  const host::ExplodedAnnotation parts = host::ExplodeAnnotation(annotation, style);
  ASSERT_EQ(parts.texts.size(), 1u);
  const double half = host::TextWidth(parts.texts[0]) / 2;
  ASSERT_GT(half, 1);
  ASSERT_LT(half, 5);
  bool found = false;
  for (const auto& curve : parts.curves) {
    found = found || curve->PointAtEnd().DistanceTo({10 - half - 0.5, 5, 0}) < 1e-9;
  }
  EXPECT_TRUE(found);
}

}  // namespace
