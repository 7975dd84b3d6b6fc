#include "shading/foreign_text.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

using namespace std::string_literals;

TEST(TextFromBytes, KeepsUtf8) {
  for (const std::string text : {"C:\\tex\\Größe \"[1]\" 木.tx", "", "\uFFFD", "\U0001F332"})
    EXPECT_EQ(TextFromBytes(text), text);
}

TEST(TextFromBytes, TakesOtherBytesAsWindows1252) {
  EXPECT_EQ(TextFromBytes("Gr\xF6\xDF"
                          "e \x80 5\x92 \x9F\xA0\xFF"),
            "Größe € 5’ Ÿ\u00A0ÿ");
  EXPECT_EQ(TextFromBytes("caf\xE9"), "café");
}

TEST(TextFromBytes, LeavesOutBytesThatStandForNoCharacter) {
  EXPECT_EQ(TextFromBytes("a\x81\x8D\x8F\x90\x9D"
                          "b"),
            "ab");
}

TEST(TextFromBytes, NoOtherByteIsAControlCharacter) {
  for (int byte = 0x80; byte < 0x100; ++byte) {
    const std::string text = TextFromBytes(std::string(1, static_cast<char>(byte)));
    EXPECT_EQ(CallTextOf(text), text) << byte;
  }
}

TEST(TextFromField, EndsAtAZeroByteOrWithTheField) {
  EXPECT_EQ(TextFromField("wood\0more"s), "wood");
  EXPECT_EQ(TextFromField("wood"), "wood");
  EXPECT_EQ(TextFromField("\0"s), "");
  EXPECT_EQ(TextFromField(""), "");
}

TEST(TextFromField, LeavesOutACharacterThatTheFieldCuts) {
  const std::string tree = "\U0001F332";
  for (std::size_t size = 1; size < tree.size(); ++size) {
    const std::string cut = tree.substr(0, size);
    EXPECT_EQ(TextFromField("Größe" + cut), "Größe") << size;
    EXPECT_EQ(TextFromField("Größe" + cut + '\0'), "Größe") << size;
    EXPECT_EQ(TextFromField(cut), "") << size;
  }
  EXPECT_EQ(TextFromField("Größe木"), "Größe木");
  EXPECT_EQ(TextFromField("Größe" + tree), "Größe" + tree);
}

TEST(TextFromField, OtherBytesAreNotCut) {
  EXPECT_EQ(TextFromField("Gr\xF6\xDF"), "Größ");
  EXPECT_EQ(TextFromField("caf\xE9\0\0"s), "café");
  EXPECT_EQ(TextFromField("\x80\x80\x80\x80"), "€€€€");
}

TEST(CallTextOf, LeavesOutWhatEndsATokenAndControlCharacters) {
  EXPECT_EQ(CallTextOf("a\"b]c\nd\te\x7F"
                       "f\u0080g\u009Fh"),
            "abcdefgh");
  EXPECT_EQ(CallTextOf("Größe \\ [1 木\u00A0\U0001F332"), "Größe \\ [1 木\u00A0\U0001F332");
}

}  // namespace
}  // namespace orv
