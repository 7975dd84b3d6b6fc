#include "mesh_checks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace {

using Key = std::array<float, 3>;

ON_3dPoint At(const ON_Mesh& mesh, int index) {
  const ON_3fPoint& p = mesh.m_V[static_cast<std::size_t>(index)];
  return {p.x, p.y, p.z};
}

ON_3dVector Cross(const ON_Mesh& mesh, const ON_MeshFace& face) {
  const ON_3dPoint a = At(mesh, face.vi[0]);
  return ON_CrossProduct(At(mesh, face.vi[1]) - a, At(mesh, face.vi[2]) - a);
}

// Of triangles that are narrower, the tolerance of the mesh decides where they look.
bool IsNarrow(const ON_Mesh& mesh, const ON_MeshFace& face, double tolerance) {
  double longest = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    longest = std::max(longest, At(mesh, face.vi[i]).DistanceTo(At(mesh, face.vi[(i + 1) % 3])));
  }
  return Cross(mesh, face).Length() < 2 * tolerance * longest;
}

// Of the middle of some vertices.
class Middle {
 public:
  Middle(const ON_Mesh& mesh, std::initializer_list<int> vertices) {
    const double part = 1.0 / static_cast<double>(vertices.size());
    for (const int vertex : vertices) {
      const ON_2dPoint& s = mesh.m_S[static_cast<std::size_t>(vertex)];
      point_ = point_ + ON_FromOrigin(At(mesh, vertex)) * part;
      u_ += s.x * part;
      v_ += s.y * part;
    }
  }
  ON_3dVector NormalOn(const ON_Surface& surface) const { return surface.NormalAt(u_, v_); }
  double SagOn(const ON_Surface& surface) const {
    return std::abs(ON_DotProduct(surface.PointAt(u_, v_) - point_, NormalOn(surface)));
  }

 private:
  ON_3dPoint point_{0, 0, 0};
  double u_ = 0;
  double v_ = 0;
};

}  // namespace

MeshFit FitOf(const ON_Mesh& mesh, const ON_Surface& surface, bool is_reversed, double tolerance) {
  MeshFit fit;
  const double side = is_reversed ? -1 : 1;
  for (int i = 0; i < mesh.VertexCount(); ++i) {
    const auto at = static_cast<std::size_t>(i);
    const ON_2dPoint& s = mesh.m_S[at];
    fit.vertex = std::max(fit.vertex, surface.PointAt(s.x, s.y).DistanceTo(At(mesh, i)));
    const ON_3fVector& n = mesh.m_N[at];
    const double cosine = ON_DotProduct(surface.NormalAt(s.x, s.y), {n.x, n.y, n.z}) * side;
    fit.vertex_normal = std::min(fit.vertex_normal, cosine);
  }
  for (const ON_MeshFace& face : mesh.m_F) {
    const auto& [a, b, c, d] = face.vi;
    for (const Middle& middle : {Middle(mesh, {a, b, c}), Middle(mesh, {a, b}),
                                 Middle(mesh, {b, c}), Middle(mesh, {c, a})}) {
      fit.sag = std::max(fit.sag, middle.SagOn(surface));
    }
    const ON_3dVector cross = Cross(mesh, face);
    if (IsNarrow(mesh, face, tolerance)) continue;
    const double cosine =
        ON_DotProduct(cross, Middle(mesh, {a, b, c}).NormalOn(surface)) * side / cross.Length();
    fit.triangle_normal = std::min(fit.triangle_normal, cosine);
  }
  return fit;
}

EdgeUse EdgeUseOf(const Meshes& meshes) {
  std::map<std::array<Key, 2>, std::array<int, 2>> uses;
  for (const auto& mesh : meshes) {
    const auto key = [&mesh](int index) {
      const ON_3fPoint& p = mesh->m_V[static_cast<std::size_t>(index)];
      return Key{p.x, p.y, p.z};
    };
    for (const ON_MeshFace& face : mesh->m_F) {
      for (std::size_t i = 0; i < 3; ++i) {
        const Key from = key(face.vi[i]);
        const Key to = key(face.vi[(i + 1) % 3]);
        ++(from < to ? uses[{from, to}][0] : uses[{to, from}][1]);
      }
    }
  }
  EdgeUse result;
  for (const auto& [edge, counts] : uses) {
    const int sum = counts[0] + counts[1];
    ++(sum == 1 ? result.once : sum == 2 ? result.twice : result.more);
    if (sum == 2 && counts[0] != 1) ++result.twisted;
  }
  return result;
}

double AreaOf(const Meshes& meshes) {
  double area = 0;
  for (const auto& mesh : meshes) {
    for (const ON_MeshFace& face : mesh->m_F) area += Cross(*mesh, face).Length() / 2;
  }
  return area;
}

double VolumeOf(const Meshes& meshes) {
  double volume = 0;
  for (const auto& mesh : meshes) {
    for (const ON_MeshFace& face : mesh->m_F) {
      const ON_3dVector from_origin = ON_FromOrigin(At(*mesh, face.vi[0]));
      volume += ON_DotProduct(from_origin, Cross(*mesh, face)) / 6;
    }
  }
  return volume;
}
