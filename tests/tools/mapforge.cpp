#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <exception>
#include <string>
#include <system_error>
#include <vector>

#include "run_record.h"

// A stand-in for the texture converter: mapforge -mode MODE -g GAMMA SOURCE TARGET. It notes how it
// was started and makes a target of one line. README.md beside it tells the environment variables.

namespace {

constexpr int kUsageStatus = 2;

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
  const std::string act = RequestedAct();
  if (act == "hang-on") signal(SIGTERM, SIG_IGN);
  const bool hasGrandchild = act == "grandchild" || act == "leave-grandchild";
  RecordRun(command, hasGrandchild ? StartGrandchild() : 0);
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
