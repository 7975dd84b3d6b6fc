#include "shading/attribute_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace orv {
namespace {

constexpr std::string_view kWords[] = {"Off", "Bump", "Mesh"};
constexpr AttributeRule kWordRule{.Words = kWords};
constexpr AttributeRule kOneToTen{.Bounds = {1, 10}};

template <class Value>
Value ReadOver(Value value, std::string_view text, const AttributeRule& rule = {}) {
  ReadAttributeText(text, rule, value);
  return value;
}

TEST(AttributeText, IsFalseOnlyForNo) {
  for (const char* text : {"no", "No", "NO", "nO"}) EXPECT_FALSE(ReadOver(true, text)) << text;
  for (const char* text : {"Yes", "0", "off", "false", "", " no", "none"}) {
    EXPECT_TRUE(ReadOver(false, text)) << text;
  }
}

TEST(AttributeText, WritesYesAndNo) {
  EXPECT_EQ(AttributeText({}, true), "Yes");
  EXPECT_EQ(AttributeText({}, false), "No");
}

TEST(AttributeText, ReadsAWordInAnyCase) {
  EXPECT_EQ(ReadOver(1, "off", kWordRule), 0);
  EXPECT_EQ(ReadOver(1, "MESH", kWordRule), 2);
}

TEST(AttributeText, KeepsTheValueForAnUnknownWord) {
  for (const char* text : {"Displace", "", "2", " mesh", "meshes"}) {
    EXPECT_EQ(ReadOver(1, text, kWordRule), 1) << text;
  }
}

TEST(AttributeText, TakesAnyOtherWordForWhatTheRuleSays) {
  constexpr AttributeRule kRule{.Words = kWords, .OtherWord = 7};
  EXPECT_EQ(ReadOver(1, "anything", kRule), 7);
  EXPECT_EQ(ReadOver(1, "mesh", kRule), 2);
}

TEST(AttributeText, WritesAWordAsItStandsInTheList) {
  EXPECT_EQ(AttributeText(kWordRule, 2), "Mesh");
}

TEST(AttributeText, WritesTheNearestWordForANumberOutsideTheList) {
  EXPECT_EQ(AttributeText(kWordRule, std::numeric_limits<int>::max()), "Mesh");
  EXPECT_EQ(AttributeText(kWordRule, std::numeric_limits<int>::min()), "Off");
}

TEST(AttributeText, HoldsAnIntegerToItsBounds) {
  EXPECT_EQ(ReadOver(5, "7", kOneToTen), 7);
  EXPECT_EQ(ReadOver(5, "11", kOneToTen), 10);
  EXPECT_EQ(ReadOver(5, "2147483647", kOneToTen), 10);
  EXPECT_EQ(ReadOver(5, "-3", kOneToTen), 1);
  EXPECT_EQ(ReadOver(5, "text", kOneToTen), 1);
  EXPECT_EQ(ReadOver(5, "", kOneToTen), 1);
}

TEST(AttributeText, KeepsTheValueForAnIntegerThatNoIntHolds) {
  EXPECT_EQ(ReadOver(5, "99999999999", kOneToTen), 5);
  EXPECT_EQ(ReadOver(5, "-99999999999", kOneToTen), 5);
}

TEST(AttributeText, HoldsARealToItsBounds) {
  EXPECT_EQ(ReadOver(5.0, " 7.25 units", kOneToTen), 7.25);
  EXPECT_EQ(ReadOver(5.0, "1e308", kOneToTen), 10.0);
  EXPECT_EQ(ReadOver(5.0, "-1e308", kOneToTen), 1.0);
  EXPECT_EQ(ReadOver(5.0, "inf", kOneToTen), 10.0);
  EXPECT_EQ(ReadOver(5.0, "text", kOneToTen), 1.0);
  EXPECT_EQ(ReadOver(5.0, "", kOneToTen), 1.0);
}

TEST(AttributeText, KeepsTheValueForARealThatNoDoubleHolds) {
  for (const char* text : {"1e999", "-1e999", "1e-999", "nan", "-nan"}) {
    EXPECT_EQ(ReadOver(5.0, text, kOneToTen), 5.0) << text;
  }
}

TEST(AttributeText, WritesNumbersAsTheyAre) {
  EXPECT_EQ(AttributeText(kOneToTen, 1000000000), "1000000000");
  EXPECT_EQ(AttributeText(kOneToTen, -0.5), "-0.5");
  EXPECT_EQ(AttributeText({}, 0.1234567), "0.123457");
  EXPECT_EQ(AttributeText({}, 1e9), "1e+09");
}

TEST(AttributeText, TakesAnEmptyTextUnlessTheRuleForbidsIt) {
  const std::string value = "old";
  EXPECT_EQ(ReadOver(value, "", {.NotEmpty = true}), "old");
  EXPECT_EQ(ReadOver(value, " ", {.NotEmpty = true}), " ");
  EXPECT_EQ(ReadOver(value, ""), "");
  EXPECT_EQ(ReadOver(value, " C:\\\xC3\xA4.rib\n"), " C:\\\xC3\xA4.rib\n");
}

TEST(AttributeText, ReadsTheFractionsOfAColour) {
  const ON_Color old(1, 2, 3);
  EXPECT_EQ(ReadOver(old, "1,0.2,0"), ON_Color(255, 51, 0));
  EXPECT_EQ(ReadOver(old, " 0.2 , 0.4 0.6 9"), ON_Color(51, 102, 153));
  EXPECT_EQ(ReadOver(old, "7,-1,1e-5"), ON_Color(255, 0, 0));
}

TEST(AttributeText, TakesWhatAColourLacksForBlack) {
  const ON_Color old(1, 2, 3);
  EXPECT_EQ(ReadOver(old, ""), ON_Color(0, 0, 0));
  EXPECT_EQ(ReadOver(old, "1"), ON_Color(255, 0, 0));
  EXPECT_EQ(ReadOver(old, "red"), ON_Color(0, 0, 0));
  EXPECT_EQ(ReadOver(old, "1e999,1"), ON_Color(255, 0, 0));
}

TEST(AttributeText, WritesTheFractionsOfAColour) {
  EXPECT_EQ(AttributeText({}, ON_Color(255, 51, 1)), "1,0.2,0.00392157");
}

}  // namespace
}  // namespace orv
