#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/geometry/on_color.h"
#include "settings/setting_text.h"

// The text forms of attributes: "Yes" or "No", an integer "%d", one of a list of words, a real
// "%g", a colour "%g,%g,%g" of fractions, a text as it stands.
namespace orv {

// What the text of an attribute may be.
struct AttributeRule {
  // What a number is held to when it is read. Writing takes any value.
  SettingBounds Bounds{};
  // An integer with words is kept as the word at its position, written like that and read in any
  // case. One outside the list is written as the nearest.
  std::span<const std::string_view> Words{};
  // What any other word means.
  std::optional<int> OtherWord{};
  // An empty text isn't read.
  bool NotEmpty = false;
};

std::string AttributeText(const AttributeRule& rule, bool value);
std::string AttributeText(const AttributeRule& rule, int value);
std::string AttributeText(const AttributeRule& rule, double value);
std::string AttributeText(const AttributeRule& rule, const std::string& value);
std::string AttributeText(const AttributeRule& rule, ON_Color value);

// Each reads `text` into `value`, which stays when the text says nothing: an unknown word, an
// integer or a real that is too large for its type, a NaN.
//
// A flag is false exactly for "no" in any case. A text that is no number counts as 0. What a colour
// lacks is 0.
void ReadAttributeText(std::string_view text, const AttributeRule& rule, bool& value);
void ReadAttributeText(std::string_view text, const AttributeRule& rule, int& value);
void ReadAttributeText(std::string_view text, const AttributeRule& rule, double& value);
void ReadAttributeText(std::string_view text, const AttributeRule& rule, std::string& value);
void ReadAttributeText(std::string_view text, const AttributeRule& rule, ON_Color& value);

}  // namespace orv
