#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace host {

// A program that is to be started.
struct ProcessStart {
  // The program and its arguments, each as it stands: there is no shell in between. A program
  // without a folder in its name is looked for along the search path; "name.exe" is found as
  // "name", too.
  std::vector<std::string> Arguments;
  // The process's current folder; empty means that of this program.
  std::string Folder;
  // Without a window: here, cut off from the terminal, its input empty and its output dropped.
  bool Hidden = false;
};

// Starts a program and waits for its end. After `limit`, or when the user asks to interrupt, it is
// terminated together with the processes that it started. False when it couldn't be started.
[[nodiscard]] bool RunProcess(const ProcessStart& start, std::chrono::milliseconds limit);

}  // namespace host
