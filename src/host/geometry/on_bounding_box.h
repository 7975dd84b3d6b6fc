#pragma once

#include <array>

#include "host/geometry/on_point.h"
#include "host/geometry/on_xform.h"

// An axis-aligned box. The default one is empty: it is not valid and holds no point.
struct ON_BoundingBox {
  ON_3dPoint m_min{1, 0, 0};
  ON_3dPoint m_max{-1, 0, 0};

  // True when no minimum exceeds its maximum and all six numbers are finite.
  bool IsValid() const;
  // The eight corners, x fastest, then y, then z. The box must be valid.
  std::array<ON_3dPoint, 8> GetCorners() const;
  // Grows the box so that it holds `p`, or all of a valid `box`. A point that isn't finite and an
  // invalid box change nothing.
  void Include(ON_3dPoint p);
  void Include(const ON_BoundingBox& box);
  // The box of the eight corners after `xform`; an invalid box stays invalid.
  ON_BoundingBox Transformed(const ON_Xform& xform) const;
};
