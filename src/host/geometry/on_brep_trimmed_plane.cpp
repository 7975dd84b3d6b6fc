#include <cmath>

#include "host/geometry/on_brep.h"
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
    brep_->m_S.push_back(std::move(surface));
    ON_BrepFace& face = brep_->m_F.emplace_back();
    face.m_si = 0;
  }

  bool AddLoop(ON_PlaneBoundary boundary, ON_BrepLoop::Type type);
  std::unique_ptr<ON_Brep> Finish() { return std::move(brep_); }

 private:
  void AddEdges(const std::vector<ON_BoundaryPiece>& pieces);
  void AddTrim(std::shared_ptr<const ON_NurbsCurve> image, int edge_index, bool against_edge);

  std::shared_ptr<const ON_PlaneSurface> surface_;
  std::unique_ptr<ON_Brep> brep_ = std::make_unique<ON_Brep>();
};

// An edge for each piece, with the vertices where they begin.
void PlaneBuilder::AddEdges(const std::vector<ON_BoundaryPiece>& pieces) {
  const std::size_t first = brep_->m_V.size();
  for (const ON_BoundaryPiece& piece : pieces) {
    ON_BrepVertex& vertex = brep_->m_V.emplace_back();
    vertex.point = piece.curve->PointAtStart();
    vertex.m_tolerance = 0;
  }
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const int index = static_cast<int>(brep_->m_E.size());
    const std::size_t start = first + i, end = first + (i + 1) % pieces.size();
    ON_BrepEdge& edge = brep_->m_E.emplace_back();
    edge.m_c3i = static_cast<int>(brep_->m_C3.size());
    edge.m_domain = pieces[i].curve->Domain();
    edge.m_vi = {static_cast<int>(start), static_cast<int>(end)};
    edge.m_tolerance = 0;
    brep_->m_V[start].m_ei.push_back(index);
    brep_->m_V[end].m_ei.push_back(index);
    brep_->m_C3.push_back(pieces[i].curve);
  }
}

// Adds a trim to the last loop.
void PlaneBuilder::AddTrim(std::shared_ptr<const ON_NurbsCurve> image, int edge_index,
                           bool against_edge) {
  const int index = static_cast<int>(brep_->m_T.size());
  ON_BrepEdge& edge = brep_->m_E[static_cast<std::size_t>(edge_index)];
  edge.m_ti.push_back(index);
  ON_BrepTrim& trim = brep_->m_T.emplace_back();
  trim.m_c2i = static_cast<int>(brep_->m_C2.size());
  trim.m_domain = image->Domain();
  trim.m_ei = edge_index;
  trim.m_vi = edge.m_vi;
  if (against_edge) std::swap(trim.m_vi[0], trim.m_vi[1]);
  trim.m_bRev3d = against_edge;
  trim.m_type = ON_BrepTrim::Type::boundary;
  trim.m_iso = IsoOf(*image, *surface_);
  trim.m_li = static_cast<int>(brep_->m_L.size()) - 1;
  trim.m_tolerance = {0, 0};
  brep_->m_L.back().m_ti.push_back(index);
  brep_->m_C2.push_back(std::move(image));
}

bool PlaneBuilder::AddLoop(ON_PlaneBoundary boundary, ON_BrepLoop::Type type) {
  const bool is_backwards = (boundary.area > 0) != (type == ON_BrepLoop::Type::outer);
  const int first_edge = static_cast<int>(brep_->m_E.size());
  AddEdges(boundary.pieces);
  brep_->m_F[0].m_li.push_back(static_cast<int>(brep_->m_L.size()));
  ON_BrepLoop& loop = brep_->m_L.emplace_back();
  loop.m_type = type;
  loop.m_fi = 0;
  const std::size_t count = boundary.pieces.size();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t at = is_backwards ? count - 1 - i : i;
    const auto& image = boundary.pieces[at].image;
    if (is_backwards) image->Reverse();
    if (!image->IsValid()) return false;
    AddTrim(image, first_edge + static_cast<int>(at), is_backwards);
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
