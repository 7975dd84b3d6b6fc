#include <cmath>

#include "host/geometry/on_brep_builder.h"
#include "host/geometry/on_plane_boundary.h"
#include "host/geometry/on_plane_surface.h"

// A brep of one planar face. Its surface is the box of the boundaries in the plane, and the
// surface's parameters are the plane's coordinates.

namespace {

bool IsPlane(const ON_Plane& plane) {
  constexpr double kTolerance = 1e-6;
  const auto is_unit = [](ON_3dVector v) { return std::abs(v.Length() - 1) <= kTolerance; };
  return plane.origin.IsValid() && is_unit(plane.xaxis) && is_unit(plane.yaxis) &&
         (ON_CrossProduct(plane.xaxis, plane.yaxis) - plane.zaxis).Length() <= kTolerance;
}

// How a trim runs over the rectangle of a surface.
ON_BrepTrim::Iso IsoOf(const ON_NurbsCurve& trim, const ON_PlaneSurface& surface) {
  using Iso = ON_BrepTrim::Iso;
  constexpr double kTolerance = 1e-9;
  const ON_BoundingBox box = trim.BoundingBox();
  const auto along = [&](int direction, double from, double to, std::array<Iso, 3> kinds) {
    const ON_Interval domain = surface.Domain(direction);
    const double tolerance = kTolerance * domain.Length();
    if (to - from > tolerance) return Iso::none;
    if (std::abs(from - domain.Min) <= tolerance) return kinds[0];
    return std::abs(from - domain.Max) <= tolerance ? kinds[1] : kinds[2];
  };
  const Iso iso = along(0, box.m_min.x, box.m_max.x, {Iso::west, Iso::east, Iso::x});
  if (iso != Iso::none) return iso;
  return along(1, box.m_min.y, box.m_max.y, {Iso::south, Iso::north, Iso::y});
}

class PlaneBuilder {
 public:
  explicit PlaneBuilder(std::shared_ptr<const ON_PlaneSurface> surface) : surface_(surface) {
    builder_.AddFace(std::move(surface), false);
  }

  bool AddLoop(ON_PlaneBoundary boundary, ON_BrepLoop::Type type);
  std::unique_ptr<ON_Brep> Finish() { return builder_.Finish(); }

 private:
  std::vector<int> AddEdges(const std::vector<ON_BoundaryPiece>& pieces);

  std::shared_ptr<const ON_PlaneSurface> surface_;
  ON_BrepBuilder builder_;
};

// An edge for each piece, with the vertices where they begin.
std::vector<int> PlaneBuilder::AddEdges(const std::vector<ON_BoundaryPiece>& pieces) {
  std::vector<int> vertices, edges;
  for (const ON_BoundaryPiece& piece : pieces) {
    vertices.push_back(builder_.AddVertex(piece.curve->PointAtStart()));
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const int end = vertices[(i + 1) % pieces.size()];
    edges.push_back(builder_.AddEdge(pieces[i].curve, vertices[i], end));
  }
  return edges;
}

bool PlaneBuilder::AddLoop(ON_PlaneBoundary boundary, ON_BrepLoop::Type type) {
  const bool is_backwards = (boundary.area > 0) != (type == ON_BrepLoop::Type::outer);
  const std::vector<int> edges = AddEdges(boundary.pieces);
  builder_.AddLoop(type);
  const std::size_t count = boundary.pieces.size();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = is_backwards ? count - 1 - i : i;
    const auto& image = boundary.pieces[at].image;
    if (is_backwards) image->Reverse();
    if (!image->IsValid()) return false;
    builder_.AddTrim(image, edges[at], is_backwards, IsoOf(*image, *surface_));
  }
  return true;
}

}  // namespace

std::unique_ptr<ON_Brep> ON_BrepTrimmedPlane(
    const ON_Plane& plane, const std::vector<std::shared_ptr<const ON_Curve>>& boundaries,
    double tolerance) {
  if (boundaries.empty() || !IsPlane(plane)) return nullptr;
  ON_BoundingBox box;
  std::vector<ON_PlaneBoundary> loops;
  for (const auto& curve : boundaries) {
    std::optional<ON_PlaneBoundary> boundary = ON_MakePlaneBoundary(plane, curve, tolerance, box);
    if (!boundary.has_value()) return nullptr;
    loops.push_back(*std::move(boundary));
  }
  auto surface = std::make_shared<ON_PlaneSurface>();
  surface->m_plane = plane;
  surface->m_extents[0] = surface->m_domain[0] = {box.m_min.x, box.m_max.x};
  surface->m_extents[1] = surface->m_domain[1] = {box.m_min.y, box.m_max.y};
  if (!surface->IsValid()) return nullptr;
  PlaneBuilder builder(std::move(surface));
  for (ON_PlaneBoundary& loop : loops) {
    const bool is_outer = &loop == loops.data();
    const auto type = is_outer ? ON_BrepLoop::Type::outer : ON_BrepLoop::Type::inner;
    if (!builder.AddLoop(std::move(loop), type)) return nullptr;
  }
  return builder.Finish();
}
