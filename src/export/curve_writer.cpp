#include "export/curve_writer.h"

#include <optional>
#include <vector>

#include "export/attribute_block.h"
#include "export/line_look.h"
#include "export/line_pattern.h"
#include "export/nurbs_curve_writer.h"

namespace orv {
namespace {

constexpr int kAutomaticCurveType = 0;

// The length from the first point to each further one, as a part of the whole.
void WriteRunningLengths(RibWriter& writer, const std::vector<ON_3dPoint>& points, double whole) {
  RibPrintf(writer, "\"varying float t\" [0 ");
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    length += points[i].DistanceTo(points[i - 1]);
    RibGroup(writer, [&](char* out) {
      *out++ = ' ';
      return host::FormatG(length / whole, out);
    });
  }
  RibPrintf(writer, "]\n");
}

// With the whole curve's length when it is dashed.
void WritePolyline(RibWriter& writer, const std::vector<ON_3dPoint>& points, double width,
                   std::optional<double> dashedLength) {
  RibPrintf(writer, "Curves \"linear\" [%d] \"nonperiodic\" \"P\" [ ",
            static_cast<int>(points.size()));
  for (const ON_3dPoint& p : points) RibNumbers(writer, p.x, p.y, p.z);
  RibPrintf(writer, "] \"constantwidth\" [%g]\n", width);
  if (dashedLength) WriteRunningLengths(writer, points, *dashedLength);
}

}  // namespace

void WriteCurveBody(const ObjectStream& stream, const CRhinoObject& object, const ON_Curve& curve,
                    const ObjectAttributes& attributes) {
  RibWriter& writer = stream.Writer;
  const RenderSettings& settings = stream.Settings;
  // An archive stands beside a curve; it never takes its place.
  static_cast<void>(WriteAttributeBlock(writer, object, attributes, settings));
  std::optional<double> dashedLength;
  if (attributes.ShadeCurves) {
    WriteObjectMaterial(writer, object, stream.Materials, stream.UseObjectNumbers);
  } else {
    WriteConstantLook(writer, LineColor(object, attributes, stream.Doc, settings));
    dashedLength = WriteLinePattern(writer, object, curve, stream.Doc);
  }
  const double width = LineWidth(attributes, settings);
  std::vector<ON_3dPoint> points;
  if (curve.IsPolyline(&points) == 0) {
    if (attributes.CurveType == kAutomaticCurveType) WriteRibbonType(writer);
    WriteNurbsForm(writer, curve, width);
  } else if (points.size() >= 2) {
    WritePolyline(writer, points, width, dashedLength);
  }
}

}  // namespace orv
