#include "jobs/ipr_commands.h"

#include "host/command/get_object.h"
#include "host/command/get_option.h"
#include "host/document/app.h"
#include "host/system/text.h"
#include "jobs/job_files.h"
#include "jobs/render_start.h"
#include "jobs/scene_file.h"
#include "settings/settings_store.h"

namespace orv {
namespace {

constexpr std::string_view kNoSession = "No IPR session active.\n";

// Asks whether only the selected objects are wanted, until Enter.
CommandResult AskForSelected(CRhinoCommandContext& context, bool& selected) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Orv Ipr Start ");
  get.AcceptNothing();
  get.AddCommandOptionToggle("Selected", "No", "Yes", &selected);
  CRhinoGet::Result result = CRhinoGet::Result::option;
  while (result == CRhinoGet::Result::option) result = get.GetOption();
  if (result == CRhinoGet::Result::nothing) return CommandResult::success;
  return result == CRhinoGet::Result::cancel ? CommandResult::cancel : CommandResult::failure;
}

// The scene has a file of its own, and leaves out what an interactive renderer doesn't do or has
// its own values for.
void PrepareForIpr(const IprSettings& ipr, RenderSettings& settings) {
  settings.RibName = AppendToBaseName(settings.RibName, "_ipr");
  settings.OrvShow = true;
  settings.AnimMode = 0;
  settings.LowPriority = ipr.IprLowPriority;
  settings.Outline = false;
  settings.DofEnable = false;
  settings.UseExtraChannels = false;
  settings.EdgeMask = false;
  if (settings.DisplayMode != "rgba") settings.DisplayMode = "rgb";
  settings.ImagePrecision = 0;
  settings.ImageWidth = ipr.IprImageWidth;
  settings.ImageHeight = ipr.IprImageHeight;
  settings.ViewName = ipr.IprViewName;
  settings.Threads = ipr.IprThreads;
  if (ipr.IprForceMesh) settings.RenderMesh = 2;
}

std::string RendererArguments(const RenderSettings& settings) {
  constexpr int kLow = -1;
  return host::Format("-p %d -pri %d \"%s\"", settings.Threads, settings.LowPriority ? kLow : 0,
                      settings.RibName.c_str());
}

}  // namespace

CCommandOrvIprStart::CCommandOrvIprStart(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "46b5c15e-f2e0-4f35-9eae-3724f674c3fd"_uuid, "OrvIprStart",
                  "Starts an interactive render of the document.",
                  "Selected tells whether only the selected objects are shown. Enter writes the "
                  "scene,\n"
                  "starts tweakorv and connects to it; that takes up to ten seconds.\n") {}

CommandResult CCommandOrvIprStart::RunCommand(CRhinoCommandContext& context) {
  RenderSettings settings = PlugIn().LoadSettings();
  const IprSettings ipr = LoadIprSettings(PlugIn().UserStrings(), PlugIn().User());
  const CommandResult asked = AskForSelected(context, settings.Selected);
  if (asked != CommandResult::success) return asked;
  PrepareForIpr(ipr, settings);
  if (!WriteSceneFile(PlugIn(), context.m_doc, settings, &ipr)) return CommandResult::nothing;
  InteractiveRender& live = PlugIn().Live();
  live.SetScene({settings.GiMode, settings.ViewportId, settings.CameraMatrix, settings.CameraFov});
  if (!FitsCommandLine(settings.RibName) || !live.StartIprSession(RendererArguments(settings))) {
    RhinoApp().Print("Error - failed to start TweakOrv IPR process.\n");
    return CommandResult::nothing;
  }
  RhinoApp().Print(host::Format("Started IPR %dx%d with %d %s\n", settings.FormatWidth,
                                settings.FormatHeight, settings.Threads,
                                settings.Threads == 1 ? "thread" : "threads"));
  return CommandResult::success;
}

CCommandOrvIprEnd::CCommandOrvIprEnd(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "19c4af2b-e9c6-43c8-96f1-e9cf979e5c9d"_uuid, "OrvIprEnd",
                  "Ends the interactive render.", "Asks for nothing.\n") {}

CommandResult CCommandOrvIprEnd::RunCommand(CRhinoCommandContext&) {
  const bool isRunning = PlugIn().Live().IsRunning();
  RhinoApp().Print(isRunning ? "Stopping IPR session.\n" : kNoSession);
  PlugIn().Live().EndIprSession();
  return CommandResult::success;
}

CCommandOrvIprUpdateSelected::CCommandOrvIprUpdateSelected(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "6721987f-b4d6-4cf2-8890-e68f0da471d5"_uuid, "OrvIprUpdateSelected",
                  "Sends objects and lights to the interactive render anew.",
                  "Takes the selected objects, or asks for them by name, id or serial number.\n") {}

CommandResult CCommandOrvIprUpdateSelected::RunCommand(CRhinoCommandContext& context) {
  InteractiveRender& live = PlugIn().Live();
  if (!live.IsRunning()) {
    RhinoApp().Print(kNoSession);
    return CommandResult::success;
  }
  // Surfaces, polysurfaces and lights.
  constexpr unsigned kFilter = 0x200108;
  CRhinoGetObject get(context);
  get.SetCommandPrompt("Select objects");
  get.EnableClearObjectsOnEntry(false);
  get.SetGeometryFilter(kFilter);
  if (get.GetObjects(1, 0) != CRhinoGet::Result::object) return get.CommandResult();
  if (get.ObjectCount() == 0) return CommandResult::failure;
  for (const CRhinoObject* object : get.Objects()) {
    if (ON_Light::Cast(object->Geometry()) != nullptr) {
      live.SendLightTweak(*object, true);
    } else {
      live.SendObject(*object);
    }
  }
  return CommandResult::success;
}

CCommandOrvIprUpdateView::CCommandOrvIprUpdateView(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "d8392272-a988-42d8-9fce-93dcffd1e02f"_uuid, "OrvIprUpdateView",
                  "Sends the camera to the interactive render.", "Asks for nothing.\n") {}

CommandResult CCommandOrvIprUpdateView::RunCommand(CRhinoCommandContext& context) {
  InteractiveRender& live = PlugIn().Live();
  if (!live.IsRunning()) RhinoApp().Print(kNoSession);
  std::vector<CRhinoView*> views;
  context.m_doc.GetViewList(views, true, true);
  for (const CRhinoView* view : views) {
    if (view->Viewport().ViewportId() == live.ViewportId()) live.SendCamera(view->Viewport());
  }
  return CommandResult::success;
}

}  // namespace orv
