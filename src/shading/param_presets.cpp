#include "shading/param_presets.h"

#include <string_view>

#include "host/system/text.h"

namespace orv {
namespace {

bool Has(const ShaderParam& param, std::string_view part) {
  return host::Contains(param.Name, part);
}

bool Is(const ShaderParam& param, std::string_view name) {
  return host::EqualNoCase(param.Name, name);
}

// What is offered for a single number: the first row that fits.
struct PresetRow {
  bool (*Fits)(const ShaderParam& param);
  std::string_view Presets;
};

constexpr PresetRow kSingleNumber[] = {
    {[](const ShaderParam& p) { return p.IsSampleCount; }, "1;2;4;8;16;32;64;128"},
    {[](const ShaderParam& p) { return Has(p, "Blur"); }, "0;0.005;0.01;0.02;0.05;0.1;0.2"},
    {[](const ShaderParam& p) { return Is(p, "Metallic") || Is(p, "UseIndexOfRefraction"); },
     "0;1"},
    {[](const ShaderParam& p) { return Has(p, "Level"); }, "1;2;3;4;5;6;7;8;9"},
    {[](const ShaderParam& p) { return Is(p, "IndexOfRefraction"); }, "0.67;0.75;1.0;1.3;1.5"},
    {[](const ShaderParam& p) { return Is(p, "PatternSize") || Is(p, "Pattern3DSize"); },
     "0.01;0.02;0.05;0.1;0.2;0.5;1;2;5;10;20;50;100;200;500;1000"},
    {[](const ShaderParam& p) { return Has(p, "Angle") || Has(p, "Rotate"); },
     "0;45;90;135;180;225;270;315"},
    {[](const ShaderParam& p) { return Is(p, "Use2DCoordinates"); }, "0;1"},
    {[](const ShaderParam& p) { return Has(p, "FrontOnly"); }, "-1;0;1"},
    {[](const ShaderParam&) { return true; }, "0.0;0.1;0.2;0.3;0.4;0.5;0.6;0.7;0.8;0.9;1.0"},
};

std::string_view SingleNumberPresets(const ShaderParam& param) {
  for (const PresetRow& row : kSingleNumber) {
    if (row.Fits(param)) return row.Presets;
  }
  return {};
}

std::string_view FloatPresets(const ShaderParam& param) {
  switch (param.Count) {
    case 1:
      return SingleNumberPresets(param);
    case 2:
      return "0 0;0.1 0.1;0.2 0.2;0.3 0.3;0.4 0.4;0.5 0.5;0.6 0.6;0.7 0.7;0.8 0.8;0.9 0.9;1 1";
    case 3:
      return Has(param, "Axis") ? "1 0 0;0 1 0;0 0 1" : "0 0 0";
    case 16:
      return "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1";
    default:
      return {};
  }
}

}  // namespace

void SetParamPresets(ShaderParam& param) {
  param.Presets = param.Kind == ParamKind::Float ? FloatPresets(param) : std::string_view();
}

}  // namespace orv
