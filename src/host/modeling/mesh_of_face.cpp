#include "host/modeling/mesh_of_face.h"

#include <BRep_Tool.hxx>
#include <GeomAdaptor_Surface.hxx>
#include <Poly_HArray1OfTriangle.hxx>
#include <Poly_Triangulation.hxx>
#include <TColgp_HArray1OfPnt.hxx>
#include <TColgp_HArray1OfPnt2d.hxx>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "host/modeling/singular_sides.h"

namespace host {
namespace {

ON_3fPoint ToFloat(ON_3dPoint p) {
  return {static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)};
}

bool IsFinite(const ON_3fPoint& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

float Fraction(ON_Interval domain, double t) {
  return static_cast<float>(std::clamp(domain.NormalizedParameterAt(t), 0.0, 1.0));
}

// Turns the triangles of a face into a mesh. Of the vertices, those are taken that a triangle uses.
class MeshBuilder {
 public:
  MeshBuilder(const BrepShape::Face& face, const ModelFrame& frame, ON_Mesh& mesh)
      : face_(face),
        frame_(frame),
        singular_(GeomAdaptor_Surface(face.surface.surface)),
        mesh_(mesh) {}

  // False when there is nothing, or points that aren't numbers in single precision.
  bool Build(const Poly_Triangulation& triangles, bool is_reversed);

 private:
  bool ReadNodes(const Poly_Triangulation& triangles);
  void AddTriangle(std::array<int, 3> nodes);
  int VertexOf(int node, const gp_Pnt2d& uv);

  const BrepShape::Face& face_;
  const ModelFrame& frame_;
  const SingularSides singular_;
  ON_Mesh& mesh_;
  std::vector<ON_3fPoint> points_;
  std::vector<gp_Pnt2d> uvs_;
  // The vertex of a node; -1 when it has none, or one for each triangle.
  std::vector<int> vertex_;
};

bool MeshBuilder::ReadNodes(const Poly_Triangulation& triangles) {
  const Handle(TColgp_HArray1OfPnt) points = triangles.MapNodeArray();
  const Handle(TColgp_HArray1OfPnt2d) uvs = triangles.MapUVNodeArray();
  if (points.IsNull() || uvs.IsNull()) return false;
  for (const gp_Pnt& point : *points) points_.push_back(ToFloat(frame_.FromFrame(point)));
  uvs_.assign(uvs->begin(), uvs->end());
  vertex_.assign(points_.size(), -1);
  return std::all_of(points_.begin(), points_.end(), IsFinite);
}

int MeshBuilder::VertexOf(int node, const gp_Pnt2d& uv) {
  const auto at = static_cast<std::size_t>(node);
  const bool is_shared = !singular_.Contains(uvs_[at]);
  if (is_shared && vertex_[at] >= 0) return vertex_[at];
  const int vertex = mesh_.VertexCount();
  const ON_2dPoint parameters = face_.surface.FromFrame(uv.X(), uv.Y());
  mesh_.m_V.push_back(points_[at]);
  mesh_.m_S.push_back(parameters);
  mesh_.m_T.push_back({Fraction(mesh_.m_srf_domain[0], parameters.x),
                       Fraction(mesh_.m_srf_domain[1], parameters.y)});
  if (is_shared) vertex_[at] = vertex;
  return vertex;
}

// Triangles that have become lines are left out: their neighbours meet without them. At a pole each
// triangle has a vertex of its own, with the parameters of its own direction.
void MeshBuilder::AddTriangle(std::array<int, 3> nodes) {
  const auto at = [](int node) { return static_cast<std::size_t>(node); };
  const auto& [a, b, c] = nodes;
  if (points_[at(a)] == points_[at(b)] || points_[at(b)] == points_[at(c)] ||
      points_[at(c)] == points_[at(a)]) {
    return;
  }
  std::array<gp_Pnt2d, 3> uvs{uvs_[at(a)], uvs_[at(b)], uvs_[at(c)]};
  singular_.Adjust({&uvs[0], &uvs[1], &uvs[2]});
  ON_MeshFace face;
  for (std::size_t i = 0; i < 3; ++i) face.vi[i] = VertexOf(nodes[i], uvs[i]);
  face.vi[3] = face.vi[2];
  mesh_.m_F.push_back(face);
}

bool MeshBuilder::Build(const Poly_Triangulation& triangles, bool is_reversed) {
  const Handle(Poly_HArray1OfTriangle) corners = triangles.MapTriangleArray();
  if (corners.IsNull() || !ReadNodes(triangles)) return false;
  for (const Poly_Triangle& triangle : *corners) {
    std::array<int, 3> nodes;
    triangle.Get(nodes[0], nodes[1], nodes[2]);
    for (int& node : nodes) --node;
    if (is_reversed) std::swap(nodes[1], nodes[2]);
    AddTriangle(nodes);
  }
  return !mesh_.m_F.empty();
}

ON_3dVector ToVector(const ON_3fPoint& from, const ON_3fPoint& to) {
  return {double{to.x} - from.x, double{to.y} - from.y, double{to.z} - from.z};
}

// For each vertex, the sum of the normals of its triangles.
std::vector<ON_3dVector> NormalsOfTriangles(const ON_Mesh& mesh) {
  std::vector<ON_3dVector> sums(mesh.m_V.size(), {0, 0, 0});
  for (const ON_MeshFace& face : mesh.m_F) {
    const auto at = [&](std::size_t i) { return mesh.m_V[static_cast<std::size_t>(face.vi[i])]; };
    const ON_3dVector normal = ON_CrossProduct(ToVector(at(0), at(1)), ToVector(at(0), at(2)));
    for (std::size_t i = 0; i < 3; ++i) {
      ON_3dVector& sum = sums[static_cast<std::size_t>(face.vi[i])];
      sum = sum + normal;
    }
  }
  return sums;
}

// Where the surface has no normal it is that of the triangles; the z axis when they cancel each
// other out.
void AddNormals(const ON_Surface& surface, bool is_reversed, ON_Mesh& mesh) {
  std::vector<ON_3dVector> of_triangles;
  for (std::size_t i = 0; i < mesh.m_V.size(); ++i) {
    const ON_2dPoint& at = mesh.m_S[i];
    ON_3dVector normal = surface.NormalAt(at.x, at.y) * (is_reversed ? -1 : 1);
    if (!(normal.Length() > 0.5)) {
      if (of_triangles.empty()) of_triangles = NormalsOfTriangles(mesh);
      const double length = of_triangles[i].Length();
      const bool has_length = length > 0 && std::isfinite(length);
      normal = has_length ? of_triangles[i] * (1 / length) : ON_3dVector{0, 0, 1};
    }
    mesh.m_N.push_back(ToFloat({normal.x, normal.y, normal.z}));
  }
}

}  // namespace

std::shared_ptr<const ON_Mesh> MeshOfFace(const BrepShape::Face& face, const ModelFrame& frame,
                                          const ON_Surface& surface, bool is_reversed) {
  if (face.face.IsNull()) return nullptr;
  TopLoc_Location location;
  const Handle(Poly_Triangulation)& triangles = BRep_Tool::Triangulation(face.face, location);
  if (triangles.IsNull()) return nullptr;
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_srf_domain = {surface.Domain(0), surface.Domain(1)};
  if (!MeshBuilder(face, frame, *mesh).Build(*triangles, is_reversed)) return nullptr;
  AddNormals(surface, is_reversed, *mesh);
  return mesh;
}

}  // namespace host
