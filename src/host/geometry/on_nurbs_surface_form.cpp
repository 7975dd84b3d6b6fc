#include <algorithm>

#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_parameters.h"

// What kind of surface a NURBS surface is, and its form.

namespace {

// True when two curves of the same order and knots are one: their points agree, and their weights
// but for a common factor.
bool AreOneCurve(const ON_NurbsCurve& a, const ON_NurbsCurve& b) {
  constexpr double kRelativeTolerance = 0x1p-32;
  for (std::size_t i = 0; i < a.m_cv.size(); ++i) {
    const ON_4dPoint &p = a.m_cv[i], &q = b.m_cv[i];
    if (!ON_PointsAreCoincident(p.Euclidean(), q.Euclidean())) return false;
    const double first = p.w * b.m_cv[0].w;
    const double second = q.w * a.m_cv[0].w;
    if (std::abs(first - second) > kRelativeTolerance * std::abs(first)) return false;
  }
  return true;
}

bool IsPoint(const ON_NurbsCurve& curve) {
  const ON_3dPoint start = curve.m_cv.front().Euclidean();
  return std::all_of(curve.m_cv.begin(), curve.m_cv.end(), [&](const ON_4dPoint& cv) {
    return ON_PointsAreCoincident(start, cv.Euclidean());
  });
}

}  // namespace

bool ON_NurbsSurface::IsClosed(int direction) const {
  const ON_Interval domain = Domain(direction);
  const ON_NurbsCurve start = IsoCurve(1 - direction, domain.Min);
  return !IsPoint(start) && AreOneCurve(start, IsoCurve(1 - direction, domain.Max));
}

bool ON_NurbsSurface::IsSingular(Side side) const {
  // Along the south and the north, u runs; along the east and the west, v.
  const int direction = side == Side::south || side == Side::north ? 0 : 1;
  const ON_Interval across = Domain(1 - direction);
  const bool is_first = side == Side::south || side == Side::west;
  return IsPoint(IsoCurve(direction, is_first ? across.Min : across.Max));
}

bool ON_NurbsSurface::GetNurbForm(ON_NurbsSurface& form) const {
  form = *this;
  return IsValid();
}

std::unique_ptr<ON_Surface> ON_NurbsSurface::DuplicateSurface() const {
  return std::make_unique<ON_NurbsSurface>(*this);
}

void ON_NurbsSurface::SetDomain(int direction, ON_Interval domain) {
  const ON_Interval old = Domain(direction);
  if (domain == old) return;
  for (double& knot : m_knot[static_cast<std::size_t>(direction)]) {
    knot = domain.ParameterAt(old.NormalizedParameterAt(knot));
  }
}
