#include "export/nurbs_curve_writer.h"

namespace orv {

void WriteRibbonType(RibWriter& writer) {
  RibPrintf(writer, "Attribute \"curve\" \"string type\" \"ribbon\"\n");
}

void WriteNurbsCurve(RibWriter& writer, const ON_NurbsCurve& curve, double width) {
  RibPrintf(writer, "NuCurves [%d] [%d] [", curve.CVCount(), curve.Order());
  // The host leaves out the first and the last knot.
  RibNumbers(writer, curve.m_knot.front());
  for (const double knot : curve.m_knot) RibNumbers(writer, knot);
  RibPrintf(writer, "%g]", curve.m_knot.back());
  const ON_Interval domain = curve.Domain();
  RibPrintf(writer, " [%g] [%g] ", domain.Min, domain.Max);
  if (curve.IsRational()) {
    RibPrintf(writer, "\"Pw\" [");
    for (const ON_4dPoint& cv : curve.m_cv) RibNumbers(writer, cv.x, cv.y, cv.z, cv.w);
  } else {
    RibPrintf(writer, "\"P\" [");
    for (const ON_4dPoint& cv : curve.m_cv) RibNumbers(writer, cv.x, cv.y, cv.z);
  }
  RibPrintf(writer, "] \"constantwidth\" [%g]\n", width);
}

void WriteNurbsForm(RibWriter& writer, const ON_Curve& curve, double width) {
  if (const ON_NurbsCurve* nurbs = ON_NurbsCurve::Cast(&curve)) {
    WriteNurbsCurve(writer, *nurbs, width);
  } else if (const auto form = curve.NurbsCurve()) {
    WriteNurbsCurve(writer, *form, width);
  }
}

}  // namespace orv
