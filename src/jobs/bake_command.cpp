#include "jobs/bake_command.h"

#include <array>
#include <string>
#include <tuple>

#include "export/output_file.h"
#include "host/command/get_option.h"
#include "host/document/app.h"
#include "host/system/text.h"
#include "jobs/job_files.h"
#include "jobs/process_launch.h"
#include "jobs/render_start.h"
#include "jobs/scene_file.h"
#include "settings/bake_pass.h"
#include "settings/settings_store.h"

namespace orv {
namespace {

constexpr std::array<std::string_view, 6> kMeshModes{"Color",   "Occlusion",    "Indirect",
                                                     "Diffuse", "DiffuseLight", "UnlitColor"};

void AddOptions(CRhinoGetOption& get, BakeSettings& bake, RenderSettings& settings) {
  get.AddCommandOptionToggle("BakeMesh", "No", "Yes", &settings.BakeMesh);
  get.AddCommandOptionNumber("EdgeLength", &bake.BakeEdgeLength, "Max edge length ", 0, 10000);
  get.AddCommandOptionNumber("Gamma", &bake.BakeGamma, "Gamma ", 0.1, 10);
  get.AddCommandOptionList("MeshMode", kMeshModes, &bake.BakeMeshMode);
  get.AddCommandOptionToggle("MeshNormals", "No", "Yes", &bake.BakeNormals);
  get.AddCommandOptionToggle("MeshTexCoords", "No", "Yes", &bake.BakeTexCoords);
  get.AddCommandOptionToggle("Selected", "No", "Yes", &settings.Selected);
  get.AddCommandOptionNumber("TexelSize", &bake.BakeTexelSize, "Texel size ", 0.00001, 10000);
}

CommandResult AskForOptions(CRhinoCommandContext& context, BakeSettings& bake,
                            RenderSettings& settings) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Orv Bake ");
  get.AcceptNothing();
  for (;;) {
    get.ClearCommandOptions();
    AddOptions(get, bake, settings);
    const CRhinoGet::Result result = get.GetOption();
    if (result == CRhinoGet::Result::nothing) return CommandResult::success;
    if (result == CRhinoGet::Result::cancel) return CommandResult::cancel;
    if (result != CRhinoGet::Result::option) return CommandResult::failure;
  }
}

// The options whose change is kept in the document, and with it that of all others.
auto KeptOptions(const BakeSettings& bake) {
  return std::tuple(bake.BakeEdgeLength, bake.BakeMeshMode, bake.BakeNormals, bake.BakeTexCoords);
}

void MakeBakePass(const BakeSettings& bake, RenderSettings& settings) {
  // A file of its own beside the scene's.
  settings.RibName = AppendToBaseName(settings.RibName, "_bake");
  settings.OrvShow = false;
  settings.Outline = false;
  settings.AnimMode = 0;
  settings.DofEnable = false;
  settings.UseExtraChannels = false;
  settings.BakeEnable = true;
  CopyBakeSettings(bake, settings);
}

// True when the scene is written and there is something to bake.
bool WriteBakeScene(CSceneOutPlugIn& plugIn, CRhinoDoc& doc, RenderSettings& settings) {
  return WriteSceneFile(plugIn, doc, settings) &&
         (settings.BakeMesh || settings.BakeDisplayCount >= 1);
}

bool StartBake(const RenderSettings& settings) {
  const int priority = settings.LowPriority ? -1 : 0;
  const std::string scene = OutputFileName(settings.RibName, settings.FrameNumber);
  const std::string commandLine =
      host::Format("bakeorv.exe -p %d -pri %d \"%s\"", settings.Threads, priority, scene.c_str());
  return FitsCommandLine(scene) &&
         RunDetachedProcess(commandLine, WorkingFolderOf(scene), true, true);
}

void PrintBaking(const RenderSettings& settings) {
  RhinoApp().Print(settings.BakeMesh ? "Baking meshes\n"
                                     : host::Format("Baking %d maps with %d thread(s)\n",
                                                    settings.BakeDisplayCount, settings.Threads));
}

}  // namespace

CCommandOrvBake::CCommandOrvBake(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "e1c0a7d4-5f38-4c16-9d2b-7a80f4b3c965"_uuid, "OrvBake",
          "Bakes light and colours into image maps or meshes.",
          "BakeMesh chooses meshes instead of maps. For meshes, EdgeLength is the longest edge\n"
          "(0 for any), MeshMode what is stored, MeshNormals and MeshTexCoords whether these are\n"
          "kept; a change of one of them is kept in the document. For maps, TexelSize is the size\n"
          "of a texel in model units, and Gamma that of the maps. Selected=Yes bakes the selected\n"
          "objects only. Enter writes the scene, with _bake at the end of its name, and starts\n"
          "bakeorv.\n") {}

CommandResult CCommandOrvBake::RunCommand(CRhinoCommandContext& context) {
  RenderSettings settings = PlugIn().LoadSettings();
  BakeSettings bake = LoadBakeSettings(PlugIn().UserStrings());
  settings.Selected = false;
  const auto kept = KeptOptions(bake);
  const CommandResult asked = AskForOptions(context, bake, settings);
  if (asked != CommandResult::success) return asked;
  if (KeptOptions(bake) != kept) StoreBakeSettings(bake, PlugIn().UserStrings());
  MakeBakePass(bake, settings);
  if (!WriteBakeScene(PlugIn(), context.m_doc, settings)) return CommandResult::nothing;
  if (!StartBake(settings)) {
    RhinoApp().Print("Error - failed to start BakeOrv render process.\n");
    return CommandResult::failure;
  }
  PrintBaking(settings);
  return CommandResult::success;
}

}  // namespace orv
