#pragma once

#include <string>
#include <string_view>

#include "host/command/command.h"
#include "host/document/doc.h"

namespace orv {

// What a VRML file takes of the settings.
struct VrmlLook {
  ON_Color Sky;
  // The pattern of the names of baked maps.
  std::string_view MapPattern;
};

// Writes the perspective views, and all breps and meshes that aren't hidden, as a VRML 2.0 file.
//
// Failure, with a message, when the file can't be opened. Cancel when the user asked to interrupt.
// A write that fails, as on a full disk, is told but counts as success. In all these cases an older
// file of the name is back in its place, and nothing of a new one is left.
CommandResult ExportVrml(const std::string& path, CRhinoDoc& doc, const VrmlLook& look);

}  // namespace orv
