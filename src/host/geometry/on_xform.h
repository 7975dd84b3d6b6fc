#pragma once

#include <array>

#include "host/geometry/on_point.h"

// A 4x4 transform of column vectors: translation is in the last column.
struct ON_Xform {
  // [row][column]
  std::array<std::array<double, 4>, 4> m_xform{
      {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};

  friend bool operator==(const ON_Xform&, const ON_Xform&) = default;
  friend ON_Xform operator*(const ON_Xform& a, const ON_Xform& b);
  // The image of a point, divided by its fourth coordinate unless that is 0.
  friend ON_3dPoint operator*(const ON_Xform& xform, ON_3dPoint p);
};
