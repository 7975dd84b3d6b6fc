#include "host/command/get_point.h"

#include <array>
#include <charconv>
#include <cmath>

#include "host/system/text.h"

std::optional<ON_3dPoint> ParsePoint(std::string_view text) {
  std::array<double, 3> numbers{};
  std::size_t count = 0;
  for (std::size_t start = 0; start != std::string_view::npos;) {
    const std::size_t comma = text.find(',', start);
    const std::string_view field =
        host::Trimmed(text.substr(start, comma == std::string_view::npos ? comma : comma - start));
    if (count == numbers.size()) return std::nullopt;
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, numbers[count]);
    if (error != std::errc{} || stop != end || !std::isfinite(numbers[count])) return std::nullopt;
    ++count;
    start = comma == std::string_view::npos ? comma : comma + 1;
  }
  if (count < 2) return std::nullopt;
  return ON_3dPoint{numbers[0], numbers[1], numbers[2]};
}

std::optional<CRhinoGet::Result> CRhinoGetPoint::TakeText(const Answer& answer) {
  const std::optional<ON_3dPoint> point = ParsePoint(answer.Text);
  if (!point) return Refuse("A point is typed as x,y,z or x,y, not '" + answer.Text + "'.");
  point_ = *point;
  return Result::point;
}
