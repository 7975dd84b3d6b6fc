#include "export/bake_map_size.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "host/document/render_meshes.h"

namespace orv {
namespace {

// How long the texture is along one of its coordinates, by the edges that run along it.
struct TextureLength {
  double sum = 0;
  double count = 0;

  void Add(double edgeLength, double edgeRange) {
    sum += edgeLength / edgeRange;
    count += 1;
  }
};

struct TextureLengths {
  TextureLength u;
  TextureLength v;
};

double Distance(const ON_3fPoint& a, const ON_3fPoint& b) {
  return std::hypot(double{a.x} - b.x, double{a.y} - b.y, double{a.z} - b.z);
}

// An edge that runs diagonally counts for neither coordinate.
void AddEdge(const ON_Mesh& mesh, int from, int to, TextureLengths& lengths) {
  constexpr double kAlong = 10;
  const ON_2fPoint& a = mesh.m_T[from];
  const ON_2fPoint& b = mesh.m_T[to];
  const double du = std::fabs(double{a.x} - b.x);
  const double dv = std::fabs(double{a.y} - b.y);
  if (du > dv * kAlong) {
    lengths.u.Add(Distance(mesh.m_V[from], mesh.m_V[to]), du);
  } else if (du * kAlong < dv) {
    lengths.v.Add(Distance(mesh.m_V[from], mesh.m_V[to]), dv);
  }
}

void AddMesh(const ON_Mesh& mesh, TextureLengths& lengths) {
  if (!mesh.HasTextureCoordinates() || !mesh.HasValidFaceIndices()) return;
  for (const ON_MeshFace& face : mesh.m_F) {
    int previous = face.vi[3];
    for (const int vertex : face.vi) {
      // The fourth corner of a triangle is its third.
      if (vertex != previous) AddEdge(mesh, previous, vertex, lengths);
      previous = vertex;
    }
  }
}

TextureLengths LengthsOf(const CRhinoObject& object) {
  const CRhinoObject* const objects[] = {&object};
  std::vector<CRhinoObjRef> meshes;
  RhinoGetRenderMeshes(objects, meshes);
  TextureLengths lengths;
  for (const CRhinoObjRef& ref : meshes) {
    if (ref.Mesh() != nullptr) AddMesh(*ref.Mesh(), lengths);
  }
  return lengths;
}

// More than any map has when there is no end of them.
int TexelsNeeded(const TextureLength& length, double texelSize) {
  constexpr double kMargin = 1.333;
  constexpr int kMost = std::numeric_limits<int>::max();
  const double texels = length.sum * kMargin / length.count / texelSize;
  return texels < kMost ? static_cast<int>(std::max(texels, 0.0)) : kMost;
}

int FittedSize(int size, int needed) {
  while (size > 2 && needed < size) size /= 2;
  return size;
}

}  // namespace

bool FitBakeMapSize(const CRhinoObject& object, double texelSize, int& width, int& height) {
  const TextureLengths lengths = LengthsOf(object);
  if (lengths.u.count == 0 || lengths.v.count == 0) return false;
  width = FittedSize(width, TexelsNeeded(lengths.u, texelSize));
  height = FittedSize(height, TexelsNeeded(lengths.v, texelSize));
  return true;
}

}  // namespace orv
