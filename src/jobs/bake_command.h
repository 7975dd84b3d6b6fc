#pragma once

#include "jobs/orv_command.h"
#include "settings/bake_settings.h"

namespace orv {

// OrvBake: writes the scene of a bake pass beside the scene file and starts the bake front end.
class CCommandOrvBake : public COrvCommand {
 public:
  explicit CCommandOrvBake(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;

 private:
  // Writes the scene. Success when there is something to bake.
  CommandResult WriteScene(CRhinoCommandContext& context, RenderSettings& settings) const;
};

}  // namespace orv
