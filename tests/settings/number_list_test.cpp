#include "settings/number_list.h"

#include <gmock/gmock.h>

#include <array>
#include <limits>

namespace orv {
namespace {

using testing::ElementsAre;

std::array<double, 4> Parsed(std::string_view text) {
  std::array<double, 4> numbers{9, 9, 9, 9};
  ParseNumberList(text, numbers);
  return numbers;
}

TEST(ParseNumberList, CommasAndBlanksEndANumber) {
  EXPECT_THAT(Parsed("1,0.5 0.25 , -3e2"), ElementsAre(1, 0.5, 0.25, -300));
}

TEST(ParseNumberList, SeveralSeparatorsGiveNothing) {
  std::array<double, 2> numbers{9, 9};
  ParseNumberList(",,3 4", numbers);
  EXPECT_THAT(numbers, ElementsAre(3, 4));
}

TEST(ParseNumberList, MissingNumbersKeepTheirValues) {
  EXPECT_THAT(Parsed("1 2"), ElementsAre(1, 2, 9, 9));
  EXPECT_THAT(Parsed(""), ElementsAre(9, 9, 9, 9));
  EXPECT_THAT(Parsed(" , ,"), ElementsAre(9, 9, 9, 9));
}

TEST(ParseNumberList, StopsWhenFull) {
  EXPECT_THAT(Parsed("1 2 3 4 5 6"), ElementsAre(1, 2, 3, 4));
}

TEST(ParseNumberList, HoldsNumbersToTheirBounds) {
  EXPECT_THAT(Parsed("1e31 -1e31 1e30 -1e30"), ElementsAre(1e30, -1e30, 1e30, -1e30));
}

TEST(ParseNumberList, LeavesOutWhatIsOutOfRange) {
  EXPECT_THAT(Parsed("1 1e999 2 -1e999 3"), ElementsAre(1, 2, 3, 9));
}

TEST(ParseNumberList, LeavesOutANan) {
  EXPECT_THAT(Parsed("1 nan 2 -NaN(7),3"), ElementsAre(1, 2, 3, 9));
  EXPECT_THAT(Parsed("nan"), ElementsAre(9, 9, 9, 9));
}

TEST(ParseNumberList, HoldsAnInfinityThatIsSpelledOut) {
  EXPECT_THAT(Parsed("inf -inf 1"), ElementsAre(1e30, -1e30, 1, 9));
}

TEST(ParseNumber, HoldsTheNumberToTheBounds) {
  EXPECT_EQ(ParseNumber("0.5 and more"), 0.5);
  EXPECT_EQ(ParseNumber("1e31"), 1e30);
  EXPECT_EQ(ParseNumber("7", {0, 1}), 1);
  EXPECT_EQ(ParseNumber("x", {2, 3}), 2);
}

TEST(ParseNumber, IsNothingForANanOrANumberOutOfRange) {
  for (const char* text : {"nan", "-nan", "NAN", "1e999", "-1e999", "1e-999"}) {
    EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
    EXPECT_EQ(ParseNumber(text, {0, 1}), std::nullopt) << text;
  }
}

TEST(ParseNumberList, TextThatIsNoNumberIsZero) {
  EXPECT_THAT(Parsed("x 1x 2"), ElementsAre(0, 1, 2, 9));
}

TEST(ParseNumberList, OnlyABlankSeparatesNoTab) {
  EXPECT_THAT(Parsed("1\t2 3"), ElementsAre(1, 3, 9, 9));
}

}  // namespace
}  // namespace orv
