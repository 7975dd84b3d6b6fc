#include "host/modeling/grid_mesh_algo.h"

#include <BRepMesh_DefaultRangeSplitter.hxx>
#include <BRepMesh_DelaunayBaseMeshAlgo.hxx>
#include <BRepMesh_DelaunayNodeInsertionMeshAlgo.hxx>
#include <BRep_Builder.hxx>
#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "host/modeling/mesh_grid.h"
#include "host/modeling/singular_sides.h"

namespace host {
namespace {

// The points of the grid. It lies over the part of the surface that the face's boundary encloses.
class GridSplitter : public BRepMesh_DefaultRangeSplitter {
 public:
  void Reset(const IMeshData::IFaceHandle& face, const IMeshTools_Parameters& parameters) override;
  void AdjustRange() override;
  // The grid's points are taken in levels, each between those of the one before: so the triangles
  // that the mesher has to look through never are much larger than those that come of it.
  static constexpr std::size_t kCoarsest = 256;
  // Every so many lines, without what the coarser levels have.
  Handle(IMeshData::ListOfPnt2d) NodesOfLevel(std::size_t stride) const;
  const SingularSides& Singular() const { return singular_; }

 private:
  void MakeCellsSquare();

  MeshGridLimits limits_;
  MeshGrid grid_;
  SingularSides singular_;
};

void GridSplitter::Reset(const IMeshData::IFaceHandle& face,
                         const IMeshTools_Parameters& parameters) {
  BRepMesh_DefaultRangeSplitter::Reset(face, parameters);
  limits_ = {parameters.Deflection, parameters.AngleInterior, parameters.MinSize};
}

// The mesher joins points that are close to each other in its own plane: that is stretched so that
// the cells of the grid become squares there.
void GridSplitter::MakeCellsSquare() {
  constexpr double kLongest = 1000;
  const double u = (myRangeU.second - myRangeU.first) / static_cast<double>(grid_.u.size() - 1);
  const double v = (myRangeV.second - myRangeV.first) / static_cast<double>(grid_.v.size() - 1);
  const double ratio = u / v * myDelta.second / myDelta.first;
  const double stretch = std::sqrt(std::clamp(ratio, 1 / kLongest, kLongest));
  myDelta.first *= stretch;
  myDelta.second /= stretch;
}

void GridSplitter::AdjustRange() {
  BRepMesh_DefaultRangeSplitter::AdjustRange();
  grid_ = {};
  singular_ = {};
  const ON_Interval u{myRangeU.first, myRangeU.second};
  const ON_Interval v{myRangeV.first, myRangeV.second};
  const bool is_plane = GetSurface()->GetType() == GeomAbs_Plane;
  if (is_plane || !myIsValid || !u.IsIncreasing() || !v.IsIncreasing()) return;
  grid_ = MakeMeshGrid(*GetSurface(), u, v, limits_);
  MakeCellsSquare();
  singular_ = SingularSides(*GetSurface());
}

Handle(IMeshData::ListOfPnt2d) GridSplitter::NodesOfLevel(std::size_t stride) const {
  // The mesher finds points by a key that is the same for all of one v. Moved by a few hundredths
  // of a cell, those of a line are as quick to find as others.
  constexpr double kMoved = 0.04;
  constexpr double kGoldenRatio = 0.61803398874989485;
  const Handle(IMeshData::ListOfPnt2d) nodes = new IMeshData::ListOfPnt2d;
  for (std::size_t i = stride; i + 1 < grid_.u.size(); i += stride) {
    const double part = std::fmod(static_cast<double>(i) * kGoldenRatio, 1) * kMoved;
    for (std::size_t j = stride; j + 1 < grid_.v.size(); j += stride) {
      const bool is_coarser = i % (2 * stride) == 0 && j % (2 * stride) == 0;
      if (is_coarser && stride < kCoarsest) continue;
      nodes->Append(gp_Pnt2d(grid_.u[i], std::lerp(grid_.v[j], grid_.v[j + 1], part)));
    }
  }
  return nodes;
}

using InsertionAlgo =
    BRepMesh_DelaunayNodeInsertionMeshAlgo<GridSplitter, BRepMesh_DelaunayBaseMeshAlgo>;

class GridMeshAlgo : public InsertionAlgo {
 public:
  explicit GridMeshAlgo(double max_edge) : max_edge_(max_edge) {}

  // A face that isn't finished when the mesher is told to stop has no triangles.
  void Perform(const IMeshData::IFaceHandle& face, const IMeshTools_Parameters& parameters,
               const Message_ProgressRange& range) override;

 protected:
  void postProcessMesh(BRepMesh_Delaun& mesher, const Message_ProgressRange& range) override;

 private:
  struct Corner {
    gp_Pnt2d uv;
    gp_Pnt point;
    // True when the side from here to the next corner is on the boundary.
    bool is_boundary = false;
  };
  using Corners = std::array<Corner, 3>;

  void Check(const BRepMesh_Triangle& triangle, IMeshData::ListOfPnt2d& nodes);
  Corners CornersOf(const BRepMesh_Triangle& triangle,
                    const std::array<Standard_Integer, 3>& vertices) const;
  double ErrorAt(const gp_Pnt2d& uv, const gp_Pnt& point) const;
  void AddWorst(const Corners& corners, IMeshData::ListOfPnt2d& nodes) const;

