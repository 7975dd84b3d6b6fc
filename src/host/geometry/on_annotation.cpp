#include "host/geometry/on_annotation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kWholeTurn = 2 * std::numbers::pi;

bool IsNumber(ON_3dVector v) {
  return ON_IsValid(v.x) && ON_IsValid(v.y) && ON_IsValid(v.z);
}

// Axes of length 1 that are perpendicular to each other, but for what the writers of old documents
// made of them.
bool IsPlane(const ON_Plane& plane) {
  constexpr double kTolerance = 1e-4;
  const auto is_unit = [](ON_3dVector v) {
    return IsNumber(v) && std::abs(v.Length() - 1) <= kTolerance;
  };
  return plane.origin.IsValid() && is_unit(plane.xaxis) && is_unit(plane.yaxis) &&
         is_unit(plane.zaxis) && std::abs(ON_DotProduct(plane.xaxis, plane.yaxis)) <= kTolerance &&
         std::abs(ON_DotProduct(plane.xaxis, plane.zaxis)) <= kTolerance &&
         std::abs(ON_DotProduct(plane.yaxis, plane.zaxis)) <= kTolerance;
}

bool IsPoint(ON_2dPoint p) {
  return ON_IsValid(p.x) && ON_IsValid(p.y);
}

double Distance(ON_2dPoint a, ON_2dPoint b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

// Of the way from `a` to `b`, from 0 to less than a whole turn.
double Direction(ON_2dPoint a, ON_2dPoint b) {
  const double angle = std::atan2(b.y - a.y, b.x - a.x);
  return angle < 0 ? angle + kWholeTurn : angle;
}

// How far it is counterclockwise from one direction to another, from 0 to less than a whole turn.
double Turn(double from, double to) {
  return to < from ? to - from + kWholeTurn : to - from;
}

const ON_DimStyle& DefaultStyle() {
  static const ON_DimStyle style;
  return style;
}

}  // namespace

const ON_Annotation* ON_Annotation::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_Annotation*>(object);
}

bool ON_Annotation::IsValid() const {
  return IsPlane(m_plane) && std::all_of(m_points.begin(), m_points.end(), IsPoint) &&
         (!m_text_point || IsPoint(*m_text_point)) && ON_IsValid(m_text_rotation) &&
         ON_IsValid(m_wrap_width) && ON_IsValid(m_distance_scale);
}

ON_BoundingBox ON_Annotation::BoundingBox() const {
  ON_BoundingBox box;
  for (const ON_2dPoint p : m_points) box.Include(m_plane.PointAt(p.x, p.y));
  if (m_points.empty()) box.Include(m_plane.origin);
  return box;
}

const ON_DimStyle& ON_Annotation::DimStyle(const ON_DimStyle* of_table) const {
  if (m_override) return *m_override;
  return of_table != nullptr ? *of_table : DefaultStyle();
}

std::optional<ON_Interval> ON_Annotation::MeasuredAngle() const {
  if (m_type != Type::angular || m_points.size() < 4) return std::nullopt;
  const ON_2dPoint center = m_points[0];
  for (std::size_t i = 1; i < 4; ++i) {
    if (!(Distance(center, m_points[i]) > 0)) return std::nullopt;
  }
  const double first = Direction(center, m_points[1]);
  const double second = Direction(center, m_points[2]);
  const double turn = Turn(first, second);
  // The arc runs through its point: either from the first side to the second or back.
  if (Turn(first, Direction(center, m_points[3])) <= turn) return ON_Interval{first, first + turn};
  return ON_Interval{second, second + kWholeTurn - turn};
}

double ON_Annotation::Measurement() const {
  if (m_type == Type::angular) {
    const std::optional<ON_Interval> angle = MeasuredAngle();
    return angle ? angle->Length() : 0;
  }
  const std::size_t needed = m_type == Type::ordinate ? 1 : 2;
  if (m_points.size() < needed) return 0;
  switch (m_type) {
    case Type::linear:
    case Type::aligned:
      return std::abs(m_points[1].x - m_points[0].x) * m_distance_scale;
    case Type::diameter:
      return 2 * Distance(m_points[0], m_points[1]) * m_distance_scale;
    case Type::radius:
      return Distance(m_points[0], m_points[1]) * m_distance_scale;
    case Type::ordinate:
      return std::abs(m_measures_x ? m_points[0].x : m_points[0].y) * m_distance_scale;
    default:
      return 0;
  }
}
