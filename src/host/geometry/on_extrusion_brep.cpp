#include <algorithm>

#include "host/geometry/on_brep_builder.h"
#include "host/geometry/on_curve_spans.h"
#include "host/geometry/on_extrusion.h"
#include "host/geometry/on_extrusion_cap.h"
#include "host/geometry/on_nurbs_surface.h"
#include "host/geometry/on_plane_surface.h"
#include "host/geometry/on_smooth_pieces.h"

namespace {

using Iso = ON_BrepTrim::Iso;

// A piece of a profile, and the edges around the face that it sweeps: the piece at both ends, in
// its own direction, and what its two ends sweep, in the direction of the path.
struct Side {
  ON_NurbsCurve piece;
  int bottom = -1;
  int top = -1;
  int start = -1;
  int end = -1;
};

// The sides of a profile.
struct Ring {
  std::vector<Side> sides;
  bool is_closed = false;
};

// A trim of a side face: its edge, and whether it runs against it.
struct SideTrim {
  int Side::*edge;
  bool is_reversed;
};
constexpr std::array<Iso, 4> kIsos{Iso::south, Iso::east, Iso::north, Iso::west};
constexpr std::array<SideTrim, 4> kSideTrims{
    {{&Side::bottom, false}, {&Side::end, false}, {&Side::top, true}, {&Side::start, true}}};
constexpr std::array<SideTrim, 4> kTransposedTrims{
    {{&Side::start, false}, {&Side::top, false}, {&Side::end, true}, {&Side::bottom, true}}};

ON_4dPoint Point4d(ON_3dPoint p) {
  return {p.x, p.y, p.z, 1};
}

std::shared_ptr<ON_NurbsCurve> Segment(ON_3dPoint from, ON_3dPoint to, ON_Interval domain) {
  auto line = std::make_shared<ON_NurbsCurve>();
  line->Create(2, {domain.Min, domain.Max}, {Point4d(from), Point4d(to)});
  return line;
}

ON_NurbsCurve Transformed(const ON_NurbsCurve& curve, const ON_Xform& xform) {
  ON_NurbsCurve moved = curve;
  moved.Transform(xform);
  return moved;
}

class ExtrusionBuilder {
 public:
  explicit ExtrusionBuilder(const ON_Extrusion& extrusion) : extrusion_(extrusion) {}
  std::unique_ptr<ON_Brep> Build();

 private:
  bool MakeRings();
  bool HasCaps() const;
  void AddRingEdges(Ring& ring);
  void AddSideFace(const Side& side);
  bool AddCap(int end);
  void AddCapLoop(const Ring& ring, int end, ON_BrepLoop::Type type, const ON_BoundingBox& box);
  std::unique_ptr<ON_NurbsSurface> SideSurface(const ON_NurbsCurve& piece) const;
  ON_NurbsCurve CapCurve(const ON_NurbsCurve& piece, int end) const;

