#pragma once

#include "export/rib_writer.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"

namespace orv {

// What is known of the scene's lights so far.
struct Lighting {
  // Lights that have taken a number.
  int LightCount = 0;
  // One of them casts shadows.
  bool ShadowUsed = false;
};

// The light that global illumination, occlusion or the ambient light is: number 0 of the stream.
// Ambient light counts as a light when it comes from a map or in an interactive session.
void WriteGlobalLight(RibWriter& writer, const RenderSettings& settings,
                      const IprSettings* iprSettings, Lighting& lighting);

}  // namespace orv
