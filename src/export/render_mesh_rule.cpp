#include "export/render_mesh_rule.h"

#include <algorithm>

#include "host/document/app.h"

namespace orv {
namespace {

// The object's word and the scene's.
enum : int { kNurbs = 0, kAsNeeded = 1, kMesh = 2 };
constexpr int kPacked = 2;

bool HasMapping(const CRhinoObject& object) {
  const std::vector<ON_MappingRef>& refs = object.Attributes().m_mapping_refs;
  return std::any_of(refs.begin(), refs.end(), [](const ON_MappingRef& ref) {
    return ref.m_plugin_id == RhinoApp().GetDefaultRenderApp();
  });
}

bool HasPackedTexture(const ON_Brep& brep, const ON_MeshParameters& quality) {
  std::vector<std::shared_ptr<const ON_Mesh>> meshes;
  if (brep.GetMesh(ON_Brep::MeshType::render, meshes) > 0) {
    return meshes.front()->HasPackedTextureRegion();
  }
  return !brep.IsSurface() && quality.m_texture_range == kPacked;
}

}  // namespace

bool IsWrittenAsMesh(const CRhinoObject& object, const ON_Brep& brep,
                     const ObjectAttributes& attributes, const RenderSettings& settings,
                     bool wantsRenderMesh, const ON_MeshParameters& quality) {
  if (attributes.RenderMesh == kNurbs) return false;
  const int mode = attributes.RenderMesh == kMesh ? kMesh : settings.RenderMesh;
  if (mode != kAsNeeded) return mode == kMesh;
  return wantsRenderMesh && (HasPackedTexture(brep, quality) || HasMapping(object));
}

}  // namespace orv
