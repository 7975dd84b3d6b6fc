#include "jobs/render_start.h"

#include <algorithm>

#include "host/document/app.h"
#include "host/system/text.h"
#include "jobs/process_launch.h"

namespace orv {
namespace {

// A program with its arguments, and whether it has a window.
struct ProgramCall {
  std::string CommandLine;
  bool Shown = true;
};

int PriorityOf(const RenderSettings& settings) {
  return settings.LowPriority ? -1 : 0;
}

std::string ControlArguments(const RenderSettings& settings, const RenderJob& job) {
  std::string arguments = host::Format("-p %d", settings.Threads);
  if (job.Frames) {
    arguments += host::Format(" -frames %d %d", job.Frames->First, job.Frames->Last);
  }
  return arguments;
}

ProgramCall CallFor(const UserValues& user, const RenderSettings& settings, const RenderJob& job) {
  const std::string scene = " \"" + job.Scene + '"';
  if (user.UseOrvControl) return {"orvq " + ControlArguments(settings, job) + scene, false};
  if (settings.Gyre) return {"gyre.exe -local 0" + scene, true};
  return {host::Format("orv.exe -p %d -pri %d", settings.Threads, PriorityOf(settings)) + scene,
          !job.HidesRenderer};
}

}  // namespace

bool FitsCommandLine(std::string_view name) {
  return std::none_of(name.begin(), name.end(),
                      [](char c) { return c == '"' || host::IsControl(c); });
}

bool StartRender(const UserValues& user, const RenderSettings& settings, const RenderJob& job) {
  constexpr std::size_t kMostSceneCharacters = 512;
  if (!FitsCommandLine(job.Scene)) return false;
  RenderJob cut = job;
  cut.Scene = host::FirstCodePoints(job.Scene, kMostSceneCharacters);
  const ProgramCall call = CallFor(user, settings, cut);
  return RunDetachedProcess(call.CommandLine, job.WorkingFolder, true, call.Shown);
}

void PrintRendering(std::string_view images, const RenderSettings& settings) {
  const char* threads = settings.Threads == 1 ? "thread" : "threads";
  const char* priority = settings.LowPriority ? "low" : "normal";
  RhinoApp().Print("Rendering " + std::string(images) +
                   host::Format(" %dx%d with %d %s at %s priority\n", settings.FormatWidth,
                                settings.FormatHeight, settings.Threads, threads, priority));
}

}  // namespace orv
