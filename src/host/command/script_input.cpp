#include "host/command/script_input.h"

ScriptInput::ScriptInput(std::string_view text, std::string_view name)
    : name_(name), script_(ParseScript(text)) {
  if (!script_.error.empty()) Fail(script_.error_line, script_.error);
}

Answer ScriptInput::Read(const Prompt& prompt) {
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
  const int line = script_.tokens.empty() ? 1 : script_.tokens.back().line;
  std::string line_shown = prompt.Line();
  line_shown.resize(line_shown.find_last_not_of(": ") + 1);
  Fail(line, "The script ends where the command still asks: " + line_shown);
  return {Answer::Kind::end, {}, false};
}

bool ScriptInput::Refuse(std::string_view message) {
  if (error_.empty()) Fail(next_ == 0 ? 1 : script_.tokens[next_ - 1].line, message);
  return false;
}

void ScriptInput::Fail(int line, std::string_view message) {
  error_ = name_ + ", line " + std::to_string(line) + ": " + std::string(message);
}
