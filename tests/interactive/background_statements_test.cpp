#include "interactive/background_statements.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

// 0.2, 0.4 and 0.6 without gamma.
constexpr ON_Color kColor{51, 102, 153};

AmbientUpdate Ambient(int mode, std::string map = {}) {
  return {mode, 2, kColor, 3, 0.25, std::move(map)};
}

TEST(AmbientStatement, TellsTheColorWithoutAMap) {
  EXPECT_EQ(AmbientStatement(Ambient(1), 1),
            "IrTweakLight 0 \"float intensity\" [2] \"color lightcolor\" [0.2 0.4 0.6] "
            "\"string envname\" [\"\"]");
}

TEST(AmbientStatement, TellsTheMap) {
  EXPECT_EQ(AmbientStatement(Ambient(4, "C:\\maps\\sky.tx"), 1),
            "IrTweakLight 0 \"float intensity\" [3] \"string envname\" [\"C:/maps/sky.tx\"] "
            "\"float envblur\" [0.25] \"color lightcolor\" [1 1 1]");
}

TEST(AmbientStatement, OnlyThreeModesHaveTheLight) {
  for (const int mode : {1, 4, 5}) EXPECT_FALSE(AmbientStatement(Ambient(mode), 1).empty()) << mode;
  for (const int mode : {-1, 0, 2, 3, 6}) EXPECT_EQ(AmbientStatement(Ambient(mode), 1), "") << mode;
}

TEST(AmbientStatement, AMapCountsToAThousandCharacters) {
  std::string name;
  for (int i = 0; i < 1001; ++i) name += "ä";
  const std::string text = AmbientStatement(Ambient(1, name), 1);
  EXPECT_NE(text.find("[\"" + name.substr(0, 2000) + "\"]"), std::string::npos);
}

TEST(AmbientStatement, ColorsAreAdjustedButBlackAndWhite) {
  AmbientUpdate update = Ambient(1);
  update.Color = ON_Color(0, 255, 128);
  // (128 / 255)^2.2 is 55.98 of 255.
  EXPECT_NE(AmbientStatement(update, 2.2).find("[0 1 0.219608]"), std::string::npos);
}

ReflectionUpdate Reflection(int mode) {
  return {mode, 0.5, kColor, 3, 0.25, 90, "sky.tx"};
}

TEST(ReflectionStatements, EachMode) {
  EXPECT_EQ(ReflectionStatements(Reflection(0), 1),
            "IrTweakOption \"reflection\" \"float envstrength\" [0] \"color background\" [0 0 0] "
            "\"string envname\" [\"\"]");
  EXPECT_EQ(ReflectionStatements(Reflection(1), 1),
            "IrTweakOption \"reflection\" \"color background\" [0.1 0.2 0.3] "
            "\"string envname\" [\"\"]");
  EXPECT_EQ(ReflectionStatements(Reflection(2), 1),
            "IrTweakOption \"reflection\" \"float envstrength\" [3] \"color background\" [1 1 1] "
            "\"string envname\" [\"sky.tx\"] \"float envblur\" [0.25]\n"
            "IrTweakCoordinateSystem \"reflectionspace\" [1.32679e-06 1 0 0  -1 1.32679e-06 0 0  "
            "0 0 1 0  0 0 0 1]\n");
  EXPECT_EQ(ReflectionStatements(Reflection(3), 1), "");
  EXPECT_EQ(ReflectionStatements(Reflection(-1), 1), "");
}

TEST(ReflectionStatements, AMapMayBeMissing) {
  ReflectionUpdate update = Reflection(2);
  update.MapName.clear();
  update.Rotation = 0;
  EXPECT_EQ(ReflectionStatements(update, 1),
            "IrTweakOption \"reflection\" \"float envstrength\" [3] \"color background\" [1 1 1] "
            "\"string envname\" [\"\"] \"float envblur\" [0.25]\n"
            "IrTweakCoordinateSystem \"reflectionspace\" [1 0 0 0  -0 1 0 0  0 0 1 0  0 0 0 1]\n");
}

ImagerUpdate Imager(int mode) {
  return {mode, kColor, ON_Color(255, 0, 51), 3, 0.25, 30, "C:\\sky.tx"};
}

TEST(ImagerStatements, EachMode) {
  EXPECT_EQ(ImagerStatements(Imager(0), 1), "IrNewImager \"null\"");
  EXPECT_EQ(ImagerStatements(Imager(1), 1),
            "IrNewImager \"background\" \"color background\" [0.2 0.4 0.6]");
  EXPECT_EQ(ImagerStatements(Imager(2), 1),
            "IrNewImager \"VBgGradient\" \"color TopColor\" [0.2 0.4 0.6] "
            "\"color BottomColor\" [1 0 0.2]");
  EXPECT_EQ(ImagerStatements(Imager(3), 1),
            "IrNewImager \"VBackdrop\" \"float Intensity\" [3] \"float TextureBlur\" [0.25] "
            "\"string TextureName\" [\"C:/sky.tx\"]");
  EXPECT_EQ(ImagerStatements(Imager(4), 1),
            "IrNewImager \"VBgEnvironment\" \"float Intensity\" [3] "
            "\"string EnvironmentName\" \"C:/sky.tx\" \"string EnvironmentSpace\" \"bgspace\" "
            "\"float EnvironmentBlur\" [0.25]"
            "IrTweakCoordinateSystem \"bgspace\" [0.866026 0.5 0 0  -0.5 0.866026 0 0  "
            "0 0 1 0  0 0 0 1]\n");
  EXPECT_EQ(ImagerStatements(Imager(5), 1), "");
  EXPECT_EQ(ImagerStatements(Imager(-1), 1), "");
}

}  // namespace
}  // namespace orv
