#pragma once

#include <string>
#include <string_view>

namespace orv {

// Starts the program of a command line, of which 2048 characters count at most. It is looked for
// along the search path; an empty `workingFolder` is the current one. A process that isn't
// `detached` is waited for, and terminated when it takes longer than two minutes. One that isn't
// `shown` has no window. True when it was started.
[[nodiscard]] bool RunDetachedProcess(std::string_view commandLine, std::string_view workingFolder,
                                      bool detached, bool shown);

// The drive and folder of a path, in which its job runs; empty, the current folder, for a name
// without a folder, unless its drive is there.
std::string WorkingFolderOf(std::string_view path);

}  // namespace orv
