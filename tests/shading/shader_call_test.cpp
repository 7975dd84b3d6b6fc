#include "shading/shader_call.h"

#include <gmock/gmock.h>

#include <vector>

#include "shading/shader_declaration.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kPlastic =
    R"("VPlastic" "float Diffuse" [0.5] "color SpecularColor" [1 1 1])"
    R"( "string ColorMapName" ["wood.tx"] "float[2] TextureSizeXY" [1 1])";
constexpr std::size_t kMegabyte = std::size_t{1} << 20;

std::vector<std::string> Tokens(std::string_view text) {
  std::vector<std::string> tokens;
  std::size_t position = 0;
  std::string_view token;
  while (NextToken(text, position, token)) {
    EXPECT_LE(position, text.size());
    tokens.emplace_back(token);
  }
  return tokens;
}

TEST(NextToken, TakesQuotesBracketsAndWords) {
  EXPECT_THAT(Tokens(R"("a b"  [1 2]word "c")"), ElementsAre("a b", "1 2", "word", "c"));
}

TEST(NextToken, AWordGoesOnToTheNextBlank) {
  EXPECT_THAT(Tokens(R"(a"b c[d] e)"), ElementsAre("a\"b", "c[d]", "e"));
}

TEST(NextToken, OnlyABlankSeparates) {
  EXPECT_THAT(Tokens("a\tb\nc d"), ElementsAre("a\tb\nc", "d"));
}

TEST(NextToken, EmptyQuotesAndBracketsAreEmptyTokens) {
  EXPECT_THAT(Tokens(R"("" [])"), ElementsAre("", ""));
}

TEST(NextToken, BracketsEndAtTheFirstClosingOneAlsoInsideQuotes) {
  EXPECT_THAT(Tokens(R"(["a]b"] c)"), ElementsAre("\"a", "b\"]", "c"));
}

TEST(NextToken, TheEndOfTheTextEndsATokenThatIsNotClosed) {
  EXPECT_THAT(Tokens("\"a b"), ElementsAre("a b"));
  EXPECT_THAT(Tokens("[1 2"), ElementsAre("1 2"));
  EXPECT_THAT(Tokens("\""), ElementsAre(""));
  EXPECT_THAT(Tokens("a ["), ElementsAre("a", ""));
}

TEST(NextToken, BlanksAloneAreNoToken) {
  EXPECT_THAT(Tokens(""), IsEmpty());
  EXPECT_THAT(Tokens("   "), IsEmpty());
}

TEST(NextToken, LeavesTheTokenWhenThereIsNoneAndTakesAPositionBehindTheEnd) {
  std::string_view token = "before";
  std::size_t position = 9;
  EXPECT_FALSE(NextToken("abc", position, token));
  EXPECT_EQ(token, "before");
}

TEST(ShaderNameOf, IsTheFirstToken) {
  EXPECT_EQ(ShaderNameOf(kPlastic), "VPlastic");
  EXPECT_EQ(ShaderNameOf("\"Rhino\""), "Rhino");
  EXPECT_EQ(ShaderNameOf("  plain text"), "plain");
  EXPECT_EQ(ShaderNameOf(""), "");
}

TEST(ReadDeclaration, TellsTypeLengthAndName) {
  const auto declaration = ReadDeclaration("float[2] Size more");
  ASSERT_TRUE(declaration);
  EXPECT_EQ(declaration->Type, "float[2]");
  EXPECT_EQ(declaration->BaseType, "float");
  EXPECT_EQ(declaration->Length, 2);
  EXPECT_EQ(declaration->Name, "Size");
}

TEST(ReadDeclaration, NeedsTwoWords) {
  EXPECT_FALSE(ReadDeclaration("float"));
  EXPECT_FALSE(ReadDeclaration(""));
}

TEST(ReadDeclaration, AStorageWordIsTakenForTheType) {
  EXPECT_EQ(ReadDeclaration("output float Size")->BaseType, "output");
  EXPECT_EQ(ReadDeclaration("varying color Cs")->Name, "color");
}

