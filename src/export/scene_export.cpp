#include "export/scene_export.h"

#include <string>
#include <utility>
#include <vector>

#include "export/bake_maps.h"
#include "export/bake_mesh.h"
#include "export/camera.h"
#include "export/frame.h"
#include "export/global_light.h"
#include "export/image_output.h"
#include "export/light_channels.h"
#include "export/lights.h"
#include "export/object_list.h"
#include "export/object_walk.h"
#include "export/output_file.h"
#include "export/rib_writer.h"
#include "export/sampling.h"
#include "export/scene_options.h"
#include "export/surface_geometry.h"
#include "export/view_choice.h"
#include "host/document/app.h"
#include "host/system/file.h"
#include "host/system/interrupt.h"
#include "host/system/text.h"

namespace orv {
namespace {

// What one export works on.
struct Scene {
  CRhinoDoc& doc;
  const CRhinoView& view;
  ObjectList objects;
  // What a bake pass makes maps of; empty for any other export.
  ObjectList bakeObjects;
  RenderSettings& settings;
  const IprSettings* iprSettings;
  TextureConverter& textures;
};

void WriteOutput(RibWriter& writer, const Scene& scene) {
  RenderSettings& settings = scene.settings;
  if (settings.BakeEnable && !settings.BakeMesh) {
    WriteBakeOutput(writer, settings, scene.bakeObjects);
  } else if (settings.BakeMesh) {
    RibPrintf(writer, "Display \"bakemesh.tif\" \"framebuffer\" \"rgba\"\n");
  } else if (settings.WriteDisplay) {
    WriteImageOutput(writer, settings, CountLightChannels(settings, scene.objects));
  }
}

// What lights the scene. False when the stream has an error.
bool WriteLights(RibWriter& writer, const Scene& scene) {
  Lighting lighting;
  WriteGlobalLight(writer, scene.settings, scene.iprSettings, lighting);
  if (!WriteDocumentLights(writer, scene.objects, scene.settings, scene.iprSettings, lighting)) {
    return false;
  }
  WriteVisibility(writer, scene.settings, lighting);
  WriteDefaultLight(writer, scene.view, scene.settings, lighting);
  return true;
}

// The order of the file. False when the export has failed or was cancelled.
bool WriteScene(RibWriter& writer, const Scene& scene) {
  RenderSettings& settings = scene.settings;
  if (!settings.ArchiveOnly) {
    WriteHeaderComments(writer);
    BeginFrame(writer, settings);
    WriteSampling(writer, settings);
    WriteBakeMeshOptions(writer, settings);
    WriteExposure(writer, settings);
    WriteOutput(writer, scene);
    WriteTiles(writer, settings);
    WriteCamera(writer, scene.view, scene.doc, settings);
    WriteSceneOptions(writer, scene.doc, scene.view, scene.objects, settings, scene.iprSettings,
                      scene.textures);
    BeginWorld(writer);
    if (!WriteLights(writer, scene)) return false;
  }
  const std::vector<RIBRhinoObject> pieces = FlattenObjects(scene.objects);
  PrepareRenderMeshes(pieces, settings);
  BlockIds blocks;
  if (!WriteObjects(writer, scene.doc, pieces, settings, scene.iprSettings, scene.textures,
                    blocks)) {
    return false;
  }
  if (!settings.ArchiveOnly) {
    FreeArchives(writer, blocks);
    EndWorld(writer);
    EndFrame(writer, settings);
  }
  return true;
}

// Tells why the export has failed: the user has cancelled it, or else what `message` says.
void TellFailure(std::string_view message) {
  if (host::InterruptRequested()) message = "Export cancelled.\n";
  if (!message.empty()) RhinoApp().Print(message);
}

// Writes the file at `path`. False, with a message, when that fails.
bool WriteFile(const std::string& path, const Scene& scene, int reparameterize) {
  RibWriter writer(path);
  if (!writer.IsOpen()) {
    TellFailure(host::Format("Unable to save %s.\n", path.c_str()));
    return false;
  }
  writer.Reparameterize = reparameterize;
  writer.Gamma = scene.settings.RhinoGamma;
  RhinoApp().Print(host::Format("Writing %s\n", path.c_str()));
  if (!WriteScene(writer, scene)) {
    TellFailure({});
    return false;
  }
  if (!writer.Close()) {
    const std::string cause = host::LastSystemError();
    TellFailure(host::Format("Unable to write %s: %s.\n", path.c_str(), cause.c_str()));
    return false;
  }
  return true;
}

// Writes the file at `path` in the place of an older one, which stays when that fails.
bool ReplaceOlderFile(const std::string& path, const Scene& scene, int reparameterize) {
  OlderFile olderFile(path);
  if (!olderFile.IsOutOfTheWay()) {
    RhinoApp().Print(host::Format("Unable to save %s.\n", path.c_str()));
    return false;
  }
  if (WriteFile(path, scene, reparameterize)) {
    olderFile.Discard();
    scene.textures.ForgetFailures();
    return true;
  }
  if (!olderFile.Restore()) {
    RhinoApp().Print(
        host::Format("The older file is kept as %s.\n", olderFile.BackupPath().c_str()));
  }
  return false;
}

}  // namespace

int ExportSceneRib(std::string_view fileName, CRhinoDoc& doc,
                   const CRhinoFileWriteOptions& writeOptions, int reparameterize,
                   std::string_view /*ignoredText*/, RenderSettings& settings,
                   const IprSettings* iprSettings, TextureConverter& textures) {
  ObjectList objects = GatherObjects(doc, writeOptions.Mode(0), settings);
  ObjectList bakeObjects;
  if (settings.BakeEnable) bakeObjects = GatherBakeObjects(doc, writeOptions.Mode(0));
  const CRhinoView* view = ChooseView(doc, settings.ViewName);
  if (view == nullptr) {
    RhinoApp().Print("There is no view to export.\n");
    return 0;
  }
  settings.ViewportId = view->Viewport().ViewportId();
  const std::string path = OutputFileName(fileName, settings.FrameNumber);
  if (path.empty()) {
    RhinoApp().Print("Missing rib file name");
    return 0;
  }
  const Scene scene{doc,         *view,   std::move(objects), std::move(bakeObjects), settings,
                    iprSettings, textures};
  textures.BeginExport();
  const bool written = ReplaceOlderFile(path, scene, reparameterize);
  textures.EndExport();
  return written ? 1 : 0;
}

}  // namespace orv
