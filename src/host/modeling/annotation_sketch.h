#pragma once

#include <cmath>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "host/geometry/on_annotation.h"
#include "host/modeling/explode_annotation.h"

namespace host {

// How wide a text is drawn, as TextWidth tells.
using MeasureText = std::function<double(const ON_TextEntity2&)>;

inline ON_2dPoint operator+(ON_2dPoint a, ON_2dPoint b) {
  return {a.x + b.x, a.y + b.y};
}
inline ON_2dPoint operator-(ON_2dPoint a, ON_2dPoint b) {
  return {a.x - b.x, a.y - b.y};
}
inline ON_2dPoint operator*(ON_2dPoint p, double s) {
  return {p.x * s, p.y * s};
}
inline double Dot(ON_2dPoint a, ON_2dPoint b) {
  return a.x * b.x + a.y * b.y;
}
inline double Length(ON_2dPoint v) {
  return std::hypot(v.x, v.y);
}
// Of length 1; {0, 0} for a vector without a direction.
ON_2dPoint Unit(ON_2dPoint v);
// The point at an angle of a circle around the origin.
inline ON_2dPoint OnCircle(double radius, double angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

// The directions in which a text is read and its letters rise, in the plane's coordinates.
struct TextFrame {
  ON_2dPoint right;
  ON_2dPoint up;
};

// Collects the drawing of one annotation. All coordinates are those of its plane; sizes are in
// units of the document. What isn't finite or has no length is left out.
class AnnotationSketch {
 public:
  AnnotationSketch(const ON_Annotation& annotation, const ON_DimStyle& style,
                   const MeasureText& measure);

  const ON_Annotation& Annotation() const { return annotation_; }
  const ON_DimStyle& Style() const { return style_; }
  // A size of the style in units of the document; 0 for one that is negative or no number.
  double Size(double of_style) const;
  double TextHeight() const { return text_height_; }
  double TextGap() const { return Size(style_.m_textgap); }
  // The height of a text of one line or several.
  double TextHeight(std::string_view text) const;
  double TextWidth(const std::string& text) const;
  // The text with its lines broken where they are longer than the annotation wants.
  std::string Wrapped(const std::string& text) const;

  // A frame along a direction, turned about where the text would stand on its head, and mirrored
  // where it would be seen from behind by who looks at the model as in the standard views: from
  // above, from the front, from the right.
  TextFrame FrameAlong(ON_2dPoint direction) const;
  // A frame along the horizontal of who looks at it so.
  TextFrame HorizontalFrame() const;

  void AddLine(ON_2dPoint from, ON_2dPoint to);
  // Counterclockwise; around the whole it's two halves, so that nothing takes it for a disc.
  void AddArc(ON_2dPoint center, double radius, ON_Interval angle);
  // A smooth line through the points.
  void AddSpline(std::span<const ON_2dPoint> points);
  // Closed areas to be filled.
  void AddPolygon(std::span<const ON_2dPoint> corners);
  void AddDisc(ON_2dPoint center, double radius);
  // `at` is where the alignments stand.
  void AddText(const std::string& text, ON_2dPoint at, const TextFrame& frame,
               ON_Annotation::HorizontalAlignment halign, ON_Annotation::VerticalAlignment valign);

  ExplodedAnnotation Take() { return std::move(drawing_); }

 private:
  ON_3dPoint At(ON_2dPoint p) const { return annotation_.m_plane.PointAt(p.x, p.y); }
  ON_TextEntity2 Entity(const std::string& text) const;
  bool AddCircularArc(ON_2dPoint center, double radius, ON_Interval angle);

  const ON_Annotation& annotation_;
  const ON_DimStyle& style_;
  const MeasureText& measure_;
  double scale_;
  double text_height_;
  // Where the viewer's right and up are, and whether the plane is seen from behind.
  ON_2dPoint view_right_;
  ON_2dPoint view_up_;
  bool is_seen_from_behind_;
  ExplodedAnnotation drawing_;
};

}  // namespace host
