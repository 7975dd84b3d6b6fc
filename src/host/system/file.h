#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// Files. A call that fails leaves the reason for LastSystemError. All paths are taken as
// host/system/path.h says.
namespace host {

// True when `path` names an existing regular file (FileExists) or folder (FolderExists).
[[nodiscard]] bool FileExists(std::string_view path);
[[nodiscard]] bool FolderExists(std::string_view path);

// When the content of a file was last changed, in nanoseconds since the beginning of 1970 (UTC); a
// time outside of what that can tell is the first or last one that it can. Nothing when the file
// can't be found. A symbolic link stands for the file that it leads to.
std::optional<std::int64_t> ModificationTime(std::string_view path);

// Creates a folder, and those above it that are missing, for the user alone. True when the folder
// is there at the end.
[[nodiscard]] bool CreatePrivateFolder(std::string_view path);

// Why the last call for a file failed, in words: "No such file or directory". Taken from errno.
std::string LastSystemError();

// A stream that is being written. Keeps the first error; writing after it does nothing.
class FileWriter {
 public:
  // Opens `path` for writing in binary mode, empty at first. Check IsOpen.
  explicit FileWriter(std::string_view path);
  ~FileWriter();
  FileWriter(const FileWriter&) = delete;
  FileWriter& operator=(const FileWriter&) = delete;

  [[nodiscard]] bool IsOpen() const { return fd_ >= 0; }
  // True when the opening or any write so far has failed, as on a full disk.
  [[nodiscard]] bool HasError() const { return error_ != 0; }
  void Write(std::string_view bytes);
  // Closes the file; false when any write, or the closing itself, has failed.
  [[nodiscard]] bool Close();

 private:
  int fd_ = -1;
  int error_ = 0;
};

class FileReplacement;

// A file open for reading at any offset.
class FileReader {
 public:
  explicit FileReader(std::string_view path);
  // The file that was committed last, whatever its name stands for by now.
  explicit FileReader(FileReplacement& committed);
  ~FileReader();
  FileReader(const FileReader&) = delete;
  FileReader& operator=(const FileReader&) = delete;

  // False when the file can't be opened or is no regular file; Error tells why: "it is a folder".
  [[nodiscard]] bool IsOpen() const { return fd_ >= 0; }
  [[nodiscard]] const std::string& Error() const { return error_; }
  [[nodiscard]] std::uint64_t Size() const { return size_; }
  // Reads up to out.size() bytes at `offset`; the count read, less only at the end of the file or
  // on a failure.
  [[nodiscard]] std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> out) const;
  // True as long as nobody has written to the file since it was opened.
  [[nodiscard]] bool IsUnchanged() const;
  // True when `path` names this very file, not another one of that name.
  [[nodiscard]] bool IsAt(std::string_view path) const;

 private:
  friend class FileReplacement;

  void Examine();

  int fd_ = -1;
  std::uint64_t size_ = 0;
  std::int64_t modification_time_ = 0;
  std::string error_;
};

// The whole file, or nothing when it can't be read or is larger than `limit` bytes.
std::optional<std::string> ReadWholeFile(std::string_view path,
                                         std::uint64_t limit = std::uint64_t{1} << 30);

// Removes a file; false when it could not be removed.
bool DeleteFile(std::string_view path);

// Moves a file to another name in the same file system, over an older one there.
[[nodiscard]] bool RenameFile(std::string_view from, std::string_view to);

// Moves an existing file aside under an unused name beside it ("a.rib.bak", "a.rib.1.bak", ...) and
// gives that path; empty when there was no file, it could not be moved, or `path` is no regular
// file. Never overwrites another file.
std::string RhinoBackupFile(std::string_view path);

}  // namespace host
