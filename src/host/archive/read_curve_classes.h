#pragma once

#include "host/archive/binary_archive.h"
#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"

// The data of each class of curves, called with the class's data chunk open. A success is a valid
// curve.

namespace host {

[[nodiscard]] bool ReadLineCurve(ON_BinaryArchive& archive, ON_LineCurve& curve);
[[nodiscard]] bool ReadArcCurve(ON_BinaryArchive& archive, ON_ArcCurve& curve);
[[nodiscard]] bool ReadPolylineCurve(ON_BinaryArchive& archive, ON_PolylineCurve& curve);
[[nodiscard]] bool ReadNurbsCurve(ON_BinaryArchive& archive, ON_NurbsCurve& curve);
// `depth` counts the polycurves around it.
[[nodiscard]] bool ReadPolyCurve(ON_BinaryArchive& archive, int depth, ON_PolyCurve& curve);

}  // namespace host
