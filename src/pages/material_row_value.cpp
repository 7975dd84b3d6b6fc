#include "pages/material_row_value.h"

#include <algorithm>
#include <span>
#include <utility>

#include "host/system/number_text.h"
#include "pages/property_value.h"
#include "settings/number_list.h"
#include "shading/call_string.h"

namespace orv {
namespace {

std::string NumbersText(const ShaderParam& param) {
  std::string text = host::FormatG(param.Values[0]);
  for (std::size_t i = 1; i < static_cast<std::size_t>(param.Count); ++i) {
    text += ' ' + host::FormatG(param.Values[i]);
  }
  return text;
}

std::vector<std::string> PresetsOf(std::string_view presets) {
  std::vector<std::string> choices;
  while (!presets.empty()) {
    const std::size_t end = std::min(presets.find(';'), presets.size());
    choices.emplace_back(presets.substr(0, end));
    presets.remove_prefix(std::min(end + 1, presets.size()));
  }
  return choices;
}

RowReading ReadNumbers(std::string_view text, ShaderParam& param) {
  auto values = param.Values;
  ParseNumberList(text, std::span(values).first(static_cast<std::size_t>(param.Count)));
  const std::vector<std::string> choices = RowChoices(param);
  const bool isChoice = std::find(choices.begin(), choices.end(), text) != choices.end();
  const bool isOther = values != param.Values;
  param.Values = values;
  return {{}, isOther || isChoice};
}

RowReading ReadText(std::string_view text, ShaderParam& param) {
  if (text == DecodeCallString(param.Text)) return {};
  param.Text = EncodeCallString(text);
  return {{}, true};
}

RowReading ReadColor(std::string_view text, ShaderParam& param) {
  std::string problem = ReadPropertyText(param.Name, text, {}, param.Color);
  const bool isRead = problem.empty();
  return {std::move(problem), isRead};
}

}  // namespace

std::string RowValue(const ShaderParam& param) {
  if (param.Kind == ParamKind::Float) return NumbersText(param);
  if (param.Kind == ParamKind::Color) return PropertyText({}, param.Color);
  return DecodeCallString(param.Text);
}

std::vector<std::string> RowChoices(const ShaderParam& param) {
  if (param.Kind == ParamKind::Float) return PresetsOf(param.Presets);
  if (param.Kind == ParamKind::Color) return {};
  if (param.IsProjection) return {kProjectionWords.begin(), kProjectionWords.end()};
  if (param.IsSpace) return {kSpaceWords.begin(), kSpaceWords.end()};
  return {};
}

RowReading ReadRowValue(std::string_view text, ShaderParam& param) {
  if (param.Kind == ParamKind::Float) return ReadNumbers(text, param);
  if (param.Kind == ParamKind::Color) return ReadColor(text, param);
  return ReadText(text, param);
}

}  // namespace orv
