#include <algorithm>
#include <cmath>

#include "host/modeling/annotation_drawings.h"
#include "host/modeling/measurement_text.h"

namespace host {
namespace {

struct Bends {
  ON_2dPoint first;
  ON_2dPoint second;
};

// As the points tell, or a text's height and a half before the end. Without a sideways step they
// stand on the straight line.
Bends BendsOf(const AnnotationSketch& sketch) {
  const ON_Annotation& annotation = sketch.Annotation();
  const std::vector<ON_2dPoint>& points = annotation.m_points;
  if (points.size() >= 4) return {points[2], points[3]};
  const ON_2dPoint measured = points[0];
  const ON_2dPoint end = points[1];
  const double way = annotation.m_measures_x ? end.y - measured.y : end.x - measured.x;
  const double last = std::min(sketch.TextHeight(), 2 * std::abs(way) / 3);
  const double slanted = std::min(sketch.TextHeight() / 2, (std::abs(way) - last) / 2);
  const double back = way < 0 ? 1 : -1;
  if (annotation.m_measures_x) {
    return {{measured.x, end.y + back * (last + slanted)}, {end.x, end.y + back * last}};
  }
  return {{end.x + back * (last + slanted), measured.y}, {end.x + back * last, end.y}};
}

}  // namespace

void DrawOrdinateDimension(AnnotationSketch& sketch) {
  const ON_Annotation& annotation = sketch.Annotation();
  const std::vector<ON_2dPoint>& points = annotation.m_points;
  if (points.size() < 2) return;
  const ON_2dPoint measured = points[0];
  const ON_2dPoint end = points[1];
  const ON_2dPoint along = annotation.m_measures_x ? ON_2dPoint{0, 1} : ON_2dPoint{1, 0};
  const double way = Dot(end - measured, along);
  if (way == 0) return;
  const ON_2dPoint direction = along * (way < 0 ? -1 : 1);
  const ON_2dPoint start =
      measured + direction * std::min(sketch.Size(sketch.Style().m_extoffset), std::abs(way));
  const bool is_straight = annotation.m_measures_x ? measured.x == end.x : measured.y == end.y;
  if (is_straight) {
    sketch.AddLine(start, end);
  } else {
    const Bends bends = BendsOf(sketch);
    sketch.AddLine(start, bends.first);
    sketch.AddLine(bends.first, bends.second);
    sketch.AddLine(bends.second, end);
  }
  DrawTextAtEnd(sketch, MeasurementText(annotation, sketch.Style()),
                {end, direction, sketch.FrameAlong(direction)});
}

}  // namespace host
