#include "export/rib_text.h"

#include <algorithm>
#include <cmath>

#include "host/system/text.h"

namespace orv {
namespace {

float GammaAdjusted(double fraction, double gamma) {
  const float value = static_cast<float>(fraction);
  return value > 0 && value < 1 ? static_cast<float>(std::pow(value, gamma)) : value;
}

bool NeedsEscapes(std::string_view text) {
  const auto isUnsafe = [](char c) { return c == '"' || host::IsControl(c); };
  return text.ends_with('\\') || std::any_of(text.begin(), text.end(), isUnsafe);
}

// A control character has three octal digits, which every reader of RIB knows.
std::string Escaped(char c) {
  if (c == '"' || c == '\\') return {'\\', c};
  if (!host::IsControl(c)) return {c};
  const auto digit = [c](int shift) { return static_cast<char>('0' + ((c >> shift) & 7)); };
  return {'\\', digit(6), digit(3), digit(0)};
}

}  // namespace

std::string ToRibPath(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

std::string RibString(std::string_view text) {
  text = host::FirstBytes(text, kMaxRibString);
  if (!NeedsEscapes(text)) return std::string(text);
  std::string escaped;
  for (const char c : text) {
    const std::string next = Escaped(c);
    if (escaped.size() + next.size() > kMaxRibString) break;
    escaped += next;
  }
  return std::string(host::FirstBytes(escaped, kMaxRibString));
}

std::string RibPath(std::string_view path) {
  return RibString(ToRibPath(std::string(path)));
}

ON_Color GammaAdjustColor(ON_Color color, double gamma) {
  color.SetFractionalRGB(GammaAdjusted(color.FractionRed(), gamma),
                         GammaAdjusted(color.FractionGreen(), gamma),
                         GammaAdjusted(color.FractionBlue(), gamma));
  return color;
}

}  // namespace orv
