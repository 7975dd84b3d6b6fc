#include <gmock/gmock.h>

#include <utility>

#include "shading/shader_params.h"

namespace orv {
namespace {

using testing::ElementsAre;

std::vector<ShaderParam> Parsed(const std::string& params) {
  std::string name;
  return ParseParamList("\"X\" " + params, name, 1);
}

// Floats with these names.
std::vector<ShaderParam> Floats(std::initializer_list<std::string> names) {
  std::string text;
  for (const std::string& name : names) text += " \"float " + name + "\" [1]";
  return Parsed(text);
}

std::string LabelOf(const std::string& name) {
  return Floats({name}).at(0).Label;
}

// The label below a head.
std::string GroupedLabelOf(const std::string& name) {
  return Floats({name.substr(0, 2), name}).at(1).Label;
}

std::vector<std::string> Labels(const std::vector<ShaderParam>& params) {
  std::vector<std::string> labels;
  for (const ShaderParam& param : params) labels.push_back(param.Label);
  return labels;
}

TEST(ParamLabels, AreSplitIntoWords) {
  EXPECT_EQ(LabelOf("SpecularColor"), "Specular color");
  EXPECT_EQ(LabelOf("TextureSizeXY"), "Texture size x y");
  EXPECT_EQ(LabelOf("Pattern3DSize"), "Pattern3 d size");
  EXPECT_EQ(LabelOf("lower_case"), "lower_case");
  EXPECT_EQ(LabelOf("ÄÖColor"), "ÄÖ color");
}

TEST(ParamLabels, SomeNamesHaveLabelsOfTheirOwn) {
  EXPECT_EQ(LabelOf("ColorMapName"), "Color map");
  EXPECT_EQ(LabelOf("OpacityMapName"), "Opacity map");
  EXPECT_EQ(LabelOf("SpecularMapName"), "Specular map");
  EXPECT_EQ(LabelOf("Use2DCoordinates"), "Use 2 d coordinates");
  EXPECT_EQ(LabelOf("colormapname"), "colormapname");
}

TEST(ParamLabels, NamesBelowAHeadHaveShorterOnes) {
  constexpr std::pair<const char*, const char*> kLabels[] = {
      {"ReflectionSamples", "   Rays"},
      {"ReflectionBlur", "   Blur"},
      {"ReflectionMaxLevel", "   Max level"},
      {"ReflectionName", "   Map name"},
      {"ReflectionSpace", "   Space"},
      {"ReflectionGroups", "   Groups"},
      {"TransmissionSamples", "   Rays"},
      {"TransmissionBlur", "   Blur"},
      {"TransmissionMaxLevel", "   Max level"},
      {"TransmissionColor", "   Color"},
      {"SpecularRoughness", "   Roughness"},
      {"SpecularSharpness", "   Sharpness"},
      {"SpecularColor", "   Color"},
      {"DiffuseRoughness", "   Roughness"},
  };
  for (const auto& [name, label] : kLabels) EXPECT_EQ(GroupedLabelOf(name), label);
  EXPECT_EQ(GroupedLabelOf("SpecularDepth"), "   Specular depth");
  EXPECT_EQ(GroupedLabelOf("ColorMapName"), "Color map");
  EXPECT_EQ(LabelOf("ReflectionSamples"), "Reflection samples");
}

TEST(ParamGroups, NamesThatBeginAlikeFollowTheirHead) {
  const auto params = Floats({"Ambient", "Specular", "SpecularColor", "SpRest", "Other"});
  EXPECT_THAT(Labels(params),
              ElementsAre("Ambient", "Specular", "   Color", "   Sp rest", "Other"));
  EXPECT_FALSE(params[0].GroupHead);
  EXPECT_TRUE(params[1].GroupHead);
  EXPECT_FALSE(params[1].Collapsed);
  EXPECT_TRUE(params[2].Collapsed);
  EXPECT_TRUE(params[3].Collapsed);
  EXPECT_FALSE(params[2].GroupHead);
  EXPECT_FALSE(params[4].Collapsed);
}

TEST(ParamGroups, CaseMattersAndTheNextParameterHasToFollow) {
  for (const auto& params :
       {Floats({"Specular", "specularColor"}), Floats({"Specular", "Other", "SpecularColor"}),
        Floats({"S", "Specular"})}) {
    for (const ShaderParam& param : params) {
      EXPECT_FALSE(param.GroupHead) << param.Name;
      EXPECT_FALSE(param.Collapsed) << param.Name;
    }
  }
}

TEST(ParamGroups, NamesOfOneCharacterAreAlikeOnlyWhenTheyAreEqual) {
  EXPECT_TRUE(Floats({"S", "S"})[0].GroupHead);
  EXPECT_FALSE(Floats({"S", "s"})[0].GroupHead);
  EXPECT_FALSE(Floats({"Sp", "S"})[0].GroupHead);
}

TEST(ParamGroups, EqualNamesAreAGroup) {
  const auto params = Floats({"Size", "Size", "Size"});
  EXPECT_THAT(Labels(params), ElementsAre("Size", "   Size", "   Size"));
  EXPECT_TRUE(params[0].GroupHead);
  EXPECT_TRUE(params[2].Collapsed);
}

TEST(ParamGroups, CountCharactersNotBytes) {
  EXPECT_TRUE(Floats({"ÄÖ1", "ÄÖ2"})[0].GroupHead);
  EXPECT_FALSE(Floats({"ÄÖ1", "ÄÜ2"})[0].GroupHead);
}

TEST(ParamGroups, AHeadMayBeTheEndOfTheGroupBefore) {
  const auto params = Floats({"Aa1", "Aa2", "Bb1", "Bb2"});
  EXPECT_TRUE(params[0].GroupHead);
  EXPECT_TRUE(params[2].GroupHead);
  EXPECT_TRUE(params[3].Collapsed);
}

TEST(ParamCaptions, NameTheParameterBehind) {
  const auto params = Parsed(R"("string ATweak1Name" ["Bark tone"] "float Depth" [1])");
  EXPECT_EQ(params[1].Label, "Bark tone");
  EXPECT_TRUE(params[0].AlwaysHidden);
  EXPECT_TRUE(params[0].Collapsed);
  EXPECT_FALSE(params[1].AlwaysHidden);
  EXPECT_TRUE(params[1].Collapsed);
}

TEST(ParamCaptions, WithoutATextHideBoth) {
  const auto params = Parsed(R"("string ATweak1Name" [""] "float Depth" [1])");
  for (const ShaderParam& param : params) {
    EXPECT_TRUE(param.AlwaysHidden) << param.Name;
    EXPECT_TRUE(param.Collapsed) << param.Name;
  }
  EXPECT_EQ(params[1].Label, "Depth");
}

// It reads as the label of a row that belongs to a group already.
TEST(ParamCaptions, ThatBeginWithABlankMakeNoHead) {
  const auto params =
      Parsed(R"("string ATweak" [" Bark tone"] "float SpecularColor" [1] "float Specular" [1])");
  EXPECT_EQ(params[1].Label, "   Color");
  EXPECT_FALSE(params[1].GroupHead);
  EXPECT_TRUE(params[1].Collapsed);
  EXPECT_EQ(params[2].Label, "Specular");
  EXPECT_FALSE(params[2].Collapsed);
  EXPECT_EQ(Parsed(R"("string ATweak" [" BarkTone"] "float Depth" [1])")[1].Label, " Bark tone");
}

TEST(ParamCaptions, TheParameterBehindIsNoCaptionItself) {
  const auto params =
      Parsed(R"("string ATweak" ["one"] "string BTweak" ["two"] "float Depth" [1])");
  EXPECT_EQ(params[1].Label, "one");
  EXPECT_EQ(params[2].Label, "Depth");
  EXPECT_FALSE(params[1].AlwaysHidden);
  EXPECT_FALSE(params[2].Collapsed);
}

TEST(ParamCaptions, TheLastParameterIsAnOrdinaryString) {
  const auto params = Parsed(R"("float Depth" [1] "string ATweak" [""])");
  EXPECT_FALSE(params[1].AlwaysHidden);
  EXPECT_FALSE(params[1].Collapsed);
  EXPECT_EQ(params[1].Label, "A tweak");
}

TEST(ParamCaptions, AreStrings) {
  const auto params = Floats({"ATweak", "Depth"});
  EXPECT_FALSE(params[0].AlwaysHidden);
  EXPECT_FALSE(params[1].Collapsed);
}

TEST(ParamCaptions, AHiddenParameterIsNoHeadButTheNextOneMayBe) {
  const auto params = Parsed(R"("string CoTweak1Name" ["Tone"] "color CoTweak1" [1 1 1])"
                             R"( "string CoTweak2Name" [""] "color CoTweak2" [1 1 1])");
  EXPECT_FALSE(params[0].GroupHead);
  EXPECT_TRUE(params[1].GroupHead);
  EXPECT_FALSE(params[1].Collapsed);
  EXPECT_EQ(params[1].Label, "Tone");
  EXPECT_TRUE(params[3].AlwaysHidden);
  EXPECT_EQ(params[3].Label, "   Co tweak2");
}

TEST(ParamFlags, FollowTheName) {
  const auto param = [](const std::string& name) { return Floats({name}).at(0); };
  EXPECT_TRUE(param("ReflectionSamples").IsSampleCount);
  EXPECT_TRUE(param("TransmissionSamples").IsSampleCount);
  EXPECT_TRUE(param("MyLevels").IsSampleCount);
  EXPECT_FALSE(param("ShadowSamples").IsSampleCount);
  EXPECT_FALSE(param("level").IsSampleCount);
  EXPECT_TRUE(param("ReflectionSpace").IsSpace);
  EXPECT_FALSE(param("space").IsSpace);
  EXPECT_TRUE(param("projection").IsProjection);
  EXPECT_TRUE(Parsed(R"("string Projection" [""])").at(0).IsProjection);
  EXPECT_TRUE(Parsed(R"("color Space" [1 1 1])").at(0).IsSpace);
  EXPECT_FALSE(param("ProjectionName").IsProjection);
}

TEST(ParamFlags, AParsedLevelIsOfferedThePowersOfTwo) {
  EXPECT_EQ(Floats({"MaxLevel"}).at(0).Presets, "1;2;4;8;16;32;64;128");
}

}  // namespace
}  // namespace orv
