#include "jobs/settings_commands.h"

#include "host/document/app.h"
#include "settings/settings_file.h"

namespace orv {
namespace {

CommandResult ResultOfPicking(bool picked) {
  return picked ? CommandResult::success : CommandResult::failure;
}

CommandResult Reported(bool worked, std::string_view message) {
  if (worked) return CommandResult::success;
  RhinoApp().Print(message);
  return CommandResult::failure;
}

}  // namespace

CCommandOrvLoadSettings::CCommandOrvLoadSettings(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "7b71cc6a-0bd7-4017-8d83-5786898d9686"_uuid, "OrvLoadSettings",
                  "Replaces the document's render settings by those of a settings file.",
                  "Asks for the settings file (.ors).\n") {}

CommandResult CCommandOrvLoadSettings::RunCommand(CRhinoCommandContext& context) {
  std::string file;
  const CommandResult asked =
      context.IsInteractive() ? ResultOfPicking(PickFileToOpen(context, kLoadSettingsPicker,
                                                               PlugIn().User().SettingsDir, file))
                              : AskForFileName(context, "Load Orv settings from file name", file);
  if (asked != CommandResult::success) return asked;
  return Reported(LoadSettingsFile(file, PlugIn().UserStrings()), "Unable to load settings.\n");
}

CCommandOrvSaveSettings::CCommandOrvSaveSettings(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "fe663c60-8c70-442f-9026-2b3b4ff07aee"_uuid, "OrvSaveSettings",
                  "Writes the document's render settings to a settings file.",
                  "Asks for the settings file (.ors). An older file of that name is replaced.\n") {}

CommandResult CCommandOrvSaveSettings::RunCommand(CRhinoCommandContext& context) {
  std::string file;
  const CommandResult asked =
      context.IsInteractive() ? ResultOfPicking(PickFileToSave(context, kSaveSettingsPicker,
                                                               PlugIn().User().SettingsDir, file))
                              : AskForFileName(context, "Save Orv settings to file name", file);
  if (asked != CommandResult::success) return asked;
  return Reported(SaveSettingsFile(file, PlugIn().UserStrings()), "Unable to save settings.\n");
}

CCommandOrvResetSettings::CCommandOrvResetSettings(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "8fa6a70c-be78-4f99-a227-4ad7238fc88a"_uuid, "OrvResetSettings",
                  "Sets the document's render settings to their defaults.",
                  "Asks for nothing. Settings of the interactive render and of baking stay.\n") {}

CommandResult CCommandOrvResetSettings::RunCommand(CRhinoCommandContext&) {
  PlugIn().StoreSettings(RenderSettings{});
  return CommandResult::success;
}

}  // namespace orv
