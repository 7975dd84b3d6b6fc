#pragma once

#include <span>
#include <vector>

#include "host/geometry/on_point.h"

namespace orv {

// The vertices of a mesh with those of equal position taken as one.
struct WeldedVertices {
  // For each old vertex its new one.
  std::vector<int> remap;
  // For each new vertex the lowest old one with its position; rising.
  std::vector<int> unique;
};

// Positions are equal when x, y and z are exactly so: 0 and -0 are, and a NaN equals nothing. Takes
// time in proportion to the number of vertices.
WeldedVertices WeldVertices(std::span<const ON_3fPoint> vertices);

}  // namespace orv
