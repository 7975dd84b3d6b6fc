#pragma once

#include "export/object_list.h"
#include "export/rib_writer.h"
#include "settings/render_settings.h"

namespace orv {

// The outlines, when they are on. The widest ink has room for the widest object's own line width.
void WriteOutlineOptions(RibWriter& writer, const RenderSettings& settings,
                         const ObjectList& objects);

}  // namespace orv
