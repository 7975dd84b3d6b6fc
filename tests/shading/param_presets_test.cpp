#include "shading/param_presets.h"

#include <gtest/gtest.h>

#include <utility>

namespace orv {
namespace {

std::string PresetsOf(ShaderParam param) {
  param.Presets = "before";
  SetParamPresets(param);
  return param.Presets;
}

std::string FloatPresets(const std::string& name, int count = 1) {
  ShaderParam param;
  param.Kind = ParamKind::Float;
  param.Count = count;
  param.Name = name;
  return PresetsOf(param);
}

TEST(SetParamPresets, DependOnTheCount) {
  EXPECT_EQ(FloatPresets("A", 2),
            "0 0;0.1 0.1;0.2 0.2;0.3 0.3;0.4 0.4;0.5 0.5;0.6 0.6;0.7 0.7;0.8 0.8;0.9 0.9;1 1");
  EXPECT_EQ(FloatPresets("A", 3), "0 0 0");
  EXPECT_EQ(FloatPresets("RotationAxis", 3), "1 0 0;0 1 0;0 0 1");
  EXPECT_EQ(FloatPresets("A", 16), "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1");
  for (const int count : {4, 5, 15}) EXPECT_EQ(FloatPresets("Blur", count), "") << count;
}

TEST(SetParamPresets, DependOnTheNameOfASingleNumber) {
  constexpr std::pair<const char*, const char*> kPresets[] = {
      {"ReflectionBlur", "0;0.005;0.01;0.02;0.05;0.1;0.2"},
      {"metallic", "0;1"},
      {"UseIndexofRefraction", "0;1"},
      {"MaxLevel", "1;2;3;4;5;6;7;8;9"},
      {"INDEXOFREFRACTION", "0.67;0.75;1.0;1.3;1.5"},
      {"PatternSize", "0.01;0.02;0.05;0.1;0.2;0.5;1;2;5;10;20;50;100;200;500;1000"},
      {"pattern3dsize", "0.01;0.02;0.05;0.1;0.2;0.5;1;2;5;10;20;50;100;200;500;1000"},
      {"BumpAngle", "0;45;90;135;180;225;270;315"},
      {"RotateX", "0;45;90;135;180;225;270;315"},
      {"use2dcoordinates", "0;1"},
      {"FrontOnly", "-1;0;1"},
      {"Diffuse", "0.0;0.1;0.2;0.3;0.4;0.5;0.6;0.7;0.8;0.9;1.0"},
      {"blur", "0.0;0.1;0.2;0.3;0.4;0.5;0.6;0.7;0.8;0.9;1.0"},
      {"MetallicPaint", "0.0;0.1;0.2;0.3;0.4;0.5;0.6;0.7;0.8;0.9;1.0"},
  };
  for (const auto& [name, presets] : kPresets) EXPECT_EQ(FloatPresets(name), presets) << name;
}

TEST(SetParamPresets, TheFirstRuleThatFitsCounts) {
  EXPECT_EQ(FloatPresets("BlurLevel"), "0;0.005;0.01;0.02;0.05;0.1;0.2");
  EXPECT_EQ(FloatPresets("AngleLevel"), "1;2;3;4;5;6;7;8;9");
}

TEST(SetParamPresets, SampleCountsArePowersOfTwo) {
  ShaderParam param;
  param.Kind = ParamKind::Float;
  param.Name = "LevelBlur";
  param.IsSampleCount = true;
  EXPECT_EQ(PresetsOf(param), "1;2;4;8;16;32;64;128");
}

TEST(SetParamPresets, ColorsAndStringsHaveNone) {
  ShaderParam param;
  param.Name = "Blur";
  param.Kind = ParamKind::Color;
  EXPECT_EQ(PresetsOf(param), "");
  param.Kind = ParamKind::String;
  EXPECT_EQ(PresetsOf(param), "");
}

}  // namespace
}  // namespace orv
