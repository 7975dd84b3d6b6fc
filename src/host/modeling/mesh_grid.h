#pragma once

#include <Adaptor3d_Surface.hxx>
#include <vector>

#include "host/geometry/on_point.h"

namespace host {

// Parameters at which a surface is divided, in increasing order, both ends of the range included.
struct MeshGrid {
  std::vector<double> u;
  std::vector<double> v;
};

struct MeshGridLimits {
  // How far a cell may be from the surface.
  double tolerance = 0;
  // The greatest angle between the normals of neighbours, in radians.
  double angle = 0;
  // Cells that are shorter aren't divided.
  double min_size = 0;
};

// Divides a part of a surface so that the cells are close to it. At most 500 lines run in either
// direction; a surface that needs more is left coarser.
[[nodiscard]] MeshGrid MakeMeshGrid(const Adaptor3d_Surface& surface, ON_Interval u, ON_Interval v,
                                    const MeshGridLimits& limits);

}  // namespace host
