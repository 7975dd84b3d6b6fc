#include "host/modeling/annotation_sketch.h"

#include <algorithm>
#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_polyline_curve.h"
#include "host/system/text.h"

namespace host {
namespace {

// From one line's foot to the next one's, in heights of a capital letter.
constexpr double kLineFeed = 1.6;

bool IsFinite(ON_2dPoint p) {
  return ON_IsValid(p.x) && ON_IsValid(p.y);
}

bool AreFinite(std::span<const ON_2dPoint> points) {
  return std::all_of(points.begin(), points.end(), IsFinite);
}

// Who looks at a model in the standard view that faces a plane most.
struct Viewer {
  ON_3dVector right;
  ON_3dVector up;
};

Viewer ViewerOf(const ON_Plane& plane) {
  const double x = std::abs(plane.zaxis.x);
  const double y = std::abs(plane.zaxis.y);
  const double z = std::abs(plane.zaxis.z);
  if (z >= x && z >= y) return {{1, 0, 0}, {0, 1, 0}};
  if (y >= x) return {{1, 0, 0}, {0, 0, 1}};
  return {{0, 1, 0}, {0, 0, 1}};
}

}  // namespace

ON_2dPoint Unit(ON_2dPoint v) {
  const double length = Length(v);
  return length > 0 && ON_IsValid(length) ? v * (1 / length) : ON_2dPoint{0, 0};
}

AnnotationSketch::AnnotationSketch(const ON_Annotation& annotation, const ON_DimStyle& style,
                                   const MeasureText& measure)
    : annotation_(annotation), style_(style), measure_(measure) {
  const bool has_scale = ON_IsValid(style.m_dimscale) && style.m_dimscale > 0;
  scale_ = has_scale ? style.m_dimscale : 1;
  const double height = Size(style.m_textheight);
  text_height_ = height > 0 ? height : scale_;
  const ON_Plane& plane = annotation.m_plane;
  const Viewer viewer = ViewerOf(plane);
  const auto in_plane = [&plane](ON_3dVector v) {
    return ON_2dPoint{ON_DotProduct(v, plane.xaxis), ON_DotProduct(v, plane.yaxis)};
  };
  view_right_ = in_plane(viewer.right);
  view_up_ = in_plane(viewer.up);
  is_seen_from_behind_ = ON_DotProduct(ON_CrossProduct(viewer.right, viewer.up), plane.zaxis) < 0;
}

double AnnotationSketch::Size(double of_style) const {
  const double size = of_style * scale_;
  return ON_IsValid(size) && size > 0 ? size : 0;
}

double AnnotationSketch::TextHeight(std::string_view text) const {
  const auto feeds = std::count(text.begin(), text.end(), '\n');
  return text_height_ * (1 + kLineFeed * static_cast<double>(feeds));
}

double AnnotationSketch::TextWidth(const std::string& text) const {
  if (text.empty()) return 0;
  const double width = measure_(Entity(text));
  return ON_IsValid(width) && width > 0 ? width : 0;
}

std::string AnnotationSketch::Wrapped(const std::string& text) const {
  // More letters than anybody draws. Each word is measured.
  constexpr std::size_t kMaxLetters = 65536;
  const double room = Size(annotation_.m_wrap_width);
  if (room <= 0) return text;
  const std::string_view letters = FirstCodePoints(text, kMaxLetters);
  const double blank = TextWidth("n n") - TextWidth("nn");
  std::string wrapped;
  double used = 0;
  for (std::size_t at = 0; at < letters.size();) {
    const std::size_t end = std::min(letters.find_first_of(" \n", at), letters.size());
    const std::string word(letters.substr(at, end - at));
    const double width = TextWidth(word);
    if (used > 0 && used + width > room) {
      // In the place of the blank before it.
      wrapped.back() = '\n';
      used = 0;
    }
    wrapped += word;
    used += width + blank;
    if (end < letters.size()) wrapped += letters[end];
    if (end < letters.size() && letters[end] == '\n') used = 0;
    at = end + 1;
  }
  return wrapped;
}

TextFrame AnnotationSketch::FrameAlong(ON_2dPoint direction) const {
  // Up to here past the vertical a text counts as upright.
  constexpr double kUpright = 0.1736;
  ON_2dPoint right = Unit(direction);
  const double across = Dot(right, Unit(view_right_));
  const bool is_steep = std::abs(across) <= kUpright;
  if (is_steep ? Dot(right, view_up_) < 0 : across < 0) right = right * -1;
  const double turn = is_seen_from_behind_ ? -1 : 1;
  return {right, {-right.y * turn, right.x * turn}};
}

TextFrame AnnotationSketch::HorizontalFrame() const {
  return FrameAlong(view_right_);
}

void AnnotationSketch::AddLine(ON_2dPoint from, ON_2dPoint to) {
  if (!IsFinite(from) || !IsFinite(to)) return;
  const auto line = std::make_shared<ON_LineCurve>(At(from), At(to));
  if (line->IsValid() && line->m_line.from != line->m_line.to) drawing_.curves.push_back(line);
}

bool AnnotationSketch::AddCircularArc(ON_2dPoint center, double radius, ON_Interval angle) {
  if (!IsFinite(center) || !ON_IsValid(radius) || !(radius > 0)) return false;
  ON_Arc arc;
  arc.plane = annotation_.m_plane;
  arc.plane.origin = At(center);
  arc.radius = radius;
  arc.m_angle = angle;
  if (!arc.IsValid()) return false;
  const auto curve = std::make_shared<ON_ArcCurve>(arc);
  if (!curve->IsValid()) return false;
  drawing_.curves.push_back(curve);
  return true;
}

void AnnotationSketch::AddArc(ON_2dPoint center, double radius, ON_Interval angle) {
  constexpr double kHalfTurn = std::numbers::pi;
  if (angle.Length() <= 1.5 * kHalfTurn) {
    AddCircularArc(center, radius, angle);
    return;
  }
  const double middle = angle.ParameterAt(0.5);
  if (AddCircularArc(center, radius, {angle.Min, middle})) {
    AddCircularArc(center, radius, {middle, angle.Max});
  }
}

void AnnotationSketch::AddSpline(std::span<const ON_2dPoint> points) {
  // Each point's direction is that of the way between its neighbours; each piece is cubic.
  if (points.size() < 2 || !AreFinite(points)) return;
  const auto direction = [points](std::size_t i) {
    const ON_2dPoint before = points[i == 0 ? 0 : i - 1];
    const ON_2dPoint after = points[std::min(i + 1, points.size() - 1)];
    return (after - before) * (i == 0 || i + 1 == points.size() ? 1.0 / 3 : 1.0 / 6);
  };
  ON_SimpleArray<double> knots;
  ON_SimpleArray<ON_4dPoint> cvs;
  const auto add = [&](ON_2dPoint p) { cvs.push_back(ON_NurbsCurve::Unweighted(At(p))); };
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i > 0) add(points[i] - direction(i));
    add(points[i]);
    if (i + 1 < points.size()) add(points[i] + direction(i));
    knots.insert(knots.end(), 3, static_cast<double>(i));
  }
  const auto curve = std::make_shared<ON_NurbsCurve>();
  curve->Create(4, std::move(knots), std::move(cvs));
  // One that ends where it begins would be taken for an area.
  if (curve->IsValid() && !curve->IsClosed()) drawing_.curves.push_back(curve);
}

