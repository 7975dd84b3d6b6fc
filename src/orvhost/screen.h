#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "host/system/command_window.h"

// What the program shows: the text of commands on the standard output and, where the standard error
// is a terminal, a line with the progress of jobs that take more than a second.
class Screen {
 public:
  Screen();

  void Print(std::string_view text);
  // Shows how far a job is, or erases the line when it has ended. See CommandWindow.
  void ShowProgress(const host::Progress* progress);

 private:
  using Clock = std::chrono::steady_clock;

  void Draw(const host::Progress& progress);
  void Erase();

  bool shows_progress_;
  // Whether the text so far ends with a line.
  bool is_at_line_start_ = true;
  bool is_line_drawn_ = false;
  // When the line of the running job is to be drawn next; nothing when none runs.
  std::optional<Clock::time_point> next_drawing_;
};
