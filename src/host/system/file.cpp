#include "host/system/file.h"

#include <fcntl.h>
#include <locale.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <limits>
#include <system_error>

#include "host/system/interrupt.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace host {
namespace {

constexpr mode_t kPermissionBits = 07777;

// The path for a system call. One with a zero byte in it, which the system would take as shorter
// than it is, becomes the empty path, which names nothing.
std::string SystemPath(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) return {};
  return NativePath(path).string();
}

// Ctrl-C ends the waiting for the other end of a pipe; the error is then EINTR.
int OpenFile(const std::string& path, int flags, mode_t mode = 0666) {
  int fd = -1;
  do {
    fd = open(path.c_str(), flags | O_CLOEXEC, mode);
  } while (fd < 0 && errno == EINTR && !InterruptRequested());
  return fd;
}

// Writes all bytes; the error number, 0 for none. Ctrl-C ends the waiting for a pipe with EINTR.
int WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) return errno;
    if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    if (!bytes.empty() && InterruptRequested()) return EINTR;
  }
  return 0;
}

// Copies a stretch through memory; the error number, 0 for none.
int CopyThroughMemory(int to, int from, std::uint64_t offset, std::uint64_t length) {
  constexpr std::uint64_t kBlock = std::uint64_t{1} << 20;
  std::string block(static_cast<std::size_t>(std::min(length, kBlock)), '\0');
  while (length > 0) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(length, block.size()));
    const ssize_t count = pread(from, block.data(), wanted, static_cast<off_t>(offset));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count < 0 ? errno : EIO;
    const auto read = static_cast<std::size_t>(count);
    if (const int error = WriteAll(to, std::string_view(block).substr(0, read))) return error;
    offset += read;
    length -= read;
  }
  return 0;
}

// Copies a stretch of a file; the error number, 0 for none. A file that ends before is an error.
int CopyStretch(int to, int from, std::uint64_t offset, std::uint64_t length) {
  // So that Ctrl-C is seen in between.
  constexpr std::uint64_t kStep = std::uint64_t{16} << 20;
  while (length > 0) {
    auto start = static_cast<off_t>(offset);
    const auto step = static_cast<std::size_t>(std::min(length, kStep));
    const ssize_t count = copy_file_range(from, &start, to, nullptr, step, 0);
    if (InterruptRequested()) return EINTR;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 &&
        (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP)) {
      return CopyThroughMemory(to, from, offset, length);
    }
    if (count <= 0) return count < 0 ? errno : EIO;
    offset += static_cast<std::uint64_t>(count);
    length -= static_cast<std::uint64_t>(count);
  }
  return 0;
}

// Closes; the error number, 0 for none. An interrupted close has closed the file all the same.
int CloseFile(int fd) {
  return close(fd) == 0 || errno == EINTR ? 0 : errno;
}

bool IsFileOfKind(std::string_view path, mode_t kind) {
  struct stat status = {};
  return stat(SystemPath(path).c_str(), &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

// Sets errno for the caller's LastSystemError.
bool Fail(int error) {
  errno = error;
  return false;
}

std::string FolderOf(const std::string& path) {
  const std::size_t separator = path.rfind('/');
  return separator == std::string::npos ? "./" : path.substr(0, separator + 1);
}

// Creates a new file in `folder` under an unused name, which is given back in `name`.
int CreateUnusedFile(const std::string& folder, std::string& name) {
  constexpr int kAttempts = 1000;
  for (int i = 0; i < kAttempts; ++i) {
    name = folder + Format(".orv-%d-%d.tmp", static_cast<int>(getpid()), i);
    const int fd = OpenFile(name, O_WRONLY | O_CREAT | O_EXCL);
    if (fd >= 0 || errno != EEXIST) return fd;
  }
  return -1;
}

// Flushes the folder's entries, so that a rename survives a crash of the machine. Not all file
// systems can; the rename stands all the same.
void FlushFolder(const std::string& folder) {
  const int fd = OpenFile(folder, O_RDONLY | O_DIRECTORY);
  if (fd < 0) return;
  fsync(fd);
  CloseFile(fd);
}

std::int64_t Nanoseconds(const timespec& time) {
  constexpr std::int64_t kSecond = 1'000'000'000;
  constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max() / kSecond - 1;
  return std::clamp<std::int64_t>(time.tv_sec, -kLast, kLast) * kSecond + time.tv_nsec;
}

// Where a symbolic link leads, so that the file there is replaced and the link stays.
std::string WithoutLinks(const std::string& path) {
  std::error_code failure;
  const std::filesystem::path target = std::filesystem::canonical(path, failure);
  return failure ? path : target.string();
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

FileReplacement::FileReplacement(std::string_view path) : target_(WithoutLinks(SystemPath(path))) {
  struct stat old = {};
  if (target_.empty()) {
    error_ = ENOENT;
  } else if (stat(target_.c_str(), &old) == 0) {
    if (!S_ISREG(old.st_mode)) {
      error_ = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    } else if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) {
      error_ = errno;
    }
    permissions_ = old.st_mode & kPermissionBits;
  }
  if (error_ == 0) {
    fd_ = CreateUnusedFile(FolderOf(target_), new_name_);
    if (fd_ < 0) error_ = errno;
  }
  errno = error_;
}

FileReplacement::~FileReplacement() {
  if (fd_ < 0) return;
  CloseFile(fd_);
  unlink(new_name_.c_str());
}

void FileReplacement::Write(std::string_view bytes) {
  if (error_ == 0) error_ = WriteAll(fd_, bytes);
}

void FileReplacement::Copy(const FileReader& file, std::uint64_t offset, std::uint64_t length) {
  if (error_ == 0) error_ = CopyStretch(fd_, file.fd_, offset, length);
}

bool FileReplacement::Commit() {
  if (error_ == 0 && permissions_ && fchmod(fd_, *permissions_) != 0) error_ = errno;
  if (error_ == 0 && fsync(fd_) != 0) error_ = errno;
  if (fd_ >= 0) {
    const int closeError = CloseFile(fd_);
    fd_ = -1;
    if (error_ == 0) error_ = closeError;
    if (error_ == 0 && rename(new_name_.c_str(), target_.c_str()) != 0) error_ = errno;
    if (error_ != 0) unlink(new_name_.c_str());
  }
  if (error_ != 0) return Fail(error_);
  FlushFolder(FolderOf(target_));
  return true;
}

bool ReplaceFile(std::string_view path, std::string_view bytes) {
  FileReplacement file(path);
  file.Write(bytes);
  return file.Commit();
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
