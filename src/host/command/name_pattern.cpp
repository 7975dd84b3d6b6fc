#include "host/command/name_pattern.h"

#include "host/system/text.h"

namespace {

std::string_view FirstCharacter(std::string_view text) {
  return host::FirstCodePoints(text, 1);
}

}  // namespace

bool FitsNamePattern(std::string_view name, std::string_view pattern) {
  // Where to go on when a character doesn't fit: behind the last "*", one character of the name
  // further than the last time.
  bool has_star = false;
  std::string_view behind_star;
  std::string_view retry;
  while (!name.empty()) {
    const std::string_view wanted = FirstCharacter(pattern);
    const std::string_view found = FirstCharacter(name);
    if (wanted == "*") {
      has_star = true;
      pattern.remove_prefix(1);
      behind_star = pattern;
      retry = name;
    } else if (!wanted.empty() && (wanted == "?" || host::EqualNoCase(wanted, found))) {
      pattern.remove_prefix(wanted.size());
      name.remove_prefix(found.size());
    } else if (has_star) {
      retry.remove_prefix(FirstCharacter(retry).size());
      name = retry;
      pattern = behind_star;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}
