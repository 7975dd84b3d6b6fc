#include "export/output_file.h"

#include <filesystem>
#include <system_error>

#include "host/system/file.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace orv {
namespace {

constexpr std::size_t kLongestFileName = 999;

// The file to which symbolic links lead from `path`; empty for a stream that a process has open,
// as /dev/stdout.
std::string FileBehindLinks(std::string_view path) {
  constexpr int kMostLinks = 40;
  std::filesystem::path file = host::NativePath(path);
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code failure;
    const std::filesystem::path folder = std::filesystem::canonical(
        file.has_parent_path() ? file.parent_path() : std::filesystem::path("."), failure);
    if (failure) return file.string();
    file = folder / file.filename();
    if (file.string().starts_with("/proc/")) return {};
    const std::filesystem::path target = std::filesystem::read_symlink(file, failure);
    if (failure) return file.string();
    file = folder / target;
  }
  return {};
}

bool IsLinkToNothing(const std::filesystem::path& path) {
  std::error_code failure;
  return std::filesystem::is_symlink(path, failure) && !std::filesystem::exists(path, failure);
}

// The file that is moved aside and deleted for the output at `path`; empty for one that stays.
std::string FileToReplace(std::string_view path) {
  const std::string file = FileBehindLinks(path);
  // A '\' in a real folder's or file's name would be taken for a separator, and the path for that
  // of another file; in the path as given it is one.
  if (file.find('\\') == std::string::npos) return file;
  return IsLinkToNothing(host::NativePath(path)) ? std::string() : std::string(path);
}

}  // namespace

std::string OutputFileName(std::string_view fileName, int frameNumber) {
  const std::string_view name = host::FirstCodePoints(fileName, kLongestFileName);
  if (frameNumber < 0 || name.empty()) return std::string(name);
  host::PathParts parts = host::SplitPath(name);
  parts.Base += host::Format("_%04d", frameNumber);
  return host::JoinPath(parts);
}

OlderFile::OlderFile(std::string_view path)
    : path_(FileToReplace(path)),
      backupPath_(host::RhinoBackupFile(path_)),
      isOutOfTheWay_(!host::FileExists(path_)) {}

void OlderFile::Discard() {
  if (!backupPath_.empty()) host::DeleteFile(backupPath_);
}

bool OlderFile::Restore() {
  if (isOutOfTheWay_ && host::FileExists(path_)) host::DeleteFile(path_);
  return backupPath_.empty() || host::RenameFile(backupPath_, path_);
}

}  // namespace orv
