#include "side_export/vrml_shape.h"

#include <vector>

#include "export/baked_name.h"
#include "host/document/render_meshes.h"
#include "host/system/path.h"

namespace orv {
namespace {

void WriteAppearance(VrmlStream& stream, std::string_view mapFile) {
  const host::PathParts parts = host::SplitPath(mapFile);
  stream.Write(
      "  appearance Appearance {\n"
      "    texture ImageTexture {\n"
      "      repeatS FALSE\n"
      "      repeatT FALSE\n");
  stream.Write("      url \"" + VrmlString(parts.Base + parts.Extension) + "\" } \n");
  stream.Write(" } # appearance\n");
}

// Calls `write` for each item, with the separator before all but the first.
template <class Items, class Write>
void WriteItems(VrmlStream& stream, const Items& items, Write write) {
  bool isFirst = true;
  for (const auto& item : items) {
    if (!isFirst) stream.Write(" , ");
    isFirst = false;
    write(item);
  }
}

void WriteFaces(VrmlStream& stream, const ON_Mesh& mesh) {
  WriteItems(stream, mesh.m_F, [&](const ON_MeshFace& face) {
    if (face.IsTriangle()) {
      stream.WritePolygon(face.vi[0], face.vi[1], face.vi[2]);
    } else {
      stream.WritePolygon(face.vi[0], face.vi[1], face.vi[2], face.vi[3]);
    }
  });
}

void WriteMesh(VrmlStream& stream, const ON_Mesh& mesh) {
  stream.Write(
      "geometry IndexedFaceSet {\n"
      "  ccw FALSE\n"
      "  convex TRUE\n"
      "  solid FALSE\n"
      "  coordIndex [\n");
  WriteFaces(stream, mesh);
  stream.Write("]\n  coord Coordinate { point [\n");
  WriteItems(stream, mesh.m_V, [&](const ON_3fPoint& vertex) {
    const ON_3fPoint p = ToVrml(vertex);
    stream.WriteNumbers(p.x, p.y, p.z);
  });
  stream.Write("  ] }\ntexCoord TextureCoordinate { point [\n");
  WriteItems(stream, mesh.m_T, [&](const ON_2fPoint& st) { stream.WriteNumbers(st.x, st.y); });
  stream.Write("  ]\n}\n } # geometry\n");
}

}  // namespace

void WriteShape(VrmlStream& stream, const CRhinoObject& object, std::string_view mapPattern) {
  stream.Write("Shape {");
  WriteAppearance(stream, BakedMapFileName(mapPattern, object));
  const CRhinoObject* const objects[] = {&object};
  std::vector<CRhinoObjRef> meshes;
  RhinoGetRenderMeshes(objects, meshes);
  for (const CRhinoObjRef& ref : meshes) {
    const ON_Mesh* mesh = ref.Mesh();
    if (mesh == nullptr || mesh->FaceCount() == 0 || !mesh->HasValidFaceIndices()) continue;
    if (mesh->HasTextureCoordinates()) WriteMesh(stream, *mesh);
  }
  stream.Write("} # shape\n");
}

}  // namespace orv
