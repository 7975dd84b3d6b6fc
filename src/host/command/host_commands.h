#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"
#include "host/command/command_registry.h"

// A command of the host's own.
class HostCommand : public CRhinoCommand {
 public:
  // What a command is and does; the texts are constants.
  struct Row {
    ON_UUID Id;
    std::string_view Name;
    std::string_view Description;
    std::string_view Usage;
    std::function<CommandResult(CRhinoCommandContext&)> Run;
    bool RecordsUndo = true;
  };

  explicit HostCommand(Row row) : row_(std::move(row)) {}
  ON_UUID CommandUUID() const override { return row_.Id; }
  std::string_view EnglishCommandName() const override { return row_.Name; }
  std::string_view Description() const override { return row_.Description; }
  std::string_view Usage() const override { return row_.Usage; }
  bool RecordsUndo() const override { return row_.RecordsUndo; }
  CommandResult RunCommand(CRhinoCommandContext& context) override { return row_.Run(context); }

 private:
  Row row_;
};

// All commands of the host, registered as long as the program runs.
class HostCommands {
 public:
  explicit HostCommands(CommandRegistry& registry);

  // Becomes true when the command Exit has run.
  const bool& ExitRequested() const { return exit_requested_; }

 private:
  std::vector<std::unique_ptr<HostCommand>> commands_;
  bool exit_requested_ = false;
};

// The commands of each family. `registry` and `exit_requested` outlive the rows.
std::vector<HostCommand::Row> FileCommands(CommandRegistry& registry);
std::vector<HostCommand::Row> SaveCommands();
std::vector<HostCommand::Row> EditCommands();
std::vector<HostCommand::Row> AttributeCommands();
std::vector<HostCommand::Row> LightCommands();
std::vector<HostCommand::Row> LightEditCommands();
std::vector<HostCommand::Row> SelectionCommands();
std::vector<HostCommand::Row> ViewCommands();
std::vector<HostCommand::Row> CameraCommands();
std::vector<HostCommand::Row> ReportCommands();
std::vector<HostCommand::Row> PropertiesCommands(const CommandRegistry& registry);
std::vector<HostCommand::Row> ProgramCommands(CommandRegistry& registry, bool& exit_requested);
