#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

// A program that is run as a user runs it: a process of its own.

struct ProcessOptions {
  // The standard input, which is no terminal.
  std::string input;
  // Environment variables that differ from those of the test.
  std::vector<std::pair<std::string, std::string>> environment;
  // Where the standard output goes instead of into the result, as /dev/full.
  std::string output_file;
  // The current folder of the process; that of the test when it is empty.
  std::string folder;
};

struct ProcessResult {
  // The exit status, or minus the number of the signal that ended the process.
  int status = -1;
  std::string out;
  std::string err;
};

// A running program. It is killed when this ends before it does, or after a minute of waiting.
class Process {
 public:
  explicit Process(const std::vector<std::string>& command, const ProcessOptions& options = {});
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void Signal(int signal) const;
  ProcessResult Wait();

 private:
  pid_t pid_ = -1;
  int out_ = -1;
  int err_ = -1;
};

inline ProcessResult RunProcess(const std::vector<std::string>& command,
                                const ProcessOptions& options = {}) {
  return Process(command, options).Wait();
}

// Waits for the end of a child and gives its status as ProcessResult has it.
int WaitForChild(pid_t pid, std::chrono::seconds limit = std::chrono::seconds(60));

// What a child does after fork: the environment, the folder, the program. Does not return.
[[noreturn]] void RunInChild(const std::vector<std::string>& command,
                             const ProcessOptions& options);
