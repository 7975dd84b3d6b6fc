#include <cmath>

#include "host/modeling/annotation_drawings.h"

namespace host {
namespace {

using H = ON_Annotation::HorizontalAlignment;
using V = ON_Annotation::VerticalAlignment;

// Dots and ticks stand across the line's end and need no room on it.
bool NeedsRoom(int arrow_kind) {
  return arrow_kind != 0 && arrow_kind != 3 && arrow_kind != 4;
}

double ArrowRoom(const AnnotationSketch& sketch) {
  const ON_DimStyle& style = sketch.Style();
  const double size = sketch.Size(style.m_arrowsize) * kArrowRoom;
  const bool has_first = !style.m_suppress_arrow1 && NeedsRoom(style.m_arrowtype1);
  const bool has_second = !style.m_suppress_arrow2 && NeedsRoom(style.m_arrowtype2);
  return (has_first ? size : 0) + (has_second ? size : 0);
}

}  // namespace

DimensionFit FitDimension(const AnnotationSketch& sketch, double length, double text_length) {
  constexpr int kInside = 1, kOutside = 2;
  constexpr int kRight = 2, kLeft = 3, kLeftWithoutRoom = 5;
  const ON_DimStyle& style = sketch.Style();
  const int text_fit = style.m_textfit;
  const bool is_text_free = text_fit == kInside || text_fit == kRight || text_fit == kLeft;
  const double text = is_text_free || text_length <= 0 ? 0 : text_length + sketch.TextGap();
  const double arrows = ArrowRoom(sketch);
  DimensionFit fit;
  fit.text_outside = text_fit == kRight || text_fit == kLeft || text > length;
  fit.text_left = text_fit == kLeft || text_fit == kLeftWithoutRoom;
  // Arrows make room for a text that would fit without them.
  const double needed = text > length ? arrows : arrows + text;
  fit.arrows_outside = arrows > 0 && style.m_arrowfit != kInside &&
                       (style.m_arrowfit == kOutside || needed > length);
  return fit;
}

double HalfExtent(const AnnotationSketch& sketch, const std::string& text, const TextFrame& frame,
                  ON_2dPoint direction) {
  return 0.5 * (sketch.TextWidth(text) * std::abs(Dot(frame.right, direction)) +
                sketch.TextHeight(text) * std::abs(Dot(frame.up, direction)));
}

bool PlaceDimensionText(AnnotationSketch& sketch, const std::string& text, ON_2dPoint at,
                        const TextFrame& frame) {
  constexpr int kAbove = 0, kBelow = 2;
  const ON_DimStyle& style = sketch.Style();
  const ON_2dPoint gap = frame.up * sketch.TextGap();
  // A text that doesn't follow the line is always in it.
  if (!style.m_texthorizontal && style.m_textlocation == kAbove) {
    sketch.AddText(text, at + gap, frame, H::center, V::bottom);
    return false;
  }
  if (!style.m_texthorizontal && style.m_textlocation == kBelow) {
    sketch.AddText(text, at - gap, frame, H::center, V::top);
    return false;
  }
  sketch.AddText(text, at, frame, H::center, V::middle);
  return true;
}

void DrawTextAtEnd(AnnotationSketch& sketch, const std::string& text, const TextAtEnd& place) {
  if (text.empty()) return;
  const double gap = sketch.TextGap();
  // The text goes on in the line's direction, whichever way it is read.
  const bool goes_right = Dot(place.direction, place.frame.right) > -1e-9;
  const ON_2dPoint on = place.frame.right * (goes_right ? 1 : -1);
  const H halign = goes_right ? H::left : H::right;
  if (!place.is_above) {
    sketch.AddText(text, place.end + on * gap, place.frame, halign, place.valign);
    return;
  }
  sketch.AddLine(place.end, place.end + on * (gap + sketch.TextWidth(text)));
  sketch.AddText(text, place.end + on * gap + place.frame.up * gap, place.frame, halign, V::bottom);
}

}  // namespace host
