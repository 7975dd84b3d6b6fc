#include "settings/number_list.h"

#include <cmath>

#include "host/system/number_text.h"

namespace orv {

std::optional<double> ParseNumber(std::string_view text, SettingBounds bounds) {
  const std::optional<double> number = host::ParseRealInRange(text);
  if (!number || std::isnan(*number)) return std::nullopt;
  return bounds.Hold(*number);
}

void ParseNumberList(std::string_view text, std::span<double> numbers) {
  constexpr std::string_view kSeparators = ", ";
  std::size_t count = 0;
  std::size_t begin = text.find_first_not_of(kSeparators);
  while (count < numbers.size() && begin != std::string_view::npos) {
    const std::size_t end = text.find_first_of(kSeparators, begin);
    const std::optional<double> number = ParseNumber(text.substr(begin, end - begin));
    if (number) numbers[count++] = *number;
    begin = text.find_first_not_of(kSeparators, end);
  }
}

}  // namespace orv
