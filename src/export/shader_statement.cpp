#include "export/shader_statement.h"

#include <algorithm>
#include <string>

#include "export/rib_text.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

// What is left of a line behind the deepest indentation.
constexpr std::size_t kLineRoom = RibWriter::kLineLimit - RibWriter::kDeepestIndent - 4;

bool IsControl(char c) {
  return (c >= 0 && c < ' ') || c == '\x7f';
}

// The end of the string that a double quote at `start` begins, behind its closing quote; npos when
// it isn't closed. In RIB a backslash takes the next character with it.
std::size_t EndOfString(std::string_view text, std::size_t start) {
  for (std::size_t i = start + 1; i < text.size(); ++i) {
    if (text[i] == '"') return i + 1;
    if (text[i] == '\\') ++i;
  }
  return std::string_view::npos;
}

// True when a reader of RIB finds the end of the call where it is: strings and brackets are closed,
// and there is no control character.
bool IsReadable(std::string_view call) {
  if (std::any_of(call.begin(), call.end(), IsControl)) return false;
  bool isInBrackets = false;
  for (std::size_t i = 0; i < call.size();) {
    if (call[i] == '"') {
      i = EndOfString(call, i);
      if (i == std::string_view::npos) return false;
      continue;
    }
    if (call[i] == (isInBrackets ? '[' : ']')) return false;
    if (call[i] == '[' || call[i] == ']') isInBrackets = !isInBrackets;
    ++i;
  }
  return !isInBrackets;
}

// What stands between the strings of a value: numbers, or a word without its quotes.
std::string NumbersOrWord(std::string_view text) {
  constexpr std::string_view kNumberSigns = "0123456789+-.eE ";
  std::string clean(text);
  const auto isSign = [](char c) { return IsControl(c) || c == '[' || c == ']'; };
  std::replace_if(clean.begin(), clean.end(), isSign, ' ');
  const bool isWord = clean.find_first_not_of(kNumberSigns) != std::string::npos;
  return isWord ? '"' + RibString(clean) + '"' : clean;
}

// A value of a call, with each of its strings closed.
std::string ReadableValue(std::string_view value) {
  std::string readable;
  bool isInString = false;
  for (std::size_t start = 0; start <= value.size(); isInString = !isInString) {
    const std::size_t end = std::min(value.find('"', start), value.size());
    const std::string_view part = value.substr(start, end - start);
    readable += isInString ? '"' + RibString(part) + '"' : NumbersOrWord(part);
    start = end + 1;
  }
  return readable;
}

void WriteParameterByParameter(RibWriter& writer, const char* keyword, std::string_view call) {
  std::size_t position = 0;
  std::string_view name;
  NextToken(call, position, name);
  RibPrintf(writer, "%s \"%s\"", keyword, RibString(name).c_str());
  std::string_view declaration;
  std::string_view value;
  while (NextToken(call, position, declaration) && NextToken(call, position, value)) {
    if (declaration.size() + value.size() > kLineRoom) continue;
    const std::string parameter =
        " \"" + RibString(declaration) + "\" [" + ReadableValue(value) + "]";
    if (parameter.size() < kLineRoom) RibPrintf(writer, "%s", parameter.c_str());
  }
  RibPrintf(writer, "\n");
}

}  // namespace

void WriteShaderStatement(RibWriter& writer, const char* keyword, std::string_view call) {
  const std::size_t size = std::string_view(keyword).size() + call.size() + 2;
  if (size < kLineRoom && IsReadable(call)) {
    RibPrintf(writer, "%s %s\n", keyword, std::string(call).c_str());
  } else {
    WriteParameterByParameter(writer, keyword, call);
  }
}

}  // namespace orv
