#pragma once

#include "export/object_material.h"
#include "export/rib_writer.h"
#include "settings/render_settings.h"

class CRhinoDoc;

namespace orv {

// Where the objects of an export go, and what all of them share.
struct ObjectStream {
  RibWriter& Writer;
  const CRhinoDoc& Doc;
  const RenderSettings& Settings;
  SceneMaterials& Materials;
  // Objects are named by their runtime serial numbers.
  bool UseObjectNumbers = false;
};

}  // namespace orv
