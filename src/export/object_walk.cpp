#include "export/object_walk.h"

#include "export/attribute_block.h"
#include "export/attribute_scope.h"
#include "export/mesh_writer.h"
#include "export/object_material.h"
#include "host/geometry/on_mesh.h"
#include "host/system/interrupt.h"
#include "shading/object_attributes.h"

namespace orv {
namespace {

constexpr int kFirstToonId = 100000;
constexpr int kToonIdPerObject = 2;

// Writes the blocks of one export's objects.
class ObjectWriter {
 public:
  ObjectWriter(RibWriter& writer, const CRhinoDoc& doc, const RenderSettings& settings,
               bool useObjectNumbers, TextureConverter& textures)
      : writer_(writer),
        doc_(doc),
        settings_(settings),
        useObjectNumbers_(useObjectNumbers),
        materials_(settings, textures) {}

  // False when a writer has failed.
  [[nodiscard]] bool Write(const RIBRhinoObject& piece) {
    const ON_Geometry* geometry = piece.Object->Geometry();
    if (geometry == nullptr || !piece.Object->IsVisible()) return true;
    if (geometry->HasBrepForm()) return WriteSurface(*piece.Object);
    if (const ON_Mesh* mesh = ON_Mesh::Cast(geometry)) return WriteMeshObject(*piece.Object, *mesh);
    // Curves, point clouds and points. Annotations.
    return true;
  }

 private:
  void BeginBlock() {
    RibPrintf(writer_, "\n");
    BeginAttributes(writer_);
  }

  // What stands in the block before the geometry. True when an archive takes the geometry's place.
  bool WriteLook(const CRhinoObject& object, const ObjectAttributes& attributes) {
    // Maps of a bake pass.
    WriteGroups(writer_, object, doc_);
    // Whether a surface must be a render mesh doesn't matter yet.
    static_cast<void>(WriteObjectMaterial(writer_, object, materials_, useObjectNumbers_));
    return WriteAttributeBlock(writer_, object, attributes, settings_);
  }

  bool WriteSurface(const CRhinoObject& object) {
    BeginBlock();
    if (settings_.Outline && settings_.ToonId == kToonIdPerObject) {
      RibPrintf(writer_, "Attribute \"toon\" \"id\" [%d]\n", nextToonId_++);
    }
    // Render meshes or NURBS follow, unless an archive has taken their place.
    static_cast<void>(WriteLook(object, ReadObjectAttributes(object)));
    EndAttributes(writer_);
    return true;
  }

  bool WriteMeshObject(const CRhinoObject& object, const ON_Mesh& mesh) {
    const ObjectAttributes attributes = ReadObjectAttributes(object);
    BeginBlock();
    const bool isReplaced = WriteLook(object, attributes);
    if (!isReplaced && mesh.FaceCount() > 0 &&
        !WriteMesh(writer_, mesh, attributes.WeldPolyVerts, attributes.SubdivisionMesh)) {
      return false;
    }
    EndAttributes(writer_);
    return true;
  }

  RibWriter& writer_;
  const CRhinoDoc& doc_;
  const RenderSettings& settings_;
  bool useObjectNumbers_;
  SceneMaterials materials_;
  int nextToonId_ = kFirstToonId;
};

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

bool WriteObjects(RibWriter& writer, const CRhinoDoc& doc,
                  const std::vector<RIBRhinoObject>& objects, const RenderSettings& settings,
                  const IprSettings* iprSettings, TextureConverter& textures) {
  ObjectWriter objectWriter(writer, doc, settings, iprSettings != nullptr, textures);
  for (const RIBRhinoObject& object : objects) {
    if (host::InterruptRequested()) return false;
    if (writer.HasError()) return true;
    if (!objectWriter.Write(object)) return false;
  }
  return !host::InterruptRequested();
}

}  // namespace orv
