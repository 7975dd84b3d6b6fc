#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// A program that is to be started.
struct ProcessStart {
  // The program and its arguments, each as it stands: there is no shell in between. A program
  // without a folder in its name is looked for along the search path; "name.exe" is found as
  // "name", too, where nothing has the longer name. A file that the system refuses to run is passed
  // over.
  std::vector<std::string> Arguments;
  // The process's current folder; empty means that of this program.
  std::string Folder;
  // Without a window: here, cut off from the terminal and with its output dropped. The input is
  // empty in any case, so that a program never takes what was typed for this one.
  bool Hidden = false;
};

// Starts a program and waits for its end. After `limit`, or when the user asks to interrupt, it is
// terminated together with the processes that it started; that takes a second at most. True when it
// was started, however it ended. False when it couldn't be: no program or folder of that name, a
// zero byte in a text, the user had asked to interrupt before.
[[nodiscard]] bool RunProcess(const ProcessStart& start, std::chrono::milliseconds limit);

// Starts a program that goes on by itself: it outlives this program, and nothing is left of it when
// it has ended. What it prints is shown where this program's output is, unless that is a pipe,
// whose reader would have to wait for its end. A batch file, "name.bat", is a program, too: its
// lines are command lines, which are run one after the other without a shell; one whose program
// isn't there is passed over, and a file of nothing but such lines can't be started. True when it
// was started, as with RunProcess.
[[nodiscard]] bool StartProcess(const ProcessStart& start);

}  // namespace host
