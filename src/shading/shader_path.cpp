#include "shading/shader_path.h"

#include <algorithm>

#include "host/system/environment.h"
#include "host/system/file.h"

namespace orv {
namespace {

constexpr std::string_view kExtension = ".slb";

// The renderer's folder with a separator at its end.
std::string HomeFolder(std::string home) {
  std::replace(home.begin(), home.end(), '/', '\\');
  if (!home.ends_with('\\')) home += '\\';
  return home;
}

std::string FileIn(std::string folder, std::string_view name) {
  folder += name;
  folder += kExtension;
  return folder;
}

}  // namespace

std::string ResolveShaderPath(std::string_view name) {
  // An empty variable is one that isn't set.
  const std::string home = host::EnvironmentValue("ORVHOME").value_or("");
  if (home.empty()) {
    const std::string path = FileIn("", name);
    return host::FileExists(path) ? path : FileIn(path, "");
  }
  const std::string folder = HomeFolder(home);
  const std::string path = FileIn(folder + "usershaders\\", name);
  return host::FileExists(path) ? path : FileIn(folder + "shaders\\", name);
}

}  // namespace orv
