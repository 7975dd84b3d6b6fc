#include "host/system/file.h"

#include <fcntl.h>
#include <locale.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include "host/system/file_calls.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace host {
namespace {

bool IsFileOfKind(std::string_view path, mode_t kind) {
  struct stat status = {};
  return stat(SystemPath(path).c_str(), &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

std::int64_t Nanoseconds(const timespec& time) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max() / kSecond - 1;
  return std::clamp<std::int64_t>(time.tv_sec, -kLast, kLast) * kSecond + time.tv_nsec;
}

// Moves a file to a name that nothing bears: a placeholder takes the name first.
int MoveToUnusedName(const std::string& from, const std::string& to) {
  const int fd = OpenFile(to, O_WRONLY | O_CREAT | O_EXCL);
  if (fd < 0) return errno;
  CloseFile(fd);
  if (rename(from.c_str(), to.c_str()) == 0) return 0;
  const int error = errno;
  unlink(to.c_str());
  return error;
}

}  // namespace

bool FileExists(std::string_view path) {
  return IsFileOfKind(path, S_IFREG);
}
bool FolderExists(std::string_view path) {
  return IsFileOfKind(path, S_IFDIR);
}

std::optional<std::int64_t> ModificationTime(std::string_view path) {
  struct stat status = {};
  if (stat(SystemPath(path).c_str(), &status) != 0) return std::nullopt;
  return Nanoseconds(status.st_mtim);
}

std::string LastSystemError() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strerror_l(errno, locale);
}

FileWriter::FileWriter(std::string_view path)
    : fd_(OpenFile(SystemPath(path), O_WRONLY | O_CREAT | O_TRUNC)) {
  if (fd_ < 0) error_ = errno;
}

FileWriter::~FileWriter() {
  if (fd_ >= 0) CloseFile(fd_);
}

void FileWriter::Write(std::string_view bytes) {
  if (error_ == 0) error_ = WriteAll(fd_, bytes);
}

bool FileWriter::Close() {
  const int closeError = fd_ >= 0 ? CloseFile(fd_) : 0;
  fd_ = -1;
  if (error_ == 0) error_ = closeError;
  return error_ == 0 || Fail(error_);
}

FileReader::FileReader(std::string_view path)
    : fd_(OpenFile(SystemPath(path), O_RDONLY | O_NONBLOCK)) {
  Examine();
}

// Expects the reason in errno where there is no file.
void FileReader::Examine() {
  struct stat status = {};
  if (fd_ < 0 || fstat(fd_, &status) != 0) {
    error_ = LastSystemError();
  } else if (!S_ISREG(status.st_mode)) {
    error_ = S_ISDIR(status.st_mode) ? "it is a folder" : "it is no regular file";
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
  } else {
    size_ = static_cast<std::uint64_t>(status.st_size);
    modification_time_ = Nanoseconds(status.st_mtim);
  }
  if (!error_.empty() && fd_ >= 0) {
    const int error = errno;
    CloseFile(fd_);
    fd_ = -1;
    errno = error;
  }
}

FileReader::~FileReader() {
  if (fd_ >= 0) CloseFile(fd_);
}

std::size_t FileReader::ReadAt(std::uint64_t offset, std::span<std::byte> out) const {
  constexpr std::uint64_t kLargestOffset = std::numeric_limits<off_t>::max();
  std::size_t done = 0;
  while (done < out.size() && offset <= kLargestOffset - done) {
    const ssize_t count =
        pread(fd_, out.data() + done, out.size() - done, static_cast<off_t>(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

bool FileReader::IsUnchanged() const {
  struct stat status = {};
  return fstat(fd_, &status) == 0 && static_cast<std::uint64_t>(status.st_size) == size_ &&
         Nanoseconds(status.st_mtim) == modification_time_;
}

bool FileReader::IsAt(std::string_view path) const {
  struct stat mine = {};
  struct stat there = {};
  return fstat(fd_, &mine) == 0 && stat(SystemPath(path).c_str(), &there) == 0 &&
         mine.st_dev == there.st_dev && mine.st_ino == there.st_ino;
}

std::optional<std::string> ReadWholeFile(std::string_view path, std::uint64_t limit) {
  const FileReader file(path);
  if (!file.IsOpen()) return std::nullopt;
  if (file.Size() > limit) {
    errno = EFBIG;
    return std::nullopt;
  }
  std::string content(static_cast<std::size_t>(file.Size()), '\0');
  const std::size_t count = file.ReadAt(0, std::as_writable_bytes(std::span(content)));
  if (count != content.size()) return std::nullopt;
  return content;
}

bool DeleteFile(std::string_view path) {
  return unlink(SystemPath(path).c_str()) == 0;
}

bool RenameFile(std::string_view from, std::string_view to) {
  return rename(SystemPath(from).c_str(), SystemPath(to).c_str()) == 0;
}

bool CreatePrivateFolder(std::string_view path) {
  const std::string folder = SystemPath(path);
  for (std::size_t end = 0; end != std::string::npos;) {
    end = folder.find('/', end + 1);
    const std::string part = folder.substr(0, end);
    if (mkdir(part.c_str(), 0700) != 0 && errno != EEXIST && errno != EROFS && errno != EACCES) {
      return false;
    }
  }
  return FolderExists(path) || Fail(ENOTDIR);
}

std::string RhinoBackupFile(std::string_view path) {
  if (!FileExists(path)) return {};
  constexpr int kAttempts = 10000;
  constexpr std::size_t kLongestName = 255 - sizeof(".10000.bak");
  const PathParts parts = SplitPath(path);
  const std::string name(FirstBytes(parts.Base + parts.Extension, kLongestName));
  const std::string start = parts.Drive + parts.Folder + name;
  for (int i = 0; i < kAttempts; ++i) {
    const std::string backup = start + (i == 0 ? std::string() : Format(".%d", i)) + ".bak";
    const int error = MoveToUnusedName(SystemPath(path), SystemPath(backup));
    if (error == 0) return backup;
    if (error != EEXIST) return {};
  }
  return {};
}

}  // namespace host
