#pragma once

#include "export/rib_writer.h"
#include "host/geometry/on_subd.h"

namespace orv {

// Writes the control net of a subdivision surface as one SubdivisionMesh statement. The surface
// ends at the net's boundary; a crease inside is written as a chain of its edges as sharp as can
// be, a sharp edge that is no crease with its mean sharpness, and a corner as a vertex as sharp as
// can be. A net without faces, or that isn't valid, writes nothing. Always true.
bool WriteSubD(RibWriter& writer, const ON_SubD& subd);

}  // namespace orv
