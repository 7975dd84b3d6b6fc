#include "shading/call_string.h"

#include <algorithm>
#include <optional>

#include "host/system/text.h"

namespace orv {
namespace {

constexpr std::size_t kEscapeLength = 4;

// What an escape may stand for.
using CharacterTest = bool (*)(char);

bool IsUnsafeInQuotes(char c) {
  return c == '"' || host::IsControl(c);
}

bool IsUnsafe(char c) {
  return c == ']' || IsUnsafeInQuotes(c);
}

bool IsUnsafeOrBackslash(char c) {
  return c == '\\' || IsUnsafe(c);
}

bool IsOctalDigit(char c) {
  return c >= '0' && c <= '7';
}

// What the escape at the start of `text`, which begins with a backslash, stands for; nothing when
// that is none of those that may be escaped.
std::optional<char> EscapedCharacter(std::string_view text, CharacterTest mayBeEscaped) {
  if (text.size() < kEscapeLength) return std::nullopt;
  int value = 0;
  for (const char digit : text.substr(1, kEscapeLength - 1)) {
    if (!IsOctalDigit(digit)) return std::nullopt;
    value = value * 8 + (digit - '0');
  }
  const char c = static_cast<char>(value);
  return value <= '\x7f' && mayBeEscaped(c) ? std::optional(c) : std::nullopt;
}

void AppendEscape(std::string& text, char c) {
  text += '\\';
  for (const int shift : {6, 3, 0}) text += static_cast<char>('0' + ((c >> shift) & 7));
}

// The text without its escapes, if each backslash begins one; else as it is.
std::string Decoded(std::string_view text, CharacterTest mayBeEscaped) {
  std::string name;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      name += text[i];
      continue;
    }
    const auto character = EscapedCharacter(text.substr(i), mayBeEscaped);
    if (!character) return std::string(text);
    name += *character;
    i += kEscapeLength - 1;
  }
  return name;
}

}  // namespace

std::string EncodeCallString(std::string_view name) {
  const bool isUnsafe = std::any_of(name.begin(), name.end(), IsUnsafe) || name.ends_with('\\');
  if (!isUnsafe && DecodeCallString(name) == name) return std::string(name);
  std::string text;
  for (const char c : name) {
    if (IsUnsafe(c)) {
      AppendEscape(text, c);
    } else {
      text += c == '\\' ? '/' : c;
    }
  }
  return text;
}

std::string DecodeCallString(std::string_view text) {
  return Decoded(text, IsUnsafe);
}

std::string EncodeQuotedName(std::string_view name) {
  const bool isUnsafe =
      std::any_of(name.begin(), name.end(), IsUnsafeInQuotes) || name.ends_with('\\');
  if (!isUnsafe && DecodeQuotedName(name) == name) return std::string(name);
  std::string text;
  for (const char c : name) {
    if (IsUnsafeInQuotes(c) || c == '\\') {
      AppendEscape(text, c);
    } else {
      text += c;
    }
  }
  return text;
}

std::string DecodeQuotedName(std::string_view text) {
  return Decoded(text, IsUnsafeOrBackslash);
}

}  // namespace orv
