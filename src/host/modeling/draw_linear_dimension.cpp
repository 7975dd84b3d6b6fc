#include <algorithm>

#include "host/modeling/annotation_drawings.h"
#include "host/modeling/measurement_text.h"

namespace host {
namespace {

// Measured points, and what stands over them on the dimension line.
struct Ends {
  ON_2dPoint measured[2];
  ON_2dPoint on_line[2];
};

// From where a text is to where on the dimension line, from left to right.
struct TextSpan {
  ON_2dPoint middle;
  double half = 0;
  bool breaks_line = false;
};

void DrawExtensionLine(AnnotationSketch& sketch, ON_2dPoint measured, ON_2dPoint on_line) {
  const ON_DimStyle& style = sketch.Style();
  const ON_2dPoint way = on_line - measured;
  const double length = Length(way);
  const ON_2dPoint direction = Unit(way);
  double from = std::min(sketch.Size(style.m_extoffset), length);
  if (style.m_fixedextension) {
    from = std::max(from, length - sketch.Size(style.m_fixedextensionlength));
  }
  sketch.AddLine(measured + direction * from,
                 on_line + direction * sketch.Size(style.m_extextension));
}

void DrawArrows(AnnotationSketch& sketch, const Ends& ends, bool outside) {
  const ON_DimStyle& style = sketch.Style();
  const double size = sketch.Size(style.m_arrowsize);
  const ON_2dPoint to_second = Unit(ends.on_line[1] - ends.on_line[0]) * (outside ? -1 : 1);
  if (!style.m_suppress_arrow1) {
    DrawArrowhead(sketch, style.m_arrowtype1, ends.on_line[0], to_second * -1, size);
  }
  if (!style.m_suppress_arrow2) {
    DrawArrowhead(sketch, style.m_arrowtype2, ends.on_line[1], to_second, size);
  }
}

// Where the middle of the text is on the line or beside it.
ON_2dPoint TextPoint(const AnnotationSketch& sketch, double left, double right, double y,
                     double half, const DimensionFit& fit) {
  if (sketch.Annotation().m_text_point) return *sketch.Annotation().m_text_point;
  if (!fit.text_outside) return {(left + right) / 2, y};
  const double arrow =
      fit.arrows_outside ? kArrowRoom * sketch.Size(sketch.Style().m_arrowsize) : 0;
  const double away = half + 3 * sketch.TextGap() + arrow;
  return {fit.text_left ? left - away : right + away, y};
}

// The line from `left` to `right`, longer where arrows or the text stand outside, broken where the
// text stands in it.
void DrawLine(AnnotationSketch& sketch, double left, double right, double y, const TextSpan& text,
              bool arrows_outside) {
  const ON_DimStyle& style = sketch.Style();
  const double beyond = arrows_outside ? kOutsideArrowLength * sketch.Size(style.m_arrowsize)
                                       : sketch.Size(style.m_dimextension);
  const double gap = sketch.TextGap();
  const double text_left = text.middle.x - text.half;
  const double text_right = text.middle.x + text.half;
  double from = left - beyond;
  double to = right + beyond;
  // A line runs under a text above it, and up to one that stands in it.
  if (text.half > 0 && text.middle.x > right)
    to = std::max(to, text.breaks_line ? text_left - gap : text_right);
  if (text.half > 0 && text.middle.x < left)
    from = std::min(from, text.breaks_line ? text_right + gap : text_left);
  const bool is_broken = text.breaks_line && text_right + gap > from && text_left - gap < to;
  if (!is_broken) {
    sketch.AddLine({from, y}, {to, y});
    return;
  }
  if (text_left - gap > from) sketch.AddLine({from, y}, {text_left - gap, y});
  if (text_right + gap < to) sketch.AddLine({text_right + gap, y}, {to, y});
}

}  // namespace

void DrawLinearDimension(AnnotationSketch& sketch) {
  constexpr ON_2dPoint kAlong{1, 0};
  const std::vector<ON_2dPoint>& points = sketch.Annotation().m_points;
  if (points.size() < 3 || points[0].x == points[1].x) return;
  const ON_DimStyle& style = sketch.Style();
  const double y = points[2].y;
  const Ends ends{{points[0], points[1]}, {{points[0].x, y}, {points[1].x, y}}};
  const double left = std::min(points[0].x, points[1].x);
  const double right = std::max(points[0].x, points[1].x);

  if (!style.m_suppress_extension1) DrawExtensionLine(sketch, ends.measured[0], ends.on_line[0]);
  if (!style.m_suppress_extension2) DrawExtensionLine(sketch, ends.measured[1], ends.on_line[1]);
  const std::string text = MeasurementText(sketch.Annotation(), style);
  const TextFrame frame =
      style.m_texthorizontal ? sketch.HorizontalFrame() : sketch.FrameAlong(kAlong);
  TextSpan span;
  span.half = HalfExtent(sketch, text, frame, kAlong);
  if (text.empty()) span.half = 0;
  const DimensionFit fit = FitDimension(sketch, right - left, 2 * span.half);
  span.middle = TextPoint(sketch, left, right, y, span.half, fit);
  const bool is_in_line = PlaceDimensionText(sketch, text, span.middle, frame);
  const double reach = HalfExtent(sketch, text, frame, {0, 1}) + sketch.TextGap();
  const bool is_near = std::abs(span.middle.y - y) < reach;
  span.breaks_line = is_in_line && is_near && span.half > 0;
  if (!is_near) span.half = 0;
  DrawLine(sketch, left, right, y, span, fit.arrows_outside);
  DrawArrows(sketch, ends, fit.arrows_outside);
}

}  // namespace host
