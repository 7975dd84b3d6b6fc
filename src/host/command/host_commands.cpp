#include "host/command/host_commands.h"

HostCommands::HostCommands(CommandRegistry& registry) {
  const auto add = [&](std::vector<HostCommand::Row> rows) {
    for (HostCommand::Row& row : rows) {
      commands_.push_back(std::make_unique<HostCommand>(std::move(row)));
      registry.AddCommand(*commands_.back());
    }
  };
  add(FileCommands(registry));
  add(SaveCommands());
  add(EditCommands());
  add(AttributeCommands());
  add(LightCommands());
  add(LightEditCommands());
  add(SelectionCommands());
  add(ViewCommands());
  add(CameraCommands());
  add(ReportCommands());
  add(PropertiesCommands(registry));
  add(ProgramCommands(registry, exit_requested_));
}
