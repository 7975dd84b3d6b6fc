#pragma once

#include <string>

#include "jobs/file_picker.h"
#include "jobs/orv_command.h"

namespace orv {

// The dialog for the file.
inline constexpr FilePicker kVrmlPicker{"Export Vrml", "VRML Files (*.wrl);*.wrl;All Files;*.*;"};

// OrvExportVrml: writes the model with its baked maps as a VRML file.
class CCommandOrvExportVrml : public COrvCommand {
 public:
  explicit CCommandOrvExportVrml(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
