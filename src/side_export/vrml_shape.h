#pragma once

#include <string_view>

#include "host/document/object.h"
#include "side_export/vrml_stream.h"

namespace orv {

// An object as a Shape: its baked map, by the pattern of the map's file, and each of its render
// meshes that has texture coordinates. The map is named without a folder.
void WriteShape(VrmlStream& stream, const CRhinoObject& object, std::string_view mapPattern);

}  // namespace orv
