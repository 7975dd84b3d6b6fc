#include "jobs/version_increment_command.h"

#include "jobs/job_files.h"

namespace orv {

CCommandOrvVersionIncrement::CCommandOrvVersionIncrement(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "ccd7c50e-ff8b-4c5e-9e3b-bb89cdc3b257"_uuid, "OrvVersionIncrement",
                  "Adds one to the version number of scene and image names.",
                  "Asks for nothing.\n") {}

CommandResult CCommandOrvVersionIncrement::RunCommand(CRhinoCommandContext&) {
  IncrementVersion(PlugIn().User());
  return CommandResult::success;
}

}  // namespace orv
