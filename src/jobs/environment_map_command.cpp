#include "jobs/environment_map_command.h"

#include "interactive/background_updates.h"

namespace orv {

CCommandOrvEnvironmentMap::CCommandOrvEnvironmentMap(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "3a0eb2bd-f57a-4735-be3d-ee4a85b0a110"_uuid, "OrvEnvironmentMap",
                  "Sets one map as background of the image, of reflections and of global "
                  "illumination.",
                  "Asks for the image file.\n") {}

CommandResult CCommandOrvEnvironmentMap::AskForMap(CRhinoCommandContext& context,
                                                   std::string& map) const {
  if (!context.IsInteractive()) return AskForFileName(context, "Environment map file name", map);
  const bool picked =
      PickFileToOpen(context, kEnvironmentMapPicker, PlugIn().User().EnvironmentDir, map);
  return picked ? CommandResult::success : CommandResult::failure;
}

CommandResult CCommandOrvEnvironmentMap::RunCommand(CRhinoCommandContext& context) {
  std::string map;
  const CommandResult asked = AskForMap(context, map);
  if (asked != CommandResult::success) return asked;
  RenderSettings settings = PlugIn().LoadSettings();
  settings.GiBgMap = map;
  settings.ReflectionBgMap = map;
  settings.ImageBgMap = map;
  PlugIn().StoreSettings(settings);
  // The ambient light goes by the mode of the background here: it follows in a scene with ambient
  // light whose background is a map.
  InteractiveRender& live = PlugIn().Live();
  live.SendAmbient({settings.GiBgMode, settings.GiBgColorIntensity, settings.GiBgColor,
                    settings.GiBgMapIntensity, settings.GiBgBlur, settings.GiBgMap});
  live.SendImager(ImagerUpdateOf(settings));
  live.SendReflection(ReflectionUpdateOf(settings));
  return CommandResult::success;
}

}  // namespace orv
