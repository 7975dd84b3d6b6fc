#include "host/command/export_file.h"

#include <string>

#include "host/command/command_registry.h"
#include "host/command/guarded_call.h"
#include "host/document/app.h"
#include "host/system/interrupt.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace {

CRhinoFileExportPlugIn* FindExporterOf(const CommandRegistry& registry, std::string_view path) {
  std::string extension = host::SplitPath(path).Extension;
  if (!extension.empty()) extension.erase(0, 1);
  CRhinoFileExportPlugIn* plug_in = registry.FindExporter(extension);
  if (plug_in == nullptr && host::EqualNoCase(extension, "rib")) {
    plug_in = registry.FindExporter("orib");
  }
  return plug_in;
}

}  // namespace

CommandResult ExportFile(const CommandRegistry& registry, CRhinoDoc& doc, std::string_view path,
                         bool selected_only) {
  const std::string quoted = "'" + std::string(path) + "'";
  CRhinoFileExportPlugIn* plug_in = FindExporterOf(registry, path);
  if (plug_in == nullptr) {
    RhinoApp().Print("No plug-in writes a file of the type of " + quoted + ".\n");
    return CommandResult::failure;
  }
  CRhinoFileWriteOptions options;
  options.SetMode(0, selected_only);
  const int written =
      GuardedCall("Export", 0, [&] { return plug_in->WriteFile(path, doc, options); });
  if (host::InterruptRequested()) return CommandResult::cancel;
  if (written != 1) {
    RhinoApp().Print("Unable to export " + quoted + ".\n");
    return CommandResult::failure;
  }
  RhinoApp().Print("Exported " + quoted + ".\n");
  return CommandResult::success;
}
