#pragma once

#include <string>
#include <vector>

#include "command_fixture.h"

// A row of an options command as a user meets it at the prompt. `Key` names the setting that is
// stored; it is empty for what is not kept in the document.
struct ToggleRow {
  std::string Name, Key;
};
struct ListRow {
  std::string Name, Key;
  std::vector<std::string> Words;
};
struct ColorRow {
  std::string Name, Key, Prompt;
};
// Bounds as they are typed; `Below` and `Above` are values just outside of them.
struct NumberRow {
  std::string Name, Key, Prompt, Kind, Minimum, Maximum, Below, Above;
};

// Runs commands that edit options, and checks the rows of their tables.
class OptionsTest : public CommandTest {
 protected:
  template <class Command>
  CommandResult Edit(std::vector<std::string> answers) {
    Command command(plugIn_);
    return EditWith(command, TypedInput::By::person, false, std::move(answers));
  }
  // With dialogs.
  template <class Command>
  CommandResult EditInteractively(std::vector<std::string> answers) {
    Command command(plugIn_);
    return EditWith(command, TypedInput::By::person, true, std::move(answers));
  }
  // What can't be used ends the command.
  template <class Command>
  CommandResult EditByScript(std::vector<std::string> answers) {
    Command command(plugIn_);
    return EditWith(command, TypedInput::By::script, false, std::move(answers));
  }

  // The row is at the prompt, takes what it should and refuses anything else. `first` are the
  // answers that show it.
  template <class Command>
  void Check(const ToggleRow& row, const std::vector<std::string>& first = {}) {
    Command command(plugIn_);
    CheckRow(command, row, first);
  }
  template <class Command>
  void Check(const ListRow& row, const std::vector<std::string>& first = {}) {
    Command command(plugIn_);
    CheckRow(command, row, first);
  }
  template <class Command>
  void Check(const ColorRow& row, const std::vector<std::string>& first = {}) {
    Command command(plugIn_);
    CheckRow(command, row, first);
  }
  template <class Command>
  void Check(const NumberRow& row, const std::vector<std::string>& first = {}) {
    Command command(plugIn_);
    CheckRow(command, row, first);
  }

  std::vector<std::string> refusals_;

 private:
  CommandResult EditWith(CRhinoCommand& command, TypedInput::By by, bool interactive,
                         std::vector<std::string> answers);
  // Runs the command with the answers and Enter, which it accepts.
  void Accept(CRhinoCommand& command, std::vector<std::string> first,
              const std::vector<std::string>& answers);
  void CheckRow(CRhinoCommand& command, const ToggleRow& row,
                const std::vector<std::string>& first);
  void CheckRow(CRhinoCommand& command, const ListRow& row, const std::vector<std::string>& first);
  void CheckRow(CRhinoCommand& command, const ColorRow& row, const std::vector<std::string>& first);
  void CheckRow(CRhinoCommand& command, const NumberRow& row,
                const std::vector<std::string>& first);
  // The last prompt shows the option with the value, and so does the document's setting.
  void ExpectValue(const std::string& name, const std::string& shown, const std::string& key,
                   const std::string& stored) const;
};
