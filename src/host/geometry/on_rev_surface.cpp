#include "host/geometry/on_rev_surface.h"

#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_parameters.h"

namespace {

ON_3dVector Turned(const ON_3dVector& radius, const ON_3dVector& axis, double angle) {
  return radius * std::cos(angle) + ON_CrossProduct(axis, radius) * std::sin(angle);
}

}  // namespace

const ON_RevSurface* ON_RevSurface::Cast(const ON_Object* object) {
  return dynamic_cast<const ON_RevSurface*>(object);
}

ON_BoundingBox ON_RevSurface::BoundingBox() const {
  ON_BoundingBox box;
  ON_NurbsCurve around;
  const ON_BoundingBox curve_box = m_curve->BoundingBox();
  if (!curve_box.IsValid() || !UnitArc().GetNurbForm(around)) return box;
  for (const ON_3dPoint& corner : curve_box.GetCorners()) {
    for (const ON_4dPoint& arc : around.m_cv) {
      box.Include(TurnedCV(ON_NurbsCurve::Unweighted(corner), arc).Euclidean());
    }
  }
  return box;
}

// The way around as a part of a circle of radius 1.
ON_ArcCurve ON_RevSurface::UnitArc() const {
  ON_ArcCurve arc;
  arc.m_arc.m_angle = m_angle;
  arc.m_t = m_t;
  return arc;
}

// The unit vector along the axis.
ON_3dVector ON_RevSurface::AxisDirection() const {
  const ON_3dVector direction = m_axis.to - m_axis.from;
  return direction * (1 / direction.Length());
}

// The point of the axis around which a point turns.
ON_3dPoint ON_RevSurface::Foot(const ON_3dPoint& p) const {
  const ON_3dVector axis = AxisDirection();
  return m_axis.from + axis * ON_DotProduct(p - m_axis.from, axis);
}

bool ON_RevSurface::IsValid() const {
  const double axis = m_axis.from.DistanceTo(m_axis.to);
  return m_axis.from.IsValid() && m_axis.to.IsValid() && std::isfinite(axis) && axis > 0 &&
         UnitArc().IsValid() && m_curve != nullptr && m_curve->IsValid();
}

ON_3dPoint ON_RevSurface::PointAt(double u, double v) const {
  ON_3dPoint point;
  ON_3dVector du, dv;
  Ev1Der(u, v, &point, &du, &dv);
  return point;
}

void ON_RevSurface::Ev1Der(double u, double v, ON_3dPoint* point, ON_3dVector* du,
                           ON_3dVector* dv) const {
  const double angle = m_angle.ParameterAt(m_t.NormalizedParameterAt(m_bTransposed ? v : u));
  ON_3dPoint start;
  ON_3dVector along;
  m_curve->Ev1Der(m_bTransposed ? u : v, &start, &along);
  const ON_3dVector axis = AxisDirection();
  const ON_3dPoint foot = Foot(start);
  const ON_3dVector radius = Turned(start - foot, axis, angle);
  const ON_3dVector rise = axis * ON_DotProduct(along, axis);
  *point = foot + radius;
  (m_bTransposed ? *dv : *du) = ON_CrossProduct(axis, radius) * (m_angle.Length() / m_t.Length());
  (m_bTransposed ? *du : *dv) = rise + Turned(along - rise, axis, angle);
}

bool ON_RevSurface::IsClosed(int direction) const {
  return direction == AngleDirection() ? UnitArc().IsClosed() : m_curve->IsClosed();
}

bool ON_RevSurface::IsSingular(Side side) const {
  const bool is_across_v = side == Side::south || side == Side::north;
  if (is_across_v == m_bTransposed) return false;
  const bool is_first = side == Side::south || side == Side::west;
  const ON_3dPoint end = is_first ? m_curve->PointAtStart() : m_curve->PointAtEnd();
  return ON_PointsAreCoincident(end, Foot(end));
}

// What becomes of a control point of the curve at a control point of the unit arc.
ON_4dPoint ON_RevSurface::TurnedCV(const ON_4dPoint& cv, const ON_4dPoint& arc) const {
  const ON_3dPoint foot = Foot(cv.Euclidean());
  const ON_3dVector x = cv.Euclidean() - foot;
  const ON_3dVector y = ON_CrossProduct(AxisDirection(), x);
  const ON_3dVector p =
      (ON_FromOrigin(foot) * arc.w + x * arc.x + y * arc.y) * (cv.w == 0 ? 1 : cv.w);
  return {p.x, p.y, p.z, arc.w * cv.w};
}

bool ON_RevSurface::GetNurbForm(ON_NurbsSurface& form) const {
  ON_NurbsCurve around, along;
  if (!UnitArc().GetNurbForm(around) || !m_curve->GetNurbForm(along)) return false;
  return form.CreateProduct(m_bTransposed ? along : around, m_bTransposed ? around : along, true,
                            [&](const ON_4dPoint& a, const ON_4dPoint& b) {
                              return m_bTransposed ? TurnedCV(a, b) : TurnedCV(b, a);
                            });
}

std::unique_ptr<ON_Surface> ON_RevSurface::DuplicateSurface() const {
  return std::make_unique<ON_RevSurface>(*this);
}
