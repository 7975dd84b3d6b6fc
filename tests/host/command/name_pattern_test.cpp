#include "host/command/name_pattern.h"

#include <gtest/gtest.h>

namespace {

TEST(NamePattern, WithoutWildcardsIsTheNameInAnyCase) {
  EXPECT_TRUE(FitsNamePattern("Wall", "wALL"));
  EXPECT_TRUE(FitsNamePattern("Straße Ä", "straße ä"));
  EXPECT_FALSE(FitsNamePattern("Wall", "Wal"));
  EXPECT_FALSE(FitsNamePattern("Wall", "Walls"));
  EXPECT_TRUE(FitsNamePattern("", ""));
}

TEST(NamePattern, StarIsAnyText) {
  EXPECT_TRUE(FitsNamePattern("", "*"));
  EXPECT_TRUE(FitsNamePattern("Left wall 12", "left*12"));
  EXPECT_TRUE(FitsNamePattern("aXbXc", "*x*C"));
  EXPECT_TRUE(FitsNamePattern("ab", "ab**"));
  EXPECT_FALSE(FitsNamePattern("ab", "*a"));
}

TEST(NamePattern, QuestionMarkIsOneLetter) {
  EXPECT_TRUE(FitsNamePattern("Tür", "T?r"));
  EXPECT_FALSE(FitsNamePattern("Tr", "T?r"));
  EXPECT_FALSE(FitsNamePattern("Tür", "T??r"));
}

TEST(NamePattern, ManyStarsTakeNoLongTime) {
  EXPECT_FALSE(FitsNamePattern(std::string(2000, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*a*b"));
}

}  // namespace
