#include "settings/text_line.h"

#include <gmock/gmock.h>

namespace orv {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) lines.emplace_back(TakeTextLine(text));
  return lines;
}

TEST(TextLine, ComesWithoutItsEnd) {
  EXPECT_THAT(Lines("a\nb\r\n\n\r\nc"), ElementsAre("a", "b", "", "", "c"));
  EXPECT_THAT(Lines(""), ElementsAre());
}

TEST(TextLine, CarriageReturnAloneIsNoEnd) {
  EXPECT_THAT(Lines("a\rb\r"), ElementsAre("a\rb\r"));
}

TEST(TextLine, ZeroByteEndsIt) {
  EXPECT_THAT(Lines("a\0b\nc\0"sv), ElementsAre("a", "c"));
}

TEST(TextLine, LongOneGoesOnAsANextOne) {
  const std::string start(1998, 'v');
  EXPECT_THAT(Lines(start + "ab\nc"), ElementsAre(start + "a", "b", "c"));
  EXPECT_THAT(Lines(start + "\u00e9\nc"), ElementsAre(start, "\u00e9", "c"));
  EXPECT_THAT(Lines(start + "\nc"), ElementsAre(start, "c"));
}

TEST(TextLine, ItsEndDoesNotCount) {
  const std::string longest(1999, 'v');
  for (const std::string end : {"\n", "\r\n"}) {
    EXPECT_THAT(Lines(longest + end + "c"), ElementsAre(longest, "c"));
    EXPECT_THAT(Lines(longest + end + end + "c"), ElementsAre(longest, "", "c"));
    EXPECT_THAT(Lines(longest + "x" + end + "c"), ElementsAre(longest, "x", "c"));
  }
}

TEST(TextLine, OnlyACarriageReturnBeforeItsEndBelongsToTheEnd) {
  EXPECT_THAT(Lines("a\r\r\nb\0\r\nc"sv), ElementsAre("a\r", "b", "c"));
}

}  // namespace
}  // namespace orv
