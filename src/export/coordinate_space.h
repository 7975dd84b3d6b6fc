#pragma once

#include "export/rib_writer.h"

namespace orv {

// Names the world's space, turned about its x, y and z axis, so that maps can be placed in it. The
// angles are in degrees.
void WriteTurnedSpace(RibWriter& writer, const char* name, double x, double y, double z);

}  // namespace orv
