#include "host/modeling/mesh_quality.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {
namespace {

constexpr double kDefaultTolerance = 1e-3;
constexpr double kLeastTolerance = 1e-5;
constexpr double kLeastMaxEdge = 1e-2;
constexpr double kDefaultAngle = 20 * std::numbers::pi / 180;
constexpr double kLeastAngle = 2 * std::numbers::pi / 180;
constexpr double kGreatestAngle = 60 * std::numbers::pi / 180;

bool IsAsked(double value) {
  return ON_IsValid(value) && value > 0;
}

void IncludeEdge(const ON_Brep& brep, const ON_BrepEdge& edge, ON_BoundingBox& box) {
  constexpr int kSamples = 8;
  const auto index = static_cast<std::size_t>(edge.m_c3i);
  if (edge.m_c3i < 0 || index >= brep.m_C3.size() || brep.m_C3[index] == nullptr ||
      !brep.m_C3[index]->IsValid() || !edge.m_domain.IsIncreasing()) {
    return;
  }
  for (int i = 0; i <= kSamples; ++i) {
    box.Include(brep.m_C3[index]->PointAt(edge.m_domain.ParameterAt(i / double{kSamples})));
  }
}

}  // namespace

ON_BoundingBox TrimmedBox(const ON_Brep& brep) {
  ON_BoundingBox box;
  for (const ON_BrepVertex& vertex : brep.m_V) box.Include(vertex.point);
  for (const ON_BrepEdge& edge : brep.m_E) IncludeEdge(brep, edge, box);
  if (box.IsValid() && box.m_min != box.m_max) return box;
  for (const auto& surface : brep.m_S) {
    if (surface != nullptr) box.Include(surface->BoundingBox());
  }
  return box;
}

MeshQuality QualityOf(const ON_MeshParameters& parameters, double size) {
  MeshQuality quality;
  quality.tolerance = size * kDefaultTolerance;
  if (IsAsked(parameters.m_relative_tolerance)) {
    const double fineness = std::min(parameters.m_relative_tolerance, 1.0);
    quality.tolerance = std::min(quality.tolerance, size * std::pow(10, -1 - 3 * fineness));
  }
  if (IsAsked(parameters.m_tolerance)) {
    quality.tolerance = std::min(quality.tolerance, parameters.m_tolerance);
  }
  quality.tolerance = std::max(quality.tolerance, size * kLeastTolerance);
  quality.angle = IsAsked(parameters.m_grid_angle)
                      ? std::clamp(parameters.m_grid_angle, kLeastAngle, kGreatestAngle)
                      : kDefaultAngle;
  if (IsAsked(parameters.m_max_edge_length)) {
    quality.max_edge = std::max(parameters.m_max_edge_length, size * kLeastMaxEdge);
  }
  if (IsAsked(parameters.m_min_edge_length)) {
    quality.min_edge = std::min(parameters.m_min_edge_length, quality.tolerance);
  }
  return quality;
}

}  // namespace host
