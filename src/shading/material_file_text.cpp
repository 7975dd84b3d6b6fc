#include "shading/material_file_text.h"

#include <algorithm>

#include "shading/shader_call.h"

namespace orv {
namespace {

std::string WithoutControls(std::string_view text) {
  std::string result(text);
  const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; };
  std::replace_if(result.begin(), result.end(), isControl, ' ');
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

}  // namespace

std::optional<std::string_view> TokenReader::Next() {
  std::string_view token;
  return NextToken(text_, position_, token) ? std::optional(token) : std::nullopt;
}

std::string Quoted(std::string_view text) {
  std::string inside = WithoutControls(text);
  std::replace(inside.begin(), inside.end(), '"', '\'');
  if (inside.ends_with('\\')) inside.back() = '/';
  return '"' + inside + '"';
}

std::string Bracketed(std::string_view text) {
  std::string inside = WithoutControls(text);
  std::erase(inside, ']');
  CloseString(inside);
  return '[' + inside + ']';
}

}  // namespace orv
