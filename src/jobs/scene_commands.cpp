#include "jobs/scene_commands.h"

#include <optional>

#include "host/document/app.h"
#include "host/system/path.h"
#include "host/system/text.h"
#include "jobs/animation_frames.h"
#include "jobs/edit_options.h"
#include "jobs/job_files.h"
#include "jobs/process_launch.h"
#include "jobs/render_start.h"
#include "jobs/scene_file.h"

namespace orv {
namespace {

bool IsSequence(const RenderSettings& settings) {
  return settings.AnimMode != 0;
}

// What is rendered: the file of all frames, for the control front end the first one of them, or the
// one scene. The frames of a sequence are written, which name the scene that they read. Nothing
// when they can't be.
std::optional<RenderJob> PrepareJob(CRhinoDoc& doc, const UserValues& user,
                                    RenderSettings& settings) {
  RenderJob job;
  job.WorkingFolder = WorkingFolderOf(settings.RibName);
  job.HidesRenderer = settings.OrvShow && !IsSequence(settings);
  if (!IsSequence(settings)) {
    job.Scene = settings.RibName;
    return job;
  }
  const std::optional<std::string> base = JobBaseName(settings.RibName);
  if (!base) return std::nullopt;
  const std::string firstFrame = *base + "_0000" + host::SplitPath(settings.RibName).Extension;
  if (!WriteAnimationFrames(doc, settings, user.UseOrvControl ? nullptr : &job.Scene)) {
    return std::nullopt;
  }
  if (user.UseOrvControl) {
    job.Scene = firstFrame;
    job.Frames = FrameRange{0, settings.AnimFrames - 1};
  }
  return job;
}

std::string RenderedImages(const RenderSettings& settings) {
  return IsSequence(settings) ? host::Format("%d frames at", settings.AnimFrames) : std::string();
}

}  // namespace

CCommandSceneOut::CCommandSceneOut(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "f432713d-84c7-4ff1-ac97-5b7704e38440"_uuid, "OrvExport",
                  "Writes the scene file, without rendering it.",
                  "Asks for the options of OrvOptions, which count for this file alone. Enter\n"
                  "writes the file that RibName names; with Animate, a file for each frame and\n"
                  "one that reads all of them, too.\n") {}

CommandResult CCommandSceneOut::RunCommand(CRhinoCommandContext& context) {
  RenderSettings settings = PlugIn().LoadSettings();
  const CommandResult edited = EditOptions(context, PlugIn(), settings);
  if (edited != CommandResult::success) return edited;
  UserValues& user = PlugIn().User();
  ApplyVersionSuffix(user, settings);
  // The frames of a sequence that are written one by one share a version.
  if (user.UseVersion && settings.FrameNumber < 0) IncrementVersion(user);
  std::string allFile;
  if (IsSequence(settings) && !WriteAnimationFrames(context.m_doc, settings, &allFile)) {
    return CommandResult::failure;
  }
  if (WriteSceneFile(PlugIn(), context.m_doc, settings)) {
    RhinoApp().Print("Wrote " + settings.RibName + "\n");
  }
  return CommandResult::success;
}

CCommandOrvRender::CCommandOrvRender(CSceneOutPlugIn& plugIn)
    : COrvCommand(
          plugIn, "df8ed18e-ac41-458c-a541-9ce5069a8724"_uuid, "OrvRender",
          "Writes the scene file and starts the renderer.",
          "Asks for the options of OrvOptions, which count for this job alone. Enter\n"
          "writes the files as OrvExport does and starts orv.exe, or orvq or gyre.exe\n"
          "when the profile's UseOrvControl or Gyre says so. With a Frame the file gets its\n"
          "number, but the program is started on the one that RibName names.\n") {}

CommandResult CCommandOrvRender::RunCommand(CRhinoCommandContext& context) {
  RenderSettings settings = PlugIn().LoadSettings();
  const CommandResult edited = EditOptions(context, PlugIn(), settings);
  if (edited != CommandResult::success) return edited;
  UserValues& user = PlugIn().User();
  ApplyVersionSuffix(user, settings);
  if (user.UseVersion) IncrementVersion(user);
  const std::optional<RenderJob> job = PrepareJob(context.m_doc, user, settings);
  if (!job) return CommandResult::failure;
  const bool started =
      WriteSceneFile(PlugIn(), context.m_doc, settings) && StartRender(user, settings, *job);
  if (!started) return CommandResult::nothing;
  PrintRendering(RenderedImages(settings), settings);
  return CommandResult::success;
}

}  // namespace orv
