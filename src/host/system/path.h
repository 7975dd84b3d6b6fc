#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// File paths as text. Both '/' and '\' separate folders on every system; any Unicode name is
// allowed. A drive ("C:") has no meaning where the system knows none: "C:\t\a.rib" is then the
// relative path "C:/t/a.rib".
namespace host {

// The system's own path for `path`: separators of either kind, UTF-8.
std::filesystem::path NativePath(std::string_view path);

// The parts of a path. Drive ("C:"), folder (with its last separator), base name, extension (from
// the last point of the name on). Joining them gives the text that was split.
struct PathParts {
  std::string Drive;
  std::string Folder;
  std::string Base;
  std::string Extension;
};
PathParts SplitPath(std::string_view path);
std::string JoinPath(const PathParts& parts);

// `folder` and `name` with a separator between them; `name` alone when `folder` is empty.
std::string AppendPath(std::string_view folder, std::string_view name);

}  // namespace host
