#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"

namespace orv {

// How finely the renderer samples pixels, shading and curved geometry.
void WriteSampling(RibWriter& writer, const RenderSettings& settings);

// The gamma of the image.
void WriteExposure(RibWriter& writer, const RenderSettings& settings);

// The size of the renderer's tiles, and their order when the image is shown while it renders.
void WriteTiles(RibWriter& writer, const RenderSettings& settings);

}  // namespace orv
