#include "host/archive/document_source.h"
#include "host/command/file_dialog.h"
#include "host/command/get_string.h"
#include "host/command/host_commands.h"
#include "host/document/app.h"
#include "host/system/path.h"
#include "host/system/text.h"

namespace {

constexpr std::string_view kExtension = ".3dm";

CommandResult SaveTo(const std::string& path) {
  if (!RhinoApp().SaveDocument(path)) return CommandResult::failure;
  RhinoApp().Print("Saved " + path + ".\n");
  return CommandResult::success;
}

// Why the document can't take the place of its own file; empty when it can.
std::string Objection(const CRhinoDoc& doc) {
  const std::string& path = doc.PathName();
  if (path.empty() || doc.Source() == nullptr) {
    return "The document has no file yet; SaveAs gives it one.\n";
  }
  const host::FileReader* file = doc.Source()->File();
  if (file == nullptr || file->IsAt(path)) return {};
  if (host::FileExists(path)) {
    return "Another program has put another file in the place of " + path +
           " since it was opened; SaveAs saves the document elsewhere or over it.\n";
  }
  return path + " isn't there any more; SaveAs saves the document there again or elsewhere.\n";
}

CommandResult RunSave(CRhinoCommandContext& context) {
  const std::string objection = Objection(context.m_doc);
  if (objection.empty()) return SaveTo(context.m_doc.PathName());
  RhinoApp().Print(objection);
  return CommandResult::failure;
}

std::string WithExtension(const std::string& path) {
  const bool has = host::EqualNoCase(host::SplitPath(path).Extension, kExtension);
  return has ? path : path + std::string(kExtension);
}

CommandResult SaveAsByDialog(CRhinoCommandContext& context) {
  CRhinoFileDialog dialog;
  dialog.Title = "Save As";
  dialog.Filters = {{"3D Models (*.3dm)", "*.3dm"}};
  dialog.FileName = context.m_doc.PathName();
  for (;;) {
    const auto choice = GetSaveFileName(context, dialog);
    if (!choice) return CommandResult::cancel;
    std::string path = WithExtension(choice->Path);
    if (path == choice->Path || !host::FileExists(path)) return SaveTo(path);
    // The dialog has not asked whether that file may be replaced.
    dialog.FileName = std::move(path);
  }
}

CommandResult RunSaveAs(CRhinoCommandContext& context) {
  if (context.IsInteractive()) return SaveAsByDialog(context);
  CRhinoGetString get(context);
  get.SetCommandPrompt("File to save as");
  get.TakePath();
  if (get.GetString() != CRhinoGet::Result::string) return get.CommandResult();
  const std::string path = WithExtension(get.String());
  const std::string objection = NameObjection(path);
  if (objection.empty()) return SaveTo(path);
  RhinoApp().Print(objection + "\n");
  return CommandResult::failure;
}

}  // namespace

std::vector<HostCommand::Row> SaveCommands() {
  return {
      {"a1f5c35c-5f0e-4d9a-8b0c-2f9d2f3a7c61"_uuid, "Save", "Saves the document in its own file.",
       "Asks for nothing. The file keeps its version, and what was not changed stays as it is, "
       "byte "
       "for byte.\n"
       "A file that another program changed, replaced or removed since it was opened isn't "
       "touched.\n",
       RunSave, false},
      {"0d1c8c1e-7a64-4e0b-9d53-6b0f6f1f9a52"_uuid, "SaveAs",
       "Saves the document in another file, which is then its own.",
       "Asks for the path of the file; \".3dm\" is added where it doesn't end so. At a terminal "
       "you "
       "are asked\nbefore a file is replaced; a script replaces it.\n",
       RunSaveAs, false},
  };
}
