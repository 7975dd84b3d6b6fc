#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/command/command.h"
#include "host/command/plugin.h"

// The commands that can be run by name, and the file types that can be exported.
class CommandRegistry {
 public:
  // Neither is owned. A command whose name is taken is refused (false).
  bool AddCommand(CRhinoCommand& command);
  // Calls OnLoadPlugIn and registers the plug-in's commands, file types and document data. False,
  // with nothing registered, when OnLoadPlugIn is false. A command whose name is taken is left out,
  // with a message.
  [[nodiscard]] bool AddPlugIn(CRhinoFileExportPlugIn& plug_in);
  // Removes all that the plug-in registered and calls OnUnloadPlugIn.
  void RemovePlugIn(CRhinoFileExportPlugIn& plug_in);

  // The command with the name, or with an unambiguous beginning of a name, in any case. Null when
  // there is none; `candidates` then holds the names that begin so, sorted.
  CRhinoCommand* FindCommand(std::string_view name,
                             std::vector<std::string>* candidates = nullptr) const;
  // Sorted by name.
  const std::vector<CRhinoCommand*>& Commands() const { return commands_; }

  const std::vector<CRhinoFileExportPlugIn*>& PlugIns() const { return plug_ins_; }
  // The plug-in that writes files with this extension (without its point, in any case); null.
  CRhinoFileExportPlugIn* FindExporter(std::string_view extension) const;

 private:
  std::vector<CRhinoCommand*> commands_;
  std::vector<CRhinoFileExportPlugIn*> plug_ins_;
};