  const ON_Extrusion& extrusion_;
  std::array<ON_Xform, 2> xform_{extrusion_.ProfileTransform(0), extrusion_.ProfileTransform(1)};
  std::vector<Ring> rings_;
  ON_BrepBuilder builder_;
};

bool ExtrusionBuilder::MakeRings() {
  for (int i = 0; i < extrusion_.ProfileCount(); ++i) {
    Ring ring;
    ring.is_closed = extrusion_.Profile(i).IsClosed();
    for (ON_NurbsCurve& piece :
         ON_SmoothPieces(extrusion_.Profile(i), extrusion_.ProfileDomain(i))) {
      ring.sides.emplace_back().piece = std::move(piece);
    }
    if (ring.sides.empty()) return false;
    rings_.push_back(std::move(ring));
  }
  return true;
}

// True when the profiles can be the boundary of a face.
bool ExtrusionBuilder::HasCaps() const {
  const auto runs_rightly = [this](const Ring& ring) {
    const ON_3dPoint around = ring.sides.front().piece.PointAtStart();
    double area = 0;
    for (const Side& side : ring.sides) area += ON_TwiceSignedArea(side.piece, around);
    return ring.is_closed && (&ring == &rings_.front() ? area > 0 : area < 0);
  };
  return std::all_of(rings_.begin(), rings_.end(), runs_rightly);
}

// Makes the edges around the faces of a ring. Neighbours share those along the path; so do the last
// side and the first one of a closed ring, which may be one.
void ExtrusionBuilder::AddRingEdges(Ring& ring) {
  std::vector<std::array<int, 2>> vertices;
  std::vector<int> along;
  const auto add_corner = [&](ON_3dPoint p) {
    const std::array<ON_3dPoint, 2> ends{xform_[0] * p, xform_[1] * p};
    vertices.push_back({builder_.AddVertex(ends[0]), builder_.AddVertex(ends[1])});
    along.push_back(builder_.AddEdge(Segment(ends[0], ends[1], extrusion_.m_path_domain),
                                     vertices.back()[0], vertices.back()[1]));
  };
  for (const Side& side : ring.sides) add_corner(side.piece.PointAtStart());
  if (!ring.is_closed) add_corner(ring.sides.back().piece.PointAtEnd());
  for (std::size_t i = 0; i < ring.sides.size(); ++i) {
    Side& side = ring.sides[i];
    const std::size_t next = (i + 1) % along.size();
    side.start = along[i];
    side.end = along[next];
    const auto add_edge = [&](std::size_t end) {
      auto curve = std::make_shared<ON_NurbsCurve>(Transformed(side.piece, xform_[end]));
      return builder_.AddEdge(std::move(curve), vertices[i][end], vertices[next][end]);
    };
    side.bottom = add_edge(0);
    side.top = add_edge(1);
  }
}

std::unique_ptr<ON_NurbsSurface> ExtrusionBuilder::SideSurface(const ON_NurbsCurve& piece) const {
  const ON_Interval path = extrusion_.m_path_domain;
  const auto bottom = Transformed(piece, xform_[0]).m_cv;
  const auto top = Transformed(piece, xform_[1]).m_cv;
  std::array<int, 2> order{piece.Order(), 2};
  std::array<ON_SimpleArray<double>, 2> knots{piece.m_knot, {path.Min, path.Max}};
  ON_SimpleArray<ON_4dPoint> cvs;
  if (extrusion_.m_bTransposed) {
    std::swap(order[0], order[1]);
    std::swap(knots[0], knots[1]);
    cvs = bottom;
    cvs.insert(cvs.end(), top.begin(), top.end());
  } else {
    for (std::size_t i = 0; i < bottom.size(); ++i) {
      cvs.push_back(bottom[i]);
      cvs.push_back(top[i]);
    }
  }
  auto surface = std::make_unique<ON_NurbsSurface>();
  surface->Create(order, std::move(knots), std::move(cvs), piece.IsRational());
  return surface;
}

void ExtrusionBuilder::AddSideFace(const Side& side) {
  std::shared_ptr<const ON_NurbsSurface> surface = SideSurface(side.piece);
  const ON_Interval u = surface->Domain(0), v = surface->Domain(1);
  const std::array<ON_3dPoint, 4> corners{
      {{u.Min, v.Min, 0}, {u.Max, v.Min, 0}, {u.Max, v.Max, 0}, {u.Min, v.Max, 0}}};
  builder_.AddFace(std::move(surface), false);
  builder_.AddLoop(ON_BrepLoop::Type::outer);
  const auto& trims = extrusion_.m_bTransposed ? kTransposedTrims : kSideTrims;
  for (std::size_t i = 0; i < 4; ++i) {
    const ON_Interval domain = i % 2 == 0 ? u : v;
    builder_.AddTrim(Segment(corners[i], corners[(i + 1) % 4], domain), side.*trims[i].edge,
                     trims[i].is_reversed, kIsos[i]);
  }
}

// A piece in the coordinates of an end's plane.
ON_NurbsCurve ExtrusionBuilder::CapCurve(const ON_NurbsCurve& piece, int end) const {
  const ON_Plane plane = extrusion_.EndPlane(end);
  const auto& m = xform_[static_cast<std::size_t>(end)].m_xform;
  const ON_3dVector x{m[0][0], m[1][0], m[2][0]}, y{m[0][1], m[1][1], m[2][1]};
  ON_NurbsCurve curve = piece;
  curve.Transform({{{{ON_DotProduct(x, plane.xaxis), ON_DotProduct(y, plane.xaxis), 0, 0},
                     {ON_DotProduct(x, plane.yaxis), ON_DotProduct(y, plane.yaxis), 0, 0},
                     {0, 0, 1, 0},
                     {0, 0, 0, 1}}}});
  return curve;
}

void ExtrusionBuilder::AddCapLoop(const Ring& ring, int end, ON_BrepLoop::Type type,
                                  const ON_BoundingBox& box) {
  builder_.AddLoop(type);
  for (const Side& side : ring.sides) {
    auto curve = std::make_shared<ON_NurbsCurve>(CapCurve(side.piece, end));
    const Iso iso = ON_IsoInRectangle(ON_TightBoundingBox(*curve), box);
    builder_.AddTrim(std::move(curve), end == 0 ? side.bottom : side.top, false, iso);
  }
}

bool ExtrusionBuilder::AddCap(int end) {
  std::vector<ON_BoundingBox> boxes;
  for (const Side& side : rings_.front().sides) {
    boxes.push_back(ON_TightBoundingBox(CapCurve(side.piece, end)));
  }
  const ON_BoundingBox box = ON_CapRectangle(boxes);
  auto surface = std::make_shared<ON_PlaneSurface>();
  surface->m_plane = extrusion_.EndPlane(end);
  surface->m_domain[0] = surface->m_extents[0] = {box.m_min.x, box.m_max.x};
  surface->m_domain[1] = surface->m_extents[1] = {box.m_min.y, box.m_max.y};
  if (!surface->IsValid()) return false;
  // Transposed sides look inside, and so do their caps.
  builder_.AddFace(std::move(surface), (end == 0) != extrusion_.m_bTransposed);
  for (const Ring& ring : rings_) {
    const bool is_outer = &ring == &rings_.front();
    AddCapLoop(ring, end, is_outer ? ON_BrepLoop::Type::outer : ON_BrepLoop::Type::inner, box);
  }
  return true;
}

std::unique_ptr<ON_Brep> ExtrusionBuilder::Build() {
  constexpr int kOutwards = 1, kInwards = 2, kOpen = 3;
  if (!MakeRings()) return nullptr;
  for (Ring& ring : rings_) {
    AddRingEdges(ring);
    for (const Side& side : ring.sides) AddSideFace(side);
  }
  int caps = 0;
  const bool has_caps = HasCaps();
  for (const int end : {0, 1}) {
    if (has_caps && extrusion_.m_bCap[static_cast<std::size_t>(end)] && AddCap(end)) ++caps;
  }
  std::unique_ptr<ON_Brep> brep = builder_.Finish();
  brep->m_is_solid = caps < 2 ? kOpen : extrusion_.m_bTransposed ? kInwards : kOutwards;
  brep->m_bbox = extrusion_.BoundingBox();
  return brep;
}

}  // namespace

std::unique_ptr<ON_Brep> ON_Extrusion::BrepForm() const {
  return IsValid() ? ExtrusionBuilder(*this).Build() : nullptr;
}
