#include <algorithm>

#include "host/modeling/annotation_drawings.h"

namespace host {
namespace {

// Without points that stand where the one before does.
std::vector<ON_2dPoint> DistinctPoints(const std::vector<ON_2dPoint>& points) {
  std::vector<ON_2dPoint> distinct;
  for (const ON_2dPoint p : points) {
    if (distinct.empty() || Length(p - distinct.back()) > 0) distinct.push_back(p);
  }
  return distinct;
}

void DrawLines(AnnotationSketch& sketch, const std::vector<ON_2dPoint>& points) {
  constexpr int kNone = 0, kSmooth = 2;
  const int curve = sketch.Style().m_leadercurve;
  if (curve == kNone) return;
  if (curve == kSmooth && points.size() > 2) {
    sketch.AddSpline(points);
    return;
  }
  for (std::size_t i = 1; i < points.size(); ++i) sketch.AddLine(points[i - 1], points[i]);
}

ON_Annotation::VerticalAlignment TextAlignment(const ON_DimStyle& style) {
  using V = ON_Annotation::VerticalAlignment;
  const int last = static_cast<int>(V::bottom_of_bounding_box);
  return static_cast<V>(std::clamp(style.m_leadertextvalign, 0, last));
}

}  // namespace

void DrawLeader(AnnotationSketch& sketch) {
  const std::vector<ON_2dPoint> points = DistinctPoints(sketch.Annotation().m_points);
  if (points.size() < 2) return;
  const ON_DimStyle& style = sketch.Style();
  DrawLines(sketch, points);
  DrawArrowhead(sketch, style.m_leaderarrowtype, points[0], Unit(points[0] - points[1]),
                sketch.Size(style.m_leaderarrowsize));
  ON_2dPoint end = points.back();
  ON_2dPoint direction = Unit(end - points[points.size() - 2]);
  const TextFrame frame =
      style.m_leadertexthorizontal ? sketch.HorizontalFrame() : sketch.FrameAlong(direction);
  if (style.m_leaderlanding) {
    direction = frame.right * (Dot(direction, frame.right) < -1e-9 ? -1 : 1);
    const ON_2dPoint landed = end + direction * sketch.Size(style.m_leaderlandinglength);
    sketch.AddLine(end, landed);
    end = landed;
  }
  DrawTextAtEnd(sketch, sketch.Wrapped(sketch.Annotation().m_text),
                {end, direction, frame, false, TextAlignment(style)});
}

}  // namespace host
