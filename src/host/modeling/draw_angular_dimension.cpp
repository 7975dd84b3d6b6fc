#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/modeling/annotation_drawings.h"
#include "host/modeling/measurement_text.h"

namespace host {
namespace {

constexpr double kWholeTurn = 2 * std::numbers::pi;

// The arc of the dimension, in radians counterclockwise.
struct Arc {
  ON_2dPoint center;
  double radius = 0;
  ON_Interval angle;

  ON_2dPoint At(double a) const { return center + OnCircle(radius, a); }
};

// From the measured point to the arc, which may be nearer to the centre.
void DrawExtensionLine(AnnotationSketch& sketch, const Arc& arc, ON_2dPoint measured) {
  const ON_DimStyle& style = sketch.Style();
  const ON_2dPoint direction = Unit(measured - arc.center);
  const double start = Length(measured - arc.center);
  const double outwards = start <= arc.radius ? 1 : -1;
  const double length = std::abs(arc.radius - start);
  double offset = std::min(sketch.Size(style.m_extoffset), length);
  if (style.m_fixedextension) {
    offset = std::max(offset, length - sketch.Size(style.m_fixedextensionlength));
  }
  const double from = start + outwards * offset;
  const double to = arc.radius + outwards * sketch.Size(style.m_extextension);
  sketch.AddLine(arc.center + direction * from, arc.center + direction * std::max(to, 0.0));
}

// The arrowhead at an end of the arc; `sign` is 1 at its last end, -1 at its first one. The base is
// on the arc.
void DrawArrow(AnnotationSketch& sketch, const Arc& arc, int kind, double at, double sign,
               bool outside) {
  const double size = sketch.Size(sketch.Style().m_arrowsize);
  const double chord = std::min(1.0, size / (2 * arc.radius));
  const double back = 2 * std::asin(chord) * (outside ? 1 : -1) * sign;
  const ON_2dPoint tip = arc.At(at);
  DrawArrowhead(sketch, kind, tip, Unit(tip - arc.At(at + back)), size);
}

void DrawArrows(AnnotationSketch& sketch, const Arc& arc, bool outside) {
  const ON_DimStyle& style = sketch.Style();
  const std::vector<ON_2dPoint>& points = sketch.Annotation().m_points;
  // The arc may begin on the second side.
  const ON_2dPoint start = Unit(arc.At(arc.angle.Min) - arc.center);
  const bool first_at_start = Length(Unit(points[1] - points[0]) - start) < 1e-6;
  const double first = first_at_start ? arc.angle.Min : arc.angle.Max;
  const double second = first_at_start ? arc.angle.Max : arc.angle.Min;
  const double sign = first_at_start ? -1 : 1;
  if (!style.m_suppress_arrow1) {
    DrawArrow(sketch, arc, style.m_arrowtype1, first, sign, outside);
  }
  if (!style.m_suppress_arrow2) {
    DrawArrow(sketch, arc, style.m_arrowtype2, second, -sign, outside);
  }
}

// The part of the arc's line that a text in it leaves free.
struct TextSpan {
  double middle = 0;
  double half = 0;
  bool breaks_line = false;
};

// Where the middle of the text is, as an angle of the arc.
double TextAngle(const AnnotationSketch& sketch, const Arc& arc, double half,
                 const DimensionFit& fit) {
  if (!fit.text_outside) return arc.angle.ParameterAt(0.5);
  const double arrow =
      fit.arrows_outside ? kOutsideArrowLength * sketch.Size(sketch.Style().m_arrowsize) : 0;
  const double away = (half + 3 * sketch.TextGap() + arrow) / arc.radius;
  return fit.text_left ? arc.angle.Max + away : arc.angle.Min - away;
}

// The arc, longer where arrows stand outside, broken where the text stands in it.
void DrawArcLine(AnnotationSketch& sketch, const Arc& arc, const TextSpan& text,
                 bool arrows_outside) {
  const ON_DimStyle& style = sketch.Style();
  const double size = arrows_outside ? kOutsideArrowLength * sketch.Size(style.m_arrowsize)
                                     : sketch.Size(style.m_dimextension);
  const double room = (kWholeTurn - arc.angle.Length()) / 2;
  const double beyond = std::clamp(size / arc.radius, 0.0, std::max(room, 0.0));
  const ON_Interval whole{arc.angle.Min - beyond, arc.angle.Max + beyond};
  const double gap_start = text.middle - text.half;
  const double gap_end = text.middle + text.half;
  if (!text.breaks_line || gap_end <= whole.Min || gap_start >= whole.Max) {
    sketch.AddArc(arc.center, arc.radius, whole);
    return;
  }
  if (gap_start > whole.Min) sketch.AddArc(arc.center, arc.radius, {whole.Min, gap_start});
  if (gap_end < whole.Max) sketch.AddArc(arc.center, arc.radius, {gap_end, whole.Max});
}

// An angle that means the same direction, nearest to the middle of the arc.
double NearMiddle(const Arc& arc, double angle) {
  const double middle = arc.angle.ParameterAt(0.5);
  return middle + std::remainder(angle - middle, kWholeTurn);
}

void DrawTextAndLine(AnnotationSketch& sketch, const Arc& arc) {
  const ON_DimStyle& style = sketch.Style();
  const std::string text = MeasurementText(sketch.Annotation(), style);
  // A text at the middle is taken to measure how much of the arc it needs.
  const auto frame_at = [&](double angle) {
    const ON_2dPoint tangent{-std::sin(angle), std::cos(angle)};
    return style.m_texthorizontal ? sketch.HorizontalFrame() : sketch.FrameAlong(tangent);
  };
  const auto half_at = [&](double angle) {
    if (text.empty()) return 0.0;
    return HalfExtent(sketch, text, frame_at(angle), {-std::sin(angle), std::cos(angle)});
  };
  const double half = half_at(arc.angle.ParameterAt(0.5));
  const DimensionFit fit = FitDimension(sketch, arc.angle.Length() * arc.radius, 2 * half);
  TextSpan span;
  span.middle = TextAngle(sketch, arc, half, fit);
  ON_2dPoint at = arc.At(span.middle);
  if (const auto& moved = sketch.Annotation().m_text_point) {
    at = *moved;
    const ON_2dPoint from_center = at - arc.center;
    span.middle = NearMiddle(arc, std::atan2(from_center.y, from_center.x));
  }
  const double reach = sketch.TextHeight(text) / 2 + sketch.TextGap();
  const bool is_near = std::abs(Length(at - arc.center) - arc.radius) < reach;
  const bool is_in_line = PlaceDimensionText(sketch, text, at, frame_at(span.middle));
  span.half = std::min((half_at(span.middle) + sketch.TextGap()) / arc.radius, kWholeTurn);
  span.breaks_line = is_in_line && is_near && !text.empty();
  DrawArcLine(sketch, arc, span, fit.arrows_outside);
  DrawArrows(sketch, arc, fit.arrows_outside);
}

}  // namespace

void DrawAngularDimension(AnnotationSketch& sketch) {
  const ON_Annotation& annotation = sketch.Annotation();
  const std::optional<ON_Interval> angle = annotation.MeasuredAngle();
  if (!angle || !(angle->Length() > 0)) return;
  const std::vector<ON_2dPoint>& points = annotation.m_points;
  const Arc arc{points[0], Length(points[3] - points[0]), *angle};
  if (!ON_IsValid(arc.radius)) return;
  const ON_DimStyle& style = sketch.Style();
  if (!style.m_suppress_extension1) DrawExtensionLine(sketch, arc, points[1]);
  if (!style.m_suppress_extension2) DrawExtensionLine(sketch, arc, points[2]);
  DrawTextAndLine(sketch, arc);
}

}  // namespace host
