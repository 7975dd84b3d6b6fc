#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvLoadBakedMaps: gives the materials of objects the maps that a bake pass has made of them.
class CCommandOrvLoadBakedMaps : public COrvCommand {
 public:
  explicit CCommandOrvLoadBakedMaps(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
