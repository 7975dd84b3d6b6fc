#include "host/geometry/on_mesh_point.h"

#include <algorithm>
#include <limits>

namespace {

struct Triangle {
  char name;
  std::array<int, 3> corners;
};

constexpr std::array<Triangle, 4> kTriangles = {
    {{'A', {0, 1, 2}}, {'B', {0, 2, 3}}, {'C', {0, 1, 3}}, {'D', {1, 2, 3}}}};

using Barycentric = std::array<double, 3>;

// How far along the line from `a` to `b`, 0 to 1, the point is that is closest to `p`.
double FractionOnLine(ON_3dPoint a, ON_3dPoint b, ON_3dPoint p) {
  const ON_3dVector line = b - a;
  const double length2 = ON_DotProduct(line, line);
  return length2 > 0 ? std::clamp(ON_DotProduct(p - a, line) / length2, 0.0, 1.0) : 0;
}

ON_3dPoint PointAt(const std::array<ON_3dPoint, 3>& t, const Barycentric& w) {
  return {w[0] * t[0].x + w[1] * t[1].x + w[2] * t[2].x,
          w[0] * t[0].y + w[1] * t[1].y + w[2] * t[2].y,
          w[0] * t[0].z + w[1] * t[1].z + w[2] * t[2].z};
}

// The foot of `p` in the triangle's plane when it lies in the triangle.
std::optional<Barycentric> FootInside(const std::array<ON_3dPoint, 3>& t, ON_3dPoint p) {
  const ON_3dVector a = t[1] - t[0], b = t[2] - t[0], q = p - t[0];
  const ON_3dVector normal = ON_CrossProduct(a, b);
  const double area2 = ON_DotProduct(normal, normal);
  if (!(area2 > 0)) return std::nullopt;
  const double along_a = ON_DotProduct(ON_CrossProduct(q, b), normal) / area2;
  const double along_b = ON_DotProduct(ON_CrossProduct(a, q), normal) / area2;
  const Barycentric w{1 - along_a - along_b, along_a, along_b};
  if (!std::all_of(w.begin(), w.end(), [](double x) { return x >= 0; })) return std::nullopt;
  return w;
}

Barycentric ClosestInTriangle(const std::array<ON_3dPoint, 3>& t, ON_3dPoint p) {
  if (const auto foot = FootInside(t, p)) return *foot;
  Barycentric best{1, 0, 0};
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < t.size(); ++i) {
    const std::size_t next = (i + 1) % t.size();
    const double fraction = FractionOnLine(t[i], t[next], p);
    Barycentric w{};
    w[i] = 1 - fraction;
    w[next] = fraction;
    const double distance = PointAt(t, w).DistanceTo(p);
    if (!(distance < least)) continue;
    least = distance;
    best = w;
  }
  return best;
}

// Searches the faces of a mesh one after the other.
class Search {
 public:
  Search(const ON_Mesh& mesh, ON_3dPoint p) : mesh_(mesh), p_(p) {}

  void LookAt(int face_index) {
    const ON_MeshFace& face = mesh_.m_F[static_cast<std::size_t>(face_index)];
    if (face.IsTriangle()) return LookAt(face_index, kTriangles[0]);
    const bool cut_02 =
        Vertex(face, 0).DistanceTo(Vertex(face, 2)) <= Vertex(face, 1).DistanceTo(Vertex(face, 3));
    LookAt(face_index, kTriangles[cut_02 ? 0 : 2]);
    LookAt(face_index, kTriangles[cut_02 ? 1 : 3]);
  }
  const std::optional<ON_MESH_POINT>& Found() const { return found_; }

 private:
  ON_3dPoint Vertex(const ON_MeshFace& face, int corner) const {
    const auto index = static_cast<std::size_t>(face.vi[static_cast<std::size_t>(corner)]);
    if (mesh_.m_dV.size() == mesh_.m_V.size()) return mesh_.m_dV[index];
    const ON_3fPoint& v = mesh_.m_V[index];
    return {v.x, v.y, v.z};
  }

  void LookAt(int face_index, const Triangle& triangle) {
    const ON_MeshFace& face = mesh_.m_F[static_cast<std::size_t>(face_index)];
    const std::array<ON_3dPoint, 3> t{Vertex(face, triangle.corners[0]),
                                      Vertex(face, triangle.corners[1]),
                                      Vertex(face, triangle.corners[2])};
    const Barycentric w = ClosestInTriangle(t, p_);
    const ON_3dPoint point = PointAt(t, w);
    const double distance = point.DistanceTo(p_);
    if (std::isnan(distance) || (found_ && !(distance < least_))) return;
    least_ = distance;
    found_ = ON_MESH_POINT{point, face_index, triangle.name, {}};
    for (std::size_t i = 0; i < w.size(); ++i) {
      found_->m_t[static_cast<std::size_t>(triangle.corners[i])] = w[i];
    }
  }

  const ON_Mesh& mesh_;
  ON_3dPoint p_;
  double least_ = std::numeric_limits<double>::infinity();
  std::optional<ON_MESH_POINT> found_;
};

}  // namespace

bool ON_MESH_POINT::GetTriangle(std::array<int, 3>& corners) const {
  const auto triangle =
      std::find_if(kTriangles.begin(), kTriangles.end(),
                   [this](const Triangle& one) { return one.name == m_Triangle; });
  if (triangle == kTriangles.end()) return false;
  corners = triangle->corners;
  return true;
}

std::optional<ON_MESH_POINT> ON_ClosestPointOnMesh(const ON_Mesh& mesh, ON_3dPoint p) {
  Search search(mesh, p);
  for (int i = 0; i < mesh.FaceCount(); ++i) search.LookAt(i);
  return search.Found();
}
