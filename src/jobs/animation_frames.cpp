#include "jobs/animation_frames.h"

#include <optional>

#include "export/rib_text.h"
#include "host/document/app.h"
#include "host/system/interrupt.h"
#include "host/system/text.h"
#include "jobs/frame_camera.h"
#include "jobs/job_files.h"

namespace orv {
namespace {

constexpr int kFlyThrough = 2;
constexpr int kPaths = 3;

bool HasFrameCamera(const RenderSettings& settings) {
  return settings.AnimMode == kFlyThrough || settings.AnimMode == kPaths;
}

const ON_Curve* FindPath(CRhinoDoc& doc, const std::string& name, const char* message) {
  const ON_Curve* curve = FindNamedCurve(doc, name);
  if (curve == nullptr) RhinoApp().Print(message);
  return curve;
}

// The camera of the frames; none, with a message, when a path is missing.
std::optional<FrameCamera> MakeFrameCamera(CRhinoDoc& doc, const RenderSettings& settings) {
  const ON_Curve* path = FindPath(doc, settings.CameraPath, "Unable to find named camera path.\n");
  if (path == nullptr) return std::nullopt;
  const ON_Curve* target = nullptr;
  if (settings.AnimMode == kPaths) {
    target = FindPath(doc, settings.TargetPath, "Unable to find named target path.\n");
    if (target == nullptr) return std::nullopt;
  }
  return FrameCamera(*path, target, settings,
                     doc.Properties().ModelUnitsAndTolerances().Scale(ON_UnitSystem::millimeters));
}

std::string FrameText(int frame, int frameCount, const std::string& camera,
                      const std::string& world) {
  const double time = static_cast<double>(frame) / frameCount;
  return host::Format("FrameBegin %d\n", frame) + host::Format("  Shutter %g %g\n", time, time) +
         camera +                               //
         "  ReadArchive \"" + world + "\"\n" +  //
         "FrameEnd\n";
}

bool WriteFrames(const std::string& base, const std::string& world,
                 const std::optional<FrameCamera>& camera, int frameCount) {
  const std::string quotedWorld = RibPath(world);
  for (int i = 0; i < frameCount; ++i) {
    if (host::InterruptRequested()) return false;
    const std::string statements = camera ? camera->Statements(i) : std::string();
    if (!WriteTextFile(FrameFileName(base, i), FrameText(i, frameCount, statements, quotedWorld))) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool WriteAnimationFrames(CRhinoDoc& doc, RenderSettings& settings, std::string* allFile) {
  const bool hasCamera = HasFrameCamera(settings);
  const auto camera = hasCamera ? MakeFrameCamera(doc, settings) : std::nullopt;
  if (hasCamera && !camera) return false;
  const std::optional<std::string> base = JobBaseName(settings.RibName);
  if (!base) return false;
  settings.RibName = *base + "_world.rib";
  if (!WriteFrames(*base, settings.RibName, camera, settings.AnimFrames)) return false;
  if (allFile == nullptr) return true;
  *allFile = *base + "_all.rib";
  return WriteFileOfFrames(*allFile, *base, {0, settings.AnimFrames - 1});
}

}  // namespace orv
