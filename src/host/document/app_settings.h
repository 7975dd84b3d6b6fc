#pragma once

#include "host/geometry/on_tables.h"

// What the application is set to.
class CRhinoAppSettings {
 public:
  CRhinoAppSettings();

  // The material of everything that has none of the document's: white, opaque, without shine or
  // name. Its index is -1.
  const ON_Material& DefaultMaterial() const { return default_material_; }

 private:
  ON_Material default_material_;
};
