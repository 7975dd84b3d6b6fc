#include "jobs/cube_map_command.h"

#include <optional>

#include "host/command/get_point.h"
#include "host/system/text.h"
#include "jobs/cube_map_rib.h"
#include "jobs/job_files.h"
#include "jobs/process_launch.h"
#include "jobs/render_start.h"
#include "jobs/scene_file.h"

namespace orv {
namespace {

constexpr std::size_t kMostWorldCharacters = 512;

// Writes the scene that all faces show. It has neither a camera nor an image of its own. The
// settings get its name.
bool WriteWorld(CSceneOutPlugIn& plugIn, CRhinoDoc& doc, const std::string& worldName,
                RenderSettings& settings) {
  settings.RibName = worldName;
  settings.WriteCamera = false;
  settings.WriteDisplay = false;
  settings.ImageHeight = CubeFaceSize(settings.ImageHeight);
  settings.ImageWidth = settings.ImageHeight;
  return WriteSceneFile(plugIn, doc, settings);
}

}  // namespace

CCommandOrvRenderCubeMap::CCommandOrvRenderCubeMap(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "eaa11899-72de-467f-b82b-2e43f36aa700"_uuid, "OrvRenderCubeMap",
                  "Renders the surroundings of a point as a cube map.",
                  "Asks for the point, typed as x,y,z. The map is the document's ImageName; its\n"
                  "faces are squares with a power of two below ImageHeight as their side.\n") {}

CommandResult CCommandOrvRenderCubeMap::RunCommand(CRhinoCommandContext& context) {
  RenderSettings settings = PlugIn().LoadSettings();
  CRhinoGetPoint get(context);
  get.SetCommandPrompt("Pick center point for cube map");
  get.AcceptNothing();
  if (get.GetPoint() != CRhinoGet::Result::point) return CommandResult::nothing;
  const std::optional<std::string> control = JobName(settings.RibName);
  if (!control) return CommandResult::failure;
  const std::string world = AppendToBaseName(settings.RibName, "_world");
  if (!WriteWorld(PlugIn(), context.m_doc, world, settings)) return CommandResult::nothing;
  settings.RibName = *control;
  if (!WriteCubeMapRib(settings, get.Point(), host::FirstCodePoints(world, kMostWorldCharacters))) {
    return CommandResult::failure;
  }
  RenderJob job;
  job.Scene = settings.RibName;
  job.WorkingFolder = WorkingFolderOf(settings.RibName);
  if (!StartRender(PlugIn().User(), settings, job)) return CommandResult::nothing;
  PrintRendering("6 maps at", settings);
  return CommandResult::success;
}

}  // namespace orv
