#pragma once

#include "jobs/file_picker.h"
#include "jobs/orv_command.h"

namespace orv {

// The dialogs for settings files.
inline constexpr std::string_view kSettingsFilter =
    "Orv Rhino Settings (*.ors);*.ors;All Files;*.*;";
inline constexpr FilePicker kLoadSettingsPicker{"Load Orv Settings", kSettingsFilter};
inline constexpr FilePicker kSaveSettingsPicker{"Save Orv Settings", kSettingsFilter};

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
