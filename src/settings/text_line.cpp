#include "settings/text_line.h"

#include "host/system/text.h"

namespace orv {
namespace {

constexpr std::size_t kLongestEnd = 2;

// The line at the start of `text` with its end; as much of it as fits when it is too long.
std::string_view LineWithEnd(std::string_view text) {
  const std::size_t newline = text.substr(0, kLongestTextLine + kLongestEnd).find('\n');
  if (newline == std::string_view::npos) return host::FirstBytes(text, kLongestTextLine);
  const bool hasReturn = newline > 0 && text[newline - 1] == '\r';
  const std::size_t length = hasReturn ? newline - 1 : newline;
  return length > kLongestTextLine ? host::FirstBytes(text, kLongestTextLine)
                                   : text.substr(0, newline + 1);
}

}  // namespace

std::string_view TakeTextLine(std::string_view& text) {
  std::string_view line = LineWithEnd(text);
  text.remove_prefix(line.size());
  if (line.ends_with('\n')) {
    line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
  }
  return line.substr(0, line.find('\0'));
}

}  // namespace orv
