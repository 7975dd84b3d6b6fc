#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_brep.h"

// Makes a brep usable of what a document tells: its parts name others, and nothing of that has been
// checked yet.

namespace host {

// Leaves out faces whose surface or one of whose curves is null, and all that only they need;
// stretches of curves are cut to the curves' domains; what edges, vertices, trims and loops say of
// their owners is made anew from what the owners say. Fails when a part names one that isn't there,
// when two owners name the same, when a loop isn't closed, and when no face is left.
[[nodiscard]] bool LinkBrep(ON_BinaryArchive& archive, ON_Brep& brep);

}  // namespace host
