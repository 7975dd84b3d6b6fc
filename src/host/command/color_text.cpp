#include "host/command/color_text.h"

#include <array>
#include <charconv>

#include "host/system/text.h"

namespace {

// The whole of `text` as a number of the base from 0 to `max`; nothing for any other text.
std::optional<int> Whole(std::string_view text, int base, int max) {
  if (text.starts_with('+')) text.remove_prefix(1);
  unsigned value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, base);
  if (error != std::errc{} || stop != end || value > static_cast<unsigned>(max)) return {};
  return static_cast<int>(value);
}

std::optional<ON_Color> ColorFromDigits(std::string_view digits) {
  const std::optional<int> value = Whole(digits, 16, 0xffffff);
  if (digits.size() != 6 || digits[0] == '+' || !value) return std::nullopt;
  return ON_Color(*value >> 16, *value >> 8 & 255, *value & 255);
}

}  // namespace

std::string ColorText(const ON_Color& color) {
  return host::Format("%d,%d,%d", color.Red(), color.Green(), color.Blue());
}

std::optional<ON_Color> ColorFromText(std::string_view text) {
  text = host::Trimmed(text);
  if (text.starts_with('#')) return ColorFromDigits(text.substr(1));
  std::array<int, 3> parts{};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const std::size_t comma = text.find(',');
    if ((comma == std::string_view::npos) != (i + 1 == parts.size())) return std::nullopt;
    const std::optional<int> part = Whole(host::Trimmed(text.substr(0, comma)), 10, 255);
    if (!part) return std::nullopt;
    parts[i] = *part;
    text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
  }
  return ON_Color(parts[0], parts[1], parts[2]);
}
