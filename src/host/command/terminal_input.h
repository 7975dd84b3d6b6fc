#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>

#include "host/command/input_source.h"

class LineEditor;

// Answers from a person at a terminal, with editing of the line, history and completion. Several
// words on one line answer several prompts, as in a script.
class TerminalInput : public InputSource {
 public:
  // Reads the standard input. The history is kept in the file `history_path`, unless that is empty.
  explicit TerminalInput(std::string history_path);
  ~TerminalInput() override;

  bool Refuse(std::string_view message) override;
  bool IsInteractive() const override { return true; }

 protected:
  Answer Read(const Prompt& prompt) override;

 private:
  // Takes a line apart into answers.
  void TakeLine(std::string_view line, const Prompt& prompt);

  std::unique_ptr<LineEditor> editor_;
  // The rest of the line.
  std::deque<Answer> answers_;
};
