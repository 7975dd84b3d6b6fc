#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// A universally unique id; all zero is nil. `bytes` is in the order of the text form.
struct ON_UUID {
  std::array<std::uint8_t, 16> bytes{};

  bool IsNil() const { return *this == ON_UUID{}; }
  // Lower case, "7d1f42a6-35c8-4b9e-9c07-5e2a1d60b3f4".
  std::string ToString() const;
  friend auto operator<=>(const ON_UUID&, const ON_UUID&) = default;
};

// Reads the form of ToString, in any case, with or without braces; nothing for any other text.
std::optional<ON_UUID> ON_UuidFromString(std::string_view text);

// An id written in the source. A malformed text doesn't compile.
consteval ON_UUID operator""_uuid(const char* text, std::size_t length) {
  ON_UUID id;
  std::size_t nibble = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const char c = text[i];
    if (c == '-') continue;
    int value = -1;
    if (c >= '0' && c <= '9') value = c - '0';
    if (c >= 'a' && c <= 'f') value = c - 'a' + 10;
    if (c >= 'A' && c <= 'F') value = c - 'A' + 10;
    if (value < 0 || nibble >= 32) throw "not a uuid";
    id.bytes[nibble / 2] =
        static_cast<std::uint8_t>(nibble % 2 == 0 ? value << 4 : id.bytes[nibble / 2] | value);
    ++nibble;
  }
  if (nibble != 32) throw "not a uuid";
  return id;
}
