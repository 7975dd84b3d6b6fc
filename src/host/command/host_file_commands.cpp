#include "host/command/export_file.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"

namespace {

using OpenOperation = bool (CRhinoApp::*)(std::string_view);

CommandResult ReadDocumentFile(CRhinoCommandContext& context, std::string_view prompt,
                               OpenOperation operation) {
  CRhinoGetString get(context);
  get.SetCommandPrompt(prompt);
  get.TakePath();
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  return (RhinoApp().*operation)(get.String()) ? CommandResult::success : CommandResult::failure;
}

CommandResult RunOpen(CRhinoCommandContext& context) {
  return ReadDocumentFile(context, "File to open", &CRhinoApp::OpenDocument);
}

CommandResult RunImport(CRhinoCommandContext& context) {
  return ReadDocumentFile(context, "File to import", &CRhinoApp::ImportDocument);
}

CommandResult RunExport(const CommandRegistry& registry, CRhinoCommandContext& context) {
  bool selected_only = false;
  for (;;) {
    CRhinoGetString get(context);
    get.SetCommandPrompt("File to export to");
    get.TakePath();
    get.AddCommandOptionToggle("Selected", "No", "Yes", &selected_only);
    const CRhinoGet::Result result = get.GetString();
    if (result == CRhinoGet::Result::option) continue;
    if (result != CRhinoGet::Result::string) return get.CommandResult();
    return ExportFile(registry, context.m_doc, get.String(), selected_only);
  }
}

}  // namespace

std::vector<HostCommand::Row> FileCommands(CommandRegistry& registry) {
  return {
      {"67bdbce6-c61d-47a8-817d-3400f59961aa"_uuid, "Open",
       "Opens a document in place of the open one.", "Asks for the path of a .3dm file.\n",
       RunOpen},
      {"5407b670-b824-4b55-a170-3ba543576e6e"_uuid, "Import",
       "Adds the content of another document to the open one.",
       "Asks for the path of a .3dm file. Its views and settings are left out.\n", RunImport},
      {"c42bac18-b074-4dd5-99a7-30996e79e165"_uuid, "Export",
       "Writes the document as a file of a plug-in's type.",
       "Asks for the path of the file, whose extension tells its type: .orib or .rib.\n"
       "  Selected=No|Yes  only the selected objects, with all lights\n"
       "The plug-in's default settings are used, not those of the document.\n",
       [&registry](CRhinoCommandContext& context) { return RunExport(registry, context); }},
  };
}
