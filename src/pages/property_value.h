#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/geometry/on_color.h"
#include "settings/setting_text.h"

// The values of fields as the controls of a property page show them and take them.
namespace orv {

struct FileQuestion;

// What a control offers and takes.
struct PropertyRule {
  // The words of a list or a check of three states, or what a combo suggests.
  std::span<const std::string_view> Choices{};
  // What a typed number is held to. An integer without a limit is the position of its word.
  SettingBounds Limit{};
  // What the first word stands for.
  int First = 0;
  // How a path is asked for; null for what is no path.
  const FileQuestion* File = nullptr;
  // The check that is ticked with a path, by its id.
  std::string_view UsedBy{};
};

std::string PropertyText(const PropertyRule& rule, bool value);
std::string PropertyText(const PropertyRule& rule, int value);
std::string PropertyText(const PropertyRule& rule, double value);
std::string PropertyText(const PropertyRule& rule, const std::string& value);
std::string PropertyText(const PropertyRule& rule, ON_Color value);

// Each sets `value` from a text; `name` is what messages call the control. What is wrong with the
// text, empty when nothing is; `value` then stays.
//
// A text that begins with no number, and a number outside of the range of its type, are wrong.
std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule& rule,
                             bool& value);
std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule& rule,
                             int& value);
std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule& rule,
                             double& value);
std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule& rule,
                             std::string& value);
std::string ReadPropertyText(std::string_view name, std::string_view text, const PropertyRule& rule,
                             ON_Color& value);

// Whether a text is one of the choices, as a list gives it.
bool IsChoice(std::string_view text, const PropertyRule& rule);

}  // namespace orv
