#pragma once

#include <array>
#include <optional>

#include "host/command/command.h"
#include "host/geometry/on_point.h"

namespace orv {

// Asks for the rectangle that a decal fills: two corners of its upper edge and how far down it
// reaches. Nothing when a corner wasn't given.
std::optional<std::array<double, 16>> PickDecalMatrix(CRhinoCommandContext& context);

// The matrix, row by row for row vectors, that maps a rectangle with these three corners in a row
// to the unit square. A side counts as at least 1e-7 long; of one without a length the axis is 0.
std::array<double, 16> DecalMatrix(const std::array<ON_3dPoint, 3>& corners);

}  // namespace orv
