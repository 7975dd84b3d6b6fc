#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_brep.h"

// Makes a brep usable of what a document tells: its parts name others, and nothing of that has been
// checked yet.

namespace host {

// Drops parts that were deleted but are still in their tables, and loops and trims that no face
// has; leaves out faces whose surface or one of whose curves is null; cuts the stretches of curves
// to the curves' domains; calls those trims singular that have no edge; makes anew what edges,
// vertices, trims and loops say of their owners from what the owners say. Fails when a part names one that isn't there, when two owners name the same,
// when a loop isn't closed, and when no face is left.
[[nodiscard]] bool LinkBrep(ON_BinaryArchive& archive, ON_Brep& brep);

}  // namespace host
