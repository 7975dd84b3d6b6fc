#pragma once

#include "export/light_source.h"
#include "export/rib_writer.h"

namespace orv {

// A light in the shape of a rectangle, or of what its archive holds; its block has the shape that
// shines. With the file of a measured lamp as its texture it is that lamp, at the rectangle's
// centre, and has no shape.
void WriteRectangularLight(RibWriter& writer, const LightSource& source);

}  // namespace orv
