#pragma once

#include <string>
#include <string_view>

#include "host/command/dialog_page.h"

namespace orv {

inline constexpr std::string_view kYes = "Yes";
inline constexpr std::string_view kNo = "No";
inline constexpr std::string_view kMixed = "Mixed";

// Gives a control a value as a user spells it: words count in any case and without blanks at their
// ends, a colour may be "#ff8000". What the control takes instead; empty when the value was taken.
[[nodiscard]] std::string SetControlValue(CRhinoControl& control, std::string_view value);

}  // namespace orv
