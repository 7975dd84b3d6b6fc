#include "settings/number_list.h"

#include "host/system/number_text.h"
#include "settings/setting_text.h"

namespace orv {
namespace {

constexpr std::string_view kSeparators = ", ";
constexpr SettingBounds kBounds{-1e30, 1e30};

}  // namespace

void ParseNumberList(std::string_view text, std::span<double> numbers) {
  std::size_t count = 0;
  std::size_t begin = text.find_first_not_of(kSeparators);
  while (count < numbers.size() && begin != std::string_view::npos) {
    const std::size_t end = text.find_first_of(kSeparators, begin);
    const auto number = host::ParseRealInRange(text.substr(begin, end - begin));
    if (number) numbers[count++] = kBounds.Hold(*number);
    begin = text.find_first_not_of(kSeparators, end);
  }
}

}  // namespace orv
