#include "jobs/material_preview.h"

#include <string>

#include "export/rib_text.h"
#include "host/document/app.h"
#include "host/system/environment.h"
#include "host/system/file.h"
#include "host/system/text.h"
#include "jobs/plugin.h"
#include "jobs/process_launch.h"
#include "shading/preview_scene.h"

namespace orv {
namespace {

std::string TemporaryFile(std::string_view name) {
  std::string folder = host::EnvironmentValue("TEMP").value_or("\\");
  if (!folder.ends_with('/') && !folder.ends_with('\\')) folder += '\\';
  return ToRibPath(folder + std::string(name));
}

}  // namespace

void PrintedPreview::ShowPicture(std::string_view path) {
  RhinoApp().Print("Preview: " + std::string(path) + "\n");
}

MaterialPreview::MaterialPreview(CSceneOutPlugIn& plugIn, PreviewFront& front)
    : plug_in_(plugIn), front_(front) {
  // No material begins so: the first one is always rendered.
  last_.Transparency = 1;
}

void MaterialPreview::RenderPreview(const MaterialAttributes& current, bool isSwitchedOn) {
  const bool isRunning = plug_in_.Live().IsRunning();
  front_.EnablePreview(!isRunning);
  if (isRunning || !isSwitchedOn) return;
  if (current.Diffuse == last_.Diffuse && SameForPreview(current, last_, false)) return;
  last_ = current;
  const std::string scene = TemporaryFile("RhinoOrvPreview.rib");
  const std::string picture = TemporaryFile("RhinoOrvPreview.bmp");
  const RenderSettings settings = plug_in_.LoadSettings();
  if (!WritePreviewScene(scene, current, {settings.RhinoGamma, settings.TextureGamma},
                         settings.ConvertTextures, plug_in_.Textures())) {
    return;
  }
  const std::string command =
      host::Format("orv.exe -p %d -bs 28 -g %g -file \"%s\" \"%s\"", settings.Threads,
                   settings.RhinoGamma, picture.c_str(), scene.c_str());
  if (RunDetachedProcess(command, {}, false, false) && host::FileExists(picture)) {
    front_.ShowPicture(picture);
  }
}

}  // namespace orv
