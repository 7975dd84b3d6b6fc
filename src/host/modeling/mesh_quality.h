#pragma once

#include "host/geometry/on_brep.h"
#include "host/geometry/on_settings.h"

namespace host {

// How fine a mesh is to be, in units of the document.
struct MeshQuality {
  // The greatest distance between the mesh and what it stands for.
  double tolerance = 0;
  // The greatest angle between normals of neighbours, in radians.
  double angle = 0;
  // Shorter edges aren't divided.
  double min_edge = 0;
  // Longer edges are; 0 is no limit.
  double max_edge = 0;
};

// The box of a brep's vertices and edges; of its surfaces when it has no edges. Surfaces often
// reach far beyond the faces cut from them.
[[nodiscard]] ON_BoundingBox TrimmedBox(const ON_Brep& brep);

// What the parameters ask for a brep whose box has the diagonal `size`, which is positive:
// - the tolerance is the least of m_tolerance, of size * 10^(-1 - 3 * m_relative_tolerance), and of
//   the default of a thousandth of the size; but at least a hundred-thousandth of it, so that no
//   parameters make meshes without bound;
// - the angle is m_grid_angle within 2 and 60 degrees, or 20 degrees when there is none;
// - m_max_edge_length is at least a hundredth of the size;
// - m_min_edge_length is never greater than the tolerance.
// Numbers that are not positive and finite ask for nothing. Grids and their aspect ratios and
// counts mean nothing for the triangles that are made here.
[[nodiscard]] MeshQuality QualityOf(const ON_MeshParameters& parameters, double size);

}  // namespace host
