#include "jobs/orv_home.h"

#include <gtest/gtest.h>

#include "support/scoped_environment.h"

namespace orv {
namespace {

TEST(ExpandOrvHome, ReplacesTheVariableAndTurnsSeparators) {
  const ScopedEnvironment home("ORVHOME", "C:\\Orv ä");
  EXPECT_EQ(ExpandOrvHome("$ORVHOME\\maps\\a.tx"), "C:/Orv ä/maps/a.tx");
  EXPECT_EQ(ExpandOrvHome("$orvHome/maps"), "C:/Orv ä/maps");
  EXPECT_EQ(ExpandOrvHome("$ORVHOME"), "C:/Orv ä");
  EXPECT_EQ(ExpandOrvHome("$ORVHOMES"), "C:/Orv äS");
}

TEST(ExpandOrvHome, OtherTextStays) {
  const ScopedEnvironment home("ORVHOME", "C:\\Orv");
  EXPECT_EQ(ExpandOrvHome("maps\\$ORVHOME\\a.tx"), "maps\\$ORVHOME\\a.tx");
  EXPECT_EQ(ExpandOrvHome("$ORVHOM\\a"), "$ORVHOM\\a");
  EXPECT_EQ(ExpandOrvHome(""), "");
}

TEST(ExpandOrvHome, MissingVariableIsEmpty) {
  const ScopedEnvironment home("ORVHOME", std::nullopt);
  EXPECT_EQ(ExpandOrvHome("$ORVHOME\\maps"), "/maps");
}

}  // namespace
}  // namespace orv
