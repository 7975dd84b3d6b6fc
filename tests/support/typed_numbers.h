#pragma once

#include <array>
#include <charconv>
#include <string>

#include "host/geometry/on_point.h"

// Numbers as a person types them, exactly and in no locale.

inline std::string Typed(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

inline std::string Typed(double u, double v) {
  return Typed(u) + ',' + Typed(v);
}

inline std::string Typed(const ON_3dPoint& p) {
  return Typed(p.x, p.y) + ',' + Typed(p.z);
}
