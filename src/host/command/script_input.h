#pragma once

#include <cstddef>
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

  bool Refuse(std::string_view message) override;
  bool IsInteractive() const override { return false; }

  // Why the script was ended early: "job.txt, line 3: Unknown command 'Foo'."; empty when it
  // wasn't.
  const std::string& Error() const { return error_; }

 protected:
  Answer Read(const Prompt& prompt) override;

 private:
  Answer AnswerAfterEnd(const Prompt& prompt);
  void Fail(int line, std::string_view message);

  std::string name_;
  Script script_;
  std::size_t next_ = 0;
  bool entered_after_end_ = false;
  std::string error_;
};
