#include "host/system/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "host/system/file_calls.h"
#include "host/system/interrupt.h"
#include "host/system/text.h"

namespace host {
namespace {

constexpr mode_t kPermissionBits = 07777;
// Nobody else reads the new file before it has the permissions that it is to have.
constexpr mode_t kPrivate = 0600;

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

std::string FolderOf(const std::string& path) {
  const std::size_t separator = path.rfind('/');
  return separator == std::string::npos ? "./" : path.substr(0, separator + 1);
}

// Creates a new file in `folder` under an unused name, which is given back in `name`.
int CreateUnusedFile(const std::string& folder, std::string& name) {
  constexpr int kAttempts = 1000;
  for (int i = 0; i < kAttempts; ++i) {
    name = folder + Format(".orv-%d-%d.tmp", static_cast<int>(getpid()), i);
    const int fd = OpenFile(name, O_RDWR | O_CREAT | O_EXCL, kPrivate);
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

// Where a symbolic link leads, so that the file there is replaced or made and the link stays.
std::string WithoutLinks(std::string path) {
  // As many as the system follows.
  constexpr int kMaxLinks = 40;
  for (int i = 0; i < kMaxLinks; ++i) {
    std::error_code failure;
    const std::filesystem::path target = std::filesystem::read_symlink(path, failure);
    if (failure) break;
    path = target.is_absolute() ? target.string() : FolderOf(path) + target.string();
  }
  return path;
}

// The permissions of a new file. The system tells them only by setting others; for that moment,
// what others create is private.
mode_t PermissionsOfNewFile() {
  const mode_t mask = umask(077);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

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
    old_ = {old.st_mode & kPermissionBits, old.st_uid, old.st_gid};
  } else if (errno != ENOENT) {
    error_ = errno;
  }
  if (error_ == 0) {
    fd_ = CreateUnusedFile(FolderOf(target_), new_name_);
    if (fd_ < 0) error_ = errno;
  }
  errno = error_;
}

FileReplacement::~FileReplacement() {
  Close();
}

void FileReplacement::Close() {
  if (fd_ < 0) return;
  CloseFile(fd_);
  fd_ = -1;
  if (!is_committed_) unlink(new_name_.c_str());
}

void FileReplacement::Write(std::string_view bytes) {
  if (error_ == 0) error_ = WriteAll(fd_, bytes);
}

void FileReplacement::Copy(const FileReader& file, std::uint64_t offset, std::uint64_t length) {
  if (error_ == 0) error_ = CopyStretch(fd_, file.fd_, offset, length);
}

// The owner goes first: another one takes permissions away.
int FileReplacement::GivePermissions() {
  if (!old_) {
    // Not every file system has permissions; where it hasn't, the file is as any new one there.
    static_cast<void>(fchmod(fd_, PermissionsOfNewFile()));
    return 0;
  }
  // Only the system's administrator may give a file away, others at most to a group of theirs.
  const bool isKept = fchown(fd_, old_->owner, old_->group) == 0 ||
                      fchown(fd_, static_cast<uid_t>(-1), old_->group) == 0;
  static_cast<void>(isKept);
  return fchmod(fd_, old_->permissions) == 0 ? 0 : errno;
}

bool FileReplacement::Commit(Flush flush) {
  if (error_ == 0) error_ = GivePermissions();
  if (error_ == 0 && flush == Flush::yes && fsync(fd_) != 0) error_ = errno;
  if (error_ == 0 && rename(new_name_.c_str(), target_.c_str()) != 0) error_ = errno;
  if (error_ != 0) {
    Close();
    return Fail(error_);
  }
  is_committed_ = true;
  if (flush == Flush::yes) FlushFolder(FolderOf(target_));
  return true;
}

FileReader::FileReader(FileReplacement& committed)
    : fd_(committed.is_committed_ ? std::exchange(committed.fd_, -1) : -1) {
  errno = EBADF;
  Examine();
}

bool ReplaceFile(std::string_view path, std::string_view bytes, Flush flush) {
  FileReplacement file(path);
  file.Write(bytes);
  return file.Commit(flush);
}

}  // namespace host
