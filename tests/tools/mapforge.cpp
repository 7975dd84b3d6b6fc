#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

// A stand-in for the texture converter: mapforge -mode MODE -g GAMMA SOURCE TARGET. It notes how it
// was started and makes a target of one line. README.md beside it tells the environment variables.

using nlohmann::json;

namespace {

constexpr int kUsageStatus = 2;

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

// Adds a line to the record. One write, so that the lines of several programs don't mix.
void Note(const std::vector<std::string>& command, pid_t grandchild) {
  const std::string file = Variable("MAPFORGE_RECORD");
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
  const std::string line = run.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
  const int fd = open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  if (fd < 0 || write(fd, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
    std::perror(file.c_str());
  }
  if (fd >= 0) close(fd);
}

// Sleeps until a signal ends the program, or for a minute, so that a test that fails leaves nothing
// behind for long.
void Hang() {
  constexpr unsigned kLongest = 60;
  for (unsigned left = kLongest; left > 0;) left = sleep(left);
}

pid_t StartGrandchild() {
  const pid_t pid = fork();
  if (pid != 0) return pid;
  Hang();
  _exit(0);
}

bool IsCommand(const std::vector<std::string>& command) {
  if (command.size() != 7 || command[1] != "-mode" || command[3] != "-g") return false;
  const std::string& gamma = command[4];
  double value = 0;
  const auto [end, error] = std::from_chars(gamma.data(), gamma.data() + gamma.size(), value);
  const bool isNumber = error == std::errc() && end == gamma.data() + gamma.size();
  return (command[2] == "periodic" || command[2] == "clamp") && isNumber && value > 0;
}

// "mode gamma source".
bool MakeTarget(const std::vector<std::string>& command) {
  struct stat source = {};
  if (stat(command[5].c_str(), &source) != 0) return false;
  std::FILE* const file = std::fopen(command[6].c_str(), "we");
  if (file == nullptr) return false;
  std::fprintf(file, "%s %s %s\n", command[2].c_str(), command[4].c_str(), command[5].c_str());
  return std::fclose(file) == 0;
}

}  // namespace

int main(int argc, char** argv) try {
  const std::vector<std::string> command(argv, argv + argc);
  const std::string act = Variable("MAPFORGE_ACT");
  if (act == "hang-on") signal(SIGTERM, SIG_IGN);
  const bool hasGrandchild = act == "grandchild" || act == "leave-grandchild";
  Note(command, hasGrandchild ? StartGrandchild() : 0);
  if (!IsCommand(command)) {
    std::fprintf(stderr, "usage: mapforge -mode MODE -g GAMMA SOURCE TARGET\n");
    return kUsageStatus;
  }
  if (act == "fail") return 1;
  if (act == "hang" || act == "hang-on" || act == "grandchild") Hang();
  if (act == "no-target") return 0;
  return MakeTarget(command) ? 0 : 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "mapforge: %s\n", error.what());
  return kUsageStatus;
}
