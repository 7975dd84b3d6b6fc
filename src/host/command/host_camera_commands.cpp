#include <array>

#include "host/command/get_option.h"
#include "host/command/get_point.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"

namespace {

constexpr std::array<std::string_view, 2> kProjections = {"Parallel", "Perspective"};
constexpr double kShortestLens = 1;
constexpr double kLongestLens = 10000;

// What the command changes, as the options show it.
struct Camera {
  ON_3dPoint location;
  ON_3dPoint target;
  double lens = 50;
  // The position in kProjections.
  int projection = 0;
};

Camera CameraOf(const CRhinoViewport& viewport) {
  const ON_Viewport& vp = viewport.VP();
  const bool is_perspective = vp.Projection() == ON_Viewport::View::perspective;
  Camera camera{vp.CameraLocation(), viewport.Target()};
  camera.projection = is_perspective ? 1 : 0;
  if (is_perspective) camera.lens = vp.Camera35mmLensLength();
  return camera;
}

// Asks for the camera until Enter.
CommandResult AskForCamera(CRhinoCommandContext& context, Camera& camera) {
  for (;;) {
    CRhinoGetOption get(context);
    get.SetCommandPrompt("Camera of the view");
    get.AcceptNothing();
    const int location = get.AddCommandOption("Location", PointText(camera.location));
    const int target = get.AddCommandOption("Target", PointText(camera.target));
    get.AddCommandOptionList("Projection", kProjections, &camera.projection);
    if (camera.projection == 1) {
      get.AddCommandOptionNumber("Lens", &camera.lens, "Length of the lens (mm)", kShortestLens,
                                 kLongestLens);
    }
    const CRhinoGet::Result result = get.GetOption();
    if (result == CRhinoGet::Result::nothing) return CommandResult::success;
    if (result != CRhinoGet::Result::option) return get.CommandResult();
    CommandResult asked = CommandResult::success;
    if (get.OptionIndex() == location) asked = AskForPoint(context, "Location", camera.location);
    if (get.OptionIndex() == target) asked = AskForPoint(context, "Target", camera.target);
    if (asked != CommandResult::success) return asked;
  }
}

CommandResult RunViewCamera(CRhinoCommandContext& context) {
  CRhinoView* view = context.m_doc.ActiveView();
  if (view == nullptr) {
    RhinoApp().Print("There is no view.\n");
    return CommandResult::failure;
  }
  CRhinoViewport& viewport = view->Viewport();
  const Camera before = CameraOf(viewport);
  Camera camera = before;
  const CommandResult asked = AskForCamera(context, camera);
  if (asked != CommandResult::success) return asked;
  const bool has_moved = camera.location != before.location || camera.target != before.target;
  if (has_moved && !viewport.SetCamera(camera.location, camera.target)) {
    RhinoApp().Print("The camera must stand apart from its target.\n");
    return CommandResult::failure;
  }
  viewport.SetProjection(camera.projection == 1 ? ON_Viewport::View::perspective
                                                : ON_Viewport::View::parallel);
  const bool has_lens = camera.projection == 1 && camera.lens != before.lens;
  if (has_lens && !viewport.SetCamera35mmLensLength(camera.lens)) {
    RhinoApp().Print("The view can't have this lens.\n");
    return CommandResult::failure;
  }
  viewport.IncludeInDepth(context.m_doc.BoundingBox());
  view->Redraw();
  return CommandResult::success;
}

}  // namespace

std::vector<HostCommand::Row> CameraCommands() {
  return {
      {"540bfe81-b4de-43df-9f73-db10c26537a8"_uuid, "ViewCamera",
       "Changes the camera of the active view.",
       "Location and Target ask for a point (x,y,z); Projection is Parallel or Perspective; Lens "
       "is\n"
       "the length in millimetres that a 35 mm camera would have. Enter moves the camera. Undo "
       "doesn't\n"
       "take it back.\n",
       RunViewCamera, false},
  };
}
