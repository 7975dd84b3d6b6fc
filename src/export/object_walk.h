#pragma once

#include <vector>

#include "export/block_archives.h"
#include "export/object_pieces.h"
#include "export/rib_writer.h"
#include "settings/ipr_settings.h"
#include "settings/render_settings.h"
#include "shading/texture_converter.h"

namespace orv {

// Writes the block of each visible object, each with a blank line before it: groups, material,
// attributes and geometry. The objects of blocks become archives, which `blocks` gets to know. An
// interactive session (`iprSettings` not null) names objects by their runtime serial numbers. False
// when a writer has failed or the user has cancelled, even during the last object; an error of the
// stream ends the walk and is left to the closing.
[[nodiscard]] bool WriteObjects(RibWriter& writer, const CRhinoDoc& doc,
                                const std::vector<RIBRhinoObject>& objects,
                                const RenderSettings& settings, const IprSettings* iprSettings,
                                TextureConverter& textures, BlockIds& blocks);

}  // namespace orv
