#pragma once

#include <string_view>

#include "host/command/command.h"
#include "host/command/command_registry.h"
#include "host/command/input_source.h"

// Runs the commands that an input source names, one after the other.
class CommandRunner {
 public:
  CommandRunner(CommandRegistry& registry, InputSource& input)
      : registry_(registry), input_(input) {}

  // Runs until the input ends or `exit_requested` is true, which a command may make it. The worst
  // of the commands' results; an unknown command counts as a failure. A command during which Ctrl-C
  // was pressed is at least cancelled; the mark is cleared when a person answers.
  CommandResult RunAll(const bool& exit_requested);

 private:
  // Runs the command of the typed name, in its scripted form when a `-` stands before it.
  CommandResult RunNamed(const Answer& answer);
  // What the command changes is one record for Undo, with the command's English name.
  CommandResult Run(CRhinoCommand& command, bool scripted);

  CommandRegistry& registry_;
  InputSource& input_;
};
