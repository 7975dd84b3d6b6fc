#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "host/command/input_source.h"
#include "host/command/script.h"

// Answers from a script. When its words have run out while a command asks, Enter is answered once
// if the prompt takes it; after that the command is cancelled, and Error tells so.
class ScriptInput : public InputSource {
 public:
  // `name` is what messages call the script, as its file's name. A script that can't be parsed has
  // an Error at once and answers nothing.
  ScriptInput(std::string_view text, std::string_view name);

  // From now on an error ends the command that it was met in, is told and forgotten, and the script
  // goes on: with the next line that isn't indented deeper than the line of that command. The word
  // that was refused may stand in that line. A script that is interrupted ends.
  void KeepGoing(std::function<void(const std::string& error)> tell);

  bool Refuse(std::string_view message) override;
  bool IsInteractive() const override { return false; }

  // Why the script was ended early: "job.txt, line 3: Unknown command 'Foo'; ..."; empty when it
  // wasn't.
  const std::string& Error() const { return error_; }
  // Whether it has or had an Error.
  bool HasFailed() const { return has_failed_; }

 protected:
  Answer Read(const Prompt& prompt) override;

 private:
  Answer AnswerAfterEnd(const Prompt& prompt);
  void Fail(int line, std::string_view message);
  void GoOnBehindError();

  std::string name_;
  Script script_;
  std::size_t next_ = 0;
  // The word that named the running command.
  std::size_t command_ = 0;
  // The first word that may go on behind an error.
  std::size_t resume_ = 0;
  bool entered_after_end_ = false;
  std::string error_;
  bool has_failed_ = false;
  std::function<void(const std::string&)> tell_;
};