TEST(ReadDeclaration, HoldsTheLength) {
  const auto length = [](const std::string& type) { return ReadDeclaration(type + " A")->Length; };
  EXPECT_EQ(length("float"), 1);
  EXPECT_EQ(length("float[]"), 1);
  EXPECT_EQ(length("float["), 1);
  EXPECT_EQ(length("float[0]"), 1);
  EXPECT_EQ(length("float[-4]"), 1);
  EXPECT_EQ(length("float[x]"), 1);
  EXPECT_EQ(length("float[16"), 16);
  EXPECT_EQ(length("float[9999]"), 9999);
  EXPECT_EQ(length("float[10000]"), 9999);
  EXPECT_EQ(length("float[2147483647]"), 9999);
  EXPECT_EQ(length("float[2147483648]"), 1);
}

TEST(ReadDeclaration, ABracketAtTheFrontMakesNoArray) {
  const auto declaration = ReadDeclaration(R"("[4]" A)");
  EXPECT_EQ(declaration->BaseType, "[4]");
  EXPECT_EQ(declaration->Length, 1);
}

TEST(GetStringParam, GivesTheTextWithoutQuotes) {
  std::string value;
  EXPECT_TRUE(GetStringParam(kPlastic, "ColorMapName", value));
  EXPECT_EQ(value, "wood.tx");
  EXPECT_TRUE(GetStringParam(R"("X" "string A" [ "a"b" "c"])", "A", value));
  EXPECT_EQ(value, " ab c");
  EXPECT_TRUE(GetStringParam(R"("X" "string A" [""])", "A", value));
  EXPECT_EQ(value, "");
}

TEST(GetStringParam, NeedsTheRightNameAndType) {
  std::string value = "before";
  EXPECT_FALSE(GetStringParam(kPlastic, "colormapname", value));
  EXPECT_FALSE(GetStringParam(kPlastic, "Diffuse", value));
  EXPECT_FALSE(GetStringParam(kPlastic, "", value));
  EXPECT_FALSE(GetStringParam(R"("X" "string[2] A" ["a" "b"])", "A", value));
  EXPECT_FALSE(GetStringParam(R"("X" "output string A" ["a"])", "A", value));
  EXPECT_FALSE(GetStringParam(R"("string A" ["a"])", "A", value));
  EXPECT_FALSE(GetStringParam(R"("X" "string A")", "A", value));
  EXPECT_EQ(value, "before");
}

TEST(GetFloatParam, GivesTheNumber) {
  double value = 0;
  EXPECT_TRUE(GetFloatParam(kPlastic, "Diffuse", value));
  EXPECT_EQ(value, 0.5);
  EXPECT_TRUE(GetFloatParam(R"("X" "float[1] A" [ 2 3])", "A", value));
  EXPECT_EQ(value, 2);
  EXPECT_TRUE(GetFloatParam(R"("X" "float A" [x])", "A", value));
  EXPECT_EQ(value, 0);
}

TEST(GetFloatParam, HoldsTheNumber) {
  double value = 0;
  EXPECT_TRUE(GetFloatParam(R"("X" "float A" [1e31])", "A", value));
  EXPECT_EQ(value, 1e30);
  EXPECT_TRUE(GetFloatParam(R"("X" "float A" [-1e300])", "A", value));
  EXPECT_EQ(value, -1e30);
}

TEST(GetFloatParam, GoesOnBehindANumberOutOfRange) {
  double value = 7;
  EXPECT_TRUE(GetFloatParam(R"("X" "float A" [1e999] "float A" [3])", "A", value));
  EXPECT_EQ(value, 3);
  EXPECT_FALSE(GetFloatParam(R"("X" "float A" [1e999])", "A", value));
  EXPECT_EQ(value, 3);
}

TEST(GetFloatParam, GoesOnBehindANan) {
  double value = 7;
  EXPECT_TRUE(GetFloatParam(R"("X" "float A" [nan] "float A" [3])", "A", value));
  EXPECT_EQ(value, 3);
  EXPECT_FALSE(GetFloatParam(R"("X" "float A" [-nan])", "A", value));
  EXPECT_EQ(value, 3);
}

