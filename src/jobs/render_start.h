#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "jobs/job_files.h"
#include "settings/render_settings.h"
#include "settings/user_values.h"

// How a job gets its pictures made: by the control front end, the render queue or the renderer
// itself, as the user's values choose.
namespace orv {

struct RenderJob {
  // The file that is rendered. Its first 512 characters count.
  std::string Scene;
  // Where the program runs.
  std::string WorkingFolder;
  // The frames that the control front end is told, which counts on from the number in the scene's
  // name.
  std::optional<FrameRange> Frames;
  // The renderer has no window.
  bool HidesRenderer = false;
};

// Starts the program. False when there is none, or when the scene's name can't stand in a command
// line.
[[nodiscard]] bool StartRender(const UserValues& user, const RenderSettings& settings,
                               const RenderJob& job);

// True when a name in double quotes is one word of a command line: it has neither a double quote
// nor a control character.
bool FitsCommandLine(std::string_view name);

// Tells that a job was started: "Rendering `images` 640x480 with 2 threads at low priority".
void PrintRendering(std::string_view images, const RenderSettings& settings);

}  // namespace orv
