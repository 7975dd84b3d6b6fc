#pragma once

#include <string>

#include "settings/render_settings.h"

class CRhinoDoc;

namespace orv {

// Writes the files of a sequence's frames, which all read one scene; the export of that scene is to
// follow. The settings' RibName, "a.rib", becomes that of the scene, "a_world.rib"; the frames are
// "a_0000.rib" and so on. When `allFile` isn't null it gets the path of a file that reads all
// frames, "a_all.rib", which is written, too. False when something can't be written, or, with a
// message, when a path of the camera is missing or RibName's folder is too long (JobName); the
// files that were written before stay.
[[nodiscard]] bool WriteAnimationFrames(CRhinoDoc& doc, RenderSettings& settings,
                                        std::string* allFile);

}  // namespace orv
