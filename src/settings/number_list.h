#pragma once

#include <span>
#include <string_view>

namespace orv {

// Numbers separated by commas or blanks, several in a row counting as one, as in "1,0.5 0.25". Each
// is held to -1e30..1e30 and stored in order until `numbers` is full; one out of a double's range
// is left out. What isn't read keeps the value that it has.
void ParseNumberList(std::string_view text, std::span<double> numbers);

}  // namespace orv
