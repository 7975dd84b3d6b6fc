#include "export/curve_writer.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "export/attribute_block.h"
#include "export/coordinates.h"
#include "export/line_look.h"
#include "export/line_pattern.h"
#include "export/nurbs_curve_writer.h"

namespace orv {
namespace {

constexpr int kAutomaticCurveType = 0;

// From each point to the next.
double LengthOf(const std::vector<ON_3dPoint>& points) {
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i) length += points[i].DistanceTo(points[i - 1]);
  return length;
}

// The length from the first point to each further one, as a part of the whole. Nothing when they
// are too far apart to be measured.
void WriteRunningLengths(RibWriter& writer, const std::vector<ON_3dPoint>& points, double whole) {
  if (!IsSetNumber(LengthOf(points) / whole)) return;
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

// The points of a curve of straight lines; empty for any other, and for one whose points weights
// have put out of reach.
std::vector<ON_3dPoint> PointsOf(const ON_Curve& curve) {
  std::vector<ON_3dPoint> points;
  const auto isReached = [](const ON_3dPoint& p) { return p.IsValid(); };
  const bool isPolyline =
      curve.IsPolyline(&points) > 0 && std::all_of(points.begin(), points.end(), isReached);
  if (!isPolyline) points.clear();
  return points;
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
  const std::vector<ON_3dPoint> points = PointsOf(curve);
  if (points.empty()) {
    if (attributes.CurveType == kAutomaticCurveType) WriteRibbonType(writer);
    WriteNurbsForm(writer, curve, width);
  } else if (points.size() >= 2) {
    WritePolyline(writer, points, width, dashedLength);
  }
}

}  // namespace orv
