#pragma once

#include <string>
#include <string_view>

#include "host/geometry/on_color.h"

namespace orv {

// A file name as RIB wants it: every backslash becomes a forward slash.
std::string ToRibPath(std::string path);

// A text of the document for the inside of a quoted RIB string, where it must not end the string: a
// text with a double quote, a control character or a backslash at its end has them, and its
// backslashes, written as escapes. Any other text stays byte for byte. What is longer than
// kMaxRibString bytes is cut at a whole character, so that the statement fits into a line.
inline constexpr std::size_t kMaxRibString = 3500;
std::string RibString(std::string_view text);

// A file name for the inside of a quoted RIB string.
std::string RibPath(std::string_view path);

// A host colour as the renderer wants it: each fraction strictly between 0 and 1 is raised to the
// power `gamma` (not its inverse). The result has 8 bits a channel again.
ON_Color GammaAdjustColor(ON_Color color, double gamma);

}  // namespace orv
