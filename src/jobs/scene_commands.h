#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvExport: writes the scene file, and those of a sequence's frames.
class CCommandSceneOut : public COrvCommand {
 public:
  explicit CCommandSceneOut(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

// OrvRender: writes the same files and has them rendered.
class CCommandOrvRender : public COrvCommand {
 public:
  explicit CCommandOrvRender(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
