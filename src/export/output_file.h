#pragma once

#include <string>
#include <string_view>

namespace orv {

// The path of an export's file: the first 999 characters of `fileName`, with "_0012" at the end of
// its base name for frame 12. A negative frame number is none; an empty name stays empty.
std::string OutputFileName(std::string_view fileName, int frameNumber);

// Keeps the older file of an output path until the new one is whole. Only regular files are moved
// or deleted: a device, a pipe or an open stream such as /dev/stdout stays. Links are followed,
// unless the file behind them has a '\' in its path: then the link itself is replaced.
class OlderFile {
 public:
  // Moves the file at `path`, if there is one, aside.
  explicit OlderFile(std::string_view path);
  OlderFile(const OlderFile&) = delete;
  OlderFile& operator=(const OlderFile&) = delete;

  // False when a file stands at the path that couldn't be moved aside. It must not be opened then.
  [[nodiscard]] bool IsOutOfTheWay() const { return isOutOfTheWay_; }

  // The new file is whole: deletes the older one.
  void Discard();
  // The new file has failed: deletes what there is of it and puts the older one back. False when
  // that could not be done; the older file then stays at BackupPath.
  [[nodiscard]] bool Restore();
  // Where the older file is kept meanwhile; empty when there was none.
  const std::string& BackupPath() const { return backupPath_; }

 private:
  std::string path_;
  std::string backupPath_;
  bool isOutOfTheWay_;
};

}  // namespace orv
