#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_array.h"

// The parts that NURBS curves and surfaces store alike. `what` names the whole for messages: "a
// NURBS curve".

namespace host {

// How control points are stored.
struct NurbsPoints {
  std::int32_t dimension = 0;
  std::int32_t is_rational = 0;
};

// Fails for a dimension that isn't 1 to 3.
[[nodiscard]] bool CheckPoints(ON_BinaryArchive& archive, const NurbsPoints& points,
                               std::string_view what);
// Fails for an order that isn't 2 to 32 and for fewer control points than that.
[[nodiscard]] bool CheckOrder(ON_BinaryArchive& archive, std::int32_t order, std::int32_t cv_count,
                              std::string_view what);
// The knots of one direction. Fails when they don't go with the order and the number of points.
[[nodiscard]] bool ReadKnots(ON_BinaryArchive& archive, std::int32_t order, std::int32_t cv_count,
                             std::string_view what, ON_SimpleArray<double>& knots);
// Control points; coordinates that aren't stored are 0. Fails when there aren't `expected`.
[[nodiscard]] bool ReadCVs(ON_BinaryArchive& archive, const NurbsPoints& points,
                           std::size_t expected, std::string_view what,
                           ON_SimpleArray<ON_4dPoint>& cvs);

}  // namespace host
