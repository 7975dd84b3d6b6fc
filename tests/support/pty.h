#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/process.h"

// A program at a terminal: what a person types and sees. The terminal is 200 letters wide.
class Pty {
 public:
  explicit Pty(const std::vector<std::string>& command, const ProcessOptions& options = {});
  ~Pty();
  Pty(const Pty&) = delete;
  Pty& operator=(const Pty&) = delete;

  // Keys as the terminal sends them: "\r" is Enter, "\x03" is Ctrl-C, "\x1b[A" is the arrow up.
  void Type(std::string_view keys) const;
  // Waits until `text` is shown behind what was waited for before. Gives what was shown up to and
  // with it; the test fails, and all that was shown is told, when it doesn't come.
  std::string WaitFor(std::string_view text);
  // All that the program has sent so far, with the sequences that move the cursor.
  const std::string& Bytes() const { return bytes_; }
  // Waits for the end of the program; its status as ProcessResult has it.
  int Wait();

 private:
  // Reads what there is; false at the end of the program.
  bool Read();
  // Moves text without the sequences that move the cursor from raw_ to shown_.
  void Show();

  pid_t pid_ = -1;
  int terminal_ = -1;
  std::string bytes_;
  std::string raw_;
  std::string shown_;
};
