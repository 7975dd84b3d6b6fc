#include "settings/setting_text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace orv {
namespace {

constexpr SettingBounds kWide{-1e9, 1e9};

template <class Value>
Value Read(std::string_view text, Value value, SettingBounds bounds = kWide) {
  ReadSettingText(text, bounds, value);
  return value;
}

TEST(SettingText, Integers) {
  EXPECT_EQ(SettingText(0), "0");
  EXPECT_EQ(SettingText(-42), "-42");
  EXPECT_EQ(SettingText(INT_MIN), "-2147483648");
  EXPECT_EQ(Read(" 12abc", 7), 12);
  EXPECT_EQ(Read("-3.9", 7), -3);
  EXPECT_EQ(Read("x", 7), 0);
  EXPECT_EQ(Read("", 7), 0);
  EXPECT_EQ(Read("99999999999999999999", 7), 1000000000);
}

TEST(SettingText, RealsKeepSixDigits) {
  EXPECT_EQ(SettingText(0.01), "0.01");
  EXPECT_EQ(SettingText(1.0 / 3), "0.333333");
  EXPECT_EQ(SettingText(1e9), "1e+09");
  EXPECT_EQ(SettingText(100000.0), "100000");
  EXPECT_EQ(Read("0.25", 7.0), 0.25);
  EXPECT_EQ(Read("1e2x", 7.0), 100);
  EXPECT_EQ(Read("0,5", 7.0), 0);
  EXPECT_EQ(Read("half", 7.0), 0);
  EXPECT_EQ(Read("", 7.0), 0);
}

TEST(SettingText, NumbersAreHeldToTheirBounds) {
  EXPECT_EQ(Read("12", 3, {1, 8}), 8);
  EXPECT_EQ(Read("-12", 3, {1, 8}), 1);
  EXPECT_EQ(Read("8", 3, {1, 8}), 8);
  EXPECT_EQ(Read("1e99", 3.0, {0.5, 8}), 8);
  EXPECT_EQ(Read("1e999", 3.0, {0.5, 8}), 8);
  EXPECT_EQ(Read("-1e999", 3.0, {0.5, 8}), 0.5);
  EXPECT_EQ(SettingBounds(0.5, 8).Hold(std::numeric_limits<double>::quiet_NaN()), 0.5);
}

TEST(SettingText, NoTextMakesANumberThatIsNone) {
  for (const char* text : {"nan", "NaN", "-nan", "inf", "-inf", "infinity"}) {
    EXPECT_TRUE(std::isfinite(Read(text, 7.0))) << text;
  }
}

TEST(SettingText, FlagIsFalseOnlyForZero) {
  EXPECT_EQ(SettingText(true), "1");
  EXPECT_EQ(SettingText(false), "0");
  EXPECT_FALSE(Read("0", true));
  for (const char* text : {"1", "", "no", "false", "00", " 0", "0 "}) {
    EXPECT_TRUE(Read(text, false)) << text;
  }
}

TEST(SettingText, TextStandsAsItIs) {
  EXPECT_EQ(SettingText(std::string(" ä=b\\ ")), " ä=b\\ ");
  EXPECT_EQ(Read(" ä=b\\ ", std::string("x")), " ä=b\\ ");
  EXPECT_EQ(Read("", std::string("x")), "");
}

TEST(SettingText, ColourIsThreeFractions) {
  EXPECT_EQ(SettingText(ON_Color(255, 0, 51)), "1,0,0.2");
  EXPECT_EQ(SettingText(ON_Color(160, 160, 160)), "0.627451,0.627451,0.627451");
  EXPECT_EQ(Read("1,0,0.2", ON_Color(1, 2, 3)), ON_Color(255, 0, 51));
  EXPECT_EQ(Read(" 1 , 0.2, 0", ON_Color(1, 2, 3)), ON_Color(255, 51, 0));
}

TEST(SettingText, ColourWithAMissingCommaIsNotTaken) {
  EXPECT_EQ(Read("0.5,0.5", ON_Color(1, 2, 3)), ON_Color(1, 2, 3));
  EXPECT_EQ(Read("0.5", ON_Color(1, 2, 3)), ON_Color(1, 2, 3));
  EXPECT_EQ(Read("", ON_Color(1, 2, 3)), ON_Color(1, 2, 3));
}

TEST(SettingText, ColourFractionsMayBeAnything) {
  EXPECT_EQ(Read("7,-7,x", ON_Color(1, 2, 3)), ON_Color(255, 0, 0));
  EXPECT_EQ(Read(",,", ON_Color(1, 2, 3)), ON_Color(0, 0, 0));
  EXPECT_EQ(Read("0,0,1,1", ON_Color(1, 2, 3)), ON_Color(0, 0, 255));
  EXPECT_EQ(Read("nan,1e999,-1e999", ON_Color(1, 2, 3)), ON_Color(0, 255, 0));
}

TEST(SettingText, EveryColourComesBack) {
  for (int i = 0; i < 256; ++i) {
    const ON_Color color(i, 255 - i, i / 2);
    EXPECT_EQ(Read(SettingText(color), ON_Color()), color) << i;
  }
}

TEST(SettingText, CropWindowIsFourNumbers) {
  using Four = std::array<double, 4>;
  EXPECT_EQ(SettingText(Four{0.25, 0.75, 0.25, 1}), "0.25 0.75 0.25 1");
  EXPECT_EQ(Read("0,0.5 0.125, 1", Four{9, 9, 9, 9}), (Four{0, 0.5, 0.125, 1}));
  EXPECT_EQ(Read("0.1 0.2", Four{9, 9, 9, 9}), (Four{0.1, 0.2, 9, 9}));
}

}  // namespace
}  // namespace orv
