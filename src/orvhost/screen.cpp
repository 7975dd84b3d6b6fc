#include "screen.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

#include "host/system/environment.h"
#include "host/system/text.h"

namespace {

constexpr std::chrono::milliseconds kLongJob{1000};
constexpr std::chrono::milliseconds kBetweenDrawings{100};

// The letters of a line that the terminal doesn't break.
std::size_t LineWidth() {
  winsize size = {};
  const bool is_known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return is_known ? size.ws_col - std::size_t{1} : 79;
}

std::string SizeText(std::uint64_t bytes) {
  constexpr double kMegabyte = 1e6;
  return host::Format("%.1f MB", static_cast<double>(bytes) / kMegabyte);
}

}  // namespace

Screen::Screen() {
  const std::string terminal = host::EnvironmentValue("TERM").value_or("dumb");
  shows_progress_ = isatty(STDERR_FILENO) != 0 && terminal != "dumb";
}

void Screen::Print(std::string_view text) {
  if (text.empty()) return;
  Erase();
  std::fwrite(text.data(), 1, text.size(), stdout);
  is_at_line_start_ = text.back() == '\n';
}

void Screen::ShowProgress(const host::Progress* progress) {
  if (!shows_progress_) return;
  if (progress == nullptr) {
    Erase();
    next_drawing_.reset();
    return;
  }
  const Clock::time_point now = Clock::now();
  if (!next_drawing_) next_drawing_ = now + kLongJob;
  if (now < *next_drawing_ || !is_at_line_start_) return;
  next_drawing_ = now + kBetweenDrawings;
  Draw(*progress);
}

void Screen::Draw(const host::Progress& progress) {
  std::string line = std::string(progress.Task) + " " + std::to_string(progress.Done) + " of " +
                     std::to_string(progress.Total) + " objects";
  if (progress.Bytes > 0) line += ", " + SizeText(progress.Bytes);
  line = "\r" + std::string(host::FirstCodePoints(line, LineWidth())) + "\x1b[K";
  std::fflush(stdout);
  std::fwrite(line.data(), 1, line.size(), stderr);
  std::fflush(stderr);
  is_line_drawn_ = true;
}

void Screen::Erase() {
  if (!is_line_drawn_) return;
  std::fputs("\r\x1b[K", stderr);
  std::fflush(stderr);
  is_line_drawn_ = false;
}
