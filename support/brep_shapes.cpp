#include "support/brep_shapes.h"

#include <map>
#include <numbers>

#include "host/geometry/on_arc_curve.h"
#include "host/geometry/on_line_curve.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_table.h"

namespace {

using Iso = ON_BrepTrim::Iso;

template <class T>
int Count(const std::vector<T>& table) {
  return static_cast<int>(table.size());
}

// The rectangle that the plane has in these stretches of its own coordinates.
std::shared_ptr<ON_PlaneSurface> MakePlane(const ON_Plane& plane, ON_Interval x, ON_Interval y) {
  auto surface = std::make_shared<ON_PlaneSurface>();
  surface->m_plane = plane;
  surface->m_domain[0] = surface->m_extents[0] = x;
  surface->m_domain[1] = surface->m_extents[1] = y;
  return surface;
}

// A whole circle in the plane, counterclockwise or clockwise, from the x axis.
std::shared_ptr<ON_ArcCurve> MakeCircle(double radius, double z, bool is_clockwise = false) {
  ON_Arc arc;
  arc.plane.origin.z = z;
  arc.radius = radius;
  arc.m_angle = {0, 2 * std::numbers::pi};
  if (is_clockwise) {
    arc.plane.yaxis = -arc.plane.yaxis;
    arc.plane.zaxis = -arc.plane.zaxis;
  }
  return std::make_shared<ON_ArcCurve>(arc);
}

// Adds the edges of a polyhedron, each once.
class StraightEdges {
 public:
  explicit StraightEdges(BrepBuilder& builder) : builder_(builder) {}

  int AddVertex(ON_3dPoint point) {
    points_.push_back(point);
    return builder_.AddVertex(point);
  }

  // A face of four corners, counterclockwise as seen from outside.
  void AddFace(const std::array<int, 4>& corners) {
    const ON_3dPoint origin = ON_At(points_, corners[0]);
    const ON_3dVector x = ON_At(points_, corners[1]) - origin,
                      y = ON_At(points_, corners[3]) - origin;
    const ON_3dVector xaxis = x * (1 / x.Length()), yaxis = y * (1 / y.Length());
    const ON_Plane plane{origin, xaxis, yaxis, ON_CrossProduct(xaxis, yaxis)};
    const ON_Interval u{0, x.Length()}, v{0, y.Length()};
    std::vector<BrepBuilder::Trim> trims = RectangleTrims(u, v);
    for (std::size_t i = 0; i < trims.size(); ++i) {
      Join(corners[i], corners[(i + 1) % 4], trims[i]);
    }
    builder_.AddFace(MakePlane(plane, u, v));
    builder_.AddLoop(ON_BrepLoop::Type::outer, trims);
  }

 private:
  void Join(int from, int to, BrepBuilder::Trim& trim) {
    const auto found = edges_.find({to, from});
    trim.is_reversed = found != edges_.end();
    trim.edge = trim.is_reversed ? found->second : Add(from, to);
  }

  int Add(int from, int to) {
    const auto line = std::make_shared<ON_LineCurve>(ON_At(points_, from), ON_At(points_, to));
    return edges_[{from, to}] = builder_.AddEdge(line, from, to);
  }

  BrepBuilder& builder_;
  std::vector<ON_3dPoint> points_;
  // By the vertices from which and to which they run.
  std::map<std::pair<int, int>, int> edges_;
};

// The side of a cylinder over a circle's parameters and the height.
std::shared_ptr<ON_NurbsSurface> MakeTube(const ON_ArcCurve& foot, double height) {
  ON_NurbsCurve form;
  // A whole circle has a form.
  if (!foot.GetNurbForm(form)) return nullptr;
  ON_SimpleArray<ON_4dPoint> cvs;
  for (const ON_4dPoint& cv : form.m_cv) {
    cvs.push_back(cv);
    cvs.push_back({cv.x, cv.y, height * cv.w, cv.w});
  }
  auto surface = std::make_shared<ON_NurbsSurface>();
  surface->Create({form.Order(), 2}, {form.m_knot, {0, height}}, std::move(cvs), true);
  return surface;
}

void AddCap(BrepBuilder& builder, double radius, double height, int edge, bool is_reversed) {
  ON_Plane plane;
  plane.origin.z = height;
  const ON_Interval side{-radius, radius};
  builder.AddFace(MakePlane(plane, side, side), is_reversed);
  builder.AddLoop(ON_BrepLoop::Type::outer, {{MakeCircle(radius, 0), edge}});
}

}  // namespace

int BrepBuilder::AddVertex(ON_3dPoint point) {
  brep_->m_V.emplace_back().point = point;
  brep_->m_V.back().m_tolerance = 0;
  return Count(brep_->m_V) - 1;
}

int BrepBuilder::AddEdge(std::shared_ptr<const ON_Curve> curve, int from, int to) {
  const int index = Count(brep_->m_E);
  ON_BrepEdge& edge = brep_->m_E.emplace_back();
  edge.m_c3i = Count(brep_->m_C3);
  edge.m_domain = curve->Domain();
  edge.m_vi = {from, to};
  edge.m_tolerance = 0;
  for (const int vertex : edge.m_vi) ON_At(brep_->m_V, vertex).m_ei.push_back(index);
  brep_->m_C3.push_back(std::move(curve));
  return index;
}

void BrepBuilder::AddFace(std::shared_ptr<const ON_Surface> surface, bool is_reversed) {
  ON_BrepFace& face = brep_->m_F.emplace_back();
  face.m_si = Count(brep_->m_S);
  face.m_bRev = is_reversed;
  brep_->m_S.push_back(std::move(surface));
}

