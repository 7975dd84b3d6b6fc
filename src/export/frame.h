#pragma once

#include "export/rib_writer.h"
#include "settings/render_settings.h"

// What frames a scene file: its head, and the beginnings and ends of frame and world.
namespace orv {

// What the file is and who wrote it.
void WriteHeaderComments(RibWriter& writer);

// A numbered frame, when the settings have a frame number.
void BeginFrame(RibWriter& writer, const RenderSettings& settings);
void EndFrame(RibWriter& writer, const RenderSettings& settings);

void BeginWorld(RibWriter& writer);
void EndWorld(RibWriter& writer);

}  // namespace orv
