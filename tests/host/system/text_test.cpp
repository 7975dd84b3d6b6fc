#include "host/system/text.h"

#include <gtest/gtest.h>

namespace host {
namespace {

TEST(Text, Utf16BecomesUtf8) {
  EXPECT_EQ(Utf8FromUtf16(u"Grün, 東京, 🚀"), "Grün, 東京, 🚀");
  EXPECT_EQ(Utf8FromUtf16({}), "");
}

TEST(Text, Utf8BecomesUtf16) {
  EXPECT_EQ(Utf16FromUtf8("Grün, 東京, 🚀"), u"Grün, 東京, 🚀");
  EXPECT_EQ(Utf16FromUtf8(std::string_view("a\0b", 3)), std::u16string_view(u"a\0b", 3));
}

TEST(Text, LoneSurrogatesBecomeReplacementCharacters) {
  const char16_t high[] = {u'a', 0xD83D, u'b'};
  const char16_t low[] = {u'a', 0xDE80};
  const char16_t highAtEnd[] = {0xD83D};
  const char16_t swapped[] = {0xDE80, 0xD83D};
  EXPECT_EQ(Utf8FromUtf16({high, 3}), "a\uFFFDb");
  EXPECT_EQ(Utf8FromUtf16({low, 2}), "a\uFFFD");
  EXPECT_EQ(Utf8FromUtf16({highAtEnd, 1}), "\uFFFD");
  EXPECT_EQ(Utf8FromUtf16({swapped, 2}), "\uFFFD\uFFFD");
}

TEST(Text, MalformedUtf8BecomesReplacementCharacters) {
  EXPECT_EQ(Utf16FromUtf8("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(Utf16FromUtf8("\xC3"), u"\uFFFD");                      // cut
  EXPECT_EQ(Utf16FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");            // too long a form
  EXPECT_EQ(Utf16FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");  // a surrogate
  EXPECT_EQ(Utf16FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Text, CountsCodePoints) {
  EXPECT_EQ(CodePointCount(""), 0u);
  EXPECT_EQ(CodePointCount("aü東🚀"), 4u);
  EXPECT_EQ(CodePointCount("a\xFF\xC3"), 3u);
}

TEST(Text, FirstCodePointsNeverCutsOneInHalf) {
  EXPECT_EQ(FirstCodePoints("aü東🚀b", 0), "");
  EXPECT_EQ(FirstCodePoints("aü東🚀b", 2), "aü");
  EXPECT_EQ(FirstCodePoints("aü東🚀b", 4), "aü東🚀");
  EXPECT_EQ(FirstCodePoints("aü東🚀b", 5), "aü東🚀b");
  EXPECT_EQ(FirstCodePoints("aü", 100), "aü");
  EXPECT_EQ(FirstCodePoints("\xC3\xC3", 1), "\xC3");
}

TEST(Text, FirstBytesNeverEndsInsideACodePoint) {
  EXPECT_EQ(FirstBytes("aü東🚀", 0), "");
  EXPECT_EQ(FirstBytes("aü東🚀", 1), "a");
  EXPECT_EQ(FirstBytes("aü東🚀", 2), "a");
  EXPECT_EQ(FirstBytes("aü東🚀", 3), "aü");
  EXPECT_EQ(FirstBytes("aü東🚀", 5), "aü");
  EXPECT_EQ(FirstBytes("aü東🚀", 6), "aü東");
  for (const std::size_t count : {7u, 8u, 9u}) EXPECT_EQ(FirstBytes("aü東🚀", count), "aü東");
  EXPECT_EQ(FirstBytes("aü東🚀", 10), "aü東🚀");
  EXPECT_EQ(FirstBytes("aü東🚀", 11), "aü東🚀");
}

TEST(Text, FirstBytesTakesMalformedBytesOneByOne) {
  EXPECT_EQ(FirstBytes("\x80\x80\x80\x80\x80", 3), "\x80\x80\x80");
  EXPECT_EQ(FirstBytes("a\xC3z", 2), "a\xC3");
}

TEST(Text, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(EqualNoCase("", ""));
  EXPECT_TRUE(EqualNoCase("RibName", "rIBnAME"));
  EXPECT_TRUE(EqualNoCase("GRÜN", "grün"));
  EXPECT_TRUE(EqualNoCase("ΣΊΣΥΦΟΣ", "σίσυφος"));
  EXPECT_TRUE(EqualNoCase("МОСКВА", "москва"));
  EXPECT_TRUE(EqualNoCase("\u212A", "k"));  // the Kelvin sign
  EXPECT_TRUE(EqualNoCase("Bloc\u212A", "bLOCk"));
  EXPECT_FALSE(EqualNoCase("RibName", "RibNam"));
  EXPECT_FALSE(EqualNoCase("RibNam", "RibName"));
  EXPECT_FALSE(EqualNoCase("a_", "a?"));
  EXPECT_FALSE(EqualNoCase("[", "{"));
}

TEST(Text, FoldingIsSimple) {
  EXPECT_TRUE(EqualNoCase("ẞ", "ß"));
  EXPECT_FALSE(EqualNoCase("straße", "STRASSE"));
  EXPECT_FALSE(EqualNoCase("İ", "i"));
  EXPECT_FALSE(EqualNoCase("ı", "I"));
}

TEST(Text, AMalformedByteEqualsOnlyItself) {
  EXPECT_TRUE(EqualNoCase("A\xFF", "a\xFF"));
  EXPECT_FALSE(EqualNoCase("a\xFF", "a\xFE"));
  EXPECT_FALSE(EqualNoCase("a\xFF", "a\uFFFD"));
}

TEST(Text, FindsAPrefixWithoutRegardToCase) {
  EXPECT_TRUE(StartsWithNoCase("OrvExport", "orve"));
  EXPECT_TRUE(StartsWithNoCase("OrvExport", ""));
  EXPECT_TRUE(StartsWithNoCase("Größe", "GRÖ"));
  EXPECT_FALSE(StartsWithNoCase("Orv", "OrvExport"));
  EXPECT_FALSE(StartsWithNoCase("OrvRender", "OrvE"));
}

TEST(Text, ContainsAPart) {
  EXPECT_TRUE(Contains("Rotate", "tat"));
  EXPECT_TRUE(Contains("Rotate", ""));
  EXPECT_TRUE(Contains("", ""));
  EXPECT_FALSE(Contains("Rotate", "rot"));
  EXPECT_FALSE(Contains("", "a"));
}

TEST(Text, ControlCharactersAreThoseOfAscii) {
  for (int byte = 0; byte < 256; ++byte) {
    EXPECT_EQ(IsControl(static_cast<char>(byte)), byte < 0x20 || byte == 0x7F) << byte;
  }
}

TEST(Text, TrimsBlanksTabsAndLineEnds) {
  EXPECT_EQ(Trimmed("  Key = value \t\r\n"), "Key = value");
  EXPECT_EQ(Trimmed(" \t\r\n"), "");
  EXPECT_EQ(Trimmed(""), "");
}

TEST(Text, FormatsWithADecimalPointUnderAnyLocale) {
  EXPECT_EQ(Format("%g %.2f %d %s", 1.5, 2.25, 1234567, "ü"), "1.5 2.25 1234567 ü");
  EXPECT_EQ(Format("%s", ""), "");
}

TEST(Text, FormatsLongTexts) {
  const std::string text(100000, 'x');
  EXPECT_EQ(Format("<%s>", text.c_str()), "<" + text + ">");
}

}  // namespace
}  // namespace host
