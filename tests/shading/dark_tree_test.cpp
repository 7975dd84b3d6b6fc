#include "shading/dark_tree.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "shading/shader_call.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

constexpr std::string_view kTweaks = R"( "string ColorTweak1Name" [""] "color ColorTweak1" [1 1 1])"
                                     R"( "string FloatTweak1Name" [""] "float FloatTweak1" [0])"
                                     R"( "string FloatTweak2Name" [""] "float FloatTweak2" [0])";

class DarkTreeTest : public testing::Test {
 protected:
  // The tweaks of a call after the refresh from a file with this content.
  std::string Refreshed(std::string_view content) {
    WriteFileContent(folder_.Path() / "bark.dst", content);
    const std::string head = "\"VDarkTree\" \"string DarkTreeShader\" [\"" + Path() + "\"]";
    std::string text = head + std::string(kTweaks);
    RefreshDarkTreeTweaks(text);
    EXPECT_TRUE(text.starts_with(head));
    return text.substr(head.size());
  }

  [[nodiscard]] std::string Path() const { return folder_.File("bark.dst"); }

  TempFolder folder_;
};

constexpr std::string_view kRefreshed =
    R"( "string ColorTweak1Name" ["Bark tone"] "color ColorTweak1" [1 0.2 0])"
    R"( "string FloatTweak1Name" ["Depth"] "float FloatTweak1" [0.25])"
    R"( "string FloatTweak2Name" ["Rings"] "float FloatTweak2" [12])";

constexpr std::string_view kBark =
    "DarkTree shader\n"
    "Tweak IF_COLOR\n"
    "  remark : not a tweak's line\n"
    "tweak Name: Bark tone\n"
    "TWEAK Default: 255,51.9 0\n"
    "Tweak IF_PERCENT 1\n"
    "Tweak Name: Depth\n"
    "Tweak Default: 0.25 of 1\n"
    "Tweak IF_INT\n"
    "  Tweak without caption\n"
    "  Tweak Name: Rings\n"
    "  Tweak Default: 12\n";

TEST_F(DarkTreeTest, TakesCaptionsAndDefaults) {
  EXPECT_EQ(Refreshed(kBark), kRefreshed);
}

TEST_F(DarkTreeTest, TakesLineEndsOfEitherKind) {
  std::string content;
  for (const char letter : kBark) content += letter == '\n' ? "\r\n" : std::string(1, letter);
  EXPECT_EQ(Refreshed(content), kRefreshed);
}

TEST_F(DarkTreeTest, FindsAPathWithBackslashes) {
  std::filesystem::create_directories(folder_.Path() / "a b");
  WriteFileContent(folder_.Path() / "a b" / "x.dst", kBark);
  std::string text = R"("X" "string DarkTreeShader" [")" + folder_.File("a b\\x.dst") + "\"]" +
                     std::string(kTweaks);
  RefreshDarkTreeTweaks(text);
  EXPECT_TRUE(text.ends_with(kRefreshed)) << text;
}

TEST_F(DarkTreeTest, LeavesACallWithoutAFile) {
  for (const std::string& head :
       {std::string("\"X\""), std::string(R"("X" "string DarkTreeShader" [""])"),
        R"("X" "string DarkTreeShader" [")" + folder_.File("missing.dst") + "\"]"}) {
    const std::string before = head + std::string(kTweaks);
    std::string text = before;
    RefreshDarkTreeTweaks(text);
    EXPECT_EQ(text, before);
  }
}

TEST_F(DarkTreeTest, SkipsTweaksThatTheCallDoesNotHave) {
  const std::string second =
      "Tweak IF_COLOR\nTweak Name: other\nTweak Default: 0 0 0\n"
      "Tweak IF_BUMP\nTweak Name: third\nTweak Default: 3\n";
  EXPECT_EQ(Refreshed(std::string(kBark) + second), kRefreshed);
}

TEST_F(DarkTreeTest, HoldsValues) {
  EXPECT_EQ(Refreshed("Tweak IF_COLOR\nTweak : c\nTweak : 300 -5 1e30\n"
                      "Tweak IF_INT\nTweak : a\nTweak : 1e10\n"
                      "Tweak IF_INT\nTweak : b\nTweak : -1e300\n"),
            R"( "string ColorTweak1Name" ["c"] "color ColorTweak1" [1 0 1])"
            R"( "string FloatTweak1Name" ["a"] "float FloatTweak1" [1e+09])"
            R"( "string FloatTweak2Name" ["b"] "float FloatTweak2" [-1e+09])");
}

TEST_F(DarkTreeTest, ANumberOutOfRangeIsSkippedAndNotCounted) {
  EXPECT_EQ(Refreshed("Tweak IF_INT\nTweak : a\nTweak : 1e999\n"
                      "Tweak IF_INT\nTweak : b\nTweak : 2\n"),
            R"( "string ColorTweak1Name" [""] "color ColorTweak1" [1 1 1])"
            R"( "string FloatTweak1Name" ["b"] "float FloatTweak1" [2])"
            R"( "string FloatTweak2Name" [""] "float FloatTweak2" [0])");
}

TEST_F(DarkTreeTest, ANanIsSkippedAndNotCounted) {
  EXPECT_EQ(Refreshed("Tweak IF_INT\nTweak : a\nTweak : nan\n"
                      "Tweak IF_INT\nTweak : b\nTweak : 2\n"
                      "Tweak IF_COLOR\nTweak : c\nTweak : 255 nan 51 0\n"),
            R"( "string ColorTweak1Name" ["c"] "color ColorTweak1" [1 0.2 0])"
            R"( "string FloatTweak1Name" ["b"] "float FloatTweak1" [2])"
            R"( "string FloatTweak2Name" [""] "float FloatTweak2" [0])");
}

