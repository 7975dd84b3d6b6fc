#include "pages/control_value.h"

#include <optional>

#include "host/command/color_text.h"
#include "host/command/command_option.h"
#include "host/system/text.h"

namespace orv {
namespace {

// The words of a control that takes nothing else; empty for the others.
std::vector<std::string> WordsOf(const CRhinoControl& control) {
  switch (control.Kind) {
    case CRhinoControlKind::list:
      return control.Choices;
    case CRhinoControlKind::check:
      return {std::string(kYes), std::string(kNo)};
    case CRhinoControlKind::three_state:
      return {std::string(kYes), std::string(kNo), std::string(kMixed)};
    default:
      return {};
  }
}

std::optional<std::string> WordIn(const std::vector<std::string>& words, std::string_view value) {
  for (const std::string& word : words) {
    if (host::EqualNoCase(host::Trimmed(word), host::Trimmed(value))) return word;
  }
  return std::nullopt;
}

std::string Problem(const CRhinoControl& control, const std::string& expected,
                    std::string_view value) {
  return control.Id + " takes " + expected + ", not '" + std::string(value) + "'.";
}

}  // namespace

std::string SetControlValue(CRhinoControl& control, std::string_view value) {
  if (control.Kind == CRhinoControlKind::color) {
    const auto color = ColorFromText(value);
    if (!color) return Problem(control, "a colour as 255,128,0 or #ff8000", value);
    control.Value = ColorText(*color);
    return {};
  }
  const std::vector<std::string> words = WordsOf(control);
  if (words.empty()) {
    control.Value = value;
    return {};
  }
  const auto word = WordIn(words, value);
  if (!word) return Problem(control, OneOf(words), value);
  control.Value = *word;
  return {};
}

}  // namespace orv
