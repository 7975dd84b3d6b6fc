#include "pages/property_value.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "host/command/color_text.h"
#include "host/command/command_option.h"
#include "host/system/number_text.h"
#include "host/system/text.h"
#include "pages/control_value.h"
#include "settings/number_list.h"

namespace orv {
namespace {

bool IsTyped(const PropertyRule& rule) {
  return rule.Limit.Maximum > rule.Limit.Minimum;
}

// Whether a number stands at the start of the text.
bool BeginsWithNumber(std::string_view text) {
  text = host::Trimmed(text);
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  if (text.starts_with('.')) text.remove_prefix(1);
  return !text.empty() && text[0] >= '0' && text[0] <= '9';
}

std::string NotANumber(std::string_view name, std::string_view text) {
  return std::string(name) + " takes a number, not '" + std::string(text) + "'.";
}

}  // namespace

std::string PropertyText(const PropertyRule&, bool value) {
  return std::string(value ? kYes : kNo);
}

std::string PropertyText(const PropertyRule& rule, int value) {
  if (IsTyped(rule)) return SettingText(value);
  const auto last = static_cast<int>(rule.Choices.size()) - 1;
  const int position = std::clamp(value - rule.First, 0, last);
  return std::string(rule.Choices[static_cast<std::size_t>(position)]);
}

std::string PropertyText(const PropertyRule&, double value) {
  return host::FormatG(value);
}

std::string PropertyText(const PropertyRule&, const std::string& value) {
  return value;
}

std::string PropertyText(const PropertyRule&, ON_Color value) {
  return ColorText(value);
}

std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule&,
                             bool& value) {
  return CommandOption(name, CommandOption::Toggle{std::string(kNo), std::string(kYes), &value})
      .SetValue(text);
}

std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule& rule,
                             int& value) {
  if (IsTyped(rule)) {
    const std::optional<int> number = host::ParseIntInRange(text);
    if (!BeginsWithNumber(text) || !number) return NotANumber(name, text);
    value = static_cast<int>(rule.Limit.Hold(*number));
    return {};
  }
  int position = value - rule.First;
  std::vector<std::string> words(rule.Choices.begin(), rule.Choices.end());
  std::string problem =
      CommandOption(name, CommandOption::List{std::move(words), &position}).SetValue(text);
  if (problem.empty()) value = position + rule.First;
  return problem;
}

std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule& rule,
                             double& value) {
  const std::optional<double> number = ParseNumber(text, rule.Limit);
  if (!BeginsWithNumber(text) || !number) return NotANumber(name, text);
  value = *number;
  return {};
}

std::string ReadPropertyText(std::string_view, std::string_view text, const PropertyRule&,
                             std::string& value) {
  value = text;
  return {};
}

std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule&,
                             ON_Color& value) {
  return CommandOption(name, CommandOption::Color{&value, {}}).SetValue(text);
}

bool IsChoice(std::string_view text, const PropertyRule& rule) {
  return std::find(rule.Choices.begin(), rule.Choices.end(), text) != rule.Choices.end();
}

}  // namespace orv