TEST_F(DarkTreeTest, TheKindOfATweakDoesNotLastForTheNext) {
  EXPECT_EQ(Refreshed("Tweak IF_COLOR\nTweak : c\nTweak : 255 0 51\n"
                      "Tweak IF_INT\nTweak : a\nTweak : 1\n"
                      "Tweak IF_OTHER\nTweak : none\nTweak : 7\n"
                      "Tweak IF_BUMP\nTweak : b\nTweak : 2\n"),
            R"( "string ColorTweak1Name" ["c"] "color ColorTweak1" [1 0 0.2])"
            R"( "string FloatTweak1Name" ["a"] "float FloatTweak1" [1])"
            R"( "string FloatTweak2Name" ["b"] "float FloatTweak2" [2])");
}

TEST_F(DarkTreeTest, ATweakMayBeOfBothKinds) {
  EXPECT_EQ(Refreshed("Tweak IF_COLOR IF_INT\nTweak : a\nTweak : 51 0 0\n"),
            R"( "string ColorTweak1Name" ["a"] "color ColorTweak1" [0.2 0 0])"
            R"( "string FloatTweak1Name" ["a"] "float FloatTweak1" [51])"
            R"( "string FloatTweak2Name" [""] "float FloatTweak2" [0])");
}

TEST_F(DarkTreeTest, AValueLineWithoutAColonEndsTheTweak) {
  EXPECT_EQ(Refreshed("Tweak IF_INT\nTweak : a\nTweak 5\n"
                      "Tweak IF_INT\nTweak : b\nTweak :\n"),
            R"( "string ColorTweak1Name" [""] "color ColorTweak1" [1 1 1])"
            R"( "string FloatTweak1Name" ["b"] "float FloatTweak1" [0])"
            R"( "string FloatTweak2Name" [""] "float FloatTweak2" [0])");
}

TEST_F(DarkTreeTest, ATweakOfNoKnownKindIsPassedOver) {
  EXPECT_EQ(Refreshed("Tweak IF_OTHER\nTweak : a\nTweak : 1\n" + std::string(kBark)), kRefreshed);
}

TEST_F(DarkTreeTest, CaptionsStayReadable) {
  const std::string text = Refreshed(
      "Tweak IF_INT\nTweak : Gr\xF6\xDF"
      "e \"x\" [1]\tand more\nTweak : 1\n");
  std::string caption;
  EXPECT_TRUE(GetStringParam("\"X\"" + text, "FloatTweak1Name", caption));
  EXPECT_EQ(caption, "Größe x [1");
  double value = 0;
  EXPECT_TRUE(GetFloatParam("\"X\"" + text, "FloatTweak1", value));
  EXPECT_EQ(value, 1);
}

TEST_F(DarkTreeTest, ALongLineGoesOnAsTheNext) {
  const std::string line = "Tweak IF_INT" + std::string(1999 - 12, ' ') + "Tweak : a\nTweak : 4\n";
  EXPECT_EQ(Refreshed(line), R"( "string ColorTweak1Name" [""] "color ColorTweak1" [1 1 1])"
                             R"( "string FloatTweak1Name" ["a"] "float FloatTweak1" [4])"
                             R"( "string FloatTweak2Name" [""] "float FloatTweak2" [0])");
}

std::string Repeated(int count, std::string_view tweak) {
  std::string content;
  for (int i = 0; i < count; ++i) content += tweak;
  return content;
}

constexpr std::string_view kFloat = "Tweak IF_INT\nTweak : a\nTweak : 1\n";
constexpr std::string_view kColor = "Tweak IF_COLOR\nTweak : b\nTweak : 255 0 51\n";

// A walk through the call for each of the file's tweaks would take hours.
TEST_F(DarkTreeTest, TakesNoMoreTweaksThanAnEditorShows) {
  WriteFileContent(folder_.Path() / "bark.dst", Repeated(50000, kFloat) + Repeated(50000, kColor));
  std::string text = "\"X\" \"string DarkTreeShader\" [\"" + Path() + "\"]";
  while (text.size() < std::size_t{1} << 20) text += R"( "float A" [1])";
  text += R"( "float FloatTweak200" [0] "float FloatTweak201" [0])"
          R"( "color ColorTweak200" [0 0 0] "color ColorTweak201" [0 0 0])";
  RefreshDarkTreeTweaks(text);
  EXPECT_TRUE(text.ends_with(R"( "float FloatTweak200" [1] "float FloatTweak201" [0])"
                             R"( "color ColorTweak200" [1 0 0.2] "color ColorTweak201" [0 0 0])"));
}

TEST_F(DarkTreeTest, AKindThatIsFullDoesNotEndTheOther) {
  EXPECT_EQ(Refreshed(Repeated(300, kFloat) + std::string(kColor)),
            R"( "string ColorTweak1Name" ["b"] "color ColorTweak1" [1 0 0.2])"
            R"( "string FloatTweak1Name" ["a"] "float FloatTweak1" [1])"
            R"( "string FloatTweak2Name" ["a"] "float FloatTweak2" [1])");
  EXPECT_EQ(Refreshed(Repeated(300, kColor) + std::string(kFloat)),
            R"( "string ColorTweak1Name" ["b"] "color ColorTweak1" [1 0 0.2])"
            R"( "string FloatTweak1Name" ["a"] "float FloatTweak1" [1])"
            R"( "string FloatTweak2Name" [""] "float FloatTweak2" [0])");
}

}  // namespace
}  // namespace orv
