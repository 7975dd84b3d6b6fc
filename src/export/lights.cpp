#include "export/lights.h"

#include "host/geometry/on_light.h"

namespace orv {

bool WriteLights(RibWriter& writer, const ObjectList& objects, const RenderSettings& settings,
                 const IprSettings* iprSettings) {
  if (!settings.UseLights) return true;
  for (const CRhinoObject* object : objects) {
    const ON_Light* light = ON_Light::Cast(object->Geometry());
    if (light == nullptr || !object->IsVisible()) continue;
    if (!light->m_bOn && iprSettings == nullptr) continue;
    if (writer.HasError()) return false;
    // The statements of one light.
  }
  return true;
}

}  // namespace orv
