#include "shading/text_line.h"

#include "host/system/text.h"

namespace orv {

std::string_view TakeTextLine(std::string_view& text) {
  constexpr std::size_t kLongestLine = 1999;
  std::string_view line = host::FirstBytes(text, kLongestLine);
  const std::size_t end = line.find('\n');
  const bool isWhole = end != std::string_view::npos;
  line = line.substr(0, end);
  text.remove_prefix(line.size() + (isWhole ? 1 : 0));
  if (isWhole && line.ends_with('\r')) line.remove_suffix(1);
  return line.substr(0, line.find('\0'));
}

}  // namespace orv
