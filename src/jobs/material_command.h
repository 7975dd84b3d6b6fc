#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvMaterial: edits the renderer's attributes of objects' materials.
class CCommandOrvMaterial : public COrvCommand {
 public:
  explicit CCommandOrvMaterial(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
