#pragma once

#include <unordered_map>

#include "export/material_statements.h"
#include "export/rib_writer.h"
#include "host/document/object.h"
#include "settings/render_settings.h"

namespace orv {

// The materials of one export: each is read, and its images are converted, once. The document must
// not be edited meanwhile.
class SceneMaterials {
 public:
  // Both outlive this.
  SceneMaterials(const RenderSettings& settings, TextureConverter& textures)
      : settings_(settings), textures_(textures) {}

  // Whether the settings ask for materials at all.
  bool AreWritten() const { return settings_.WriteMaterials; }
  // Whether maps are baked, for which surfaces must be render meshes whatever their material.
  bool AreBakedIntoMaps() const { return settings_.BakeEnable && !settings_.BakeMesh; }
  const MaterialStatements& StatementsOf(const CRhinoObject& object);

 private:
  const RenderSettings& settings_;
  TextureConverter& textures_;
  std::unordered_map<const ON_Material*, MaterialStatements> statements_;
};

// Writes the identifier and the material of an object, where the settings ask for materials. With
// `useObjectNumber` the identifier is the runtime serial number, else the object's name. A light
// writes nothing. The result is WantsRenderMesh: the object must reach the
// renderer as a render mesh, because of its material, for a bake of maps, or as the material isn't
// known.
bool WriteObjectMaterial(RibWriter& writer, const CRhinoObject& object, SceneMaterials& materials,
                         bool useObjectNumber);

}  // namespace orv
