#include "host/system/path.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool IsAsciiLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::size_t DriveLength(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && IsAsciiLetter(path[0]) ? 2 : 0;
}

}  // namespace

std::filesystem::path NativePath(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

PathParts SplitPath(std::string_view path) {
  PathParts parts;
  parts.Drive = path.substr(0, DriveLength(path));
  path.remove_prefix(parts.Drive.size());
  const std::size_t separator = path.find_last_of(kSeparators);
  const std::size_t nameStart = separator == std::string_view::npos ? 0 : separator + 1;
  parts.Folder = path.substr(0, nameStart);
  path.remove_prefix(nameStart);
  const std::size_t point = std::min(path.rfind('.'), path.size());
  parts.Base = path.substr(0, point);
  parts.Extension = path.substr(point);
  return parts;
}

std::string JoinPath(const PathParts& parts) {
  return parts.Drive + parts.Folder + parts.Base + parts.Extension;
}

std::string AppendPath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && kSeparators.find(path.back()) == std::string_view::npos) path += '/';
  path += name;
  return path;
}

}  // namespace host
