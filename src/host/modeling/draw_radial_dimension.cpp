#include <cmath>

#include "host/modeling/annotation_drawings.h"
#include "host/modeling/measurement_text.h"

namespace host {
namespace {

// A cross in the centre, and lines from it to the circle and beyond where the style wants them.
void DrawCenterMark(AnnotationSketch& sketch, ON_2dPoint center, double radius) {
  constexpr int kNone = 0, kLines = 2;
  const ON_DimStyle& style = sketch.Style();
  const double size = sketch.Size(style.m_centermark);
  if (style.m_centermarkstyle == kNone || size <= 0) return;
  for (const ON_2dPoint arm : {ON_2dPoint{1, 0}, ON_2dPoint{0, 1}}) {
    sketch.AddLine(center - arm * size, center + arm * size);
    if (style.m_centermarkstyle != kLines || radius <= 2 * size) continue;
    sketch.AddLine(center + arm * (2 * size), center + arm * (radius + size));
    sketch.AddLine(center - arm * (2 * size), center - arm * (radius + size));
  }
}

// Where the line goes from the curve to the text: a bend, when the text is horizontal, and the end.
struct Way {
  ON_2dPoint tip;
  ON_2dPoint bend;
  ON_2dPoint end;
  // In which direction the line ends.
  ON_2dPoint direction;
};

Way BentWay(const std::vector<ON_2dPoint>& points) {
  Way way{points[1], points[2], points[3], {1, 0}};
  const double across = way.end.x - way.bend.x;
  // A line that ends where it bends goes on to the side on which it came.
  const double side = std::abs(across) > 1e-9 ? across : way.end.x - way.tip.x;
  if (side < -1e-9) way.direction = {-1, 0};
  return way;
}

// Straight from the centre through the curve, as far as the end is.
Way StraightWay(const std::vector<ON_2dPoint>& points) {
  const ON_2dPoint center = points[0];
  const ON_2dPoint radial = Unit(points[1] - center);
  const ON_2dPoint to_end = points[3] - center;
  const double far = Length(to_end) * (Dot(to_end, radial) < 0 ? -1 : 1);
  const ON_2dPoint end = center + radial * far;
  Way way{points[1], end, end, Unit(end - points[1])};
  if (Length(way.direction) == 0) way.direction = radial;
  return way;
}

}  // namespace

void DrawRadialDimension(AnnotationSketch& sketch) {
  constexpr int kAbove = 0;
  const std::vector<ON_2dPoint>& points = sketch.Annotation().m_points;
  if (points.size() < 4) return;
  const double radius = Length(points[1] - points[0]);
  if (!(radius > 0)) return;
  const ON_DimStyle& style = sketch.Style();
  Way way = style.m_radialtexthorizontal ? BentWay(points) : StraightWay(points);
  sketch.AddLine(way.tip, way.bend);
  sketch.AddLine(way.bend, way.end);
  if (style.m_leaderlanding) {
    const ON_2dPoint landed = way.end + way.direction * sketch.Size(style.m_leaderlandinglength);
    sketch.AddLine(way.end, landed);
    way.end = landed;
  }
  DrawCenterMark(sketch, points[0], radius);
  // The arrow looks at the curve from where its line comes.
  ON_2dPoint from = way.bend;
  if (Length(way.tip - from) == 0) from = way.end;
  if (!style.m_suppress_arrow1) {
    DrawArrowhead(sketch, style.m_arrowtype1, way.tip, Unit(way.tip - from),
                  sketch.Size(style.m_arrowsize));
  }
  DrawTextAtEnd(sketch, MeasurementText(sketch.Annotation(), style),
                {way.end, way.direction, sketch.FrameAlong(way.direction),
                 style.m_radialtextlocation == kAbove});
}

}  // namespace host
