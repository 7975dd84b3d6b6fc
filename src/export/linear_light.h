#pragma once

#include "export/light_source.h"
#include "export/rib_writer.h"

namespace orv {

// A light in the shape of a line; its block has the curve that shines.
void WriteLinearLight(RibWriter& writer, const LightSource& source);

}  // namespace orv