void AnnotationSketch::AddPolygon(std::span<const ON_2dPoint> corners) {
  if (corners.size() < 3 || !AreFinite(corners)) return;
  const auto outline = std::make_shared<ON_PolylineCurve>();
  for (std::size_t i = 0; i <= corners.size(); ++i) {
    outline->m_pline.push_back(At(corners[i % corners.size()]));
    outline->m_t.push_back(static_cast<double>(i));
  }
  if (outline->IsValid()) drawing_.curves.push_back(outline);
}

void AnnotationSketch::AddDisc(ON_2dPoint center, double radius) {
  AddCircularArc(center, radius, {0, 2 * std::numbers::pi});
}

ON_TextEntity2 AnnotationSketch::Entity(const std::string& text) const {
  ON_TextEntity2 entity;
  entity.m_plane = annotation_.m_plane;
  entity.m_text = text;
  entity.m_height = text_height_;
  entity.m_font = style_.m_font;
  entity.m_bold = style_.m_bold;
  entity.m_italic = style_.m_italic;
  return entity;
}

void AnnotationSketch::AddText(const std::string& text, ON_2dPoint at, const TextFrame& frame,
                               ON_Annotation::HorizontalAlignment halign,
                               ON_Annotation::VerticalAlignment valign) {
  if (text.empty() || !IsFinite(at)) return;
  ON_TextEntity2 entity = Entity(text);
  ON_Plane& plane = entity.m_plane;
  const auto direction = [&](ON_2dPoint d) {
    return annotation_.m_plane.xaxis * d.x + annotation_.m_plane.yaxis * d.y;
  };
  plane.origin = At(at);
  plane.xaxis = direction(frame.right);
  plane.yaxis = direction(frame.up);
  plane.zaxis = ON_CrossProduct(plane.xaxis, plane.yaxis);
  entity.m_halign = halign;
  entity.m_valign = valign;
  if (plane.origin.IsValid()) drawing_.texts.push_back(std::move(entity));
}

}  // namespace host
