#include <algorithm>

#include "host/command/command_option.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"

namespace {

// A row for each command, its description behind the longest name.
std::string CommandList(const CommandRegistry& registry) {
  std::size_t width = 0;
  for (const CRhinoCommand* command : registry.Commands()) {
    width = std::max(width, command->EnglishCommandName().size());
  }
  std::string text;
  for (const CRhinoCommand* command : registry.Commands()) {
    const std::string_view name = command->EnglishCommandName();
    text += std::string(name) + std::string(width + 2 - name.size(), ' ') +
            std::string(command->Description()) + "\n";
  }
  return text + "Help and a command's name tells what the command asks for.\n";
}

CommandResult RunHelp(const CommandRegistry& registry, CRhinoCommandContext& context) {
  CRhinoGetString get(context);
  get.SetCommandPrompt("Command name (Enter lists all)");
  get.AcceptNothing();
  std::vector<std::string> names;
  for (const CRhinoCommand* command : registry.Commands()) {
    names.emplace_back(command->EnglishCommandName());
  }
  get.SetWords(std::move(names));
  const CRhinoGet::Result result = get.GetString();
  if (result == CRhinoGet::Result::nothing) {
    RhinoApp().Print(CommandList(registry));
    return CommandResult::success;
  }
  if (result != CRhinoGet::Result::string) return get.CommandResult();
  const CRhinoCommand* command = registry.FindCommand(get.String());
  if (command == nullptr) {
    RhinoApp().Print("There is no command '" + get.String() + "'.\n");
    return CommandResult::failure;
  }
  RhinoApp().Print(std::string(command->EnglishCommandName()) + ": " +
                   std::string(command->Description()) + "\n" + std::string(command->Usage()));
  return CommandResult::success;
}

}  // namespace

std::vector<HostCommand::Row> ProgramCommands(CommandRegistry& registry, bool& exit_requested) {
  return {
      {"2f8c7539-4bb6-4824-9683-6680db906343"_uuid, "Help",
       "Lists the commands, or tells what one of them asks for.",
       "Asks for a command's name; Enter lists all commands.\n",
       [&registry](CRhinoCommandContext& context) { return RunHelp(registry, context); }},
      {"9c02d4ec-7c30-40eb-985b-779fe8cb42b1"_uuid, "Exit", "Ends the program.",
       "Asks for nothing.\n",
       [&exit_requested](CRhinoCommandContext&) {
         exit_requested = true;
         return CommandResult::success;
       }},
  };
}
