#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace host {

// How far a long job is.
struct Progress {
  // What is done: "Writing".
  std::string_view Task;
  // In objects.
  std::size_t Done = 0;
  std::size_t Total = 0;
  // The size of the file that is written, so far; 0 when none is.
  std::uint64_t Bytes = 0;
};

// Where the text of commands goes: the terminal, a log, a test. One line of text may arrive in
// several pieces.
class CommandWindow {
 public:
  using Sink = std::function<void(std::string_view)>;
  // Null when the job has ended.
  using ProgressSink = std::function<void(const Progress*)>;

  // The text goes to `sink`; without one it is dropped.
  void SetSink(Sink sink) { sink_ = std::move(sink); }
  void Print(std::string_view text) const;

  // How far jobs are goes to `sink`; without one it is dropped. See ProgressMeter.
  void SetProgressSink(ProgressSink sink) { progress_sink_ = std::move(sink); }
  void ShowProgress(const Progress* progress) const;

 private:
  Sink sink_;
  ProgressSink progress_sink_;
};

}  // namespace host
