#pragma once

#include "export/rib_writer.h"
#include "host/geometry/on_nurbs_curve.h"

namespace orv {

// Asks for curves that are flat and turn to the camera.
void WriteRibbonType(RibWriter& writer);

// Writes a curve as one NuCurves statement of that width.
void WriteNurbsCurve(RibWriter& writer, const ON_NurbsCurve& curve, double width);
// The same of the curve's NURBS form; nothing when it has none.
void WriteNurbsForm(RibWriter& writer, const ON_Curve& curve, double width);

}  // namespace orv
