#include "host/modeling/text_outlines.h"

#include <algorithm>
#include <mutex>

#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "host/modeling/text_layout.h"

namespace host {

namespace {

using HorizontalAlignment = ON_Annotation::HorizontalAlignment;
using VerticalAlignment = ON_Annotation::VerticalAlignment;

// The fonts of the process, which one thread at a time may use.
struct SharedFonts {
  std::mutex mutex;
  FontLibrary fonts;
};

SharedFonts& Fonts() {
  static SharedFonts fonts;
  return fonts;
}

FontStyle* StyleOf(const ON_TextEntity2& text, FontLibrary& fonts) {
  return fonts.Style({text.m_font, text.m_bold, text.m_italic});
}

bool HasSize(const ON_TextEntity2& text) {
  return ON_IsValid(text.m_height) && text.m_height > 0 && !text.m_text.empty();
}

// In heights of a capital: where a line begins.
double LineStart(const TextLine& line, HorizontalAlignment alignment) {
  switch (alignment) {
    case HorizontalAlignment::center:
      return -line.width / 2;
    case HorizontalAlignment::right:
      return -line.width;
    default:
      return 0;
  }
}

// From the first line's foot down to the lowest point of all letters.
double Depth(const TextLayout& layout) {
  double depth = 0;
  double line_depth = 0;
  for (const TextLine& line : layout.lines) {
    for (const PlacedGlyph& placed : line.glyphs) {
      depth = std::max(depth, line_depth - placed.glyph->bottom);
    }
    line_depth += layout.pitch;
  }
  return depth;
}

// In heights of a capital: where the first line's letters stand.
double FirstFoot(const TextLayout& layout, VerticalAlignment alignment) {
  const double to_last_foot = layout.pitch * static_cast<double>(layout.lines.size() - 1);
  switch (alignment) {
    case VerticalAlignment::top:
      return -1;
    case VerticalAlignment::middle_of_top:
      return -0.5;
    case VerticalAlignment::bottom_of_top:
      return 0;
    case VerticalAlignment::middle:
      return (to_last_foot - 1) / 2;
    case VerticalAlignment::middle_of_bottom:
      return to_last_foot - 0.5;
    case VerticalAlignment::bottom_of_bounding_box:
      return Depth(layout);
    default:
      return to_last_foot;
  }
}

// The parameters 0, 1, 2 ... at which pieces begin, each as often as they have degrees, and the
// last one's end.
ON_SimpleArray<double> PieceKnots(std::size_t point_count, int degree) {
  ON_SimpleArray<double> knots;
  const auto repeats = static_cast<std::size_t>(degree);
  for (std::size_t i = 0; i + 1 < point_count + repeats; ++i) {
    const std::size_t piece = i / repeats;
    knots.push_back(static_cast<double>(piece));
  }
  return knots;
}

// Null when the points aren't all numbers.
std::shared_ptr<const ON_Curve> CurveThrough(ON_SimpleArray<ON_3dPoint> points, int degree) {
  ON_SimpleArray<double> knots = PieceKnots(points.size(), degree);
  if (degree == 1) {
    auto curve = std::make_shared<ON_PolylineCurve>();
    curve->m_t = std::move(knots);
    curve->m_pline = std::move(points);
    return curve->IsValid() ? curve : nullptr;
  }
  ON_SimpleArray<ON_4dPoint> cvs;
  for (const ON_3dPoint& p : points) cvs.push_back(ON_NurbsCurve::Unweighted(p));
  auto curve = std::make_shared<ON_NurbsCurve>();
  curve->Create(degree + 1, std::move(knots), std::move(cvs));
  return curve->IsValid() ? curve : nullptr;
}

std::shared_ptr<const ON_Curve> Outline(const GlyphContour& contour, ON_2dPoint at,
                                        const ON_TextEntity2& text) {
  ON_SimpleArray<ON_3dPoint> points;
  for (const ON_2dPoint& p : contour.points) {
    points.push_back(
        text.m_plane.PointAt(text.m_height * (at.x + p.x), text.m_height * (at.y + p.y)));
  }
  return CurveThrough(std::move(points), contour.degree);
}

}  // namespace

std::vector<std::shared_ptr<const ON_Curve>> TextOutlines(const ON_TextEntity2& text) {
  std::vector<std::shared_ptr<const ON_Curve>> outlines;
  if (!HasSize(text)) return outlines;
  const std::lock_guard lock(Fonts().mutex);
  FontStyle* style = StyleOf(text, Fonts().fonts);
  if (style == nullptr) return outlines;
  const TextLayout layout = LayOutText(*style, text.m_text);
  double foot = FirstFoot(layout, text.m_valign);
  for (const TextLine& line : layout.lines) {
    const double start = LineStart(line, text.m_halign);
    for (const PlacedGlyph& placed : line.glyphs) {
      for (const GlyphContour& contour : placed.glyph->contours) {
        auto outline = Outline(contour, {start + placed.x, foot}, text);
        if (outline != nullptr) outlines.push_back(std::move(outline));
      }
    }
    foot -= layout.pitch;
  }
  return outlines;
}

double TextWidth(const ON_TextEntity2& text) {
  if (!HasSize(text)) return 0;
  const std::lock_guard lock(Fonts().mutex);
  FontStyle* style = StyleOf(text, Fonts().fonts);
  if (style == nullptr) return 0;
  double width = 0;
  for (const TextLine& line : LayOutText(*style, text.m_text).lines) {
    width = std::max(width, line.width);
  }
  return text.m_height * width;
}

}  // namespace host
