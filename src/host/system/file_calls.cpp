#include "host/system/file_calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "host/system/interrupt.h"
#include "host/system/path.h"

namespace host {

std::string SystemPath(std::string_view path) {
  if (path.find('\0') != std::string_view::npos) return {};
  return NativePath(path).string();
}

int OpenFile(const std::string& path, int flags, mode_t mode) {
  int fd = -1;
  do {
    fd = open(path.c_str(), flags | O_CLOEXEC, mode);
  } while (fd < 0 && errno == EINTR && !InterruptRequested());
  return fd;
}

int WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) return errno;
    if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    if (!bytes.empty() && InterruptRequested()) return EINTR;
  }
  return 0;
}

int CloseFile(int fd) {
  return close(fd) == 0 || errno == EINTR ? 0 : errno;
}

bool Fail(int error) {
  errno = error;
  return false;
}

}  // namespace host
