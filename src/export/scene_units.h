#pragma once

#include "export/rib_writer.h"
#include "host/document/doc.h"
#include "settings/render_settings.h"

namespace orv {

// What a model unit is in metres, and the illuminance that counts as 1.
void WriteSceneUnits(RibWriter& writer, const CRhinoDoc& doc, const RenderSettings& settings);

}  // namespace orv
