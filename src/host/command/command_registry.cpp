#include "host/command/command_registry.h"

#include <algorithm>

#include "host/command/command_option.h"
#include "host/command/guarded_call.h"
#include "host/document/app.h"
#include "host/system/text.h"

bool CommandRegistry::AddCommand(CRhinoCommand& command) {
  const std::string name(command.EnglishCommandName());
  for (const CRhinoCommand* other : commands_) {
    if (host::EqualNoCase(other->EnglishCommandName(), name)) return false;
  }
  const auto after = [](const std::string& text, const CRhinoCommand* other) {
    return text < other->EnglishCommandName();
  };
  commands_.insert(std::upper_bound(commands_.begin(), commands_.end(), name, after), &command);
  return true;
}

bool CommandRegistry::AddPlugIn(CRhinoFileExportPlugIn& plug_in) {
  const std::string name(plug_in.PlugInName());
  if (!GuardedCall("Loading " + name, false, [&] { return plug_in.OnLoadPlugIn(); })) return false;
  plug_ins_.push_back(&plug_in);
  for (CRhinoCommand* command : plug_in.Commands()) {
    if (AddCommand(*command)) continue;
    RhinoApp().Print(name + ": a command named " + std::string(command->EnglishCommandName()) +
                     " is there already.\n");
  }
  RhinoApp().AddPlugInData(plug_in);
  return true;
}

void CommandRegistry::RemovePlugIn(CRhinoFileExportPlugIn& plug_in) {
  if (std::erase(plug_ins_, &plug_in) == 0) return;
  RhinoApp().RemovePlugInData(plug_in);
  for (const CRhinoCommand* command : plug_in.Commands()) std::erase(commands_, command);
  GuardedCall("Unloading " + std::string(plug_in.PlugInName()), false, [&] {
    plug_in.OnUnloadPlugIn();
    return true;
  });
}

CRhinoCommand* CommandRegistry::FindCommand(std::string_view name,
                                            std::vector<std::string>* candidates) const {
  std::vector<std::string> names;
  for (const CRhinoCommand* command : commands_) names.emplace_back(command->EnglishCommandName());
  const int index = FindName(names, name, true, candidates);
  return index < 0 ? nullptr : commands_[static_cast<std::size_t>(index)];
}

CRhinoFileExportPlugIn* CommandRegistry::FindExporter(std::string_view extension) const {
  for (CRhinoFileExportPlugIn* plug_in : plug_ins_) {
    std::vector<CRhinoFileType> types;
    plug_in->AddFileType(types);
    for (const CRhinoFileType& type : types) {
      if (host::EqualNoCase(type.Extension, extension)) return plug_in;
    }
  }
  return nullptr;
}
