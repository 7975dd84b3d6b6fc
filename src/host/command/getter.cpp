#include "host/command/getter.h"

#include <utility>

int CRhinoGet::Add(std::string_view name, CommandOption::Kind kind) {
  options_.emplace_back(name, std::move(kind));
  return static_cast<int>(options_.size());
}

int CRhinoGet::AddCommandOption(std::string_view name, std::string_view value) {
  return Add(name, CommandOption::Plain{std::string(value)});
}

int CRhinoGet::AddCommandOptionToggle(std::string_view name, std::string_view off_word,
                                      std::string_view on_word, bool* value) {
  return Add(name, CommandOption::Toggle{std::string(off_word), std::string(on_word), value});
}

int CRhinoGet::AddCommandOptionInteger(std::string_view name, int* value, std::string_view prompt,
                                       int min, int max) {
  return Add(name, CommandOption::Integer{value, std::string(prompt), min, max});
}

int CRhinoGet::AddCommandOptionNumber(std::string_view name, double* value, std::string_view prompt,
                                      double min, double max) {
  return Add(name, CommandOption::Number{value, std::string(prompt), min, max});
}

int CRhinoGet::AddCommandOptionColor(std::string_view name, ON_Color* value,
                                     std::string_view prompt) {
  return Add(name, CommandOption::Color{value, std::string(prompt)});
}

int CRhinoGet::AddCommandOptionList(std::string_view name, std::span<const std::string_view> words,
                                    int* current) {
  return Add(name, CommandOption::List{{words.begin(), words.end()}, current});
}

::CommandResult CRhinoGet::CommandResult() const {
  switch (result_) {
    case Result::no_result:
      return ::CommandResult::failure;
    case Result::cancel:
      return ::CommandResult::cancel;
    case Result::nothing:
      return ::CommandResult::nothing;
    default:
      return ::CommandResult::success;
  }
}

CRhinoGet::Result CRhinoGet::Get() {
  option_index_ = 0;
  std::optional<Result> result;
  while (!result) result = TakeAnswer(context_.m_input.Ask(MakePrompt()));
  result_ = *result;
  return result_;
}

Prompt CRhinoGet::MakePrompt() const {
  Prompt prompt;
  prompt.Text = prompt_;
  prompt.Default = prompt_default_;
  prompt.AcceptsEnter = accept_nothing_;
  for (const CommandOption& option : options_) prompt.Options.push_back(option.Shown());
  CompletePrompt(prompt);
  return prompt;
}

std::optional<CRhinoGet::Result> CRhinoGet::TakeAnswer(const Answer& answer) {
  switch (answer.kind) {
    case Answer::Kind::enter:
      return TakeEnter();
    case Answer::Kind::cancel:
    case Answer::Kind::end:
      return Result::cancel;
    case Answer::Kind::text:
      break;
  }
  if (answer.Quoted) return TakeText(answer);
  const OptionMatch match = MatchOption(answer.Text);
  if (match.position >= 0) return PickOption(match);
  if (match.candidates.empty()) return TakeText(answer);
  return Refuse("Option '" + answer.Text + "' is ambiguous: " + OneOf(match.candidates) + ".");
}

CRhinoGet::OptionMatch CRhinoGet::MatchOption(std::string_view text) const {
  if (text.starts_with('_')) text.remove_prefix(1);
  std::vector<std::string> names;
  for (const CommandOption& option : options_) names.push_back(option.Name());
  OptionMatch match;
  const std::size_t equal = text.find('=');
  match.position = FindName(names, text.substr(0, equal), !TakesFreeText(), &match.candidates);
  if (equal != std::string_view::npos) match.value = text.substr(equal + 1);
  return match;
}

std::optional<CRhinoGet::Result> CRhinoGet::PickOption(const OptionMatch& match) {
  CommandOption& option = options_[static_cast<std::size_t>(match.position)];
  if (match.value && option.IsPlain()) {
    context_.m_input.AnswerNextPrompt({Answer::Kind::text, std::string(*match.value), true});
  } else if (match.value) {
    const std::string problem = option.SetValue(*match.value);
    if (!problem.empty()) return Refuse(problem);
  } else if (!option.IsPlain() && !option.Flip()) {
    const Result asked = AskForValue(option);
    if (asked != Result::option) return asked;
  }
  option_index_ = match.position + 1;
  return Result::option;
}

CRhinoGet::Result CRhinoGet::AskForValue(CommandOption& option) {
  for (;;) {
    const Answer answer = context_.m_input.Ask(option.ValuePrompt());
    if (answer.kind == Answer::Kind::enter) return Result::option;
    if (answer.kind != Answer::Kind::text) return Result::cancel;
    const std::string problem = option.SetValue(answer.Text);
    if (problem.empty()) return Result::option;
    if (const auto refused = Refuse(problem)) return *refused;
  }
}

std::optional<CRhinoGet::Result> CRhinoGet::TakeText(const Answer& answer) {
  if (options_.empty()) return Refuse("'" + answer.Text + "' is not expected here.");
  std::vector<std::string> names;
  for (const CommandOption& option : options_) names.push_back(option.Name());
  return Refuse("Unknown option '" + answer.Text + "'; expected " + OneOf(names) + ".");
}

std::optional<CRhinoGet::Result> CRhinoGet::TakeEnter() {
  return accept_nothing_ ? Result::nothing : Result::cancel;
}

std::optional<CRhinoGet::Result> CRhinoGet::Refuse(std::string_view message) {
  if (context_.m_input.Refuse(message)) return std::nullopt;
  return Result::no_result;
}
