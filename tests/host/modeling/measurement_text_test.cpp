#include "host/modeling/measurement_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using Type = ON_Annotation::Type;

std::string OfLength(double length, const ON_DimStyle& style, std::string text = "<>") {
  ON_Annotation annotation;
  annotation.m_type = Type::linear;
  annotation.m_points = {{0, 0}, {length, 0}, {0, 1}};
  annotation.m_text = std::move(text);
  return host::MeasurementText(annotation, style);
}

std::string OfAngle(double degrees, const ON_DimStyle& style, std::string text = "<>") {
  const double radians = degrees * std::numbers::pi / 180;
  ON_Annotation annotation;
  annotation.m_type = Type::angular;
  annotation.m_points = {{0, 0},
                         {1, 0},
                         {std::cos(radians), std::sin(radians)},
                         {std::cos(radians / 2), std::sin(radians / 2)}};
  annotation.m_text = std::move(text);
  return host::MeasurementText(annotation, style);
}

ON_DimStyle Lengths(int format, int resolution) {
  ON_DimStyle style;
  style.m_lengthformat = format;
  style.m_lengthresolution = resolution;
  return style;
}

ON_DimStyle Angles(int format, int resolution) {
  ON_DimStyle style;
  style.m_angleformat = format;
  style.m_angleresolution = resolution;
  return style;
}

TEST(MeasurementText, LengthsHaveAsManyDigitsAsTheStyleSays) {
  EXPECT_EQ(OfLength(26.340699, Lengths(0, 2)), "26.34");
  EXPECT_EQ(OfLength(26.5, Lengths(0, 0)), "26");
  EXPECT_EQ(OfLength(10, Lengths(0, 3)), "10.000");
  EXPECT_EQ(OfLength(1, Lengths(0, 99)), "1.000000000000000");
  EXPECT_EQ(OfLength(1.25, Lengths(0, -5)), "1");
}

TEST(MeasurementText, AFactorAPrefixAndASuffixGoWithTheNumber) {
  ON_DimStyle style = Lengths(0, 1);
  style.m_lengthfactor = 2.5;
  style.m_prefix = "~";
  style.m_suffix = " mm";
  EXPECT_EQ(OfLength(10, style), "~25.0 mm");
  EXPECT_EQ(OfLength(10, style, "R<> (<>)"), "R~25.0 mm (~25.0 mm)");
}

TEST(MeasurementText, ATextWithoutAPlaceForTheNumberStaysAsItIs) {
  EXPECT_EQ(OfLength(10, Lengths(0, 1), "as wanted"), "as wanted");
  EXPECT_EQ(OfLength(10, Lengths(0, 1), ""), "");
  ON_DimStyle style = Lengths(0, 0);
  style.m_prefix = "<>";
  EXPECT_EQ(OfLength(3, style, "<>"), "<>3");
}

TEST(MeasurementText, TextsAndLeadersAreNoMeasurements) {
  ON_Annotation annotation;
  annotation.m_text = "a<>b";
  EXPECT_EQ(host::MeasurementText(annotation, {}), "a<>b");
  annotation.m_type = Type::leader;
  EXPECT_EQ(host::MeasurementText(annotation, {}), "a<>b");
}

TEST(MeasurementText, RadiiAndDiametersKeepTheSignOfTheirText) {
  ON_Annotation annotation;
  annotation.m_type = Type::diameter;
  annotation.m_points = {{0, 0}, {3, 4}, {9, 9}, {9, 9}};
  annotation.m_text = "Ø<>";
  EXPECT_EQ(host::MeasurementText(annotation, Lengths(0, 2)), "Ø10.00");
  annotation.m_type = Type::radius;
  annotation.m_text = "R<>";
  EXPECT_EQ(host::MeasurementText(annotation, Lengths(0, 2)), "R5.00");
}

TEST(MeasurementText, FractionsAreReduced) {
  EXPECT_EQ(OfLength(1.75, Lengths(1, 4)), "1-3/4");
  EXPECT_EQ(OfLength(0.5, Lengths(1, 3)), "1/2");
  EXPECT_EQ(OfLength(2.0625, Lengths(1, 4)), "2-1/16");
  EXPECT_EQ(OfLength(2.0625, Lengths(1, 2)), "2");
  EXPECT_EQ(OfLength(1.99, Lengths(1, 2)), "2");
  EXPECT_EQ(OfLength(0, Lengths(1, 2)), "0");
  EXPECT_EQ(OfLength(1e300, Lengths(1, 2)).size(), 301u);
}

