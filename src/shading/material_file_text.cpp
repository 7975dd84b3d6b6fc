#include "shading/material_file_text.h"

#include <algorithm>

#include "host/system/text.h"
#include "shading/call_string.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

std::string WithoutControls(std::string_view text) {
  std::string result(text);
  std::replace_if(result.begin(), result.end(), host::IsControl, ' ');
  return result;
}

// Ends the string that is still open at the end of a value. The renderer takes the character behind
// a string's backslash as it is.
void CloseString(std::string& value) {
  bool isOpen = false;
  bool isEscaped = false;
  for (const char c : value) {
    if (c == '"' && !isEscaped) isOpen = !isOpen;
    isEscaped = isOpen && c == '\\' && !isEscaped;
  }
  if (isEscaped) value.back() = '/';
  if (isOpen) value += '"';
}

// At most `room` bytes of the value, the end of its string included.
std::string Closed(std::string_view value, std::size_t room) {
  std::string inside(host::FirstBytes(value, room));
  CloseString(inside);
  if (inside.size() <= room) return inside;
  inside = host::FirstBytes(value, room - 1);
  CloseString(inside);
  return inside;
}

}  // namespace

std::optional<std::string_view> TokenReader::Next() {
  std::string_view token;
  return NextToken(text_, position_, token) ? std::optional(token) : std::nullopt;
}

std::string Quoted(std::string_view name, std::size_t room) {
  constexpr std::size_t kMostBytesOfACharacter = 4;
  name = host::FirstBytes(name, room);
  std::string inside = EncodeQuotedName(name);
  while (inside.size() + 2 > room && !name.empty()) {
    // No more than what has to go.
    const std::size_t excess = inside.size() + 2 - room;
    name = host::FirstBytes(name, name.size() - 1 - (excess - 1) / kMostBytesOfACharacter);
    inside = EncodeQuotedName(name);
  }
  return '"' + inside + '"';
}

std::string Bracketed(std::string_view value, std::size_t room) {
  std::string inside = WithoutControls(value);
  std::erase(inside, ']');
  return '[' + Closed(inside, room - 2) + ']';
}

}  // namespace orv
