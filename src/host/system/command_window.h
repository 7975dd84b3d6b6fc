#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace host {

// Where the text of commands goes: the terminal, a log, a test. One line of text may arrive in
// several pieces.
class CommandWindow {
 public:
  using Sink = std::function<void(std::string_view)>;

  // The text goes to `sink`; without one it is dropped.
  void SetSink(Sink sink) { sink_ = std::move(sink); }
  void Print(std::string_view text) const;

 private:
  Sink sink_;
};

}  // namespace host
