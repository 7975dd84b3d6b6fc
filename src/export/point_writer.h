#pragma once

#include "export/object_stream.h"
#include "host/geometry/on_point_cloud.h"
#include "shading/object_attributes.h"

class CRhinoObject;

namespace orv {

// Writes the block of a point object, with a blank line before it. Nothing when SkipsLines, and for
// a point without coordinates.
void WritePointObject(const ObjectStream& stream, const CRhinoObject& object, const ON_Point& point,
                      const ObjectAttributes& attributes);

}  // namespace orv
