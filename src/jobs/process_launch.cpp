#include "jobs/process_launch.h"

#include <chrono>

#include "host/system/command_line.h"
#include "host/system/file.h"
#include "host/system/path.h"
#include "host/system/process.h"
#include "host/system/text.h"

namespace orv {

bool RunDetachedProcess(std::string_view commandLine, std::string_view workingFolder, bool detached,
                        bool shown) {
  constexpr std::size_t kMostCharacters = 2048;
  constexpr std::chrono::seconds kLongestWait{120};
  host::ProcessStart start;
  start.Arguments = host::ProgramWords(host::FirstCodePoints(commandLine, kMostCharacters));
  start.Folder = workingFolder;
  start.Hidden = !shown;
  return detached ? host::StartProcess(start) : host::RunProcess(start, kLongestWait);
}

std::string WorkingFolderOf(std::string_view path) {
  const host::PathParts parts = host::SplitPath(path);
  // "c:a.rib" is a name like any other where there are no drives.
  if (parts.Folder.empty() && !host::FolderExists(parts.Drive)) return {};
  return parts.Drive + parts.Folder;
}

}  // namespace orv
