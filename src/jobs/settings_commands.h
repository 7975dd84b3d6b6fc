#pragma once

#include "jobs/orv_command.h"

namespace orv {

// OrvLoadSettings: replaces the document's settings by those of a settings file.
class CCommandOrvLoadSettings : public COrvCommand {
 public:
  explicit CCommandOrvLoadSettings(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

// OrvSaveSettings: writes the document's settings to a settings file.
class CCommandOrvSaveSettings : public COrvCommand {
 public:
  explicit CCommandOrvSaveSettings(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

// OrvResetSettings: puts the defaults over the document's render settings. Other keys stay.
class CCommandOrvResetSettings : public COrvCommand {
 public:
  explicit CCommandOrvResetSettings(CSceneOutPlugIn& plugIn);
  CommandResult RunCommand(CRhinoCommandContext& context) override;
};

}  // namespace orv
