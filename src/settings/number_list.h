#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "settings/setting_text.h"

namespace orv {

// What a number of a list or of a shader's parameters is held to.
inline constexpr SettingBounds kNumberBounds{-1e30, 1e30};

// The number at the start of `text`, held to the bounds. Nothing for a NaN and for a number out of
// a double's range.
std::optional<double> ParseNumber(std::string_view text, SettingBounds bounds = kNumberBounds);

// Numbers separated by commas or blanks, several in a row counting as one, as in "1,0.5 0.25". They
// are stored in order until `numbers` is full; one for which ParseNumber gives nothing is left out.
// What isn't read keeps the value that it has.
void ParseNumberList(std::string_view text, std::span<double> numbers);

}  // namespace orv
