#pragma once

#include <string_view>

#include "host/command/command.h"

class CommandRegistry;
class CRhinoDoc;

// Writes the document, or only its selected objects, through the plug-in that writes files of the
// path's extension; "rib" is taken as the longer "orib". What went wrong, or that the file is
// written, is told in the command window. cancel after Ctrl-C.
CommandResult ExportFile(const CommandRegistry& registry, CRhinoDoc& doc, std::string_view path,
                         bool selected_only);
