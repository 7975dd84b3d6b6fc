#include "host/command/script_input.h"

#include <algorithm>
#include <utility>

#include "host/system/interrupt.h"

ScriptInput::ScriptInput(std::string_view text, std::string_view name)
    : name_(name), script_(ParseScript(text)) {
  if (!script_.error.empty()) Fail(script_.error_line, script_.error);
}

void ScriptInput::KeepGoing(std::function<void(const std::string&)> tell) {
  tell_ = std::move(tell);
}

Answer ScriptInput::Read(const Prompt& prompt) {
  if (prompt.AsksForCommand) {
    if (tell_ && !error_.empty() && !host::InterruptRequested()) GoOnBehindError();
    command_ = next_;
  }
  if (!error_.empty()) return {Answer::Kind::end, {}, false};
  if (next_ == script_.tokens.size()) return AnswerAfterEnd(prompt);
  return script_.tokens[next_++].answer;
}

Answer ScriptInput::AnswerAfterEnd(const Prompt& prompt) {
  if (prompt.AsksForCommand) return {Answer::Kind::end, {}, false};
  if (prompt.AcceptsEnter && !entered_after_end_) {
    entered_after_end_ = true;
    return {Answer::Kind::enter, {}, false};
  }
  resume_ = next_;
  const int line = script_.tokens.empty() ? 1 : script_.tokens.back().line;
  std::string line_shown = prompt.Line();
  line_shown.resize(line_shown.find_last_not_of(": ") + 1);
  Fail(line, "The script ends where the command still asks: " + line_shown);
  return {Answer::Kind::end, {}, false};
}

bool ScriptInput::Refuse(std::string_view message) {
  if (!error_.empty()) return false;
  resume_ = std::max<std::size_t>(next_, 1) - 1;
  Fail(next_ == 0 ? 1 : script_.tokens[resume_].line, message);
  return false;
}

void ScriptInput::GoOnBehindError() {
  tell_(error_);
  error_.clear();
  const auto& tokens = script_.tokens;
  std::size_t line = command_;
  while (line > 0 && !tokens[line].indent) --line;
  const auto begins_command = [&](std::size_t i) {
    return tokens[i].indent && *tokens[i].indent <= *tokens[line].indent;
  };
  next_ = std::max(command_ + 1, resume_);
  while (next_ < tokens.size() && !begins_command(next_)) ++next_;
}

void ScriptInput::Fail(int line, std::string_view message) {
  has_failed_ = true;
  error_ = name_ + ", line " + std::to_string(line) + ": " + std::string(message);
}
