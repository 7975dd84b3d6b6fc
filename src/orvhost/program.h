#pragma once

#include <memory>
#include <vector>

#include "arguments.h"
#include "host/command/command_registry.h"
#include "host/command/host_commands.h"
#include "host/command/plugin_module.h"
#include "host/command/script_input.h"
#include "screen.h"

// One run of the program: loads the plug-in, opens the document, runs what it was told to.
class Program {
 public:
  explicit Program(Arguments arguments) : arguments_(std::move(arguments)), commands_(registry_) {}

  // The exit status.
  int Run();

 private:
  // Each is false, with a message on the standard error, when the program can't go on.
  bool PrepareScripts();
  bool CheckExportFolder() const;
  bool LoadPlugIn();
  bool OpenModel();

  // Shows on the screen what commands tell.
  void ShowText();
  void LoadProfile();
  CommandResult RunLoaded();
  CommandResult RunScripts();
  CommandResult RunExport() const;
  CommandResult RunPrompt();
  void EndPlugIn();

  Arguments arguments_;
  Screen screen_;
  CommandRegistry registry_;
  HostCommands commands_;
  std::unique_ptr<PlugInModule> module_;
  std::vector<std::unique_ptr<ScriptInput>> scripts_;
  bool profile_loaded_ = false;
};
