#pragma once

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"
#include "host/command/command_option.h"
#include "host/command/input_source.h"

// The base of the getters: objects with which a command asks for something and waits for the
// answer.
//
// An option is picked by its name or, unless the getter takes free text, by an unambiguous
// beginning of it, in any case; `_` before a name is ignored. "Name=Value" sets a value at once: on
// a plain option the value becomes the answer to the next prompt. A toggle picked without a value
// flips; an integer, number, colour or list then asks for its value. A value that doesn't fit is
// told and asked for again, or makes the getter fail when a script answers.
class CRhinoGet {
 public:
  enum class Result {
    no_result = 0,  // the answer can't be used; the command is to fail
    cancel = 1,
    nothing = 2,  // Enter
    option = 3,
    string,
    point,
    object,
    rectangle,
  };

  virtual ~CRhinoGet() = default;
  CRhinoGet(const CRhinoGet&) = delete;
  CRhinoGet& operator=(const CRhinoGet&) = delete;

  void SetCommandPrompt(std::string_view prompt) { prompt_ = prompt; }
  // The text that the prompt shows as what Enter stands for.
  void SetCommandPromptDefault(std::string_view text) { prompt_default_ = text; }
  // Enter gives Result::nothing. Without it (and without a default) Enter cancels.
  void AcceptNothing(bool accept = true) { accept_nothing_ = accept; }

  // Each gives the new option's index, counted from 1. The variables outlive the options.
  void ClearCommandOptions() { options_.clear(); }
  int AddCommandOption(std::string_view name, std::string_view value = {});
  int AddCommandOptionToggle(std::string_view name, std::string_view off_word,
                             std::string_view on_word, bool* value);
  int AddCommandOptionInteger(std::string_view name, int* value, std::string_view prompt = {},
                              int min = std::numeric_limits<int>::min(),
                              int max = std::numeric_limits<int>::max());
  int AddCommandOptionNumber(std::string_view name, double* value, std::string_view prompt = {},
                             double min = std::numeric_limits<double>::lowest(),
                             double max = std::numeric_limits<double>::max());
  int AddCommandOptionColor(std::string_view name, ON_Color* value, std::string_view prompt = {});
  // `current` is the position of the current word.
  int AddCommandOptionList(std::string_view name, std::span<const std::string_view> words,
                           int* current);

  // The index of the option that was picked; 0 when none was.
  int OptionIndex() const { return option_index_; }
  // The last result as what a command gives back: cancel, nothing or failure; success for all that
  // was had.
  ::CommandResult CommandResult() const;

 protected:
  explicit CRhinoGet(CRhinoCommandContext& context) : context_(context) {}

  // Asks until there is a result.
  Result Get();
  // The result is `result`, without asking.
  Result Have(Result result) { return result_ = result; }

  // A text that is no option. Nothing when it was refused and is to be asked for again.
  virtual std::optional<Result> TakeText(const Answer& answer);
  // Enter. The base gives nothing or cancel.
  virtual std::optional<Result> TakeEnter();
  // Whether any text is an answer, so that an option must be named in full.
  virtual bool TakesFreeText() const { return false; }
  // What is to be added to the prompt.
  virtual void CompletePrompt(Prompt& prompt) const { static_cast<void>(prompt); }

  // Tells what is wrong with the answer: nothing when it is to be asked for again, else no_result.
  std::optional<Result> Refuse(std::string_view message);
  CRhinoCommandContext& Context() const { return context_; }

 private:
  // Which option a text names, and the value that follows it.
  struct OptionMatch {
    int position = -1;
    std::optional<std::string_view> value;
    // The names that begin so when it is not clear which is meant.
    std::vector<std::string> candidates;
  };

  Prompt MakePrompt() const;
  std::optional<Result> TakeAnswer(const Answer& answer);
  OptionMatch MatchOption(std::string_view text) const;
  std::optional<Result> PickOption(const OptionMatch& match);
  // option, cancel or no_result.
  Result AskForValue(CommandOption& option);
  int Add(std::string_view name, CommandOption::Kind kind);

  CRhinoCommandContext& context_;
  std::string prompt_;
  std::string prompt_default_;
  bool accept_nothing_ = false;
  std::vector<CommandOption> options_;
  int option_index_ = 0;
  Result result_ = Result::no_result;
};
