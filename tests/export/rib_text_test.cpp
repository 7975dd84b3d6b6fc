#include "export/rib_text.h"

#include <gtest/gtest.h>

namespace {

using orv::GammaAdjustColor;
using orv::ToRibPath;

TEST(ToRibPath, TurnsEveryBackslashRound) {
  EXPECT_EQ(ToRibPath("C:\\maps\\wood\\oak.tif"), "C:/maps/wood/oak.tif");
  EXPECT_EQ(ToRibPath("/maps/50% größe.tif"), "/maps/50% größe.tif");
  EXPECT_EQ(ToRibPath(""), "");
}

TEST(GammaAdjustColor, RaisesToTheGammaItself) {
  // (128 / 255) squared is 64.25 / 255.
  EXPECT_EQ(GammaAdjustColor(ON_Color(128, 64, 200), 2), ON_Color(64, 16, 157));
  EXPECT_EQ(GammaAdjustColor(ON_Color(128, 64, 200), 1), ON_Color(128, 64, 200));
}

TEST(GammaAdjustColor, LeavesBlackAndFullChannels) {
  EXPECT_EQ(GammaAdjustColor(ON_Color(0, 255, 0), 0.1), ON_Color(0, 255, 0));
  EXPECT_EQ(GammaAdjustColor(ON_Color(255, 0, 255), 10), ON_Color(255, 0, 255));
}

}  // namespace
