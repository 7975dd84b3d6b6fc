#pragma once

#include "export/rib_writer.h"
#include "host/geometry/on_mesh.h"

namespace orv {

// Writes a mesh as one PointsPolygons or, with `subdivide`, SubdivisionMesh statement. With `weld`,
// vertices of equal position become one; then normals and texture coordinates are written for each
// corner of each face, and vertex colours not at all. A mesh without faces, or with a face that
// names a vertex which isn't there, writes nothing. Always true.
bool WriteMesh(RibWriter& writer, const ON_Mesh& mesh, bool weld, bool subdivide);

}  // namespace orv
