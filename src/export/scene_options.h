#pragma once

#include "export/object_list.h"
#include "export/rib_writer.h"
#include "host/document/doc.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"
#include "shading/texture_converter.h"

namespace orv {

// The options and default attributes of the frame, all that stands between the camera and the
// world. `view` is the chosen one; `iprSettings` is null unless an interactive session asks; images
// of the background are converted by `textures`.
void WriteSceneOptions(RibWriter& writer, const CRhinoDoc& doc, const CRhinoView& view,
                       const ObjectList& objects, const RenderSettings& settings,
                       const IprSettings* iprSettings, TextureConverter& textures);

}  // namespace orv
