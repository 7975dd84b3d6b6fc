#include "jobs/write_archive_command.h"

#include "host/command/get_option.h"
#include "jobs/scene_file.h"

namespace orv {

CCommandOrvWriteArchive::CCommandOrvWriteArchive(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "33ecff0d-ddab-44f2-a714-683723c31689"_uuid, "OrvWriteArchive",
          "Writes the selected objects to a RIB archive.",
          "Archive names the file; $ORVHOME at its start is that environment variable. Materials\n"
          "tells whether materials are written. Enter writes the file. Select the objects "
          "first.\n") {}

CommandResult CCommandOrvWriteArchive::AskForOptions(CRhinoCommandContext& context,
                                                     RenderSettings& settings) const {
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Write Archive ");
  get.AcceptNothing();
  for (;;) {
    get.ClearCommandOptions();
    const int archive = get.AddCommandOption("Archive", settings.RibName);
    if (!settings.RibName.empty()) {
      get.AddCommandOptionToggle("Materials", "No", "Yes", &settings.WriteMaterials);
    }
    const CRhinoGet::Result result = get.GetOption();
    if (result == CRhinoGet::Result::nothing) return CommandResult::success;
    if (result == CRhinoGet::Result::cancel) return CommandResult::cancel;
    if (result != CRhinoGet::Result::option) return CommandResult::failure;
    if (get.OptionIndex() != archive) continue;
    const CommandResult asked =
        AskForFile(context, kArchiveQuestion, PlugIn().User(), settings.RibName);
    if (asked != CommandResult::success) return asked;
  }
}

CommandResult CCommandOrvWriteArchive::RunCommand(CRhinoCommandContext& context) {
  RenderSettings settings = PlugIn().LoadSettings();
  settings.RibName.clear();
  const CommandResult asked = AskForOptions(context, settings);
  if (asked != CommandResult::success) return asked;
  settings.Selected = true;
  settings.ArchiveOnly = true;
  settings.WriteCamera = false;
  settings.WriteDisplay = false;
  // What goes wrong is told by the export.
  static_cast<void>(WriteSceneFile(PlugIn(), context.m_doc, settings));
  return CommandResult::success;
}

}  // namespace orv
