#include "shading/foreign_text.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

TEST(CallTextFromBytes, KeepsUtf8) {
  EXPECT_EQ(CallTextFromBytes("C:\\tex\\Größe [1 木.tx"), "C:\\tex\\Größe [1 木.tx");
  EXPECT_EQ(CallTextFromBytes(""), "");
}

TEST(CallTextFromBytes, TakesOtherBytesAsLatin1) {
  EXPECT_EQ(CallTextFromBytes("Gr\xF6\xDF"
                              "e"),
            "Größe");
}

TEST(CallTextFromBytes, LeavesOutWhatEndsATokenAndControlCharacters) {
  EXPECT_EQ(CallTextFromBytes("a\"b]c\nd\te\x7F"
                              "f"),
            "abcdef");
}

}  // namespace
}  // namespace orv