TEST(GetFloatParam, TakesNoArray) {
  double value = 7;
  EXPECT_FALSE(GetFloatParam(kPlastic, "TextureSizeXY", value));
  EXPECT_TRUE(GetFloatParam(R"("X" "float[2] A" [1 2] "float A" [3])", "A", value));
  EXPECT_EQ(value, 3);
}

struct Rgb {
  double Red = 7;
  double Green = 8;
  double Blue = 9;
};

Rgb ColorIn(const std::string& value) {
  Rgb rgb;
  EXPECT_TRUE(
      GetColorParam("\"X\" \"color C\" [" + value + "]", "C", rgb.Red, rgb.Green, rgb.Blue));
  return rgb;
}

TEST(GetColorParam, HoldsThePartsButNotToOne) {
  const Rgb rgb = ColorIn("2 -1 1e31");
  EXPECT_EQ(rgb.Red, 2);
  EXPECT_EQ(rgb.Green, 0);
  EXPECT_EQ(rgb.Blue, 1e30);
}

TEST(GetColorParam, LeavesAPartThatCannotBeRead) {
  const Rgb rgb = ColorIn("0.25 1e999");
  EXPECT_EQ(rgb.Red, 0.25);
  EXPECT_EQ(rgb.Green, 8);
  EXPECT_EQ(rgb.Blue, 9);
}

TEST(GetColorParam, LeavesAPartThatIsANan) {
  const Rgb rgb = ColorIn("nan 0.5 -nan");
  EXPECT_EQ(rgb.Red, 7);
  EXPECT_EQ(rgb.Green, 0.5);
  EXPECT_EQ(rgb.Blue, 9);
}

TEST(GetColorParam, TakesNoArrayAndNoOtherType) {
  Rgb rgb;
  const auto read = [&](std::string_view text, std::string_view name) {
    return GetColorParam(text, name, rgb.Red, rgb.Green, rgb.Blue);
  };
  EXPECT_FALSE(read(R"("X" "color[2] C" [1 1 1 0 0 0])", "C"));
  EXPECT_FALSE(read(kPlastic, "Diffuse"));
  EXPECT_TRUE(read(kPlastic, "SpecularColor"));
}

std::string WithString(std::string text, std::string_view name, std::string_view value) {
  EXPECT_TRUE(SetStringParam(text, name, value));
  return text;
}

