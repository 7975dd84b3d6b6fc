#include <algorithm>

#include "host/geometry/on_brep.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"

namespace {

// Leaves of a surface what lies in a stretch of one of its parameters. A surface that can't be cut
// stays as it is.
void Cut(ON_NurbsSurface& surface, int direction, ON_Interval part) {
  const int count = surface.CVCount(direction), rows = surface.CVCount(1 - direction);
  const auto cv = [&](int i, int row) {
    return direction == 0 ? surface.CV(i, row) : surface.CV(row, i);
  };
  std::vector<ON_NurbsCurve> curves(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    ON_SimpleArray<ON_4dPoint> cvs;
    for (int i = 0; i < count; ++i) cvs.push_back(cv(i, row));
    ON_NurbsCurve& curve = curves[static_cast<std::size_t>(row)];
    curve.Create(surface.Order(direction), surface.Knots(direction), std::move(cvs),
                 surface.IsRational());
    if (!curve.IsValid() || !curve.Trim(part)) return;
  }
  ON_SimpleArray<ON_4dPoint> cvs;
  const std::size_t length = curves.front().m_cv.size();
  const std::size_t outer = direction == 0 ? length : curves.size();
  const std::size_t inner = direction == 0 ? curves.size() : length;
  for (std::size_t i = 0; i < outer; ++i) {
    for (std::size_t j = 0; j < inner; ++j) {
      cvs.push_back(direction == 0 ? curves[j].m_cv[i] : curves[i].m_cv[j]);
    }
  }
  surface.m_knot[static_cast<std::size_t>(direction)] = std::move(curves.front().m_knot);
  surface.m_cv = std::move(cvs);
}

// True when the NURBS form has the same parameters, so that it can be cut.
bool HasExactForm(const ON_Surface& surface) {
  return ON_NurbsSurface::Cast(&surface) != nullptr || ON_PlaneSurface::Cast(&surface) != nullptr;
}

// The part of the surface's domain in which the trims of a face lie, in both directions, with a
// tenth of its length more at each end: a boundary in space may lie beside the surface.
std::array<ON_Interval, 2> UsedDomain(const ON_Brep& brep, const ON_BrepFace& face) {
  ON_BoundingBox box;
  for (const int li : face.m_li) {
    for (const int ti : brep.m_L[static_cast<std::size_t>(li)].m_ti) {
      box.Include(brep.CurveOf(brep.m_T[static_cast<std::size_t>(ti)]).BoundingBox());
    }
  }
  const auto part = [](ON_Interval domain, double low, double high) {
    constexpr double kRoom = 0.1;
    const double room = kRoom * (high - low);
    return ON_Interval{std::max(domain.Min, low - room), std::min(domain.Max, high + room)};
  };
  const ON_Surface& surface = brep.SurfaceOf(face);
  return {part(surface.Domain(0), box.m_min.x, box.m_max.x),
          part(surface.Domain(1), box.m_min.y, box.m_max.y)};
}

ON_BoundingBox FaceBox(const ON_Brep& brep, const ON_BrepFace& face) {
  const ON_Surface& surface = brep.SurfaceOf(face);
  const std::array<ON_Interval, 2> used = UsedDomain(brep, face);
  ON_NurbsSurface form;
  const bool is_whole = used[0] == surface.Domain(0) && used[1] == surface.Domain(1);
  if (is_whole || !HasExactForm(surface) || !surface.GetNurbForm(form)) {
    return surface.BoundingBox();
  }
  for (const int direction : {0, 1}) {
    const ON_Interval part = used[static_cast<std::size_t>(direction)];
    if (part != form.Domain(direction)) Cut(form, direction, part);
  }
  return form.BoundingBox();
}

}  // namespace

ON_BoundingBox ON_Brep::BoundingBox() const {
  if (m_bbox.IsValid()) return m_bbox;
  ON_BoundingBox box;
  for (const ON_BrepFace& face : m_F) box.Include(FaceBox(*this, face));
  return box;
}
