#include "export/mesh_writer.h"

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

void WriteCornerNormals(RibWriter& writer, const ON_Mesh& mesh) {
  RibPrintf(writer, " \"facevarying normal N\" [ ");
  for (const ON_MeshFace& face : mesh.m_F) {
    const ON_3fVector& a = mesh.m_N[face.vi[0]];
    const ON_3fVector& b = mesh.m_N[face.vi[1]];
    const ON_3fVector& c = mesh.m_N[face.vi[2]];
    const ON_3fVector& d = mesh.m_N[face.vi[3]];
    RibNumbers(writer, a.x, a.y, a.z, b.x, b.y, b.z, c.x, c.y, c.z);
    if (!face.IsTriangle()) RibNumbers(writer, d.x, d.y, d.z);
  }
  RibPrintf(writer, "] ");
}

void WriteCornerTexture(RibWriter& writer, const ON_Mesh& mesh) {
  RibPrintf(writer, " \"facevarying float[2] st\" [ ");
  for (const ON_MeshFace& face : mesh.m_F) {
    const ON_2fPoint& a = mesh.m_T[face.vi[0]];
    const ON_2fPoint& b = mesh.m_T[face.vi[1]];
    const ON_2fPoint& c = mesh.m_T[face.vi[2]];
    const ON_2fPoint& d = mesh.m_T[face.vi[3]];
    RibNumbers(writer, a.x, FlippedT(a), b.x, FlippedT(b), c.x, FlippedT(c));
    if (!face.IsTriangle()) RibNumbers(writer, d.x, FlippedT(d));
  }
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