void BrepBuilder::AddLoop(ON_BrepLoop::Type type, const std::vector<Trim>& trims) {
  brep_->m_F.back().m_li.push_back(Count(brep_->m_L));
  ON_BrepLoop& loop = brep_->m_L.emplace_back();
  loop.m_type = type;
  loop.m_fi = Count(brep_->m_F) - 1;
  for (const Trim& trim : trims) {
    loop.m_ti.push_back(Count(brep_->m_T));
    AddTrim(trim);
  }
}

void BrepBuilder::AddTrim(const Trim& trim) {
  const int index = Count(brep_->m_T);
  ON_BrepTrim& added = brep_->m_T.emplace_back();
  added.m_c2i = Count(brep_->m_C2);
  added.m_domain = trim.curve->Domain();
  added.m_ei = trim.edge;
  added.m_vi = {trim.vertex, trim.vertex};
  added.m_bRev3d = trim.is_reversed;
  added.m_iso = trim.iso;
  added.m_li = Count(brep_->m_L) - 1;
  added.m_tolerance = {0, 0};
  if (trim.edge != -1) {
    ON_BrepEdge& edge = ON_At(brep_->m_E, trim.edge);
    edge.m_ti.push_back(index);
    added.m_vi = edge.m_vi;
    if (trim.is_reversed) std::swap(added.m_vi[0], added.m_vi[1]);
  }
  brep_->m_C2.push_back(trim.curve);
}

std::unique_ptr<ON_Brep> BrepBuilder::Take() {
  using enum ON_BrepTrim::Type;
  for (ON_BrepTrim& trim : brep_->m_T) {
    trim.m_type = singular;
    if (trim.m_ei == -1) continue;
    const std::vector<int>& sides = ON_At(brep_->m_E, trim.m_ei).m_ti;
    const bool is_seam =
        sides.size() == 2 && ON_At(brep_->m_T, sides[0]).m_li == ON_At(brep_->m_T, sides[1]).m_li;
    trim.m_type = sides.size() == 1 ? boundary : is_seam ? seam : mated;
  }
  return std::exchange(brep_, std::make_unique<ON_Brep>());
}

std::vector<BrepBuilder::Trim> RectangleTrims(ON_Interval u, ON_Interval v) {
  const ON_3dPoint corners[] = {
      {u.Min, v.Min, 0}, {u.Max, v.Min, 0}, {u.Max, v.Max, 0}, {u.Min, v.Max, 0}};
  constexpr Iso kSides[] = {Iso::south, Iso::east, Iso::north, Iso::west};
  std::vector<BrepBuilder::Trim> trims(4);
  for (std::size_t i = 0; i < 4; ++i) {
    trims[i].curve = std::make_shared<ON_LineCurve>(corners[i], corners[(i + 1) % 4]);
    trims[i].iso = kSides[i];
  }
  return trims;
}

std::unique_ptr<ON_Brep> MakePlateBrep(double half, double hole_radius) {
  BrepBuilder builder;
  StraightEdges edges(builder);
  const ON_3dPoint corners[] = {
      {-half, -half, 0}, {half, -half, 0}, {half, half, 0}, {-half, half, 0}};
  for (const ON_3dPoint& corner : corners) edges.AddVertex(corner);
  edges.AddFace({0, 1, 2, 3});
  // In the parameters of the face, which begin at its corner.
  const auto circle = MakeCircle(hole_radius, 0, true);
  const auto trim = std::make_shared<ON_ArcCurve>(*circle);
  trim->m_arc.plane.origin = {half, half, 0};
  const int vertex = builder.AddVertex(circle->PointAtStart());
  builder.AddLoop(ON_BrepLoop::Type::inner, {{trim, builder.AddEdge(circle, vertex, vertex)}});
  return builder.Take();
}

std::unique_ptr<ON_Brep> MakeBoxBrep(const ON_BoundingBox& box) {
  BrepBuilder builder;
  StraightEdges edges(builder);
  for (const ON_3dPoint& corner : box.GetCorners()) edges.AddVertex(corner);
  for (const std::array<int, 4>& corners : {std::array{0, 2, 3, 1},
                                            {4, 5, 7, 6},
                                            {0, 1, 5, 4},
                                            {1, 3, 7, 5},
                                            {3, 2, 6, 7},
                                            {2, 0, 4, 6}}) {
    edges.AddFace(corners);
  }
  std::unique_ptr<ON_Brep> brep = builder.Take();
  brep->m_is_solid = 1;
  return brep;
}

std::unique_ptr<ON_Brep> MakeCylinderBrep(double radius, double height) {
  BrepBuilder builder;
  const auto foot = MakeCircle(radius, 0), head = MakeCircle(radius, height);
  const int low = builder.AddVertex(foot->PointAtStart());
  const int high = builder.AddVertex(head->PointAtStart());
  const int foot_edge = builder.AddEdge(foot, low, low);
  const int head_edge = builder.AddEdge(head, high, high);
  const auto line = std::make_shared<ON_LineCurve>(foot->PointAtStart(), head->PointAtStart());
  const int seam = builder.AddEdge(line, low, high);

  std::vector<BrepBuilder::Trim> trims = RectangleTrims(foot->Domain(), {0, height});
  const int edges[] = {foot_edge, seam, head_edge, seam};
  for (std::size_t i = 0; i < 4; ++i) {
    trims[i].edge = edges[i];
    trims[i].is_reversed = i >= 2;
  }
  builder.AddFace(MakeTube(*foot, height));
  builder.AddLoop(ON_BrepLoop::Type::outer, trims);
  AddCap(builder, radius, height, head_edge, false);
  AddCap(builder, radius, 0, foot_edge, true);
  std::unique_ptr<ON_Brep> brep = builder.Take();
  brep->m_is_solid = 1;
  return brep;
}
