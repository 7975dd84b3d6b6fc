#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvRenderCubeMap: renders what is to be seen around a point into the six faces of a map.
class CCommandOrvRenderCubeMap : public COrvCommand {
 public:
  explicit CCommandOrvRenderCubeMap(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
