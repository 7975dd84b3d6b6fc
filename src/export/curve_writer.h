#pragma once

#include "export/object_stream.h"
#include "host/geometry/on_curve.h"
#include "shading/object_attributes.h"

class CRhinoObject;

namespace orv {

// Writes what stands inside the block of a curve object: its attributes, its look and the curve. An
// archive that is to take its place stands beside it. Whether it is to be written at all, see
// SkipsLines.
void WriteCurveBody(const ObjectStream& stream, const CRhinoObject& object, const ON_Curve& curve,
                    const ObjectAttributes& attributes);

}  // namespace orv
