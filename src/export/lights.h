#pragma once

#include "export/object_list.h"
#include "export/rib_writer.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"

namespace orv {

// The document's lights, those that are visible and switched on; an interactive session has the
// switched-off ones, too. The stream is tested before each light: false when it has an error.
[[nodiscard]] bool WriteLights(RibWriter& writer, const ObjectList& objects,
                               const RenderSettings& settings, const IprSettings* iprSettings);

}  // namespace orv
