#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

// Where the answers to prompts come from: a script, a terminal, a test, later a page.

// A command option as the prompt shows it.
struct PromptOption {
  std::string Name;
  // The value that the prompt shows; empty when the option has none.
  std::string Value;
  // The words that its value may have, for completion; empty when it may be anything.
  std::vector<std::string> Choices;
};

// What a prompt shows and accepts.
struct Prompt {
  // "Write Archive". Blanks and a colon at its end are not shown twice.
  std::string Text;
  std::vector<PromptOption> Options;
  // What Enter stands for; empty when there is none.
  std::string Default;
  // Answers that are at hand, for completion; not shown.
  std::vector<std::string> Words;
  // True when no command runs: the answer is a command's name.
  bool AsksForCommand = false;
  // True when Enter is an answer, with or without a default.
  bool AcceptsEnter = false;
  // True when the answer is one whole text that may contain blanks, as a file name.
  bool TakesText = false;
  // True when the answer is a path: the terminal completes file names, relative ones in Folder.
  bool TakesPath = false;
  std::string Folder;

  // The line as it is shown: "Write Archive <default> ( Archive=a.rib  Materials=Yes ): ".
  std::string Line() const;
};

// One answer to a prompt.
struct Answer {
  enum class Kind {
    text,    // a word or text
    enter,   // Enter: take the default, or end the loop
    cancel,  // `!` or Ctrl-C: end the command
    end,     // no more input will come (Ctrl-D): ends the command, or the program between commands
  };
  Kind kind = Kind::end;
  std::string Text;
  // True when the text stood in double quotes and so is neither the name of an option nor a key.
  bool Quoted = false;
};

class InputSource {
 public:
  InputSource() = default;
  virtual ~InputSource() = default;
  InputSource(const InputSource&) = delete;
  InputSource& operator=(const InputSource&) = delete;

  // Blocks until there is an answer.
  Answer Ask(const Prompt& prompt);
  // The answer to the next prompt is known already, as the value in "Archive=a.rib".
  void AnswerNextPrompt(Answer answer) { known_.push_back(std::move(answer)); }
  // Forgets answers to prompts that never came.
  void ForgetKnownAnswers() { known_.clear(); }

  // Tells that the last answer can't be used, and why. True when it makes sense to ask again: a
  // person answers. False when the command is to fail.
  virtual bool Refuse(std::string_view message) = 0;
  // True when a person answers (dialogs are shown as path prompts).
  virtual bool IsInteractive() const = 0;

 protected:
  virtual Answer Read(const Prompt& prompt) = 0;

 private:
  std::deque<Answer> known_;
};
