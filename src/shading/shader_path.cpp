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

// Empty when the variable isn't set; an empty one counts as that.
std::string Home() {
  return host::EnvironmentValue("ORVHOME").value_or("");
}

}  // namespace

std::string ResolveShaderPath(std::string_view name) {
  const std::string home = Home();
  if (home.empty()) {
    const std::string path = FileIn("", name);
    return host::FileExists(path) ? path : FileIn(path, "");
  }
  const std::string path = FileIn(HomeFolder(home) + "usershaders\\", name);
  return host::FileExists(path) ? path : ListedShaderPath(name);
}

std::string ListedShaderPath(std::string_view name) {
  const std::string home = Home();
  return FileIn(home.empty() ? "" : HomeFolder(home) + "shaders\\", name);
}

}  // namespace orv
