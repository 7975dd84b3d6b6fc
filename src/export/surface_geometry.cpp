#include "export/surface_geometry.h"

#include <unordered_set>
#include <utility>

#include "export/mesh_writer.h"
#include "export/nurbs_writer.h"
#include "export/render_mesh_rule.h"
#include "host/document/app.h"
#include "host/document/render_meshes.h"

namespace orv {
namespace {

constexpr int kMeshesEverywhere = 2;

bool WriteRenderMeshes(RibWriter& writer, const CRhinoObject& object,
                       const ObjectAttributes& attributes) {
  const CRhinoObject* const objects[] = {&object};
  std::vector<CRhinoObjRef> meshes;
  RhinoGetRenderMeshes(objects, meshes);
  for (const CRhinoObjRef& ref : meshes) {
    const ON_Mesh* mesh = ref.Mesh();
    if (mesh == nullptr || mesh->FaceCount() == 0) continue;
    if (!WriteMesh(writer, *mesh, attributes.WeldPolyVerts, false)) return false;
  }
  return true;
}

bool WriteNurbs(RibWriter& writer, const ON_Brep& brep) {
  ON_Brep copy = brep;
  // A trim that can't be given a curve of its own keeps what it has.
  static_cast<void>(copy.MakeValidForV2());
  return WriteBrep(writer, std::move(copy)) != 0;
}

}  // namespace

std::shared_ptr<const ON_Brep> BrepFormOf(const ON_Geometry& geometry) {
  if (!geometry.HasBrepForm()) return nullptr;
  const ON_Brep* own = ON_Brep::Cast(&geometry);
  if (own != nullptr) return {std::shared_ptr<const ON_Brep>(), own};
  return geometry.BrepForm();
}

void PrepareRenderMeshes(const std::vector<RIBRhinoObject>& objects,
                         const RenderSettings& settings) {
  if (settings.RenderMesh != kMeshesEverywhere) return;
  // A block's object is asked for once, not with each of its pieces.
  std::unordered_set<const CRhinoObject*> known;
  std::vector<const CRhinoObject*> breps;
  for (const RIBRhinoObject& record : objects) {
    if (!IsShown(record) || ON_Brep::Cast(record.Object->Geometry()) == nullptr) continue;
    if (known.insert(record.Object).second) breps.push_back(record.Object);
  }
  std::vector<CRhinoObjRef> meshes;
  RhinoGetRenderMeshes(breps, meshes);
}

bool WriteSurfaceGeometry(const ObjectStream& stream, const CRhinoObject& object,
                          const ON_Brep& brep, const ObjectAttributes& attributes,
                          bool wantsRenderMesh) {
  const bool isMesh =
      IsWrittenAsMesh(object, brep, attributes, stream.Settings, wantsRenderMesh,
                      RhinoApp().AppSettings().RenderMeshSettings().QualityMeshParameters());
  return isMesh ? WriteRenderMeshes(stream.Writer, object, attributes)
                : WriteNurbs(stream.Writer, brep);
}

}  // namespace orv
