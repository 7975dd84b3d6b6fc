#pragma once

#include <string_view>

#include "host/geometry/on_point.h"
#include "settings/render_settings.h"

namespace orv {

// The size of a cube map's faces in pixels, for the height of the image that the settings ask for:
// a power of two below it.
int CubeFaceSize(int imageHeight);

// Writes the file that renders the six faces of a cube map around `center` and makes the map
// ImageName of them, to the settings' RibName. `worldFile` holds the scene. False when the map has
// no name or the file can't be written.
[[nodiscard]] bool WriteCubeMapRib(const RenderSettings& settings, ON_3dPoint center,
                                   std::string_view worldFile);

}  // namespace orv
