#pragma once

#include <chrono>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/scoped_environment.h"
#include "support/temp_folder.h"

// How the stand-in was started once.
struct ToolRun {
  // The program's name and its arguments.
  std::vector<std::string> command;
  // The current folder.
  std::string folder;
  int process = 0;
  int group = 0;
  int session = 0;
  // The process that it has started itself; 0 for none.
  int grandchild = 0;
  // Which of the standard streams 0, 1, 2 are terminals, and what each leads to.
  std::vector<int> terminals;
  std::vector<std::string> streams;
  // All open ones.
  std::vector<int> descriptors;
  std::vector<int> ignored_signals;
  std::vector<int> blocked_signals;
};

// Puts the folder of the stand-ins first in PATH and records their runs, as long as this lives.
class ToolBench {
 public:
  // `act`: what the stand-in does, one of the words in README.md; empty for the
  // usual.
  explicit ToolBench(const std::string& act = "");

  // The folder in which the stand-ins are.
  static std::string Folder();
  void SetAct(const std::string& act) const;
  // The runs so far, in the order in which they began.
  std::vector<ToolRun> Runs() const;
  // Waits until there are `count` of them, as nobody waits for a job: what there are then.
  std::vector<ToolRun> WaitForRuns(
      std::size_t count, std::chrono::milliseconds limit = std::chrono::seconds(20)) const;

 private:
  TempFolder folder_;
  ScopedEnvironment path_;
  ScopedEnvironment record_;
  ScopedEnvironment act_;
};
