#include "export/mesh_writer.h"

#include <array>
#include <cstring>
#include <vector>

#include "export/weld.h"

namespace orv {
namespace {

void WriteHead(RibWriter& writer, const ON_Mesh& mesh, bool subdivide) {
  if (subdivide) {
    RibPrintf(writer, "SubdivisionMesh \"catmull-clark\" [ ");
  } else {
    RibPrintf(writer, "PointsPolygons [ ");
  }
  for (const ON_MeshFace& face : mesh.m_F) RibIntegers(writer, face.IsTriangle() ? 3 : 4);
  RibPrintf(writer, "] [");
}

void WriteFaces(RibWriter& writer, const ON_Mesh& mesh) {
  for (const ON_MeshFace& face : mesh.m_F) {
    RibIntegers(writer, face.vi[0], face.vi[1], face.vi[2]);
    if (!face.IsTriangle()) RibIntegers(writer, face.vi[3]);
  }
}

void WriteFaces(RibWriter& writer, const ON_Mesh& mesh, const std::vector<int>& remap) {
  for (const ON_MeshFace& face : mesh.m_F) {
    RibIntegers(writer, remap[face.vi[0]], remap[face.vi[1]], remap[face.vi[2]]);
    if (!face.IsTriangle()) RibIntegers(writer, remap[face.vi[3]]);
  }
}

void EndFaces(RibWriter& writer, bool subdivide) {
  RibPrintf(writer, "]\n");
  if (subdivide) RibPrintf(writer, " [\"interpolateboundary\"] [1 0] [1] [0]\n");
}

// The texture's t axis points the other way in RIB.
double FlippedT(ON_2fPoint st) {
  return 1.0 - st.y;
}

void WriteVertexNormals(RibWriter& writer, const ON_Mesh& mesh) {
  RibPrintf(writer, " \"N\" [ ");
  for (const ON_3fVector& n : mesh.m_N) RibNumbers(writer, n.x, n.y, n.z);
  RibPrintf(writer, "] ");
}

void WriteVertexTexture(RibWriter& writer, const ON_Mesh& mesh) {
  RibPrintf(writer, "\"st\" [ ");
  for (const ON_2fPoint& st : mesh.m_T) RibNumbers(writer, st.x, FlippedT(st));
  RibPrintf(writer, "]");
}

void WriteVertexColors(RibWriter& writer, const ON_Mesh& mesh) {
  RibPrintf(writer, " \"Cs\" [ ");
  for (const ON_Color& color : mesh.m_C) {
    RibNumbers(writer, color.FractionRed(), color.FractionGreen(), color.FractionBlue());
  }
  RibPrintf(writer, "] ");
}

// The texts of a vertex channel. A corner's text is that of its vertex, and neighbouring faces
// share vertices: the last texts are kept, so that most are formatted once and then copied.
//
// `write` writes the text of a vertex, at most three numbers, and returns its end.
template <class Write>
class CornerTexts {
 public:
  explicit CornerTexts(Write write) : write_(write), kept_(kKept) {}

  // Writes the text of `vertex` with room for kRoom bytes; its end.
  char* Append(int vertex, char* out) {
    Text& text = kept_[static_cast<std::size_t>(vertex) % kKept];
    if (text.vertex != vertex) {
      text.length = static_cast<int>(write_(vertex, text.bytes.data()) - text.bytes.data());
      text.vertex = vertex;
    }
    std::memcpy(out, text.bytes.data(), text.bytes.size());
    return out + text.length;
  }

 private:
  static constexpr std::size_t kKept = 4096;
  static constexpr std::size_t kRoom = 3 * host::kMaxGLength;

  struct Text {
    int vertex = -1;
    int length = 0;
    std::array<char, kRoom> bytes;
  };

  Write write_;
  std::vector<Text> kept_;
};

// The first three corners of a face are one group, the fourth of a quad another.
template <class Write>
void WriteCorners(RibWriter& writer, const ON_Mesh& mesh, Write write) {
  CornerTexts texts(write);
  for (const ON_MeshFace& face : mesh.m_F) {
    RibGroup(writer, [&](char* out) {
      for (int i = 0; i < 3; ++i) out = texts.Append(face.vi[i], out);
      return out;
    });
    if (face.IsTriangle()) continue;
    RibGroup(writer, [&](char* out) { return texts.Append(face.vi[3], out); });
  }
}

char* AppendNumber(double number, char* out) {
  out = host::FormatG(number, out);
  *out++ = ' ';
  return out;
}

void WriteCornerNormals(RibWriter& writer, const ON_Mesh& mesh) {
  RibPrintf(writer, " \"facevarying normal N\" [ ");
  WriteCorners(writer, mesh, [&](int vertex, char* out) {
    const ON_3fVector& n = mesh.m_N[vertex];
    return AppendNumber(n.z, AppendNumber(n.y, AppendNumber(n.x, out)));
  });
  RibPrintf(writer, "] ");
}

void WriteCornerTexture(RibWriter& writer, const ON_Mesh& mesh) {
  RibPrintf(writer, " \"facevarying float[2] st\" [ ");
  WriteCorners(writer, mesh, [&](int vertex, char* out) {
    const ON_2fPoint& st = mesh.m_T[vertex];
    return AppendNumber(FlippedT(st), AppendNumber(st.x, out));
  });
  RibPrintf(writer, "]");
}

void WritePlain(RibWriter& writer, const ON_Mesh& mesh, bool subdivide) {
  WriteHead(writer, mesh, subdivide);
  WriteFaces(writer, mesh);
  EndFaces(writer, subdivide);
  RibPrintf(writer, " \"P\" [ ");
  for (const ON_3fPoint& p : mesh.m_V) RibNumbers(writer, p.x, p.y, p.z);
  RibPrintf(writer, " ]");
  if (mesh.HasVertexNormals() && !subdivide) WriteVertexNormals(writer, mesh);
  if (mesh.HasTextureCoordinates()) WriteVertexTexture(writer, mesh);
  if (mesh.HasVertexColors()) WriteVertexColors(writer, mesh);
  RibPrintf(writer, "\n");
}

void WriteWelded(RibWriter& writer, const ON_Mesh& mesh, const WeldedVertices& welded,
                 bool subdivide) {
  WriteHead(writer, mesh, subdivide);
  WriteFaces(writer, mesh, welded.remap);
  EndFaces(writer, subdivide);
  RibPrintf(writer, "\"P\" [ ");
  for (const int old : welded.unique) {
    const ON_3fPoint& p = mesh.m_V[old];
    RibNumbers(writer, p.x, p.y, p.z);
  }
  RibPrintf(writer, " ]");
  if (mesh.HasVertexNormals() && !subdivide) WriteCornerNormals(writer, mesh);
  if (mesh.HasTextureCoordinates()) WriteCornerTexture(writer, mesh);
  RibPrintf(writer, "\n");
}

}  // namespace

bool WriteMesh(RibWriter& writer, const ON_Mesh& mesh, bool weld, bool subdivide) {
  if (mesh.FaceCount() == 0 || !mesh.HasValidFaceIndices()) return true;
  if (weld) {
    const WeldedVertices welded = WeldVertices(mesh.m_V);
    const int count = static_cast<int>(welded.unique.size());
    RibPrintf(writer, "# Welded - reduced %d vertices to %d\n", mesh.VertexCount(), count);
    if (count < mesh.VertexCount()) {
      WriteWelded(writer, mesh, welded, subdivide);
      return true;
    }
  }
  WritePlain(writer, mesh, subdivide);
  return true;
}

}  // namespace orv
