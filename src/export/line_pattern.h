#pragma once

#include <optional>

#include "export/rib_writer.h"
#include "host/geometry/on_curve.h"

class CRhinoDoc;
class CRhinoObject;

namespace orv {

// Writes the surface shader that draws a curve in the linetype of its object: a constant colour, or
// dashes. The result is the curve's length, by which the dashes go; nothing for a continuous line.
// A linetype whose lengths make no pattern counts as continuous.
std::optional<double> WriteLinePattern(RibWriter& writer, const CRhinoObject& object,
                                       const ON_Curve& curve, const CRhinoDoc& doc);

}  // namespace orv
