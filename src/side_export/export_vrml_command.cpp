#include "side_export/export_vrml_command.h"

#include "settings/settings_store.h"
#include "side_export/vrml_export.h"

namespace orv {
namespace {

CommandResult AskForFile(CRhinoCommandContext& context, std::string& file) {
  if (!context.IsInteractive()) return AskForFileName(context, "Export model to VRML file", file);
  std::string folder;
  return PickFileToSave(context, kVrmlPicker, folder, file) ? CommandResult::success
                                                            : CommandResult::failure;
}

}  // namespace

CCommandOrvExportVrml::CCommandOrvExportVrml(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "9c4f6e18-2b7d-4d0a-8e53-f1a60b92c7d4"_uuid, "OrvExportVrml",
                  "Writes the model as a VRML file, with the maps that were baked of the objects.",
                  "Asks for the file (.wrl). An older file of that name is replaced.\n") {}

CommandResult CCommandOrvExportVrml::RunCommand(CRhinoCommandContext& context) {
  std::string file;
  const CommandResult asked = AskForFile(context, file);
  if (asked != CommandResult::success) return asked;
  const BakeSettings bake = LoadBakeSettings(PlugIn().UserStrings());
  const RenderSettings settings = PlugIn().LoadSettings();
  return ExportVrml(file, context.m_doc, {settings.ImageBgColor, bake.BakeImageName});
}

}  // namespace orv
