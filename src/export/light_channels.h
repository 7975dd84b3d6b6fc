#pragma once

#include "export/image_output.h"
#include "export/object_list.h"
#include "settings/render_settings.h"

namespace orv {

// The image has a channel for each group of lights.
bool WantsLightChannels(const RenderSettings& settings);

// How many lights feed each slot of the __lights array: lights that are visible and switched on
// count in the slot of their channel, also in an interactive session. All 0 without such channels.
LightChannelCounts CountLightChannels(const RenderSettings& settings, const ObjectList& objects);

}  // namespace orv
