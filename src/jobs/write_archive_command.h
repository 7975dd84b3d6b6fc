#pragma once

#include "jobs/file_picker.h"
#include "jobs/orv_command.h"

namespace orv {

// How the archive is asked for.
inline constexpr FileQuestion kArchiveQuestion{
    {"Write Archive", "RIB Files (*.rib);*.rib;All Files;*.*;"},
    FileQuestion::Dialog::save,
    "Archive",
    &UserValues::RibDir};

// OrvWriteArchive: writes the selected objects to a RIB file that other scenes can read in.
class CCommandOrvWriteArchive : public COrvCommand {
 public:
  explicit CCommandOrvWriteArchive(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;

 private:
  // Asks for the name and whether materials are written. Success when the user is done.
  CommandResult AskForOptions(CRhinoCommandContext& context, RenderSettings& settings) const;
};

}  // namespace orv
