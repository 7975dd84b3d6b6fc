#pragma once

#include "interactive/background_statements.h"
#include "settings/render_settings.h"

namespace orv {

// What settings say of the surroundings: of the colour or the map, as their background mode says.
AmbientUpdate AmbientUpdateOf(const RenderSettings& settings);
ReflectionUpdate ReflectionUpdateOf(const RenderSettings& settings);
ImagerUpdate ImagerUpdateOf(const RenderSettings& settings);

}  // namespace orv
