#pragma once

#include "host/geometry/on_settings.h"
#include "host/geometry/on_tables.h"

// How the application makes render meshes.
class CRhinoAppRenderMeshSettings {
 public:
  // For meshes of high quality.
  const ON_MeshParameters& QualityMeshParameters() const { return quality_; }

 private:
  ON_MeshParameters quality_;
};

// What the application is set to.
class CRhinoAppSettings {
 public:
  CRhinoAppSettings();

  // The material of everything that has none of the document's: white, opaque, without shine or
  // name. Its index is -1.
  const ON_Material& DefaultMaterial() const { return default_material_; }
  const CRhinoAppRenderMeshSettings& RenderMeshSettings() const { return render_mesh_settings_; }

 private:
  ON_Material default_material_;
  CRhinoAppRenderMeshSettings render_mesh_settings_;
};
