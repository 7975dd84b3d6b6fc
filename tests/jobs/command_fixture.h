#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/document/doc.h"
#include "jobs/file_picker.h"
#include "jobs/plugin.h"
#include "support/temp_folder.h"
#include "support/typed_input.h"

// Commands of a plug-in of the test's own, in a document with two squares.
class CommandTest : public testing::Test {
 protected:
  // Dialogs are asked for in a command that a person runs, prompts in the scripted form.
  enum class Form { interactive, scripted };

  CommandTest();
  ~CommandTest() override;

  // The rows of a picker's filter, as "description|pattern".
  static std::vector<std::string> Rows(const orv::FilePicker& picker);

  // Runs the command with the answers to its prompts, none of which may be left over.
  template <class Command>
  CommandResult Run(Form form, std::vector<std::string> answers) {
    Command command(plugIn_);
    return RunWith(command, form, std::move(answers));
  }

  // The stored setting; empty when there is none.
  std::string Setting(std::string_view key) const {
    return std::string(plugIn_.UserStrings().GetUserString(key).value_or(""));
  }

  TempFolder folder_;
  CRhinoDoc doc_;
  orv::CSceneOutPlugIn plugIn_;
  // All that the command window has shown, and the prompts of the last command.
  std::string messages_;
  std::vector<std::string> prompts_;

 private:
  CommandResult RunWith(CRhinoCommand& command, Form form, std::vector<std::string> answers);
};
