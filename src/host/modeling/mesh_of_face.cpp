#include "host/modeling/mesh_of_face.h"

#include <algorithm>
#include <cmath>

#include <BRep_Tool.hxx>
#include <Poly_HArray1OfTriangle.hxx>
#include <Poly_Triangulation.hxx>
#include <TColgp_HArray1OfPnt.hxx>
#include <TColgp_HArray1OfPnt2d.hxx>

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

// False when a point isn't a number in single precision.
bool AddVertices(const TColgp_Array1OfPnt& points, const TColgp_Array1OfPnt2d& uvs,
                 const BrepShape::Face& face, const ModelFrame& frame, ON_Mesh& mesh) {
  for (int i = points.Lower(); i <= points.Upper(); ++i) {
    const ON_2dPoint parameters = face.surface.FromFrame(uvs(i).X(), uvs(i).Y());
    mesh.m_V.push_back(ToFloat(frame.FromFrame(points(i))));
    mesh.m_S.push_back(parameters);
    mesh.m_T.push_back({Fraction(mesh.m_srf_domain[0], parameters.x),
                        Fraction(mesh.m_srf_domain[1], parameters.y)});
    if (!IsFinite(mesh.m_V.back())) return false;
  }
  return true;
}

// Triangles that have become lines are left out: their neighbours meet without them.
void AddTriangles(const Poly_Array1OfTriangle& triangles, bool is_reversed, ON_Mesh& mesh) {
  for (const Poly_Triangle& triangle : triangles) {
    int a = 0;
    int b = 0;
    int c = 0;
    triangle.Get(a, b, c);
    if (is_reversed) std::swap(b, c);
    const auto vertex = [&mesh](int index) { return mesh.m_V[static_cast<std::size_t>(index) - 1]; };
    if (vertex(a) == vertex(b) || vertex(b) == vertex(c) || vertex(c) == vertex(a)) continue;
    mesh.m_F.push_back({{a - 1, b - 1, c - 1, c - 1}});
  }
}

ON_3dVector ToVector(const ON_3fPoint& from, const ON_3fPoint& to) {
  return {double{to.x} - from.x, double{to.y} - from.y, double{to.z} - from.z};
}

// The direction of the sum of the normals of the triangles at a vertex; the z axis when they cancel
// each other out.
ON_3dVector NormalOfTriangles(const ON_Mesh& mesh, int vertex) {
  ON_3dVector sum{0, 0, 0};
  for (const ON_MeshFace& face : mesh.m_F) {
    if (std::find(face.vi.begin(), face.vi.end(), vertex) == face.vi.end()) continue;
    const auto at = [&](std::size_t i) { return mesh.m_V[static_cast<std::size_t>(face.vi[i])]; };
    sum = sum + ON_CrossProduct(ToVector(at(0), at(1)), ToVector(at(0), at(2)));
  }
  const double length = sum.Length();
  return length > 0 && std::isfinite(length) ? sum * (1 / length) : ON_3dVector{0, 0, 1};
}

void AddNormals(const ON_Surface& surface, bool is_reversed, ON_Mesh& mesh) {
  for (int i = 0; i < mesh.VertexCount(); ++i) {
    const ON_2dPoint& at = mesh.m_S[static_cast<std::size_t>(i)];
    ON_3dVector normal = surface.NormalAt(at.x, at.y) * (is_reversed ? -1 : 1);
    if (!(normal.Length() > 0.5)) normal = NormalOfTriangles(mesh, i);
    mesh.m_N.push_back(ToFloat({normal.x, normal.y, normal.z}));
  }
}

}  // namespace

std::shared_ptr<const ON_Mesh> MeshOfFace(const BrepShape::Face& face, const ModelFrame& frame,
                                          const ON_Surface& surface, bool is_reversed) {
  if (face.face.IsNull()) return nullptr;
  TopLoc_Location location;
  const Handle(Poly_Triangulation) & triangles = BRep_Tool::Triangulation(face.face, location);
  if (triangles.IsNull()) return nullptr;
  const Handle(TColgp_HArray1OfPnt) points = triangles->MapNodeArray();
  const Handle(TColgp_HArray1OfPnt2d) uvs = triangles->MapUVNodeArray();
  const Handle(Poly_HArray1OfTriangle) corners = triangles->MapTriangleArray();
  if (points.IsNull() || uvs.IsNull() || corners.IsNull()) return nullptr;
  auto mesh = std::make_shared<ON_Mesh>();
  mesh->m_srf_domain = {surface.Domain(0), surface.Domain(1)};
  if (!AddVertices(*points, *uvs, face, frame, *mesh)) return nullptr;
  AddTriangles(*corners, is_reversed, *mesh);
  if (mesh->m_F.empty()) return nullptr;
  AddNormals(surface, is_reversed, *mesh);
  return mesh;
}

}  // namespace host
