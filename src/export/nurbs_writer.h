#pragma once

#include "export/rib_writer.h"
#include "host/geometry/on_brep.h"

namespace orv {

// Writes a valid brep as NURBS: one NuPatch when it is a whole surface, else a block for each face,
// with a TrimCurve before the NuPatch where the face is trimmed. The trims must stand for whole
// curves in the curves' own direction, see ON_Brep::MakeValidForV2. With the writer's
// Reparameterize all surfaces have the domain 0 to 1. A surface that can't be evaluated writes no
// NuPatch; a trim that can't be is left out, but counted in its loop. Always 1.
int WriteBrep(RibWriter& writer, ON_Brep brep);

}  // namespace orv
