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

}  // namespace

std::string OutputFileName(std::string_view fileName, int frameNumber) {
  const std::string_view name = host::FirstCodePoints(fileName, kLongestFileName);
  if (frameNumber < 0) return std::string(name);
  host::PathParts parts = host::SplitPath(name);
  parts.Base += host::Format("_%04d", frameNumber);
  return host::JoinPath(parts);
}

OlderFile::OlderFile(std::string_view path)
    : path_(FileBehindLinks(path)),
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
