#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

// The system's calls for files, for this folder alone.
namespace host {

// The path for a system call. One with a zero byte in it, which the system would take as shorter
// than it is, becomes the empty path, which names nothing.
std::string SystemPath(std::string_view path);

// Ctrl-C ends the waiting for the other end of a pipe; the error is then EINTR.
int OpenFile(const std::string& path, int flags, mode_t mode = 0666);
// Writes all bytes; the error number, 0 for none. Ctrl-C ends the waiting for a pipe with EINTR.
int WriteAll(int fd, std::string_view bytes);
// Closes; the error number, 0 for none. An interrupted close has closed the file all the same.
int CloseFile(int fd);
// Sets errno for the caller's LastSystemError.
bool Fail(int error);

}  // namespace host
