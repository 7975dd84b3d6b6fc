#pragma once

#include "host/system/command_window.h"

namespace host {

// Tells how far a job over many objects is, from its first word until this ends. Used on one thread
// alone; telling costs next to nothing, so that each object may be told.
class ProgressMeter {
 public:
  // `task` outlives the meter.
  ProgressMeter(const CommandWindow& window, std::string_view task, std::size_t total)
      : window_(window), progress_{task, 0, total, 0} {}
  ~ProgressMeter() { window_.ShowProgress(nullptr); }
  ProgressMeter(const ProgressMeter&) = delete;
  ProgressMeter& operator=(const ProgressMeter&) = delete;

  void Show(std::size_t done, std::uint64_t bytes = 0) {
    progress_.Done = done;
    progress_.Bytes = bytes;
    window_.ShowProgress(&progress_);
  }

 private:
  const CommandWindow& window_;
  Progress progress_;
};

}  // namespace host
