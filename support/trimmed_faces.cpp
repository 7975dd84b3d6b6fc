#include "support/trimmed_faces.h"

#include <numbers>
#include <utility>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_polyline_curve.h"

namespace {

constexpr int kEdgeLines = 8;

int Size(const auto& table) {
  return static_cast<int>(table.size());
}

// The curve of a surface that a curve in its parameters stands for.
std::shared_ptr<ON_Curve> EdgeCurve(const ON_Surface& surface, const ON_Curve& trim) {
  auto edge = std::make_shared<ON_PolylineCurve>();
  for (int i = 0; i <= kEdgeLines; ++i) {
    const double t = trim.Domain().ParameterAt(static_cast<double>(i) / kEdgeLines);
    const ON_3dPoint uv = trim.PointAt(t);
    edge->m_pline.push_back(surface.PointAt(uv.x, uv.y));
    edge->m_t.push_back(t);
  }
  return edge;
}

// A trim with its edge, from vertex to vertex.
void AddTrim(ON_Brep& brep, const ON_Surface& surface, std::shared_ptr<const ON_Curve> curve,
             std::array<int, 2> vertices) {
  ON_BrepEdge edge;
  edge.m_c3i = Size(brep.m_C3);
  edge.m_domain = curve->Domain();
  edge.m_vi = vertices;
  edge.m_ti = {Size(brep.m_T)};
  ON_BrepTrim trim;
  trim.m_c2i = Size(brep.m_C2);
  trim.m_domain = curve->Domain();
  trim.m_ei = Size(brep.m_E);
  trim.m_vi = vertices;
  trim.m_type = ON_BrepTrim::Type::boundary;
  trim.m_li = Size(brep.m_L) - 1;
  for (const int vertex : vertices) {
    brep.m_V[static_cast<std::size_t>(vertex)].m_ei.push_back(trim.m_ei);
  }
  brep.m_L.back().m_ti.push_back(Size(brep.m_T));
  brep.m_C3.push_back(EdgeCurve(surface, *curve));
  brep.m_C2.push_back(std::move(curve));
  brep.m_E.push_back(std::move(edge));
  brep.m_T.push_back(trim);
}

void AddLoop(ON_Brep& brep, const ON_Surface& surface, const TrimLoop& curves) {
  const int first = Size(brep.m_V);
  for (const auto& curve : curves) {
    const ON_3dPoint uv = curve->PointAtStart();
    brep.m_V.emplace_back().point = surface.PointAt(uv.x, uv.y);
  }
  for (int i = 0; i < Size(curves); ++i) {
    AddTrim(brep, surface, curves[static_cast<std::size_t>(i)],
            {first + i, first + (i + 1) % Size(curves)});
  }
}

}  // namespace

TrimLoop PolygonLoop(const std::vector<ON_2dPoint>& corners) {
  TrimLoop loop;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const ON_2dPoint &from = corners[i], &to = corners[(i + 1) % corners.size()];
    loop.push_back(
        std::make_shared<ON_LineCurve>(ON_3dPoint{from.x, from.y, 0}, ON_3dPoint{to.x, to.y, 0}));
  }
  return loop;
}

TrimLoop CircleLoop(ON_2dPoint center, double radius) {
  ON_Arc circle;
  circle.plane.origin = {center.x, center.y, 0};
  circle.radius = radius;
  circle.m_angle = {0, 2 * std::numbers::pi};
  return {std::make_shared<ON_ArcCurve>(circle)};
}

void AddTrimmedFace(ON_Brep& brep, std::shared_ptr<const ON_Surface> surface,
                    const std::vector<TrimLoop>& loops) {
  ON_BrepFace face;
  face.m_si = Size(brep.m_S);
  for (const TrimLoop& curves : loops) {
    face.m_li.push_back(Size(brep.m_L));
    ON_BrepLoop& loop = brep.m_L.emplace_back();
    loop.m_type = face.m_li.size() == 1 ? ON_BrepLoop::Type::outer : ON_BrepLoop::Type::inner;
    loop.m_fi = Size(brep.m_F);
    AddLoop(brep, *surface, curves);
  }
  brep.m_S.push_back(std::move(surface));
  brep.m_F.push_back(std::move(face));
}
