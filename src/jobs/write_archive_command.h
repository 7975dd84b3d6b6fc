#pragma once

#include <string>

#include "jobs/file_picker.h"
#include "jobs/orv_command.h"

namespace orv {

// The dialog for the archive.
inline constexpr FilePicker kArchivePicker{"Write Archive",
                                           "RIB Files (*.rib);*.rib;All Files;*.*;"};

// OrvWriteArchive: writes the selected objects to a RIB file that other scenes can read in.
class CCommandOrvWriteArchive : public COrvCommand {
 public:
  explicit CCommandOrvWriteArchive(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;

 private:
  // Asks for the name and whether materials are written. Success when the user is done.
  CommandResult AskForOptions(CRhinoCommandContext& context, RenderSettings& settings) const;
  // Asks for the name alone. Success with the old name when a dialog was cancelled.
  CommandResult AskForArchive(CRhinoCommandContext& context, std::string& name) const;
};

}  // namespace orv
