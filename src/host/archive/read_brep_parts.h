#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_brep.h"

// The pieces of the two forms in which documents hold a brep. What they name isn't checked; a
// surface or curve that is broken is null in its table.

namespace host {

// The head of a table's chunk, which is opened for the caller's ChunkScope to end: a version of one
// byte, and a count whose items take `smallest` bytes at least.
[[nodiscard]] bool BeginReadBrepTable(ON_BinaryArchive& archive, std::size_t smallest,
                                      std::size_t* count);
// The tables of vertices, edges, trims, loops and faces of version 3, each in its chunk.
[[nodiscard]] bool ReadBrepTables(ON_BinaryArchive& archive, ON_Brep& brep);

// What stands behind the version 2 of older breps.
[[nodiscard]] bool ReadOldBrep(ON_BinaryArchive& archive, int minor, ON_Brep& brep);
// Adds to such a brep the vertices, and to its trims the type and how they run.
void CompleteOldBrep(ON_Brep& brep);

// A byte for each face that tells whether a mesh follows. A broken mesh is null.
[[nodiscard]] bool ReadFaceMeshes(ON_BinaryArchive& archive, std::vector<ON_BrepFace>& faces,
                                  std::shared_ptr<const ON_Mesh> ON_BrepFace::*mesh);

}  // namespace host
