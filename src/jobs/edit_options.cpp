#include "jobs/edit_options.h"

#include <algorithm>
#include <cstdlib>

#include "host/command/get_rectangle.h"
#include "host/command/get_string.h"
#include "host/document/view.h"
#include "host/system/text.h"
#include "jobs/edit_shader_call.h"
#include "settings/number_list.h"
#include "shading/shader_call.h"

namespace orv {
namespace {

std::string CropWindowText(const RenderSettings& settings) {
  const auto& window = settings.CropWindow;
  return host::Format("%g,%g,%g,%g", window[0], window[1], window[2], window[3]);
}

// A rectangle in a view, as fractions of the view's window.
CommandResult PickCropRegion(const OptionEdit& edit) {
  CRhinoGetRectangle get(edit.Context);
  get.SetCommandPrompt("Set render region rectangle in viewport");
  if (get.GetRectangle() != CRhinoGet::Result::rectangle) return get.CommandResult();
  const ON_Viewport::ScreenPort port = get.View()->Viewport().VP().GetScreenPort();
  const double width = std::max(std::abs(port.right - port.left), 1);
  const double height = std::max(std::abs(port.bottom - port.top), 1);
  const CRhinoWindowRectangle picked = get.Rectangle();
  edit.Settings.CropWindow = {picked.left / width, picked.right / width, picked.top / height,
                              picked.bottom / height};
  return CommandResult::success;
}

CommandResult TypeCropRegion(const OptionEdit& edit) {
  CRhinoGetString get(edit.Context);
  get.SetCommandPrompt("Crop region:");
  get.SetDefaultString(CropWindowText(edit.Settings));
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  ParseNumberList(get.String(), edit.Settings.CropWindow);
  return CommandResult::success;
}

CommandResult EditCropRegion(const OptionEdit& edit) {
  return edit.Context.IsInteractive() ? PickCropRegion(edit) : TypeCropRegion(edit);
}

std::string SurfaceName(const RenderSettings& settings) {
  return std::string(ShaderNameOf(settings.Surface));
}

// The scene's shader stays when its editing is given up; the options go on.
CommandResult EditSurface(const OptionEdit& edit) {
  std::string surface = edit.Settings.Surface;
  if (EditShaderCall(edit.Context, edit.PlugIn, "Surface", surface, nullptr) ==
      CommandResult::success) {
    edit.Settings.Surface = std::move(surface);
  }
  return CommandResult::success;
}

using R = RenderSettings;
using Row = OptionRow;

constexpr std::string_view kAnimations[] = {"Off", "Turntable", "FlyThrough", "Paths"};
constexpr std::string_view kBackgrounds[] = {"Transparent", "Color", "Gradient", "Wallpaper",
                                             "Environment"};
constexpr std::string_view kGatherModes[] = {"Off",           "Ambient",   "Indirect",
                                             "IndirectCache", "Occlusion", "OcclusionCache"};

constexpr Row kRows[] = {
    {"OrvShow", &R::OrvShow},
    {"Animate", Row::List{&R::AnimMode, kAnimations}},
    {"BgMode", Row::List{&R::ImageBgMode, kBackgrounds}},
    {"BgColor", Row::Color{&R::ImageBgColor, "Image background color "}},
    {"Colors", &R::Colors},
    {"ConvertTexture", &R::ConvertTextures},
    {"Crop", &R::UseCropWindow},
    {"CropRegion", Row::Action{CropWindowText, EditCropRegion}},
    {"Curves", &R::RenderCurves},
    {"Dimensions", &R::RenderDimensions},
    {"Displacable", &R::Displacable},
    {"DisplayGamma", Row::Number{&R::RibGamma, 0.1, 10, "Display gamma "}},
    {"Draft", &R::Draft},
    {"Enlarge", &R::Enlarge},
    {"Frame", Row::Integer{&R::FrameNumber, -1, 9999, "Frame number (-1 for no frame) "}},
    {"GiMode", Row::List{&R::GiMode, kGatherModes}},
    {"ImageHeight", Row::Integer{&R::ImageHeight, 0, 32000, "Image height (pixels) "}},
    {"ImageWidth", Row::Integer{&R::ImageWidth, 0, 32000, "Image width (pixels) "}},
    {"Lights", &R::UseLights},
    {"LowPriority", &R::LowPriority},
    {"Outline", &R::Outline},
    {"PixelSamples", Row::Integer{&R::PixelSamples, 1, 32, "Pixel samples (1-32) "}},
    {"ShadingSamples",
     Row::Integer{&R::ShadingSamples, 1, 64, "Shading samples per pixel (1-64) "}},
    {"SharpFilter", &R::SharpFilter},
    {"Sel", &R::Selected},
    {"Surface", Row::Action{SurfaceName, EditSurface}},
    {"Threads", Row::Integer{&R::Threads, 1, 24, "Number of rendering threads (1-24) "}},
    {"TraceDepth", Row::Integer{&R::ReflectionMaxDepth, 0, 31, "Trace depth (0-31) "}},
    {"WriteImage", &R::RenderToFile},
    {"RibName", Row::Name{&R::RibName, "Rib file name:"}},
    {"ImageName", Row::Name{&R::ImageName, "Rendered image file name:"}},
};

}  // namespace

const OptionTable kGeneralOptions = {"Orv Options", kRows};

CommandResult EditOptions(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                          RenderSettings& settings) {
  return EditOptionTable({context, plugIn, settings}, kGeneralOptions);
}

}  // namespace orv
