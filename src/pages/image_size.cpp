#include "pages/image_size.h"

#include <algorithm>

#include "host/system/number_text.h"
#include "host/system/text.h"

namespace orv {
namespace {

constexpr std::string_view kDigits = "0123456789";

// Takes the number off the start of `text`. False when none is there, or one too large for an int.
bool TakeNumber(std::string_view& text, int& value) {
  const std::size_t length = std::min(text.find_first_not_of(kDigits), text.size());
  const auto number = host::ParseIntInRange(text.substr(0, length));
  text.remove_prefix(length);
  value = number.value_or(0);
  return length > 0 && number;
}

}  // namespace

bool ParseImageSize(std::string_view text, int& width, int& height) {
  width = 0;
  height = 0;
  if (text.find_first_of(kDigits) != 0) return true;
  if (!TakeNumber(text, width)) return false;
  text.remove_prefix(std::min(text.find_first_of(kDigits), text.size()));
  return TakeNumber(text, height);
}

std::string ImageSizeText(int width, int height) {
  if (width == 0 && height == 0) return std::string(kViewportSize);
  return host::Format("%d x %d", width, height);
}

}  // namespace orv
