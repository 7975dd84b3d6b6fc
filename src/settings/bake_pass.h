#pragma once

#include "settings/bake_settings.h"
#include "settings/render_settings.h"

namespace orv {

// Copies the settings of baking over the fields of `settings` that a bake pass works from. Shading
// samples are cut to a whole number, which is 0 for less than one. Whether it is a bake pass, and
// of which kind (BakeEnable, BakeMesh), is left to the caller.
void CopyBakeSettings(const BakeSettings& bake, RenderSettings& settings);

}  // namespace orv
