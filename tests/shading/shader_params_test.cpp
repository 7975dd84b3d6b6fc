#include "shading/shader_params.h"

#include <gmock/gmock.h>

#include "shading/shader_call.h"

namespace orv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

std::vector<ShaderParam> Parsed(std::string_view text, double gamma = 1) {
  std::string name = "before";
  return ParseParamList(text, name, gamma);
}

std::vector<std::string> Names(std::string_view text) {
  std::vector<std::string> names;
  for (const ShaderParam& param : Parsed(text)) names.push_back(param.Name);
  return names;
}

std::string PrintedAgain(std::string_view text, double gamma = 1) {
  std::string name;
  const std::vector<ShaderParam> params = ParseParamList(text, name, gamma);
  return PrintParamList(name, params, gamma);
}

TEST(ParseParamList, GivesTheShadersName) {
  std::string name = "before";
  EXPECT_THAT(ParseParamList("\"VPlastic\"", name, 1), IsEmpty());
  EXPECT_EQ(name, "VPlastic");
}

TEST(ParseParamList, AnEmptyTextHasNoName) {
  for (const char* text : {"", "   "}) {
    std::string name = "before";
    EXPECT_THAT(ParseParamList(text, name, 1), IsEmpty());
    EXPECT_EQ(name, "");
  }
}

TEST(ParseParamList, ReadsAFloat) {
  const auto params = Parsed(R"("X" "float Diffuse" [0.50])");
  ASSERT_EQ(params.size(), 1);
  EXPECT_EQ(params[0].Kind, ParamKind::Float);
  EXPECT_EQ(params[0].Count, 1);
  EXPECT_EQ(params[0].Values[0], 0.5);
  EXPECT_EQ(params[0].Name, "Diffuse");
  EXPECT_EQ(params[0].Label, "Diffuse");
  EXPECT_EQ(params[0].Text, "0.50");
  EXPECT_EQ(params[0].Declared, "float");
  EXPECT_EQ(params[0].OptionIndex, -1);
  EXPECT_EQ(params[0].ListKind, ParamList::None);
  EXPECT_FALSE(params[0].Collapsed);
  EXPECT_FALSE(params[0].AlwaysHidden);
}

TEST(ParseParamList, ReadsAFloatArray) {
  const auto params = Parsed(R"("X" "float[2] A" [1 2])");
  ASSERT_EQ(params.size(), 1);
  EXPECT_EQ(params[0].Count, 2);
  EXPECT_EQ(params[0].Text, "1,2");
  EXPECT_EQ(params[0].Declared, "float[2]");
  EXPECT_EQ(PrintedAgain(R"("X" "float[2] A" [1 2])"), R"("X" "float[2] A" [1 2])");
}

TEST(ParseParamList, TheCountOfNumbersHasToBeThatOfTheDeclaration) {
  EXPECT_THAT(Names(R"("X" "float A" [1 2])"), IsEmpty());
  EXPECT_THAT(Names(R"("X" "float A" [])"), IsEmpty());
  EXPECT_THAT(Names(R"("X" "float[3] A" [1 2])"), IsEmpty());
  EXPECT_THAT(Names(R"("X" "float[0] A" [1])"), ElementsAre("A"));
}

TEST(ParseParamList, AFloatHasAtMostSixteenNumbers) {
  EXPECT_THAT(Names(R"("X" "float[16] A" [1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16])"),
              ElementsAre("A"));
  EXPECT_THAT(Names(R"("X" "float[17] A" [1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17])"), IsEmpty());
}

TEST(ParseParamList, ANumberOutOfRangeDoesNotCount) {
  const auto params = Parsed(R"("X" "float A" [1e999 3] "float B" [1e999])");
  ASSERT_EQ(params.size(), 1);
  EXPECT_EQ(params[0].Values[0], 3);
  EXPECT_EQ(params[0].Text, "3");
}

TEST(ParseParamList, ANanDoesNotCount) {
  const auto params = Parsed(R"("X" "float A" [nan 3] "float B" [nan] "float[2] C" [1 -nan])"
                             R"( "color D" [1 nan 1])");
  ASSERT_EQ(params.size(), 1);
  EXPECT_EQ(params[0].Name, "A");
  EXPECT_EQ(params[0].Values[0], 3);
  EXPECT_EQ(params[0].Text, "3");
}

TEST(ParseParamList, HoldsNumbers) {
  const auto params = Parsed(R"("X" "float[2] A" [1e31 -1e31])");
  ASSERT_EQ(params.size(), 1);
  EXPECT_EQ(params[0].Values[0], 1e30);
  EXPECT_EQ(params[0].Values[1], -1e30);
  EXPECT_EQ(params[0].Text, "1e31,-1e31");
}

TEST(ParseParamList, HoldsAndEncodesAColor) {
  const auto params = Parsed(R"("X" "color C" [2 -1 0.5])", 2);
  ASSERT_EQ(params.size(), 1);
  EXPECT_EQ(params[0].Kind, ParamKind::Color);
  EXPECT_EQ(params[0].Count, 1);
  // The square root of 0.5, of 255.
  EXPECT_EQ(params[0].Color, ON_Color(255, 0, 180));
  EXPECT_EQ(params[0].Text, "2 -1 0.5");
  EXPECT_EQ(params[0].Label, "C");
}

