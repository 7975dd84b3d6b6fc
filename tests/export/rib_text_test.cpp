#include "export/rib_text.h"

#include <gtest/gtest.h>

namespace {

using orv::GammaAdjustColor;
using orv::RibPath;
using orv::RibString;
using orv::ToRibPath;

TEST(ToRibPath, TurnsEveryBackslashRound) {
  EXPECT_EQ(ToRibPath("C:\\maps\\wood\\oak.tif"), "C:/maps/wood/oak.tif");
  EXPECT_EQ(ToRibPath("/maps/50% größe.tif"), "/maps/50% größe.tif");
  EXPECT_EQ(ToRibPath(""), "");
}

TEST(RibString, LeavesWhatCannotEndAString) {
  for (const std::string_view name :
       {"", "box", "größe 50%%", "a\\b", "[1] {2} #3", "it's", "\xff\xfe"}) {
    EXPECT_EQ(RibString(name), name);
  }
}

TEST(RibString, EscapesQuotesAndControlCharactersAndThenBackslashes) {
  EXPECT_EQ(RibString("say \"hi\""), "say \\\"hi\\\"");
  EXPECT_EQ(RibString("a\\\" WorldEnd"), "a\\\\\\\" WorldEnd");
  EXPECT_EQ(RibString("a\nb\tc\x7f\x01"), "a\\012b\\011c\\177\\001");
  EXPECT_EQ(RibString(std::string_view("a\0b", 3)), "a\\000b");
  EXPECT_EQ(RibString("folder\\"), "folder\\\\");
}

TEST(RibString, CutsALongTextAtAWholeCharacterOrEscape) {
  EXPECT_EQ(RibString(std::string(5000, 'x')), std::string(orv::kMaxRibString, 'x'));
  std::string umlauts(1, 'x');
  for (int i = 0; i < 3000; ++i) umlauts += "ü";
  EXPECT_EQ(RibString(umlauts), umlauts.substr(0, orv::kMaxRibString - 1));
  const std::string quotes = RibString(std::string(5000, '"'));
  EXPECT_EQ(quotes.size(), orv::kMaxRibString);
  EXPECT_EQ(quotes.substr(quotes.size() - 2), "\\\"");
  const std::string bells = RibString(std::string(5000, '\a'));
  EXPECT_EQ(bells.size() % 4, 0U);
  EXPECT_EQ(bells.substr(bells.size() - 4), "\\007");
}

TEST(RibPath, HasForwardSlashesAndNoWayOut) {
  EXPECT_EQ(RibPath("C:\\maps\\wood.tif"), "C:/maps/wood.tif");
  EXPECT_EQ(RibPath("C:\\a\"b\\"), "C:/a\\\"b/");
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