  double max_edge_;
  bool is_finished_ = false;
  // The vertices of the triangles that were looked at.
  std::set<std::array<Standard_Integer, 3>> checked_;
};

GridMeshAlgo::Corners GridMeshAlgo::CornersOf(
    const BRepMesh_Triangle& triangle, const std::array<Standard_Integer, 3>& vertices) const {
  Corners corners;
  for (std::size_t i = 0; i < 3; ++i) {
    const BRepMesh_Vertex& vertex = getStructure()->GetNode(vertices[i]);
    corners[i].uv = getRangeSplitter().Scale(vertex.Coord(), false);
    corners[i].point = getNodesMap()->Value(vertex.Location3d());
    const BRepMesh_Edge& side = getStructure()->GetLink(triangle.myEdges[i]);
    corners[i].is_boundary = side.Movability() == BRepMesh_Frontier;
  }
  getRangeSplitter().Singular().Adjust({&corners[0].uv, &corners[1].uv, &corners[2].uv});
  return corners;
}

void GridMeshAlgo::Check(const BRepMesh_Triangle& triangle, IMeshData::ListOfPnt2d& nodes) {
  if (triangle.Movability() == BRepMesh_Deleted) return;
  Standard_Integer indices[3];
  getStructure()->ElementNodes(triangle, indices);
  const std::array<Standard_Integer, 3> vertices{indices[0], indices[1], indices[2]};
  if (checked_.insert(vertices).second) AddWorst(CornersOf(triangle, vertices), nodes);
}

// How far a point of the mesh is from the surface, along its normal.
double GridMeshAlgo::ErrorAt(const gp_Pnt2d& uv, const gp_Pnt& point) const {
  gp_Pnt on_surface;
  gp_Vec du;
  gp_Vec dv;
  getDFace()->GetSurface()->D1(uv.X(), uv.Y(), on_surface, du, dv);
  const gp_Vec off(point, on_surface);
  const gp_Vec normal = du.Crossed(dv);
  const double length = normal.Magnitude();
  return length > 1e-9 ? std::abs(off.Dot(normal)) / length : off.Magnitude();
}

// Adds the place at which a triangle is to be divided, if it is: in the middle of a side or in its
// own, whichever is the farthest from the surface.
void GridMeshAlgo::AddWorst(const Corners& corners, IMeshData::ListOfPnt2d& nodes) const {
  const double least = getParameters().MinSize;
  const auto& [a, b, c] = corners;
  gp_Pnt2d worst((a.uv.XY() + b.uv.XY() + c.uv.XY()) / 3);
  double error = ErrorAt(worst, (a.point.XYZ() + b.point.XYZ() + c.point.XYZ()) / 3) /
                 getParameters().Deflection;
  double longest = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const Corner& from = corners[i];
    const Corner& to = corners[(i + 1) % 3];
    const double length = from.point.Distance(to.point);
    longest = std::max(longest, length);
    if (from.is_boundary || length < 2 * least) continue;
    const gp_Pnt2d middle((from.uv.XY() + to.uv.XY()) / 2);
    double side =
        ErrorAt(middle, (from.point.XYZ() + to.point.XYZ()) / 2) / getParameters().Deflection;
    if (max_edge_ > 0) side = std::max(side, length / max_edge_);
    if (side < error) continue;
    error = side;
    worst = middle;
  }
  if (error > 1 && longest > 2 * least) nodes.Append(worst);
}

void GridMeshAlgo::Perform(const IMeshData::IFaceHandle& face,
                           const IMeshTools_Parameters& parameters,
                           const Message_ProgressRange& range) {
  is_finished_ = false;
  checked_.clear();
  InsertionAlgo::Perform(face, parameters, range);
  if (!is_finished_) BRep_Builder().UpdateFace(face->GetFace(), Handle(Poly_Triangulation)());
}

void GridMeshAlgo::postProcessMesh(BRepMesh_Delaun& mesher, const Message_ProgressRange& range) {
  constexpr int kMostPasses = 24;
  constexpr int kMostTriangles = 500000;
  Message_ProgressScope scope(range, "", kMostPasses + 10);
  InsertionAlgo::postProcessMesh(mesher, scope.Next());
  for (std::size_t stride = GridSplitter::kCoarsest; stride > 0 && scope.More(); stride /= 2) {
    insertNodes(getRangeSplitter().NodesOfLevel(stride), mesher, scope.Next());
  }
  const bool is_plane = getDFace()->GetSurface()->GetType() == GeomAbs_Plane;
  const int passes = is_plane && max_edge_ == 0 ? 0 : kMostPasses;
  for (int pass = 0; pass < passes && scope.More(); ++pass) {
    const IMeshData::MapOfInteger& triangles = getStructure()->ElementsOfDomain();
    if (triangles.Extent() > kMostTriangles) break;
    const Handle(IMeshData::ListOfPnt2d) nodes = new IMeshData::ListOfPnt2d;
    for (IMeshData::IteratorOfMapOfInteger it(triangles); it.More(); it.Next()) {
      Check(getStructure()->GetElement(it.Key()), *nodes);
    }
    if (!insertNodes(nodes, mesher, scope.Next())) break;
  }
  is_finished_ = scope.More();
}

}  // namespace

Handle(IMeshTools_MeshAlgo) GridMeshAlgoFactory::GetAlgo(const GeomAbs_SurfaceType,
                                                         const IMeshTools_Parameters&) const {
  return new GridMeshAlgo(max_edge_);
}

}  // namespace host
