#include "host/modeling/occt_shape.h"

#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Precision.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <array>
#include <unordered_map>

namespace host {
namespace {

template <class T>
const T& At(const std::vector<T>& table, int index) {
  return table[static_cast<std::size_t>(index)];
}

template <class T>
T& At(std::vector<T>& table, int index) {
  return table[static_cast<std::size_t>(index)];
}

// An edge of the brep and the curve that it lies on; the curve is null when there is none.
struct SharedEdge {
  TopoDS_Edge edge;
  Handle(Geom_Curve) curve;
  double length = 0;
  bool is_made = false;
};

// A trim on its way into a face.
struct TrimUse {
  const ON_BrepTrim* trim;
  Handle(Geom2d_Curve) curve;
  TopoDS_Edge edge;
  // Set when the edge has got its curves on the face.
  bool is_placed = false;
};

// The trims of a face that use one edge in one direction, in the order of the face.
struct SameUses {
  std::vector<TrimUse*> uses;
  std::size_t next = 0;

  // The first one that isn't placed yet; null when all are.
  TrimUse* Unplaced() {
    while (next < uses.size() && uses[next]->is_placed) ++next;
    return next < uses.size() ? uses[next] : nullptr;
  }
};

struct EdgeUses {
  // In the edge's direction and against it.
  std::array<SameUses, 2> in_direction;
  // Set when one of them has got its curves.
  bool is_again = false;

  SameUses& Of(bool is_reversed) { return in_direction[is_reversed ? 1 : 0]; }
};

class ShapeBuilder {
 public:
  ShapeBuilder(const ON_Brep& brep, const ModelFrame& frame) : brep_(brep), frame_(frame) {
    edges_.resize(brep.m_E.size());
    vertices_.resize(brep.m_V.size());
  }

  // The face is null when that isn't possible.
  BrepShape::Face MakeFace(const ON_BrepFace& face);

 private:
  const TopoDS_Vertex& VertexAt(int index);
  void Stretch(const TopoDS_Vertex& vertex, const gp_Pnt& point);
  TopoDS_Edge NewEdge(const ON_BrepEdge& edge, const Handle(Geom_Curve) & curve, double length);
  const SharedEdge& EdgeAt(int index);
  bool MakeUse(const ON_BrepTrim& trim, const FrameSurface& surface, TrimUse& use);
  bool MakeSingularUse(const ON_BrepTrim& trim, const FrameSurface& surface, TrimUse& use);
  void Place(TrimUse& use, EdgeUses& of_edge, const TopoDS_Face& face);
  void PlaceAll(std::vector<TrimUse>& uses, const TopoDS_Face& face);
  std::vector<TrimUse> UsesOf(const ON_BrepFace& face, const FrameSurface& surface);
  bool AddWires(const ON_BrepFace& face, BrepShape::Face& made);

