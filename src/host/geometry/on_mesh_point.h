#pragma once

#include <array>
#include <optional>

#include "host/geometry/on_mesh.h"

// A point on a face of a mesh.
struct ON_MESH_POINT {
  // The triangle of the face in which the point lies, as three of the positions 0 to 3 of the
  // face's vertices. False when there is no point.
  [[nodiscard]] bool GetTriangle(std::array<int, 3>& corners) const;

  ON_3dPoint m_P{0, 0, 0};
  int m_face_index = -1;
  // 'A' for the vertices 0, 1, 2, 'B' for 0, 2, 3, 'C' for 0, 1, 3, 'D' for 1, 2, 3; 0 for none.
  char m_Triangle = 0;
  // How much each vertex of the face counts: barycentric coordinates in the triangle, and 0 for the
  // vertex that it lacks.
  std::array<double, 4> m_t{};
};

// The point of the mesh that is closest to `p`, of several the one on the first face. Quads count
// as two triangles along their shorter diagonal. Nothing when no face has finite vertices.
std::optional<ON_MESH_POINT> ON_ClosestPointOnMesh(const ON_Mesh& mesh, ON_3dPoint p);
