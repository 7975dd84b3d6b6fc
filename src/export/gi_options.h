#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"

namespace orv {

// The space of the environment of global illumination, what bounces and what surrounds the scene,
// and the caches. The light itself is WriteGlobalLight's.
void WriteGiOptions(RibWriter& writer, const RenderSettings& settings);

}  // namespace orv
