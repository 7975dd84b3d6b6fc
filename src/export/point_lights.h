#pragma once

#include "export/light_source.h"
#include "export/rib_writer.h"

namespace orv {

// Lights without an extent.
void WriteSpotLight(RibWriter& writer, const LightSource& source);
void WritePointLight(RibWriter& writer, const LightSource& source);
void WriteDirectionalLight(RibWriter& writer, const LightSource& source);

}  // namespace orv
