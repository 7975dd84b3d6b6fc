#pragma once

#include <optional>

#include "host/command/command.h"
#include "host/geometry/on_point.h"

class CRhinoObject;

namespace orv {

// Asks for a point on a surface object, or on a mesh that has texture coordinates. The result is
// where the renderer finds it in a map: s from left to right, t from the upper edge down. Nothing
// when no point was given, and, with a message, for any other object.
std::optional<ON_2dPoint> PickTextureCoordinates(CRhinoCommandContext& context,
                                                 const CRhinoObject& object);

}  // namespace orv
