#include "host/geometry/on_user_string_list.h"

#include <gtest/gtest.h>

namespace {

TEST(UserStringList, KeepsTheOrderOfFirstInsertion) {
  ON_UserStringList list;
  EXPECT_TRUE(list.IsEmpty());
  list.SetUserString("PixelSamples", "4");
  list.SetUserString("ShadingSamples", "1");
  list.SetUserString("PixelSamples", "8");
  const std::vector<ON_UserString> expected{{"PixelSamples", "8"}, {"ShadingSamples", "1"}};
  EXPECT_EQ(list.m_e, expected);
  EXPECT_FALSE(list.IsEmpty());
}

TEST(UserStringList, KeysHaveNoCase) {
  ON_UserStringList list;
  list.SetUserString("Größe", "1");
  list.SetUserString("GRÖSSE", "other");
  list.SetUserString("GRÖßE", "2");
  const std::vector<ON_UserString> expected{{"Größe", "2"}, {"GRÖSSE", "other"}};
  EXPECT_EQ(list.m_e, expected);
  EXPECT_EQ(list.GetUserString("größe"), "2");
}

TEST(UserStringList, AnEmptyValueIsAValue) {
  ON_UserStringList list;
  list.SetUserString("RibName", "");
  EXPECT_EQ(list.GetUserString("ribname"), "");
  EXPECT_EQ(list.GetUserString("RibNam"), std::nullopt);
  EXPECT_EQ(list.GetUserString(""), std::nullopt);
}

TEST(UserStringList, RemovesTheEntryOfAKey) {
  ON_UserStringList list;
  list.SetUserString("a", "1");
  list.SetUserString("b", "2");
  list.RemoveUserString("A");
  list.RemoveUserString("none");
  EXPECT_EQ(list.m_e, (std::vector<ON_UserString>{{"b", "2"}}));
}

TEST(UserStringList, RemovesAllEntriesOfAKeyThatStandsTwice) {
  ON_UserStringList list;
  list.m_e = {{"a", "1"}, {"b", "2"}, {"A", "3"}};
  list.RemoveUserString("a");
  EXPECT_EQ(list.m_e, (std::vector<ON_UserString>{{"b", "2"}}));
  EXPECT_EQ(list.GetUserString("a"), std::nullopt);
}

TEST(UserStringList, OfAKeyThatStandsTwiceTheFirstCounts) {
  ON_UserStringList list;
  list.m_e = {{"a", "1"}, {"A", "2"}};
  EXPECT_EQ(list.GetUserString("A"), "1");
  list.SetUserString("A", "3");
  EXPECT_EQ(list.m_e, (std::vector<ON_UserString>{{"a", "3"}, {"A", "2"}}));
}

}  // namespace
