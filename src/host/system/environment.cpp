#include "host/system/environment.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "host/system/path.h"

namespace host {
namespace {

// The folder that a variable names, when it is an absolute path.
std::optional<std::string> FolderVariable(std::string_view name) {
  std::optional<std::string> folder = EnvironmentValue(name);
  if (!folder || !folder->starts_with('/')) return std::nullopt;
  while (folder->size() > 1 && folder->back() == '/') folder->pop_back();
  return folder;
}

}  // namespace

std::optional<std::string> EnvironmentValue(std::string_view name) {
  const char* value = std::getenv(std::string(name).c_str());
  if (value == nullptr) return std::nullopt;
  return value;
}

void EnsureTempVariable() {
  if (!EnvironmentValue("TEMP").value_or("").empty()) return;
  std::error_code failure;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(failure);
  setenv("TEMP", failure ? "/tmp" : folder.c_str(), 1);
}

std::string UserConfigurationFolder() {
  if (const auto folder = FolderVariable("XDG_CONFIG_HOME")) return *folder;
  if (const auto home = FolderVariable("HOME")) return AppendPath(*home, ".config");
  return {};
}

}  // namespace host
