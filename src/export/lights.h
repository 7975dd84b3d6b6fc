#pragma once

#include "export/global_light.h"
#include "export/object_list.h"
#include "export/rib_writer.h"
#include "host/document/view.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"

// What lights the scene: after WorldBegin come the global light and then these, in this order.
namespace orv {

// The document's lights, those that are visible and switched on; an interactive session (where
// `iprSettings` isn't null) has the switched-off ones too, and takes the objects' serial numbers as
// light numbers. A light is left out when a number that its statement is made of is unset or no
// number. The stream is tested before each light: false when it has an error.
[[nodiscard]] bool WriteDocumentLights(RibWriter& writer, const ObjectList& objects,
                                       const RenderSettings& settings,
                                       const IprSettings* iprSettings, Lighting& lighting);

// The rays that see the objects.
void WriteVisibility(RibWriter& writer, const RenderSettings& settings, const Lighting& lighting);

// A light at the camera when the scene would have none.
void WriteDefaultLight(RibWriter& writer, const CRhinoView& view, const RenderSettings& settings,
                       const Lighting& lighting);

}  // namespace orv
