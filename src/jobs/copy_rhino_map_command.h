#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvCopyRhinoMap: puts the image of the host's material into the surface shader of objects.
class CCommandOrvCopyRhinoMap : public COrvCommand {
 public:
  explicit CCommandOrvCopyRhinoMap(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
