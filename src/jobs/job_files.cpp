#include "jobs/job_files.h"

#include <filesystem>
#include <limits>
#include <system_error>

#include "export/rib_text.h"
#include "host/document/app.h"
#include "host/system/file.h"
#include "host/system/file_replacement.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace orv {
namespace {

// A device or a pipe: what is written to it can't be put in its place as a whole.
bool IsNoRegularFile(std::string_view path) {
  std::error_code failure;
  const auto status = std::filesystem::status(host::NativePath(path), failure);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

}  // namespace

std::string AppendToBaseName(std::string_view path, std::string_view suffix) {
  host::PathParts parts = host::SplitPath(path);
  parts.Base += suffix;
  return host::JoinPath(parts);
}

std::optional<std::string> JobName(std::string_view path) {
  constexpr std::size_t kMostCharacters = 256;
  const std::string_view name = host::FirstCodePoints(path, kMostCharacters);
  const host::PathParts parts = host::SplitPath(path);
  if (name.size() == path.size() || name.size() > parts.Drive.size() + parts.Folder.size()) {
    return std::string(name);
  }
  RhinoApp().Print("Unable to name the files of a job after " + std::string(path) +
                   ": its first 256 characters count, and its folder is longer.\n");
  return std::nullopt;
}

std::optional<std::string> JobBaseName(std::string_view path) {
  const std::optional<std::string> name = JobName(path);
  if (!name) return std::nullopt;
  host::PathParts parts = host::SplitPath(*name);
  parts.Extension.clear();
  return host::JoinPath(parts);
}

std::string FrameFileName(std::string_view base, int frame) {
  return std::string(base) + host::Format("_%04d.rib", frame);
}

void ApplyVersionSuffix(const UserValues& user, RenderSettings& settings) {
  if (!user.UseVersion) return;
  const std::string suffix = host::Format("_v%d", user.Version);
  settings.RibName = AppendToBaseName(settings.RibName, suffix);
  settings.ImageName = AppendToBaseName(settings.ImageName, suffix);
}

void IncrementVersion(UserValues& user) {
  if (user.Version < std::numeric_limits<int>::max()) ++user.Version;
}

// A job that runs may be reading the older file.
bool WriteTextFile(std::string_view path, std::string_view text) {
  if (!IsNoRegularFile(path)) return host::ReplaceFile(path, text, host::Flush::no);
  host::FileWriter file(path);
  if (!file.IsOpen()) return false;
  file.Write(text);
  return file.Close();
}

bool WriteFileOfFrames(std::string_view path, std::string_view base, FrameRange frames) {
  std::string text;
  for (int i = frames.First; i <= frames.Last; ++i) {
    text += "ReadArchive \"" + RibPath(FrameFileName(base, i)) + "\"\n";
  }
  if (WriteTextFile(path, text)) return true;
  RhinoApp().Print("Unable to write rib file for all frames.\n");
  return false;
}

}  // namespace orv
