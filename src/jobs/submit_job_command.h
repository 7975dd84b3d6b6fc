#pragma once

#include "jobs/job_files.h"
#include "jobs/orv_command.h"

namespace orv {

// OrvSubmitJob: has frames rendered whose files were written before.
class CCommandOrvSubmitJob : public COrvCommand {
 public:
  explicit CCommandOrvSubmitJob(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