TEST(SetStringParam, ReplacesTheValueOnly) {
  EXPECT_EQ(WithString(R"("X" "string A"["a"]  "float B" [1])", "A", "ny \\ æ"),
            R"("X" "string A" ["ny \ æ"]  "float B" [1])");
  EXPECT_EQ(WithString(R"("X" "string A" ["a)", "A", ""), R"("X" "string A" [""])");
  EXPECT_EQ(WithString(R"("X" "string A" a "string A" b)", "A", "c"),
            R"("X" "string A" ["c"] "string A" b)");
}

TEST(SetFloatParam, WritesSixDigits) {
  std::string text(kPlastic);
  EXPECT_TRUE(SetFloatParam(text, "Diffuse", 1.0 / 3));
  EXPECT_EQ(text, R"("VPlastic" "float Diffuse" [0.333333] "color SpecularColor" [1 1 1])"
                  R"( "string ColorMapName" ["wood.tx"] "float[2] TextureSizeXY" [1 1])");
}

TEST(SetFloatParam, LeavesAFloatArrayOfTheName) {
  std::string text(kPlastic);
  EXPECT_FALSE(SetFloatParam(text, "TextureSizeXY", 3));
  EXPECT_FALSE(SetFloatParam(text, "diffuse", 3));
  EXPECT_EQ(text, kPlastic);
}

TEST(SetColorParam, WritesTheFractions) {
  std::string text = R"("X" "color C" [1 1 1] "float A" [2])";
  EXPECT_TRUE(SetColorParam(text, "C", {255, 0, 51}));
  EXPECT_EQ(text, R"("X" "color C" [1 0 0.2] "float A" [2])");
}

TEST(SetColorParam, TakesAnArrayToo) {
  std::string text = R"("X" "color[2] C" [1 1 1 0 0 0])";
  EXPECT_TRUE(SetColorParam(text, "C", {0, 0, 0}));
  EXPECT_EQ(text, R"("X" "color[2] C" [0 0 0])");
}

TEST(SetParams, SetsEachAsItWouldBeSetAlone) {
  const std::string before =
      R"("X" "float[2] A" [1 2] "float A"[3]"string A" "old" "float A" [4] "color[2] C" [1 1 1 0 0 0])"
      R"( "color C" [1 1 1] "output string A" [""] "string D" ["end)";
  const std::vector<ParamValue> values = {StringValue("D", "behind"), ColorValue("C", {0, 255, 51}),
                                          FloatValue("A", 0.5),       StringValue("A", "text"),
                                          FloatValue("Missing", 1),   StringValue("C", "no color")};
  std::string oneByOne = before;
  EXPECT_TRUE(SetStringParam(oneByOne, "D", "behind"));
  EXPECT_TRUE(SetColorParam(oneByOne, "C", {0, 255, 51}));
  EXPECT_TRUE(SetFloatParam(oneByOne, "A", 0.5));
  EXPECT_TRUE(SetStringParam(oneByOne, "A", "text"));
  std::string text = before;
  EXPECT_EQ(SetParams(text, values), 4);
  EXPECT_EQ(text, oneByOne);
  EXPECT_EQ(
      text,
      R"("X" "float[2] A" [1 2] "float A" [0.5]"string A" ["text"] "float A" [4])"
      R"( "color[2] C" [0 1 0.2] "color C" [1 1 1] "output string A" [""] "string D" ["behind"])");
}

TEST(SetParams, TheLastOfTwoValuesCounts) {
  std::string text = R"("X" "float A" [1] "float A" [2])";
  const std::vector<ParamValue> values = {FloatValue("A", 3), FloatValue("A", 4)};
  EXPECT_EQ(SetParams(text, values), 1);
  EXPECT_EQ(text, R"("X" "float A" [4] "float A" [2])");
}

TEST(SetParams, WithoutValuesNothingChanges) {
  std::string text(kPlastic);
  EXPECT_EQ(SetParams(text, {}), 0);
  EXPECT_EQ(text, kPlastic);
}

TEST(ShaderCall, NothingIsFoundInAnEmptyText) {
  std::string text;
  double number = 0;
  EXPECT_FALSE(GetStringParam("", "A", text));
  EXPECT_FALSE(GetFloatParam("", "A", number));
  EXPECT_FALSE(SetStringParam(text, "A", "a"));
  EXPECT_EQ(text, "");
}

// Each of these takes hours when a step looks at the whole text again.
TEST(ShaderCall, AMegabyteIsWalkedOnce) {
  for (const std::string_view piece :
       {"\"", "[", "]", " ", "[]", "\"\"", "\" [", "a ", "\"a b\" "}) {
    std::string text = "\"X\" ";
    while (text.size() < kMegabyte) text += piece;
    std::string value;
    EXPECT_FALSE(GetStringParam(text, "Name", value)) << piece;
    EXPECT_FALSE(SetColorParam(text, "Name", {0, 0, 0})) << piece;
    EXPECT_FALSE(SetFloatParam(text, "Name", 1)) << piece;
  }
}

TEST(ShaderCall, AValueOfAMegabyteIsTaken) {
  std::string text = R"("X" "string A" [""] "float B" [1])";
  EXPECT_TRUE(SetStringParam(text, "A", std::string(kMegabyte, 'x')));
  std::string value;
  EXPECT_TRUE(GetStringParam(text, "A", value));
  EXPECT_EQ(value.size(), kMegabyte);
  double number = 0;
  EXPECT_TRUE(GetFloatParam(text, "B", number));
  EXPECT_EQ(number, 1);
}

}  // namespace
}  // namespace orv
