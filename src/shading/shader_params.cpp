#include "shading/shader_params.h"

#include <algorithm>
#include <optional>

#include "host/system/number_text.h"
#include "settings/number_list.h"
#include "shading/gamma.h"
#include "shading/param_rows.h"
#include "shading/shader_call.h"
#include "shading/shader_declaration.h"

namespace orv {
namespace {

constexpr SettingBounds kColorBounds{0, 1};

// Each of these reads a value; false when it doesn't fit the parameter's declaration.

bool ReadFloat(std::string_view value, ShaderParam& param) {
  int count = 0;
  std::size_t position = 0;
  std::string_view token;
  while (NextToken(value, position, token)) {
    const std::optional<double> number = ParseNumber(token);
    if (!number) continue;
    if (count == param.Count) return false;
    if (count > 0) param.Text += ',';
    param.Text += token;
    param.Values[static_cast<std::size_t>(count)] = *number;
    ++count;
  }
  return count == param.Count;
}

bool ReadColor(std::string_view value, double gamma, ShaderParam& param) {
  std::array<double, 3> parts{};
  std::size_t position = 0;
  for (double& part : parts) {
    std::string_view token;
    if (!NextToken(value, position, token)) return false;
    const std::optional<double> number = ParseNumber(token, kColorBounds);
    if (!number) return false;
    part = ApplyGamma(*number, 1 / gamma);
  }
  param.Color.SetFractionalRGB(parts[0], parts[1], parts[2]);
  param.Text = value;
  return true;
}

void ReadString(std::string_view value, ShaderParam& param) {
  param.Text = value;
  std::erase(param.Text, '"');
}

bool ReadValue(const ShaderDeclaration& declaration, std::string_view value, double gamma,
               ShaderParam& param) {
  const bool single = declaration.Length == 1;
  if (declaration.BaseType == "float" &&
      declaration.Length <= static_cast<int>(param.Values.size())) {
    param.Kind = ParamKind::Float;
    param.Count = declaration.Length;
    return ReadFloat(value, param);
  }
  if (declaration.BaseType == "color" && single) {
    param.Kind = ParamKind::Color;
    return ReadColor(value, gamma, param);
  }
  if (declaration.BaseType == "string" && single) {
    ReadString(value, param);
    return true;
  }
  return false;
}

std::optional<ShaderParam> ReadParam(std::string_view declarationText, std::string_view value,
                                     double gamma) {
  const auto declaration = ReadDeclaration(declarationText);
  if (!declaration) return std::nullopt;
  ShaderParam param;
  if (!ReadValue(*declaration, value, gamma, param)) return std::nullopt;
  param.Name = declaration->Name;
  param.Label = declaration->Name;
  param.Declared = declaration->Type;
  return param;
}

std::string ColorText(ON_Color color, double gamma) {
  return host::FormatG(ApplyGamma(color.FractionRed(), gamma)) + ' ' +
         host::FormatG(ApplyGamma(color.FractionGreen(), gamma)) + ' ' +
         host::FormatG(ApplyGamma(color.FractionBlue(), gamma));
}

// The numbers of a float with `separator` between them.
std::string NumbersText(const ShaderParam& param, char separator) {
  std::string text;
  const auto room = static_cast<int>(param.Values.size());
  const auto count = static_cast<std::size_t>(std::clamp(param.Count, 0, room));
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += separator;
    text += host::FormatG(param.Values[i]);
  }
  return text;
}

std::string ValueText(const ShaderParam& param, double gamma) {
  switch (param.Kind) {
    case ParamKind::Float:
      return NumbersText(param, ' ');
    case ParamKind::Color:
      return ColorText(param.Color, gamma);
    case ParamKind::String:
      break;
  }
  return '"' + param.Text + '"';
}

// Behind the last slash; the whole path when nothing is behind it.
std::string_view FilePart(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos || slash + 1 == path.size()) return path;
  return path.substr(slash + 1);
}

}  // namespace

std::vector<ShaderParam> ParseParamList(std::string_view text, std::string& name, double gamma) {
  std::vector<ShaderParam> params;
  std::size_t position = 0;
  std::string_view token;
  name.clear();
  if (!NextToken(text, position, token)) return params;
  name = token;
  std::string_view value;
  while (params.size() < kMaxShaderParams && NextToken(text, position, token) &&
         NextToken(text, position, value)) {
    if (auto param = ReadParam(token, value, gamma)) params.push_back(std::move(*param));
  }
  ArrangeParamRows(params);
  return params;
}

std::string PrintParamList(std::string_view name, std::span<const ShaderParam> params,
                           double gamma) {
  std::string text = "\"";
  text += name;
  text += '"';
  for (const ShaderParam& param : params) {
    text += " \"" + param.Declared + ' ' + param.Name + "\" [" + ValueText(param, gamma) + ']';
  }
  return text;
}

std::string ParamDisplayText(const ShaderParam& param) {
  if (param.Kind == ParamKind::Float && param.Count > 1) return NumbersText(param, ',');
  if (param.Kind == ParamKind::String) return std::string(FilePart(param.Text));
  return "";
}

}  // namespace orv
