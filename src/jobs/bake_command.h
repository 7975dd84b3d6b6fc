#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvBake: writes the scene of a bake pass beside the scene file and starts the bake front end.
class CCommandOrvBake : public COrvCommand {
 public:
  explicit CCommandOrvBake(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
