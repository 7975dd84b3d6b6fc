#pragma once

#include "host/document/doc.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"

namespace orv {

class CSceneOutPlugIn;

// Writes the document to the file that the settings' RibName names, as ExportSceneRib does for a
// job; `iprSettings` is null unless an interactive session asks. False, with a message, when that
// fails.
[[nodiscard]] bool WriteSceneFile(CSceneOutPlugIn& plugIn, CRhinoDoc& doc, RenderSettings& settings,
                                  const IprSettings* iprSettings = nullptr);

}  // namespace orv
