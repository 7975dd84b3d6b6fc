#include "host/command/color_text.h"

#include <gtest/gtest.h>

TEST(ColorText, IsThreeNumbers) {
  EXPECT_EQ(ColorText({255, 128, 0}), "255,128,0");
  EXPECT_EQ(ColorFromText("255,128,0"), ON_Color(255, 128, 0));
  EXPECT_EQ(ColorFromText(" 1 , +2,3 "), ON_Color(1, 2, 3));
}

TEST(ColorText, MayBeSixDigits) {
  EXPECT_EQ(ColorFromText("#ff8000"), ON_Color(255, 128, 0));
  EXPECT_EQ(ColorFromText(" #FF8000 "), ON_Color(255, 128, 0));
}

TEST(ColorText, AnythingElseIsNone) {
  for (const char* text : {"", "red", "1,2", "1,2,3,4", "1,2,256", "1,2,-3", "1,2,3.5", "1,,3",
                           "#ff80", "#ff80000", "#+f8000", "#gg8000", "#", "1,2,++3"}) {
    EXPECT_FALSE(ColorFromText(text)) << text;
  }
}
