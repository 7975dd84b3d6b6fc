#include "support/solid_shapes.h"

#include <algorithm>
#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_poly_curve.h"
#include "host/geometry/on_polyline_curve.h"

std::unique_ptr<ON_Curve> MakePolygon(const std::vector<ON_3dPoint>& corners) {
  auto polygon = std::make_unique<ON_PolylineCurve>();
  for (const ON_3dPoint& corner : corners) polygon->m_pline.push_back(corner);
  polygon->m_pline.push_back(corners.front());
  for (std::size_t i = 0; i < polygon->m_pline.size(); ++i) {
    polygon->m_t.push_back(static_cast<double>(i));
  }
  return polygon;
}

std::unique_ptr<ON_Extrusion> MakeDrilledBlock() {
  // Inner profiles run clockwise: the plane of this circle is turned over.
  const ON_Plane turned{{5, 4, 0}, {1, 0, 0}, {0, -1, 0}, {0, 0, -1}};
  auto profiles = std::make_unique<ON_PolyCurve>();
  profiles->m_segment.push_back(MakePolygon({{0, 0, 0}, {10, 0, 0}, {10, 8, 0}, {0, 8, 0}}));
  profiles->m_segment.push_back(
      std::make_unique<ON_ArcCurve>(ON_Arc{turned, 2, {0, 2 * std::numbers::pi}}));
  profiles->m_t = {0, 4, 8};
  auto block = std::make_unique<ON_Extrusion>();
  block->m_path = {{0, 0, 0}, {0, 0, 6}};
  block->m_path_domain = {0, 6};
  block->m_profile_count = 2;
  block->m_profile = std::move(profiles);
  block->m_bCap = {true, true};
  return block;
}

ON_SubD MakeSubDBox(const ON_BoundingBox& box) {
  using Tag = ON_SubDVertex::Tag;
  ON_SubD subd;
  // Counted with x fastest: the bits of an index tell on which sides the corner is.
  for (const ON_3dPoint& corner : box.GetCorners()) {
    const bool is_bottom = corner.z == box.m_min.z;
    subd.m_vertex.push_back({corner, is_bottom ? Tag::crease : Tag::smooth});
  }
  for (const std::array<int, 4>& ring : {std::array{0, 2, 3, 1},
                                         {4, 5, 7, 6},
                                         {0, 1, 5, 4},
                                         {1, 3, 7, 5},
                                         {3, 2, 6, 7},
                                         {2, 0, 4, 6}}) {
    subd.m_face.push_back({{ring.begin(), ring.end()}});
  }
  for (int from = 0; from < 8; ++from) {
    for (const int bit : {1, 2, 4}) {
      if ((from & bit) != 0) continue;
      const int to = from | bit;
      subd.m_edge.push_back({.m_vi = {from, to}, .m_is_crease = to < 4, .m_face_count = 2});
    }
  }
  return subd;
}