TEST(MeasurementText, TwelveInchesAreAFoot) {
  EXPECT_EQ(OfLength(14.75, Lengths(2, 2)), "1'-2-3/4\"");
  EXPECT_EQ(OfLength(24, Lengths(2, 2)), "2'-0\"");
  EXPECT_EQ(OfLength(5.5, Lengths(2, 1)), "5-1/2\"");
  EXPECT_EQ(OfLength(11.99, Lengths(2, 2)), "1'-0\"");
}

TEST(MeasurementText, LengthsMayBeRoundedToMultiples) {
  ON_DimStyle style = Lengths(0, 2);
  style.m_round = 0.25;
  EXPECT_EQ(OfLength(1.3, style), "1.25");
}

TEST(MeasurementText, ZerosMayBeLeftOut) {
  ON_DimStyle style = Lengths(0, 3);
  style.m_zerosuppress = 1;
  EXPECT_EQ(OfLength(0.5, style), ".500");
  style.m_zerosuppress = 2;
  EXPECT_EQ(OfLength(0.5, style), "0.5");
  EXPECT_EQ(OfLength(10, style), "10");
  style.m_zerosuppress = 3;
  EXPECT_EQ(OfLength(0.5, style), ".5");
  style.m_lengthresolution = 0;
  EXPECT_EQ(OfLength(100, style), "100");
}

TEST(MeasurementText, AnglesHaveTheirSign) {
  EXPECT_EQ(OfAngle(90, Angles(0, 1)), "90.0°");
  EXPECT_EQ(OfAngle(80.606, Angles(0, 2)), "80.61°");
  EXPECT_EQ(OfAngle(30.5, Angles(1, 0)), "30°30'0\"");
  EXPECT_EQ(OfAngle(59.99999999, Angles(1, 0)), "60°0'0\"");
  EXPECT_EQ(OfAngle(180, Angles(2, 3)), "3.142rad");
  EXPECT_EQ(OfAngle(90, Angles(3, 2)), "100.00g");
  ON_DimStyle style = Angles(0, 2);
  style.m_anglezerosuppress = 2;
  EXPECT_EQ(OfAngle(45, style, "about <>"), "about 45°");
}

TEST(MeasurementText, FiguresThatAreNoNumbersDoNoHarm) {
  ON_DimStyle style = Lengths(0, 1);
  style.m_lengthfactor = std::nan("");
  style.m_round = std::nan("");
  EXPECT_EQ(OfLength(2, style), "2.0");
}

TEST(MeasurementText, FactorsAndMultiplesThatMakeNoSenseChangeNothing) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const double wrong : {0.0, -1.0, kInfinity, -kInfinity}) {
    for (const int format : {0, 1, 2}) {
      ON_DimStyle style = Lengths(format, 3);
      const std::string expected = OfLength(5.5, style);
      style.m_lengthfactor = wrong;
      style.m_round = wrong;
      EXPECT_EQ(OfLength(5.5, style), expected) << wrong;
    }
  }
  ON_DimStyle style = Lengths(0, 1);
  style.m_lengthfactor = 1e308;
  style.m_round = 1e-320;
  EXPECT_EQ(OfLength(25, style), "25.0");
}

// Places for the number times what stands around it, that would be a hundred gigabytes.
TEST(MeasurementText, AnEndlessTextIsNotMultiplied) {
  std::string places;
  for (int i = 0; i < 300000; ++i) places += "<>";
  ON_DimStyle style = Lengths(0, 1);
  style.m_suffix = std::string(400000, '-');
  const std::string text = OfLength(5, style, places);
  EXPECT_TRUE(text.starts_with("5.0----"));
  EXPECT_LT(text.size(), 5000000u);
}

TEST(MeasurementText, WhatNoNumberCanTellIsAQuestion) {
  ON_Annotation annotation;
  annotation.m_type = Type::linear;
  annotation.m_points = {{-1.7e308, 0}, {1.7e308, 0}, {0, 1}};
  annotation.m_text = "<>";
  for (const double scale : {1.0, 0.0}) {
    annotation.m_distance_scale = scale;
    for (const int format : {0, 1, 2}) {
      EXPECT_EQ(host::MeasurementText(annotation, Lengths(format, 2)), "?");
    }
  }
  EXPECT_EQ(OfLength(1.7e308, Lengths(1, 2)).size(), 309U);
}

}  // namespace
