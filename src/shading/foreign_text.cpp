#include "shading/foreign_text.h"

#include <array>

#include "host/system/text.h"

namespace orv {
namespace {

// The characters of Windows-1252 from 0x80 on; 0 where there is none.
constexpr std::array<char16_t, 32> kWindowsCharacters = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool IsUtf8(std::string_view bytes) {
  return host::Utf8FromUtf16(host::Utf16FromUtf8(bytes)) == bytes;
}

std::string Utf8FromWindows(std::string_view bytes) {
  std::u16string text;
  for (const char byte : bytes) {
    const char16_t code = static_cast<unsigned char>(byte);
    const bool isLatin1 = code < 0x80 || code >= 0x80 + kWindowsCharacters.size();
    const char16_t character = isLatin1 ? code : kWindowsCharacters[code - 0x80U];
    if (isLatin1 || character != 0) text += character;
  }
  return host::Utf8FromUtf16(text);
}

// How long the UTF-8 character is that begins with a byte; 0 for a byte within one.
std::size_t CharacterLength(char firstByte) {
  const auto byte = static_cast<unsigned char>(firstByte);
  if (byte < 0x80) return 1;
  if (byte < 0xC0) return 0;
  return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// Without the first bytes of a character whose other bytes are missing.
std::string_view WithoutCutCharacter(std::string_view bytes) {
  constexpr std::size_t kLongestTail = 3;
  for (std::size_t tail = 1; tail <= kLongestTail && tail <= bytes.size(); ++tail) {
    const std::size_t length = CharacterLength(bytes[bytes.size() - tail]);
    if (length > tail) bytes.remove_suffix(tail);
    if (length > 0) break;
  }
  return bytes;
}

bool IsControl(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

}  // namespace

std::string TextFromBytes(std::string_view bytes) {
  return IsUtf8(bytes) ? std::string(bytes) : Utf8FromWindows(bytes);
}

std::string TextFromField(std::string_view field) {
  const std::string_view bytes = field.substr(0, field.find('\0'));
  const std::string_view whole = WithoutCutCharacter(bytes);
  const bool mayBeCut = bytes.size() + 1 >= field.size();
  return mayBeCut && IsUtf8(whole) ? std::string(whole) : TextFromBytes(bytes);
}

std::string CallTextOf(std::string_view text) {
  std::u16string units = host::Utf16FromUtf8(text);
  std::erase_if(units, [](char16_t unit) { return unit == '"' || unit == ']' || IsControl(unit); });
  return host::Utf8FromUtf16(units);
}

}  // namespace orv
