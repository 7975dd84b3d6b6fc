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
// old file stay, and so do its owner and group where the user may give them; until Commit nobody
// else can read the new one. A symbolic link is followed, also to a file that isn't there yet.
// Replaces only regular files that may be written.
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
  // Takes over the file that was committed.
  friend class FileReader;

  // Removes the new file unless it was committed.
  void Close();
  // The error number, 0 for none.
  int GivePermissions();

  // What is kept of the file that is replaced.
  struct OldFile {
    unsigned permissions;
    unsigned owner;
    unsigned group;
  };

  std::string target_;
  std::string new_name_;
  std::optional<OldFile> old_;
  int fd_ = -1;
  int error_ = 0;
  bool is_committed_ = false;
};

// FileReplacement of the whole content. False on failure (LastSystemError tells why).
[[nodiscard]] bool ReplaceFile(std::string_view path, std::string_view bytes,
                               Flush flush = Flush::yes);

}  // namespace host
