#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"

namespace orv {

// What a pass that bakes into meshes stores: the longest edge, the lighting of BakeMeshMode, and
// the parameters that it leaves out. Nothing for any other export. The lighting changes Surface,
// RibGamma, Colors, UseLights or GiMode of `settings` for the sections that follow.
void WriteBakeMeshOptions(RibWriter& writer, RenderSettings& settings);

}  // namespace orv
