#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"
#include "shading/texture_converter.h"

namespace orv {

// The space of the image's background and the imager that paints it: a colour, a gradient, a
// wallpaper or an environment. A map without a name paints nothing.
void WriteBackground(RibWriter& writer, const RenderSettings& settings, TextureConverter& textures);

}  // namespace orv
