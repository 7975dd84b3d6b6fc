#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/geometry/on_color.h"

// Colours as they are typed and shown: "255,128,0", the parts from 0 to 255.
std::string ColorText(const ON_Color& color);
// Takes "#ff8000", too, and blanks around the parts. Nothing for any other text.
std::optional<ON_Color> ColorFromText(std::string_view text);
