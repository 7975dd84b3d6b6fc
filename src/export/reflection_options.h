#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"

namespace orv {

// The depth and the bias of traced rays, and what reflections see beyond the scene.
void WriteReflectionOptions(RibWriter& writer, const RenderSettings& settings);

}  // namespace orv
