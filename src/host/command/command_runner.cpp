#include "host/command/command_runner.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/command/command_option.h"
#include "host/command/guarded_call.h"
#include "host/system/interrupt.h"

CommandResult CommandRunner::RunAll(const bool& exit_requested) {
  CommandResult worst = CommandResult::success;
  Prompt prompt;
  prompt.Text = "Command";
  prompt.AsksForCommand = true;
  for (const CRhinoCommand* command : registry_.Commands()) {
    prompt.Words.emplace_back(command->EnglishCommandName());
  }
  while (!exit_requested) {
    const Answer answer = input_.Ask(prompt);
    if (answer.kind == Answer::Kind::end) break;
    if (answer.kind == Answer::Kind::text) worst = std::max(worst, RunNamed(answer));
  }
  return worst;
}

CommandResult CommandRunner::RunNamed(const Answer& answer) {
  std::string_view name = answer.Text;
  const std::size_t marks = std::min(name.find_first_not_of("-_"), name.size());
  const bool scripted = name.substr(0, marks).find('-') != std::string_view::npos;
  name.remove_prefix(marks);
  std::vector<std::string> candidates;
  CRhinoCommand* command = registry_.FindCommand(name, &candidates);
  if (command != nullptr) return Run(*command, scripted);
  std::string message = "Unknown command '" + answer.Text + "'; Help lists the commands.";
  if (!candidates.empty()) {
    message = "Command '" + answer.Text + "' is ambiguous: " + OneOf(candidates) + ".";
  }
  input_.Refuse(message);
  return CommandResult::failure;
}

CommandResult CommandRunner::Run(CRhinoCommand& command, bool scripted) {
  CRhinoCommandContext context(RhinoApp().ActiveDoc(), input_, input_.IsInteractive() && !scripted);
  const std::string name(command.EnglishCommandName());
  const unsigned record = command.RecordsUndo() ? context.m_doc.BeginUndoRecord(name) : 0;
  CommandResult result =
      GuardedCall(name, CommandResult::failure, [&] { return command.RunCommand(context); });
  context.m_doc.EndUndoRecord(record);
  input_.ForgetKnownAnswers();
  if (host::InterruptRequested()) {
    if (input_.Refuse("Interrupted.")) host::ClearInterrupt();
    result = std::max(result, CommandResult::cancel);
  }
  return result;
}
