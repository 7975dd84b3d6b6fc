#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"

namespace orv {

// Caustics, when they are on: the light that gathers their photons, how it does, and the photon
// file.
void WriteCausticOptions(RibWriter& writer, const RenderSettings& settings);

}  // namespace orv
