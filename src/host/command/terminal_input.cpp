#include "host/command/terminal_input.h"

#include "host/command/line_editor.h"
#include "host/command/script.h"
#include "host/document/app.h"
#include "host/system/text.h"

namespace {

// True when the line is one word, a key, or one text in quotes, and not a text with blanks.
bool IsOneAnswer(const Script& script, std::string_view typed) {
  if (script.tokens.size() != 1) return false;
  const Answer& answer = script.tokens.front().answer;
  return answer.kind != Answer::Kind::text || answer.Quoted || answer.Text == typed;
}

}  // namespace

TerminalInput::TerminalInput(std::string history_path)
    : editor_(std::make_unique<LineEditor>(std::move(history_path))) {}

TerminalInput::~TerminalInput() = default;

Answer TerminalInput::Read(const Prompt& prompt) {
  while (answers_.empty()) {
    const LineEditor::Line line = editor_->Read(prompt);
    if (line.end == LineEditor::End::interrupt) return {Answer::Kind::cancel, {}, false};
    if (line.end == LineEditor::End::end_of_input) return {Answer::Kind::end, {}, false};
    TakeLine(line.text, prompt);
  }
  Answer answer = std::move(answers_.front());
  answers_.pop_front();
  if (answer.kind == Answer::Kind::cancel) answers_.clear();
  return answer;
}

void TerminalInput::TakeLine(std::string_view line, const Prompt& prompt) {
  const std::string_view typed = host::Trimmed(line);
  Script script = ParseScript(typed);
  if (typed.empty()) {
    answers_.push_back({Answer::Kind::enter, {}, false});
  } else if (prompt.TakesText && !IsOneAnswer(script, typed)) {
    answers_.push_back({Answer::Kind::text, std::string(typed), false});
  } else if (!script.error.empty()) {
    Refuse(script.error);
  } else {
    for (ScriptToken& token : script.tokens) answers_.push_back(std::move(token.answer));
  }
}

bool TerminalInput::Refuse(std::string_view message) {
  answers_.clear();
  RhinoApp().Print(std::string(message) + "\n");
  return true;
}
