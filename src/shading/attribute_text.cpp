#include "shading/attribute_text.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/system/number_text.h"
#include "host/system/text.h"
#include "settings/number_list.h"

namespace orv {
namespace {

constexpr std::string_view kYes = "Yes";
constexpr std::string_view kNo = "No";

void ReadWord(std::string_view text, const AttributeRule& rule, int& value) {
  const auto word =
      std::find_if(rule.Words.begin(), rule.Words.end(),
                   [text](std::string_view name) { return host::EqualNoCase(name, text); });
  if (word != rule.Words.end()) {
    value = static_cast<int>(word - rule.Words.begin());
  } else if (rule.OtherWord) {
    value = *rule.OtherWord;
  }
}

}  // namespace

std::string AttributeText(const AttributeRule&, bool value) {
  return std::string(value ? kYes : kNo);
}

std::string AttributeText(const AttributeRule& rule, int value) {
  if (rule.Words.empty()) return SettingText(value);
  const int last = static_cast<int>(rule.Words.size()) - 1;
  return std::string(rule.Words[static_cast<std::size_t>(std::clamp(value, 0, last))]);
}

std::string AttributeText(const AttributeRule&, double value) {
  return SettingText(value);
}

std::string AttributeText(const AttributeRule&, const std::string& value) {
  return value;
}

std::string AttributeText(const AttributeRule&, ON_Color value) {
  return SettingText(value);
}

void ReadAttributeText(std::string_view text, const AttributeRule&, bool& value) {
  value = !host::EqualNoCase(text, kNo);
}

void ReadAttributeText(std::string_view text, const AttributeRule& rule, int& value) {
  if (!rule.Words.empty()) {
    ReadWord(text, rule, value);
  } else if (const auto number = host::ParseIntInRange(text)) {
    value = static_cast<int>(rule.Bounds.Hold(*number));
  }
}

void ReadAttributeText(std::string_view text, const AttributeRule& rule, double& value) {
  const auto number = host::ParseRealInRange(text);
  if (number && !std::isnan(*number)) value = rule.Bounds.Hold(*number);
}

void ReadAttributeText(std::string_view text, const AttributeRule& rule, std::string& value) {
  if (!text.empty() || !rule.NotEmpty) value = text;
}

void ReadAttributeText(std::string_view text, const AttributeRule&, ON_Color& value) {
  std::array<double, 3> parts{0, 0, 0};
  ParseNumberList(text, parts);
  value.SetFractionalRGB(parts[0], parts[1], parts[2]);
}

}  // namespace orv
