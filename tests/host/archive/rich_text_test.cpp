#include "host/archive/rich_text.h"

#include <gtest/gtest.h>

namespace {

std::string Plain(std::string_view text) {
  return host::PlainTextFromRichText(text);
}

TEST(RichText, ATextWithoutCommandsStaysAsItIs) {
  EXPECT_EQ(Plain(""), "");
  EXPECT_EQ(Plain("10 mm high {\\par}"), "10 mm high {\\par}");
  EXPECT_EQ(Plain("漢字 ü"), "漢字 ü");
}

TEST(RichText, LinesOfPlainTextsArePartedByLineFeeds) {
  EXPECT_EQ(Plain("one\r\ntwo\rthree\nfour\r\n\r\nsix"), "one\ntwo\nthree\nfour\n\nsix");
  EXPECT_EQ(Plain("end\r"), "end\n");
}

TEST(RichText, FontsAndColorsAreNoText) {
  EXPECT_EQ(
      Plain("{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Times New Roman;}}"
            "{\\colortbl;\\red255\\green0\\blue0;}{\\*\\generator Maker;}\\f0 \\fs18{\\f1 words}}"),
      "words");
}

TEST(RichText, ParagraphsAndLinesEndInLineFeeds) {
  EXPECT_EQ(Plain("{\\rtf1 one\\par two\\line three\\par\n}"), "one\ntwo\nthree");
  EXPECT_EQ(Plain("{\\rtf1{one\\par}{two\\par}}"), "one\ntwo");
  EXPECT_EQ(Plain("{\\rtf1 one\\par\\par two}"), "one\n\ntwo");
  EXPECT_EQ(Plain("{\\rtf1 one\ntwo}"), "onetwo");
}

TEST(RichText, LettersMayBeGivenByTheirNumbers) {
  EXPECT_EQ(Plain("{\\rtf1 90.0\\u176?}"), "90.0°");
  EXPECT_EQ(Plain("{\\rtf1 \\u28450?\\u23383? \\u233?}"), "漢字 é");
  // Halves of a letter beyond the first plane, as negative numbers.
  EXPECT_EQ(Plain("{\\rtf1 \\u-10179?\\u-8704?}"), "😀");
  EXPECT_EQ(Plain("{\\rtf1\\uc0 \\u176 x\\uc2\\u176 ??y}"), "°x°y");
  EXPECT_EQ(Plain("{\\rtf1 {\\uc2 \\u176??}\\u176??}"), "°°?");
  EXPECT_EQ(Plain("{\\rtf1 caf\\'e9 \\'80 \\'d8<>}"), "café € Ø<>");
}

TEST(RichText, SignsOfItsOwnAreEscaped) {
  EXPECT_EQ(Plain("{\\rtf1 a\\\\b\\{c\\}d\\~e\\_f\\-g\\tab h}"), "a\\b{c}d e-fg\th");
}

TEST(RichText, BrokenOnesGiveWhatThereIs) {
  EXPECT_EQ(Plain("{\\rtf1 open {group"), "open group");
  EXPECT_EQ(Plain("{\\rtf1 too}} many}}"), "too many");
  EXPECT_EQ(Plain("{\\rtf1 half \\"), "half ");
  EXPECT_EQ(Plain("{\\rtf1 \\'"), "");
  EXPECT_EQ(Plain("{\\rtf1 \\'4"), "");
  EXPECT_EQ(Plain("{\\rtf1 \\'zz"), "zz");
  EXPECT_EQ(Plain("{\\rtf1 \\u"), std::string(1, '\0'));
  EXPECT_EQ(Plain("{\\rtf1 \\u99999999999999999999?x\\uc-5\\uc99999999 y}"), "\xef\xbf\xbfxy");
  EXPECT_EQ(Plain("{\\rtf1" + std::string(100000, '{') + "deep"), "deep");
  // Half of a pair alone.
  EXPECT_EQ(Plain("{\\rtf1 \\u-10179?}"), "\xef\xbf\xbd");
}

}  // namespace