  const ON_Brep& brep_;
  const ModelFrame frame_;
  BRep_Builder builder_;
  std::vector<SharedEdge> edges_;
  std::vector<TopoDS_Vertex> vertices_;
};

const TopoDS_Vertex& ShapeBuilder::VertexAt(int index) {
  TopoDS_Vertex& vertex = At(vertices_, index);
  if (vertex.IsNull()) {
    builder_.MakeVertex(vertex, frame_.ToFrame(At(brep_.m_V, index).point), Precision::Confusion());
  }
  return vertex;
}

// A vertex reaches as far as the ends of its edges.
void ShapeBuilder::Stretch(const TopoDS_Vertex& vertex, const gp_Pnt& point) {
  builder_.UpdateVertex(vertex, BRep_Tool::Pnt(vertex).Distance(point));
}

TopoDS_Edge ShapeBuilder::NewEdge(const ON_BrepEdge& edge, const Handle(Geom_Curve) & curve,
                                  double length) {
  TopoDS_Edge made;
  builder_.MakeEdge(made, curve, Precision::Confusion());
  const TopoDS_Vertex& start = VertexAt(edge.m_vi[0]);
  const TopoDS_Vertex& end = VertexAt(edge.m_vi[1]);
  Stretch(start, curve->Value(0));
  Stretch(end, curve->Value(length));
  builder_.Add(made, start.Oriented(TopAbs_FORWARD));
  builder_.Add(made, end.Oriented(TopAbs_REVERSED));
  builder_.Range(made, 0, length);
  // Its curves on faces may run with another speed.
  builder_.SameParameter(made, false);
  return made;
}

const SharedEdge& ShapeBuilder::EdgeAt(int index) {
  SharedEdge& shared = At(edges_, index);
  if (shared.is_made) return shared;
  shared.is_made = true;
  const ON_BrepEdge& edge = At(brep_.m_E, index);
  const CurveStretch stretch{brep_.CurveOf(edge), edge.m_domain, edge.m_bReversed};
  if (!stretch.curve.IsValid()) return shared;
  shared.length = FrameLength(stretch, frame_);
  shared.curve = MakeSpaceCurve(stretch, frame_, shared.length);
  if (!shared.curve.IsNull()) shared.edge = NewEdge(edge, shared.curve, shared.length);
  return shared;
}

// A side of the surface that is a point in space: an edge without a curve there.
bool ShapeBuilder::MakeSingularUse(const ON_BrepTrim& trim, const FrameSurface& surface,
                                   TrimUse& use) {
  constexpr double kLength = 1;
  use.curve =
      MakeParameterCurve({brep_.CurveOf(trim), trim.m_domain, trim.m_bReversed}, surface, kLength);
  if (use.curve.IsNull()) return false;
  builder_.MakeEdge(use.edge);
  builder_.Add(use.edge, VertexAt(trim.m_vi[0]).Oriented(TopAbs_FORWARD));
  builder_.Add(use.edge, VertexAt(trim.m_vi[1]).Oriented(TopAbs_REVERSED));
  builder_.Degenerated(use.edge, true);
  return true;
}

bool ShapeBuilder::MakeUse(const ON_BrepTrim& trim, const FrameSurface& surface, TrimUse& use) {
  use.trim = &trim;
  if (!brep_.CurveOf(trim).IsValid()) return false;
  if (trim.m_ei < 0) return MakeSingularUse(trim, surface, use);
  const SharedEdge& shared = EdgeAt(trim.m_ei);
  if (shared.edge.IsNull()) return false;
  use.edge = shared.edge;
  // The curve runs as its edge does.
  const CurveStretch stretch{brep_.CurveOf(trim), trim.m_domain, trim.m_bReversed != trim.m_bRev3d};
  use.curve = MakeParameterCurve(stretch, surface, shared.length);
  return !use.curve.IsNull();
}

// Empty when a trim has no use.
std::vector<TrimUse> ShapeBuilder::UsesOf(const ON_BrepFace& face, const FrameSurface& surface) {
  std::vector<TrimUse> uses;
  for (const int loop : face.m_li) {
    for (const int trim : At(brep_.m_L, loop).m_ti) {
      if (!MakeUse(At(brep_.m_T, trim), surface, uses.emplace_back())) return {};
    }
  }
  return uses;
}

// Gives an edge its curve on the face; a seam has two, one for each direction. A further use in the
// same direction gets an edge of its own, which is divided alike as it has the same curve.
void ShapeBuilder::Place(TrimUse& use, EdgeUses& of_edge, const TopoDS_Face& face) {
  if (use.is_placed) return;
  use.is_placed = true;
  if (of_edge.is_again) {
    const SharedEdge& shared = At(edges_, use.trim->m_ei);
    use.edge = NewEdge(At(brep_.m_E, use.trim->m_ei), shared.curve, shared.length);
  }
  of_edge.is_again = true;
  const bool is_reversed = use.trim->m_bRev3d;
  TrimUse* partner = of_edge.Of(!is_reversed).Unplaced();
  if (partner == nullptr) {
    builder_.UpdateEdge(use.edge, use.curve, face, Precision::Confusion());
  } else {
    partner->is_placed = true;
    partner->edge = use.edge;
    builder_.UpdateEdge(use.edge, is_reversed ? partner->curve : use.curve,
                        is_reversed ? use.curve : partner->curve, face, Precision::Confusion());
  }
}

void ShapeBuilder::PlaceAll(std::vector<TrimUse>& uses, const TopoDS_Face& face) {
  std::unordered_map<int, EdgeUses> edges;
  for (TrimUse& use : uses) {
    if (use.trim->m_ei >= 0) edges[use.trim->m_ei].Of(use.trim->m_bRev3d).uses.push_back(&use);
  }
  for (TrimUse& use : uses) {
    EdgeUses none;
    Place(use, use.trim->m_ei >= 0 ? edges[use.trim->m_ei] : none, face);
  }
}

bool ShapeBuilder::AddWires(const ON_BrepFace& face, BrepShape::Face& made) {
  std::vector<TrimUse> uses = UsesOf(face, made.surface);
  if (uses.empty()) return false;
  PlaceAll(uses, made.face);
  auto use = uses.begin();
  for (const int loop : face.m_li) {
    TopoDS_Wire wire;
    builder_.MakeWire(wire);
    for (std::size_t i = 0; i < At(brep_.m_L, loop).m_ti.size(); ++i, ++use) {
      const bool is_reversed = use->trim->m_ei >= 0 && use->trim->m_bRev3d;
      builder_.Add(wire, use->edge.Oriented(is_reversed ? TopAbs_REVERSED : TopAbs_FORWARD));
    }
    wire.Closed(true);
    builder_.Add(made.face, wire);
  }
  return true;
}

BrepShape::Face ShapeBuilder::MakeFace(const ON_BrepFace& face) {
  try {
    BrepShape::Face made;
    made.surface = MakeFrameSurface(At(brep_.m_S, face.m_si), frame_);
    if (made.surface.surface.IsNull()) return {};
    builder_.MakeFace(made.face, made.surface.surface, Precision::Confusion());
    if (AddWires(face, made)) return made;
  } catch (const Standard_Failure&) {
    // Geometry that Open CASCADE refuses.
  }
  return {};
}

}  // namespace

BrepShape MakeBrepShape(const ON_Brep& brep, const ON_BoundingBox& box) {
  BrepShape shape;
  shape.frame = ModelFrame::Of(box);
  ShapeBuilder builder(brep, shape.frame);
  BRep_Builder occt;
  occt.MakeCompound(shape.all);
  for (const ON_BrepFace& face : brep.m_F) {
    shape.faces.push_back(builder.MakeFace(face));
    if (!shape.faces.back().face.IsNull()) occt.Add(shape.all, shape.faces.back().face);
  }
  return shape;
}

}  // namespace host
