#include "surface_facts.h"

#include <array>
#include <numeric>

#include "facts_documents.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_rev_surface.h"
#include "host/geometry/on_sum_surface.h"

using nlohmann::json;

namespace {

// Two evaluations of the same surface differ by rounding only.
constexpr double kTolerance = 1e-9;

void ExpectCV(const json& fact, const ON_4dPoint& cv, const std::string& what) {
  const std::array values{cv.x, cv.y, cv.z, cv.w};
  ExpectNearly(fact, std::span(values).first(fact.size()), kTolerance, what);
}

void ExpectSides(const json& fact, const ON_Surface& surface, const std::string& place) {
  for (const int direction : {0, 1}) {
    EXPECT_EQ(fact["closed"][static_cast<std::size_t>(direction)] != 0, surface.IsClosed(direction))
        << place << ".closed[" << direction << "]";
  }
  for (std::size_t side = 0; side < 4; ++side) {
    EXPECT_EQ(fact["singular_SENW"][side] != 0,
              surface.IsSingular(static_cast<ON_Surface::Side>(side)))
        << place << ".singular[" << side << "]";
  }
}

void ExpectMiddle(const json& fact, const ON_Surface& surface, const std::string& place) {
  const double u = surface.Domain(0).ParameterAt(0.5);
  const double v = surface.Domain(1).ParameterAt(0.5);
  const ON_3dPoint p = surface.PointAt(u, v);
  const ON_3dVector n = surface.NormalAt(u, v);
  ExpectNearly(fact["point_mid"], std::array{p.x, p.y, p.z}, kTolerance, place + ".point_mid");
  ExpectNearly(fact["normal_mid"], std::array{n.x, n.y, n.z}, kTolerance, place + ".normal_mid");
}

void ExpectNurbs(const json& fact, const ON_Surface& surface, const std::string& place) {
  ON_NurbsSurface form;
  ASSERT_TRUE(surface.GetNurbForm(form)) << place;
  EXPECT_TRUE(form.IsValid()) << place;
  EXPECT_EQ(fact["order"], json({form.Order(0), form.Order(1)})) << place;
  EXPECT_EQ(fact["cv_count"], json({form.CVCount(0), form.CVCount(1)})) << place;
  EXPECT_EQ(fact["rational"], form.IsRational()) << place;
  ExpectCV(fact["cv_first"], form.m_cv.front(), place + ".cv_first");
  ExpectCV(fact["cv_last"], form.m_cv.back(), place + ".cv_last");
  const ON_4dPoint sum =
      std::accumulate(form.m_cv.begin(), form.m_cv.end(), ON_4dPoint{0, 0, 0, 0});
  ExpectCV(fact["cv_sum"], sum, place + ".cv_sum");
  std::array<double, 2> knots{};
  for (const std::size_t i : {0U, 1U}) {
    knots[i] = std::accumulate(form.m_knot[i].begin(), form.m_knot[i].end(), 0.0);
  }
  ExpectNearly(fact["knot_sum"], knots, kTolerance, place + ".knot_sum");
  for (const int direction : {0, 1}) {
    EXPECT_EQ(surface.Domain(direction), form.Domain(direction)) << place;
  }
}

}  // namespace

std::string SurfaceClassName(const ON_Surface& surface) {
  if (ON_ClippingPlaneSurface::Cast(&surface) != nullptr) return "ON_ClippingPlaneSurface";
  if (ON_PlaneSurface::Cast(&surface) != nullptr) return "ON_PlaneSurface";
  if (ON_RevSurface::Cast(&surface) != nullptr) return "ON_RevSurface";
  if (ON_SumSurface::Cast(&surface) != nullptr) return "ON_SumSurface";
  return ON_NurbsSurface::Cast(&surface) != nullptr ? "ON_NurbsSurface" : "";
}

void ExpectSurface(const json& fact, const ON_Surface& surface, const std::string& place) {
  EXPECT_EQ(fact["surface_class"], SurfaceClassName(surface)) << place;
  EXPECT_TRUE(surface.IsValid()) << place;
  ExpectNumbers(
      fact["domain_u0u1v0v1"],
      {surface.Domain(0).Min, surface.Domain(0).Max, surface.Domain(1).Min, surface.Domain(1).Max},
      place + ".domain");
  ExpectSides(fact, surface, place);
  ExpectMiddle(fact, surface, place);
  ExpectNurbs(fact["nurbs"], surface, place + ".nurbs");
}