TEST(ParseParamList, AColorNeedsThreeNumbers) {
  EXPECT_THAT(Names(R"("X" "color C" [1 1])"), IsEmpty());
  EXPECT_THAT(Names(R"("X" "color C" [1 1 1e999])"), IsEmpty());
  EXPECT_THAT(Names(R"("X" "color C" [1 1 1 1])"), ElementsAre("C"));
}

TEST(ParseParamList, ReadsAStringWithoutQuotes) {
  const auto params = Parsed(R"("X" "string A" ["a "b" c"])");
  ASSERT_EQ(params.size(), 1);
  EXPECT_EQ(params[0].Kind, ParamKind::String);
  EXPECT_EQ(params[0].Count, 1);
  EXPECT_EQ(params[0].Text, "a b c");
}

TEST(ParseParamList, DropsWhatItDoesNotKnow) {
  EXPECT_THAT(Names(R"("X" "color[2] A" [1 1 1 0 0 0] "string[2] B" ["a" "b"] "point C" [1 2 3])"
                    R"( "vector D" [1 2 3] "normal E" [1 2 3] "matrix F" [1])"
                    R"( "output float G" [1] "varying color H" [1 1 1] "float" [1] "Float I" [1])"
                    R"( "float J" [1])"),
              ElementsAre("J"));
}

TEST(ParseParamList, StopsAtADeclarationWithoutValue) {
  EXPECT_THAT(Names(R"("X" "float A" [1] "float B")"), ElementsAre("A"));
}

TEST(ParseParamList, TakesAValueThatIsNotClosed) {
  EXPECT_THAT(Names(R"("X" "float A" [1)"), ElementsAre("A"));
  EXPECT_EQ(Parsed(R"("X" "string A" ["wood)").at(0).Text, "wood");
}

TEST(ParseParamList, HoldsTwoHundredParameters) {
  std::string text = R"("X" "point Dropped" [0 0 0])";
  for (int i = 1; i <= 201; ++i) text += " \"float P" + std::to_string(i) + "\" [1]";
  const std::vector<std::string> names = Names(text);
  ASSERT_EQ(names.size(), 200);
  EXPECT_EQ(names.back(), "P200");
}

// Hours, when a step looks at the whole text again.
TEST(ParseParamList, AMegabyteIsWalkedOnce) {
  for (const std::string_view piece :
       {"\"", "[", "]", " ", "[]", "\" [", "\"point A\" [1] ", "\"float[16] A\" [1] "}) {
    std::string text = "\"X\" ";
    while (text.size() < kMegabyte) text += piece;
    EXPECT_THAT(Parsed(text), IsEmpty()) << piece;
  }
  std::string numbers;
  while (numbers.size() < kMegabyte) numbers += "1e999 ";
  EXPECT_THAT(Parsed("\"X\" \"float A\" [" + numbers + "1]").size(), 1);
}

TEST(PrintParamList, WritesEachKind) {
  constexpr std::string_view kText =
      R"("VPlastic" "float Diffuse" [0.5] "color SpecularColor" [1 1 1])"
      R"( "string ColorMapName" ["wood.tx"] "float[2] TextureSizeXY" [1 -2.5])";
  EXPECT_EQ(PrintedAgain(kText), kText);
}

TEST(PrintParamList, ANameAloneIsQuoted) {
  EXPECT_EQ(PrintParamList("VPlastic", {}, 1), "\"VPlastic\"");
  EXPECT_EQ(PrintParamList("", {}, 1), "\"\"");
}

TEST(PrintParamList, AColorComesBackRounded) {
  EXPECT_EQ(PrintedAgain(R"("X" "color C" [0.5 0 1])"), R"("X" "color C" [0.501961 0 1])");
  // 180 of 255, squared.
  EXPECT_EQ(PrintedAgain(R"("X" "color C" [0.5 0 1])", 2), R"("X" "color C" [0.49827 0 1])");
}

TEST(PrintParamList, WritesAtMostTheNumbersThatThereAre) {
  ShaderParam param;
  param.Kind = ParamKind::Float;
  param.Declared = "float";
  param.Name = "A";
  param.Count = -1;
  EXPECT_EQ(PrintParamList("X", {&param, 1}, 1), R"("X" "float A" [])");
  param.Count = 99;
  EXPECT_EQ(PrintParamList("X", {&param, 1}, 1),
            R"("X" "float A" [0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0])");
}

TEST(ParamDisplayText, JoinsSeveralNumbers) {
  EXPECT_EQ(ParamDisplayText(Parsed(R"("X" "float[3] A" [1.0 0.25 3])").at(0)), "1,0.25,3");
}

TEST(ParamDisplayText, GivesTheFilesName) {
  const auto shown = [](const std::string& value) {
    return ParamDisplayText(Parsed("\"X\" \"string A\" [\"" + value + "\"]").at(0));
  };
  EXPECT_EQ(shown("C:/tex/wood.tx"), "wood.tx");
  EXPECT_EQ(shown("wood.tx"), "wood.tx");
  EXPECT_EQ(shown("C:/tex/"), "C:/tex/");
  EXPECT_EQ(shown("C:\\tex\\wood.tx"), "C:\\tex\\wood.tx");
  EXPECT_EQ(shown(""), "");
}

TEST(ParamDisplayText, IsEmptyForAllElse) {
  EXPECT_EQ(ParamDisplayText(Parsed(R"("X" "float A" [1])").at(0)), "");
  EXPECT_EQ(ParamDisplayText(Parsed(R"("X" "color A" [1 1 1])").at(0)), "");
}

}  // namespace
}  // namespace orv
