#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvSurface: edits the surface shader of objects' materials.
class CCommandOrvSurface : public COrvCommand {
 public:
  explicit CCommandOrvSurface(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
