#pragma once

#include <string>
#include <string_view>

namespace orv {

// The path that was typed. "$ORVHOME" at its start, in any case, becomes the value of that
// environment variable (empty when there is none), and then every "\" a "/". Any other text stays
// as it is.
std::string ExpandOrvHome(std::string_view text);

}  // namespace orv
