#include "host/geometry/on_uuid.h"

namespace {

// Where hyphens stand in the text form.
bool IsHyphenPlace(std::size_t i) {
  return i == 8 || i == 13 || i == 18 || i == 23;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::string ON_UUID::ToString() const {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const std::uint8_t byte : bytes) {
    if (IsHyphenPlace(text.size())) text += '-';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::optional<ON_UUID> ON_UuidFromString(std::string_view text) {
  constexpr std::size_t kLength = 36;
  if (text.size() == kLength + 2 && text.front() == '{' && text.back() == '}') {
    text = text.substr(1, kLength);
  }
  if (text.size() != kLength) return std::nullopt;
  ON_UUID id;
  std::size_t nibble = 0;
  for (std::size_t i = 0; i < kLength; ++i) {
    if (IsHyphenPlace(i) && text[i] == '-') continue;
    const int digit = IsHyphenPlace(i) ? -1 : HexDigit(text[i]);
    if (digit < 0) return std::nullopt;
    std::uint8_t& byte = id.bytes[nibble++ / 2];
    byte = static_cast<std::uint8_t>(byte << 4 | digit);
  }
  return id;
}
