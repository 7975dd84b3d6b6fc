#include "support/pty.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

Pty::Pty(const std::vector<std::string>& command, const ProcessOptions& options) {
  winsize size = {};
  size.ws_row = 50;
  size.ws_col = 200;
  pid_ = forkpty(&terminal_, nullptr, nullptr, &size);
  EXPECT_GE(pid_, 0);
  if (pid_ == 0) RunInChild(command, options);
}

Pty::~Pty() {
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  close(terminal_);
}

void Pty::Type(std::string_view keys) const {
  EXPECT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
}

bool Pty::Read() {
  char buffer[4096];
  const ssize_t count = read(terminal_, buffer, sizeof buffer);
  if (count <= 0) return false;
  raw_.append(buffer, static_cast<std::size_t>(count));
  bytes_.append(buffer, static_cast<std::size_t>(count));
  Show();
  return true;
}

void Pty::Show() {
  std::size_t i = 0;
  for (; i < raw_.size(); ++i) {
    if (raw_[i] == '\x1b') {
      const std::size_t end =
          raw_.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz=>", i + 1);
      if (end == std::string::npos) break;
      i = end;
    } else if (raw_[i] != '\r' && raw_[i] != '\a') {
      shown_ += raw_[i];
    }
  }
  raw_.erase(0, i);
}

std::string Pty::WaitFor(std::string_view text) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  for (;;) {
    if (const std::size_t at = shown_.find(text); at != std::string::npos) {
      std::string before = shown_.substr(0, at + text.size());
      shown_.erase(0, at + text.size());
      return before;
    }
    pollfd wait = {terminal_, POLLIN, 0};
    const bool ready = poll(&wait, 1, 100) > 0;
    if ((ready && !Read()) || std::chrono::steady_clock::now() > end) {
      ADD_FAILURE() << "\"" << text << "\" was not shown, but:\n" << shown_;
      return {};
    }
  }
}

int Pty::Wait() {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (std::chrono::steady_clock::now() < end) {
    pollfd wait = {terminal_, POLLIN, 0};
    if (poll(&wait, 1, 100) > 0 && !Read()) break;
  }
  const int status = WaitForChild(pid_, std::chrono::seconds(5));
  pid_ = -1;
  return status;
}
