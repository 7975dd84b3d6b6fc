#include "shading/param_rows.h"

#include <string_view>
#include <utility>

#include "host/system/text.h"
#include "shading/param_presets.h"

namespace orv {
namespace {

constexpr std::string_view kIndent = "   ";

// A parameter's name and the label in place of it.
using NamedLabel = std::pair<std::string_view, std::string_view>;

constexpr NamedLabel kGroupedLabels[] = {
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

constexpr NamedLabel kLabels[] = {
    {"ColorMapName", "ColorMap"},
    {"OpacityMapName", "OpacityMap"},
    {"SpecularMapName", "SpecularMap"},
    {"Use2DCoordinates", "Use 2D coordinates"},
};

void Hide(ShaderParam& param) {
  param.AlwaysHidden = true;
  param.Collapsed = true;
}

void ApplyCaption(ShaderParam& caption, ShaderParam& tweak) {
  Hide(caption);
  if (caption.Text.empty()) {
    Hide(tweak);
  } else {
    tweak.Label = caption.Text;
    tweak.Collapsed = true;
  }
}

void ApplyCaptions(std::span<ShaderParam> params) {
  for (std::size_t i = 0; i + 1 < params.size(); ++i) {
    if (params[i].Kind != ParamKind::String || !host::Contains(params[i].Name, "Tweak")) continue;
    ApplyCaption(params[i], params[i + 1]);
    ++i;
  }
}

bool SameGroup(const ShaderParam& a, const ShaderParam& b) {
  return host::FirstCodePoints(a.Name, 2) == host::FirstCodePoints(b.Name, 2);
}

// Makes the first of the rows the head of those behind it that begin alike, if there are any.
void FormGroup(std::span<ShaderParam> rows) {
  ShaderParam& head = rows.front();
  if (head.Label.starts_with(' ') || head.AlwaysHidden) return;
  for (ShaderParam& member : rows.subspan(1)) {
    if (!SameGroup(head, member)) break;
    head.GroupHead = true;
    head.Collapsed = false;
    member.Label.insert(0, kIndent);
    member.Collapsed = true;
  }
}

void SetFlags(ShaderParam& param) {
  param.IsSampleCount = param.Name == "ReflectionSamples" || param.Name == "TransmissionSamples" ||
                        host::Contains(param.Name, "Level");
  param.IsSpace = host::Contains(param.Name, "Space");
  param.IsProjection = host::EqualNoCase(param.Name, "Projection");
}

void ReplaceLabel(std::span<const NamedLabel> labels, ShaderParam& param) {
  for (const auto& [name, label] : labels) {
    if (param.Name == name) param.Label = label;
  }
}

// "SpecularColor" becomes "Specular color", "SizeXY" "Size x y".
std::string SplitIntoWords(std::string_view label) {
  std::string words;
  char left = ' ';
  for (const char letter : label) {
    const bool capital = left != ' ' && letter >= 'A' && letter <= 'Z';
    if (capital) words += ' ';
    words += capital ? static_cast<char>(letter - 'A' + 'a') : letter;
    left = letter;
  }
  return words;
}

}  // namespace

void ArrangeParamRows(std::span<ShaderParam> params) {
  ApplyCaptions(params);
  for (std::size_t i = 0; i < params.size(); ++i) {
    ShaderParam& param = params[i];
    FormGroup(params.subspan(i));
    SetFlags(param);
    if (param.Label.starts_with(' ')) ReplaceLabel(kGroupedLabels, param);
    ReplaceLabel(kLabels, param);
    SetParamPresets(param);
    param.Label = SplitIntoWords(param.Label);
  }
}

}  // namespace orv
