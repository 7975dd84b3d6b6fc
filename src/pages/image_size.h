#pragma once

#include <string>
#include <string_view>

namespace orv {

// What a page shows for the size of the viewport, which is 0 by 0.
inline constexpr std::string_view kViewportSize = "Viewport";

// Reads "640 x 480": the digits at the start, and those behind what is no digit. A text that
// doesn't begin with a digit is the viewport's size, 0 by 0. False when the height is missing or a
// number is too large; nothing is said of the values then.
[[nodiscard]] bool ParseImageSize(std::string_view text, int& width, int& height);

// How such a size is written.
std::string ImageSizeText(int width, int height);

}  // namespace orv
