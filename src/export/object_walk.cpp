#include "export/object_walk.h"

#include "export/mesh_writer.h"
#include "host/geometry/on_mesh.h"
#include "host/system/interrupt.h"
#include "shading/object_attributes.h"

namespace orv {
namespace {

// The block of a mesh object. False when the mesh writer has failed.
bool WriteMeshObject(RibWriter& writer, const RIBRhinoObject& piece, const ON_Mesh& mesh) {
  RibPrintf(writer, "\n");
  RibPrintf(writer, "AttributeBegin\n");
  writer.Indent += 2;
  // Groups, material and attributes.
  if (mesh.FaceCount() > 0) {
    const ObjectAttributes attributes = ReadObjectAttributes(*piece.Object);
    if (!WriteMesh(writer, mesh, attributes.WeldPolyVerts, attributes.SubdivisionMesh)) {
      return false;
    }
  }
  writer.Indent -= 2;
  RibPrintf(writer, "AttributeEnd\n");
  return true;
}

bool WriteObject(RibWriter& writer, const RIBRhinoObject& piece) {
  const ON_Geometry* geometry = piece.Object->Geometry();
  if (geometry == nullptr || !piece.Object->IsVisible()) return true;
  // Surfaces.
  if (const ON_Mesh* mesh = ON_Mesh::Cast(geometry)) return WriteMeshObject(writer, piece, *mesh);
  // Curves, point clouds and points. Annotations.
  return true;
}

}  // namespace

std::vector<RIBRhinoObject> FlattenObjects(const ObjectList& objects) {
  std::vector<RIBRhinoObject> pieces;
  pieces.reserve(objects.size());
  for (const CRhinoObject* object : objects) {
    // Pieces of block placements.
    if (object->ObjectType() == ON_ObjectType::instance_reference) continue;
    pieces.emplace_back().Object = object;
  }
  return pieces;
}

bool WriteObjects(RibWriter& writer, const std::vector<RIBRhinoObject>& objects) {
  for (const RIBRhinoObject& object : objects) {
    if (host::InterruptRequested()) return false;
    if (writer.HasError()) return true;
    if (!WriteObject(writer, object)) return false;
  }
  return !host::InterruptRequested();
}

}  // namespace orv
