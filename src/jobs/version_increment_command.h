#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvVersionIncrement: adds one to the number that version suffixes are made with.
class CCommandOrvVersionIncrement : public COrvCommand {
 public:
  explicit CCommandOrvVersionIncrement(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
