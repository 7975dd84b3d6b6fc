#include "run_record.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <system_error>

using nlohmann::json;

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// The open files but the one that lists them.
json OpenDescriptors() {
  json numbers = json::array();
  DIR* const folder = opendir("/proc/self/fd");
  if (folder == nullptr) return numbers;
  while (const dirent* entry = readdir(folder)) {
    const int number = std::atoi(entry->d_name);
    if (entry->d_name[0] != '.' && number != dirfd(folder)) numbers.push_back(number);
  }
  closedir(folder);
  return numbers;
}

json Terminals() {
  json numbers = json::array();
  for (const int number : {0, 1, 2}) {
    if (isatty(number) != 0) numbers.push_back(number);
  }
  return numbers;
}

// What each of the three standard streams is connected to.
json Streams() {
  json paths = json::array();
  for (const int number : {0, 1, 2}) {
    std::error_code failure;
    const auto path =
        std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(number), failure);
    paths.push_back(failure ? "" : path.string());
  }
  return paths;
}

json IgnoredSignals() {
  json numbers = json::array();
  for (int number = 1; number < NSIG; ++number) {
    struct sigaction action = {};
    if (sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) {
      numbers.push_back(number);
    }
  }
  return numbers;
}

json BlockedSignals() {
  json numbers = json::array();
  sigset_t blocked;
  sigprocmask(SIG_BLOCK, nullptr, &blocked);
  for (int number = 1; number < NSIG; ++number) {
    if (sigismember(&blocked, number) == 1) numbers.push_back(number);
  }
  return numbers;
}

}  // namespace

std::string RequestedAct() {
  return Variable("ORV_TOOL_ACT");
}

void RecordRun(const std::vector<std::string>& command, pid_t grandchild) {
  const std::string file = Variable("ORV_TOOL_RECORD");
  if (file.empty()) return;
  std::error_code failure;
  const json run = {
      {"command", command},
      {"folder", std::filesystem::current_path(failure).string()},
      {"process", getpid()},
      {"group", getpgrp()},
      {"session", getsid(0)},
      {"grandchild", grandchild},
      {"terminals", Terminals()},
      {"streams", Streams()},
      {"descriptors", OpenDescriptors()},
      {"ignored_signals", IgnoredSignals()},
      {"blocked_signals", BlockedSignals()},
  };
  // One write, so that the lines of several programs don't mix.
  const std::string line = run.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
  const int fd = open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (fd < 0 || write(fd, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
    std::perror(file.c_str());
  }
  if (fd >= 0) close(fd);
}

void Hang() {
  constexpr unsigned kLongest = 60;
  for (unsigned left = kLongest; left > 0;) left = sleep(left);
}
