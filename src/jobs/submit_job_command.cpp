#include "jobs/submit_job_command.h"

#include <optional>
#include <utility>

#include "host/command/get_option.h"
#include "host/system/text.h"
#include "jobs/process_launch.h"
#include "jobs/render_start.h"

namespace orv {
namespace {

// Success, with the frames in order, when the user is done.
CommandResult AskForFrames(CRhinoCommandContext& context, FrameRange& frames) {
  constexpr int kLastFrame = 99999;
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Orv Submit Job ");
  get.AcceptNothing();
  get.AddCommandOptionInteger("FirstFrame", &frames.First, "First frame in sequence ", 0,
                              kLastFrame);
  get.AddCommandOptionInteger("LastFrame", &frames.Last, "Last frame in sequence ", 0, kLastFrame);
  CRhinoGet::Result result = CRhinoGet::Result::option;
  while (result == CRhinoGet::Result::option) result = get.GetOption();
  if (result == CRhinoGet::Result::cancel) return CommandResult::cancel;
  if (result != CRhinoGet::Result::nothing) return CommandResult::failure;
  if (frames.First > frames.Last) std::swap(frames.First, frames.Last);
  return CommandResult::success;
}

// The queue is given the frames one by one, by a batch file.
bool SubmitToQueue(const std::string& base, const std::string& folder, FrameRange frames) {
  const std::string batch = base + "_all.bat";
  if (!FitsCommandLine(batch)) return false;
  std::string text;
  for (int i = frames.First; i <= frames.Last; ++i) {
    text += "gyre.exe -local 0 \"" + FrameFileName(base, i) + "\"\n";
  }
  return WriteTextFile(batch, text) && RunDetachedProcess('"' + batch + '"', folder, true, true);
}

bool Submit(const UserValues& user, const RenderSettings& settings, FrameRange frames) {
  RenderJob job;
  job.WorkingFolder = WorkingFolderOf(settings.RibName);
  if (user.UseOrvControl) {
    job.Scene = AppendToBaseName(settings.RibName, host::Format("_%04d", frames.First));
    job.Frames = frames;
    return StartRender(user, settings, job);
  }
  const std::optional<std::string> base = JobBaseName(settings.RibName);
  if (!base) return false;
  if (settings.Gyre) return SubmitToQueue(*base, job.WorkingFolder, frames);
  job.Scene = *base + "_all.rib";
  return WriteFileOfFrames(job.Scene, *base, frames) && StartRender(user, settings, job);
}

}  // namespace

CCommandOrvSubmitJob::CCommandOrvSubmitJob(CSceneOutPlugIn& plugIn)
    : COrvCommand(plugIn, "db6cf096-513d-4a55-92cd-09d82bd3c71e"_uuid, "OrvSubmitJob",
                  "Renders a range of frames that were written before.",
                  "Asks for FirstFrame and LastFrame, until Enter. The frames are those of the\n"
                  "document's RibName: for a.rib, a_0000.rib and so on.\n") {}

CommandResult CCommandOrvSubmitJob::RunCommand(CRhinoCommandContext& context) {
  FrameRange frames{0, 99};
  const CommandResult asked = AskForFrames(context, frames);
  if (asked != CommandResult::success) return asked;
  RenderSettings settings = PlugIn().LoadSettings();
  const UserValues& user = PlugIn().User();
  ApplyVersionSuffix(user, settings);
  return Submit(user, settings, frames) ? CommandResult::success : CommandResult::failure;
}

}  // namespace orv
