#include "settings/setting_text.h"

#include "host/system/number_text.h"
#include "settings/number_list.h"

namespace orv {

std::string SettingText(bool value) {
  return value ? "1" : "0";
}

std::string SettingText(int value) {
  std::array<char, host::kMaxIntLength> text;
  return {text.data(), host::FormatInt(value, text.data())};
}

std::string SettingText(double value) {
  return host::FormatG(value);
}

std::string SettingText(const std::string& value) {
  return value;
}

std::string SettingText(ON_Color value) {
  return host::FormatG(value.FractionRed()) + ',' + host::FormatG(value.FractionGreen()) + ',' +
         host::FormatG(value.FractionBlue());
}

std::string SettingText(const std::array<double, 4>& value) {
  std::string text = host::FormatG(value[0]);
  for (std::size_t i = 1; i < value.size(); ++i) text += ' ' + host::FormatG(value[i]);
  return text;
}

void ReadSettingText(std::string_view text, SettingBounds, bool& value) {
  value = text != "0";
}

void ReadSettingText(std::string_view text, SettingBounds bounds, int& value) {
  value = static_cast<int>(bounds.Hold(host::ParseInt(text)));
}

void ReadSettingText(std::string_view text, SettingBounds bounds, double& value) {
  value = bounds.Hold(host::ParseReal(text));
}

void ReadSettingText(std::string_view text, SettingBounds, std::string& value) {
  value = text;
}

void ReadSettingText(std::string_view text, SettingBounds, ON_Color& value) {
  const std::size_t first = text.find(',');
  if (first == std::string_view::npos) return;
  const std::size_t second = text.find(',', first + 1);
  if (second == std::string_view::npos) return;
  value.SetFractionalRGB(host::ParseReal(text.substr(0, first)),
                         host::ParseReal(text.substr(first + 1, second - first - 1)),
                         host::ParseReal(text.substr(second + 1)));
}

void ReadSettingText(std::string_view text, SettingBounds, std::array<double, 4>& value) {
  ParseNumberList(text, value);
}

}  // namespace orv
