#include "host/system/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "host/system/file_calls.h"
#include "host/system/interrupt.h"
#include "host/system/text.h"

namespace host {
namespace {

constexpr mode_t kPermissionBits = 07777;

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

// Where a symbolic link leads, so that the file there is replaced and the link stays.
std::string WithoutLinks(const std::string& path) {
  std::error_code failure;
  const std::filesystem::path target = std::filesystem::canonical(path, failure);
  return failure ? path : target.string();
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

bool FileReplacement::Commit(Flush flush) {
  if (error_ == 0 && permissions_ && fchmod(fd_, *permissions_) != 0) error_ = errno;
  if (error_ == 0 && flush == Flush::yes && fsync(fd_) != 0) error_ = errno;
  if (fd_ >= 0) {
    const int closeError = CloseFile(fd_);
    fd_ = -1;
    if (error_ == 0) error_ = closeError;
    if (error_ == 0 && rename(new_name_.c_str(), target_.c_str()) != 0) error_ = errno;
    if (error_ != 0) unlink(new_name_.c_str());
  }
  if (error_ != 0) return Fail(error_);
  if (flush == Flush::yes) FlushFolder(FolderOf(target_));
  return true;
}

bool ReplaceFile(std::string_view path, std::string_view bytes, Flush flush) {
  FileReplacement file(path);
  file.Write(bytes);
  return file.Commit(flush);
}

}  // namespace host
