#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_mesh.h"

// What newer meshes keep in chunks of their own behind a byte that tells whether one follows. The
// vertices and faces of `mesh` have been read.

namespace host {

// Polygons. Broken ones are told and left out; the mesh stays good.
[[nodiscard]] bool ReadNgons(ON_BinaryArchive& archive, ON_Mesh& mesh);
// Vertices in double precision. They are left out when they aren't those of the mesh.
[[nodiscard]] bool ReadDoublePoints(ON_BinaryArchive& archive, ON_Mesh& mesh);

}  // namespace host
