#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/system/file.h"

namespace host {

// Whether a file is on the disk when its writing has ended: without that a crash of the machine,
// but nothing else, may leave the old one, and many files are written far faster.
enum class Flush { no, yes };

// Writes a file so that a crash at any moment leaves either the old or the new one whole: into a
// new file beside it, which Commit flushes to the disk and renames over it. The permissions of the
// old file stay, and a symbolic link is followed. Replaces only regular files that may be written.
class FileReplacement {
 public:
  // Check IsOpen.
  explicit FileReplacement(std::string_view path);
  // Without a Commit that succeeded, the old file is as it was, and the new one is removed.
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  [[nodiscard]] bool IsOpen() const { return fd_ >= 0; }
  // True when the opening or any write so far has failed; what is written after it is lost.
  [[nodiscard]] bool HasError() const { return error_ != 0; }
  void Write(std::string_view bytes);
  // Copies a stretch of another file, where the system can without reading it.
  void Copy(const FileReader& file, std::uint64_t offset, std::uint64_t length);
  [[nodiscard]] bool Commit(Flush flush = Flush::yes);

 private:
  std::string target_;
  std::string new_name_;
  std::optional<unsigned> permissions_;
  int fd_ = -1;
  int error_ = 0;
};

// FileReplacement of the whole content. False on failure (LastSystemError tells why).
[[nodiscard]] bool ReplaceFile(std::string_view path, std::string_view bytes,
                               Flush flush = Flush::yes);

}  // namespace host
