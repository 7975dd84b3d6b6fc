#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvObject: edits the renderer's attributes of objects.
class CCommandOrvObject : public COrvCommand {
 public:
  explicit CCommandOrvObject(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
