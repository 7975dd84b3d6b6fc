#pragma once

#include "jobs/file_picker.h"
#include "jobs/orv_command.h"

namespace orv {

// The dialog for the map.
inline constexpr FilePicker kEnvironmentMapPicker{"Choose Environment Map", kImageFilter};

// OrvEnvironmentMap: makes one map the background of the gather, of reflections and of the image.
class CCommandOrvEnvironmentMap : public COrvCommand {
 public:
  explicit CCommandOrvEnvironmentMap(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;

 private:
  CommandResult AskForMap(CRhinoCommandContext& context, std::string& map) const;
};

}  // namespace orv
